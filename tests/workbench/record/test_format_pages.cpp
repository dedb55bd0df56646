#include "bridge/page/GUI_WebView.h"
#include "standin/documents/DocumentOverlay.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/tour/PageHand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QPainter>

using namespace PageHand;

/// The pages that set how shutter speed, record rate, frame number and recording time are written.
class TestFormatPages : public TestBase
{
    Q_OBJECT

private slots:
    void exampleFollowsTheLists_data();
    void exampleFollowsTheLists();
    void exampleFollowsTheBox_data();
    void exampleFollowsTheBox();
    void listIsWorkedByTheMouse();
    void offersAUnitWithATimeOnly();
    void takesAnUnknownNumberForTheFirstChoice();
    void okKeepsWhatWasStored_data();
    void okKeepsWhatWasStored();
    void everyOtherWayCancelsOnce_data();
    void everyOtherWayCancelsOnce();
    void escapeLeavesItOpen_data();
    void escapeLeavesItOpen();
    void cancelThatFailsCanBeTriedAgain();
    void viewsFollowTheRecordingTime();
    void picturesFollowTheDialog_data();
    void picturesFollowTheDialog();
    void tellsWhatCouldNotBeStored_data();
    void tellsWhatCouldNotBeStored();
    void isTranslated();
    void goesOnWithoutScrolling_data();
    void goesOnWithoutScrolling();
};

namespace {

const char *const ShutterSpeed = "display/ShutterSpeed";
const char *const ShutterSpeedUnit = "display/ShutterSpeedUnit";
const char *const ShutterSpeedDelimiter = "display/shutterSpeedInsertDelimiter";
const char *const RecordRateDelimiter = "display/recordRateInsertDelimiter";
const char *const FrameDelimiter = "display/frameInsertDelimiter";
const char *const RecTimeUnit = "info/RecTimeUnit";

/// A page, one of its controls, and the setting behind it.
struct Control
{
    const char *page;
    const char *id;
    const char *key;
    QVariant before;
    QVariant after; ///< one choice on
};

const QVector<Control> &controls()
{
    static const QVector<Control> all = {
        {"shutterSpeed", "format", ShutterSpeed, 1, 2},
        {"shutterSpeed", "unit", ShutterSpeedUnit, 0, 1},
        {"shutterSpeed", "delimiter", ShutterSpeedDelimiter, true, false},
        {"recordRate", "delimiter", RecordRateDelimiter, true, false},
        {"frameNumber", "delimiter", FrameDelimiter, true, false},
        {"recordingTime", "unit", RecTimeUnit, 0, 1},
    };
    return all;
}

// As a user without a mouse does.
bool change(GUI_WebView *view, const Control &control)
{
    if (control.after.type() == QVariant::Bool)
        return goTo(view, control.id) && press(view, Qt::Key_Space);
    return goTo(view, control.id) && press(view, Qt::Key_Down);
}

bool isBefore(PageVisit &visit, const Control &control)
{
    return visit.setting(control.key) == control.before;
}

void prepare(PageVisit &visit)
{
    for (const Control &control : controls())
        visit.host.settings().setValue(control.key, control.before);
}

void addControls()
{
    QTest::addColumn<int>("number");
    for (int i = 0; i < controls().size(); ++i)
        QTest::addRow("%s, %s", controls().at(i).page, controls().at(i).id) << i;
}

}

void TestFormatPages::exampleFollowsTheLists_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("format");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("examples");
    QTest::newRow("form of the shutter speed")
        << "shutterSpeed"
        << "format" << ShutterSpeed << 0
        << QStringList({"Fraction of a second", "Exposure time", "Fraction and exposure time"})
        << QStringList({"1/1000 sec", "1 msec", "1/1000 sec (1 msec)"});
    QTest::newRow("unit of the exposure time")
        << "shutterSpeed"
        << "unit" << ShutterSpeedUnit << 1
        << QStringList({"Automatic", "sec", "msec", "usec", "nsec"})
        << QStringList({"1 msec", "0.001 sec", "1 msec", "1000 usec", "1000000 nsec"});
    QTest::newRow("unit of the recording time")
        << "recordingTime"
        << "unit" << RecTimeUnit << 0
        << QStringList({"sec", "msec", "usec", "min:sec", "hour:min:sec"})
        << QStringList(
               {"3725.25 sec", "3725250 msec", "3725250000 usec", "62:05.250", "01:02:05.250"});
}

void TestFormatPages::exampleFollowsTheLists()
{
    QFETCH(QString, page);
    QFETCH(QString, id);
    QFETCH(QString, key);
    QFETCH(int, format);
    QFETCH(QStringList, texts);
    QFETCH(QStringList, examples);
    PageVisit visit;
    visit.host.settings().setValue(ShutterSpeed, format);
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(read(view, "Array.from(document.querySelectorAll('#" + id +
                                " option')).map(function (o) { return o.textContent; })")
                     .toStringList(),
                 texts);
        QCOMPARE(text(view, "#example"), examples.first());
        for (int i = 1; i < texts.size(); ++i) {
            QVERIFY(chooseByKeys(view, id, i));
            QTRY_COMPARE(text(view, "#example"), examples.at(i));
            QCOMPARE(visit.setting(key), QVariant(i)); // at once
        }
        QVERIFY(chooseByKeys(view, id, 0));
        QTRY_COMPARE(text(view, "#example"), examples.first());
        QCOMPARE(visit.setting(key), QVariant(0));
    }));
}

void TestFormatPages::exampleFollowsTheBox_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("without");
    QTest::addColumn<QString>("with");
    const auto row = [](const char *page, const char *key, const char *without, const char *with) {
        QTest::newRow(page) << page << key << without << with;
    };
    row("shutterSpeed", ShutterSpeedDelimiter, "1/1000 sec", "1/1,000 sec");
    row("recordRate", RecordRateDelimiter, "12500 fps", "12,500 fps");
    row("frameNumber", FrameDelimiter, "1234567", "1,234,567");
}

void TestFormatPages::exampleFollowsTheBox()
{
    QFETCH(QString, page);
    QFETCH(QString, key);
    QFETCH(QString, without);
    QFETCH(QString, with);
    PageVisit visit;
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "delimiter", "checked"), QVariant(false));
        QCOMPARE(text(view, "#example"), without);
        QVERIFY(click(view, "#delimiter"));
        QTRY_COMPARE(text(view, "#example"), with);
        QCOMPARE(visit.setting(key), QVariant(true));
        QVERIFY(press(view, Qt::Key_Space)); // it has the focus
        QTRY_COMPARE(text(view, "#example"), without);
        QCOMPARE(visit.setting(key), QVariant(false));
    }));
}

void TestFormatPages::listIsWorkedByTheMouse()
{
    PageVisit visit;
    LogCapture log; // the platform is without what makes a list pop up
    QVERIFY(visit.open("recordingTime", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#unit"));
        auto *rows = qobject_cast<QAbstractItemView *>(
            QApplication::activePopupWidget()
                ? QApplication::activePopupWidget()->findChild<QAbstractItemView *>()
                : nullptr);
        QVERIFY(rows);
        const QRect row = rows->visualRect(rows->model()->index(3, 0));
        QTest::mouseMove(rows->viewport(), row.center());
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
        QTRY_COMPARE(text(view, "#example"), QString("62:05.250"));
        QCOMPARE(visit.setting(RecTimeUnit), QVariant(3));
    }));
}

void TestFormatPages::offersAUnitWithATimeOnly()
{
    PageVisit visit;
    QVERIFY(visit.open("shutterSpeed", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(!isEnabled(view, "#unit"));
        for (int format : {1, 2}) {
            QVERIFY(chooseByKeys(view, "format", format));
            QTRY_VERIFY(isEnabled(view, "#unit"));
        }
        QVERIFY(chooseByKeys(view, "format", 0));
        QTRY_VERIFY(!isEnabled(view, "#unit"));
    }));
}

void TestFormatPages::takesAnUnknownNumberForTheFirstChoice()
{
    PageVisit visit;
    visit.host.settings().setValue(RecTimeUnit, 77);
    QVERIFY(visit.open("recordingTime", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "unit"), QVariant("0"));
        QCOMPARE(text(view, "#example"), QString("3725.25 sec"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.setting(RecTimeUnit), QVariant(77)); // nobody has chosen another
}

void TestFormatPages::okKeepsWhatWasStored_data()
{
    addControls();
}

void TestFormatPages::okKeepsWhatWasStored()
{
    QFETCH(int, number);
    const Control control = controls().at(number);
    PageVisit visit;
    prepare(visit);
    int result = -1;
    QVERIFY(visit.open(control.page, [&](QDialog &dialog, GUI_WebView *view) {
        connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        QVERIFY(change(view, control));
        QVERIFY(goTo(view, "ok"));
        QVERIFY(press(view, Qt::Key_Return));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(visit.setting(control.key), control.after);
    QCOMPARE(visit.stored().size(), 1);
    for (const Control &other : controls())
        QVERIFY2(other.key == control.key || isBefore(visit, other), other.key);
}

void TestFormatPages::everyOtherWayCancelsOnce_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("way");
    for (int i = 0; i < controls().size(); ++i) {
        for (const char *way : {"button", "key", "title bar", "program"})
            QTest::addRow("%s, %s, %s", controls().at(i).page, controls().at(i).id, way)
                << i << way;
    }
}

// What was there when the dialog was opened comes back, whoever has changed it since.
void TestFormatPages::everyOtherWayCancelsOnce()
{
    QFETCH(int, number);
    QFETCH(QString, way);
    const Control control = controls().at(number);
    PageVisit visit;
    prepare(visit);
    int result = -1;
    QStringList stored;
    QVERIFY(visit.open(control.page, [&](QDialog &dialog, GUI_WebView *view) {
        connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        QVERIFY(change(view, control));
        QCOMPARE(visit.setting(control.key), control.after);
        for (const Control &other : controls())
            visit.host.settings().setValue(other.key, other.after);
        visit.host.clearJournal();
        if (way == "button") {
            QVERIFY(click(view, "#cancel"));
        } else if (way == "key") {
            QVERIFY(goTo(view, "cancel"));
            QVERIFY(press(view, Qt::Key_Space));
        } else if (way == "title bar") {
            QVERIFY(dialog.close());
        } else {
            dialog.reject();
        }
    }));
    QCOMPARE(result, int(QDialog::Rejected));
    QStringList expected;
    for (const Control &other : controls()) {
        const bool isOfThePage = qstrcmp(other.page, control.page) == 0;
        QCOMPARE(visit.setting(other.key), isOfThePage ? other.before : other.after);
        if (isOfThePage) {
            expected.append(QString("setPref%1(\"%2\", %3)")
                                .arg(other.before.type() == QVariant::Bool ? "Bool" : "Int",
                                     other.key, other.before.toString()));
        }
    }
    QCOMPARE(visit.stored(), expected);
}

void TestFormatPages::escapeLeavesItOpen_data()
{
    addControls();
}

void TestFormatPages::escapeLeavesItOpen()
{
    QFETCH(int, number);
    const Control control = controls().at(number);
    PageVisit visit;
    prepare(visit);
    QVERIFY(visit.open(control.page, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(change(view, control));
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(dialog.isVisible());
        QCOMPARE(visit.setting(control.key), control.after);
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.setting(control.key), control.after);
}

// The host has told the failure, and the dialog stays for another try.
void TestFormatPages::cancelThatFailsCanBeTriedAgain()
{
    for (const bool byTitleBar : {false, true}) {
        PageVisit visit;
        QVERIFY(visit.open("frameNumber", [&](QDialog &dialog, GUI_WebView *view) {
            QVERIFY(click(view, "#delimiter"));
            visit.host.failOn("setPrefBool", 1);
            QVERIFY(click(view, "#cancel"));
            QVERIFY(dialog.isVisible());
            QCOMPARE(visit.host.handledErrors(), QStringList("setPrefBool failed"));
            QCOMPARE(visit.setting(FrameDelimiter), QVariant(true));
            if (byTitleBar)
                QVERIFY(dialog.close());
            else
                QVERIFY(click(view, "#cancel"));
            QVERIFY(!dialog.isVisible());
        }));
        QCOMPARE(visit.setting(FrameDelimiter), QVariant(false));
    }
}

void TestFormatPages::viewsFollowTheRecordingTime()
{
    PageVisit visit;
    QVERIFY(visit.open("recordingTime", [&](QDialog &, GUI_WebView *view) {
        visit.host.clearJournal();
        QVERIFY(chooseByKeys(view, "unit", 1));
        QCOMPARE(visit.host.commands(),
                 QStringList({"setPrefInt(\"info/RecTimeUnit\", 1)", "refreshDocumentInfo(true)"}));
        visit.host.clearJournal();
        QVERIFY(click(view, "#cancel"));
    }));
    QCOMPARE(visit.host.commands().mid(0, 2),
             QStringList({"setPrefInt(\"info/RecTimeUnit\", 0)", "refreshDocumentInfo(true)"}));
}

void TestFormatPages::picturesFollowTheDialog_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("number");
    QTest::newRow("OK") << "ok"
                        << "1,500";
    QTest::newRow("Cancel") << "cancel"
                            << "1500";
}

void TestFormatPages::picturesFollowTheDialog()
{
    QFETCH(QString, end);
    QFETCH(QString, number);
    PageVisit visit;
    StandInCamera::Description description;
    description.partitions = {{1, "A", 2000, 1000}};
    StandInCamera *camera = visit.host.addCamera(description);
    visit.host.settings().setValue("info/display", "FrameNumber:true");
    visit.host.setMode(StandInHost::Mode::Memory);
    const auto seen = [camera] {
        QImage picture(400, 300, QImage::Format_RGB32);
        QPainter painter(&picture);
        camera->overlay().paint(painter, picture.rect(), 1499);
        return camera->overlay().shownTexts().value(0).section(' ', -1);
    };
    QCOMPARE(seen(), QString("1500"));
    QVERIFY(visit.open("frameNumber", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(seen(), QString("1500")); // drawn since the page has loaded
        QVERIFY(click(view, "#delimiter"));
        if (end == "cancel") {
            visit.host.updateUI(63, true); // something else draws them anew meanwhile
            QCOMPARE(seen(), QString("1,500"));
        }
        QVERIFY(click(view, '#' + end));
    }));
    QCOMPARE(seen(), number);
}

void TestFormatPages::tellsWhatCouldNotBeStored_data()
{
    addControls();
}

void TestFormatPages::tellsWhatCouldNotBeStored()
{
    QFETCH(int, number);
    const Control control = controls().at(number);
    PageVisit visit;
    prepare(visit);
    QVERIFY(visit.open(control.page, [&](QDialog &, GUI_WebView *view) {
        visit.host.failOn(control.before.type() == QVariant::Bool ? "setPrefBool" : "setPrefInt",
                          1);
        QVERIFY(change(view, control));
        QTRY_COMPARE(text(view, "#state"), QString("The setting could not be stored."));
        QVERIFY(isShown(view, "#state") && !isShown(view, "#example"));
        QVERIFY(isBefore(visit, control));
        const char *property = control.before.type() == QVariant::Bool ? "checked" : "value";
        QCOMPARE(shownIn(view, control.id, property).toString(), control.before.toString());
        QVERIFY(change(view, control)); // the same again
        QTRY_VERIFY(!isShown(view, "#state") && isShown(view, "#example"));
        QCOMPARE(visit.setting(control.key), control.after);
    }));
    QCOMPARE(visit.host.handledErrors().size(), 1);
}

void TestFormatPages::isTranslated()
{
    PageVisit visit;
    visit.host.state().translations.insert("hour:min:sec", "Std:min:s");
    visit.host.state().translations.insert("Cancel", "<b>Abbruch</b>");
    QVERIFY(visit.open("recordingTime", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#unit option:last-child"), QString("Std:min:s"));
        QCOMPARE(text(view, "#cancel"), QString("<b>Abbruch</b>")); // as it stands
    }));
}

void TestFormatPages::goesOnWithoutScrolling_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QSize>("size");
    QTest::newRow("shutter speed") << "shutterSpeed" << QSize(300, 150);
    QTest::newRow("record rate") << "recordRate" << QSize(300, 100);
    QTest::newRow("frame number") << "frameNumber" << QSize(300, 100);
    QTest::newRow("recording time") << "recordingTime" << QSize(330, 110);
}

// All of it has its place, also the longest example and a failure.
void TestFormatPages::goesOnWithoutScrolling()
{
    QFETCH(QString, page);
    QFETCH(QSize, size);
    PageVisit visit;
    visit.host.settings().setValue(ShutterSpeed, 2);
    visit.host.settings().setValue(ShutterSpeedUnit, 4);
    visit.host.settings().setValue(ShutterSpeedDelimiter, true);
    QVERIFY(visit.open(page, [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(dialog.size(), size);
        const char *const fits =
            "['.content', '#example', '#state', '.buttons'].every(function (part) {"
            "    var element = document.querySelector(part);"
            "    var box = element.getBoundingClientRect();"
            "    return element.scrollHeight <= element.clientHeight &&"
            "        element.scrollWidth <= element.clientWidth && box.top >= 0 &&"
            "        box.right <= innerWidth && box.bottom <= innerHeight;"
            "}) && document.documentElement.scrollHeight <= innerHeight";
        QVERIFY(read(view, fits).toBool());
        read(view, "Page.get('example').hidden = true;"
                   "Page.tellStored('state', false)");
        QVERIFY(read(view, fits).toBool());
    }));
}

int main(int argc, char **argv)
{
    TestFormatPages test;
    return runTest(argc, argv, test);
}

#include "test_format_pages.moc"
