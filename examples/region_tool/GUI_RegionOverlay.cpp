#include "GUI_RegionOverlay.h"

#include "PLG_region.h"

#include <QPainter>
#include <QVector>

GUI_RegionOverlay::GUI_RegionOverlay(PLG_region &tool) : m_tool(tool)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setObjectName(QLatin1String("t_regionOverlay"));
}

QVector<QPoint> GUI_RegionOverlay::handlePoints(const QRect &rect)
{
    const QPoint middle = rect.center();
    return {rect.topLeft(),
            QPoint(middle.x(), rect.top()),
            rect.topRight(),
            QPoint(rect.left(), middle.y()),
            QPoint(rect.right(), middle.y()),
            rect.bottomLeft(),
            QPoint(middle.x(), rect.bottom()),
            rect.bottomRight()};
}

void GUI_RegionOverlay::paintEvent(QPaintEvent *)
{
    const QRect shown = m_tool.shownRegion();
    if (shown.isEmpty())
        return;
    QPainter painter(this);
    // A dark line under the bright one is seen on any picture.
    painter.setPen(QPen(QColor(0, 0, 0, 160), 3));
    painter.drawRect(shown.adjusted(0, 0, -1, -1));
    painter.setPen(QColor(0xffd23c));
    painter.drawRect(shown.adjusted(0, 0, -1, -1));
    painter.setBrush(QColor(0xffd23c));
    painter.setPen(Qt::black);
    // At a border of the picture a handle is drawn inside it, whole.
    constexpr int Half = HandleSize / 2;
    const QRect room = rect().adjusted(Half, Half, -Half, -Half);
    for (const QPoint &point : handlePoints(shown)) {
        const QPoint middle(qBound(room.left(), point.x(), room.right()),
                            qBound(room.top(), point.y(), room.bottom()));
        painter.drawRect(QRect(middle - QPoint(Half, Half), QSize(HandleSize - 1, HandleSize - 1)));
    }
}
