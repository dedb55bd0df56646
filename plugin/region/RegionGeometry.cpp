#include "plugin/region/RegionGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr qint64 IntMin = std::numeric_limits<int>::min();
constexpr qint64 IntMax = std::numeric_limits<int>::max();
constexpr float GrabPixels = 5.0f;
constexpr double FullTurn = 360.0;

// One axis of a rectangle. In 64 bits no sum of an edit overflows.
struct Span
{
    qint64 low;
    qint64 high;

    qint64 length() const { return high - low + 1; }
    qint64 centre() const { return (low + high) / 2; }

    void shift(qint64 distance)
    {
        low += distance;
        high += distance;
    }

    void moveTo(qint64 newLow) { shift(newLow - low); }
};

struct Box
{
    Span x;
    Span y;
};

// Which side of each axis a handle moves: -1 the low one, 1 the high one, 0 none.
struct MovedSides
{
    int x;
    int y;
};

constexpr MovedSides movedSides[] = {
    {0, -1},  // top
    {0, 1},   // bottom
    {-1, 0},  // left
    {1, 0},   // right
    {-1, -1}, // top left
    {1, -1},  // top right
    {-1, 1},  // bottom left
    {1, 1},   // bottom right
};

MovedSides sidesOf(int handle)
{
    const bool moves = handle >= RegionGeometry::TopEdge && handle <= RegionGeometry::BottomRight;
    return moves ? movedSides[handle] : MovedSides{0, 0};
}

int toInt(qint64 value)
{
    return int(std::clamp(value, IntMin, IntMax));
}

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    return int(std::clamp(value, double(IntMin), double(IntMax)));
}

Box boxOf(const QRect &rect)
{
    return {{rect.left(), rect.right()}, {rect.top(), rect.bottom()}};
}

// QRect computes high - low + 1 in int; the high side has its place at the picture's border.
Span fitted(const Span &span)
{
    const qint64 high = toInt(span.high);
    const qint64 lowest = std::max(IntMin, high - IntMax + 1);
    const qint64 highest = std::min(IntMax, high - IntMin);
    return {std::clamp(span.low, lowest, highest), high};
}

QRect rectOf(const Box &box)
{
    const Span x = fitted(box.x);
    const Span y = fitted(box.y);
    return QRect(QPoint(int(x.low), int(y.low)), QPoint(int(x.high), int(y.high)));
}

// The steps and the maximum as they lie on the picture.
struct PictureLimits
{
    explicit PictureLimits(const RegionGeometry::Limits &limits)
        : width(limits.image.width()), height(limits.image.height()),
          stepX(std::max(1, limits.positionStep.x())), stepY(std::max(1, limits.positionStep.y())),
          sizeStepX(std::max(1, limits.sizeStep.width())),
          sizeStepY(std::max(1, limits.sizeStep.height())), maxWidth(limits.maximum.width()),
          maxHeight(limits.maximum.height())
    {
        if (limits.transposed) {
            std::swap(stepX, stepY);
            std::swap(sizeStepX, sizeStepY);
            std::swap(maxWidth, maxHeight);
        }
    }

    bool hasMaximum() const { return maxWidth >= 0 && maxHeight >= 0; }

    qint64 width;
    qint64 height;
    qint64 stepX;
    qint64 stepY;
    qint64 sizeStepX;
    qint64 sizeStepY;
    qint64 maxWidth;
    qint64 maxHeight;
};

// As QRect::normalized(): an empty span, one short of its low side, stays.
void normalise(Span &span)
{
    if (span.high < span.low - 1)
        std::swap(span.low, span.high);
}

// The far border has the last word: a span longer than the picture ends flush with it.
void shiftInside(Span &span, qint64 size)
{
    if (span.low < 0)
        span.moveTo(0);
    if (span.high > size - 1)
        span.shift(size - 1 - span.high);
}

void cut(Span &span, qint64 maximum)
{
    if (span.length() > maximum)
        span.high = span.low + maximum - 1;
}

void clampBox(Box &box, const PictureLimits &limits)
{
    normalise(box.x);
    normalise(box.y);
    shiftInside(box.x, limits.width);
    shiftInside(box.y, limits.height);
    if (limits.hasMaximum()) {
        cut(box.x, limits.maxWidth);
        cut(box.y, limits.maxHeight);
    }
}

// Cuts to the maximum; the side that the user does not move goes back to where it was.
void cutMoved(Span &span, qint64 maximum, int side, const Span &reference)
{
    if (span.length() <= maximum)
        return;
    cut(span, maximum);
    if (side < 0)
        span.shift(reference.high - span.high);
    else if (side > 0)
        span.moveTo(reference.low);
}

// The other axis follows the dragged one at a fixed aspect. Returns the corner that stays.
int applyAspect(Box &box, int handle, double aspect, const PictureLimits &limits, int anchor)
{
    using namespace RegionGeometry;
    constexpr qint64 minX = 0;
    constexpr qint64 minY = 0;
    const qint64 maxX = limits.width - 1;
    const qint64 maxY = limits.height - 1;
    const auto widthFor = [aspect](qint64 height) -> qint64 {
        return roundHalfAway(double(height) / aspect);
    };
    const auto heightFor = [aspect](qint64 width) -> qint64 {
        return roundHalfAway(double(width) * aspect);
    };
    const qint64 newWidth = widthFor(box.y.length());
    const qint64 newHeight = heightFor(box.x.length());
    const bool decided = anchor != AnchorUndecided;
    Span &x = box.x;
    Span &y = box.y;

    switch (handle) {
    case TopEdge:
        if ((x.low <= minX || decided) && anchor != AnchorBottomRight) {
            x.high = x.low - 1 + newWidth;
            if (x.high > maxX) {
                x.high = maxX;
                y.low = y.high - heightFor(maxX - x.low + 1) + 1;
            }
            return AnchorBottomLeft;
        }
        x.low = x.high - newWidth + 1;
        if (x.low < minX) {
            x.low = minX;
            y.low = y.high - heightFor(x.high - minX + 1) + 1;
        }
        return AnchorBottomRight;
    case BottomEdge:
        if ((x.high >= maxX || decided) && anchor != AnchorTopLeft) {
            x.low = x.high - newWidth + 1;
            if (x.low <= minX) {
                x.low = minX;
                y.high = y.low - 1 + heightFor(x.high - minX + 1);
            }
            return AnchorTopRight;
        }
        x.high = x.low - 1 + newWidth;
        if (x.high > maxX) {
            x.high = maxX;
            y.high = y.low - 1 + heightFor(maxX - x.low + 1);
        }
        return AnchorTopLeft;
    case LeftEdge:
        if ((y.low <= minY || decided) && anchor != AnchorBottomRight) {
            y.high = y.low - 1 + newHeight;
            if (y.high > maxY) {
                y.high = maxY;
                x.low = x.high - widthFor(maxY - y.low + 1) + 1;
            }
            return AnchorTopRight;
        }
        y.low = y.high - newHeight + 1;
        if (y.low <= minY) {
            y.low = minY;
            x.low = x.high - widthFor(y.high - minY + 1) + 1;
        }
        return AnchorBottomRight;
    case RightEdge:
        if ((y.high >= maxY || decided) && anchor != AnchorTopLeft) {
            y.low = y.high - newHeight + 1;
            if (y.low <= minY) {
                y.low = minY;
                // Two wider than its neighbours make it; the clamp takes it back at the border.
                x.high = x.low + 1 + widthFor(y.high - minY + 1);
            }
            return AnchorBottomLeft;
        }
        y.high = y.low - 1 + newHeight;
        if (y.high > maxY) {
            y.high = maxY;
            x.high = x.low - 1 + widthFor(maxY - y.low + 1);
        }
        return AnchorTopLeft;
    case TopLeft:
        y.low = y.high - newHeight + 1;
        if (y.low <= minY) {
            // The bottom goes to the border, not the top; the clamp then moves all of it inside.
            y.high = minY;
            x.low = x.high - widthFor(minY - y.low + 1) + 1;
        }
        return AnchorBottomRight;
    case TopRight:
        x.high = x.low - 1 + newWidth;
        if (x.high > maxX) {
            x.high = maxX;
            y.low = y.high - heightFor(maxX - x.low + 1) + 1;
        }
        return AnchorBottomLeft;
    case BottomLeft:
        y.high = y.low - 1 + newHeight;
        if (y.high > maxY) {
            y.high = maxY;
            x.low = x.high - widthFor(maxY - y.low + 1) + 1;
        }
        return AnchorTopRight;
    case BottomRight:
        x.high = x.low - 1 + newWidth;
        if (x.high > maxX) {
            x.high = maxX;
            y.high = y.low - 1 + heightFor(maxX - x.low + 1);
        }
        return AnchorTopLeft;
    default:
        return anchor;
    }
}

void snapPosition(Span &span, qint64 step)
{
    if (step < 2)
        return;
    const qint64 rest = span.low % step;
    span.moveTo(span.low - rest + (rest >= step / 2 ? step : 0));
}

// The length becomes the minimum plus whole steps, by the side that the user moves.
void snapLength(Span &span, qint64 step, qint64 minimum, int side)
{
    const qint64 rest = (span.length() - minimum) % step;
    if (side < 0)
        span.low += rest;
    else if (side > 0)
        span.high -= rest;
}

// Whether a moved side at `position` leaves the minimum.
bool keepsMinimum(const Span &span, int side, qint64 position, qint64 minimum)
{
    if (side < 0)
        return position <= span.high - minimum + 1;
    if (side > 0)
        return position >= span.low + minimum - 1;
    return true;
}

void moveSide(Span &span, int side, qint64 position, bool symmetric, qint64 size)
{
    if (side == 0)
        return;
    Span moved = side < 0 ? Span{position, span.high} : Span{span.low, position};
    if (symmetric)
        (side < 0 ? moved.high : moved.low) = size - 1 - position;
    span = moved;
}

void moveToCentre(Span &span, qint64 newCentre)
{
    span.moveTo(newCentre - (span.high - span.low) / 2);
}

int edgeOfKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return RegionGeometry::LeftEdge;
    case Qt::Key_Up:
        return RegionGeometry::TopEdge;
    case Qt::Key_Right:
        return RegionGeometry::RightEdge;
    case Qt::Key_Down:
        return RegionGeometry::BottomEdge;
    default:
        return RegionGeometry::Outside;
    }
}

int keyStep(int step, bool symmetric)
{
    return std::max(1, step) / (symmetric ? 2 : 1);
}

// Moves a side outwards, inwards when `distance` is below 0.
void resize(Span &span, int side, qint64 distance, qint64 minimum, bool symmetric, qint64 size)
{
    const qint64 position = (side < 0 ? span.low : span.high) + side * distance;
    const bool inside = side < 0 ? position >= 0 : position <= size - 1;
    if (inside && keepsMinimum(span, side, position, minimum))
        moveSide(span, side, position, symmetric, size);
}

bool isAround(qint64 value, qint64 side, qint64 tolerance)
{
    return value >= side - tolerance && value <= side + tolerance;
}

// The sides as they are tested, with the zone between them.
struct TestedSpan
{
    TestedSpan(const Span &span, qint64 tolerance)
        : sides(span), zone{span.low - tolerance, span.high + tolerance}
    {
        if (span.low > span.high)
            zone = {span.high + tolerance, span.low - tolerance};
    }

    Span sides;
    Span zone;
};

bool isWithin(qint64 value, const Span &zone)
{
    return value >= zone.low && value <= zone.high;
}

bool isStrictlyWithin(qint64 value, const Span &zone)
{
    return value > zone.low && value < zone.high;
}

}

namespace RegionGeometry {

int roundHalfAway(double value)
{
    if (!(value < 0.0))
        return truncated(value + 0.5); // NOLINT(bugprone-incorrect-roundings): as documented
    const int base = truncated(value - 1.0);
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): as documented
    return toInt(qint64(base) + truncated(value - base + 0.5));
}

int scaled(int value, const SensorScale &scale)
{
    const int divided = toInt(qint64(value) * scale.divider);
    return truncated(std::ldexp(double(divided), scale.binningLevel));
}

QPoint scaled(const QPoint &value, const SensorScale &scale)
{
    return QPoint(scaled(value.x(), scale), scaled(value.y(), scale));
}

QSize scaled(const QSize &value, const SensorScale &scale)
{
    return QSize(scaled(value.width(), scale), scaled(value.height(), scale));
}

QSize effectiveMinimum(const QSize &minimum, bool aspectFixed, double aspect)
{
    if (!aspectFixed || !(aspect > 0.0))
        return minimum;
    // Each side from itself, not from the other one.
    const QSize kept(roundHalfAway(minimum.width() / aspect),
                     roundHalfAway(minimum.height() * aspect));
    return kept.expandedTo(minimum);
}

QRect toSensor(const QRect &rect, const SensorScale &scale)
{
    const int binning = truncated(std::ldexp(1.0, scale.binningLevel));
    const int divider = std::max(1, toInt(qint64(binning) * scale.divider));
    Box box{{rect.left() / divider, rect.right() / divider},
            {rect.top() / divider, rect.bottom() / divider}};
    box.x.high = std::max(box.x.high, box.x.low);
    box.y.high = std::max(box.y.high, box.y.low);
    return rectOf(box);
}

QRect saturated(const QRect &rect)
{
    return rectOf(boxOf(rect));
}

int rotationDegrees(float fraction)
{
    return truncated(double(fraction) * FullTurn);
}

int grabTolerance(float viewScale)
{
    return std::max(1, truncated(GrabPixels / viewScale));
}

int hitTest(const QRect &viewRect, const QPoint &viewPoint, const ViewTurn &turn, int tolerance)
{
    const Box seen = boxOf(viewRect);
    const bool upright = turn.degrees != 90 && turn.degrees != 270;
    const qint64 pointX = upright ? viewPoint.x() : viewPoint.y();
    const qint64 pointY = upright ? viewPoint.y() : viewPoint.x();

    // The one pixel more and less at a quarter turn makes the sides meet the drawn pixels.
    Box box = seen;
    if (turn.degrees == 90)
        box = {{seen.y.low, seen.y.high + 1}, {seen.x.high, seen.x.low - 1}};
    else if (turn.degrees == 180)
        box = {{seen.x.high, seen.x.low}, {seen.y.high, seen.y.low}};
    else if (turn.degrees == 270)
        box = {{seen.y.high, seen.y.low - 1}, {seen.x.low, seen.x.high + 1}};

    Span &acrossX = upright ? box.x : box.y;
    Span &acrossY = upright ? box.y : box.x;
    if (turn.flippedHorizontally)
        std::swap(acrossX.low, acrossX.high);
    if (turn.flippedVertically)
        std::swap(acrossY.low, acrossY.high);

    const TestedSpan x(box.x, tolerance);
    const TestedSpan y(box.y, tolerance);
    const bool atLeft = isAround(pointX, x.sides.low, tolerance);
    const bool atRight = isAround(pointX, x.sides.high, tolerance);

    if (isAround(pointY, y.sides.low, tolerance)) {
        if (atLeft)
            return TopLeft;
        if (atRight)
            return TopRight;
        if (isWithin(pointX, x.zone))
            return TopEdge;
    }
    if (isAround(pointY, y.sides.high, tolerance)) {
        if (atLeft)
            return BottomLeft;
        if (atRight)
            return BottomRight;
        if (isWithin(pointX, x.zone))
            return BottomEdge;
    }
    if (isWithin(pointY, y.zone)) {
        if (atLeft)
            return LeftEdge;
        if (atRight)
            return RightEdge;
    }
    if (isStrictlyWithin(pointX, x.zone) && isStrictlyWithin(pointY, y.zone))
        return Inside;
    return Outside;
}

std::optional<Qt::CursorShape> cursorShape(int handle, bool transposed, bool flippedHorizontally,
                                           bool flippedVertically)
{
    switch (handle) {
    case TopEdge:
    case BottomEdge:
        return transposed ? Qt::SizeHorCursor : Qt::SizeVerCursor;
    case LeftEdge:
    case RightEdge:
        return transposed ? Qt::SizeVerCursor : Qt::SizeHorCursor;
    case TopLeft:
    case TopRight:
    case BottomLeft:
    case BottomRight: {
        const bool falling = handle == TopLeft || handle == BottomRight;
        const bool turned = (transposed != flippedHorizontally) == falling;
        return turned != flippedVertically ? Qt::SizeBDiagCursor : Qt::SizeFDiagCursor;
    }
    case Inside:
        return Qt::SizeAllCursor;
    default:
        return std::nullopt;
    }
}

int mapArrowKey(int key, const ViewTurn &turn)
{
    // Clockwise, as the rotation goes: turning back finds the picture's own way.
    constexpr std::array<int, 4> arrows{Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down};
    const auto found = std::find(arrows.begin(), arrows.end(), key);
    if (found == arrows.end())
        return key;
    const bool quarter = turn.degrees == 90 || turn.degrees == 270;
    const int back = quarter || turn.degrees == 180 ? turn.degrees / 90 : 0;
    int mapped = arrows[std::size_t(found - arrows.begin() + 4 - back) % arrows.size()];

    const auto swap = [&mapped](int first, int second) {
        if (mapped == first)
            mapped = second;
        else if (mapped == second)
            mapped = first;
    };
    const auto swapSideways = [&] { swap(Qt::Key_Left, Qt::Key_Right); };
    const auto swapUpright = [&] { swap(Qt::Key_Up, Qt::Key_Down); };
    if (turn.flippedHorizontally)
        quarter ? swapUpright() : swapSideways();
    if (turn.flippedVertically)
        quarter ? swapSideways() : swapUpright();
    return mapped;
}

QRect dragged(const QRect &rect, int handle, const QPoint &point, const Limits &limits)
{
    const MovedSides sides = sidesOf(handle);
    Box box = boxOf(rect);
    if (keepsMinimum(box.x, sides.x, point.x(), limits.minimum.width()) &&
        keepsMinimum(box.y, sides.y, point.y(), limits.minimum.height())) {
        moveSide(box.x, sides.x, point.x(), limits.symmetricX, limits.image.width());
        moveSide(box.y, sides.y, point.y(), limits.symmetricY, limits.image.height());
    }
    return rectOf(box);
}

QRect moved(const QRect &rect, const QRect &start, const QPoint &from, const QPoint &to)
{
    const Box origin = boxOf(start);
    Box box = boxOf(rect);
    moveToCentre(box.x, origin.x.centre() + to.x() - from.x());
    moveToCentre(box.y, origin.y.centre() + to.y() - from.y());
    return rectOf(box);
}

std::optional<Edit> keyEdit(const QRect &rect, int key, Qt::KeyboardModifiers modifiers,
                            const Limits &limits)
{
    const int handle = edgeOfKey(key);
    if (handle == Outside)
        return std::nullopt;
    const MovedSides sides = sidesOf(handle);
    if (!(modifiers & Qt::ShiftModifier)) {
        const QPoint way(sides.x * keyStep(limits.positionStep.x(), false),
                         sides.y * keyStep(limits.positionStep.y(), false));
        return Edit{Outside, moved(rect, rect, QPoint(), way)};
    }
    const int direction = modifiers & Qt::ControlModifier ? -1 : 1;
    Box box = boxOf(rect);
    if (sides.x != 0)
        resize(box.x, sides.x, direction * keyStep(limits.sizeStep.width(), limits.symmetricX),
               limits.minimum.width(), limits.symmetricX, limits.image.width());
    else
        resize(box.y, sides.y, direction * keyStep(limits.sizeStep.height(), limits.symmetricY),
               limits.minimum.height(), limits.symmetricY, limits.image.height());
    // A resize, too, goes through the centre, which rounds where coordinates are below 0.
    const QRect resized = rectOf(box);
    return Edit{handle, moved(resized, resized, QPoint(), QPoint())};
}

QRect clamped(const QRect &rect, const Limits &limits)
{
    Box box = boxOf(rect);
    clampBox(box, PictureLimits(limits));
    return rectOf(box);
}

QRect constrained(const QRect &rect, int handle, const QRect &reference, const Limits &limits,
                  int &anchor)
{
    const PictureLimits picture(limits);
    const MovedSides sides = sidesOf(handle);
    Box box = boxOf(rect);

    if (picture.hasMaximum()) {
        const Box before = boxOf(reference);
        cutMoved(box.x, picture.maxWidth, sides.x, before.x);
        cutMoved(box.y, picture.maxHeight, sides.y, before.y);
    }
    clampBox(box, picture);

    if (limits.aspectFixed && limits.aspect > 0.0) {
        anchor = applyAspect(box, handle, limits.aspect, picture, anchor);
        clampBox(box, picture);
    }

    if (picture.stepX >= 2 || picture.stepY >= 2) {
        if (handle == Inside) {
            snapPosition(box.x, picture.stepX);
            snapPosition(box.y, picture.stepY);
        }
        clampBox(box, picture);
    }

    if (picture.sizeStepX >= 2 || picture.sizeStepY >= 2) {
        snapLength(box.x, picture.sizeStepX, limits.minimum.width(), sides.x);
        snapLength(box.y, picture.sizeStepY, limits.minimum.height(), sides.y);
        clampBox(box, picture);
    }

    if (limits.symmetricX || limits.symmetricY) {
        if (limits.symmetricX)
            box.x.moveTo((limits.fullImage.width() - box.x.length()) >> 1);
        if (limits.symmetricY)
            box.y.moveTo((limits.fullImage.height() - box.y.length()) >> 1);
        clampBox(box, picture);
    }

    if (limits.minimum.width() >= 0 && limits.minimum.height() >= 0) {
        box.x.high = std::max(box.x.high, box.x.low + limits.minimum.width() - 1);
        box.y.high = std::max(box.y.high, box.y.low + limits.minimum.height() - 1);
    }
    return rectOf(box);
}

PanelValues panelValues(const QSize &image, const QRect &rect, const QSize &minimum,
                        bool transposed, bool fixAspect, double aspect, int zoomRate)
{
    PanelValues values;
    values.image = transposed ? image.transposed() : image;
    values.minimum = transposed ? minimum.transposed() : minimum;
    values.position = rect.topLeft();

    const Box box = boxOf(rect);
    int maxWidth = toInt(values.image.width() - box.x.low);
    int maxHeight = toInt(values.image.height() - box.y.low);
    if (fixAspect && aspect > 0.0) {
        const int highest = roundHalfAway(maxWidth * aspect);
        if (highest <= maxHeight) {
            maxHeight = std::max(highest, values.minimum.height());
            maxWidth = roundHalfAway(maxHeight / aspect);
        } else {
            maxWidth = std::max(roundHalfAway(maxHeight / aspect), values.minimum.width());
            maxHeight = roundHalfAway(maxWidth * aspect);
        }
    }
    values.maximum = QSize(maxWidth, maxHeight);

    const QSize size(toInt(box.x.length()), toInt(box.y.length()));
    values.size = size.expandedTo(values.minimum).boundedTo(values.maximum);
    values.maximumPosition = QPoint(toInt(qint64(values.image.width()) - values.size.width()),
                                    toInt(qint64(values.image.height()) - values.size.height()));

    const double zoom = zoomRate / 100.0;
    values.zoomed = QSize(std::max(1, roundHalfAway(values.size.width() * zoom)),
                          std::max(1, roundHalfAway(values.size.height() * zoom)));
    return values;
}

}
