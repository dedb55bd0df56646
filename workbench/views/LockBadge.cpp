#include "workbench/views/LockBadge.h"

#include <QPainter>
#include <QPainterPath>

namespace {
constexpr int Margin = 6;
constexpr int Gap = 4;
}

LockBadge::LockBadge(QWidget *parent) : QWidget(parent)
{
    setAccessibleName(tr("Locked"));
    setToolTip(tr("Locked: a change made here reaches all cameras"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize LockBadge::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int sign = metrics.ascent();
    return {Margin + sign + Gap + metrics.horizontalAdvance(tr("Locked")) + Margin,
            metrics.height() + 2};
}

void LockBadge::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Amber with dark ink: it stands out in both looks.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xffc857));
    painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);

    const QColor ink(0x3a2a00);
    const qreal size = fontMetrics().ascent();
    const QRectF sign(Margin, (height() - size) / 2.0, size, size);
    const QRectF body(sign.left() + size * 0.14, sign.top() + size * 0.45, size * 0.72, size * 0.5);
    QPainterPath shackle;
    const QRectF arc(sign.left() + size * 0.28, sign.top() + size * 0.06, size * 0.44, size * 0.6);
    shackle.moveTo(arc.left(), body.top());
    shackle.lineTo(arc.left(), arc.center().y());
    shackle.arcTo(arc, 180, -180);
    shackle.lineTo(arc.right(), body.top());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, size * 0.13));
    painter.drawPath(shackle);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawRoundedRect(body, 1.5, 1.5);

    painter.setPen(ink);
    painter.drawText(rect().adjusted(int(sign.right()) + Gap, 0, -Margin, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, tr("Locked"));
}
