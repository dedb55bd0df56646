#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTransform>

/// How a picture stands in its view. The picture is turned clockwise first, then flipped as it is
/// seen, then scaled, then moved to its place.
///
/// View coordinates are those of the picture as it is seen: turned and flipped, with (0, 0) at its
/// top left, but neither scaled nor moved. Screen coordinates are those of the widget that shows
/// it.
struct ViewGeometry
{
    QSize picture;        ///< image pixels
    int quarterTurns = 0; ///< clockwise, any number
    bool flippedHorizontally = false;
    bool flippedVertically = false;
    double scale = 1.0; ///< screen pixels per image pixel, above 0
    QPoint origin;      ///< top left of the shown picture, screen coordinates

    /// Whether the sides of the picture are swapped.
    bool isTransposed() const;

    /// Size of the turned picture, in image pixels.
    QSize turnedSize() const;

    /// From image to screen coordinates, pixels as areas: a picture drawn with it fills its place.
    QTransform transform() const;

    /// The image pixel at a point of the view; the nearest one inside the picture.
    QPoint toImage(const QPoint &viewPoint) const;

    /// A rectangle of image pixels in view coordinates; beyond 10^9 they stop.
    QRect toView(const QRect &imageRect) const;

    /// The point of the view under a screen pixel, which may lie beside the picture.
    QPoint fromScreen(const QPoint &screenPoint) const;

    /// The screen pixels that a rectangle of image pixels covers, at least partly.
    QRect toScreen(const QRect &imageRect) const;

    /// The largest scale at which a picture of this size fits into a widget of that one; 1 when one
    /// of the two is empty.
    static double fittingScale(const QSize &turnedPicture, const QSize &view);
};
