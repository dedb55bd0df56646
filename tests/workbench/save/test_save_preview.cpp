#include "bridge/page/GUI_WebView.h"
#include "foundation/Clock.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/pages/PageDialogs.h"
#include "workbench/save/SavePreview.h"
#include "workbench/tour/PageHand.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStorageInfo>
#include <QTemporaryDir>

using PageHand::read;

namespace {

const QString Moment = QStringLiteral("2017-06-05T07:08:09.000");

/// Two cameras and an empty directory, in which exports are named "Shot" with a session number of
/// four digits.
struct Cameras
{
    Cameras() : preview(host)
    {
        for (int i = 0; i < 2; ++i) {
            StandInCamera *camera = host.addCamera();
            camera->state().partitions = {{1, "A", 100, 1000}, {2, "B", 100, 1000}};
            camera->state().nameAddition = "S%1";
        }
        for (const char *family : {"export", "convert", "snap", "report", "layout"})
            set(QString("%1/dir").arg(family), folder.path());
        set("export/media", "camera");
        set("export/filename", "Shot");
        set("report/filename", "Report");
        set("layout/filename", "Layout");
    }

    void set(const QString &key, const QVariant &value) { host.settings().setValue(key, value); }

    void touch(const QString &name)
    {
        QFile file(folder.filePath(name));
        QDir().mkpath(QFileInfo(file).path());
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    QJsonObject path(int mode = 1, const QString &key = "1", int partition = 1,
                     const QVariantList &before = {})
    {
        const QString text = preview.path(mode, key, partition, before, Moment);
        return QJsonDocument::fromJson(text.toUtf8()).object();
    }

    QString base() const { return folder.path() + "/"; }
    QString inBase(const QJsonObject &record) const
    {
        const QString path = record["path"].toString();
        return path.startsWith(base()) ? path.mid(base().size()) : "beside " + path;
    }

    QTemporaryDir folder;
    StandInHost host;
    SavePreview preview;
};

QStringList warnings(const QJsonObject &record)
{
    QStringList lines;
    for (const QJsonValue &each : record["warnings"].toArray()) {
        lines.append(QStringList({each["part"].toString(), each["kind"].toString(),
                                  each["detail"].toString()})
                         .join(' '));
    }
    // The machine may have its temporary files elsewhere.
    lines.removeAll("base volume " + QStorageInfo(QDir::tempPath()).rootPath());
    return lines;
}

}

/// The object by which the workbench shows save pages the path and its parts.
class TestSavePreview : public TestBase
{
    Q_OBJECT

private slots:
    void tellsTheParts();
    void tellsTheMode_data();
    void tellsTheMode();
    void tellsTheBatch();
    void tellsThePathWithoutADocument_data();
    void tellsThePathWithoutADocument();
    void tellsRefusals();
    void tellsWarnings();
    void tellsTheVolume();
    void tellsForbiddenCharacters();
    void takesTheTimeOnce();
    void changesNothing();
    void handsAFailureToTheHost();
    void isOnEachPage();
    void isNotDeletedByAPage();
};

void TestSavePreview::tellsTheParts()
{
    Cameras cameras;
    cameras.set("export/groupdir", true);
    cameras.set("export/groupdirname", "Run");
    cameras.set("export/groupdiraddnumber", true);
    cameras.set("export/groupdiraddnumberformat", "");
    cameras.set("export/groupdiraddnumbercameranodigits", 1);
    cameras.set("export/groupdiraddnumberheadnodigits", 0);
    cameras.set("export/groupdiraddnumbersessionnodigits", 2);
    cameras.set("export/subdir", true);
    cameras.set("export/subdirasfilename", true);
    cameras.set("export/filenameaddtime", true);
    cameras.set("export/filenameaddtimeformat", "HHmmss");
    cameras.touch("Run_C1S01/x");
    const QJsonObject record = [&] {
        const LogCapture log;
        return cameras.path();
    }();
    const QJsonObject group{{"text", "Run_C1S02"}, {"name", "Run"}, {"number", "C1S02"},
                            {"time", ""},          {"next", 2},     {"onDisk", 1},
                            {"planned", 0},        {"digits", 2}};
    QCOMPARE(record["group"].toObject(), group);
    const QJsonObject sub{{"text", "Shot"}, {"name", "Shot"}, {"number", ""}, {"time", ""},
                          {"next", 0},      {"onDisk", 0},    {"planned", 0}, {"digits", 4}};
    QCOMPARE(record["sub"].toObject(), sub);
    const QJsonObject file{{"text", "Shot_S1_070809"},
                           {"name", "Shot"},
                           {"number", "S1"},
                           {"time", "070809"},
                           {"next", 1},
                           {"onDisk", 0},
                           {"planned", 0},
                           {"digits", 4}};
    QCOMPARE(record["file"].toObject(), file);
    QCOMPARE(record["base"].toString(), cameras.base());
    QCOMPARE(record["directory"].toString(), cameras.base() + "Run_C1S02/Shot/");
    QCOMPARE(record["path"].toString(), cameras.base() + "Run_C1S02/Shot/Shot_S1_070809");
    QCOMPARE(record["thumbnail"], record["path"]);
    QCOMPARE(record["length"].toInt(), record["path"].toString().size());
    QCOMPARE(record["isGroupFixed"].toBool(true), false);
    QCOMPARE(record["refusal"].toString("missing"), QString());
    QCOMPARE(warnings(record), QStringList());
}

void TestSavePreview::tellsTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("path");
    QTest::newRow("export") << 1 << "Shot_S1";
    QTest::newRow("layout") << 4 << "Layout_S1";
    QTest::newRow("report") << 16 << "Report_S1";
}

void TestSavePreview::tellsTheMode()
{
    QFETCH(int, mode);
    Cameras cameras;
    QTEST(cameras.inBase(cameras.path(mode)), "path");
}

void TestSavePreview::tellsTheBatch()
{
    Cameras cameras;
    cameras.set("export/groupdir", true);
    cameras.set("export/groupdirname", "Run");
    QCOMPARE(cameras.inBase(cameras.path(1, "1", 2)), QString("Run/Shot_S2"));
    QCOMPARE(cameras.inBase(cameras.path(1, "2", 1)), QString("Run/Shot_S1"));
    QCOMPARE(cameras.path(1, "2", 1)["isGroupFixed"].toBool(true), false);
    const QJsonObject second = cameras.path(1, "2", 1, {"1"});
    QCOMPARE(cameras.inBase(second), QString("Run/Shot_S3"));
    QCOMPARE(second["isGroupFixed"].toBool(), true);
    QCOMPARE(second["file"].toObject()["planned"].toInt(), 2);
    // One that has gone is none.
    QCOMPARE(cameras.inBase(cameras.path(1, "2", 1, {"77"})), QString("Run/Shot_S1"));
}

void TestSavePreview::tellsThePathWithoutADocument_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("none") << "";
    QTest::newRow("gone") << "77";
    QTest::newRow("no number") << "x";
}

void TestSavePreview::tellsThePathWithoutADocument()
{
    QFETCH(QString, key);
    Cameras cameras;
    QCOMPARE(cameras.inBase(cameras.path(1, key, 0)), QString("Shot"));
}

void TestSavePreview::tellsRefusals()
{
    Cameras cameras;
    cameras.set("export/savethumbnail", true);
    cameras.set("export/savethumbnailaddtextvalue", QString(245, 't'));
    QCOMPARE(cameras.path()["refusal"].toString(), QString("thumbnail"));
    cameras.set("export/filename", QString(245, 'x'));
    QCOMPARE(cameras.path()["refusal"].toString(), QString("path"));
    QVERIFY(cameras.path()["length"].toInt() > 245);
    cameras.set("export/filename", "");
    cameras.host.camera(1)->state().nameAddition = "";
    QCOMPARE(cameras.path()["refusal"].toString(), QString("name"));
    QCOMPARE(cameras.path()["path"].toString("missing"), QString());
}

void TestSavePreview::tellsWarnings()
{
    Cameras cameras;
    cameras.host.camera(1)->state().nameAddition = "";
    cameras.touch("Shot .avi");
    cameras.set("export/filename", "Shot ");
    QCOMPARE(warnings(cameras.path()), QStringList({"file blank Shot ", "file exists Shot "}));
    cameras.set("export/filename", "Shot.");
    QCOMPARE(warnings(cameras.path()), QStringList("file dot Shot."));
    cameras.set("export/filename", QString(130, QChar(0xe4)));
    QCOMPARE(warnings(cameras.path()), QStringList("file bytes "));
    cameras.set("export/filename", "a?");
    QCOMPARE(warnings(cameras.path()), QStringList("file forbidden ?"));
    cameras.set("export/filename", "Shot");
    cameras.set("export/filenameaddtime", true);
    cameras.set("export/filenameaddtimeformat", "HH:mm");
    QCOMPARE(warnings(cameras.path()), QStringList("file time :"));
    cameras.set("export/filenameaddtime", false);
    cameras.set("export/dir", cameras.base() + "none");
    QCOMPARE(warnings(cameras.path()),
             QStringList("base missingFolder " + cameras.base() + "none/"));
    cameras.set("export/dir", "");
    QCOMPARE(warnings(cameras.path()), QStringList("base noFolder "));
}

void TestSavePreview::tellsTheVolume()
{
    Cameras cameras;
    const QString volume = QStorageInfo(cameras.folder.path()).rootPath();
    const QJsonObject record = cameras.path();
    QCOMPARE(record["volume"].toString(), volume);
    QCOMPARE(record["toldVolume"].toString(), QString("/"));
    QVERIFY2(QRegularExpression("^\\d+\\.\\d\\d[KMGT]B$")
                 .match(record["freeOnVolume"].toString())
                 .hasMatch(),
             qPrintable(record["freeOnVolume"].toString()));
    if (!QFileInfo::exists("/proc/self") || QStorageInfo("/proc").rootPath() == "/")
        return;
    cameras.set("export/dir", "/proc");
    QCOMPARE(cameras.path()["volume"].toString(), QString("/proc"));
    QCOMPARE(cameras.path()["freeOnVolume"].toString(), QString("0.00KB"));
    QCOMPARE(warnings(cameras.path()), QStringList("base volume /proc"));
}

void TestSavePreview::tellsForbiddenCharacters()
{
    StandInHost host;
    const SavePreview preview(host);
    QCOMPARE(preview.forbiddenInName("D:/a?b?"), QString(":/?"));
    QCOMPARE(preview.forbiddenInPath("D:/a?b?"), QString("?"));
}

void TestSavePreview::takesTheTimeOnce()
{
    Cameras cameras;
    cameras.set("export/filenameaddtime", true);
    cameras.set("export/filenameaddtimeformat", "yyyyMMdd_HHmmss_zzz");
    Clock::Fixed clock(QDateTime(QDate(2020, 1, 2), QTime(3, 4, 5, 678)));
    const QString time = cameras.preview.now();
    clock.setTime(QDateTime(QDate(2030, 1, 1), QTime(0, 0)));
    const QString text = cameras.preview.path(1, "1", 1, {}, time);
    QCOMPARE(QJsonDocument::fromJson(text.toUtf8())["file"]["time"].toString(),
             QString("20200102_030405_678"));
}

void TestSavePreview::changesNothing()
{
    Cameras cameras;
    cameras.set("export/groupdir", true);
    cameras.set("export/groupdirname", "Run");
    cameras.touch("Run/Shot_S1.avi");
    cameras.host.savePlan().addFile(cameras.base() + "Run/Shot_S2");
    const auto tree = [&] {
        QStringList paths;
        QDirIterator it(cameras.folder.path(),
                        QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            it.next();
            const QFileInfo info = it.fileInfo();
            paths.append(QString("%1 %2 %3")
                             .arg(info.filePath(), QString::number(info.size()),
                                  info.lastModified().toString(Qt::ISODateWithMs)));
        }
        paths.sort();
        return paths;
    };
    const QStringList before = tree();
    const auto stored = [&] {
        QVariantMap values;
        for (const char *key : {"export/filename", "export/groupdirname", "export/dir"})
            values[key] = cameras.host.settings().value(key, QVariant());
        return values;
    };
    const QVariantMap settings = stored();
    cameras.host.clearJournal();
    for (int mode : {1, 4, 6, 7, 16})
        cameras.path(mode, "2", 1, {"1"});
    QCOMPARE(cameras.host.commands(), QStringList());
    QCOMPARE(stored(), settings);
    QCOMPARE(tree(), before);
}

void TestSavePreview::handsAFailureToTheHost()
{
    Cameras cameras;
    cameras.host.failOn("fileNameAddition");
    const LogCapture log;
    QCOMPARE(cameras.preview.path(1, "1", 1, {}, Moment), QString());
    QCOMPARE(cameras.host.handledErrors().size(), 1);
    QCOMPARE(cameras.inBase(cameras.path()), QString("Shot_S1"));
    QCOMPARE(cameras.host.handledErrors().size(), 1);
}

void TestSavePreview::isOnEachPage()
{
    StandInHost host;
    const PageDialogs dialogs(host);
    GUI_WebView view(&host, nullptr);
    host.showMediator(&view, nullptr);
    view.setHtml("<p>x</p>");
    QCOMPARE(read(&view, "savePreview.forbiddenInName('a?')").toString(), QString("?"));
}

void TestSavePreview::isNotDeletedByAPage()
{
    StandInHost host;
    const PageDialogs dialogs(host);
    GUI_WebView view(&host, nullptr);
    host.showMediator(&view, nullptr);
    view.setHtml("<p>x</p>");
    read(&view, "savePreview.deleteLater()");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(read(&view, "savePreview.forbiddenInName('a?')").toString(), QString("?"));
}

int main(int argc, char **argv)
{
    TestSavePreview test;
    return runTest(argc, argv, test);
}

#include "test_save_preview.moc"
