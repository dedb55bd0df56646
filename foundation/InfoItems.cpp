#include "foundation/InfoItems.h"

namespace {

// `usable` has a digit for each target: "1001" is live and save form.
InfoItem item(const char *key, bool defaultShown, const char *label, const char *shortLabel,
              const char (&usable)[5])
{
    return {QLatin1String(key),
            defaultShown,
            QLatin1String(label),
            QLatin1String(shortLabel),
            {usable[0] == '1', usable[1] == '1', usable[2] == '1', usable[3] == '1'}};
}

InfoItem separator(const char (&usable)[5])
{
    return item("<hr>", false, "", "", usable);
}

}

std::array<InfoItem, 55> InfoItem::makeAll()
{
    return {{
        item("SyncSignalState", true, "Sync signal input state", "SyncSignalState", "1000"),
        item("CameraState", true, "State of the camera", "CameraState", "1000"),
        item("ElapsedTime", true, "Elapsed time", "ElapsedTime", "1000"),
        separator("1000"),
        item("Camera name", true, "Camera name", "", "1101"),
        item("File name", true, "File name", "", "0001"),
        separator("1000"),
        item("Device", true, "Device name", "", "0011"),
        item("Head", true, "Head number", "", "1101"),
        item("PartitionNumber", true, "Partition number", "", "1101"),
        separator("1000"),
        item("Date", false, "Date", "Date", "0001"),
        item("Time", false, "Time", "Time(Alt)", "0001"),
        item("RecDateTime", false, "Recording date and time", "Date/Time Rec", "0011"),
        separator("1000"),
        item("RefreshRate", false, "Refresh rate", "Refresh rate", "1000"),
        item("FrameRate", true, "Frame rate", "Frame rate", "1111"),
        item("ShutterSpeed", true, "Shutter speed", "Shutter speed", "1111"),
        item("Resolution", true, "Resolution", "Resolution", "1111"),
        item("LiveSpeed", true, "Live speed", "Live speed", "1000"),
        separator("1000"),
        item("FrameNumber", true, "Frame number", "Frame No", "0111"),
        item("MaxFrames", true, "Maximum of frames", "Frame Count", "1110"),
        item("Length", true, "Length of Time", "Rec Time", "1110"),
        item("TimeIrigCode", true, "Time code/IRIG code", "Current Time", "1110"),
        item("TimeCode", true, "Current time", "Current Time", "0001"),
        item("IrigCode", false, "IRIG code", "IRIG Time", "0001"),
        separator("1000"),
        item("Trigger", true, "Trigger", "Trigger mode", "1111"),
        item("HWTriggerInfo", true, "H/W Image Trigger Info", "H/W ImageTrg", "1000"),
        item("EventMarker", true, "Event Marker", "Event", "0111"),
        item("IgnoreTrigger", false, "Number of Ignore Trigger", "Ignore Trg", "1110"),
        separator("1000"),
        item("LUT", true, "LUT", "", "1110"),
        item("Saturation", true, "Saturation", "Saturation", "1110"),
        separator("0000"),
        item("ZoomRate", true, "Zoom rate", "Zoom rate", "1110"),
        item("CrossCursor", true, "Cross cursor", "", "1110"),
        separator("0000"),
        item("Comment", true, "Comment", "Comment", "1111"),
        item("Logo", false, "Logo", "Logo", "1111"),
        item("Custom", false, "Custom", "", "1111"),
        separator("0000"),
        item("OverSync", false, "Over Sync occurred or not", "", "1100"),
        item("TriggerExposeTime", false, "Trigger and Exposure Gap time", "TRG-EXP", "0111"),
        item("Kelvault", false, "Available Kelvault space", "Kelvault Free Space", "1000"),
        item("CFast", false, "Available CFast space", "CFast Free Space", "1000"),
        item("FanStatus", true, "Fan Status", "Fan", "1000"),
        item("SimpleMeasurement", true, "Simple measurement result", "Simple measurement result",
             "1111"),
        item("Battery", true, "Battery info", "Battery", "1000"),
        item("AccelerationSensor", false, "Acceleration Sensor", "Acceleration Sensor", "1000"),
        item("LensInfo", true, "Lens Info", "Lens", "1000"),
        item("IrigState", true, "IRIG State", "", "1000"),
        item("RecEndTime", false, "Rec end time", "Rec end time", "0111"),
        item("", true, "", "", "1101"),
    }};
}
