#include "workbench/views/PictureArea.h"

#include "standin/documents/DocumentOwner.h"
#include "standin/documents/StandInCamera.h"

#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

PictureArea::PictureArea(StandInDocument &document, QWidget *parent)
    : QWidget(parent), m_document(document)
{
    setMinimumSize(120, 90);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureArea::setPicture(const QImage &picture, quint64 frame)
{
    m_picture = picture;
    m_frame = frame;
    update();
}

void PictureArea::setEmptyText(const QString &text)
{
    m_emptyText = text;
    update();
}

QSize PictureArea::sizeHint() const
{
    return QSize(480, 360);
}

void PictureArea::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0x101113));
    if (m_picture.isNull()) {
        painter.setPen(QColor(0xc4c7cc));
        painter.drawText(rect().adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap,
                         m_emptyText);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const ViewGeometry geometry = m_document.geometry();
    painter.setTransform(geometry.transform());
    painter.drawImage(QPoint(0, 0), m_picture);
    // Of a whole sensor, what is not read is darker.
    const auto *camera = dynamic_cast<const StandInCamera *>(&m_document);
    if (camera && camera->showsWholeSensor()) {
        QPainterPath unread;
        unread.addRect(m_picture.rect());
        unread.addRect(camera->sensorRegion());
        painter.fillPath(unread, QColor(0, 0, 0, 110));
    }
    painter.resetTransform();
    if (m_document.owner().isInfoShowing())
        m_document.overlay().paint(painter, geometry.toScreen(m_picture.rect()) & rect(), m_frame);
}

void PictureArea::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_document.setViewSize(size());
}

void PictureArea::wheelEvent(QWheelEvent *event)
{
    constexpr int AnglePerPixel = 2; // a notch of 120 moves by 60
    const QPoint before = m_document.geometry().origin;
    const QPoint way = event->angleDelta() / AnglePerPixel;
    m_document.scrollBy(event->modifiers() & Qt::ShiftModifier ? way.transposed() : way);
    // Where nothing moved the page around it may scroll.
    event->setAccepted(m_document.geometry().origin != before);
}
