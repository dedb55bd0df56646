#include "standin/drawing/ViewGeometry.h"

#include <algorithm>
#include <cmath>

namespace {

// Rounding noise of the transformation must not add a pixel.
constexpr double Noise = 1e-6;

// A rectangle far outside of any picture still has a width that fits into an int.
constexpr qint64 Far = 1000000000;

int viewPixel(double coordinate)
{
    return std::isnan(coordinate) ? 0 : int(std::clamp(coordinate, double(-Far), double(Far)));
}

// Two edges between pixels, in any order.
struct Edges
{
    qint64 one;
    qint64 other;

    Edges mirrored(qint64 size) const { return {size - one, size - other}; }
    int first() const { return int(std::clamp(std::min(one, other), -Far, Far)); }
    int last() const { return int(std::clamp(std::max(one, other) - 1, -Far, Far)); }
};

int normalized(int quarterTurns)
{
    return ((quarterTurns % 4) + 4) % 4;
}

}

bool ViewGeometry::isTransposed() const
{
    return normalized(quarterTurns) % 2 == 1;
}

QSize ViewGeometry::turnedSize() const
{
    return isTransposed() ? picture.transposed() : picture;
}

QTransform ViewGeometry::transform() const
{
    const double w = picture.width();
    const double h = picture.height();
    QTransform turn;
    switch (normalized(quarterTurns)) {
    case 1:
        turn = QTransform(0, 1, -1, 0, h, 0);
        break;
    case 2:
        turn = QTransform(-1, 0, 0, -1, w, h);
        break;
    case 3:
        turn = QTransform(0, -1, 1, 0, 0, w);
        break;
    default:
        break;
    }
    const QSize turned = turnedSize();
    const QTransform flip(flippedHorizontally ? -1 : 1, 0, 0, flippedVertically ? -1 : 1,
                          flippedHorizontally ? turned.width() : 0,
                          flippedVertically ? turned.height() : 0);
    return turn * flip * QTransform::fromScale(scale, scale) *
           QTransform::fromTranslate(origin.x(), origin.y());
}

QPoint ViewGeometry::toImage(const QPoint &viewPoint) const
{
    const QSize turned = turnedSize();
    const qint64 acrossView = viewPoint.x();
    const qint64 downView = viewPoint.y();
    const qint64 across = flippedHorizontally ? turned.width() - 1 - acrossView : acrossView;
    const qint64 down = flippedVertically ? turned.height() - 1 - downView : downView;
    const qint64 right = picture.width() - 1;
    const qint64 bottom = picture.height() - 1;
    qint64 x = across;
    qint64 y = down;
    switch (normalized(quarterTurns)) {
    case 1:
        x = down;
        y = bottom - across;
        break;
    case 2:
        x = right - across;
        y = bottom - down;
        break;
    case 3:
        x = right - down;
        y = across;
        break;
    default:
        break;
    }
    return QPoint(int(std::clamp<qint64>(x, 0, std::max<qint64>(0, right))),
                  int(std::clamp<qint64>(y, 0, std::max<qint64>(0, bottom))));
}

QRect ViewGeometry::toView(const QRect &imageRect) const
{
    // The edges between pixels, where an empty rectangle stays empty.
    const qint64 left = imageRect.left();
    const qint64 top = imageRect.top();
    const qint64 right = qint64(imageRect.right()) + 1;
    const qint64 bottom = qint64(imageRect.bottom()) + 1;
    const qint64 width = picture.width();
    const qint64 height = picture.height();
    Edges across{left, right};
    Edges down{top, bottom};
    switch (normalized(quarterTurns)) {
    case 1:
        across = {height - top, height - bottom};
        down = {left, right};
        break;
    case 2:
        across = {width - left, width - right};
        down = {height - top, height - bottom};
        break;
    case 3:
        across = {top, bottom};
        down = {width - left, width - right};
        break;
    default:
        break;
    }
    const QSize turned = turnedSize();
    if (flippedHorizontally)
        across = across.mirrored(turned.width());
    if (flippedVertically)
        down = down.mirrored(turned.height());
    return QRect(QPoint(across.first(), down.first()), QPoint(across.last(), down.last()));
}

QPoint ViewGeometry::fromScreen(const QPoint &screenPoint) const
{
    const QPointF point = QPointF(screenPoint - origin) / scale;
    return QPoint(viewPixel(std::floor(point.x() + Noise)),
                  viewPixel(std::floor(point.y() + Noise)));
}

QRect ViewGeometry::toScreen(const QRect &imageRect) const
{
    const QRectF area = transform().mapRect(QRectF(
        QPointF(imageRect.topLeft()), QPointF(imageRect.right() + 1.0, imageRect.bottom() + 1.0)));
    const QPoint topLeft(viewPixel(std::floor(area.left() + Noise)),
                         viewPixel(std::floor(area.top() + Noise)));
    const QPoint bottomRight(viewPixel(std::ceil(area.right() - Noise) - 1.0),
                             viewPixel(std::ceil(area.bottom() - Noise) - 1.0));
    return QRect(topLeft, bottomRight);
}

double ViewGeometry::fittingScale(const QSize &turnedPicture, const QSize &view)
{
    if (turnedPicture.isEmpty() || view.isEmpty())
        return 1.0;
    return std::min(double(view.width()) / turnedPicture.width(),
                    double(view.height()) / turnedPicture.height());
}
