#include "standin/drawing/InfoOverlay.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int RowLength = 3;
// Strips grow with their groups, but not without end.
constexpr int LeastRoom = 480;

bool isTop(InfoOverlay::Place place)
{
    return place >= InfoOverlay::TopLeft && place <= InfoOverlay::TopRight;
}

}

void InfoOverlay::setGroup(Place place, const InfoStyle &style, const QImage &logo)
{
    m_blocks.erase(place);
    m_blocks.emplace(place, InfoBlock(style, logo));
    layOut(place);
}

void InfoOverlay::setLines(Place place, const QVector<InfoLine> &lines)
{
    const auto found = m_blocks.find(place);
    if (found != m_blocks.end())
        found->second.setLines(lines);
}

void InfoOverlay::setPicture(const QSize &picture)
{
    if (m_picture == picture)
        return;
    m_picture = picture;
    for (const auto &entry : m_blocks)
        layOut(entry.first);
}

void InfoOverlay::layOut(Place place)
{
    InfoBlock &block = m_blocks.at(place);
    const double scale = block.style().scaleFor(m_picture);
    const int room = m_withinImage ? m_picture.height() : std::max(m_picture.height(), LeastRoom);
    block.setPlace(QSizeF(m_picture.width(), room) / scale, place == Caption);
}

double InfoOverlay::height(Place place) const
{
    const InfoBlock *found = block(place);
    return found ? found->size().height() * found->style().scaleFor(m_picture) : 0.0;
}

// Of the row of groups that begins with this one.
int InfoOverlay::stripHeight(Place first) const
{
    if (m_withinImage)
        return 0;
    double highest = 0.0;
    for (int i = 0; i < RowLength; ++i)
        highest = std::max(highest, height(Place(first + i)));
    return int(std::ceil(highest));
}

QSize InfoOverlay::canvas() const
{
    if (m_withinImage)
        return m_picture;
    const int strips =
        stripHeight(TopLeft) + stripHeight(BottomLeft) + int(std::ceil(height(Caption)));
    return m_picture + QSize(0, strips);
}

QRect InfoOverlay::picturePlace() const
{
    return QRect(QPoint(0, stripHeight(TopLeft)), m_picture);
}

QRectF InfoOverlay::groupPlace(Place place) const
{
    const InfoBlock *found = block(place);
    if (!found || found->size().isEmpty())
        return QRectF();
    const QSizeF size = found->size() * found->style().scaleFor(m_picture);
    const double bottom = canvas().height();
    if (place == Caption)
        return QRectF(QPointF(0.0, bottom - size.height()), size);
    const double room = m_picture.width() - size.width();
    const double left = room * ((place - TopLeft) % RowLength) / (RowLength - 1);
    if (isTop(place))
        return QRectF(QPointF(left, 0.0), size);
    // Within the picture the bottom groups end above the caption; outside they begin below it.
    const double top =
        m_withinImage ? bottom - height(Caption) - size.height() : picturePlace().bottom() + 1.0;
    return QRectF(QPointF(left, top), size);
}

void InfoOverlay::paint(QPainter &painter) const
{
    const QRect whole(QPoint(0, 0), canvas());
    const QRect picture = picturePlace();
    painter.fillRect(QRect(whole.topLeft(), QPoint(whole.right(), picture.top() - 1)), Qt::black);
    painter.fillRect(QRect(QPoint(0, picture.bottom() + 1), whole.bottomRight()), Qt::black);
    for (const auto &entry : m_blocks) {
        const QRectF place = groupPlace(entry.first);
        if (place.isEmpty())
            continue;
        const double scale = entry.second.style().scaleFor(m_picture);
        painter.save();
        painter.translate(place.topLeft());
        painter.scale(scale, scale);
        entry.second.paint(painter, QPointF());
        painter.restore();
    }
}

QImage InfoOverlay::composed(const QImage &picture, const QSize &size) const
{
    if (size.isEmpty() || picture.isNull())
        return QImage();
    QImage result(size, QImage::Format_RGB32);
    result.fill(Qt::black);
    QPainter painter(&result);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::TextAntialiasing);
    const QSize whole = canvas();
    painter.scale(double(size.width()) / whole.width(), double(size.height()) / whole.height());
    painter.drawImage(picturePlace(), picture);
    paint(painter);
    return result;
}

const InfoBlock *InfoOverlay::block(Place place) const
{
    const auto found = m_blocks.find(place);
    return found != m_blocks.end() ? &found->second : nullptr;
}
