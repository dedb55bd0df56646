#include "foundation/Keys.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace Keys {

namespace {

// The kinds of save, as bits.
enum SaveFamily : unsigned { Export = 1, Convert = 2, Snap = 4, Report = 8, Layout = 16, All = 31 };

// One setting of a save: its name behind the family's own, the families that have it, its place.
struct SaveSetting
{
    const char *name;
    unsigned families;
    QString *(*place)(SaveKeys &);
};

constexpr SaveSetting SaveSettings[] = {
    // clang-format off
    {"dir", All, [](SaveKeys &keys) { return &keys.dir; }},
    {"dirasoriginal", All, [](SaveKeys &keys) { return &keys.dirAsOriginal; }},
    {"groupdir", All & ~Layout, [](SaveKeys &keys) { return &keys.groupDir.use; }},
    {"groupdirname", All & ~Layout, [](SaveKeys &keys) { return &keys.groupDir.name; }},
    {"groupdiraddnumber", All & ~Layout, [](SaveKeys &keys) { return &keys.groupDir.addNumber; }},
    {"groupdiraddnumberformat", All & ~Layout, [](SaveKeys &keys) { return &keys.groupDir.addNumberFormat; }},
    {"groupdiraddnumbercameranodigits", Export | Convert | Snap, [](SaveKeys &keys) { return &keys.groupDir.digits.camera; }},
    {"groupdiraddnumberheadnodigits", Export | Convert | Snap, [](SaveKeys &keys) { return &keys.groupDir.digits.head; }},
    {"groupdiraddnumbersessionnodigits", Export | Convert | Snap, [](SaveKeys &keys) { return &keys.groupDir.digits.session; }},
    {"groupdiraddtime", All & ~Layout, [](SaveKeys &keys) { return &keys.groupDir.addTime; }},
    {"groupdiraddtimeformat", All & ~Layout, [](SaveKeys &keys) { return &keys.groupDir.addTimeFormat; }},
    {"groupdirasfilename", All & ~Layout, [](SaveKeys &keys) { return &keys.groupDir.asFileName; }},
    {"groupdirasfilenameincludeoption", All & ~Layout, [](SaveKeys &keys) { return &keys.groupDir.asFileNameIncludeOption; }},
    {"subdir", All, [](SaveKeys &keys) { return &keys.subDir.use; }},
    {"subdirname", All, [](SaveKeys &keys) { return &keys.subDir.name; }},
    {"subdiraddnumber", All, [](SaveKeys &keys) { return &keys.subDir.addNumber; }},
    {"subdiraddnumberformat", All, [](SaveKeys &keys) { return &keys.subDir.addNumberFormat; }},
    {"subdiraddnumbercameranodigits", All & ~Report, [](SaveKeys &keys) { return &keys.subDir.digits.camera; }},
    {"subdiraddnumberheadnodigits", All & ~Report, [](SaveKeys &keys) { return &keys.subDir.digits.head; }},
    {"subdiraddnumbersessionnodigits", All, [](SaveKeys &keys) { return &keys.subDir.digits.session; }},
    {"subdiraddtime", All, [](SaveKeys &keys) { return &keys.subDir.addTime; }},
    {"subdiraddtimeformat", All, [](SaveKeys &keys) { return &keys.subDir.addTimeFormat; }},
    {"subdirasfilename", All, [](SaveKeys &keys) { return &keys.subDir.asFileName; }},
    {"subdirasfilenameincludeoption", All, [](SaveKeys &keys) { return &keys.subDir.asFileNameIncludeOption; }},
    {"filename", All, [](SaveKeys &keys) { return &keys.fileName.name; }},
    {"filenameaddnumbercameranodigits", All & ~Report, [](SaveKeys &keys) { return &keys.fileName.digits.camera; }},
    {"filenameaddnumberheadnodigits", All & ~Report, [](SaveKeys &keys) { return &keys.fileName.digits.head; }},
    {"filenameaddnumbersessionnodigits", All, [](SaveKeys &keys) { return &keys.fileName.digits.session; }},
    {"filenameaddtime", All, [](SaveKeys &keys) { return &keys.fileName.addTime; }},
    {"filenameaddtimeformat", All, [](SaveKeys &keys) { return &keys.fileName.addTimeFormat; }},
    {"filenameasoriginal", All, [](SaveKeys &keys) { return &keys.fileName.asOriginal; }},
    {"filenameaspartitionname", All, [](SaveKeys &keys) { return &keys.fileName.asPartitionName; }},
    {"filenameusecustom", All, [](SaveKeys &keys) { return &keys.fileName.useCustom; }},
    {"filenameusecustomfromtarget", All, [](SaveKeys &keys) { return &keys.fileName.useCustomFromTarget; }},
    {"filenameusecustomfromtargetkey", All, [](SaveKeys &keys) { return &keys.fileName.useCustomFromTargetKey; }},
    {"filenameusecustomincludeunit", All, [](SaveKeys &keys) { return &keys.fileName.useCustomIncludeUnit; }},
    {"kv/datanameaddnumbercameranodigits", Export, [](SaveKeys &keys) { return &keys.kvDataNameDigits.camera; }},
    {"kv/datanameaddnumberheadnodigits", Export, [](SaveKeys &keys) { return &keys.kvDataNameDigits.head; }},
    {"kv/datanameaddnumbersessionnodigits", Export, [](SaveKeys &keys) { return &keys.kvDataNameDigits.session; }},
    {"kv/datanameaddnumber", Convert, [](SaveKeys &keys) { return &keys.kvDataNameAddNumber; }},
    {"mraw/bayersave", Export | Convert, [](SaveKeys &keys) { return &keys.mrawBayerSave; }},
    {"raww/bayersave", Export | Convert, [](SaveKeys &keys) { return &keys.rawwBayerSave; }},
    {"tiff/bayersave", Export | Convert, [](SaveKeys &keys) { return &keys.tiffBayerSave; }},
    {"saveinf", Export | Convert, [](SaveKeys &keys) { return &keys.saveInf; }},
    {"saveinfo", Export | Convert, [](SaveKeys &keys) { return &keys.saveInfo; }},
    {"savecorrect", Export, [](SaveKeys &keys) { return &keys.saveCorrect; }},
    {"savescale", Export, [](SaveKeys &keys) { return &keys.saveScale; }},
    {"savethumbnail", Export | Convert, [](SaveKeys &keys) { return &keys.saveThumbnail; }},
    {"savethumbnailaddtextvalue", Export | Convert, [](SaveKeys &keys) { return &keys.saveThumbnailAddTextValue; }},
    {"skipsaveframe", Export | Report | Layout, [](SaveKeys &keys) { return &keys.skipSaveFrame; }},
    {"skipsavemsec", Export | Report | Layout, [](SaveKeys &keys) { return &keys.skipSaveMsec; }},
    {"skipunit", Export | Report | Layout, [](SaveKeys &keys) { return &keys.skipUnit; }},
    // clang-format on
};

constexpr std::size_t SaveSettingCount = std::size(SaveSettings);

using KeyText = std::array<char, 48>; // the longest has 42 letters
using SaveKeyTexts = std::array<KeyText, SaveSettingCount>;

// Joined by the compiler: no key is built at run time, and each stands whole in the module, where a
// search finds it. Settings that the family does not have stay empty.
constexpr SaveKeyTexts saveKeyTexts(const char *prefix, SaveFamily family)
{
    SaveKeyTexts texts{};
    for (std::size_t row = 0; row < SaveSettingCount; ++row) {
        if (!(SaveSettings[row].families & family))
            continue;
        std::size_t length = 0;
        for (const char *letter = prefix; *letter != 0; ++letter)
            texts[row][length++] = *letter;
        for (const char *letter = SaveSettings[row].name; *letter != 0; ++letter)
            texts[row][length++] = *letter;
    }
    return texts;
}

constexpr SaveKeyTexts ExportTexts = saveKeyTexts("export/", Export);
constexpr SaveKeyTexts ConvertTexts = saveKeyTexts("convert/", Convert);
constexpr SaveKeyTexts SnapTexts = saveKeyTexts("snap/", Snap);
constexpr SaveKeyTexts ReportTexts = saveKeyTexts("report/", Report);
constexpr SaveKeyTexts LayoutTexts = saveKeyTexts("layout/", Layout);

SaveKeys saveKeys(const SaveKeyTexts &texts)
{
    SaveKeys keys;
    for (std::size_t row = 0; row < SaveSettingCount; ++row) {
        if (texts[row].front() != 0)
            *SaveSettings[row].place(keys) = QLatin1String(texts[row].data());
    }
    return keys;
}

}

SaveKeys SaveKeys::makeExport()
{
    return saveKeys(ExportTexts);
}

SaveKeys SaveKeys::makeConvert()
{
    return saveKeys(ConvertTexts);
}

SaveKeys SaveKeys::makeSnap()
{
    return saveKeys(SnapTexts);
}

SaveKeys SaveKeys::makeReport()
{
    return saveKeys(ReportTexts);
}

SaveKeys SaveKeys::makeLayout()
{
    return saveKeys(LayoutTexts);
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

CompanionTexts::CompanionTexts() = default;

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
