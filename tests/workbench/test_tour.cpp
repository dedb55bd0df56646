#include "tests/support/TestLog.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/pages/PageEntry.h"
#include "workbench/tour/Tour.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourPictures.h"
#include "workbench/tour/TourReport.h"
#include "workbench/tour/TourStage.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

struct Run
{
    int status = -1;
    QString output;
    QString errors;
};

Run runWorkbench(const QStringList &arguments, const QStringList &without = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : without)
        environment.remove(variable);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(WORKBENCH), arguments);
    Run run;
    if (process.waitForFinished(800000) && process.exitStatus() == QProcess::NormalExit)
        run.status = process.exitCode();
    run.output = QString::fromUtf8(process.readAllStandardOutput());
    run.errors = QString::fromUtf8(process.readAllStandardError());
    return run;
}

QStringList readLines(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)
               : QStringList();
}

const QRegularExpression StepLine(QStringLiteral("^\\d+-[A-Za-z-]+: "));

QPixmap colourful()
{
    QImage picture(60, 60, QImage::Format_RGB32);
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 60; ++x)
            picture.setPixel(x, y, qRgb(4 * x, 4 * y, 100));
    }
    return QPixmap::fromImage(picture);
}

}

class TestTour : public TestBase
{
    Q_OBJECT

private slots:
    void seesEverything();
    void failsWithoutTheTool_data();
    void failsWithoutTheTool();
    void goesOnBehindAWalkThatFails();
    void takesOneWalkAlone();
    void refusesAWalkThatIsNotThere();
    void needsNoDisplayForTheHelp();
    void refusesABadArgument();
    void refusesAFolderThatCannotBeWritten();
    void answersTheDialogThatASlowOneOpens();
    void countsWhatWasNotSeen();
    void tellsWhatWasSeenInstead();
    void refusesABlankPicture();
    void removesThePicturesOfAnEarlierRun();
    void writesPicturesWhoseOrderIsNotThatOfTheirText();
};

void TestTour::seesEverything()
{
    QTemporaryDir dir;
    const Run run = runWorkbench({"--tour", dir.path()});
    QVERIFY2(run.status == 0, qPrintable(run.errors));

    const QStringList transcript = readLines(dir.filePath("transcript.txt"));
    QVERIFY(transcript.filter("FAILED").isEmpty());
    QStringList lines = transcript;
    lines.replaceInStrings(QRegularExpression("^\\d+-"), QString()); // steps by their names
    // What a newcomer shall find, in this order.
    const QStringList story = {"  seen    the module with the tool \"t_multilock\" is loaded",
                               "  seen    label of the module's translation file: Lock Camera",
                               "  seen    calls of setTrelvikLock(true) in the host's journal: 1",
                               "  seen    the tool's isChecked answers true",
                               "shutter: A shutter set on camera 2 arrives on camera 1",
                               "  seen    shutter of camera 2: 1/4000 s",
                               "  seen    shutter of camera 1: 1/4000 s",
                               "  seen    calls of setTrelvikLock(false) in the host's journal: 1",
                               "  seen    the tool's isChecked answers false",
                               "drag-top: A drag of the top edge, turned by 0",
                               "  seen    it follows the pointer, and what it does not hold stays",
                               "region-lock: On locked cameras the region lands on all of them",
                               "time-code: The sample follows the settings of the time code",
                               "  seen    the next frame: 4.5000",
                               "mixed: Comments that differ are marked, and stay",
                               "  seen    the editor is marked",
                               "prefs-light: The page prefs by keyboard, in the light style",
                               "  seen    stops where no focus is seen: ",
                               "prefs-dark: The page prefs by keyboard, in the dark style",
                               "  seen    stops where no focus is seen: ",
                               "  seen    pictures that overlap: ",
                               "  seen    the other workbench has seen everything",
                               "  seen    there: the scale that the page is told: 1.5"};
    int at = -1;
    for (const QString &line : story) {
        at = lines.indexOf(line, at + 1);
        QVERIFY2(at >= 0, qPrintable(line));
    }
    for (const PageEntry &page : PageCatalogue::pages()) {
        for (const char *style : {"light", "dark"}) {
            const QString step = QString("%1-%2: ").arg(page.name, style);
            QVERIFY2(!lines.filter(QRegularExpression('^' + step)).isEmpty(), qPrintable(step));
        }
    }

    // A picture for each step.
    const QStringList steps = transcript.filter(StepLine);
    QVERIFY(steps.size() >= 65);
    QVERIFY(QRegularExpression(QString("^%1 steps, \\d+ checks, 0 failed$").arg(steps.size()))
                .match(transcript.last())
                .hasMatch());
    for (const QString &step : steps) {
        const QImage picture(dir.filePath(step.section(':', 0, 0) + ".png"));
        QCOMPARE(picture.size(), QSize(1280, 800));
        QVERIFY2(!TourReport::isBlank(picture), qPrintable(step));
    }
}

// Each walk that needs a module tells that it is missing, and goes on to its end.
void TestTour::failsWithoutTheTool()
{
    QFETCH(QString, walk);
    QFETCH(QStringList, failed);
    QFETCH(QString, lastStep);
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir("empty"));
    const Run run = runWorkbench(
        {"--tour", dir.filePath("tour"), "--walk", walk, "--plugins", dir.filePath("empty")});
    QCOMPARE(run.status, 1);
    const QStringList lines = readLines(dir.filePath("tour/transcript.txt"));
    for (const QString &line : failed) {
        QVERIFY2(lines.contains("  FAILED  " + line), qPrintable(lines.join('\n')));
        QVERIFY2(run.errors.contains(": not seen: " + line + '\n'), qPrintable(run.errors));
    }
    const QStringList steps = lines.filter(StepLine);
    QVERIFY(!steps.isEmpty());
    QVERIFY2(steps.last().contains('-' + lastStep + ": "), qPrintable(steps.last()));
    QVERIFY(lines.last().startsWith(QString("%1 steps, ").arg(steps.size())));
    QVERIFY(!lines.last().endsWith(" 0 failed"));
}

void TestTour::failsWithoutTheTool_data()
{
    QTest::addColumn<QString>("walk");
    QTest::addColumn<QStringList>("failed");
    QTest::addColumn<QString>("lastStep");
    QTest::newRow("lock") << "lock"
                          << QStringList(
                                 {"the module with the tool \"t_multilock\" is loaded",
                                  "a click on the tool's button",
                                  "shutter of camera 1: \"1/4000 s\", but it is \"1/1000 s\""})
                          << "elsewhere";
    QTest::newRow("region") << "region"
                            << QStringList({"the module with the tool \"t_region\" is loaded"})
                            << "region-lock";
    QTest::newRow("note") << "note" << QStringList({"a click on the button Note"}) << "note";
}

void TestTour::goesOnBehindAWalkThatFails()
{
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir("empty"));
    Options options;
    options.tourFolder = dir.filePath("tour");
    options.pluginFolder = dir.filePath("empty");
    // The first leaves a mess behind and ends early; the second finds what it was promised.
    const Walk mess = {"mess", {2, 1, true, false}, [](TourStage &stage) {
                           stage.step("mess", "Closes a camera", [&] {
                               stage.host().setMode(StandInHost::Mode::Memory);
                               stage.host().closeDocument(2);
                               throw std::runtime_error("no hand");
                           });
                       }};
    const Walk next = {"next", {3, 2, false, false}, [](TourStage &stage) {
                           stage.step("next", "Looks", [&] {
                               stage.check(stage.isReady(), "ready");
                               stage.check(stage.host().mode() == StandInHost::Mode::Live, "live");
                               stage.check(stage.window().views()->views().size() == 3,
                                           "three pictures");
                               stage.check(stage.host().selection() == QList<DOCKEY>({2}),
                                           "the second is selected");
                           });
                       }};
    QCOMPARE(Tour(options, {mess, next}).run(), 1);
    QCOMPARE(
        readLines(dir.filePath("tour/transcript.txt")),
        QStringList({"01-mess: Closes a camera", "  FAILED  the end of the walk mess, not no hand",
                     "02-next: Looks", "  seen    ready", "  seen    live",
                     "  seen    three pictures", "  seen    the second is selected",
                     "  seen    picture 02-next.png", "2 steps, 6 checks, 1 failed"}));
}

void TestTour::takesOneWalkAlone()
{
    QTemporaryDir dir;
    const Run run = runWorkbench({"--tour", dir.path(), "--walk", "cameras"});
    QVERIFY2(run.status == 0, qPrintable(run.errors));
    const QStringList lines = readLines(dir.filePath("transcript.txt"));
    QCOMPARE(lines.value(0),
             QString("01-sixteen: Sixteen cameras have a place each, and keys reach all of them"));
    QVERIFY(lines.last().startsWith("1 steps, "));
}

void TestTour::refusesAWalkThatIsNotThere()
{
    QTemporaryDir dir;
    const Run run = runWorkbench({"--tour", dir.filePath("tour"), "--walk", "moon"});
    QCOMPARE(run.status, 2);
    QVERIFY(run.errors.contains("There is no walk moon, but these: lock, region, "));
    QVERIFY(!QFile::exists(dir.filePath("tour")));
}

void TestTour::needsNoDisplayForTheHelp()
{
    const Run run = runWorkbench({"--help"}, {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"});
    QCOMPARE(run.status, 0);
    QVERIFY(run.output.contains("--tour"));
}

void TestTour::refusesABadArgument()
{
    const Run run = runWorkbench({"--cameras", "many"});
    QCOMPARE(run.status, 2);
    QVERIFY(run.errors.startsWith("--cameras wants a number"));
}

void TestTour::refusesAFolderThatCannotBeWritten()
{
    QTemporaryDir dir;
    QFile file(dir.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const Run run = runWorkbench({"--tour", dir.filePath("file/tour")});
    QCOMPARE(run.status, 2);
    QVERIFY(run.errors.contains("cannot be written to"));
}

void TestTour::answersTheDialogThatASlowOneOpens()
{
    QDialog slow;
    QStringList answered;
    QTimer::singleShot(0, &slow, [&] {
        const int answers = TourHand::answerDialogs(
            [&] {
                QTest::qWait(400);
                QDialog opened(&slow);
                opened.setObjectName("opened");
                opened.exec();
            },
            {[&](QDialog *dialog) { answered.append(dialog->objectName()); }});
        answered.append(QString::number(answers));
        slow.accept();
    });
    QCOMPARE(slow.exec(), int(QDialog::Accepted));
    QCOMPARE(answered, QStringList({"opened", "1"}));
}

void TestTour::countsWhatWasNotSeen()
{
    QTemporaryDir dir;
    TourReport report(dir.filePath("tour"));
    QVERIFY(report.isWritable());
    report.beginStep("lock", "A step");
    report.check(true, "first");
    report.check(false, "second");
    report.finish();
    QCOMPARE(report.failures(), 1);
    QCOMPARE(readLines(dir.filePath("tour/transcript.txt")),
             QStringList({"01-lock: A step", "  seen    first", "  FAILED  second",
                          "1 steps, 2 checks, 1 failed"}));
}

void TestTour::tellsWhatWasSeenInstead()
{
    QTemporaryDir dir;
    TourReport report(dir.path());
    report.beginStep("lock", "A step");
    report.compare("1/1000 s", "1/1000 s", "shutter");
    QCOMPARE(report.failures(), 0);
    report.compare("1/1000 s", "1/2000 s", "shutter");
    QCOMPARE(report.failures(), 1);
    QCOMPARE(readLines(dir.filePath("transcript.txt")).last(),
             QString("  FAILED  shutter: \"1/2000 s\", but it is \"1/1000 s\""));
}

void TestTour::refusesABlankPicture()
{
    QTemporaryDir dir;
    TourReport report(dir.path());
    report.beginStep("lock", "A step");
    report.addPicture(colourful());
    QCOMPARE(report.failures(), 0);
    QVERIFY(QFile::exists(dir.filePath("01-lock.png")));

    QPixmap blank(60, 60);
    blank.fill(Qt::white);
    report.addPicture(blank, "-again");
    QCOMPARE(report.failures(), 1);
    report.addPicture(QPixmap(), "-null");
    QCOMPARE(report.failures(), 2);
}

void TestTour::removesThePicturesOfAnEarlierRun()
{
    QTemporaryDir dir;
    for (const char *name : {"07-old-step.png", "holiday.png", "07-notes.txt"}) {
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    const TourReport report(dir.path());
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files),
             QStringList({"07-notes.txt", "holiday.png", "transcript.txt"}));
}

void TestTour::writesPicturesWhoseOrderIsNotThatOfTheirText()
{
    QTemporaryDir dir;
    QVERIFY(TourPictures::write(dir.path()));
    QStringList names = QDir(dir.path()).entryList(QDir::Files);
    QCOMPARE(names.size(), 12);
    names.sort();
    QCOMPARE(names.mid(0, 4),
             QStringList({"shot 1.png", "shot 10.png", "shot 11.png", "shot 12.jpg"}));
    QCOMPARE(QImage(dir.filePath("shot 2.png")).pixelColor(160, 120).name(),
             TourPictures::colour(1).name());
}

int main(int argc, char **argv)
{
    TestTour test;
    return runTest(argc, argv, test);
}

#include "test_tour.moc"
