#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

/// What a camera sees at one moment: a synthetic high-speed scene of a bouncing ball, a spinning
/// spoked wheel and a grid, and over it the camera's name, the frame number and a timing bar.
struct SceneRenderer
{
    QSize sensor{1024, 1024};     ///< pixels
    QRect region{0, 0, 640, 480}; ///< the part of the sensor that is read
    QSize picture{640, 480};      ///< size of the image, smaller than the region when it is binned
    quint64 frame = 0;            ///< from 0; frame 0 is the beginning of the scene
    uint recordRate = 1000;       ///< frames per second, above 0
    uint shutterSpeed = 1000;     ///< exposure in parts of a second, above 0
    QString caption;              ///< name of the camera

    /// The image, opaque. Moving parts are smeared over the exposure, and a shorter exposure is
    /// darker. The same values give the same image. A null image for an empty picture.
    QImage render() const;

    /// Brightness factor of an exposure, 1 at 1/1000 s.
    static double exposureGain(uint shutterSpeed);
};
