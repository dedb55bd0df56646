#include "standin/drawing/ViewGeometry.h"

#include <algorithm>
#include <cmath>

namespace {

// Rounding noise of the transformation must not add a pixel.
constexpr double Noise = 1e-6;

// A rectangle far outside of any picture still has a width that fits into an int.
int viewPixel(double coordinate)
{
    constexpr double Far = 1e9;
    return std::isnan(coordinate) ? 0 : int(std::clamp(coordinate, -Far, Far));
}

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
    const QPointF point = transform().inverted().map(QPointF(viewPoint) + QPointF(0.5, 0.5));
    const double right = std::max(0, picture.width() - 1);
    const double bottom = std::max(0, picture.height() - 1);
    return QPoint(int(std::clamp(std::floor(point.x()), 0.0, right)),
                  int(std::clamp(std::floor(point.y()), 0.0, bottom)));
}

QRect ViewGeometry::toView(const QRect &imageRect) const
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
