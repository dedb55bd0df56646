#include "standin/settings/StandInDefaults.h"

#include "foundation/InfoItems.h"
#include "foundation/Keys.h"
#include "standin/settings/HostKeys.h"
#include "standin/settings/TimeCodeSetting.h"

#include <QFileInfo>
#include <QMap>
#include <QSize>
#include <QStandardPaths>

namespace StandInDefaults {

namespace {

const QString TimeFormat = QStringLiteral("yyyyMMdd_HHmmss");
const QString OverlayFont = QStringLiteral("DejaVu Sans");
const QString OverlayWidth = QStringLiteral("280"); // room for a time to the nanosecond
constexpr int SaveInfoGroups = 7;

// The name of a file that a kind of save begins with.
struct SaveDefault
{
    SaveModes::Family family;
    const char *name;
};

constexpr SaveDefault SaveDefaults[] = {{SaveModes::Family::Export, "Recording"},
                                        {SaveModes::Family::Convert, "Converted"},
                                        {SaveModes::Family::Snap, "Snapshot"},
                                        {SaveModes::Family::Report, "Report"},
                                        {SaveModes::Family::Layout, "Layout"}};

/// Collects defaults; a key that a kind of save does not have is empty and left out.
struct Catalogue
{
    QMap<QString, QVariant> values;

    void add(const QString &key, const QVariant &value)
    {
        if (!key.isEmpty())
            values.insert(key, value);
    }

    void addDigits(const Keys::NumberDigitKeys &keys)
    {
        add(keys.camera, 3);
        add(keys.head, 3);
        add(keys.session, 4);
    }

    void addFolder(const Keys::SaveFolderKeys &keys)
    {
        add(keys.use, false);
        add(keys.name, QString());
        add(keys.addNumber, false);
        add(keys.addNumberFormat, QStringLiteral("auto"));
        addDigits(keys.digits);
        add(keys.addTime, false);
        add(keys.addTimeFormat, TimeFormat);
        add(keys.asFileName, false);
        add(keys.asFileNameIncludeOption, false);
    }

    void addFileName(const Keys::SaveFileNameKeys &keys, const QString &name)
    {
        add(keys.name, name);
        addDigits(keys.digits);
        add(keys.addTime, false);
        add(keys.addTimeFormat, TimeFormat);
        add(keys.asOriginal, false);
        add(keys.asPartitionName, false);
        add(keys.useCustom, false);
        add(keys.useCustomFromTarget, false);
        add(keys.useCustomFromTargetKey, -1);
        add(keys.useCustomIncludeUnit, false);
    }

    // What a document adds to the name: its number, with as many digits as there are cameras, so
    // that documents of one save and saves of one document differ. Reports of files that are
    // composed together have the same number, and so the file's name beside it.
    void addNameAddition(const HostKeys::FileNameKeys &keys, bool isReport)
    {
        add(keys.addTextValue, QString());
        add(keys.addNumber, true);
        add(keys.addNumberFormat, QStringLiteral("auto"));
        addDigits(keys.manualDigits);
        add(keys.addDetail, isReport);
        add(keys.details, isReport ? QStringLiteral("File name") : QString());
        add(keys.detailsConnect, QStringLiteral("_"));
        add(keys.sequenceDigits, 6);
    }

    void addHostKeys(SaveModes::Family family)
    {
        const HostKeys::SaveKeys &keys = HostKeys::save(family);
        addNameAddition(keys.fileName, family == SaveModes::Family::Report);
        addDigits(keys.groupDirManualDigits);
        addDigits(keys.subDirManualDigits);
    }

    void addSave(const Keys::SaveKeys &keys, const QString &name)
    {
        add(keys.dir, saveFolder());
        add(keys.dirAsOriginal, false);
        addFolder(keys.groupDir);
        addFolder(keys.subDir);
        addFileName(keys.fileName, name);
        addDigits(keys.kvDataNameDigits);
        add(keys.kvDataNameAddNumber, false);
        add(keys.mrawBayerSave, false);
        add(keys.rawwBayerSave, false);
        add(keys.tiffBayerSave, false);
        add(keys.saveInf, false);
        add(keys.saveInfo, false);
        add(keys.saveCorrect, false);
        add(keys.saveScale, false);
        add(keys.saveThumbnail, false);
        add(keys.saveThumbnailAddTextValue, QString());
        add(keys.skipSaveFrame, 1);
        add(keys.skipSaveMsec, 1.0);
        add(keys.skipUnit, 0);
    }
};

// Ids with their state, in the order of the table, for the items of one kind of display.
template <class Offered> QString displayText(Offered offered)
{
    QStringList entries;
    for (const InfoItem &item : infoItems) {
        if (item.key.isEmpty())
            break;
        if (!offered(item))
            continue;
        const QString state =
            item.defaultShown ? QStringLiteral(":true") : QStringLiteral(":false");
        entries.append(item.key == QLatin1String("<hr>") ? item.key : item.key + state);
    }
    return entries.join(QLatin1Char(','));
}

// Of the groups only the first has its ticks: what all show would stand there seven times.
QString saveInfoDisplay(int group)
{
    const QString text =
        displayText([](const InfoItem &item) { return item.usable[InfoItem::SaveForm]; });
    return group == 0 ? text
                      : QString(text).replace(QLatin1String(":true"), QLatin1String(":false"));
}

void addExport(Catalogue &catalogue)
{
    catalogue.add(Keys::exportTarget.infTestNo, QString());
    catalogue.add(Keys::exportTarget.media, Keys::texts.mediaFile);
    catalogue.add(Keys::exportTarget.multiPathDeviceList, QString());
    catalogue.add(Keys::exportTarget.multiPathList, QString());
    catalogue.add(Keys::exportTarget.singlePath, true);
    catalogue.add(Keys::saveOption.enableBlankFilename, false);
    catalogue.add(Keys::saveOption.saveInfFile, false);
}

void addInformation(Catalogue &catalogue)
{
    const Keys::InfoKeys &keys = Keys::info;
    catalogue.add(keys.alignment, QStringLiteral("0"));
    catalogue.add(keys.blankLine, true);
    catalogue.add(keys.bold, false);
    catalogue.add(keys.display, infoDisplay());
    catalogue.add(keys.fontName, OverlayFont);
    catalogue.add(keys.fontSize, QStringLiteral("12"));
    catalogue.add(keys.foregroundColor, QStringLiteral("#ffffff"));
    catalogue.add(keys.iconSize, QStringLiteral("16"));
    catalogue.add(keys.italic, false);
    catalogue.add(keys.logoPath, QString());
    catalogue.add(keys.recTimeUnit, 0);
    catalogue.add(keys.width, OverlayWidth);
}

void addSaveInformation(Catalogue &catalogue)
{
    const Keys::SaveInfoKeys &keys = Keys::saveInfo;
    catalogue.add(keys.collectiveSetting, false);
    catalogue.add(keys.withinImage, true);
    catalogue.add(keys.logoPath, QString());
    // Each group's keys have its offset behind them. Without one they are known, and no more.
    for (const QString &key :
         {keys.alignment, keys.backgroundColor, keys.bold, keys.columnNum, keys.columnSpacing,
          keys.display, keys.fixedFontSizeRatio, keys.fixedFontSizeRatioBaseResolution,
          keys.fontName, keys.fontSize, keys.foregroundColor, keys.italic, keys.toColumn,
          keys.useBackgroundColor, keys.width})
        catalogue.add(key, QVariant());
    for (int group = 0; group < SaveInfoGroups; ++group) {
        const QString offset = QString::number(group);
        catalogue.add(keys.alignment + offset, QStringLiteral("0"));
        catalogue.add(keys.backgroundColor + offset, QStringLiteral("#000000"));
        catalogue.add(keys.bold + offset, false);
        catalogue.add(keys.columnNum + offset,
                      group == 0 ? QStringLiteral("3") : QStringLiteral("2"));
        catalogue.add(keys.columnSpacing + offset, 10);
        catalogue.add(keys.display + offset, saveInfoDisplay(group));
        catalogue.add(keys.fixedFontSizeRatio + offset, false);
        catalogue.add(keys.fixedFontSizeRatioBaseResolution + offset, QSize(-1, -1));
        catalogue.add(keys.fontName + offset, OverlayFont);
        catalogue.add(keys.fontSize + offset, QStringLiteral("12"));
        catalogue.add(keys.foregroundColor + offset, QStringLiteral("#ffffff"));
        catalogue.add(keys.italic + offset, false);
        catalogue.add(keys.toColumn + offset, group == 0);
        catalogue.add(keys.useBackgroundColor + offset, false);
        catalogue.add(keys.width + offset, OverlayWidth);
    }
}

void addDisplay(Catalogue &catalogue)
{
    const Keys::DisplayKeys &keys = Keys::display;
    catalogue.add(keys.displayWithRealBitDepth, false);
    catalogue.add(keys.frameInsertDelimiter, false);
    catalogue.add(keys.language, QStringLiteral("en"));
    catalogue.add(keys.outputLanguage, 0);
    catalogue.add(keys.recordRateInsertDelimiter, false);
    catalogue.add(keys.shutterSpeed, 0);
    catalogue.add(keys.shutterSpeedInsertDelimiter, false);
    catalogue.add(keys.shutterSpeedUnit, 0);
}

void addTimeCode(Catalogue &catalogue)
{
    const QMap<QString, QVariant> fields = TimeCodeSetting::values(TimeCodeRecord());
    for (auto field = fields.cbegin(); field != fields.cend(); ++field)
        catalogue.add(field.key(), *field);
}

void addCameras(Catalogue &catalogue)
{
    catalogue.add(Keys::cameraConnection.addIpDefault, Keys::texts.addIpDefault);
    catalogue.add(Keys::cameraConnection.searchIp, Keys::texts.searchIpDefault);
    catalogue.add(Keys::cameraConnection.searchWay, 0);
    catalogue.add(Keys::qcfg.fileNameAddTime, false);
    catalogue.add(Keys::qcfg.fileNameAddTimeFormat, TimeFormat);
    catalogue.add(Keys::qcfg.fileNameAsOriginal, true);
    catalogue.add(Keys::qcfg.path, QString());
    catalogue.add(Keys::qcfg.userFileName, QString());
    catalogue.add(Keys::recording.autoDownload, false);
    catalogue.add(Keys::recording.autoIncrementPartition, false);
    catalogue.add(Keys::recording.loopRecord, false);
    catalogue.add(Keys::recording.recordDuringDownload, false);
    catalogue.add(Keys::recording.stopRecordingAfterLastPartition, false);
    catalogue.add(Keys::recording.useTriggerTest, false);
}

void addApplication(Catalogue &catalogue)
{
    const Keys::ApplicationKeys &keys = Keys::application;
    catalogue.add(keys.cameraNameFilePath, QString());
    catalogue.add(HostKeys::completeCameraNames, false);
    catalogue.add(keys.connectedCameraOnlyShowing, false);
    catalogue.add(keys.importDir, QString());
    catalogue.add(keys.screenNumber, 0);
    catalogue.add(keys.style, QStringLiteral("light"));
    catalogue.add(keys.supportDir, QString());
    catalogue.add(keys.unitSystem, 1);
    catalogue.add(keys.xmlDir, QString());
}

const QMap<QString, QVariant> &catalogue()
{
    static const QMap<QString, QVariant> result = [] {
        Catalogue all;
        for (const SaveDefault &save : SaveDefaults) {
            all.addSave(SaveModes::keys(save.family), QLatin1String(save.name));
            all.addHostKeys(save.family);
        }
        addExport(all);
        addInformation(all);
        addSaveInformation(all);
        addDisplay(all);
        addTimeCode(all);
        addCameras(all);
        addApplication(all);
        return all.values;
    }();
    return result;
}

}

QVariant valueOf(const QString &key)
{
    return catalogue().value(key);
}

bool isKnown(const QString &key)
{
    return catalogue().contains(key);
}

QStringList keys()
{
    QStringList keys;
    for (auto entry = catalogue().cbegin(); entry != catalogue().cend(); ++entry) {
        if (entry->isValid())
            keys.append(entry.key());
    }
    return keys;
}

QString saveFolder()
{
    for (const auto place : {QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation}) {
        const QFileInfo folder(QStandardPaths::writableLocation(place));
        if (folder.isDir() && folder.isWritable())
            return folder.filePath();
    }
    return QStandardPaths::writableLocation(QStandardPaths::TempLocation);
}

QString infoDisplay()
{
    return displayText([](const InfoItem &item) {
        return item.usable[InfoItem::Live] || item.usable[InfoItem::Memory] ||
               item.usable[InfoItem::File];
    });
}

}
