#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/save/support/SaveVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>
#include <QDir>

using namespace PageHand;

namespace {

const QString ListKey = QStringLiteral("export/multipathlist");
const QString DeviceKey = QStringLiteral("export/multipathdevicelist");

/// Devices "First" and "Second", and the page with its destinations open.
struct DestinationVisit : SaveVisit
{
    DestinationVisit()
    {
        host.camera(1)->state().deviceName = "First";
        host.camera(2)->state().deviceName = "Second";
        set("export/singlepath", false);
    }

    bool open(const std::function<void(QDialog &, GUI_WebView *)> &body)
    {
        return SaveVisit::open("exportdialog", [&](QDialog &dialog, GUI_WebView *view) {
            QVERIFY(click(view, "#editDestinations"));
            body(dialog, view);
        });
    }

    /// Opens the page and hands it on once it has no more to ask, so that the next question is that
    /// of a click.
    bool openQuiet(const std::function<void(QDialog &, GUI_WebView *)> &body)
    {
        return SaveVisit::open("exportdialog", [&](QDialog &dialog, GUI_WebView *view) {
            for (int before = -1; before != host.callCount(); QTest::qWait(100))
                before = host.callCount();
            body(dialog, view);
        });
    }

    QString list() { return setting(ListKey).toString(); }
    QString devices() { return setting(DeviceKey).toString(); }
};

QString focused(GUI_WebView *view)
{
    return read(view, "document.activeElement.id").toString();
}

QString reason(GUI_WebView *view)
{
    return isShown(view, "#destinationReason") ? text(view, "#destinationReason") : QString();
}

// In the field that has the focus.
bool write(GUI_WebView *view, const QString &text)
{
    return press(view, Qt::Key_A, Qt::ControlModifier) && type(view, text);
}

}

/// The table of destinations that devices can have.
class TestSaveDestinations : public TestBase
{
    Q_OBJECT

private slots:
    void switchesThemOn();
    void fillsTheTableByKeys();
    void goesFromRowToRow();
    void removesARow();
    void assignsADevice();
    void keepsAssignmentsOfOtherDevices();
    void renamesInTheAssignments();
    void refuses_data();
    void refuses();
    void choosesAFolder();
    void thePathFollows();
    void escapeClosesTheTableAlone();
    void tabStaysInTheTable();
    void tellsWhatIsEmpty();
    void writesNothingThatItCouldNotRead();
    void tellsThatTheDevicesCouldNotBeRead();
};

void TestSaveDestinations::switchesThemOn()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "useDestinations", "checked"), QVariant(false));
        QVERIFY(click(view, "#useDestinations"));
        QCOMPARE(visit.setting("export/singlepath"), QVariant(false));
    }));
}

void TestSaveDestinations::fillsTheTableByKeys()
{
    DestinationVisit visit;
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(focused(view), QString("addDestination"));
        QVERIFY(press(view, Qt::Key_Return));
        QCOMPARE(focused(view), QString("destination-name-0"));
        QVERIFY(type(view, "Fast"));
        QVERIFY(press(view, Qt::Key_Tab));
        QVERIFY(type(view, "/fast"));
        QVERIFY(press(view, Qt::Key_Return)); // behind the last row
        QCOMPARE(focused(view), QString("destination-name-1"));
        QVERIFY(type(view, "Big"));
        QVERIFY(press(view, Qt::Key_Tab));
        QVERIFY(type(view, "/big"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(visit.list(), QString("Fast|/fast?Big|/big"));
    }));
}

void TestSaveDestinations::goesFromRowToRow()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a?B|/b");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(focused(view), QString("destination-name-0"));
        QVERIFY(press(view, Qt::Key_Tab));
        QVERIFY(press(view, Qt::Key_Down));
        QCOMPARE(focused(view), QString("destination-path-1"));
        QVERIFY(write(view, "/c"));
        QVERIFY(press(view, Qt::Key_Up));
        QCOMPARE(focused(view), QString("destination-path-0"));
        QCOMPARE(visit.list(), QString("A|/a?B|/c"));
        QVERIFY(press(view, Qt::Key_Return));
        QCOMPARE(focused(view), QString("destination-path-1"));
    }));
}

void TestSaveDestinations::removesARow()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a?B|/b?C|/c");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(press(view, Qt::Key_Down));
        QVERIFY(press(view, Qt::Key_Delete, Qt::ControlModifier));
        QCOMPARE(visit.list(), QString("A|/a?C|/c"));
        QCOMPARE(focused(view), QString("destination-name-1"));
        QVERIFY(click(view, "#destination-remove-0"));
        QCOMPARE(visit.list(), QString("C|/c"));
        QVERIFY(click(view, "#destination-remove-0"));
        QCOMPARE(visit.list(), QString());
        QCOMPARE(focused(view), QString("addDestination"));
    }));
}

void TestSaveDestinations::assignsADevice()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a?B|/b");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "device-1").toString(), QString("A")); // the first one
        QVERIFY(chooseByKeys(view, "device-1", 1));
        QCOMPARE(visit.devices(), QString("Second|B"));
        QCOMPARE(text(view, "#devices .device:nth-child(2) .facts"), QString("/b"));
        QVERIFY(chooseByKeys(view, "device-0", 1));
        QCOMPARE(visit.devices(), QString("Second|B?First|B"));
        QVERIFY(chooseByKeys(view, "device-1", 0));
        QCOMPARE(visit.devices(), QString("First|B?Second|A"));
    }));
}

void TestSaveDestinations::keepsAssignmentsOfOtherDevices()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a?B|/b");
    visit.set(DeviceKey, "Away|A");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "device-0", 1));
        QCOMPARE(visit.devices(), QString("Away|A?First|B"));
    }));
}

void TestSaveDestinations::renamesInTheAssignments()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a?B|/b");
    visit.set(DeviceKey, "First|A?Second|B");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(write(view, "Fast"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(visit.list(), QString("Fast|/a?B|/b"));
        QCOMPARE(visit.devices(), QString("First|Fast?Second|B"));
        QCOMPARE(shownIn(view, "device-0").toString(), QString("Fast"));
    }));
}

void TestSaveDestinations::refuses_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("told");
    QTest::newRow("question mark in a name") << "destination-name-1"
                                             << "a?b"
                                             << "A name cannot hold ?";
    QTest::newRow("bar in a name") << "destination-name-1"
                                   << "a|b"
                                   << "A name cannot hold |";
    QTest::newRow("question mark in a folder") << "destination-path-1"
                                               << "/a?b"
                                               << "A name cannot hold ?";
    QTest::newRow("bar in a folder") << "destination-path-1"
                                     << "/a|b"
                                     << "A name cannot hold |";
    QTest::newRow("name of another") << "destination-name-1"
                                     << "A"
                                     << "Another destination has this name.";
    QTest::newRow("blank name") << "destination-name-1"
                                << " "
                                << "A destination needs a name.";
}

void TestSaveDestinations::refuses()
{
    QFETCH(QString, id);
    QFETCH(QString, typed);
    QFETCH(QString, told);
    DestinationVisit visit;
    visit.set(ListKey, "A|/a?B|/b");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, id, typed));
        QCOMPARE(reason(view), told);
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(visit.list(), QString("A|/a?B|/b"));
        QVERIFY(typeInto(view, id, "good"));
        QCOMPARE(reason(view), QString());
        QVERIFY(press(view, Qt::Key_Tab));
        QVERIFY(visit.list().contains("good"));
    }));
}

void TestSaveDestinations::choosesAFolder()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a");
    FileChoice::setAnswer([&](const FileChoice::Question &question) {
        return question.start == "/a" ? QStringList(visit.folder.path()) : QStringList();
    });
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#destination-choose-0"));
        QCOMPARE(visit.list(), "A|" + visit.base());
    }));
    FileChoice::setAnswer(nullptr);
}

void TestSaveDestinations::thePathFollows()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a?B|/b");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#closeDestinations"));
        QVERIFY(click(view, "#target-2-1"));
        QCOMPARE(text(view, "#path .base"), visit.base()); // not assigned
        QVERIFY(click(view, "#editDestinations"));
        QVERIFY(chooseByKeys(view, "device-1", 1));
        QVERIFY(click(view, "#closeDestinations"));
        QTRY_COMPARE(text(view, "#path .base"), QString("/b/"));
    }));
}

void TestSaveDestinations::escapeClosesTheTableAlone()
{
    DestinationVisit visit;
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(isShown(view, "#destinationPanel"));
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(!isShown(view, "#destinationPanel"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(focused(view), QString("editDestinations"));
    }));
}

void TestSaveDestinations::tabStaysInTheTable()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(focused(view), QString("destination-name-0"));
        QVERIFY(press(view, Qt::Key_Tab, Qt::ShiftModifier));
        QCOMPARE(focused(view), QString("closeDestinations"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(focused(view), QString("destination-name-0"));
    }));
}

void TestSaveDestinations::tellsWhatIsEmpty()
{
    DestinationVisit visit;
    visit.host.removeDocument(1);
    visit.host.removeDocument(2);
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#noDestinations"),
                 QString("There is no destination yet: all devices save to the folder."));
        QCOMPARE(text(view, "#noDevices"), QString("No device is connected."));
    }));
}

void TestSaveDestinations::writesNothingThatItCouldNotRead()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a?B|/b");
    visit.set(DeviceKey, "First|B");
    QVERIFY(visit.openQuiet([&](QDialog &dialog, GUI_WebView *view) {
        visit.host.failOn("getPrefString", 1);
        QVERIFY(click(view, "#editDestinations"));
        QCOMPARE(visit.host.handledErrors(), QStringList("getPrefString failed"));
        QCOMPARE(text(view, "#noDestinations"), QString("The destinations could not be read."));
        QVERIFY(!isEnabled(view, "#addDestination"));
        QCOMPARE(count(view, "#devices .device"), 0);
        QVERIFY(!isShown(view, "#noDevices"));
        QCOMPARE(focused(view), QString("closeDestinations"));
        QVERIFY(press(view, Qt::Key_Tab)); // there is nowhere else to go
        QCOMPARE(focused(view), QString("closeDestinations"));
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(!isShown(view, "#destinationPanel"));
        QVERIFY(dialog.isVisible());
        QVERIFY(click(view, "#editDestinations"));
        QVERIFY(!isShown(view, "#noDestinations"));
        QVERIFY(isEnabled(view, "#addDestination"));
        QCOMPARE(shownIn(view, "destination-path-0").toString(), QString("/a"));
        QCOMPARE(shownIn(view, "destination-path-1").toString(), QString("/b"));
        QCOMPARE(shownIn(view, "device-0").toString(), QString("B"));
    }));
    QCOMPARE(visit.stored(), QStringList());
    QCOMPARE(visit.list(), QString("A|/a?B|/b"));
}

void TestSaveDestinations::tellsThatTheDevicesCouldNotBeRead()
{
    DestinationVisit visit;
    visit.set(ListKey, "A|/a");
    QVERIFY(visit.openQuiet([&](QDialog &, GUI_WebView *view) {
        visit.host.failOn("deviceName", 1);
        QVERIFY(click(view, "#editDestinations"));
        QCOMPARE(text(view, "#noDevices"), QString("The devices could not be read."));
        QCOMPARE(focused(view), QString("destination-name-0"));
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(click(view, "#editDestinations"));
        QCOMPARE(count(view, "#devices .device"), 2);
    }));
}

int main(int argc, char **argv)
{
    TestSaveDestinations test;
    return runTest(argc, argv, test);
}

#include "test_save_destinations.moc"
