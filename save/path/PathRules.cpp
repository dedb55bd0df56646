#include "save/path/PathRules.h"

#include "foundation/SaveModes.h"
#include "save/path/PathText.h"

namespace PathRules {

namespace {

const QString Replacement = QLatin1String("_");
const QString On = QLatin1String("on");

namespace Item {

const QString Name = QLatin1String("name");
const QString Unit = QLatin1String("unit");
const QString UseFileName = QLatin1String("usefilename");
const QString Value = QLatin1String("value");

}

}

bool hasGroupDir(int mode)
{
    return mode != SaveModes::LayoutMode && mode != 5;
}

bool usesDestinations(int mode)
{
    return mode == SaveModes::ExportMode || mode == 2;
}

bool mayBeUnnamed(int mode)
{
    switch (mode) {
    case SaveModes::FilePreview:
    case SaveModes::ExportPreview:
    case SaveModes::ConvertPreview:
    case SaveModes::ReportPreview:
    case SaveModes::LayoutPreview:
        return true;
    default:
        return false;
    }
}

bool isPlanned(int mode)
{
    return mode != SaveModes::ReportMode;
}

bool hasThumbnail(int mode)
{
    return usesDestinations(mode) || mode == SaveModes::ConvertMode;
}

QString testNumber(const QString &setting, const QVariantList &customInfo)
{
    if (!setting.isEmpty())
        return setting;
    for (const QVariant &entry : customInfo) {
        const QVariantMap item = entry.toMap();
        if (item.value(Item::Name).toString() == QLatin1String("TestNo"))
            return item.value(Item::Value).toString();
    }
    return QString();
}

QString customName(const QVariantList &customInfo, bool includesUnit)
{
    QString name;
    for (const QVariant &entry : customInfo) {
        const QVariantMap item = entry.toMap();
        if (item.value(Item::UseFileName).toString() != On)
            continue;
        if (!name.isEmpty())
            name += QLatin1Char('_');
        name += item.value(Item::Value).toString();
        if (includesUnit)
            name += item.value(Item::Unit).toString();
    }
    return PathText::replaceInvalidChars(name, Replacement);
}

QString bareName(const FileNameSettings &settings, const NameFacts &facts, bool isFileMode)
{
    QString name = settings.asOriginal ? facts.originalName : settings.name;
    if (settings.asPartitionName && !isFileMode)
        name = PathText::replaceInvalidChars(facts.partitionName, Replacement);
    if (settings.usesCustomInfo && facts.customInfo)
        name = customName(*facts.customInfo, settings.includesUnit);
    return name;
}

QString folderName(const FolderSettings &settings, const QString &fileName)
{
    return settings.isNamedAsFile ? fileName : settings.name;
}

FolderNumber folderNumber(const FolderSettings &settings, const NumberFacts &facts, bool isFileMode)
{
    FolderNumber number{facts.camera, facts.head, settings.digits};
    if (isFileMode) {
        number.digits.camera = 0;
        number.digits.head = 0;
    } else if (settings.sizesDigits && facts.cameraCount) {
        number.digits.camera = NumberText::decimalLength(*facts.cameraCount);
        number.digits.head = facts.headCount > 1 ? NumberText::decimalLength(facts.headCount) : 0;
    }
    return number;
}

QString movedPath(const QString &path, const QString &dir, const QString &name,
                  const QString &other)
{
    if (!dir.isEmpty())
        return QString(path).replace(dir, other);
    QString moved = other;
    PathText::ensureTrailingSlash(moved);
    return moved + name;
}

QString thumbnailPath(const QString &path, const ThumbnailSettings &settings)
{
    return settings.hasInformationFile || !settings.isSaved ? path : path + settings.addition;
}

bool isTooLong(const QString &path)
{
    return path.size() > LongestPath;
}

}
