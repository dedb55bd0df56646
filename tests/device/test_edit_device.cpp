#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/page/GUI_WebView.h"
#include "device/edit/JS_Mediator_EditDeviceDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/TestLog.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaMethod>

#include <memory>

// What the page does that names a camera and sets its addresses.

class TestEditDevice : public TestBase
{
    Q_OBJECT

private slots:
    void slotsStandInOrder();
    void cameraIsDescribed();
    void headHasItsNumberWhereThereAreSeveral_data();
    void headHasItsNumberWhereThereAreSeveral();
    void flagsAreTheCameras_data();
    void flagsAreTheCameras();
    void withoutACameraNothingIsDescribed();
    void failedDescriptionIsEmpty_data();
    void failedDescriptionIsEmpty();
    void nameAndAddressesAreSet();
    void addressesAreThoseOfThePresentKind();
    void textsPassUntested();
    void withoutACameraNothingIsSet();
    void failedChangeStaysOpen_data();
    void failedChangeStaysOpen();
    void kindIsChosenAtOnce();
    void withoutACameraNoKindIsChosen();
    void cancelTakesNothingBack();
    void dialogMayGoWhileTheCameraIsSet_data();
    void dialogMayGoWhileTheCameraIsSet();
};

namespace {

const QString Class = QStringLiteral("JS_Mediator_EditDeviceDialog::");

/// A dialog as the host opens it, over two cameras of which the second one is current.
struct Shown
{
    explicit Shown(bool withCameras = true)
        : mediator(new JS_Mediator_EditDeviceDialog(&host, QStringLiteral("editdevice"))),
          dialog(std::make_unique<GUI_WebViewDialog>(&host, QStringLiteral("Edit"),
                                                     QStringLiteral("qrc:/editdevice.html"),
                                                     mediator, nullptr)),
          page(std::make_unique<PageProbe>(dialog->webView()))
    {
        if (withCameras) {
            host.addCamera();
            DocumentState &state = host.addCamera()->state();
            state.cameraName = QStringLiteral("Left");
            state.editData = {QStringLiteral("Head A"),
                              QStringLiteral("D-1"),
                              QStringLiteral("H-2"),
                              QStringLiteral("S-9"),
                              QStringLiteral("2.34"),
                              3,
                              {QStringLiteral("10.0.0.5"), QStringLiteral("255.0.0.0"),
                               QStringLiteral("10.0.0.1")}};
            host.makeCurrent(2);
        }
        dialog->show();
        page->waitLoaded();
        host.clearJournal();
    }
    ~Shown()
    {
        page.reset();
        dialog.reset();
    }

    QJsonObject settings()
    {
        return QJsonDocument::fromJson(mediator->getEditDeviceDialogSettings().toUtf8()).object();
    }
    DocumentState &state() { return host.camera(2)->state(); }

    StandInHost host;
    JS_Mediator_EditDeviceDialog *mediator; ///< owned by the dialog
    std::unique_ptr<GUI_WebViewDialog> dialog;
    std::unique_ptr<PageProbe> page;
};

// As the journal shows what Ok sets.
const QString Addresses = QStringLiteral(
    "{ipAddress: \"10.0.0.7\", subnetMask: \"255.255.0.0\", defaultGateway: \"10.0.0.2\"}");
const QString Ok = QStringLiteral("editdevice.ok('Top', '10.0.0.7', '255.255.0.0', '10.0.0.2')");

QStringList traceOf(const QString &slot, const QString &arguments)
{
    const QString name = Class + slot;
    return {"[ENTER] \"" + name + "\" \"" + arguments + "\"", "[LEAVE] \"" + name + "\""};
}

}

void TestEditDevice::slotsStandInOrder()
{
    const QMetaObject &meta = JS_Mediator_EditDeviceDialog::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    QCOMPARE(methods,
             QStringList({"getEditDeviceDialogSettings()", "ok(QString,QString,QString,QString)",
                          "cancel()", "setEditEtherType(int)"}));
}

void TestEditDevice::cameraIsDescribed()
{
    Shown shown;
    LogCapture log;
    const QString text = shown.page->call("editdevice.getEditDeviceDialogSettings()");
    QCOMPARE(text.mid(1, text.size() - 2).remove('\\'),
             QString("{\"CameraName\":\"Left\",\"DefaultGateway\":\"10.0.0.1\","
                     "\"DeviceSerialNumber\":\"D-1\",\"EtherType\":3,\"FWVer\":\"2.34\","
                     "\"HeadName\":\"Head A\",\"HeadSerialNumber\":\"H-2\","
                     "\"IPAddress\":\"10.0.0.5\",\"IsDummy\":false,\"IsSupportWifi\":false,"
                     "\"ModelName\":\"S-9\",\"Subnetmask\":\"255.0.0.0\",\"isMemoryMode\":false}"));
    const QStringList calls = shown.host.journal();
    QCOMPARE(calls.first(), QString("currentDocument()"));
    QCOMPARE(calls.filter("editDeviceData").size(), 1);
    QCOMPARE(calls.mid(calls.size() - 4), QStringList({"isMemoryMode()", "[2].cameraName()",
                                                       "[2].hasCapability(112)", "[2].isDummy()"}));
    QCOMPARE(log.texts(), QStringList());
}

void TestEditDevice::headHasItsNumberWhereThereAreSeveral_data()
{
    QTest::addColumn<int>("heads");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::newRow("no heads") << 0 << 1 << "Head A";
    QTest::newRow("one head") << 1 << 1 << "Head A";
    QTest::newRow("first of two") << 2 << 1 << "Head A - 1";
    QTest::newRow("last of three") << 3 << 3 << "Head A - 3";
}

void TestEditDevice::headHasItsNumberWhereThereAreSeveral()
{
    QFETCH(int, heads);
    QFETCH(int, number);
    Shown shown;
    shown.state().headCount = heads;
    shown.state().headNumber = number;
    QTEST(shown.settings().value("HeadName").toString(), "name");
}

void TestEditDevice::flagsAreTheCameras_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"isMemoryMode", "IsSupportWifi", "IsDummy"})
        QTest::newRow(key) << QString(key);
}

void TestEditDevice::flagsAreTheCameras()
{
    QFETCH(QString, key);
    Shown shown;
    if (key == "isMemoryMode")
        shown.host.setMode(StandInHost::Mode::Memory);
    else if (key == "IsSupportWifi")
        shown.state().capabilities = {112};
    else
        shown.state().isDummy = true;
    const QJsonObject settings = shown.settings();
    for (const char *each : {"isMemoryMode", "IsSupportWifi", "IsDummy"})
        QCOMPARE(settings.value(QLatin1String(each)), QJsonValue(key == each));
}

void TestEditDevice::withoutACameraNothingIsDescribed()
{
    Shown shown(false);
    QCOMPARE(shown.page->call("editdevice.getEditDeviceDialogSettings()"), QString("\"{}\""));
    QCOMPARE(shown.host.journal(), QStringList("currentDocument()"));
}

void TestEditDevice::failedDescriptionIsEmpty_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *operation : {"currentDocument", "editDeviceData", "headInterface",
                                  "isMemoryMode", "cameraName", "hasCapability", "isDummy"})
        QTest::newRow(operation) << QString(operation);
}

void TestEditDevice::failedDescriptionIsEmpty()
{
    QFETCH(QString, operation);
    Shown shown;
    shown.host.failOn(operation);
    QCOMPARE(shown.page->call("editdevice.getEditDeviceDialogSettings()"), QString("\"\""));
    QCOMPARE(shown.host.handledErrors(), QStringList(operation + " failed"));
    QVERIFY(shown.dialog->isVisible());
}

void TestEditDevice::nameAndAddressesAreSet()
{
    Shown shown;
    LogCapture log;
    shown.page->call(Ok);
    QCOMPARE(shown.host.journal(),
             QStringList({"currentDocument()", "[2].setCameraName(\"Top\")", "[2].editDeviceData()",
                          "[2].setNetworkSetting(3, " + Addresses + ")"}));
    QCOMPARE(log.texts(), traceOf("ok", "[cameraName:Top] [ipAddress:10.0.0.7] "
                                        "[subnetmask:255.255.0.0] [defaultGateway:10.0.0.2]"));
    QCOMPARE(shown.dialog->result(), int(QDialog::Accepted));
    QVERIFY(!shown.dialog->isVisible());
}

void TestEditDevice::addressesAreThoseOfThePresentKind()
{
    Shown shown;
    shown.page->call("editdevice.setEditEtherType(1)");
    shown.page->call(Ok);
    QCOMPARE(shown.host.journal().last(), QString("[2].setNetworkSetting(1, " + Addresses + ")"));
}

// The page and the camera are the ones that refuse; then the dialog stays.
void TestEditDevice::textsPassUntested()
{
    Shown shown;
    LogCapture log;
    shown.page->call("editdevice.ok('a:b', 'x', '', '1.2.3.4.5')");
    QCOMPARE(shown.host.journal().filter("set"),
             QStringList({"[2].setCameraName(\"a:b\")",
                          "[2].setNetworkSetting(3, {ipAddress: \"x\", subnetMask: \"\", "
                          "defaultGateway: \"1.2.3.4.5\"})"}));
    QCOMPARE(shown.host.handledErrors(),
             QStringList("\"x\" is not an address of four numbers from 0 to 255."));
    QVERIFY(shown.dialog->isVisible());
}

void TestEditDevice::withoutACameraNothingIsSet()
{
    Shown shown(false);
    LogCapture log;
    shown.page->call(Ok);
    QCOMPARE(shown.host.journal(), QStringList("currentDocument()"));
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(log.texts().size(), 2);
}

void TestEditDevice::failedChangeStaysOpen_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *operation :
         {"currentDocument", "setCameraName", "editDeviceData", "setNetworkSetting"})
        QTest::newRow(operation) << QString(operation);
}

void TestEditDevice::failedChangeStaysOpen()
{
    QFETCH(QString, operation);
    Shown shown;
    LogCapture log;
    shown.host.failOn(operation);
    shown.page->call(Ok);
    QCOMPARE(shown.host.handledErrors(), QStringList(operation + " failed"));
    QVERIFY(shown.dialog->isVisible());
    shown.page->call(Ok);
    QVERIFY(!shown.dialog->isVisible());
}

void TestEditDevice::kindIsChosenAtOnce()
{
    Shown shown;
    LogCapture log;
    shown.page->call("editdevice.setEditEtherType(5)");
    QCOMPARE(shown.host.journal(), QStringList({"currentDocument()", "[2].setEtherType(5)"}));
    QCOMPARE(log.texts(), traceOf("setEditEtherType", "[type:5]"));
    QVERIFY(shown.dialog->isVisible());
}

void TestEditDevice::withoutACameraNoKindIsChosen()
{
    Shown shown(false);
    LogCapture log;
    shown.page->call("editdevice.setEditEtherType(5)");
    QCOMPARE(shown.host.journal(), QStringList("currentDocument()"));
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestEditDevice::cancelTakesNothingBack()
{
    Shown shown;
    LogCapture log;
    shown.page->call("editdevice.setEditEtherType(5)");
    shown.host.clearJournal();
    log.clear();
    shown.page->call("editdevice.cancel()");
    QCOMPARE(shown.host.journal(), QStringList());
    QCOMPARE(log.texts(), QStringList());
    QCOMPARE(shown.dialog->result(), int(QDialog::Rejected));
    QVERIFY(!shown.dialog->isVisible());
    QCOMPARE(shown.state().editData.etherType, 5);
}

void TestEditDevice::dialogMayGoWhileTheCameraIsSet_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *operation : {"setCameraName", "setNetworkSetting"})
        QTest::newRow(operation) << QString(operation);
}

void TestEditDevice::dialogMayGoWhileTheCameraIsSet()
{
    QFETCH(QString, operation);
    Shown shown;
    shown.page.reset();
    connect(shown.host.events(), &StandInEvents::callJournalled, this, [&](const QString &line) {
        if (line.contains(operation))
            shown.dialog.reset();
    });
    LogCapture log;
    shown.mediator->ok("Top", "10.0.0.7", "255.255.0.0", "10.0.0.2");
    QVERIFY(!shown.dialog);
    QCOMPARE(shown.state().cameraName, QString("Top"));
    QCOMPARE(shown.state().ipAddress, QString("10.0.0.7"));
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

int main(int argc, char *argv[])
{
    TestEditDevice test;
    return runTest(argc, argv, test);
}

#include "test_edit_device.moc"
