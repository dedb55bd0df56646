#include "plugin/PLG_Common.h"

#include "foundation/Utilities.h"
#include "plugin/contract/DOC_Interface.h"
#include "plugin/contract/HostServices.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>

// Mouse and keys on the picture.

namespace {
constexpr int NoHandle = 9;
constexpr int NoAnchor = 4;
}

void PLG_Common::onMousePress(const QPoint &pos, int docId)
{
    m_anchorCorner = NoAnchor;
    if (!documentExists(pos, docId))
        return;
    m_host->beginUndoMacro(QString());
    m_dragging = true;
    m_pressPos = m_lastMousePos = pos;
}

void PLG_Common::onMouseMove(const QPoint &pos, int docId)
{
    if (!documentExists(pos, docId))
        return;
    DOC_Interface *doc = m_host->deviceByKey(DOCKEY(docId), true);
    if (!doc)
        return;
    m_lastMousePos = pos;
    doc->reportCursorPosition(doc->mapPoint(pos, true));
    m_currentDocId = docId;
}

void PLG_Common::finishMouse(int docId)
{
    onMouseRelease(m_lastMousePos, docId);
}

void PLG_Common::onMouseRelease(const QPoint &pos, int docId)
{
    const bool pressed = m_dragging;
    if (!documentExists(pos, docId) && !pressed)
        return;
    m_dragging = false;
    m_dragHandle = NoHandle;
    m_anchorCorner = NoAnchor;
    restoreCursor();
    m_host->endUndoMacro();
}

void PLG_Common::onMouseLeave()
{
    m_currentDocId = -1;
    restoreCursor();
}

bool PLG_Common::isDragging()
{
    return m_dragging;
}

QPoint PLG_Common::pressPosition()
{
    return m_pressPos;
}

QPoint PLG_Common::documentPoint(int docId)
{
    DOC_Interface *doc = m_host->deviceByKey(DOCKEY(docId), true);
    return doc ? doc->cursorPosition() : QPoint(0, 0);
}

QPoint PLG_Common::lastMousePosition()
{
    return m_lastMousePos;
}

qint32 PLG_Common::currentDocId()
{
    return m_currentDocId;
}

void PLG_Common::onKeyPress(QKeyEvent *)
{
    m_keyHeld = true;
}

void PLG_Common::onKeyRelease()
{
    m_keyHeld = false;
}

bool PLG_Common::isKeyHeld()
{
    return m_keyHeld;
}

void PLG_Common::restoreCursor()
{
    if (!m_cursorSet)
        return;
    m_cursorSet = false;
    UTL::restoreCursor();
}

bool PLG_Common::editsRegion(DOC_Interface *)
{
    return false;
}

bool PLG_Common::editsRegionOf(DOC_Interface *doc)
{
    return editsRegion(doc);
}

QRect PLG_Common::region(DOC_Interface *)
{
    return QRect(QPoint(0, 0), QPoint(-1, -1));
}

void PLG_Common::setRegion(DOC_Interface *, const QRect &, bool) {}

bool PLG_Common::isAspectFixed()
{
    return false;
}

double PLG_Common::aspectRatio()
{
    return 0.0;
}

QRect PLG_Common::regionToSensor(DOC_Interface *doc, const QRect &rect)
{
    int divider = 1;
    if (m_host->isFeatureOn(QLatin1String("binning"), doc, false))
        divider = int(std::pow(2.0, doc->binningLevel()));
    if (doc->hasScaleDivider(false))
        divider *= doc->scaleDivider();
    divider = std::max(divider, 1);
    QRect sensor(QPoint(rect.left() / divider, rect.top() / divider),
                 QPoint(rect.right() / divider, rect.bottom() / divider));
    sensor.setWidth(std::max(sensor.width(), 1));
    sensor.setHeight(std::max(sensor.height(), 1));
    return sensor;
}

QVariantMap PLG_Common::regionInfo(DOC_Interface *, const QSize &, const QRect &, bool, bool,
                                   double, int)
{
    return QVariantMap();
}

void PLG_Common::setRegionCursor(DOC_Interface *, int)
{
    restoreCursor();
}
