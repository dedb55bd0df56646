#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTransform>

/// How a picture stands in its view. The picture is turned clockwise first, then flipped as it is
/// seen, then scaled, then moved to its place.
struct ViewGeometry
{
    QSize picture;        ///< image pixels
    int quarterTurns = 0; ///< clockwise, any number
    bool flippedHorizontally = false;
    bool flippedVertically = false;
    double scale = 1.0; ///< view pixels per image pixel, above 0
    QPoint origin;      ///< top left of the shown picture in the view

    /// Whether the sides of the picture are swapped.
    bool isTransposed() const;

    /// Size of the turned picture, in image pixels.
    QSize turnedSize() const;

    /// From image to view coordinates, pixels as areas: a picture drawn with it fills its place.
    QTransform transform() const;

    /// The image pixel under a view pixel; the nearest one inside the picture.
    QPoint toImage(const QPoint &viewPoint) const;

    /// The view pixels that a rectangle of image pixels covers, at least partly.
    QRect toView(const QRect &imageRect) const;

    /// The largest scale at which a picture of this size fits into a view of that one; 1 when one
    /// of the two is empty.
    static double fittingScale(const QSize &turnedPicture, const QSize &view);
};
