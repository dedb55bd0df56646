#include "foundation/Keys.h"
#include "tests/support/TestLog.h"

#include <QSet>

namespace {

// Made before main(), in a unit of its own: the constants have to be there already.
const QString earlyKey = Keys::info.fontName;
const QString earlySaveKey = Keys::layoutSave.subDir.digits.session;
const QString earlyState = Keys::states.IsExternalMediaSelected;
const QString earlyWord = Keys::statusWords.back().word;

// The texts of a group of constants, which holds nothing but texts.
template <typename Group> QStringList textsOf(const Group &group)
{
    static_assert(sizeof(Group) % sizeof(QString) == 0);
    const auto *first = reinterpret_cast<const QString *>(&group);
    QStringList texts;
    for (size_t i = 0; i < sizeof(Group) / sizeof(QString); ++i)
        texts.append(first[i]);
    return texts;
}

template <typename Group> int setTextsOf(const Group &group)
{
    QStringList texts = textsOf(group);
    texts.removeAll(QString());
    return texts.size();
}

QStringList allKeys()
{
    return textsOf(Keys::exportSave) + textsOf(Keys::convertSave) + textsOf(Keys::snapSave) +
           textsOf(Keys::reportSave) + textsOf(Keys::layoutSave) + textsOf(Keys::exportTarget) +
           textsOf(Keys::cameraConnection) + textsOf(Keys::display) + textsOf(Keys::info) +
           textsOf(Keys::saveInfo) + textsOf(Keys::qcfg) + textsOf(Keys::recording) +
           textsOf(Keys::saveOption) + textsOf(Keys::application);
}

QStringList allWords()
{
    QStringList words = textsOf(Keys::states) + textsOf(Keys::tools) + textsOf(Keys::columns) +
                        textsOf(Keys::units) + textsOf(Keys::binningSuffixes) +
                        textsOf(Keys::colorTemperatures) + textsOf(Keys::timeFormats) +
                        textsOf(Keys::texts) + textsOf(Keys::companion);
    for (const Keys::StatusWord &status : Keys::statusWords)
        words.append(status.word);
    for (const Keys::TriggerMode &mode : Keys::triggerModes)
        words.append(mode.name);
    return words;
}

void row(const char *text, const QString &constant)
{
    QTest::newRow(text) << constant << QString(text);
}

}

class TestKeys : public TestBase
{
    Q_OBJECT

private slots:
    void settings_data();
    void settings();
    void everySettingStandsOnce();
    void familiesHoldWhatTheirKindHas_data();
    void familiesHoldWhatTheirKindHas();
    void stateIds_data();
    void stateIds();
    void words_data();
    void words();
    void statusWordsByBit();
    void triggerModesWithTheirCodes();
    void areThereBeforeTheyAreUsed();
    void ownTheirMemory();
};

void TestKeys::settings_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("text");

    row("cameraconnection/AddIPDefault", Keys::cameraConnection.addIpDefault);
    row("cameraconnection/SearchIP", Keys::cameraConnection.searchIp);
    row("cameraconnection/SearchWay", Keys::cameraConnection.searchWay);

    row("convert/dir", Keys::convertSave.dir);
    row("convert/dirasoriginal", Keys::convertSave.dirAsOriginal);
    row("convert/kv/datanameaddnumber", Keys::convertSave.kvDataNameAddNumber);
    row("convert/filename", Keys::convertSave.fileName.name);
    row("convert/filenameaddnumbercameranodigits", Keys::convertSave.fileName.digits.camera);
    row("convert/filenameaddnumberheadnodigits", Keys::convertSave.fileName.digits.head);
    row("convert/filenameaddnumbersessionnodigits", Keys::convertSave.fileName.digits.session);
    row("convert/filenameaddtime", Keys::convertSave.fileName.addTime);
    row("convert/filenameaddtimeformat", Keys::convertSave.fileName.addTimeFormat);
    row("convert/filenameasoriginal", Keys::convertSave.fileName.asOriginal);
    row("convert/filenameaspartitionname", Keys::convertSave.fileName.asPartitionName);
    row("convert/filenameusecustom", Keys::convertSave.fileName.useCustom);
    row("convert/filenameusecustomfromtarget", Keys::convertSave.fileName.useCustomFromTarget);
    row("convert/filenameusecustomfromtargetkey",
        Keys::convertSave.fileName.useCustomFromTargetKey);
    row("convert/filenameusecustomincludeunit", Keys::convertSave.fileName.useCustomIncludeUnit);
    row("convert/groupdir", Keys::convertSave.groupDir.use);
    row("convert/groupdiraddnumber", Keys::convertSave.groupDir.addNumber);
    row("convert/groupdiraddnumbercameranodigits", Keys::convertSave.groupDir.digits.camera);
    row("convert/groupdiraddnumberformat", Keys::convertSave.groupDir.addNumberFormat);
    row("convert/groupdiraddnumberheadnodigits", Keys::convertSave.groupDir.digits.head);
    row("convert/groupdiraddnumbersessionnodigits", Keys::convertSave.groupDir.digits.session);
    row("convert/groupdiraddtime", Keys::convertSave.groupDir.addTime);
    row("convert/groupdiraddtimeformat", Keys::convertSave.groupDir.addTimeFormat);
    row("convert/groupdirasfilename", Keys::convertSave.groupDir.asFileName);
    row("convert/groupdirasfilenameincludeoption",
        Keys::convertSave.groupDir.asFileNameIncludeOption);
    row("convert/groupdirname", Keys::convertSave.groupDir.name);
    row("convert/mraw/bayersave", Keys::convertSave.mrawBayerSave);
    row("convert/raww/bayersave", Keys::convertSave.rawwBayerSave);
    row("convert/saveinf", Keys::convertSave.saveInf);
    row("convert/saveinfo", Keys::convertSave.saveInfo);
    row("convert/savethumbnail", Keys::convertSave.saveThumbnail);
    row("convert/savethumbnailaddtextvalue", Keys::convertSave.saveThumbnailAddTextValue);
    row("convert/subdir", Keys::convertSave.subDir.use);
    row("convert/subdiraddnumber", Keys::convertSave.subDir.addNumber);
    row("convert/subdiraddnumbercameranodigits", Keys::convertSave.subDir.digits.camera);
    row("convert/subdiraddnumberformat", Keys::convertSave.subDir.addNumberFormat);
    row("convert/subdiraddnumberheadnodigits", Keys::convertSave.subDir.digits.head);
    row("convert/subdiraddnumbersessionnodigits", Keys::convertSave.subDir.digits.session);
    row("convert/subdiraddtime", Keys::convertSave.subDir.addTime);
    row("convert/subdiraddtimeformat", Keys::convertSave.subDir.addTimeFormat);
    row("convert/subdirasfilename", Keys::convertSave.subDir.asFileName);
    row("convert/subdirasfilenameincludeoption", Keys::convertSave.subDir.asFileNameIncludeOption);
    row("convert/subdirname", Keys::convertSave.subDir.name);
    row("convert/tiff/bayersave", Keys::convertSave.tiffBayerSave);

    row("customize/unitSystem", Keys::application.unitSystem);

    row("devicemanager/connectedCameraOnlyShowing", Keys::application.connectedCameraOnlyShowing);

    row("display/DisplayWithRealBitDepth", Keys::display.displayWithRealBitDepth);
    row("display/ShutterSpeed", Keys::display.shutterSpeed);
    row("display/ShutterSpeedUnit", Keys::display.shutterSpeedUnit);
    row("display/frameInsertDelimiter", Keys::display.frameInsertDelimiter);
    row("display/language", Keys::display.language);
    row("display/outputLanguage", Keys::display.outputLanguage);
    row("display/recordRateInsertDelimiter", Keys::display.recordRateInsertDelimiter);
    row("display/shutterSpeedInsertDelimiter", Keys::display.shutterSpeedInsertDelimiter);

    row("env/style", Keys::application.style);

    row("export/dir", Keys::exportSave.dir);
    row("export/dirasoriginal", Keys::exportSave.dirAsOriginal);
    row("export/kv/datanameaddnumbercameranodigits", Keys::exportSave.kvDataNameDigits.camera);
    row("export/kv/datanameaddnumberheadnodigits", Keys::exportSave.kvDataNameDigits.head);
    row("export/kv/datanameaddnumbersessionnodigits", Keys::exportSave.kvDataNameDigits.session);
    row("export/filename", Keys::exportSave.fileName.name);
    row("export/filenameaddnumbercameranodigits", Keys::exportSave.fileName.digits.camera);
    row("export/filenameaddnumberheadnodigits", Keys::exportSave.fileName.digits.head);
    row("export/filenameaddnumbersessionnodigits", Keys::exportSave.fileName.digits.session);
    row("export/filenameaddtime", Keys::exportSave.fileName.addTime);
    row("export/filenameaddtimeformat", Keys::exportSave.fileName.addTimeFormat);
    row("export/filenameasoriginal", Keys::exportSave.fileName.asOriginal);
    row("export/filenameaspartitionname", Keys::exportSave.fileName.asPartitionName);
    row("export/filenameusecustom", Keys::exportSave.fileName.useCustom);
    row("export/filenameusecustomfromtarget", Keys::exportSave.fileName.useCustomFromTarget);
    row("export/filenameusecustomfromtargetkey", Keys::exportSave.fileName.useCustomFromTargetKey);
    row("export/filenameusecustomincludeunit", Keys::exportSave.fileName.useCustomIncludeUnit);
    row("export/groupdir", Keys::exportSave.groupDir.use);
    row("export/groupdiraddnumber", Keys::exportSave.groupDir.addNumber);
    row("export/groupdiraddnumbercameranodigits", Keys::exportSave.groupDir.digits.camera);
    row("export/groupdiraddnumberformat", Keys::exportSave.groupDir.addNumberFormat);
    row("export/groupdiraddnumberheadnodigits", Keys::exportSave.groupDir.digits.head);
    row("export/groupdiraddnumbersessionnodigits", Keys::exportSave.groupDir.digits.session);
    row("export/groupdiraddtime", Keys::exportSave.groupDir.addTime);
    row("export/groupdiraddtimeformat", Keys::exportSave.groupDir.addTimeFormat);
    row("export/groupdirasfilename", Keys::exportSave.groupDir.asFileName);
    row("export/groupdirasfilenameincludeoption",
        Keys::exportSave.groupDir.asFileNameIncludeOption);
    row("export/groupdirname", Keys::exportSave.groupDir.name);
    row("export/inf_testno", Keys::exportTarget.infTestNo);
    row("export/media", Keys::exportTarget.media);
    row("export/mraw/bayersave", Keys::exportSave.mrawBayerSave);
    row("export/multipathdevicelist", Keys::exportTarget.multiPathDeviceList);
    row("export/multipathlist", Keys::exportTarget.multiPathList);
    row("export/raww/bayersave", Keys::exportSave.rawwBayerSave);
    row("export/savecorrect", Keys::exportSave.saveCorrect);
    row("export/saveinf", Keys::exportSave.saveInf);
    row("export/saveinfo", Keys::exportSave.saveInfo);
    row("export/savescale", Keys::exportSave.saveScale);
    row("export/savethumbnail", Keys::exportSave.saveThumbnail);
    row("export/savethumbnailaddtextvalue", Keys::exportSave.saveThumbnailAddTextValue);
    row("export/singlepath", Keys::exportTarget.singlePath);
    row("export/skipsaveframe", Keys::exportSave.skipSaveFrame);
    row("export/skipsavemsec", Keys::exportSave.skipSaveMsec);
    row("export/skipunit", Keys::exportSave.skipUnit);
    row("export/subdir", Keys::exportSave.subDir.use);
    row("export/subdiraddnumber", Keys::exportSave.subDir.addNumber);
    row("export/subdiraddnumbercameranodigits", Keys::exportSave.subDir.digits.camera);
    row("export/subdiraddnumberformat", Keys::exportSave.subDir.addNumberFormat);
    row("export/subdiraddnumberheadnodigits", Keys::exportSave.subDir.digits.head);
    row("export/subdiraddnumbersessionnodigits", Keys::exportSave.subDir.digits.session);
    row("export/subdiraddtime", Keys::exportSave.subDir.addTime);
    row("export/subdiraddtimeformat", Keys::exportSave.subDir.addTimeFormat);
    row("export/subdirasfilename", Keys::exportSave.subDir.asFileName);
    row("export/subdirasfilenameincludeoption", Keys::exportSave.subDir.asFileNameIncludeOption);
    row("export/subdirname", Keys::exportSave.subDir.name);
    row("export/tiff/bayersave", Keys::exportSave.tiffBayerSave);

    row("import/dir", Keys::application.importDir);

    row("info/Alignment", Keys::info.alignment);
    row("info/BlankLine", Keys::info.blankLine);
    row("info/Bold", Keys::info.bold);
    row("info/FontName", Keys::info.fontName);
    row("info/FontSize", Keys::info.fontSize);
    row("info/ForegroundColor", Keys::info.foregroundColor);
    row("info/IconSize", Keys::info.iconSize);
    row("info/Italic", Keys::info.italic);
    row("info/LogoPath", Keys::info.logoPath);
    row("info/RecTimeUnit", Keys::info.recTimeUnit);
    row("info/Width", Keys::info.width);
    row("info/display", Keys::info.display);

    row("layout/dir", Keys::layoutSave.dir);
    row("layout/dirasoriginal", Keys::layoutSave.dirAsOriginal);
    row("layout/filename", Keys::layoutSave.fileName.name);
    row("layout/filenameaddnumbercameranodigits", Keys::layoutSave.fileName.digits.camera);
    row("layout/filenameaddnumberheadnodigits", Keys::layoutSave.fileName.digits.head);
    row("layout/filenameaddnumbersessionnodigits", Keys::layoutSave.fileName.digits.session);
    row("layout/filenameaddtime", Keys::layoutSave.fileName.addTime);
    row("layout/filenameaddtimeformat", Keys::layoutSave.fileName.addTimeFormat);
    row("layout/filenameasoriginal", Keys::layoutSave.fileName.asOriginal);
    row("layout/filenameaspartitionname", Keys::layoutSave.fileName.asPartitionName);
    row("layout/filenameusecustom", Keys::layoutSave.fileName.useCustom);
    row("layout/filenameusecustomfromtarget", Keys::layoutSave.fileName.useCustomFromTarget);
    row("layout/filenameusecustomfromtargetkey", Keys::layoutSave.fileName.useCustomFromTargetKey);
    row("layout/filenameusecustomincludeunit", Keys::layoutSave.fileName.useCustomIncludeUnit);
    row("layout/skipsaveframe", Keys::layoutSave.skipSaveFrame);
    row("layout/skipsavemsec", Keys::layoutSave.skipSaveMsec);
    row("layout/skipunit", Keys::layoutSave.skipUnit);
    row("layout/subdir", Keys::layoutSave.subDir.use);
    row("layout/subdiraddnumber", Keys::layoutSave.subDir.addNumber);
    row("layout/subdiraddnumbercameranodigits", Keys::layoutSave.subDir.digits.camera);
    row("layout/subdiraddnumberformat", Keys::layoutSave.subDir.addNumberFormat);
    row("layout/subdiraddnumberheadnodigits", Keys::layoutSave.subDir.digits.head);
    row("layout/subdiraddnumbersessionnodigits", Keys::layoutSave.subDir.digits.session);
    row("layout/subdiraddtime", Keys::layoutSave.subDir.addTime);
    row("layout/subdiraddtimeformat", Keys::layoutSave.subDir.addTimeFormat);
    row("layout/subdirasfilename", Keys::layoutSave.subDir.asFileName);
    row("layout/subdirasfilenameincludeoption", Keys::layoutSave.subDir.asFileNameIncludeOption);
    row("layout/subdirname", Keys::layoutSave.subDir.name);

    row("main/scrno", Keys::application.screenNumber);

    row("qcfg/filenameaddtime", Keys::qcfg.fileNameAddTime);
    row("qcfg/filenameaddtimeformat", Keys::qcfg.fileNameAddTimeFormat);
    row("qcfg/filenameasoriginal", Keys::qcfg.fileNameAsOriginal);
    row("qcfg/path", Keys::qcfg.path);
    row("qcfg/userFileName", Keys::qcfg.userFileName);

    row("recording/AutoDownload", Keys::recording.autoDownload);
    row("recording/AutoIncrementPartition", Keys::recording.autoIncrementPartition);
    row("recording/LoopRecord", Keys::recording.loopRecord);
    row("recording/RecordDuringDownload", Keys::recording.recordDuringDownload);
    row("recording/StopRecordingAfterLastPartition",
        Keys::recording.stopRecordingAfterLastPartition);
    row("recording/useTriggerTest", Keys::recording.useTriggerTest);

    row("report/dir", Keys::reportSave.dir);
    row("report/dirasoriginal", Keys::reportSave.dirAsOriginal);
    row("report/filename", Keys::reportSave.fileName.name);
    row("report/filenameaddnumbersessionnodigits", Keys::reportSave.fileName.digits.session);
    row("report/filenameaddtime", Keys::reportSave.fileName.addTime);
    row("report/filenameaddtimeformat", Keys::reportSave.fileName.addTimeFormat);
    row("report/filenameasoriginal", Keys::reportSave.fileName.asOriginal);
    row("report/filenameaspartitionname", Keys::reportSave.fileName.asPartitionName);
    row("report/filenameusecustom", Keys::reportSave.fileName.useCustom);
    row("report/filenameusecustomfromtarget", Keys::reportSave.fileName.useCustomFromTarget);
    row("report/filenameusecustomfromtargetkey", Keys::reportSave.fileName.useCustomFromTargetKey);
    row("report/filenameusecustomincludeunit", Keys::reportSave.fileName.useCustomIncludeUnit);
    row("report/groupdir", Keys::reportSave.groupDir.use);
    row("report/groupdiraddnumber", Keys::reportSave.groupDir.addNumber);
    row("report/groupdiraddnumberformat", Keys::reportSave.groupDir.addNumberFormat);
    row("report/groupdiraddtime", Keys::reportSave.groupDir.addTime);
    row("report/groupdiraddtimeformat", Keys::reportSave.groupDir.addTimeFormat);
    row("report/groupdirasfilename", Keys::reportSave.groupDir.asFileName);
    row("report/groupdirasfilenameincludeoption",
        Keys::reportSave.groupDir.asFileNameIncludeOption);
    row("report/groupdirname", Keys::reportSave.groupDir.name);
    row("report/skipsaveframe", Keys::reportSave.skipSaveFrame);
    row("report/skipsavemsec", Keys::reportSave.skipSaveMsec);
    row("report/skipunit", Keys::reportSave.skipUnit);
    row("report/subdir", Keys::reportSave.subDir.use);
    row("report/subdiraddnumber", Keys::reportSave.subDir.addNumber);
    row("report/subdiraddnumberformat", Keys::reportSave.subDir.addNumberFormat);
    row("report/subdiraddnumbersessionnodigits", Keys::reportSave.subDir.digits.session);
    row("report/subdiraddtime", Keys::reportSave.subDir.addTime);
    row("report/subdiraddtimeformat", Keys::reportSave.subDir.addTimeFormat);
    row("report/subdirasfilename", Keys::reportSave.subDir.asFileName);
    row("report/subdirasfilenameincludeoption", Keys::reportSave.subDir.asFileNameIncludeOption);
    row("report/subdirname", Keys::reportSave.subDir.name);

    row("save/EnableBlankFilename", Keys::saveOption.enableBlankFilename);
    row("save/SaveInfFile", Keys::saveOption.saveInfFile);

    row("saveinfo/Alignment", Keys::saveInfo.alignment);
    row("saveinfo/BackgroundColor", Keys::saveInfo.backgroundColor);
    row("saveinfo/Bold", Keys::saveInfo.bold);
    row("saveinfo/ColumnNum", Keys::saveInfo.columnNum);
    row("saveinfo/ColumnSpacing", Keys::saveInfo.columnSpacing);
    row("saveinfo/FixedFontSizeRatio", Keys::saveInfo.fixedFontSizeRatio);
    row("saveinfo/FixedFontSizeRatioBaseResolution",
        Keys::saveInfo.fixedFontSizeRatioBaseResolution);
    row("saveinfo/FontName", Keys::saveInfo.fontName);
    row("saveinfo/FontSize", Keys::saveInfo.fontSize);
    row("saveinfo/ForegroundColor", Keys::saveInfo.foregroundColor);
    row("saveinfo/Italic", Keys::saveInfo.italic);
    row("saveinfo/LogoPath", Keys::saveInfo.logoPath);
    row("saveinfo/ToColumn", Keys::saveInfo.toColumn);
    row("saveinfo/UseBackgroundColor", Keys::saveInfo.useBackgroundColor);
    row("saveinfo/Width", Keys::saveInfo.width);
    row("saveinfo/WithinImage", Keys::saveInfo.withinImage);
    row("saveinfo/collectiveSetting", Keys::saveInfo.collectiveSetting);
    row("saveinfo/display", Keys::saveInfo.display);

    row("snap/dir", Keys::snapSave.dir);
    row("snap/dirasoriginal", Keys::snapSave.dirAsOriginal);
    row("snap/filename", Keys::snapSave.fileName.name);
    row("snap/filenameaddnumbercameranodigits", Keys::snapSave.fileName.digits.camera);
    row("snap/filenameaddnumberheadnodigits", Keys::snapSave.fileName.digits.head);
    row("snap/filenameaddnumbersessionnodigits", Keys::snapSave.fileName.digits.session);
    row("snap/filenameaddtime", Keys::snapSave.fileName.addTime);
    row("snap/filenameaddtimeformat", Keys::snapSave.fileName.addTimeFormat);
    row("snap/filenameasoriginal", Keys::snapSave.fileName.asOriginal);
    row("snap/filenameaspartitionname", Keys::snapSave.fileName.asPartitionName);
    row("snap/filenameusecustom", Keys::snapSave.fileName.useCustom);
    row("snap/filenameusecustomfromtarget", Keys::snapSave.fileName.useCustomFromTarget);
    row("snap/filenameusecustomfromtargetkey", Keys::snapSave.fileName.useCustomFromTargetKey);
    row("snap/filenameusecustomincludeunit", Keys::snapSave.fileName.useCustomIncludeUnit);
    row("snap/groupdir", Keys::snapSave.groupDir.use);
    row("snap/groupdiraddnumber", Keys::snapSave.groupDir.addNumber);
    row("snap/groupdiraddnumbercameranodigits", Keys::snapSave.groupDir.digits.camera);
    row("snap/groupdiraddnumberformat", Keys::snapSave.groupDir.addNumberFormat);
    row("snap/groupdiraddnumberheadnodigits", Keys::snapSave.groupDir.digits.head);
    row("snap/groupdiraddnumbersessionnodigits", Keys::snapSave.groupDir.digits.session);
    row("snap/groupdiraddtime", Keys::snapSave.groupDir.addTime);
    row("snap/groupdiraddtimeformat", Keys::snapSave.groupDir.addTimeFormat);
    row("snap/groupdirasfilename", Keys::snapSave.groupDir.asFileName);
    row("snap/groupdirasfilenameincludeoption", Keys::snapSave.groupDir.asFileNameIncludeOption);
    row("snap/groupdirname", Keys::snapSave.groupDir.name);
    row("snap/subdir", Keys::snapSave.subDir.use);
    row("snap/subdiraddnumber", Keys::snapSave.subDir.addNumber);
    row("snap/subdiraddnumbercameranodigits", Keys::snapSave.subDir.digits.camera);
    row("snap/subdiraddnumberformat", Keys::snapSave.subDir.addNumberFormat);
    row("snap/subdiraddnumberheadnodigits", Keys::snapSave.subDir.digits.head);
    row("snap/subdiraddnumbersessionnodigits", Keys::snapSave.subDir.digits.session);
    row("snap/subdiraddtime", Keys::snapSave.subDir.addTime);
    row("snap/subdiraddtimeformat", Keys::snapSave.subDir.addTimeFormat);
    row("snap/subdirasfilename", Keys::snapSave.subDir.asFileName);
    row("snap/subdirasfilenameincludeoption", Keys::snapSave.subDir.asFileNameIncludeOption);
    row("snap/subdirname", Keys::snapSave.subDir.name);

    row("support/dir", Keys::application.supportDir);

    row("usercustom/cameraNameFilePath", Keys::application.cameraNameFilePath);

    row("xml/dir", Keys::application.xmlDir);
}

void TestKeys::settings()
{
    QFETCH(QString, constant);
    QTEST(constant, "text");
}

void TestKeys::everySettingStandsOnce()
{
    QStringList keys = allKeys();
    keys.removeAll(QString());
    QCOMPARE(keys.size(), 258);
    QCOMPARE(QSet<QString>(keys.cbegin(), keys.cend()).size(), 258);
}

void TestKeys::familiesHoldWhatTheirKindHas_data()
{
    QTest::addColumn<int>("keys");
    QTest::addColumn<int>("expected");
    QTest::newRow("export") << setTextsOf(Keys::exportSave) << 51;
    QTest::newRow("convert") << setTextsOf(Keys::convertSave) << 44;
    QTest::newRow("snap") << setTextsOf(Keys::snapSave) << 36;
    QTest::newRow("report") << setTextsOf(Keys::reportSave) << 32;
    QTest::newRow("layout") << setTextsOf(Keys::layoutSave) << 28;
    QTest::newRow("layout has no group directory") << setTextsOf(Keys::layoutSave.groupDir) << 0;
    QTest::newRow("report's group directory has no digits")
        << setTextsOf(Keys::reportSave.groupDir.digits) << 0;
    QTest::newRow("report's sub directory has session digits")
        << setTextsOf(Keys::reportSave.subDir.digits) << 1;
    QTest::newRow("report's file name has session digits")
        << setTextsOf(Keys::reportSave.fileName.digits) << 1;
}

void TestKeys::familiesHoldWhatTheirKindHas()
{
    QFETCH(int, keys);
    QTEST(keys, "expected");
}

void TestKeys::stateIds_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("text");

    row("IsNoneWindow", Keys::states.IsNoneWindow);
    row("IsSingleWindow", Keys::states.IsSingleWindow);
    row("IsMultiWindow", Keys::states.IsMultiWindow);
    row("IsRecording", Keys::states.IsRecording);
    row("IsBgSaving", Keys::states.IsBgSaving);
    row("IsBgConverting", Keys::states.IsBgConverting);
    row("IsDirectSaving", Keys::states.IsDirectSaving);
    row("IsNoneDocument", Keys::states.IsNoneDocument);
    row("IsSingleSelectedDocument", Keys::states.IsSingleSelectedDocument);
    row("IsCTSReady", Keys::states.IsCTSReady);
    row("IsReady", Keys::states.IsReady);
    row("IsLiveMode", Keys::states.IsLiveMode);
    row("IsMemoryMode", Keys::states.IsMemoryMode);
    row("IsFileMode", Keys::states.IsFileMode);
    row("IsNotRecording", Keys::states.IsNotRecording);
    row("IsRecordingError", Keys::states.IsRecordingError);
    row("IsNotUndo", Keys::states.IsNotUndo);
    row("IsNotRedo", Keys::states.IsNotRedo);
    row("IsLowlight", Keys::states.IsLowlight);
    row("ExistLowlight", Keys::states.ExistLowlight);
    row("IsAllLowlightON", Keys::states.IsAllLowlightON);
    row("IsAllLowlightOFF", Keys::states.IsAllLowlightOFF);
    row("IsAutoExposureSetting", Keys::states.IsAutoExposureSetting);
    row("IsHwTriggerSetting", Keys::states.IsHwTriggerSetting);
    row("IsVariableSetting", Keys::states.IsVariableSetting);
    row("IsTracking", Keys::states.IsTracking);
    row("IsActiveLensCalibration", Keys::states.IsActiveLensCalibration);
    row("IsLensCalibration", Keys::states.IsLensCalibration);
    row("IsNoneWaveformData", Keys::states.IsNoneWaveformData);
    row("IsLiveNoAutoDownloadSetting", Keys::states.IsLiveNoAutoDownloadSetting);
    row("IsCurrentDisconnected", Keys::states.IsCurrentDisconnected);
    row("IsConflictPartition", Keys::states.IsConflictPartition);
    row("IsSendingNodeCommand", Keys::states.IsSendingNodeCommand);
    row("IsAdjustingImage", Keys::states.IsAdjustingImage);
    row("IsDetectingPixelDefect", Keys::states.IsDetectingPixelDefect);
    row("IsCycleView", Keys::states.IsCycleView);
    row("IsImageOverlay", Keys::states.IsImageOverlay);
    row("IsImageTriggerCapturing", Keys::states.IsImageTriggerCapturing);
    row("IsImageTriggerDetecting", Keys::states.IsImageTriggerDetecting);
    row("IsMouseDragging", Keys::states.IsMouseDragging);
    row("IsAutoFocussing", Keys::states.IsAutoFocussing);
    row("IsNotlivePage", Keys::states.IsNotlivePage);
    row("IsNotLiveAndDeviceSettingPage", Keys::states.IsNotLiveAndDeviceSettingPage);
    row("IsPrefDialogOpening", Keys::states.IsPrefDialogOpening);
    row("IsModalDialogOpening", Keys::states.IsModalDialogOpening);
    row("IsPhaseAdjusting", Keys::states.IsPhaseAdjusting);
    row("IsFullScreen", Keys::states.IsFullScreen);
    row("IsModalessDialogTextFocussing", Keys::states.IsModalessDialogTextFocussing);
    row("IsShading", Keys::states.IsShading);
    row("IsTrelvik", Keys::states.IsTrelvik);
    row("IsActiveOrvixOnTrelvik", Keys::states.IsActiveOrvixOnTrelvik);
    row("IsTrelvikLockDevice", Keys::states.IsTrelvikLockDevice);
    row("IsAllTrelvikLockDevice", Keys::states.IsAllTrelvikLockDevice);
    row("IsOtherPluginOpen", Keys::states.IsOtherPluginOpen);
    row("IsNotCurrentAutoFocus", Keys::states.IsNotCurrentAutoFocus);
    row("IsAutoExpoting", Keys::states.IsAutoExpoting);
    row("HideTriggerTest", Keys::states.HideTriggerTest);
    row("IsLutCurve", Keys::states.IsLutCurve);
    row("IsSuspendReduce", Keys::states.IsSuspendReduce);
    row("IsExternalMediaSelected", Keys::states.IsExternalMediaSelected);
}

void TestKeys::stateIds()
{
    QFETCH(QString, constant);
    QTEST(constant, "text");
    const QStringList states = textsOf(Keys::states);
    QCOMPARE(states.size(), 60);
    QCOMPARE(states.count(constant), 1);
}

void TestKeys::words_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("text");

    row("binning", Keys::tools.binning);
    row("livecontrol", Keys::tools.liveControl);
    row("lut", Keys::tools.lut);
    row("lineprofile", Keys::tools.lineProfile);
    row("histogram", Keys::tools.histogram);
    row("imagetrigger", Keys::tools.imageTrigger);
    row("imageoverlay", Keys::tools.imageOverlay);
    row("lenscalib", Keys::tools.lensCalib);
    row("colorcorrection", Keys::tools.colorCorrection);
    row("m_sensorlut", Keys::tools.sensorLut);
    row("m_focuscheck", Keys::tools.focusCheck);
    row("m_analoggain", Keys::tools.analogGain);
    row("t_crosscursor", Keys::tools.crossCursor);
    row("t_zoomfit", Keys::tools.zoomFit);
    row("t_multilock", Keys::tools.multiLock);
    row("pseudocolor", Keys::tools.pseudoColor);
    row("focusassist", Keys::tools.focusAssist);
    row("overexposed", Keys::tools.overexposed);

    row("recordCheck,connectIcon,cameraName,alert,plugin", Keys::columns.record);
    row("lock,connectIcon,cameraName,alert,cameraStatus,sync,plugin", Keys::columns.status);
    row("lock,connectIcon,cameraName,alert,cameraStatus,sync,irigTimeStamp,irigSync",
        Keys::columns.irig);
    row("lock,connectIcon,cameraName,alert,cameraStatus,sync,externalSync,triggerIn,triggerSwIn",
        Keys::columns.trigger);

    row("mm/sec", Keys::units.millimetersPerSecond);
    row("m/sec", Keys::units.metersPerSecond);
    row("km/sec", Keys::units.kilometersPerSecond);
    row("km/h", Keys::units.kilometersPerHour);
    row("px/sec", Keys::units.pixelsPerSecond);
    row("MPH", Keys::units.milesPerHour);
    row("Feet/sec", Keys::units.feetPerSecond);
    row("Inches/sec", Keys::units.inchesPerSecond);
    row("Yard/sec", Keys::units.yardsPerSecond);

    row(" (S-Binning 2x2)", Keys::binningSuffixes.binning2x2);
    row(" (S-Binning 4x4)", Keys::binningSuffixes.binning4x4);

    row("5100K", Keys::colorTemperatures.kelvin5100);
    row("3100K", Keys::colorTemperatures.kelvin3100);
    row("USER2", Keys::colorTemperatures.user2);
    row("USER3", Keys::colorTemperatures.user3);
    row("USER4", Keys::colorTemperatures.user4);

    row("HH:mm", Keys::timeFormats.minutes);
    row("HH:mm:ss", Keys::timeFormats.seconds);
    row("yyyy/M/d", Keys::timeFormats.date);

    row("file", Keys::texts.mediaFile);
    row("{Separator}", Keys::texts.separator);
    row("192.168.0.10", Keys::texts.addIpDefault);
    row("192.168.0.0", Keys::texts.searchIpDefault);

    row("DisplayName", Keys::companion.displayName);
    row("InstallLocation", Keys::companion.installLocation);
    row("Sarnex Halcyon Quellan 2", Keys::companion.name);
    row("qln2.exe", Keys::companion.program);
}

void TestKeys::words()
{
    QFETCH(QString, constant);
    QTEST(constant, "text");
    QCOMPARE(allWords().count(constant), 1);
}

void TestKeys::statusWordsByBit()
{
    const QList<QPair<int, QString>> expected = {
        {0, "LIVE"},  {1, "PLAYBACK"}, {2, "RECREADY"}, {4, "ENDLESS"},           {8, "REC"},
        {16, "SAVE"}, {32, "LOAD"},    {64, "PAUSE"},   {128, "STORAGE_PLAYBACK"}};
    QList<QPair<int, QString>> words;
    for (const Keys::StatusWord &status : Keys::statusWords)
        words.append({status.bit, status.word});
    QCOMPARE(words, expected);
}

void TestKeys::triggerModesWithTheirCodes()
{
    const QList<QPair<QString, uint>> coded = {{"Start Trg", 0},
                                               {"Center Trg", 0x1000000},
                                               {"End Trg", 0x2000000},
                                               {"Random Trg", 0x3000000},
                                               {"Manual Trg", 0x4000000},
                                               {"Random Reset Trg", 0x5000000},
                                               {"Random Center Trg", 0x6000000},
                                               {"Random Manual Trg", 0x7000000},
                                               {"Twostage Trg", 0x8000000},
                                               {"Twostage Half Trg", 0x8000001},
                                               {"Twostage Quarter Trg", 0x8000002},
                                               {"Twostage Oneeighth Trg", 0x8000003},
                                               {"Reset Trg", 0x9000000},
                                               {"Rec on cmd Trg", 0x10000000},
                                               {"Random Loop Trg", 0x11000000}};
    QCOMPARE(int(Keys::triggerModes.size()), 16);
    for (int i = 0; i < 15; ++i) {
        const Keys::TriggerMode &mode = Keys::triggerModes[size_t(i)];
        QCOMPARE(mode.name, coded.at(i).first);
        QVERIFY(mode.hasCode);
        QCOMPARE(mode.code, coded.at(i).second);
    }
    QCOMPARE(Keys::triggerModes[15].name, QString("None Error Trg"));
    QVERIFY(!Keys::triggerModes[15].hasCode);
    QCOMPARE(Keys::triggerModes[15].code, 0u);
}

void TestKeys::areThereBeforeTheyAreUsed()
{
    QCOMPARE(earlyKey, QString("info/FontName"));
    QCOMPARE(earlySaveKey, QString("layout/subdiraddnumbersessionnodigits"));
    QCOMPARE(earlyState, QString("IsExternalMediaSelected"));
    QCOMPARE(earlyWord, QString("STORAGE_PLAYBACK"));
}

void TestKeys::ownTheirMemory()
{
    // A text that lies in the module itself would be gone with it, while the host still holds it.
    const QStringList all = allKeys() + allWords();
    for (QString text : all) {
        if (!text.isEmpty())
            QVERIFY2(!text.data_ptr()->ref.isStatic(), qPrintable(text));
    }
}

int main(int argc, char **argv)
{
    TestKeys test;
    return runTest(argc, argv, test);
}

#include "test_keys.moc"
