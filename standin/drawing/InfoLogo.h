#pragma once

#include <QImage>
#include <QString>

namespace InfoLogo {

/// The picture of a logo's file; null for an empty path, and for what is missing, no picture or
/// larger than 64 million pixels.
QImage read(const QString &path);

}
