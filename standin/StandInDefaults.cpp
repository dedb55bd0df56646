#include "standin/StandInDefaults.h"

#include <QMap>

namespace StandInDefaults {

namespace {

using Catalogue = QMap<QString, QVariant>;

// What the three parts of a save path have in common: a number, a time, digits.
void addNaming(Catalogue &catalogue, const QString &part)
{
    catalogue.insert(part + QStringLiteral("addnumber"), true);
    catalogue.insert(part + QStringLiteral("addnumberformat"), QStringLiteral("%04d"));
    catalogue.insert(part + QStringLiteral("addnumbercameranodigits"), 2);
    catalogue.insert(part + QStringLiteral("addnumberheadnodigits"), 0);
    catalogue.insert(part + QStringLiteral("addnumbersessionnodigits"), 4);
    catalogue.insert(part + QStringLiteral("addtime"), false);
    catalogue.insert(part + QStringLiteral("addtimeformat"), QStringLiteral("yyyyMMdd_HHmmss"));
}

void addFolder(Catalogue &catalogue, const QString &part)
{
    catalogue.insert(part, false);
    catalogue.insert(part + QStringLiteral("name"), QString());
    addNaming(catalogue, part);
    catalogue.insert(part + QStringLiteral("asfilename"), false);
    catalogue.insert(part + QStringLiteral("asfilenameincludeoption"), false);
}

void addSaveFamily(Catalogue &catalogue, const QString &group)
{
    catalogue.insert(group + QStringLiteral("/dir"), QString());
    catalogue.insert(group + QStringLiteral("/dirasoriginal"), false);
    addFolder(catalogue, group + QStringLiteral("/groupdir"));
    addFolder(catalogue, group + QStringLiteral("/subdir"));
    const QString file = group + QStringLiteral("/filename");
    catalogue.insert(file, QString());
    addNaming(catalogue, file);
    catalogue.insert(file + QStringLiteral("asoriginal"), false);
    catalogue.insert(file + QStringLiteral("aspartitionname"), false);
    catalogue.insert(file + QStringLiteral("usecustom"), false);
    catalogue.insert(file + QStringLiteral("usecustomfromtarget"), false);
    catalogue.insert(file + QStringLiteral("usecustomfromtargetkey"), QString());
    catalogue.insert(file + QStringLiteral("usecustomincludeunit"), false);
    catalogue.insert(group + QStringLiteral("/skipunit"), 0);
    catalogue.insert(group + QStringLiteral("/skipsaveframe"), 1);
    catalogue.insert(group + QStringLiteral("/skipsavemsec"), 1.0);
}

void addSaveOptions(Catalogue &catalogue)
{
    for (const QString &group : {QStringLiteral("export"), QStringLiteral("convert")}) {
        catalogue.insert(group + QStringLiteral("/saveinf"), true);
        catalogue.insert(group + QStringLiteral("/saveinfo"), false);
        catalogue.insert(group + QStringLiteral("/savethumbnail"), false);
        catalogue.insert(group + QStringLiteral("/savethumbnailaddtextvalue"), false);
        for (const QString &format :
             {QStringLiteral("mraw"), QStringLiteral("raww"), QStringLiteral("tiff")})
            catalogue.insert(group + QLatin1Char('/') + format + QStringLiteral("/bayersave"),
                             false);
    }
    catalogue.insert(QStringLiteral("convert/kv/datanameaddnumber"), true);
    catalogue.insert(QStringLiteral("export/kv/datanameaddnumbercameranodigits"), 2);
    catalogue.insert(QStringLiteral("export/kv/datanameaddnumberheadnodigits"), 0);
    catalogue.insert(QStringLiteral("export/kv/datanameaddnumbersessionnodigits"), 4);
    catalogue.insert(QStringLiteral("export/inf_testno"), 1);
    catalogue.insert(QStringLiteral("export/media"), 0);
    catalogue.insert(QStringLiteral("export/multipathdevicelist"), QString());
    catalogue.insert(QStringLiteral("export/multipathlist"), QString());
    catalogue.insert(QStringLiteral("export/savecorrect"), false);
    catalogue.insert(QStringLiteral("export/savescale"), false);
    catalogue.insert(QStringLiteral("export/singlepath"), true);
    catalogue.insert(QStringLiteral("save/EnableBlankFilename"), false);
    catalogue.insert(QStringLiteral("save/SaveInfFile"), true);
}

void addInformation(Catalogue &catalogue)
{
    const QString font = QStringLiteral("DejaVu Sans");
    catalogue.insert(QStringLiteral("info/Alignment"), 0);
    catalogue.insert(QStringLiteral("info/BlankLine"), true);
    catalogue.insert(QStringLiteral("info/Bold"), false);
    catalogue.insert(QStringLiteral("info/FontName"), font);
    catalogue.insert(QStringLiteral("info/FontSize"), 12);
    catalogue.insert(QStringLiteral("info/ForegroundColor"), QStringLiteral("#ffffff"));
    catalogue.insert(QStringLiteral("info/IconSize"), 16);
    catalogue.insert(QStringLiteral("info/Italic"), false);
    catalogue.insert(QStringLiteral("info/LogoPath"), QString());
    catalogue.insert(QStringLiteral("info/RecTimeUnit"), 0);
    catalogue.insert(QStringLiteral("info/Width"), 200);
    catalogue.insert(QStringLiteral("info/display"), infoDisplay());
    catalogue.insert(QStringLiteral("saveinfo/Alignment"), 0);
    catalogue.insert(QStringLiteral("saveinfo/BackgroundColor"), QStringLiteral("#000000"));
    catalogue.insert(QStringLiteral("saveinfo/Bold"), false);
    catalogue.insert(QStringLiteral("saveinfo/ColumnNum"), 1);
    catalogue.insert(QStringLiteral("saveinfo/ColumnSpacing"), 10);
    catalogue.insert(QStringLiteral("saveinfo/FixedFontSizeRatio"), false);
    catalogue.insert(QStringLiteral("saveinfo/FixedFontSizeRatioBaseResolution"),
                     QStringLiteral("1024x1024"));
    catalogue.insert(QStringLiteral("saveinfo/FontName"), font);
    catalogue.insert(QStringLiteral("saveinfo/FontSize"), 12);
    catalogue.insert(QStringLiteral("saveinfo/ForegroundColor"), QStringLiteral("#ffffff"));
    catalogue.insert(QStringLiteral("saveinfo/Italic"), false);
    catalogue.insert(QStringLiteral("saveinfo/LogoPath"), QString());
    catalogue.insert(QStringLiteral("saveinfo/ToColumn"), false);
    catalogue.insert(QStringLiteral("saveinfo/UseBackgroundColor"), true);
    catalogue.insert(QStringLiteral("saveinfo/Width"), 200);
    catalogue.insert(QStringLiteral("saveinfo/WithinImage"), true);
    catalogue.insert(QStringLiteral("saveinfo/collectiveSetting"), false);
    catalogue.insert(QStringLiteral("saveinfo/display"), infoDisplay());
}

void addApplication(Catalogue &catalogue)
{
    catalogue.insert(QStringLiteral("cameraconnection/AddIPDefault"),
                     QStringLiteral("192.168.0.10"));
    catalogue.insert(QStringLiteral("cameraconnection/SearchIP"), QStringLiteral("192.168.0.0"));
    catalogue.insert(QStringLiteral("cameraconnection/SearchWay"), 0);
    catalogue.insert(QStringLiteral("customize/unitSystem"), 1);
    catalogue.insert(QStringLiteral("devicemanager/connectedCameraOnlyShowing"), false);
    catalogue.insert(QStringLiteral("display/DisplayWithRealBitDepth"), false);
    catalogue.insert(QStringLiteral("display/ShutterSpeed"), 0);
    catalogue.insert(QStringLiteral("display/ShutterSpeedUnit"), 0);
    catalogue.insert(QStringLiteral("display/frameInsertDelimiter"), false);
    catalogue.insert(QStringLiteral("display/language"), QStringLiteral("en"));
    catalogue.insert(QStringLiteral("display/outputLanguage"), QStringLiteral("en"));
    catalogue.insert(QStringLiteral("display/recordRateInsertDelimiter"), false);
    catalogue.insert(QStringLiteral("display/shutterSpeedInsertDelimiter"), false);
    catalogue.insert(QStringLiteral("env/style"), QStringLiteral("light"));
    catalogue.insert(QStringLiteral("import/dir"), QString());
    catalogue.insert(QStringLiteral("main/scrno"), 0);
    catalogue.insert(QStringLiteral("qcfg/filenameaddtime"), false);
    catalogue.insert(QStringLiteral("qcfg/filenameaddtimeformat"),
                     QStringLiteral("yyyyMMdd_HHmmss"));
    catalogue.insert(QStringLiteral("qcfg/filenameasoriginal"), true);
    catalogue.insert(QStringLiteral("qcfg/path"), QString());
    catalogue.insert(QStringLiteral("qcfg/userFileName"), QString());
    catalogue.insert(QStringLiteral("recording/AutoDownload"), false);
    catalogue.insert(QStringLiteral("recording/AutoIncrementPartition"), false);
    catalogue.insert(QStringLiteral("recording/LoopRecord"), false);
    catalogue.insert(QStringLiteral("recording/RecordDuringDownload"), false);
    catalogue.insert(QStringLiteral("recording/StopRecordingAfterLastPartition"), false);
    catalogue.insert(QStringLiteral("recording/useTriggerTest"), false);
    catalogue.insert(QStringLiteral("support/dir"), QString());
    catalogue.insert(QStringLiteral("usercustom/cameraNameFilePath"), QString());
    catalogue.insert(QStringLiteral("xml/dir"), QString());
}

const Catalogue &catalogue()
{
    static const Catalogue result = [] {
        Catalogue all;
        for (const QString &group :
             {QStringLiteral("export"), QStringLiteral("convert"), QStringLiteral("snap"),
              QStringLiteral("report"), QStringLiteral("layout")})
            addSaveFamily(all, group);
        addSaveOptions(all);
        addInformation(all);
        addApplication(all);
        return all;
    }();
    return result;
}

}

QVariant valueOf(const QString &key)
{
    return catalogue().value(key);
}

QStringList keys()
{
    return catalogue().keys();
}

QString infoDisplay()
{
    return QStringLiteral("FrameRate:1,ShutterSpeed:1,Resolution:1,Comment:1");
}

}
