#include "bridge/page/GUI_WebView.h"
#include "device/edit/GUI_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_AddDeviceDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/TestLog.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaMethod>

#include <memory>

// The dialog that adds a camera or a dummy, worked by its page.

class TestAddDevice : public TestBase
{
    Q_OBJECT

private slots:
    void windowIsAsTold();
    void slotsStandInOrder();
    void flagIsKept_data();
    void flagIsKept();
    void pageBeginsWithTheDefaults();
    void defaultAddressIsTheSetting();
    void firstFreeDummyAddress_data();
    void firstFreeDummyAddress();
    void documentThatHasGoneIsPassedOver();
    void hostIsAskedOnceForEachDevice();
    void cameraIsAdded_data();
    void cameraIsAdded();
    void forbiddenNamesDoNothing_data();
    void forbiddenNamesDoNothing();
    void wrongAddressesDoNothing_data();
    void wrongAddressesDoNothing();
    void failedAddStaysOpen();
    void failedSettingsAreEmpty_data();
    void failedSettingsAreEmpty();
    void dialogMayGoWhileTheHostAdds();
    void wholeStory_data();
    void wholeStory();
    void failureWhileConstructedReachesTheCaller_data();
    void failureWhileConstructedReachesTheCaller();
    void missingPageGivesACloseButton();
};

namespace {

const QString Settings = QStringLiteral("adddevice.getAddDeviceDialogSettings()");

struct Shown
{
    explicit Shown(bool connect = true) : dialog(&host, connect, nullptr), page(dialog.webView())
    {
        dialog.show();
        loaded = page.waitLoaded();
        host.clearJournal();
    }

    QJsonObject settings()
    {
        return QJsonDocument::fromJson(mediator()->getAddDeviceDialogSettings().toUtf8()).object();
    }

    JS_Mediator_AddDeviceDialog *mediator() const
    {
        return static_cast<JS_Mediator_AddDeviceDialog *>(dialog.mediator());
    }

    /// Adds by the page.
    void add(const QString &name, const QString &address, bool isDummy = false)
    {
        page.call(QString("adddevice.ok(%1, %2, %3)")
                      .arg(scriptText(name), scriptText(address), isDummy ? "true" : "false"));
    }

    StandInHost host;
    GUI_AddDeviceDialog dialog;
    PageProbe page;
    bool loaded = false;
};

StandInCamera *addDummy(StandInHost &host, const QString &address)
{
    StandInCamera *camera = host.addCamera();
    camera->state().isDummy = true;
    camera->state().ipAddress = address;
    return camera;
}

}

void TestAddDevice::windowIsAsTold()
{
    QWidget parent;
    StandInHost host;
    host.state().translations.insert("Add Device", "Kamera");
    GUI_AddDeviceDialog dialog(&host, true, &parent);
    PageProbe page(dialog.webView());
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.windowTitle(), QString("Kamera"));
    QCOMPARE(dialog.minimumSize(), QSize(395, 195));
    QCOMPARE(dialog.maximumSize(), QSize(395, 195));
    QCOMPARE(dialog.size(), QSize(395, 195));
    QCOMPARE(int(dialog.windowFlags() & ~Qt::WindowType_Mask), 0x3000);
    dialog.show();
    QVERIFY(page.waitLoaded());
    QVERIFY(page.isFound());
    QCOMPARE(int(dialog.windowFlags() & ~Qt::WindowType_Mask), 0x3000);
    QCOMPARE(page.call("typeof adddevice.ok"), QString("\"function\""));
    QCOMPARE(page.call("typeof adddeviceAutoCameraName.autoCompleteCameraList"),
             QString("\"function\""));
}

void TestAddDevice::slotsStandInOrder()
{
    const QMetaObject &meta = JS_Mediator_AddDeviceDialog::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    QCOMPARE(methods,
             QStringList({"getAddDeviceDialogSettings()", "ok(QString,QString,bool)", "cancel()"}));
    QCOMPARE(meta.method(meta.methodOffset() + 1).parameterNames(),
             QList<QByteArray>({"cameraNeme", "ipAddress", "isDummy"}));
}

void TestAddDevice::flagIsKept_data()
{
    QTest::addColumn<bool>("connect");
    QTest::newRow("at once") << true;
    QTest::newRow("later") << false;
}

void TestAddDevice::flagIsKept()
{
    QFETCH(bool, connect);
    Shown shown(connect);
    QCOMPARE(shown.mediator()->connectsAtOnce(), connect);
}

void TestAddDevice::pageBeginsWithTheDefaults()
{
    Shown shown;
    shown.host.state().defaultCameraName = "Camera 7";
    const QString text = shown.page.call(Settings);
    QCOMPARE(text, QString("\"{\\\"DefaultCameraName\\\":\\\"Camera 7\\\","
                           "\\\"DefaultDummyIPAddress\\\":\\\"999.999.999.1\\\","
                           "\\\"DefaultIPAddress\\\":\\\"192.168.0.10\\\"}\""));
    QCOMPARE(shown.host.journal(),
             QStringList({"defaultCameraName()",
                          "getPrefString(\"cameraconnection/AddIPDefault\", \"192.168.0.10\")",
                          "deviceKeys(true)"}));
}

void TestAddDevice::defaultAddressIsTheSetting()
{
    Shown shown;
    shown.host.settings().setValue("cameraconnection/AddIPDefault", "10.0.0.1");
    QCOMPARE(shown.settings().value("DefaultIPAddress").toString(), QString("10.0.0.1"));
}

void TestAddDevice::firstFreeDummyAddress_data()
{
    QTest::addColumn<QStringList>("dummies");
    QTest::addColumn<QStringList>("cameras");
    QTest::addColumn<QString>("address");
    QStringList all;
    for (int n = 1; n <= 255; ++n)
        all.append(QString("999.999.999.%1").arg(n));
    const QStringList none;
    QTest::newRow("no device") << none << none << "999.999.999.1";
    QTest::newRow("one and three")
        << QStringList({"999.999.999.1", "999.999.999.3"}) << none << "999.999.999.2";
    QTest::newRow("a camera with that address is no dummy")
        << none << QStringList("999.999.999.1") << "999.999.999.1";
    QTest::newRow("the last one") << QStringList(all.mid(0, 254)) << none << "999.999.999.255";
    QTest::newRow("all taken") << all << none << "999.999.999.1";
}

void TestAddDevice::firstFreeDummyAddress()
{
    QFETCH(QStringList, dummies);
    QFETCH(QStringList, cameras);
    Shown shown;
    for (const QString &address : dummies)
        addDummy(shown.host, address);
    for (const QString &address : cameras)
        shown.host.addCamera()->state().ipAddress = address;
    QTEST(shown.settings().value("DefaultDummyIPAddress").toString(), "address");
}

void TestAddDevice::documentThatHasGoneIsPassedOver()
{
    Shown shown;
    addDummy(shown.host, "999.999.999.1");
    addDummy(shown.host, "999.999.999.2");
    shown.host.answerNullOn("documentByKey", 1);
    QCOMPARE(shown.settings().value("DefaultDummyIPAddress").toString(), QString("999.999.999.1"));
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestAddDevice::hostIsAskedOnceForEachDevice()
{
    Shown shown;
    addDummy(shown.host, "999.999.999.1");
    shown.host.addCamera();
    shown.host.clearJournal();
    shown.settings();
    QCOMPARE(shown.host.journal().mid(2),
             QStringList({"deviceKeys(true)", "documentByKey(1)", "[1].isDummy()",
                          "[1].ipAddress()", "documentByKey(2)", "[2].isDummy()"}));
}

void TestAddDevice::cameraIsAdded_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isDummy");
    QTest::newRow("camera") << "Left"
                            << "192.168.0.20" << false;
    QTest::newRow("dummy") << "Left"
                           << "999.999.999.1" << true;
    QTest::newRow("no name") << ""
                             << "192.168.0.20" << false;
    QTest::newRow("name of other letters")
        << QString::fromUtf8("\xe5\xb7\xa6 #1") << "192.168.0.20" << false;
    QTest::newRow("five dotted numbers") << "Left"
                                         << "1.2.3.4.5" << false;
    QTest::newRow("text behind the address") << "Left"
                                             << "192.168.0.20 (lab)" << false;
}

void TestAddDevice::cameraIsAdded()
{
    QFETCH(QString, name);
    QFETCH(QString, address);
    QFETCH(bool, isDummy);
    Shown shown;
    QVERIFY(shown.loaded);
    QSignalSpy finished(&shown.dialog, &QDialog::finished);
    shown.add(name, address, isDummy);
    QCOMPARE(shown.host.journal(),
             QStringList(QString("addDevice(\"%1\", \"%2\", %3)")
                             .arg(name, address, isDummy ? "true" : "false")));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.dialog.result(), int(QDialog::Accepted));
}

void TestAddDevice::forbiddenNamesDoNothing_data()
{
    QTest::addColumn<QString>("name");
    for (const char letter : {'\\', '/', '*', '?', '|', '\t', '\n', '"', ':', '<', '>', '%'}) {
        const QString number = QString::number(int(letter), 16);
        QTest::newRow(qPrintable("in the middle, 0x" + number))
            << QString("Le") + QLatin1Char(letter) + "ft";
        QTest::newRow(qPrintable("alone, 0x" + number)) << QString(QLatin1Char(letter));
    }
}

void TestAddDevice::forbiddenNamesDoNothing()
{
    QFETCH(QString, name);
    Shown shown;
    shown.add(name, "192.168.0.20");
    QCOMPARE(shown.host.journal(), QStringList());
    QCOMPARE(shown.host.cameraCount(), 0);
    QVERIFY(shown.dialog.isVisible());
    shown.add("Left", "192.168.0.20"); // and it goes on
    QVERIFY(!shown.dialog.isVisible());
}

void TestAddDevice::wrongAddressesDoNothing_data()
{
    QTest::addColumn<QString>("address");
    for (const char *address : {"", "camera", "1.2.3", "1.2.3.", ".1.2.3.4", "1..2.3", " 1.2.3.4",
                                "1234.1.1.1", "1,2,3,4", "a1.2.3.4"})
        QTest::newRow(address) << QString(address);
}

void TestAddDevice::wrongAddressesDoNothing()
{
    QFETCH(QString, address);
    Shown shown;
    shown.add("Left", address);
    QCOMPARE(shown.host.journal(), QStringList());
    QVERIFY(shown.dialog.isVisible());
}

void TestAddDevice::failedAddStaysOpen()
{
    Shown shown;
    shown.host.failOn("addDevice");
    shown.add("Left", "192.168.0.20");
    QCOMPARE(shown.host.handledErrors(), QStringList("addDevice failed"));
    QVERIFY(shown.dialog.isVisible());
    shown.add("Left", "192.168.0.20");
    QVERIFY(!shown.dialog.isVisible());
}

void TestAddDevice::failedSettingsAreEmpty_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *operation : {"defaultCameraName", "getPrefString", "deviceKeys",
                                  "documentByKey", "isDummy", "ipAddress"})
        QTest::newRow(operation) << QString(operation);
}

void TestAddDevice::failedSettingsAreEmpty()
{
    QFETCH(QString, operation);
    Shown shown;
    addDummy(shown.host, "999.999.999.1");
    shown.host.failOn(operation);
    QCOMPARE(shown.page.call(Settings), QString("\"\""));
    QCOMPARE(shown.host.handledErrors(), QStringList(operation + " failed"));
    QVERIFY(shown.dialog.isVisible());
}

void TestAddDevice::dialogMayGoWhileTheHostAdds()
{
    StandInHost host;
    auto dialog = std::make_unique<GUI_AddDeviceDialog>(&host, true, nullptr);
    connect(host.events(), &StandInEvents::callJournalled, this, [&](const QString &line) {
        if (line.startsWith("addDevice"))
            dialog.reset();
    });
    static_cast<JS_Mediator_AddDeviceDialog *>(dialog->mediator())->ok("Left", "1.2.3.4", false);
    QVERIFY(!dialog);
    QCOMPARE(host.cameraCount(), 1);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestAddDevice::wholeStory_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("result");
    QTest::newRow("ok") << "ok('Left', '192.168.0.20', false)" << int(QDialog::Accepted);
    QTest::newRow("cancel") << "cancel()" << int(QDialog::Rejected);
}

void TestAddDevice::wholeStory()
{
    QFETCH(QString, way);
    QFETCH(int, result);
    QWidget mainWidget;
    StandInHost host;
    host.state().mainWidget = &mainWidget;
    host.state().needsDialogEnterNotice = true;
    LogCapture log;
    {
        GUI_AddDeviceDialog dialog(&host, true, &mainWidget);
        PageProbe page(dialog.webView());
        dialog.show();
        QVERIFY(page.waitLoaded());
        log.clear();
        page.call("adddevice." + way);
        QCOMPARE(dialog.result(), result);
        QVERIFY(!dialog.isVisible());
    }
    QStringList calls = {"needsDialogEnterNotice()",
                         "notifyDialogEntered()",
                         "translate(\"Add Device\")",
                         "attachMediator(GUI_WebView, JS_Mediator_AddDeviceDialog)",
                         "deterUpdateUI(true)",
                         "attachMediator(GUI_WebView, JS_Mediator_AutoCameraName)",
                         "mainWidget()",
                         "deterUpdateUI(false)",
                         "updateUI(4294967295, true)"};
    if (result == QDialog::Accepted)
        calls.append("addDevice(\"Left\", \"192.168.0.20\", false)");
    calls += QStringList({"isDialogExitSuppressed()", "notifyDialogLeft()"});
    QCOMPARE(host.journal(), calls);
    QCOMPARE(log.texts(), QStringList());
}

void TestAddDevice::failureWhileConstructedReachesTheCaller_data()
{
    QTest::addColumn<int>("nth");
    QTest::newRow("the dialog's own mediator") << 1;
    QTest::newRow("the list of names") << 2;
}

void TestAddDevice::failureWhileConstructedReachesTheCaller()
{
    QFETCH(int, nth);
    StandInHost host;
    host.failOn("attachMediator", nth);
    QVERIFY_EXCEPTION_THROWN(GUI_AddDeviceDialog(&host, true, nullptr), StandInFault);
    QCOMPARE(host.deterrals(), 0);
}

void TestAddDevice::missingPageGivesACloseButton()
{
    StandInHost host;
    GUI_AddDeviceDialog dialog(&host, true, nullptr);
    PageProbe page(dialog.webView());
    dialog.show();
    dialog.webView()->load(QUrl("qrc:/absent.html"));
    QTRY_VERIFY(dialog.windowFlags() & Qt::WindowCloseButtonHint);
    QVERIFY(dialog.isVisible());
    LogCapture log; // the frame is traced
    QVERIFY(dialog.close());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

int main(int argc, char *argv[])
{
    TestAddDevice test;
    return runTest(argc, argv, test);
}

#include "test_add_device.moc"
