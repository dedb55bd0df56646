#pragma once

#include <QSize>
#include <QString>

class StandInDocument;

/// Settings of cameras as the user reads them.
namespace SettingsText {

/// "1/2000 s" for 2000 parts of a second.
QString shutter(uint parts);

/// "1000 fps".
QString recordRate(uint framesPerSecond);

/// "640 × 480".
QString size(const QSize &size);

/// The settings of a camera with the size of what it reads, the size of a recording's picture.
QString ofDocument(const StandInDocument &document);

}
