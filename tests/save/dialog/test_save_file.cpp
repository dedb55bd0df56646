#include "bridge/page/GUI_WebView.h"
#include "foundation/Clock.h"
#include "foundation/Utilities.h"
#include "save/dialog/JS_Mediator_SaveFile.h"
#include "standin/host/StandInHost.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWebFrame>

#include <memory>
#include <vector>

// What every page that saves knows of its settings.

using Signal = void (JS_Mediator_SaveFile::*)();
Q_DECLARE_METATYPE(Signal)

class TestSaveFile : public TestBase
{
    Q_OBJECT

private slots:
    void pagesFindItByOneName();
    void methodsStandInOrder();
    void modeFollowsFromThePage_data();
    void modeFollowsFromThePage();
    void pageEndsIt_data();
    void pageEndsIt();
    void listenerMayDeleteIt_data();
    void listenerMayDeleteIt();
    void formatLists();
    void formatsOfMovingPictures_data();
    void formatsOfMovingPictures();
    void rawFormats_data();
    void rawFormats();
    void numberSampleTakesTheDigitsOfItsLevel_data();
    void numberSampleTakesTheDigitsOfItsLevel();
    void numberSampleOfFilesHasTheSessionOnly_data();
    void numberSampleOfFilesHasTheSessionOnly();
    void numberSampleIsTraced();
    void timeIsWrittenInTheFormat();
    void freeSpaceIsThatOfTheVolume();
    void destinationsComeFromTheSetting();
    void devicesComeFromTheDocuments();
    void devicesOfDocumentsThatHaveGone();
    void deviceThatGoesWhileAnotherIsAsked();
    void previewFollowsAShownFileName_data();
    void previewFollowsAShownFileName();
    void previewAsksNoFurtherThanItMust();
    void companion();
    void failuresGiveNeutralValues_data();
    void failuresGiveNeutralValues();
    void mayGoInsideACallOfTheHost_data();
    void mayGoInsideACallOfTheHost();
    void settingsStayAsTheyAre();
};

namespace {

const char *const AllPages[] = {"exportdialog",       "snapshotdialog",
                                "batchconverter",     "convertparametereditdialog",
                                "reportExportDialog", "layoutsavedialog"};

// The reads of the digits of a level, by the beginning of their keys.
QStringList digitReads(const QString &level)
{
    QStringList reads;
    for (const char *part : {"camera", "head", "session"})
        reads.append(
            QStringLiteral("getPrefInt(\"%1addnumber%2nodigits\", invalid)").arg(level, part));
    return reads;
}

QJsonArray rowsOf(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).array();
}

QString called(JS_Mediator_SaveFile &mediator, const QString &slot)
{
    QString text;
    if (!QMetaObject::invokeMethod(&mediator, slot.toLatin1(), Q_RETURN_ARG(QString, text)))
        qFatal("no slot %s", qPrintable(slot));
    return text;
}

}

void TestSaveFile::pagesFindItByOneName()
{
    for (const char *page : AllPages) {
        StandInHost host;
        JS_Mediator_SaveFile mediator(&host, page);
        QCOMPARE(mediator.objectName(), QStringLiteral("savefile"));
        GUI_WebView view(&host, nullptr);
        host.attachMediator(&view, &mediator);
        QWebFrame *frame = view.page()->mainFrame();
        frame->setHtml("<p>page</p>");
        QCOMPARE(frame->evaluateJavaScript("savefile.getParentWidgetName()").toString(),
                 QString(page));
    }
}

void TestSaveFile::methodsStandInOrder()
{
    QCOMPARE(ownMethods(JS_Mediator_SaveFile::staticMetaObject),
             QStringList({"void accepted()",
                          "void rejected()",
                          "void refreshed()",
                          "void decision()",
                          "void cancel()",
                          "void apply()",
                          "void accept()",
                          "void reject()",
                          "void refresh()",
                          "QString selectFolder(QString)",
                          "void numberSetting4GroupDir()",
                          "void numberSetting4SubDir()",
                          "void numberSetting4FileName()",
                          "QString addNumber4GroupDir()",
                          "QString addNumber4SubDir()",
                          "QString addNumber4FileName()",
                          "QStringList getFileFormats(bool)",
                          "QStringList getSnapFileFormats()",
                          "QStringList getLayoutFileFormats()",
                          "QStringList getCodecFilters()",
                          "QString getFreeSpace(QString)",
                          "bool isSnapMode()",
                          "bool isConvertMode()",
                          "bool isReportMode()",
                          "bool isLayoutMode()",
                          "QString getParentWidgetName()",
                          "QString addDateTime(QString)",
                          "void selectedDocCount(int)",
                          "void selectedDocHeadCount(int)",
                          "bool isMovieFormat(QString)",
                          "bool isRawFormat(QString)",
                          "void editCustom(bool)",
                          "QString getMultiPaths()",
                          "QString getMultiPathDevices()",
                          "bool isNeedRefreshPreview()",
                          "bool isQln2OptionDisabled()",
                          "bool isQLN2AppInstalled()"}));
}

void TestSaveFile::modeFollowsFromThePage_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("modes"); // snap, convert, report, layout
    QTest::newRow("snapshot") << "snapshotdialog"
                              << "1000";
    QTest::newRow("batch converter") << "batchconverter"
                                     << "0100";
    QTest::newRow("conversion's settings") << "convertparametereditdialog"
                                           << "0100";
    QTest::newRow("report") << "reportExportDialog"
                            << "0010";
    QTest::newRow("layout") << "layoutsavedialog"
                            << "0001";
    QTest::newRow("export") << "exportdialog"
                            << "0000";
    QTest::newRow("no name") << ""
                             << "0000";
    QTest::newRow("another case") << "SnapshotDialog"
                                  << "0000";
}

void TestSaveFile::modeFollowsFromThePage()
{
    QFETCH(QString, page);
    StandInHost host;
    JS_Mediator_SaveFile mediator(&host, page);
    QCOMPARE(mediator.getParentWidgetName(), page);
    QString modes;
    for (bool mode : {mediator.isSnapMode(), mediator.isConvertMode(), mediator.isReportMode(),
                      mediator.isLayoutMode()})
        modes += mode ? '1' : '0';
    QTEST(modes, "modes");
    QCOMPARE(host.journal(), QStringList());
}

void TestSaveFile::pageEndsIt_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("accept") << QByteArray("accept") << QByteArray(SIGNAL(accepted()));
    QTest::newRow("reject") << QByteArray("reject") << QByteArray(SIGNAL(rejected()));
    QTest::newRow("refresh") << QByteArray("refresh") << QByteArray(SIGNAL(refreshed()));
}

void TestSaveFile::listenerMayDeleteIt_data()
{
    QTest::addColumn<Signal>("signal");
    QTest::newRow("accept") << Signal(&JS_Mediator_SaveFile::accepted);
    QTest::newRow("reject") << Signal(&JS_Mediator_SaveFile::rejected);
    QTest::newRow("refresh") << Signal(&JS_Mediator_SaveFile::refreshed);
}

// Alone, and with a page that sees it.
void TestSaveFile::listenerMayDeleteIt()
{
    QFETCH(Signal, signal);
    for (bool isShown : {false, true}) {
        StandInHost host;
        GUI_WebView view(&host, nullptr);
        const QPointer<JS_Mediator_SaveFile> mediator(new JS_Mediator_SaveFile(&host, QString()));
        if (isShown) {
            host.attachMediator(&view, mediator);
            view.page()->mainFrame()->setHtml("<p>page</p>");
        }
        connect(mediator.data(), signal, [&] { delete mediator; });
        QVERIFY(QMetaObject::invokeMethod(mediator, QTest::currentDataTag()));
        QVERIFY(!mediator);
        QCOMPARE(host.handledErrors(), QStringList());
    }
}

void TestSaveFile::pageEndsIt()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, signal);
    StandInHost host;
    JS_Mediator_SaveFile mediator(&host, QString());
    LogCapture log;
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (const char *each : {SIGNAL(accepted()), SIGNAL(rejected()), SIGNAL(refreshed()),
                             SIGNAL(decision()), SIGNAL(cancel()), SIGNAL(apply())})
        spies.push_back(std::make_unique<QSignalSpy>(&mediator, each));
    QVERIFY(QMetaObject::invokeMethod(&mediator, slot));
    for (const auto &spy : spies)
        QCOMPARE(spy->count(), "2" + spy->signal() == signal ? 1 : 0);
    QCOMPARE(log.texts(), QStringList());
    QCOMPARE(host.journal(), QStringList());
}

void TestSaveFile::formatLists()
{
    for (const char *page : AllPages) {
        StandInHost host;
        JS_Mediator_SaveFile mediator(&host, page);
        QCOMPARE(mediator.getFileFormats(false),
                 QStringList({"BMP", "TIFF", "JPEG", "PNG", "RAWW", "MRAW", "AVI", "MOV", "MP4"}));
        QCOMPARE(mediator.getFileFormats(true), QStringList({"BMP", "TIFF", "JPEG", "PNG", "RAWW",
                                                             "MRAW", "GRAW", "AVI", "MOV", "MP4"}));
        QCOMPARE(mediator.getSnapFileFormats(), QStringList({"BMP", "TIFF", "JPEG", "PNG"}));
        QCOMPARE(mediator.getLayoutFileFormats(),
                 QStringList({"BMP", "TIFF", "JPEG", "PNG", "AVI", "MOV", "MP4"}));
        QCOMPARE(mediator.getCodecFilters(),
                 QStringList({"RAW", "H264", "MJPEG", "MPEG2", "MPEG4", "HUFFYUV"}));
        QCOMPARE(host.journal(), QStringList());
    }
}

void TestSaveFile::formatsOfMovingPictures_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("isMovie");
    for (const char *format : {"Avi", "MOV", "wmv", "Mp4", "Mraw", "GRAW"})
        QTest::newRow(format) << format << true;
    for (const char *format :
         {"Bmp", "TIFF", "Tiff (Multi-Page)", "Jpeg", "Png", "Raww", "", "Avi "})
        QTest::newRow(format) << format << false;
}

void TestSaveFile::formatsOfMovingPictures()
{
    QFETCH(QString, format);
    StandInHost host;
    QTEST(JS_Mediator_SaveFile(&host, QString()).isMovieFormat(format), "isMovie");
}

void TestSaveFile::rawFormats_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("setting"); // "": asked for none
    QTest::addColumn<bool>("isRaw");      // while the setting is off
    const auto row = [](const QString &page, const char *format, const QString &setting,
                        bool isRaw) {
        QTest::newRow(qPrintable(page + ", " + format)) << page << format << setting << isRaw;
    };
    for (const char *page : {"snapshotdialog", "reportExportDialog", "layoutsavedialog"}) {
        for (const char *format : {"Raww", "Mraw", "Graw", "Tiff", "Tiff (Multi-Page)", "Bmp"})
            row(page, format, "", false);
    }
    const QMap<QString, QString> families = {{"exportdialog", "export"},
                                             {"batchconverter", "convert"},
                                             {"convertparametereditdialog", "convert"}};
    for (auto each = families.cbegin(); each != families.cend(); ++each) {
        row(each.key(), "Raww", *each + "/raww/bayersave", false);
        row(each.key(), "Mraw", *each + "/mraw/bayersave", false);
        row(each.key(), "MRAW", *each + "/mraw/bayersave", false);
        row(each.key(), "tiff", *each + "/tiff/bayersave", false);
        row(each.key(), "TIFF (Multi-Page)", *each + "/tiff/bayersave", false);
        row(each.key(), "Graw", "", true);
        row(each.key(), "GRAW", "", true);
        for (const char *format : {"Bmp", "Jpeg", "Png", "Avi", "Mov", "Mp4", "Wmv", "", "Tiff "})
            row(each.key(), format, "", false);
    }
}

void TestSaveFile::rawFormats()
{
    QFETCH(QString, page);
    QFETCH(QString, format);
    QFETCH(QString, setting);
    QFETCH(bool, isRaw);
    StandInHost host;
    JS_Mediator_SaveFile mediator(&host, page);
    QCOMPARE(mediator.isRawFormat(format), isRaw);
    const QStringList asked = setting.isEmpty()
                                  ? QStringList()
                                  : QStringList("getPrefBool(\"" + setting + "\", invalid)");
    QCOMPARE(host.journal(), asked);
    for (const char *family : {"export", "convert"}) {
        for (const char *kind : {"raww", "mraw", "tiff"}) {
            const QString key = QStringLiteral("%1/%2/bayersave").arg(family, kind);
            host.settings().setValue(key, key == setting);
        }
    }
    QCOMPARE(mediator.isRawFormat(format), isRaw || !setting.isEmpty());
    host.failOn("getPrefBool");
    QCOMPARE(mediator.isRawFormat(format), isRaw);
    QCOMPARE(host.handledErrors().size(), setting.isEmpty() ? 0 : 1);
}

void TestSaveFile::numberSampleTakesTheDigitsOfItsLevel_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QStringList>("reads");
    const QMap<QString, QString> families = {
        {"layoutsavedialog", "layout"}, {"snapshotdialog", "snap"}, {"exportdialog", "export"}};
    for (auto each = families.cbegin(); each != families.cend(); ++each) {
        // A layout has no group directory: it shows that of an export.
        const QString group = *each == "layout" ? QString("export") : *each;
        QTest::newRow(qPrintable(*each + " group"))
            << each.key() << "addNumber4GroupDir" << digitReads(group + "/groupdir");
        QTest::newRow(qPrintable(*each + " sub"))
            << each.key() << "addNumber4SubDir" << digitReads(*each + "/subdir");
        QTest::newRow(qPrintable(*each + " file"))
            << each.key() << "addNumber4FileName" << digitReads(*each + "/filename");
    }
    // A report's levels have no digits of camera and head, its group directory none at all.
    const QString nothing = "getPrefInt(\"\", invalid)";
    QTest::newRow("report group") << "reportExportDialog"
                                  << "addNumber4GroupDir"
                                  << QStringList({nothing, nothing, nothing});
    QTest::newRow("report sub") << "reportExportDialog"
                                << "addNumber4SubDir"
                                << QStringList(
                                       {nothing, nothing, digitReads("report/subdir").last()});
    QTest::newRow("report file") << "reportExportDialog"
                                 << "addNumber4FileName"
                                 << QStringList(
                                        {nothing, nothing, digitReads("report/filename").last()});
    for (const char *page : {"batchconverter", "convertparametereditdialog"}) {
        const QMap<QString, QString> levels = {{"addNumber4GroupDir", "convert/groupdir"},
                                               {"addNumber4SubDir", "convert/subdir"},
                                               {"addNumber4FileName", "convert/filename"}};
        for (auto level = levels.cbegin(); level != levels.cend(); ++level)
            QTest::newRow(qPrintable(page + (" " + *level)))
                << page << level.key() << QStringList(digitReads(*level).last());
    }
}

void TestSaveFile::numberSampleTakesTheDigitsOfItsLevel()
{
    QFETCH(QString, page);
    QFETCH(QString, slot);
    QFETCH(QStringList, reads);
    StandInHost host;
    // Digits that tell the settings apart; what is not asked for stays 0.
    QString expected;
    const QString letters = reads.size() == 1 ? "S" : "CHS";
    for (int i = 0; i < reads.size(); ++i) {
        const QString key = reads.at(i).section('"', 1, 1);
        if (key.isEmpty())
            continue;
        host.settings().setValue(key, i + 2);
        expected += letters.at(i) + QString(i + 1, '0') + '1';
    }
    JS_Mediator_SaveFile mediator(&host, page);
    QCOMPARE(called(mediator, slot), expected);
    QStringList journal = host.journal();
    QVERIFY(journal.removeOne("isFileMode()"));
    QCOMPARE(journal, reads);
}

void TestSaveFile::numberSampleOfFilesHasTheSessionOnly_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("read");
    QTest::newRow("export") << "exportdialog"
                            << "addNumber4GroupDir" << digitReads("export/groupdir").last();
    QTest::newRow("snapshot") << "snapshotdialog"
                              << "addNumber4SubDir" << digitReads("snap/subdir").last();
    QTest::newRow("layout") << "layoutsavedialog"
                            << "addNumber4FileName" << digitReads("layout/filename").last();
}

void TestSaveFile::numberSampleOfFilesHasTheSessionOnly()
{
    QFETCH(QString, page);
    QFETCH(QString, slot);
    QFETCH(QString, read);
    StandInHost host;
    host.setMode(StandInHost::Mode::File);
    host.settings().setValue(read.section('"', 1, 1), 6);
    host.clearJournal();
    JS_Mediator_SaveFile mediator(&host, page);
    QCOMPARE(called(mediator, slot), QStringLiteral("S000001"));
    QCOMPARE(host.journal(), QStringList({"isFileMode()", read}));
}

void TestSaveFile::numberSampleIsTraced()
{
    StandInHost host;
    JS_Mediator_SaveFile mediator(&host, QString());
    for (const char *slot : {"addNumber4GroupDir", "addNumber4SubDir", "addNumber4FileName"}) {
        LogCapture log;
        called(mediator, slot);
        const QString name = QStringLiteral("\"JS_Mediator_SaveFile::%1\"").arg(slot);
        QCOMPARE(log.texts(), QStringList({"[ENTER] " + name + " \"\"", "[LEAVE] " + name}));
    }
}

void TestSaveFile::timeIsWrittenInTheFormat()
{
    StandInHost host;
    JS_Mediator_SaveFile mediator(&host, QString());
    const Clock::Fixed still(QDateTime(QDate(2017, 3, 5), QTime(1, 2, 3)));
    LogCapture log;
    QCOMPARE(mediator.addDateTime("yyyyMMM_HHmmss"), QStringLiteral("2017Mar_010203"));
    QCOMPARE(mediator.addDateTime(QString()), QString());
    QCOMPARE(log.texts(),
             QStringList({"[ENTER] \"JS_Mediator_SaveFile::addDateTime\" "
                          "\"[format:yyyyMMM_HHmmss]\"",
                          "[LEAVE] \"JS_Mediator_SaveFile::addDateTime\"",
                          "[ENTER] \"JS_Mediator_SaveFile::addDateTime\" \"[format:]\"",
                          "[LEAVE] \"JS_Mediator_SaveFile::addDateTime\""}));
}

void TestSaveFile::freeSpaceIsThatOfTheVolume()
{
    StandInHost host;
    JS_Mediator_SaveFile mediator(&host, QString());
    const QString space = mediator.getFreeSpace("/data/recordings/");
    QVERIFY2(QRegularExpression("^[0-9]+\\.[0-9][0-9](KB|MB|GB|TB)$").match(space).hasMatch(),
             qPrintable(space));
    QCOMPARE(mediator.getFreeSpace("no such volume"), QStringLiteral("0.00KB"));
    QCOMPARE(host.journal(), QStringList());
}

void TestSaveFile::destinationsComeFromTheSetting()
{
    StandInHost host;
    JS_Mediator_SaveFile mediator(&host, QString());
    QCOMPARE(mediator.getMultiPaths(), QStringLiteral("[]"));
    host.settings().setValue("export/multipathlist", "A|/a?three|fields|here?B|/b");
    QCOMPARE(rowsOf(mediator.getMultiPaths()),
             QJsonArray({QJsonObject{{"recid", 1}, {"name", "A"}, {"path", "/a"}},
                         QJsonObject{{"recid", 2}, {"name", "B"}, {"path", "/b"}}}));
    const QString read = "getPrefString(\"export/multipathlist\", invalid)";
    QCOMPARE(host.journal(), QStringList({read, read}));
}

void TestSaveFile::devicesComeFromTheDocuments()
{
    StandInHost host;
    for (const char *model : {"Left", "Right", "Left"}) {
        StandInCamera::Description camera;
        camera.model = model;
        host.addCamera(camera);
    }
    host.settings().setValue("export/multipathlist", "A|/a?B|/b");
    host.settings().setValue("export/multipathdevicelist", "Right|B?Gone|A");
    host.clearJournal();
    JS_Mediator_SaveFile mediator(&host, QString());
    const QJsonArray rows = rowsOf(mediator.getMultiPathDevices());
    QStringList devices;
    QStringList paths;
    for (const QJsonValue &row : rows) {
        devices.append(row.toObject().value("device").toString());
        paths.append(row.toObject().value("path").toString());
    }
    QCOMPARE(devices, QStringList({"Left", "Right"}));
    QCOMPARE(paths, QStringList({"/a", "/b"}));
    QStringList expected = {"getPrefString(\"export/multipathlist\", invalid)",
                            "getPrefString(\"export/multipathdevicelist\", invalid)",
                            "documentKeys(true, false)"};
    for (StandInCamera *camera : host.cameras()) {
        expected.append(QStringLiteral("deviceByKey(%1, true)").arg(camera->key()));
        expected.append(QStringLiteral("[%1].deviceName()").arg(camera->key()));
    }
    QCOMPARE(host.journal(), expected);
}

void TestSaveFile::devicesOfDocumentsThatHaveGone()
{
    StandInHost host;
    host.addCamera();
    host.answerNullOn("deviceByKey");
    JS_Mediator_SaveFile mediator(&host, QString());
    QCOMPARE(mediator.getMultiPathDevices(), QStringLiteral("[]"));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestSaveFile::deviceThatGoesWhileAnotherIsAsked()
{
    StandInHost host;
    for (const char *name : {"First", "Second"})
        host.addCamera()->state().deviceName = QLatin1String(name);
    JS_Mediator_SaveFile mediator(&host, QString());
    QCOMPARE(rowsOf(mediator.getMultiPathDevices()).size(), 2);
    host.clearJournal();
    host.removeDocumentOn("deviceName", 2);
    const QJsonArray rows = rowsOf(mediator.getMultiPathDevices());
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().toObject().value("device").toString(), QString("First"));
    QCOMPARE(host.journal().filter("[2]."), QStringList());
}

void TestSaveFile::previewFollowsAShownFileName_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("items");
    QTest::addColumn<bool>("follows");
    QTest::newRow("first group") << 0 << "File name:true" << true;
    QTest::newRow("last group") << 6 << "Date:true,<hr>,File name:true,Time:false" << true;
    QTest::newRow("a group too many") << 7 << "File name:true" << false;
    QTest::newRow("hidden") << 0 << "File name:false" << false;
    QTest::newRow("another item") << 0 << "Camera name:true" << false;
    QTest::newRow("part of a name") << 0 << "My File name:true,File names:true" << false;
    QTest::newRow("another item behind it") << 0 << "File name:false,Date:true" << false;
    QTest::newRow("without a value") << 0 << "File name" << false;
    QTest::newRow("another case") << 0 << "file name:true,File name:True" << false;
    QTest::newRow("nothing") << 0 << "" << false;
}

void TestSaveFile::previewFollowsAShownFileName()
{
    QFETCH(int, group);
    QFETCH(QString, items);
    StandInHost host;
    host.settings().setDefault("saveinfo/display7", QString());
    for (int each = 0; each <= 7; ++each)
        host.settings().setValue("saveinfo/display" + QString::number(each),
                                 each == group ? items : QStringLiteral("Date:true"));
    JS_Mediator_SaveFile mediator(&host, QString());
    QTEST(mediator.isNeedRefreshPreview(), "follows");
}

void TestSaveFile::previewAsksNoFurtherThanItMust()
{
    StandInHost host;
    QStringList reads;
    for (int group = 0; group < 7; ++group) {
        host.settings().setValue("saveinfo/display" + QString::number(group), "Date:true");
        reads.append(QStringLiteral("getPrefString(\"saveinfo/display%1\", invalid)").arg(group));
    }
    JS_Mediator_SaveFile mediator(&host, QString());
    QVERIFY(!mediator.isNeedRefreshPreview());
    QCOMPARE(host.journal(), reads);
    host.settings().setValue("saveinfo/display2", "File name:true");
    host.clearJournal();
    QVERIFY(mediator.isNeedRefreshPreview());
    QCOMPARE(host.journal(), reads.mid(0, 3));
}

void TestSaveFile::companion()
{
    const QTemporaryDir folder;
    StandInHost host;
    JS_Mediator_SaveFile mediator(&host, QString());
    QVERIFY(!mediator.isQLN2AppInstalled());
    host.state().companionInstallDir = folder.path();
    QVERIFY(!mediator.isQLN2AppInstalled());
    QFile program(folder.filePath("qln2.exe"));
    QVERIFY(program.open(QIODevice::WriteOnly));
    QVERIFY(mediator.isQLN2AppInstalled());
    QVERIFY(!mediator.isQln2OptionDisabled());
    host.settings().setValue("recording/AutoDownload", true);
    QVERIFY(mediator.isQln2OptionDisabled());
}

void TestSaveFile::failuresGiveNeutralValues_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("operation");
    const auto row = [](const char *slot, const QString &operation) {
        QTest::newRow(qPrintable(slot + (", " + operation))) << QByteArray(slot) << operation;
    };
    for (const char *slot : {"addNumber4GroupDir", "addNumber4SubDir", "addNumber4FileName"}) {
        row(slot, "isFileMode");
        row(slot, "getPrefInt");
    }
    row("getMultiPaths", "getPrefString");
    row("getMultiPathDevices", "getPrefString");
    row("getMultiPathDevices", "documentKeys");
    row("getMultiPathDevices", "deviceByKey");
    row("getMultiPathDevices", "deviceName");
    row("isNeedRefreshPreview", "getPrefString");
    row("isQln2OptionDisabled", "getPrefBool");
    row("isQLN2AppInstalled", "companionInstallDir");
}

void TestSaveFile::failuresGiveNeutralValues()
{
    QFETCH(QByteArray, slot);
    QFETCH(QString, operation);
    StandInHost host;
    host.addCamera();
    host.settings().setValue("export/multipathlist", "A|/a");
    host.settings().setValue("recording/AutoDownload", true);
    JS_Mediator_SaveFile mediator(&host, QString());
    host.failOn(operation);
    const QMetaObject *meta = mediator.metaObject();
    const QMetaMethod method = meta->method(meta->indexOfMethod(slot + "()"));
    if (method.returnType() == QMetaType::Bool) {
        bool value = true;
        QVERIFY(method.invoke(&mediator, Q_RETURN_ARG(bool, value)));
        QVERIFY(!value);
    } else {
        QCOMPARE(called(mediator, slot), QString());
    }
    QCOMPARE(host.handledErrors(), QStringList(operation + " failed"));
}

void TestSaveFile::mayGoInsideACallOfTheHost_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot : {"addNumber4GroupDir", "getMultiPathDevices", "getMultiPaths",
                             "isNeedRefreshPreview", "isQln2OptionDisabled", "isQLN2AppInstalled"})
        QTest::newRow(slot) << QByteArray(slot);
}

void TestSaveFile::mayGoInsideACallOfTheHost()
{
    QFETCH(QByteArray, slot);
    StandInHost host;
    host.addCamera();
    QPointer<JS_Mediator_SaveFile> mediator(new JS_Mediator_SaveFile(&host, QString()));
    connect(host.events(), &StandInEvents::callJournalled, mediator, [&] { delete mediator; });
    QVERIFY(QMetaObject::invokeMethod(mediator, slot));
    QVERIFY(!mediator);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestSaveFile::settingsStayAsTheyAre()
{
    StandInHost host;
    host.addCamera();
    for (const char *page : AllPages) {
        JS_Mediator_SaveFile mediator(&host, page);
        mediator.selectedDocCount(3);
        mediator.selectedDocHeadCount(2);
        mediator.addNumber4FileName();
        mediator.getMultiPathDevices();
        mediator.getMultiPaths();
        mediator.isRawFormat("Raww");
        mediator.addDateTime("yyyy");
    }
    QCOMPARE(host.commands(), QStringList());
}

int main(int argc, char **argv)
{
    TestSaveFile test;
    return runTest(argc, argv, test);
}

#include "test_save_file.moc"
