#pragma once

#include <QColor>
#include <QString>

/// A folder of pictures that a walk-through opens as a recording.
namespace TourPictures {

constexpr int Count = 12;

/// Writes "shot 1.png" to "shot 12.png", every third as a JPEG, into the folder.
bool write(const QString &folder);

/// The colour in the middle of the picture of a frame, from 0.
QColor colour(int frame);

}
