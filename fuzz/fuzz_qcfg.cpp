#include "FuzzInput.h"

#include "standin/session/CameraSettingsFile.h"

#include <cstdio>
#include <cstdlib>

// Random bytes as files of camera settings.

namespace {

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

void refuseMessages(QtMsgType, const QMessageLogContext &, const QString &text)
{
    std::fprintf(stderr, "message: %s\n", qPrintable(text));
    std::abort();
}

const char *const Parts[] = {"{",
                             "}",
                             "[",
                             "]",
                             ",",
                             ":",
                             "\"format\":\"qcfg\",",
                             "\"cameras\":",
                             "{\"serialNumber\":\"1\"",
                             ",\"serialNumber\":\"\\u0000\\ud800\"",
                             ",\"head\":",
                             ",\"recordRate\":",
                             ",\"shutterSpeed\":",
                             ",\"region\":[",
                             "0",
                             "-1",
                             "1.5",
                             "1e308",
                             "-1e308",
                             "4294967296",
                             "16777217",
                             "null",
                             "true",
                             "\"a\"",
                             "[1,2,3,4]",
                             "[-9e9,9e9,-9e9,9e9]",
                             "\xff",
                             " "};

// Mostly a file whose cameras are random.
QByteArray file(FuzzInput &input)
{
    const int kind = input.choice(4);
    QByteArray bytes;
    while (!input.isAtEnd()) {
        const std::uint8_t byte = input.byte();
        if (kind == 0)
            bytes.append(char(byte));
        else
            bytes.append(Parts[byte % std::size(Parts)]);
    }
    if (kind < 2)
        return bytes;
    return R"({"format":"qcfg","cameras":[{"serialNumber":"1")" + bytes + "}]}";
}

bool isPossible(const CameraSettings &settings, const CameraLimits &limits)
{
    const QRect sensor(QPoint(0, 0), limits.sensorSize);
    return settings.recordRate >= limits.minRecordRate &&
           settings.recordRate <= limits.maxRecordRate &&
           settings.shutterSpeed >= settings.recordRate &&
           settings.shutterSpeed <= limits.maxShutterSpeed && sensor.contains(settings.region) &&
           settings.region.width() >= limits.minRegion.width() &&
           settings.region.height() >= limits.minRegion.height();
}

}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(refuseMessages);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    const auto records = CameraSettingsFile::fromJson(file(input));
    if (!records)
        return 0;
    for (const CameraSettingsRecord &record : *records) {
        require(!record.serialNumber.isEmpty(), "a record tells whose it is");
        const CameraLimits limits;
        require(isPossible(clampedSettings(record.appliedTo({}), limits), limits),
                "what is read is brought to what a camera can do");
    }
    const QByteArray written = CameraSettingsFile::toJson(*records);
    const auto again = CameraSettingsFile::fromJson(written);
    require(again && again->size() == records->size(), "what is written can be read");
    require(CameraSettingsFile::toJson(*again) == written, "and is the same again");
    return 0;
}
