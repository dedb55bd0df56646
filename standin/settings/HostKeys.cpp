#include "standin/settings/HostKeys.h"

#include <array>

namespace HostKeys {

namespace {

Keys::NumberDigitKeys manualDigits(const QString &level)
{
    const QString key = level + QLatin1String("addnumbermanual");
    return {key + QLatin1String("cameranodigits"), key + QLatin1String("headnodigits"),
            key + QLatin1String("sessionnodigits")};
}

SaveKeys makeSave(const QString &prefix, bool hasGroupDir)
{
    const QString name = prefix + QLatin1String("filename");
    SaveKeys keys;
    keys.fileName.addTextValue = name + QLatin1String("addtextvalue");
    keys.fileName.addNumber = name + QLatin1String("addnumber");
    keys.fileName.addNumberFormat = name + QLatin1String("addnumberformat");
    keys.fileName.manualDigits = manualDigits(name);
    keys.fileName.addDetail = name + QLatin1String("adddetail");
    keys.fileName.details = name + QLatin1String("adddetails");
    keys.fileName.detailsConnect = name + QLatin1String("adddetailsconnect");
    keys.fileName.sequenceDigits = name + QLatin1String("seqdigits");
    if (hasGroupDir)
        keys.groupDirManualDigits = manualDigits(prefix + QLatin1String("groupdir"));
    keys.subDirManualDigits = manualDigits(prefix + QLatin1String("subdir"));
    return keys;
}

}

const SaveKeys &save(SaveModes::Family family)
{
    // In the order of the families.
    static const std::array<SaveKeys, 5> all{
        makeSave(QStringLiteral("export/"), true), makeSave(QStringLiteral("convert/"), true),
        makeSave(QStringLiteral("snap/"), true), makeSave(QStringLiteral("report/"), true),
        makeSave(QStringLiteral("layout/"), false)};
    return all.at(size_t(family));
}

}
