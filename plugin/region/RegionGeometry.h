#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <Qt>

#include <optional>

/// The geometry of a rectangle that is edited on a camera's picture: what the pointer grabs, where
/// a side goes, and what keeps the rectangle inside the picture, on its grid, at its aspect and
/// within its sizes.
///
/// Rectangles are in image pixels with inclusive corners; a view rectangle is in view pixels. The
/// picture begins at (0, 0). Nothing here fails or throws: sums beyond 32 bits become the nearest
/// value that fits, what is not a number counts 0, and a rectangle that is returned has a width and
/// a height that fit an int. No heap memory is used. Any thread.
namespace RegionGeometry {

/// What of the rectangle is grabbed.
enum Handle : int {
    TopEdge = 0,
    BottomEdge = 1,
    LeftEdge = 2,
    RightEdge = 3,
    TopLeft = 4,
    TopRight = 5,
    BottomLeft = 6,
    BottomRight = 7,
    Inside = 8, ///< moves the rectangle
    Outside = 9 ///< nothing
};

/// The corner that stays where it is while an edge is dragged at a fixed aspect.
enum Anchor : int {
    AnchorTopLeft = 0,
    AnchorTopRight = 1,
    AnchorBottomLeft = 2,
    AnchorBottomRight = 3,
    AnchorUndecided = 4
};

/// From the pixels of a limit to those of the picture.
struct SensorScale
{
    int divider = 1;      ///< divider of the sensor's scale
    int binningLevel = 0; ///< exponent: 0, 1, 2 mean 1, 2, 4
};

/// How the picture is turned in its view.
struct ViewTurn
{
    int degrees = 0; ///< 0, 90, 180 or 270
    bool flippedHorizontally = false;
    bool flippedVertically = false;
};

/// What a rectangle has to keep to. Steps of 0 and below count as 1. Steps and maximum are those of
/// the unturned sensor: on a transposed picture they swap their axes. All others are used as they
/// are given.
struct Limits
{
    QSize image;     ///< of the picture
    QSize fullImage; ///< of the whole sensor image, for symmetry
    QPoint positionStep{1, 1};
    QSize sizeStep{1, 1};
    QSize maximum{-1, -1}; ///< a negative part: no maximum at all
    QSize minimum{1, 1};   ///< the effective one; a negative part: no minimum at all
    bool transposed = false;
    bool symmetricX = false; ///< stays centred from left to right
    bool symmetricY = false; ///< stays centred from top to bottom
    bool aspectFixed = false;
    double aspect = 0.0; ///< height divided by width; 0 and below: none
};

/// A rectangle after an edit, and what of it was moved.
struct Edit
{
    int handle = Outside;
    QRect rect;
};

/// What a panel shows of a rectangle.
struct PanelValues
{
    QSize size;
    QSize minimum;
    QSize maximum;
    QPoint position;
    QPoint maximumPosition;
    QSize image;  ///< as it is seen, turned
    QSize zoomed; ///< size at the zoom, at least 1 by 1
};

/// `value` rounded to an int as qRound() does it: 2.5 gives 3, -2.5 gives -2.
int roundHalfAway(double value);

/// A limit in the pixels of the picture. A fraction, which only an exponent below 0 brings, is cut.
int scaled(int value, const SensorScale &scale);
QPoint scaled(const QPoint &value, const SensorScale &scale);
QSize scaled(const QSize &value, const SensorScale &scale);

/// The smallest size that a rectangle may have: `minimum`, enlarged for a fixed aspect above 0.
QSize effectiveMinimum(const QSize &minimum, bool aspectFixed, double aspect);

/// A rectangle of the picture in sensor pixels, at least 1 by 1. A scale below 1 counts as 1.
QRect toSensor(const QRect &rect, const SensorScale &scale);

/// `rect` with a width and a height that fit an int; the right and bottom sides stay.
QRect saturated(const QRect &rect);

/// Degrees of a rotation that is given as a fraction of a full turn, cut to a whole number.
int rotationDegrees(float fraction);

/// How far from a side the pointer still grabs it, in view pixels: five divided by `viewScale`, the
/// view pixels per image pixel, cut to a whole number and never below 1, so that a side can be
/// grabbed at any zoom.
int grabTolerance(float viewScale);

/// What a point of the view grabs. `viewRect` is the rectangle as it lies in the view, `tolerance`
/// the distance from grabTolerance().
int hitTest(const QRect &viewRect, const QPoint &viewPoint, const ViewTurn &turn, int tolerance);

/// The pointer for a handle, none for Outside.
std::optional<Qt::CursorShape> cursorShape(int handle, bool transposed, bool flippedHorizontally,
                                           bool flippedVertically);

/// The arrow key that moves the picture's rectangle the way that `key` points on the screen. Other
/// keys come back as they are.
int mapArrowKey(int key, const ViewTurn &turn);

/// `rect` with the sides of an edge or corner handle at `point`, and the opposite sides mirrored
/// where the limits ask for symmetry. Unchanged when the minimum would not be kept, and for Inside
/// and Outside.
QRect dragged(const QRect &rect, int handle, const QPoint &point, const Limits &limits);

/// `rect` with its size kept and its centre at that of `start`, moved by the way between two
/// points.
QRect moved(const QRect &rect, const QRect &start, const QPoint &from, const QPoint &to);

/// What an arrow key makes of `rect`, from mapArrowKey(); none for all other keys. Alone it moves
/// by the position step, with Shift it moves its side outwards by the size step, with Shift and
/// Control inwards. A side that would leave the picture or the minimum stays. On an axis with
/// symmetry the size step is halved, to nothing when it is 1. Keys go by the limits as they are
/// given, transposed or not.
std::optional<Edit> keyEdit(const QRect &rect, int key, Qt::KeyboardModifiers modifiers,
                            const Limits &limits);

/// `rect` moved into the picture, then cut to the maximum. A rectangle larger than the picture ends
/// flush with its bottom right.
QRect clamped(const QRect &rect, const Limits &limits);

/// The pass that ends every edit: maximum, picture, aspect, position grid, size grid, symmetry,
/// minimum. `reference` is the rectangle before the edit. `anchor` is the fixed corner of the drag,
/// AnchorUndecided at its beginning; the first pass at a fixed aspect decides it.
QRect constrained(const QRect &rect, int handle, const QRect &reference, const Limits &limits,
                  int &anchor);

/// What a panel shows of `rect` on a picture of `image` pixels. `minimum` is the effective minimum,
/// not scaled. With `fixAspect` the maximum keeps to `aspect`, when that is above 0. `zoomRate` is
/// in per cent.
PanelValues panelValues(const QSize &image, const QRect &rect, const QSize &minimum,
                        bool transposed, bool fixAspect, double aspect, int zoomRate);

}
