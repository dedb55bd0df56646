#pragma once

#include "contract/HostTypes.h"

#include <QString>

/// A device as pages list it.
struct DeviceRow
{
    DOCKEY key = 0;
    QString cameraName;
    QString deviceName;
    QString ipAddress;
    int headNumber = 0;
    bool selected = false;
    bool found = false;
    bool mobile = false;
    bool dummy = false;
    bool canShutDown = false;
    bool wireless = false;
    bool wirelessConnected = false;
    bool linkSpeed = false;
};

/// The row as compact JSON text. Flags are the class names that pages drop straight into the row's
/// class list, or empty text; the key is decimal text.
QString deviceRowText(const DeviceRow &row);
