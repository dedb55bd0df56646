#pragma once

#include <QByteArray>
#include <QImage>
#include <QLatin1String>
#include <QMap>
#include <QPair>
#include <QString>

// Records that cross the boundary between host and library. Plain values, no functions.

/// Key of a document, 64 bits; decimal text in JSON. Pages pass it as a number or as decimal text.
using DOCKEY = quint64;

/// Number of a partition.
using PARTITIONNUMBER = int;

/// Stands for no document: all bits set.
constexpr DOCKEY NoDocKey = ~DOCKEY(0);

/// Serial number and data number of a recording on a medium.
using SavedRecord = QPair<QString, QString>;

/// Settings of the time code shown with a recording.
struct TimeCodeRecord
{
    int timeCodeIndex = 0;
    QString displayUnit = QLatin1String("deg");
    double oneFrame = 0.0;
    double startValue = 0.0;
    bool reset = false;
    double resetValue = 0.0;
    int scopeDisplayIndex = 0;
    int decimalPlaceIndex = 0;
    bool decimalDivide = false;
    bool usingRihFileInfo = true;
    bool overWrite = false;
    bool realTime = false;
};

/// Bit counts of an image: as stored, and as the sensor really delivers them.
struct ImageFormat
{
    int bits = 8;
    int realBits = 8;
};

/// State of a media slot; 1 means yes.
struct SlotStatus
{
    int connected = 0;
    int inserted = 0;
    int formatted = 0;
    int writeProtected = 0;
};

/// What an SD card tells of itself; the capacity is in bytes.
struct SdCardInfo
{
    int speedClass = 0;
    int speedCode = 0;
    quint64 capacity = 0;
};

/// Packed date and time words of a recording, as formatBcdDate() and formatBcdTime() read them.
struct DataTime
{
    uint date = 0;
    int time = 0;
};

/// A preset stored in a camera; numbers count from 1.
struct PresetInfo
{
    int number = 0;
    QString name;
    bool selected = false;
};

/// Addresses of a device, as dotted text.
struct NetworkSetting
{
    QString ipAddress;
    QString subnetMask;
    QString defaultGateway;
};

/// What the edit device dialog shows; camera name, dummy and wireless have getters of their own.
struct EditDeviceData
{
    QString headName; ///< without its number
    QString deviceSerialNumber;
    QString headSerialNumber;
    QString modelName;
    QString firmwareVersion;
    int etherType = 0;
    NetworkSetting network; ///< of `etherType`
};

/// What of the support file can be taken on the GUI thread only.
struct SupportSnapshot
{
    QImage screen;
    QImage trelvikWindow; ///< null when the multi-camera window is not shown
    QImage frame;
    QMap<QString, QByteArray> texts; ///< file name in the ZIP, content
};
