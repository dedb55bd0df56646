#include "standin/settings/TimeCodeSetting.h"

#include "standin/settings/StandInSettings.h"

#include <type_traits>

namespace TimeCodeSetting {

namespace {

// Tells `visit` the key of each field, and the field itself.
template <class Record, class Visit> void forEachField(Record &record, Visit visit)
{
    visit("timecode/timecode", record.timeCodeIndex);
    visit("timecode/displayunit", record.displayUnit);
    visit("timecode/oneframe", record.oneFrame);
    visit("timecode/startvalue", record.startValue);
    visit("timecode/reset", record.reset);
    visit("timecode/resetvalue", record.resetValue);
    visit("timecode/scopedisplay", record.scopeDisplayIndex);
    visit("timecode/decimalplace", record.decimalPlaceIndex);
    visit("timecode/decimaldivide", record.decimalDivide);
    visit("timecode/usingrih", record.usingRihFileInfo);
    visit("timecode/overwrite", record.overWrite);
    visit("timecode/realtime", record.realTime);
}

}

void read(const StandInSettings &settings, TimeCodeRecord &out)
{
    forEachField(out, [&](const char *name, auto &field) {
        const QString key = QLatin1String(name);
        if (settings.contains(key))
            field = settings.value(key, QVariant()).value<std::decay_t<decltype(field)>>();
    });
}

QMap<QString, QVariant> values(const TimeCodeRecord &record)
{
    QMap<QString, QVariant> all;
    forEachField(record, [&](const char *name, const auto &field) {
        all.insert(QLatin1String(name), QVariant(field));
    });
    return all;
}

}
