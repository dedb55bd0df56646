#include "standin/answers/PartitionInfo.h"

#include "foundation/Utilities.h"
#include "standin/drawing/InfoValues.h"

#include <algorithm>

namespace {

// Custom items that lists have a column for.
const char *const ListedCustoms[] = {"TestNo", "Project",  "TestType",  "TestTypeNo",
                                     "Date",   "Engineer", "Technician"};

/// Collects the values of a row; what is empty is left out.
struct Row
{
    QVariantMap values;

    void add(const char *key, const QString &text)
    {
        if (!text.isEmpty())
            values.insert(QLatin1String(key), text);
    }
};

}

quint64 PartitionInfo::savedFrames() const
{
    const quint64 step = quint64(std::max(1, skip));
    return (frames + step - 1) / step;
}

quint64 PartitionInfo::savedBytes() const
{
    const quint64 pixels = quint64(std::max(0, facts.resolution.width())) *
                           quint64(std::max(0, facts.resolution.height()));
    return savedFrames() * pixels * quint64((std::max(0, bits) + 7) / 8);
}

QVariantMap PartitionInfo::row(const InfoValues &values) const
{
    const auto item = [&](const char *id) {
        return values.lines(QLatin1String(id), facts).join(QLatin1Char(' '));
    };
    Row row;
    row.add("dockey", QString::number(docKey));
    row.add("selected", isSelected ? QStringLiteral("true") : QStringLiteral("false"));
    row.add("filename", facts.fileName);
    row.add("filepath", filePath);
    if (isOnMedium) {
        row.add("name", dataName);
        row.add("drivename", driveName);
        row.add("serialno", serialNumber);
        row.add("datano", dataNumber);
    }
    if (slotNumber > 0)
        row.add("slotno", QString::number(slotNumber));
    row.add("devicename", facts.deviceName);
    row.add("cameraname", facts.cameraName);
    row.add("ipaddress", ipAddress);
    row.add("date", facts.recordDate);
    row.add("time", facts.recordTime);
    row.add("shutterspeed", item("ShutterSpeed"));
    row.add("recordrate", item("FrameRate"));
    row.add("currentpartition", QString::number(currentPartition));
    row.add("totalframes", values.formats.frameText(frames));
    row.values.insert(QStringLiteral("totalframesplain"),
                      int(std::min<uint>(frames, std::numeric_limits<int>::max())));
    row.add("exportframes", values.formats.frameText(savedFrames()));
    row.add("resolution", item("Resolution"));
    row.add("capacity", QString::number(savedBytes()));
    row.add("capacitylabel", UTL::formatCapacity(savedBytes()));
    row.add("Comments", facts.comment);
    for (const char *name : ListedCustoms) {
        for (const QVariant &entry : customInfo) {
            const QVariantMap record = entry.toMap();
            // An item that the document has is told with an empty value too.
            if (record.value(QStringLiteral("name")).toString() == QLatin1String(name))
                row.values.insert(QLatin1String("Custom_") + QLatin1String(name),
                                  record.value(QStringLiteral("value")).toString());
        }
    }
    return row.values;
}
