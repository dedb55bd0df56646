#include "foundation/Keys.h"

namespace Keys {

SaveKeys SaveKeys::makeExport()
{
    SaveKeys keys;
    keys.dir = QLatin1String("export/dir");
    keys.dirAsOriginal = QLatin1String("export/dirasoriginal");
    keys.groupDir.use = QLatin1String("export/groupdir");
    keys.groupDir.name = QLatin1String("export/groupdirname");
    keys.groupDir.addNumber = QLatin1String("export/groupdiraddnumber");
    keys.groupDir.addNumberFormat = QLatin1String("export/groupdiraddnumberformat");
    keys.groupDir.digits.camera = QLatin1String("export/groupdiraddnumbercameranodigits");
    keys.groupDir.digits.head = QLatin1String("export/groupdiraddnumberheadnodigits");
    keys.groupDir.digits.session = QLatin1String("export/groupdiraddnumbersessionnodigits");
    keys.groupDir.addTime = QLatin1String("export/groupdiraddtime");
    keys.groupDir.addTimeFormat = QLatin1String("export/groupdiraddtimeformat");
    keys.groupDir.asFileName = QLatin1String("export/groupdirasfilename");
    keys.groupDir.asFileNameIncludeOption = QLatin1String("export/groupdirasfilenameincludeoption");
    keys.subDir.use = QLatin1String("export/subdir");
    keys.subDir.name = QLatin1String("export/subdirname");
    keys.subDir.addNumber = QLatin1String("export/subdiraddnumber");
    keys.subDir.addNumberFormat = QLatin1String("export/subdiraddnumberformat");
    keys.subDir.digits.camera = QLatin1String("export/subdiraddnumbercameranodigits");
    keys.subDir.digits.head = QLatin1String("export/subdiraddnumberheadnodigits");
    keys.subDir.digits.session = QLatin1String("export/subdiraddnumbersessionnodigits");
    keys.subDir.addTime = QLatin1String("export/subdiraddtime");
    keys.subDir.addTimeFormat = QLatin1String("export/subdiraddtimeformat");
    keys.subDir.asFileName = QLatin1String("export/subdirasfilename");
    keys.subDir.asFileNameIncludeOption = QLatin1String("export/subdirasfilenameincludeoption");
    keys.fileName.name = QLatin1String("export/filename");
    keys.fileName.digits.camera = QLatin1String("export/filenameaddnumbercameranodigits");
    keys.fileName.digits.head = QLatin1String("export/filenameaddnumberheadnodigits");
    keys.fileName.digits.session = QLatin1String("export/filenameaddnumbersessionnodigits");
    keys.fileName.addTime = QLatin1String("export/filenameaddtime");
    keys.fileName.addTimeFormat = QLatin1String("export/filenameaddtimeformat");
    keys.fileName.asOriginal = QLatin1String("export/filenameasoriginal");
    keys.fileName.asPartitionName = QLatin1String("export/filenameaspartitionname");
    keys.fileName.useCustom = QLatin1String("export/filenameusecustom");
    keys.fileName.useCustomFromTarget = QLatin1String("export/filenameusecustomfromtarget");
    keys.fileName.useCustomFromTargetKey = QLatin1String("export/filenameusecustomfromtargetkey");
    keys.fileName.useCustomIncludeUnit = QLatin1String("export/filenameusecustomincludeunit");
    keys.kvDataNameDigits.camera = QLatin1String("export/kv/datanameaddnumbercameranodigits");
    keys.kvDataNameDigits.head = QLatin1String("export/kv/datanameaddnumberheadnodigits");
    keys.kvDataNameDigits.session = QLatin1String("export/kv/datanameaddnumbersessionnodigits");
    keys.mrawBayerSave = QLatin1String("export/mraw/bayersave");
    keys.rawwBayerSave = QLatin1String("export/raww/bayersave");
    keys.tiffBayerSave = QLatin1String("export/tiff/bayersave");
    keys.saveInf = QLatin1String("export/saveinf");
    keys.saveInfo = QLatin1String("export/saveinfo");
    keys.saveCorrect = QLatin1String("export/savecorrect");
    keys.saveScale = QLatin1String("export/savescale");
    keys.saveThumbnail = QLatin1String("export/savethumbnail");
    keys.saveThumbnailAddTextValue = QLatin1String("export/savethumbnailaddtextvalue");
    keys.skipSaveFrame = QLatin1String("export/skipsaveframe");
    keys.skipSaveMsec = QLatin1String("export/skipsavemsec");
    keys.skipUnit = QLatin1String("export/skipunit");
    return keys;
}

SaveKeys SaveKeys::makeConvert()
{
    SaveKeys keys;
    keys.dir = QLatin1String("convert/dir");
    keys.dirAsOriginal = QLatin1String("convert/dirasoriginal");
    keys.groupDir.use = QLatin1String("convert/groupdir");
    keys.groupDir.name = QLatin1String("convert/groupdirname");
    keys.groupDir.addNumber = QLatin1String("convert/groupdiraddnumber");
    keys.groupDir.addNumberFormat = QLatin1String("convert/groupdiraddnumberformat");
    keys.groupDir.digits.camera = QLatin1String("convert/groupdiraddnumbercameranodigits");
    keys.groupDir.digits.head = QLatin1String("convert/groupdiraddnumberheadnodigits");
    keys.groupDir.digits.session = QLatin1String("convert/groupdiraddnumbersessionnodigits");
    keys.groupDir.addTime = QLatin1String("convert/groupdiraddtime");
    keys.groupDir.addTimeFormat = QLatin1String("convert/groupdiraddtimeformat");
    keys.groupDir.asFileName = QLatin1String("convert/groupdirasfilename");
    keys.groupDir.asFileNameIncludeOption =
        QLatin1String("convert/groupdirasfilenameincludeoption");
    keys.subDir.use = QLatin1String("convert/subdir");
    keys.subDir.name = QLatin1String("convert/subdirname");
    keys.subDir.addNumber = QLatin1String("convert/subdiraddnumber");
    keys.subDir.addNumberFormat = QLatin1String("convert/subdiraddnumberformat");
    keys.subDir.digits.camera = QLatin1String("convert/subdiraddnumbercameranodigits");
    keys.subDir.digits.head = QLatin1String("convert/subdiraddnumberheadnodigits");
    keys.subDir.digits.session = QLatin1String("convert/subdiraddnumbersessionnodigits");
    keys.subDir.addTime = QLatin1String("convert/subdiraddtime");
    keys.subDir.addTimeFormat = QLatin1String("convert/subdiraddtimeformat");
    keys.subDir.asFileName = QLatin1String("convert/subdirasfilename");
    keys.subDir.asFileNameIncludeOption = QLatin1String("convert/subdirasfilenameincludeoption");
    keys.fileName.name = QLatin1String("convert/filename");
    keys.fileName.digits.camera = QLatin1String("convert/filenameaddnumbercameranodigits");
    keys.fileName.digits.head = QLatin1String("convert/filenameaddnumberheadnodigits");
    keys.fileName.digits.session = QLatin1String("convert/filenameaddnumbersessionnodigits");
    keys.fileName.addTime = QLatin1String("convert/filenameaddtime");
    keys.fileName.addTimeFormat = QLatin1String("convert/filenameaddtimeformat");
    keys.fileName.asOriginal = QLatin1String("convert/filenameasoriginal");
    keys.fileName.asPartitionName = QLatin1String("convert/filenameaspartitionname");
    keys.fileName.useCustom = QLatin1String("convert/filenameusecustom");
    keys.fileName.useCustomFromTarget = QLatin1String("convert/filenameusecustomfromtarget");
    keys.fileName.useCustomFromTargetKey = QLatin1String("convert/filenameusecustomfromtargetkey");
    keys.fileName.useCustomIncludeUnit = QLatin1String("convert/filenameusecustomincludeunit");
    keys.kvDataNameAddNumber = QLatin1String("convert/kv/datanameaddnumber");
    keys.mrawBayerSave = QLatin1String("convert/mraw/bayersave");
    keys.rawwBayerSave = QLatin1String("convert/raww/bayersave");
    keys.tiffBayerSave = QLatin1String("convert/tiff/bayersave");
    keys.saveInf = QLatin1String("convert/saveinf");
    keys.saveInfo = QLatin1String("convert/saveinfo");
    keys.saveThumbnail = QLatin1String("convert/savethumbnail");
    keys.saveThumbnailAddTextValue = QLatin1String("convert/savethumbnailaddtextvalue");
    return keys;
}

SaveKeys SaveKeys::makeSnap()
{
    SaveKeys keys;
    keys.dir = QLatin1String("snap/dir");
    keys.dirAsOriginal = QLatin1String("snap/dirasoriginal");
    keys.groupDir.use = QLatin1String("snap/groupdir");
    keys.groupDir.name = QLatin1String("snap/groupdirname");
    keys.groupDir.addNumber = QLatin1String("snap/groupdiraddnumber");
    keys.groupDir.addNumberFormat = QLatin1String("snap/groupdiraddnumberformat");
    keys.groupDir.digits.camera = QLatin1String("snap/groupdiraddnumbercameranodigits");
    keys.groupDir.digits.head = QLatin1String("snap/groupdiraddnumberheadnodigits");
    keys.groupDir.digits.session = QLatin1String("snap/groupdiraddnumbersessionnodigits");
    keys.groupDir.addTime = QLatin1String("snap/groupdiraddtime");
    keys.groupDir.addTimeFormat = QLatin1String("snap/groupdiraddtimeformat");
    keys.groupDir.asFileName = QLatin1String("snap/groupdirasfilename");
    keys.groupDir.asFileNameIncludeOption = QLatin1String("snap/groupdirasfilenameincludeoption");
    keys.subDir.use = QLatin1String("snap/subdir");
    keys.subDir.name = QLatin1String("snap/subdirname");
    keys.subDir.addNumber = QLatin1String("snap/subdiraddnumber");
    keys.subDir.addNumberFormat = QLatin1String("snap/subdiraddnumberformat");
    keys.subDir.digits.camera = QLatin1String("snap/subdiraddnumbercameranodigits");
    keys.subDir.digits.head = QLatin1String("snap/subdiraddnumberheadnodigits");
    keys.subDir.digits.session = QLatin1String("snap/subdiraddnumbersessionnodigits");
    keys.subDir.addTime = QLatin1String("snap/subdiraddtime");
    keys.subDir.addTimeFormat = QLatin1String("snap/subdiraddtimeformat");
    keys.subDir.asFileName = QLatin1String("snap/subdirasfilename");
    keys.subDir.asFileNameIncludeOption = QLatin1String("snap/subdirasfilenameincludeoption");
    keys.fileName.name = QLatin1String("snap/filename");
    keys.fileName.digits.camera = QLatin1String("snap/filenameaddnumbercameranodigits");
    keys.fileName.digits.head = QLatin1String("snap/filenameaddnumberheadnodigits");
    keys.fileName.digits.session = QLatin1String("snap/filenameaddnumbersessionnodigits");
    keys.fileName.addTime = QLatin1String("snap/filenameaddtime");
    keys.fileName.addTimeFormat = QLatin1String("snap/filenameaddtimeformat");
    keys.fileName.asOriginal = QLatin1String("snap/filenameasoriginal");
    keys.fileName.asPartitionName = QLatin1String("snap/filenameaspartitionname");
    keys.fileName.useCustom = QLatin1String("snap/filenameusecustom");
    keys.fileName.useCustomFromTarget = QLatin1String("snap/filenameusecustomfromtarget");
    keys.fileName.useCustomFromTargetKey = QLatin1String("snap/filenameusecustomfromtargetkey");
    keys.fileName.useCustomIncludeUnit = QLatin1String("snap/filenameusecustomincludeunit");
    return keys;
}

SaveKeys SaveKeys::makeReport()
{
    SaveKeys keys;
    keys.dir = QLatin1String("report/dir");
    keys.dirAsOriginal = QLatin1String("report/dirasoriginal");
    keys.groupDir.use = QLatin1String("report/groupdir");
    keys.groupDir.name = QLatin1String("report/groupdirname");
    keys.groupDir.addNumber = QLatin1String("report/groupdiraddnumber");
    keys.groupDir.addNumberFormat = QLatin1String("report/groupdiraddnumberformat");
    keys.groupDir.addTime = QLatin1String("report/groupdiraddtime");
    keys.groupDir.addTimeFormat = QLatin1String("report/groupdiraddtimeformat");
    keys.groupDir.asFileName = QLatin1String("report/groupdirasfilename");
    keys.groupDir.asFileNameIncludeOption = QLatin1String("report/groupdirasfilenameincludeoption");
    keys.subDir.use = QLatin1String("report/subdir");
    keys.subDir.name = QLatin1String("report/subdirname");
    keys.subDir.addNumber = QLatin1String("report/subdiraddnumber");
    keys.subDir.addNumberFormat = QLatin1String("report/subdiraddnumberformat");
    keys.subDir.digits.session = QLatin1String("report/subdiraddnumbersessionnodigits");
    keys.subDir.addTime = QLatin1String("report/subdiraddtime");
    keys.subDir.addTimeFormat = QLatin1String("report/subdiraddtimeformat");
    keys.subDir.asFileName = QLatin1String("report/subdirasfilename");
    keys.subDir.asFileNameIncludeOption = QLatin1String("report/subdirasfilenameincludeoption");
    keys.fileName.name = QLatin1String("report/filename");
    keys.fileName.digits.session = QLatin1String("report/filenameaddnumbersessionnodigits");
    keys.fileName.addTime = QLatin1String("report/filenameaddtime");
    keys.fileName.addTimeFormat = QLatin1String("report/filenameaddtimeformat");
    keys.fileName.asOriginal = QLatin1String("report/filenameasoriginal");
    keys.fileName.asPartitionName = QLatin1String("report/filenameaspartitionname");
    keys.fileName.useCustom = QLatin1String("report/filenameusecustom");
    keys.fileName.useCustomFromTarget = QLatin1String("report/filenameusecustomfromtarget");
    keys.fileName.useCustomFromTargetKey = QLatin1String("report/filenameusecustomfromtargetkey");
    keys.fileName.useCustomIncludeUnit = QLatin1String("report/filenameusecustomincludeunit");
    keys.skipSaveFrame = QLatin1String("report/skipsaveframe");
    keys.skipSaveMsec = QLatin1String("report/skipsavemsec");
    keys.skipUnit = QLatin1String("report/skipunit");
    return keys;
}

SaveKeys SaveKeys::makeLayout()
{
    SaveKeys keys;
    keys.dir = QLatin1String("layout/dir");
    keys.dirAsOriginal = QLatin1String("layout/dirasoriginal");
    keys.subDir.use = QLatin1String("layout/subdir");
    keys.subDir.name = QLatin1String("layout/subdirname");
    keys.subDir.addNumber = QLatin1String("layout/subdiraddnumber");
    keys.subDir.addNumberFormat = QLatin1String("layout/subdiraddnumberformat");
    keys.subDir.digits.camera = QLatin1String("layout/subdiraddnumbercameranodigits");
    keys.subDir.digits.head = QLatin1String("layout/subdiraddnumberheadnodigits");
    keys.subDir.digits.session = QLatin1String("layout/subdiraddnumbersessionnodigits");
    keys.subDir.addTime = QLatin1String("layout/subdiraddtime");
    keys.subDir.addTimeFormat = QLatin1String("layout/subdiraddtimeformat");
    keys.subDir.asFileName = QLatin1String("layout/subdirasfilename");
    keys.subDir.asFileNameIncludeOption = QLatin1String("layout/subdirasfilenameincludeoption");
    keys.fileName.name = QLatin1String("layout/filename");
    keys.fileName.digits.camera = QLatin1String("layout/filenameaddnumbercameranodigits");
    keys.fileName.digits.head = QLatin1String("layout/filenameaddnumberheadnodigits");
    keys.fileName.digits.session = QLatin1String("layout/filenameaddnumbersessionnodigits");
    keys.fileName.addTime = QLatin1String("layout/filenameaddtime");
    keys.fileName.addTimeFormat = QLatin1String("layout/filenameaddtimeformat");
    keys.fileName.asOriginal = QLatin1String("layout/filenameasoriginal");
    keys.fileName.asPartitionName = QLatin1String("layout/filenameaspartitionname");
    keys.fileName.useCustom = QLatin1String("layout/filenameusecustom");
    keys.fileName.useCustomFromTarget = QLatin1String("layout/filenameusecustomfromtarget");
    keys.fileName.useCustomFromTargetKey = QLatin1String("layout/filenameusecustomfromtargetkey");
    keys.fileName.useCustomIncludeUnit = QLatin1String("layout/filenameusecustomincludeunit");
    keys.skipSaveFrame = QLatin1String("layout/skipsaveframe");
    keys.skipSaveMsec = QLatin1String("layout/skipsavemsec");
    keys.skipUnit = QLatin1String("layout/skipunit");
    return keys;
}

ExportTargetKeys::ExportTargetKeys() = default;

CameraConnectionKeys::CameraConnectionKeys() = default;

DisplayKeys::DisplayKeys() = default;

InfoKeys::InfoKeys() = default;

SaveInfoKeys::SaveInfoKeys() = default;

QcfgKeys::QcfgKeys() = default;

RecordingKeys::RecordingKeys() = default;

SaveOptionKeys::SaveOptionKeys() = default;

ApplicationKeys::ApplicationKeys() = default;

StateIds::StateIds() = default;

ToolNames::ToolNames() = default;

ColumnLists::ColumnLists() = default;

UnitWords::UnitWords() = default;

BinningSuffixes::BinningSuffixes() = default;

ColorTemperatures::ColorTemperatures() = default;

TimeFormats::TimeFormats() = default;

FixedTexts::FixedTexts() = default;

std::array<StatusWord, 9> StatusWord::makeAll()
{
    return {{
        {0, QLatin1String("LIVE")},
        {1, QLatin1String("PLAYBACK")},
        {2, QLatin1String("RECREADY")},
        {4, QLatin1String("ENDLESS")},
        {8, QLatin1String("REC")},
        {16, QLatin1String("SAVE")},
        {32, QLatin1String("LOAD")},
        {64, QLatin1String("PAUSE")},
        {128, QLatin1String("STORAGE_PLAYBACK")},
    }};
}

std::array<TriggerMode, 16> TriggerMode::makeAll()
{
    return {{
        {QLatin1String("Start Trg"), true, 0},
        {QLatin1String("Center Trg"), true, 0x1000000},
        {QLatin1String("End Trg"), true, 0x2000000},
        {QLatin1String("Random Trg"), true, 0x3000000},
        {QLatin1String("Manual Trg"), true, 0x4000000},
        {QLatin1String("Random Reset Trg"), true, 0x5000000},
        {QLatin1String("Random Center Trg"), true, 0x6000000},
        {QLatin1String("Random Manual Trg"), true, 0x7000000},
        {QLatin1String("Twostage Trg"), true, 0x8000000},
        {QLatin1String("Twostage Half Trg"), true, 0x8000001},
        {QLatin1String("Twostage Quarter Trg"), true, 0x8000002},
        {QLatin1String("Twostage Oneeighth Trg"), true, 0x8000003},
        {QLatin1String("Reset Trg"), true, 0x9000000},
        {QLatin1String("Rec on cmd Trg"), true, 0x10000000},
        {QLatin1String("Random Loop Trg"), true, 0x11000000},
        {QLatin1String("None Error Trg"), false, 0},
    }};
}

}
