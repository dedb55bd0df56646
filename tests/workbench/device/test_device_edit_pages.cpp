#include "bridge/page/GUI_WebView.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>
#include <QFile>
#include <QTemporaryDir>

using namespace PageHand;

/// The pages that add a camera or a dummy, and edit the current one.
class TestDeviceEditPages : public TestBase
{
    Q_OBJECT

private slots:
    void addBeginsWithTheDefaults();
    void addSaysWhatIsWrong_data();
    void addSaysWhatIsWrong();
    void addWarnsOfAnAddressThatNoCameraHas();
    void addTakesACamera();
    void dummyHasTheFirstFreeAddress();
    void namesAreCompleted();
    void namesAreTakenByTheMouse();
    void escapePutsTheNamesAway();
    void manyNamesAreCutShort();
    void namesStayInTheWindow();
    void withoutNamesNothingIsCompleted_data();
    void withoutNamesNothingIsCompleted();
    void failedAddStaysOpen();
    void unreadableDefaultsAreTold();
    void editShowsTheCamera();
    void editNamesTheCamera();
    void editChoosesTheConnectionAtOnce();
    void editSaysWhatIsWrong_data();
    void editSaysWhatIsWrong();
    void editLeavesTheNetworkOf_data();
    void editLeavesTheNetworkOf();
    void editWithoutACamera();
    void failedEditStaysOpen();
    void cancelChangesNothing_data();
    void cancelChangesNothing();
    void preferencesNameTheFile();
};

namespace {

/// A file of camera names, and the settings that complete names with it.
struct NameFile
{
    NameFile(PageVisit &visit, const QByteArray &lines)
    {
        QFile file(folder.filePath("names.csv"));
        if (!file.open(QIODevice::WriteOnly) || file.write(lines) != lines.size())
            qFatal("%s cannot be written", qPrintable(file.fileName()));
        visit.host.settings().setValue("usercustom/cameraNameFilePath", file.fileName());
        visit.host.settings().setValue("usercustom/completeCameraNames", true);
    }

    QTemporaryDir folder;
};

// What stands below the field, the categories in brackets, the row that Enter takes with a star.
QString offered(GUI_WebView *view)
{
    return read(view, "nameList.hidden ? '' : Array.from(nameList.children).map(function (row) {"
                      "    return row.className === 'category' ? '[' + row.textContent + ']' :"
                      "        row.textContent +"
                      "        (row.getAttribute('aria-selected') === 'true' ? '*' : '');"
                      "}).join(' ')")
        .toString();
}

StandInCamera *addCamera(PageVisit &visit)
{
    StandInCamera *camera = visit.host.addCamera();
    camera->state().editData.network = {"192.168.0.10", "255.255.255.0", "192.168.0.254"};
    return camera;
}

bool isOpen(const QDialog &dialog)
{
    return dialog.isVisible();
}

}

void TestDeviceEditPages::addBeginsWithTheDefaults()
{
    PageVisit visit;
    addCamera(visit);
    QVERIFY(visit.open("addDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "name").toString(), QString("Camera 2"));
        QCOMPARE(shownIn(view, "address").toString(), QString("192.168.0.10"));
        QCOMPARE(shownIn(view, "dummy", "checked"), QVariant(false));
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("name"));
        QVERIFY(isEnabled(view, "#ok"));
        QCOMPARE(text(view, "#state"), QString());
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(isOpen(dialog));
    }));
    QCOMPARE(visit.host.cameraCount(), 1);
}

void TestDeviceEditPages::addSaysWhatIsWrong_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("said");
    const char *letter = "A name cannot hold this character: ";
    for (const char *each : {":", "/", "\\", "*", "?", "|", "\"", "<", ">", "%"})
        QTest::newRow(each) << "name" << QString("Le") + each + "ft" << QString(letter) + each;
    QTest::newRow("no name") << "name"
                             << ""
                             << "The camera needs a name.";
    QTest::newRow("blank name") << "name"
                                << "  "
                                << "The camera needs a name.";
    QTest::newRow("no address") << "address"
                                << ""
                                << "This is no address:";
    QTest::newRow("three numbers") << "address"
                                   << "1.2.3"
                                   << "This is no address: 1.2.3";
    QTest::newRow("a word") << "address"
                            << "camera"
                            << "This is no address: camera";
    QTest::newRow("in front") << "address"
                              << "x1.2.3.4"
                              << "This is no address: x1.2.3.4";
}

void TestDeviceEditPages::addSaysWhatIsWrong()
{
    QFETCH(QString, id);
    QFETCH(QString, typed);
    QFETCH(QString, said);
    PageVisit visit;
    QVERIFY(visit.open("addDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, id, typed));
        QTRY_COMPARE(text(view, "#state"), said);
        QVERIFY(!isEnabled(view, "#ok"));
        QVERIFY(shownIn(view, id, "classList.contains('wrong')").toBool());
        QVERIFY(press(view, Qt::Key_Return));
        QVERIFY(isOpen(dialog));
        QVERIFY(typeInto(view, id, id == "name" ? "Left" : "10.0.0.1"));
        QTRY_VERIFY(isEnabled(view, "#ok"));
        QCOMPARE(text(view, "#state"), QString());
        QVERIFY(!shownIn(view, id, "classList.contains('wrong')").toBool());
    }));
    QCOMPARE(visit.host.cameraCount(), 0);
}

void TestDeviceEditPages::addWarnsOfAnAddressThatNoCameraHas()
{
    PageVisit visit;
    QVERIFY(visit.open("addDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "address", "1.2.3.4.5"));
        QTRY_COMPARE(text(view, "#state"), QString("No camera can be found under 1.2.3.4.5."));
        QVERIFY(isEnabled(view, "#ok"));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!isOpen(dialog));
    }));
    QCOMPARE(visit.host.journal().filter("addDevice"),
             QStringList("addDevice(\"Camera 1\", \"1.2.3.4.5\", false)"));
}

void TestDeviceEditPages::addTakesACamera()
{
    PageVisit visit;
    QVERIFY(visit.open("addDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "name", "Left"));
        QVERIFY(goTo(view, "address"));
        QVERIFY(typeInto(view, "address", "10.0.0.1"));
        QVERIFY(press(view, Qt::Key_Return));
        QVERIFY(!isOpen(dialog));
    }));
    QCOMPARE(visit.host.journal().filter("addDevice"),
             QStringList("addDevice(\"Left\", \"10.0.0.1\", false)"));
}

void TestDeviceEditPages::dummyHasTheFirstFreeAddress()
{
    PageVisit visit;
    for (const char *address : {"999.999.999.1", "999.999.999.3"})
        visit.host.addDevice("Dummy", address, true);
    QVERIFY(visit.open("addDevice", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "address", "10.0.0.1"));
        QVERIFY(goTo(view, "dummy"));
        QVERIFY(press(view, Qt::Key_Space));
        QTRY_COMPARE(shownIn(view, "address").toString(), QString("999.999.999.2"));
        QCOMPARE(shownIn(view, "address", "readOnly"), QVariant(true));
        QCOMPARE(text(view, "#state"), QString());
        QVERIFY(press(view, Qt::Key_Space)); // what was typed comes back
        QTRY_COMPARE(shownIn(view, "address").toString(), QString("10.0.0.1"));
        QVERIFY(press(view, Qt::Key_Space));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.host.journal().filter("addDevice"),
             QStringList("addDevice(\"Camera 1\", \"999.999.999.2\", true)"));
}

void TestDeviceEditPages::namesAreCompleted()
{
    PageVisit visit;
    LogCapture log; // the file that was found
    const NameFile names(visit, "Lab,Left,Right,Centre left\nHall,Top\n,Loft\n");
    QVERIFY(visit.open("addDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(offered(view), QString());
        QVERIFY(press(view, Qt::Key_Down)); // none holds the name that is suggested
        QTRY_COMPARE(offered(view), QString("Loft [Hall] Top [Lab] Left Right Centre left"));
        QVERIFY(press(view, Qt::Key_Escape));
        QTRY_COMPARE(offered(view), QString());
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(type(view, "LE"));
        QTRY_COMPARE(offered(view), QString("[Lab] Left Centre left"));
        QVERIFY(press(view, Qt::Key_Down));
        QCOMPARE(offered(view), QString("[Lab] Left* Centre left"));
        QVERIFY(press(view, Qt::Key_Down));
        QVERIFY(press(view, Qt::Key_Down)); // the last one stays
        QCOMPARE(offered(view), QString("[Lab] Left Centre left*"));
        QVERIFY(press(view, Qt::Key_Up));
        QVERIFY(press(view, Qt::Key_Return)); // takes the name, and adds nothing yet
        QTRY_COMPARE(shownIn(view, "name").toString(), QString("Left"));
        QCOMPARE(offered(view), QString());
        QVERIFY(isOpen(dialog));
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(press(view, Qt::Key_Delete));
        QTRY_COMPARE(offered(view), QString("Loft [Hall] Top [Lab] Left Right Centre left"));
        QVERIFY(press(view, Qt::Key_Down));
        QVERIFY(press(view, Qt::Key_Return));
        QTRY_COMPARE(shownIn(view, "name").toString(), QString("Loft"));
        QCOMPARE(offered(view), QString());
        QVERIFY(press(view, Qt::Key_Return));
        QVERIFY(!isOpen(dialog));
    }));
    QCOMPARE(visit.host.journal().filter("addDevice"),
             QStringList("addDevice(\"Loft\", \"192.168.0.10\", false)"));
}

void TestDeviceEditPages::namesAreTakenByTheMouse()
{
    PageVisit visit;
    LogCapture log;
    const NameFile names(visit, "Lab,Left,Right\n");
    QVERIFY(visit.open("addDevice", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(type(view, "t"));
        QTRY_COMPARE(offered(view), QString("[Lab] Left Right"));
        QVERIFY(click(view, "#name-1"));
        QTRY_COMPARE(shownIn(view, "name").toString(), QString("Right"));
        QCOMPARE(offered(view), QString());
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("name"));
        QVERIFY(isEnabled(view, "#ok"));
    }));
}

void TestDeviceEditPages::escapePutsTheNamesAway()
{
    PageVisit visit;
    LogCapture log;
    const NameFile names(visit, "Lab,Left,Right\n");
    QVERIFY(visit.open("addDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(type(view, "t"));
        QTRY_COMPARE(offered(view), QString("[Lab] Left Right"));
        QVERIFY(press(view, Qt::Key_Escape));
        QTRY_COMPARE(offered(view), QString());
        QCOMPARE(shownIn(view, "name").toString(), QString("t"));
        QVERIFY(isOpen(dialog));
        QVERIFY(type(view, "o"));
        QTRY_COMPARE(shownIn(view, "name").toString(), QString("to"));
        QCOMPARE(offered(view), QString()); // no name holds that
        QVERIFY(press(view, Qt::Key_Backspace));
        QTRY_COMPARE(offered(view), QString("[Lab] Left Right"));
        QVERIFY(press(view, Qt::Key_Tab)); // goes on, and away with them
        QTRY_COMPARE(offered(view), QString());
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("address"));
    }));
}

void TestDeviceEditPages::manyNamesAreCutShort()
{
    PageVisit visit;
    LogCapture log;
    QByteArray lines;
    for (int i = 0; i < 1000; ++i)
        lines += "Lab,Name " + QByteArray::number(i) + '\n';
    const NameFile names(visit, lines);
    QVERIFY(visit.open("addDevice", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(type(view, "n"));
        QTRY_COMPARE(count(view, "#nameList .name"), 100);
        QCOMPARE(text(view, "#nameList .more"), QString("900 more"));
        QVERIFY(press(view, Qt::Key_Up)); // the last one that is shown
        QCOMPARE(read(view, "document.querySelector('.name[aria-selected=true]').textContent")
                     .toString(),
                 QString("Name 99"));
    }));
}

void TestDeviceEditPages::namesStayInTheWindow()
{
    PageVisit visit;
    LogCapture log;
    QByteArray lines = "Lab";
    for (int i = 0; i < 50; ++i)
        lines += ",Name " + QByteArray::number(i) + QByteArray(200, 'x');
    const NameFile names(visit, lines);
    QVERIFY(visit.open("addDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(type(view, "n"));
        QTRY_VERIFY(isShown(view, "#nameList"));
        QVERIFY(press(view, Qt::Key_Up));
        QVERIFY(read(view, "(function () {"
                           "    var list = nameList.getBoundingClientRect();"
                           "    var row = document.querySelector('.name[aria-selected=true]')"
                           "        .getBoundingClientRect();"
                           "    return list.bottom <= innerHeight && list.right <= innerWidth &&"
                           "        row.top >= list.top && row.bottom <= list.bottom + 1; })()")
                    .toBool());
        QVERIFY(read(view, "document.documentElement.scrollHeight <= innerHeight").toBool());
        QCOMPARE(dialog.size(), QSize(395, 195));
    }));
}

void TestDeviceEditPages::withoutNamesNothingIsCompleted_data()
{
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("said");
    const QString missing = "The file of camera names has none that can be read.";
    QTest::newRow("switched off") << false << "/absent/names.csv"
                                  << "";
    QTest::newRow("no file named") << true << ""
                                   << "";
    QTest::newRow("file that is not there") << true << "/absent/names.csv" << missing;
    QTest::newRow("folder") << true << "/tmp" << missing;
}

void TestDeviceEditPages::withoutNamesNothingIsCompleted()
{
    QFETCH(bool, isOn);
    QFETCH(QString, path);
    PageVisit visit;
    LogCapture log; // what cannot be opened
    visit.host.settings().setValue("usercustom/cameraNameFilePath", path);
    visit.host.settings().setValue("usercustom/completeCameraNames", isOn);
    QVERIFY(visit.open("addDevice", [&](QDialog &, GUI_WebView *view) {
        QTEST(text(view, "#state"), "said");
        QVERIFY(isEnabled(view, "#ok"));
        QVERIFY(type(view, "x"));
        QVERIFY(press(view, Qt::Key_Down));
        QCOMPARE(offered(view), QString());
    }));
}

void TestDeviceEditPages::failedAddStaysOpen()
{
    PageVisit visit;
    LogCapture log; // the failure
    QVERIFY(visit.open("addDevice", [&](QDialog &dialog, GUI_WebView *view) {
        visit.host.failOn("addDevice");
        QVERIFY(click(view, "#ok"));
        QTRY_COMPARE(text(view, "#state"), QString("The camera could not be added."));
        QVERIFY(isOpen(dialog));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!isOpen(dialog));
    }));
    QCOMPARE(visit.host.handledErrors(), QStringList("addDevice failed"));
    QCOMPARE(visit.host.cameraCount(), 1);
}

void TestDeviceEditPages::unreadableDefaultsAreTold()
{
    PageVisit visit;
    LogCapture log;
    visit.host.failOn("defaultCameraName");
    QVERIFY(visit.open("addDevice", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#state"), QString("What a new camera begins with could not be read."));
        QVERIFY(!isEnabled(view, "#ok"));
        QVERIFY(!isEnabled(view, "#dummy"));
        QVERIFY(typeInto(view, "name", "Left"));
        QVERIFY(typeInto(view, "address", "10.0.0.1"));
        QTRY_VERIFY(isEnabled(view, "#ok"));
    }));
}

void TestDeviceEditPages::editShowsTheCamera()
{
    PageVisit visit;
    StandInCamera *camera = addCamera(visit);
    camera->state().headCount = 2;
    QVERIFY(visit.open("editDevice", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "name").toString(), QString("Camera 1"));
        QCOMPARE(shownIn(view, "address").toString(), QString("192.168.0.10"));
        QCOMPARE(shownIn(view, "mask").toString(), QString("255.255.255.0"));
        QCOMPARE(shownIn(view, "gateway").toString(), QString("192.168.0.254"));
        QVERIFY(!isShown(view, "#kind"));
        QCOMPARE(text(view, "#facts"),
                 QString("Model\nS-1024\nSerial number\n10001\nHead\nHead - 1\n"
                         "Serial number of the head\n20001\nFirmware\n1.00"));
        QVERIFY(isEnabled(view, "#ok"));
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(read(view, "(function () { var c = document.querySelector('.content');"
                           "    return c.scrollHeight <= c.clientHeight; })()")
                    .toBool());
    }));
}

void TestDeviceEditPages::editNamesTheCamera()
{
    PageVisit visit;
    addCamera(visit);
    LogCapture log;
    const NameFile names(visit, "Lab,Left,Right\n");
    QVERIFY(visit.open("editDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(type(view, "ri"));
        QTRY_COMPARE(offered(view), QString("[Lab] Right"));
        QVERIFY(press(view, Qt::Key_Down));
        QVERIFY(press(view, Qt::Key_Return));
        QVERIFY(typeInto(view, "address", "192.168.0.77"));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!isOpen(dialog));
    }));
    QCOMPARE(visit.host.camera(1)->name(), QString("Right"));
    QCOMPARE(visit.host.currentWindowTitle(), QString("Right"));
    QCOMPARE(visit.host.camera(1)->state().ipAddress, QString("192.168.0.77"));
}

void TestDeviceEditPages::editChoosesTheConnectionAtOnce()
{
    PageVisit visit;
    LogCapture log;
    StandInCamera *camera = addCamera(visit);
    camera->state().capabilities = {112};
    camera->state().networkSettings.insert(1, {"10.0.0.1", "255.0.0.0", ""});
    QVERIFY(visit.open("editDevice", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "kind", 1));
        QTRY_COMPARE(shownIn(view, "address").toString(), QString("10.0.0.1"));
        QCOMPARE(shownIn(view, "gateway").toString(), QString());
        QCOMPARE(camera->state().editData.etherType, 1);
        QVERIFY(isEnabled(view, "#ok"));
        QVERIFY(click(view, "#cancel"));
    }));
    QCOMPARE(camera->state().editData.etherType, 1); // it stays
}

void TestDeviceEditPages::editSaysWhatIsWrong_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("said");
    QTest::newRow("name") << "name"
                          << "a:b"
                          << "A name cannot hold this character: :";
    QTest::newRow("above 255") << "address"
                               << "192.168.0.256"
                               << "This is no address: 192.168.0.256";
    QTest::newRow("five numbers") << "address"
                                  << "1.2.3.4.5"
                                  << "This is no address: 1.2.3.4.5";
    QTest::newRow("mask with a hole") << "mask"
                                      << "255.0.255.0"
                                      << "This is no mask: 255.0.255.0";
    QTest::newRow("mask of nothing") << "mask"
                                     << "0.0.0.0"
                                     << "This is no mask: 0.0.0.0";
    QTest::newRow("mask without its first bit") << "mask"
                                                << "0.0.255.0"
                                                << "This is no mask: 0.0.255.0";
    QTest::newRow("gateway") << "gateway"
                             << "192"
                             << "This is no address: 192";
    QTest::newRow("gateway outside") << "gateway"
                                     << "192.168.1.254"
                                     << "The gateway is not in the network of the camera.";
}

void TestDeviceEditPages::editSaysWhatIsWrong()
{
    QFETCH(QString, id);
    QFETCH(QString, typed);
    QFETCH(QString, said);
    PageVisit visit;
    addCamera(visit);
    QVERIFY(visit.open("editDevice", [&](QDialog &dialog, GUI_WebView *view) {
        const QString before = shownIn(view, id).toString();
        QVERIFY(typeInto(view, id, typed));
        QTRY_COMPARE(text(view, "#state"), said);
        QVERIFY(!isEnabled(view, "#ok"));
        QVERIFY(press(view, Qt::Key_Return));
        QVERIFY(isOpen(dialog));
        QVERIFY(typeInto(view, id, before));
        QTRY_VERIFY(isEnabled(view, "#ok"));
        QCOMPARE(text(view, "#state"), QString());
    }));
    QCOMPARE(visit.host.journal().filter("].set"), QStringList());
}

void TestDeviceEditPages::editLeavesTheNetworkOf_data()
{
    QTest::addColumn<bool>("isDummy");
    QTest::addColumn<QString>("said");
    QTest::newRow("a dummy") << true << "A dummy has no network.";
    QTest::newRow("memory mode") << false << "Addresses can be changed in live mode.";
}

void TestDeviceEditPages::editLeavesTheNetworkOf()
{
    QFETCH(bool, isDummy);
    PageVisit visit;
    LogCapture log;
    StandInCamera *camera = addCamera(visit);
    camera->state().isDummy = isDummy;
    if (isDummy)
        camera->state().editData.network.ipAddress = "999.999.999.1";
    else
        visit.host.setMode(StandInHost::Mode::Memory);
    QVERIFY(visit.open("editDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QTEST(text(view, "#state"), "said");
        for (const char *id : {"#address", "#mask", "#gateway"})
            QVERIFY(!isEnabled(view, id));
        QVERIFY(typeInto(view, "name", "Left"));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!isOpen(dialog));
    }));
    QCOMPARE(camera->name(), QString("Left"));
}

void TestDeviceEditPages::editWithoutACamera()
{
    PageVisit visit;
    QVERIFY(visit.open("editDevice", [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(text(view, "#state"), QString("There is no camera that could be edited."));
        QVERIFY(!isShown(view, "#camera"));
        QVERIFY(!isEnabled(view, "#ok"));
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("cancel"));
        QVERIFY(press(view, Qt::Key_Space));
        QVERIFY(!isOpen(dialog));
    }));
}

void TestDeviceEditPages::failedEditStaysOpen()
{
    PageVisit visit;
    LogCapture log;
    addCamera(visit);
    QVERIFY(visit.open("editDevice", [&](QDialog &dialog, GUI_WebView *view) {
        visit.host.failOn("setNetworkSetting");
        QVERIFY(click(view, "#ok"));
        QTRY_COMPARE(text(view, "#state"), QString("The camera could not be changed."));
        QVERIFY(isOpen(dialog));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!isOpen(dialog));
    }));
    QCOMPARE(visit.host.handledErrors(), QStringList("setNetworkSetting failed"));
}

void TestDeviceEditPages::cancelChangesNothing_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("add") << "addDevice";
    QTest::newRow("edit") << "editDevice";
}

void TestDeviceEditPages::cancelChangesNothing()
{
    QFETCH(QString, page);
    PageVisit visit;
    addCamera(visit);
    QVERIFY(visit.open(page, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "name", "Left"));
        QVERIFY(click(view, "#cancel"));
        QVERIFY(!isOpen(dialog));
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }));
    QCOMPARE(visit.host.cameraCount(), 1);
    QCOMPARE(visit.host.camera(1)->name(), QString("Camera 1"));
}

void TestDeviceEditPages::preferencesNameTheFile()
{
    PageVisit visit;
    LogCapture log;
    QVERIFY(visit.open("prefs", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#tab-names"));
        QVERIFY(click(view, "#completeNames"));
        QTRY_COMPARE(visit.setting("usercustom/completeCameraNames"), QVariant(true));
        QVERIFY(typeInto(view, "namesFile", "/lab/names.csv"));
        QVERIFY(press(view, Qt::Key_Tab));
        QTRY_COMPARE(visit.setting("usercustom/cameraNameFilePath").toString(),
                     QString("/lab/names.csv"));
        QCOMPARE(text(view, "#state"), QString());
        QCOMPARE(cutTexts(view), QStringList());
    }));
}

int main(int argc, char *argv[])
{
    TestDeviceEditPages test;
    return runTest(argc, argv, test);
}

#include "test_device_edit_pages.moc"
