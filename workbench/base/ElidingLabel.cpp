#include "workbench/base/ElidingLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

ElidingLabel::ElidingLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize ElidingLabel::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(QStringLiteral("M…")),
            QLabel::minimumSizeHint().height()};
}

bool ElidingLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), isCut() ? text() : QString(), this);
        return true;
    }
    return QLabel::event(event);
}

void ElidingLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), int(alignment()),
                     fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

bool ElidingLabel::isCut() const
{
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}
