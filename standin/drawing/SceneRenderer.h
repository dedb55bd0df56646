#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

/// What a camera sees at one moment: a synthetic high-speed scene of a bouncing ball, a spinning
/// spoked wheel and a grid, and below them a timing bar that counts the frames.
struct SceneRenderer
{
    QSize sensor{1024, 1024};     ///< pixels
    QRect region{0, 0, 640, 480}; ///< the part of the sensor that is read
    QSize picture{640, 480};      ///< size of the image, smaller than the region when it is binned
    quint64 frame = 0;            ///< from 0; the timing bar counts them
    double start = 0.0;           ///< seconds of the scene that have passed at frame 0
    uint recordRate = 1000;       ///< frames per second, above 0
    uint shutterSpeed = 1000;     ///< exposure in parts of a second, above 0

    /// The image, opaque. Moving parts are smeared over the exposure, and a shorter exposure is
    /// darker. The same values give the same image. A null image for an empty picture.
    QImage render() const;

    /// Brightness factor of an exposure, 1 at 1/1000 s.
    static double exposureGain(uint shutterSpeed);
};
