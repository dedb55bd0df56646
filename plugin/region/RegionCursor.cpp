#include "plugin/region/RegionCursor.h"

#include "foundation/Utilities.h"

#include <QCursor>
#include <QGuiApplication>

RegionCursor::~RegionCursor()
{
    restore();
}

void RegionCursor::show(Qt::CursorShape shape)
{
    // A pointer that only moves on would flicker.
    const QCursor *shown = QGuiApplication::overrideCursor();
    if (m_set && shown && shown->shape() == shape)
        return;
    const bool replace = m_set;
    m_set = true;
    switch (shape) {
    case Qt::SizeHorCursor:
        UTL::setSizeHorCursor(replace);
        break;
    case Qt::SizeVerCursor:
        UTL::setSizeVerCursor(replace);
        break;
    case Qt::SizeBDiagCursor:
        UTL::setSizeBDiagCursor(replace);
        break;
    case Qt::SizeFDiagCursor:
        UTL::setSizeFDiagCursor(replace);
        break;
    default:
        UTL::setSizeAllCursor(replace);
        break;
    }
}

void RegionCursor::restore()
{
    if (!m_set)
        return;
    m_set = false;
    if (QCoreApplication::instance()) // a tool may outlive it
        UTL::restoreCursor();
}
