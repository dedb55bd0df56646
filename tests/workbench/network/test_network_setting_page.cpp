#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>

using namespace PageHand;

namespace {

const char *const Hint = "An address has four numbers from 0 to 255, such as 192.168.0.10.";

struct SettingVisit : PageVisit
{
    bool open(const std::function<void(QDialog &, GUI_WebView *)> &body)
    {
        return PageVisit::open("cameranetworksetting", [&](QDialog &dialog, GUI_WebView *view) {
            QObject::connect(&dialog, &QDialog::finished, [this](int end) { result = end; });
            body(dialog, view);
        });
    }

    int result = -1;
};

}

/// The page that sets how cameras are searched for.
class TestNetworkSettingPage : public TestBase
{
    Q_OBJECT

private slots:
    void beginsWithTheSettings_data();
    void beginsWithTheSettings();
    void okWritesWhatWasChanged();
    void okWritesNothingWithoutAChange();
    void addressIsCheckedWhileItIsTyped();
    void addressOfTheWholeNetworkStays();
    void cancelWritesNothing();
    void escapeLeavesItOpen();
    void worksByKeysAlone();
    void failedWriteIsSaid();
};

void TestNetworkSettingPage::beginsWithTheSettings_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("isSubnet");
    QTest::newRow("broadcast") << 0 << false;
    QTest::newRow("subnet") << 1 << true;
    QTest::newRow("unknown") << 7 << false;
}

void TestNetworkSettingPage::beginsWithTheSettings()
{
    QFETCH(int, way);
    QFETCH(bool, isSubnet);
    SettingVisit visit;
    visit.host.settings().setValue(Keys::cameraConnection.searchWay, way);
    QVERIFY(visit.open([isSubnet](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "subnet", "checked").toBool(), isSubnet);
        QCOMPARE(shownIn(view, "all", "checked").toBool(), !isSubnet);
        QCOMPARE(shownIn(view, "address").toString(), QString("192.168.0.0"));
        QCOMPARE(isEnabled(view, "#address"), isSubnet);
        QVERIFY(isEnabled(view, "#ok"));
    }));
}

void TestNetworkSettingPage::okWritesWhatWasChanged()
{
    SettingVisit visit;
    QVERIFY(visit.open([&visit](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#subnet"));
        QVERIFY(typeInto(view, "address", "10.20.0.0"));
        QCOMPARE(visit.stored(), QStringList()); // not before OK
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.result, int(QDialog::Accepted));
    QCOMPARE(visit.stored(), QStringList({"setPref(\"cameraconnection/SearchWay\", 1)",
                                          "setPref(\"cameraconnection/SearchIP\", "
                                          "\"10.20.0.0\")"}));
}

void TestNetworkSettingPage::okWritesNothingWithoutAChange()
{
    SettingVisit visit;
    QVERIFY(visit.open([](QDialog &, GUI_WebView *view) { QVERIFY(click(view, "#ok")); }));
    QCOMPARE(visit.result, int(QDialog::Accepted));
    QCOMPARE(visit.stored(), QStringList());
}

void TestNetworkSettingPage::addressIsCheckedWhileItIsTyped()
{
    SettingVisit visit;
    visit.host.settings().setValue(Keys::cameraConnection.searchWay, 1);
    QVERIFY(visit.open([](QDialog &dialog, GUI_WebView *view) {
        for (const char *wrong : {"10.20.0.256", "10.20.0", "10.20.0.0.0", ""}) {
            QVERIFY(typeInto(view, "address", wrong));
            QVERIFY(!isEnabled(view, "#ok"));
            QCOMPARE(text(view, "#state"), QString(Hint));
            QCOMPARE(count(view, "#address.wrong"), 1);
            press(view, Qt::Key_Return);
            QVERIFY(dialog.isVisible());
        }
        QVERIFY(typeInto(view, "address", "10.20.0.0"));
        QVERIFY(isEnabled(view, "#ok"));
        QVERIFY(!isShown(view, "#state"));
        press(view, Qt::Key_Return);
    }));
    QCOMPARE(visit.result, int(QDialog::Accepted));
    QCOMPARE(visit.setting("cameraconnection/SearchIP").toString(), QString("10.20.0.0"));
}

void TestNetworkSettingPage::addressOfTheWholeNetworkStays()
{
    SettingVisit visit;
    visit.host.settings().setValue(Keys::cameraConnection.searchWay, 1);
    QVERIFY(visit.open([](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "address", "10.20"));
        QVERIFY(!isEnabled(view, "#ok"));
        QVERIFY(click(view, "#all"));
        QVERIFY(isEnabled(view, "#ok")); // nobody asks for it
        QVERIFY(!isShown(view, "#state"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.stored(), QStringList({"setPref(\"cameraconnection/SearchWay\", 0)"}));
}

void TestNetworkSettingPage::cancelWritesNothing()
{
    SettingVisit visit;
    QVERIFY(visit.open([](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#subnet"));
        QVERIFY(typeInto(view, "address", "10.20.0.0"));
        QVERIFY(click(view, "#cancel"));
    }));
    QCOMPARE(visit.result, int(QDialog::Rejected));
    QCOMPARE(visit.stored(), QStringList());
}

void TestNetworkSettingPage::escapeLeavesItOpen()
{
    SettingVisit visit;
    QVERIFY(visit.open([](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(dialog.isVisible());
    }));
}

void TestNetworkSettingPage::worksByKeysAlone()
{
    SettingVisit visit;
    QVERIFY(visit.open([](QDialog &, GUI_WebView *view) {
        QVERIFY(read(view, "document.activeElement.id === 'all'").toBool());
        QVERIFY(press(view, Qt::Key_Down));
        QVERIFY(shownIn(view, "subnet", "checked").toBool());
        QVERIFY(goTo(view, "address"));
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(type(view, "10.0.0.0"));
        QVERIFY(goTo(view, "ok"));
        QVERIFY(press(view, Qt::Key_Return));
    }));
    QCOMPARE(visit.setting("cameraconnection/SearchWay").toInt(), 1);
    QCOMPARE(visit.setting("cameraconnection/SearchIP").toString(), QString("10.0.0.0"));
}

void TestNetworkSettingPage::failedWriteIsSaid()
{
    SettingVisit visit;
    QVERIFY(visit.open([&visit](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(click(view, "#subnet"));
        visit.host.failOn("setPref");
        QVERIFY(click(view, "#ok"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(text(view, "#state"), QString("The setting could not be stored."));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.host.handledErrors(), QStringList({"setPref failed"}));
    QCOMPARE(visit.result, int(QDialog::Accepted));
}

int main(int argc, char **argv)
{
    TestNetworkSettingPage test;
    return runTest(argc, argv, test);
}

#include "test_network_setting_page.moc"
