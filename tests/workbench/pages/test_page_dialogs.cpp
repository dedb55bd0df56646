#include "bridge/dialog/GUI_PageDialog.h"
#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "foundation/Theme.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/pages/PageDialogs.h"
#include "workbench/pages/PageEntry.h"
#include "workbench/tour/PageHand.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

using namespace PageHand;

namespace {

/// What is done to a dialog once its page has loaded.
using Visit = std::function<void(GUI_WebViewDialog &, GUI_WebView *)>;

/// Runs `open`, which runs a dialog. A dialog that is left open is rejected. Whether one came.
bool visit(const std::function<void()> &open, const Visit &body)
{
    bool visited = false;
    QTimer::singleShot(0, [&] {
        auto *dialog = dynamic_cast<GUI_WebViewDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        GUI_WebView *view = dialog->webView();
        const QPointer<GUI_WebViewDialog> alive(dialog);
        // The page is drawn by the end of its load.
        if (QTest::qWaitFor([view] {
                return read(view, "document.body && document.body.classList.length > 0 && "
                                  "document.readyState === 'complete'")
                    .toBool();
            })) {
            visited = true;
            body(*dialog, view);
        }
        if (alive && alive->isVisible())
            alive->reject();
    });
    open();
    return visited;
}

bool isChecked(GUI_WebView *view, const QString &id)
{
    return read(view, "document.getElementById('" + id + "').checked").toBool();
}

}

/// A dialog that its page works directly, with the page of the about box.
class OwnAboutDialog : public GUI_PageDialog
{
    Q_OBJECT

public:
    explicit OwnAboutDialog(HostServices *host) : GUI_PageDialog(host, "Own", nullptr)
    {
        loadPage("qrc:/about.html");
    }

public slots:
    void populateJavaScriptWindowObject() override
    {
        showToPage("about");
        showToPage("main");
    }
    QString getStyle() { return style(); }
    QString translate(const QString &text) { return translated(text); }
};

class TestPageDialogs : public TestBase
{
    Q_OBJECT

private slots:
    void takesTheStyle_data();
    void takesTheStyle();
    void takesTheStyleToAnOwnPage();
    void followsDocumentsThatComeAndGo();
    void choosesTheStyle();
    void choosesTheUnitSystem();
    void switchesSettings_data();
    void switchesSettings();
    void tellsWhatCouldNotBeStored_data();
    void tellsWhatCouldNotBeStored();
    void keepsAddressesThatCouldNotBeStored();
    void beginsWithTheFirstAddress();
    void offersTheTriggerTestWithTheDownloadOnly();
    void tellsTheGreatestValue();
    void opensThePageOfAName_data();
    void opensThePageOfAName();
    void marksTheStateWhileItIsOpen();
    void answersHowItEnded();
    void isReachedFromAPage();
    void tellsTheVersion();
    void changesAddresses();
    void refusesWhatIsNoAddress_data();
    void refusesWhatIsNoAddress();
    void cancelLeavesTheAddresses();
    void leavesTheHostWhenItGoes();
    void hasBothNativeSheets();
};

void TestPageDialogs::takesTheStyle_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("opener");
    for (const char *style : {"light", "dark"}) {
        for (const char *opener : {"preferences", "about", "ethernet"})
            QTest::addRow("%s, %s", opener, style) << style << opener;
    }
}

// A script error would be in the log, which fails the test.
void TestPageDialogs::takesTheStyle()
{
    QFETCH(QString, style);
    QFETCH(QString, opener);
    StandInHost host;
    host.settings().setValue(Keys::application.style, style);
    PageDialogs dialogs(host);
    const bool came = visit(
        [&] {
            if (opener == "preferences")
                dialogs.exec();
            else if (opener == "about")
                host.openAboutDialog();
            else
                host.openEthernetSettings();
        },
        [&](GUI_WebViewDialog &dialog, GUI_WebView *view) {
            QCOMPARE(dialog.objectName(), opener);
            QVERIFY(read(view, "document.body.classList.contains('" + style + "')").toBool());
            QCOMPARE(
                read(view, "document.documentElement.scrollHeight <= window.innerHeight").toBool(),
                true);
        });
    QVERIFY(came);
}

// Its page hears no signal of a mediator.
void TestPageDialogs::takesTheStyleToAnOwnPage()
{
    StandInHost host;
    PageDialogs dialogs(host);
    JS_Mediator_Page commands(&host, "x");
    PageEntry page;
    page.mediator = "own";
    page.make = [](StandInHost &own, const PageEntry &, QWidget *) -> std::unique_ptr<QDialog> {
        return std::make_unique<OwnAboutDialog>(&own);
    };
    QStringList styles;
    QTimer look;
    connect(&look, &QTimer::timeout, &look, [&] {
        auto *dialog = dynamic_cast<OwnAboutDialog *>(QApplication::activeModalWidget());
        if (!dialog || !isShown(dialog->webView(), "#close"))
            return;
        look.stop();
        for (const char *style : {"light", "dark", "light"}) {
            host.settings().setValue(Keys::application.style, style);
            host.updateUI(63, true);
            const QString expected = QString("dialog ") + style;
            const auto shown = [&] { return read(dialog->webView(), "document.body.className"); };
            if (!QTest::qWaitFor([&] { return shown() == expected; }, 1000))
                break;
            styles.append(style);
        }
        dialog->close();
    });
    look.start(5);
    dialogs.open(page, commands);
    QCOMPARE(styles, QStringList({"light", "dark", "light"}));
}

void TestPageDialogs::followsDocumentsThatComeAndGo()
{
    StandInHost host;
    for (int i = 1; i <= 3; ++i)
        host.select(host.addCamera()->key(), true);
    PageDialogs dialogs(host);
    JS_Mediator_Page commands(&host, "x");
    QVERIFY(visit([&] { dialogs.open(PageCatalogue::page("custominfo"), commands); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QCOMPARE(count(view, ".document"), 3);
                      host.closeDocument(2);
                      QTRY_COMPARE(count(view, ".document"), 2);
                      host.closeDocument(3);
                      QTRY_COMPARE(count(view, ".document"), 1);
                      host.select(host.addCamera()->key(), true);
                      QTRY_COMPARE(count(view, ".document"), 2);
                  }));
}

void TestPageDialogs::choosesTheStyle()
{
    StandInHost host;
    PageDialogs dialogs(host);
    QVERIFY(visit([&] { dialogs.exec(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QVERIFY(isChecked(view, "styleLight"));
                      QVERIFY(click(view, "#styleDark"));
                      QTRY_VERIFY(read(view, "document.body.classList.contains('dark')").toBool());
                      QVERIFY(click(view, "#close"));
                  }));
    QCOMPARE(host.settings().value("env/style", QVariant()).toString(), QString("dark"));
    QVERIFY(host.commands().contains("setPref(\"env/style\", \"dark\")"));
}

void TestPageDialogs::choosesTheUnitSystem()
{
    StandInHost host;
    host.settings().setValue("customize/unitSystem", 1);
    PageDialogs dialogs(host);
    dialogs.showPage("Units");
    QVERIFY(visit([&] { dialogs.exec(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QVERIFY(isChecked(view, "unitsMetric"));
                      QCOMPARE(text(view, "#unitList li:last-child"), QString("Meters (m): m"));
                      QVERIFY(click(view, "#unitsImperial"));
                      QTRY_COMPARE(text(view, "#unitList li:first-child"),
                                   QString("Inches (in): inch"));
                      QCOMPARE(count(view, "#unitList li"), 3);
                  }));
    QCOMPARE(host.settings().value("customize/unitSystem", QVariant()).toInt(), 0);
}

void TestPageDialogs::switchesSettings_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("key");
    QTest::newRow("bit depth") << "Display"
                               << "realBitDepth"
                               << "display/DisplayWithRealBitDepth";
    QTest::newRow("download") << "Recording"
                              << "autoDownload"
                              << "recording/AutoDownload";
    QTest::newRow("trigger test") << "Recording"
                                  << "triggerTest"
                                  << "recording/useTriggerTest";
}

void TestPageDialogs::switchesSettings()
{
    QFETCH(QString, page);
    QFETCH(QString, box);
    QFETCH(QString, key);
    StandInHost host;
    host.settings().setValue("recording/AutoDownload", true);
    host.settings().setValue(key, true);
    PageDialogs dialogs(host);
    dialogs.showPage(page);
    QVERIFY(visit([&] { dialogs.exec(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QVERIFY(isChecked(view, box));
                      QVERIFY(click(view, '#' + box));
                  }));
    QCOMPARE(host.settings().value(key, QVariant()), QVariant(false));
}

void TestPageDialogs::tellsWhatCouldNotBeStored_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("before");
    QTest::newRow("style") << "Style"
                           << "styleDark"
                           << "styleLight";
    QTest::newRow("units") << "Units"
                           << "unitsImperial"
                           << "unitsMetric";
    QTest::newRow("bit depth") << "Display"
                               << "realBitDepth" << QString();
    QTest::newRow("download") << "Recording"
                              << "autoDownload" << QString();
}

void TestPageDialogs::tellsWhatCouldNotBeStored()
{
    QFETCH(QString, page);
    QFETCH(QString, choice);
    QFETCH(QString, before);
    QTemporaryDir folder;
    QVERIFY(QFile(folder.filePath("taken")).open(QIODevice::WriteOnly));
    StandInHost host(folder.filePath("taken/settings.ini")); // below a file
    PageDialogs dialogs(host);
    dialogs.showPage(page);
    LogCapture log; // of the failure
    QVERIFY(
        visit([&] { dialogs.exec(); },
              [&](GUI_WebViewDialog &, GUI_WebView *view) {
                  QVERIFY(click(view, '#' + choice));
                  QTRY_COMPARE(text(view, "#state"), QString("The setting could not be stored."));
                  QCOMPARE(read(view, "document.getElementById('state').hidden").toBool(), false);
                  QVERIFY(!isChecked(view, choice)); // as it is stored
                  QVERIFY(before.isEmpty() || isChecked(view, before));
              }));
    QCOMPARE(host.handledErrors(), QStringList("The settings could not be stored."));
}

void TestPageDialogs::keepsAddressesThatCouldNotBeStored()
{
    QTemporaryDir folder;
    QVERIFY(QFile(folder.filePath("taken")).open(QIODevice::WriteOnly));
    StandInHost host(folder.filePath("taken/settings.ini"));
    PageDialogs dialogs(host);
    LogCapture log;
    QVERIFY(visit([&] { host.openEthernetSettings(); },
                  [&](GUI_WebViewDialog &dialog, GUI_WebView *view) {
                      QVERIFY(click(view, "#search"));
                      QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
                      QVERIFY(type(view, "10.1.2.0"));
                      QVERIFY(click(view, "#ok"));
                      QVERIFY(dialog.isVisible());
                      QCOMPARE(text(view, "#state"), QString("The setting could not be stored."));
                      QCOMPARE(read(view, "document.getElementById('search').value").toString(),
                               QString("10.1.2.0"));
                  }));
}

void TestPageDialogs::beginsWithTheFirstAddress()
{
    StandInHost host;
    PageDialogs dialogs(host);
    QVERIFY(visit([&] { host.openEthernetSettings(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QVERIFY(type(view, "10.1.2.3"));
                      QCOMPARE(read(view, "document.getElementById('add').value").toString(),
                               QString("10.1.2.3"));
                  }));
}

void TestPageDialogs::offersTheTriggerTestWithTheDownloadOnly()
{
    StandInHost host;
    host.settings().setValue("recording/AutoDownload", false);
    PageDialogs dialogs(host);
    dialogs.showPage("Recording");
    QVERIFY(visit([&] { dialogs.exec(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QVERIFY(!isEnabled(view, "#triggerTest"));
                      QVERIFY(click(view, "#autoDownload"));
                      QTRY_VERIFY(isEnabled(view, "#triggerTest"));
                  }));
}

void TestPageDialogs::tellsTheGreatestValue()
{
    StandInHost host;
    host.addCamera()->state().imageFormat = ImageFormat{12, 10};
    PageDialogs dialogs(host);
    dialogs.showPage("Display");
    QVERIFY(visit([&] { dialogs.exec(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QCOMPARE(text(view, "#range"), QString("The greatest value is 255 now."));
                      QVERIFY(click(view, "#realBitDepth"));
                      QTRY_COMPARE(text(view, "#range"),
                                   QString("The greatest value is 1023 now."));
                  }));
}

void TestPageDialogs::opensThePageOfAName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << ""
                          << "style";
    QTest::newRow("translated") << "Einheiten"
                                << "units";
    QTest::newRow("another case") << "display"
                                  << "display";
    QTest::newRow("unknown") << "network"
                             << "style";
}

void TestPageDialogs::opensThePageOfAName()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    StandInHost host;
    host.state().translations = {{"Units", "Einheiten"}};
    PageDialogs dialogs(host);
    dialogs.showPage(name);
    QVERIFY(visit([&] { dialogs.exec(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QStringList seen;
                      for (const char *id : {"style", "units", "display", "recording"}) {
                          if (isShown(view, QString("section#") + id))
                              seen.append(id);
                      }
                      QCOMPARE(seen, QStringList(shown));
                      QVERIFY(click(view, "#tab-recording"));
                      QVERIFY(isShown(view, "section#recording"));
                      QVERIFY(!isShown(view, "section#" + shown));
                  }));
}

void TestPageDialogs::marksTheStateWhileItIsOpen()
{
    StandInHost host;
    PageDialogs dialogs(host);
    QVERIFY(visit([&] { dialogs.exec(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *) {
                      QVERIFY(host.state().isPrefsDialogOpen && host.state().isModalDialogOpen);
                  }));
    QVERIFY(!host.state().isPrefsDialogOpen && !host.state().isModalDialogOpen);
}

void TestPageDialogs::answersHowItEnded()
{
    StandInHost host;
    PageDialogs dialogs(host);
    int result = -1;
    QVERIFY(visit([&] { result = dialogs.exec(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) { QVERIFY(click(view, "#close")); }));
    QCOMPARE(result, int(QDialog::Accepted));
    QVERIFY(visit([&] { result = dialogs.exec(); },
                  [&](GUI_WebViewDialog &dialog, GUI_WebView *) { dialog.close(); }));
    QCOMPARE(result, int(QDialog::Rejected));
}

// A slot opens a dialog and answers its result, while its own page waits.
void TestPageDialogs::isReachedFromAPage()
{
    StandInHost host;
    PageDialogs dialogs(host);
    GUI_WebView view(&host, nullptr);
    JS_Mediator_Page mediator(&host, "x");
    host.showMediator(&view, &mediator);
    view.setHtml("<p>x</p>");
    QVariant result;
    QVERIFY(visit([&] { result = read(&view, "x.openPrefsDialog('Units')"); },
                  [&](GUI_WebViewDialog &, GUI_WebView *page) {
                      QVERIFY(isShown(page, "section#units"));
                      QVERIFY(click(page, "#close"));
                  }));
    QCOMPARE(result.toInt(), 1);
}

void TestPageDialogs::tellsTheVersion()
{
    StandInHost host;
    host.state().hostVersion = "4.5.6";
    PageDialogs dialogs(host);
    QVERIFY(visit([&] { host.openAboutDialog(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QCOMPARE(text(view, "#version"), QString("Version 4.5.6"));
                      QVERIFY(click(view, "#close"));
                  }));
}

void TestPageDialogs::changesAddresses()
{
    StandInHost host;
    PageDialogs dialogs(host);
    QVERIFY(visit([&] { host.openEthernetSettings(); },
                  [&](GUI_WebViewDialog &dialog, GUI_WebView *view) {
                      QCOMPARE(read(view, "document.getElementById('add').value").toString(),
                               QString("192.168.0.10"));
                      QVERIFY(click(view, "#search"));
                      QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
                      QVERIFY(type(view, "10.1.2.0"));
                      QVERIFY(click(view, "#ok"));
                      QVERIFY(!dialog.isVisible());
                  }));
    QCOMPARE(host.settings().value("cameraconnection/SearchIP", QVariant()).toString(),
             QString("10.1.2.0"));
    QCOMPARE(host.settings().value("cameraconnection/AddIPDefault", QVariant()).toString(),
             QString("192.168.0.10"));
}

void TestPageDialogs::refusesWhatIsNoAddress_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("three numbers") << "10.1.2";
    QTest::newRow("a number too large") << "10.1.2.256";
    QTest::newRow("no number") << "10.1.2.x";
    QTest::newRow("an empty part") << "10..2.1";
}

void TestPageDialogs::refusesWhatIsNoAddress()
{
    QFETCH(QString, text);
    StandInHost host;
    PageDialogs dialogs(host);
    QVERIFY(visit([&] { host.openEthernetSettings(); },
                  [&](GUI_WebViewDialog &, GUI_WebView *view) {
                      QVERIFY(isEnabled(view, "#ok") && !isShown(view, "#state"));
                      QVERIFY(click(view, "#add"));
                      QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
                      QVERIFY(type(view, text));
                      QVERIFY(!isEnabled(view, "#ok") && isShown(view, "#state"));
                      QVERIFY(read(view, "document.getElementById('add').className").toString() ==
                              "wrong");
                  }));
    QVERIFY(!host.settings().contains("cameraconnection/AddIPDefault"));
}

void TestPageDialogs::cancelLeavesTheAddresses()
{
    StandInHost host;
    PageDialogs dialogs(host);
    QVERIFY(visit([&] { host.openEthernetSettings(); },
                  [&](GUI_WebViewDialog &dialog, GUI_WebView *view) {
                      QVERIFY(click(view, "#add"));
                      QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
                      QVERIFY(type(view, "10.1.2.3"));
                      QVERIFY(click(view, "#cancel"));
                      QVERIFY(!dialog.isVisible());
                  }));
    QVERIFY(!host.settings().contains("cameraconnection/AddIPDefault"));
}

void TestPageDialogs::leavesTheHostWhenItGoes()
{
    StandInHost host;
    {
        PageDialogs dialogs(host);
    }
    host.state().prefsDialogResult = 7;
    QCOMPARE(host.prefsDialog()->exec(), 7);
    host.openAboutDialog();
    host.openEthernetSettings();
    QVERIFY(!QApplication::activeModalWidget());
}

void TestPageDialogs::hasBothNativeSheets()
{
    StandInHost host;
    const PageDialogs dialogs(host);
    const QString light = Theme::readStyleSheet("://ui-native-light.css");
    const QString dark = Theme::readStyleSheet("://ui-native-dark.css");
    QVERIFY(light.contains("QDockWidget") && dark.contains("QDockWidget"));
    QVERIFY(light != dark);
}

int main(int argc, char **argv)
{
    TestPageDialogs test;
    return runTest(argc, argv, test);
}

#include "test_page_dialogs.moc"
