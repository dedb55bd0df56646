#include "bridge/dialog/DialogPlacement.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QFocusEvent>
#include <QGuiApplication>
#include <QPropertyAnimation>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

// A dialog with one page, from its construction to its end.

class TestWebViewDialog : public TestBase
{
    Q_OBJECT

private slots:
    void hostIsAskedInOrder();
    void windowIsAsTold();
    void loadingIsTraced();
    void pageIsNotSeenWhileItLoads();
    void pageFadesIn();
    void fadeInBeginsWhereTheDialogStandsStill();
    void refreshCanBeLeftOut();
    void missingPageGivesAnEmptyDialog();
    void missingPageGivesTheCloseButtonBack_data();
    void missingPageGivesTheCloseButtonBack();
    void closeButtonComesBackBehindTheOtherSteps();
    void hostHearsOfTheDialog_data();
    void hostHearsOfTheDialog();
    void pageAccepts();
    void pageRejectsAndHearsOfIt();
    void frameClosesAndThePageHearsOfIt();
    void escapeDoesNothing();
    void furtherMediatorIsShown();
    void mediatorsGoInOrder();
    void dialogWithoutMediator();
    void failureWhileConstructedUndoesWhatWasDone_data();
    void failureWhileConstructedUndoesWhatWasDone();
    void failureWhileLoadingGoesToTheHost_data();
    void failureWhileLoadingGoesToTheHost();
    void failureWhileLeavingGoesToTheHost();
    void failureWhileClosingGoesToTheHost_data();
    void failureWhileClosingGoesToTheHost();
    void failureOfAnOverrideGoesToTheHost_data();
    void failureOfAnOverrideGoesToTheHost();
    void eventThatFailsIsTaken();
    void dialogCanCloseBehindAFailure();
    void dialogThatGoesWhileItLoads();
    void hostMayEndItWhileItLoads_data();
    void hostMayEndItWhileItLoads();
    void reloadHoldsRefreshesBackOnce();
    void pageCallsSlotsWhileItsDialogCloses();
    void dialogsOpenFromInsideSlots();
    void reloadEndsTheFadeInOfThePageBefore();
    void deleteLaterFromScriptDeletesNothing();
    void deferredUpdatesEndWithTheLoad();
    void centredWithoutMainWidget();
    void staysWithAMainWidget();
    void unknownScreenMeansItsOwn_data();
    void unknownScreenMeansItsOwn();
    void unknownScreenCentresWhereTheDialogIs();
    void middleIsCounted_data();
    void middleIsCounted();
    void noDialogIsLeft();
};

namespace {

const QString Calls = QStringLiteral("qrc:/pages/calls.html");

class OpenDialog : public GUI_WebViewDialog
{
public:
    explicit OpenDialog(HostServices *host, JS_Mediator_Dialog *mediator = nullptr,
                        const QString &url = Calls)
        : GUI_WebViewDialog(host, QStringLiteral("Calls"), url, mediator, nullptr)
    {
    }

    using GUI_WebViewDialog::setRefreshOnLoad;
};

/// Asks the host in everything that a page can start.
class AskingDialog : public GUI_WebViewDialog
{
public:
    AskingDialog(HostServices *host, JS_Mediator_Dialog *mediator)
        : GUI_WebViewDialog(host, QStringLiteral("Calls"), Calls, mediator, nullptr)
    {
    }

    void accept() override
    {
        ask("accept");
        GUI_WebViewDialog::accept();
    }
    void reject() override
    {
        ask("reject");
        GUI_WebViewDialog::reject();
    }

    QByteArray asking; ///< in which of them

protected:
    void showEvent(QShowEvent *event) override
    {
        GUI_WebViewDialog::showEvent(event);
        ask("showEvent");
    }
    void hideEvent(QHideEvent *event) override
    {
        GUI_WebViewDialog::hideEvent(event);
        ask("hideEvent");
    }

private:
    void ask(const char *place)
    {
        if (asking == place)
            host()->isReady();
    }
};

// Opens a dialog of its own from a slot, as pages do.
class NestingMediator : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    NestingMediator(HostServices *host, int depth)
        : JS_Mediator_Dialog(host, QStringLiteral("bridge")), m_depth(depth)
    {
    }

public slots:
    QString openInner()
    {
        auto *inner = new NestingMediator(host(), m_depth - 1);
        OpenDialog dialog(host(), inner);
        PageProbe page(dialog.webView());
        dialog.resize(400, 300);
        QString result;
        connect(dialog.webView(), &QWebView::loadFinished, &dialog, [&] {
            if (m_depth > 1)
                result = page.call("bridge.openInner()");
            QTimer::singleShot(0, &dialog, [&] { page.call("bridge.accept()"); });
        });
        const int code = dialog.exec();
        return QString::number(m_depth) + QLatin1Char(':') + QString::number(code) + result;
    }

private:
    int m_depth;
};

/// Why the widget gets the focus while this lives.
class FocusReasons : public QObject
{
public:
    explicit FocusReasons(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            reasons.append(int(static_cast<QFocusEvent *>(event)->reason()));
        return false;
    }

    QList<int> reasons;
};

class NamedMediator : public JS_Mediator_Dialog
{
public:
    NamedMediator(HostServices *host, const QString &name, QStringList *gone)
        : JS_Mediator_Dialog(host, name), m_gone(gone)
    {
    }
    ~NamedMediator() override
    {
        m_gone->append(pageName());
        m_gone->append(static_cast<StandInHost *>(host())->commands().last());
    }

private:
    QStringList *m_gone;
};

}

void TestWebViewDialog::hostIsAskedInOrder()
{
    StandInHost host;
    OpenDialog dialog(&host, new JS_Mediator_Dialog(&host, QStringLiteral("bridge")));
    PageProbe page(dialog.webView());
    dialog.show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(host.journal(),
             QStringList({"needsDialogEnterNotice()", "translate(\"Calls\")",
                          "attachMediator(GUI_WebView, JS_Mediator_Dialog)", "deterUpdateUI(true)",
                          "mainWidget()", "getPrefInt(\"main/scrno\", invalid)",
                          "deterUpdateUI(false)", "updateUI(4294967295, true)"}));
}

void TestWebViewDialog::windowIsAsTold()
{
    StandInHost host;
    host.state().translations.insert("Calls", "Aufrufe");
    OpenDialog dialog(&host);
    QCOMPARE(int(dialog.windowFlags() & ~Qt::WindowType_Mask), 0x8003000);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Aufrufe"));
    QCOMPARE(dialog.webView()->parentWidget(), static_cast<QWidget *>(&dialog));
    QVERIFY(qobject_cast<QVBoxLayout *>(dialog.layout()));
    QCOMPARE(dialog.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    dialog.resize(321, 234);
    dialog.show();
    QCOMPARE(dialog.webView()->geometry(), QRect(0, 0, 321, 234));
}

void TestWebViewDialog::loadingIsTraced()
{
    StandInHost host;
    LogCapture log;
    OpenDialog dialog(&host);
    PageProbe page(dialog.webView());
    QVERIFY(page.waitLoaded());
    QCOMPARE(log.texts(), QStringList({"[ENTER] \"GUI_WebViewDialog::loadStarted\" \"\"",
                                       "[LEAVE] \"GUI_WebViewDialog::loadStarted\"",
                                       "[ENTER] \"GUI_WebViewDialog::loadFinished\" \"[ok:true]\"",
                                       "[LEAVE] \"GUI_WebViewDialog::loadFinished\""}));
}

void TestWebViewDialog::pageIsNotSeenWhileItLoads()
{
    DialogPage shown;
    QTRY_COMPARE(shown.dialog.windowOpacity(), 1.0);
    QVERIFY(QTest::qWaitForWindowActive(&shown.dialog));
    shown.dialog.setFocus();
    FocusReasons focus(shown.dialog.webView());
    QVERIFY(QMetaObject::invokeMethod(&shown.dialog, "loadStarted"));
    QCOMPARE(focus.reasons, QList<int>({7})); // for a reason of its own, neither mouse nor key
    QCOMPARE(shown.dialog.windowOpacity(), 0.0);
    QCOMPARE(shown.dialog.focusWidget(), static_cast<QWidget *>(shown.dialog.webView()));
    QVERIFY(QMetaObject::invokeMethod(&shown.dialog, "loadFinished", Q_ARG(bool, true)));
    QTRY_COMPARE(shown.dialog.windowOpacity(), 1.0);
}

void TestWebViewDialog::pageFadesIn()
{
    StandInHost host;
    OpenDialog dialog(&host);
    dialog.show();
    PageProbe page(dialog.webView());
    QTRY_COMPARE(dialog.windowOpacity(), 0.0);
    QCOMPARE(dialog.focusWidget(), static_cast<QWidget *>(dialog.webView()));
    QVERIFY(page.waitLoaded());
    QVERIFY(dialog.windowOpacity() < 1.0);
    const auto animations = dialog.findChildren<QPropertyAnimation *>();
    QCOMPARE(animations.size(), 1);
    QCOMPARE(animations.first()->propertyName(), QByteArray("windowOpacity"));
    QCOMPARE(animations.first()->duration(), 500);
    QCOMPARE(animations.first()->startValue().toDouble(), 0.0);
    QCOMPARE(animations.first()->endValue().toDouble(), 1.0);
    QTRY_COMPARE(dialog.windowOpacity(), 1.0);
    QTRY_VERIFY(dialog.findChildren<QPropertyAnimation *>().isEmpty());
}

// Behind the centring and ahead of the refresh, which may take its time.
void TestWebViewDialog::fadeInBeginsWhereTheDialogStandsStill()
{
    DialogPage shown;
    QTRY_VERIFY(shown.dialog.findChildren<QPropertyAnimation *>().isEmpty());
    QStringList story;
    connect(shown.host.events(), &StandInEvents::callJournalled, this, [&](const QString &line) {
        const bool fading = !shown.dialog.findChildren<QPropertyAnimation *>().isEmpty();
        story.append((fading ? "fading in: " : "") + line);
    });
    QVERIFY(QMetaObject::invokeMethod(&shown.dialog, "loadStarted"));
    QVERIFY(QMetaObject::invokeMethod(&shown.dialog, "loadFinished", Q_ARG(bool, true)));
    QCOMPARE(
        story,
        QStringList({"deterUpdateUI(true)", "mainWidget()", "getPrefInt(\"main/scrno\", invalid)",
                     "fading in: deterUpdateUI(false)", "fading in: updateUI(4294967295, true)"}));
}

void TestWebViewDialog::refreshCanBeLeftOut()
{
    StandInHost host;
    OpenDialog dialog(&host);
    dialog.setRefreshOnLoad(false);
    PageProbe page(dialog.webView());
    QVERIFY(page.waitLoaded());
    QCOMPARE(host.commands(), QStringList({"attachMediator(GUI_WebView, null)",
                                           "deterUpdateUI(true)", "deterUpdateUI(false)"}));
}

void TestWebViewDialog::missingPageGivesAnEmptyDialog()
{
    StandInHost host;
    LogCapture log;
    OpenDialog dialog(&host, new JS_Mediator_Dialog(&host, QStringLiteral("bridge")),
                      QStringLiteral("qrc:/pages/absent.html"));
    PageProbe page(dialog.webView());
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    dialog.setFixedSize(200, 100);
    dialog.show();
    QVERIFY(page.waitLoaded());
    QVERIFY(!page.isFound());
    QVERIFY(log.texts().contains("[ENTER] \"GUI_WebViewDialog::loadFinished\" \"[ok:false]\""));
    QCOMPARE(host.deterrals(), 0);
    QVERIFY(host.commands().contains("updateUI(4294967295, true)"));
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(dialog.pos(),
             screen.topLeft() + QPoint((screen.width() - 200) / 2, (screen.height() - 100) / 2));
    QTRY_COMPARE(dialog.windowOpacity(), 1.0);
    QVERIFY(dialog.close());
    QVERIFY(!dialog.isVisible());
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(log.texts(QtWarningMsg) + log.texts(QtCriticalMsg), QStringList());
}

void TestWebViewDialog::missingPageGivesTheCloseButtonBack_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("button");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<int>("emissions");
    const QString absent = QStringLiteral("qrc:/pages/absent.html");
    QTest::newRow("on the screen") << absent << false << true << 1;
    QTest::newRow("not on the screen") << absent << false << false << 0;
    QTest::newRow("with its button") << absent << true << true << 0;
    QTest::newRow("page that is there") << Calls << false << true << 0;
}

void TestWebViewDialog::missingPageGivesTheCloseButtonBack()
{
    QFETCH(QString, url);
    QFETCH(bool, button);
    QFETCH(bool, shown);
    StandInHost host;
    OpenDialog dialog(&host, nullptr, url);
    PageProbe page(dialog.webView());
    dialog.setWindowFlag(Qt::WindowCloseButtonHint, button);
    if (shown)
        dialog.show();
    QSignalSpy enabled(&dialog, &GUI_Dialog::signalEnableCloseButton);
    QVERIFY(page.waitLoaded());
    QTEST(enabled.count(), "emissions");
    QCOMPARE(bool(dialog.windowFlags() & Qt::WindowCloseButtonHint),
             button || enabled.count() == 1);
    QCOMPARE(dialog.isVisible(), shown);
}

void TestWebViewDialog::closeButtonComesBackBehindTheOtherSteps()
{
    StandInHost host;
    OpenDialog dialog(&host, nullptr, QStringLiteral("qrc:/pages/absent.html"));
    PageProbe page(dialog.webView());
    dialog.setWindowFlag(Qt::WindowCloseButtonHint, false);
    dialog.show();
    QStringList before;
    LogCapture log;
    connect(&dialog, &GUI_Dialog::signalEnableCloseButton, this, [&] {
        before = host.commands();
        qInfo("enabled");
    });
    QVERIFY(page.waitLoaded());
    QCOMPARE(before.mid(1), QStringList({"deterUpdateUI(true)", "deterUpdateUI(false)",
                                         "updateUI(4294967295, true)"}));
    QCOMPARE(log.texts().mid(log.texts().size() - 3),
             QStringList({"[ENTER] \"GUI_WebViewDialog::loadFinished\" \"[ok:false]\"", "enabled",
                          "[LEAVE] \"GUI_WebViewDialog::loadFinished\""}));
    QVERIFY(dialog.close());
}

void TestWebViewDialog::hostHearsOfTheDialog_data()
{
    QTest::addColumn<bool>("needed");
    QTest::addColumn<bool>("suppressed");
    QTest::addColumn<QStringList>("entered");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("not needed") << false << false << QStringList({"needsDialogEnterNotice()"})
                                << QStringList();
    QTest::newRow("needed") << true << false
                            << QStringList({"needsDialogEnterNotice()", "notifyDialogEntered()"})
                            << QStringList({"isDialogExitSuppressed()", "notifyDialogLeft()"});
    QTest::newRow("suppressed") << true << true
                                << QStringList(
                                       {"needsDialogEnterNotice()", "notifyDialogEntered()"})
                                << QStringList({"isDialogExitSuppressed()"});
}

void TestWebViewDialog::hostHearsOfTheDialog()
{
    QFETCH(bool, needed);
    QFETCH(bool, suppressed);
    QFETCH(QStringList, entered);
    QFETCH(QStringList, left);
    StandInHost host;
    host.state().needsDialogEnterNotice = needed;
    host.state().isDialogExitSuppressed = suppressed;
    {
        OpenDialog dialog(&host);
        PageProbe page(dialog.webView());
        QCOMPARE(host.journal().mid(0, entered.size()), entered);
        QVERIFY(page.waitLoaded());
        host.clearJournal();
    }
    QCOMPARE(host.journal(), left);
}

void TestWebViewDialog::pageAccepts()
{
    DialogPage shown;
    QSignalSpy accepted(&shown.dialog, &QDialog::accepted);
    shown.page.call("bridge.accept()");
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(shown.dialog.result(), int(QDialog::Accepted));
    QVERIFY(!shown.dialog.isVisible());
}

void TestWebViewDialog::pageRejectsAndHearsOfIt()
{
    DialogPage shown;
    shown.page.evaluate("var heard = 0; bridge.rejected.connect(function () { ++heard; })");
    shown.page.call("bridge.reject()");
    QCOMPARE(shown.dialog.result(), int(QDialog::Rejected));
    QVERIFY(!shown.dialog.isVisible());
    QCOMPARE(shown.page.evaluate("heard").toInt(), 1);
}

void TestWebViewDialog::frameClosesAndThePageHearsOfIt()
{
    DialogPage shown;
    shown.page.evaluate("bridge.rejected.connect(function () { bridge.infoLog('heard'); })");
    LogCapture log;
    QVERIFY(shown.dialog.close());
    QVERIFY(!shown.dialog.isVisible());
    QCOMPARE(log.texts(),
             QStringList({"[USER] \"[URL:GUI_WebViewDialog] [ID:close] [Control:Button] "
                          "[Operation:clicked] [Value:] \"",
                          "[ENTER] \"GUI_WebViewDialog::closeEvent\" \"\"", "\"heard\"",
                          "[LEAVE] \"GUI_WebViewDialog::closeEvent\""}));
}

void TestWebViewDialog::escapeDoesNothing()
{
    DialogPage shown;
    QTest::keyClick(shown.dialog.webView(), Qt::Key_Escape);
    QTest::keyClick(&shown.dialog, Qt::Key_Escape);
    QVERIFY(shown.dialog.isVisible());
}

void TestWebViewDialog::furtherMediatorIsShown()
{
    StandInHost host;
    host.settings().declare({"a/b"});
    OpenDialog dialog(&host, new JS_Mediator_Dialog(&host, QStringLiteral("bridge")));
    host.clearJournal();
    dialog.addMediator(new JS_Mediator(&host, QStringLiteral("names")));
    QCOMPARE(host.commands(), QStringList({"attachMediator(GUI_WebView, JS_Mediator)"}));
    PageProbe page(dialog.webView());
    dialog.resize(400, 300);
    dialog.show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(page.call("names.getPrefInt('a/b', 2) + bridge.getPrefInt('a/b', 3)"),
             QStringLiteral("5"));
}

void TestWebViewDialog::mediatorsGoInOrder()
{
    StandInHost host;
    host.state().needsDialogEnterNotice = true;
    QStringList gone;
    {
        OpenDialog dialog(&host, new NamedMediator(&host, QStringLiteral("main"), &gone));
        dialog.addMediator(new NamedMediator(&host, QStringLiteral("second"), &gone));
        dialog.addMediator(new NamedMediator(&host, QStringLiteral("third"), &gone));
        host.clearJournal();
    }
    // The host hears of it first, while all of them are there.
    QCOMPARE(gone, QStringList({"main", "notifyDialogLeft()", "second", "notifyDialogLeft()",
                                "third", "notifyDialogLeft()"}));
}

void TestWebViewDialog::dialogWithoutMediator()
{
    StandInHost host;
    OpenDialog dialog(&host);
    PageProbe page(dialog.webView());
    dialog.resize(400, 300);
    dialog.show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(dialog.mediator(), static_cast<JS_Mediator_Dialog *>(nullptr));
    QCOMPARE(host.commands().first(), QStringLiteral("attachMediator(GUI_WebView, null)"));
    QCOMPARE(page.call("app.objectName + ' ' + main.objectName"), QStringLiteral("\"app main\""));
    QVERIFY(dialog.close());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestWebViewDialog::failureWhileConstructedUndoesWhatWasDone_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QStringList>("commands");
    QTest::newRow("question") << "needsDialogEnterNotice" << QStringList();
    QTest::newRow("entering") << "notifyDialogEntered" << QStringList({"notifyDialogEntered()"});
    QTest::newRow("title") << "translate"
                           << QStringList({"notifyDialogEntered()", "notifyDialogLeft()"});
    QTest::newRow("attaching") << "attachMediator"
                               << QStringList({"notifyDialogEntered()",
                                               "attachMediator(GUI_WebView, JS_Mediator_Dialog)",
                                               "notifyDialogLeft()"});
}

void TestWebViewDialog::failureWhileConstructedUndoesWhatWasDone()
{
    QFETCH(QString, operation);
    QFETCH(QStringList, commands);
    StandInHost host;
    host.state().needsDialogEnterNotice = true;
    host.failOn(operation);
    QPointer<JS_Mediator_Dialog> mediator(new JS_Mediator_Dialog(&host, QStringLiteral("bridge")));
    QVERIFY_EXCEPTION_THROWN(OpenDialog(&host, mediator), StandInFault);
    QVERIFY(!mediator);
    QCOMPARE(host.commands(), commands);
    QCOMPARE(host.handledErrors(), QStringList()); // who opens the dialog handles it
}

void TestWebViewDialog::failureWhileLoadingGoesToTheHost_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("nth");
    QTest::newRow("holding back") << "deterUpdateUI" << 1;
    QTest::newRow("placing") << "mainWidget" << 1;
    QTest::newRow("screen") << "getPrefInt" << 1;
    QTest::newRow("going on") << "deterUpdateUI" << 2;
    QTest::newRow("refresh") << "updateUI" << 1;
}

void TestWebViewDialog::failureWhileLoadingGoesToTheHost()
{
    QFETCH(QString, operation);
    QFETCH(int, nth);
    StandInHost host;
    host.failOn(operation, nth);
    OpenDialog dialog(&host);
    PageProbe page(dialog.webView());
    dialog.show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(host.handledErrors(), QStringList({operation + " failed"}));
    QTRY_COMPARE(dialog.windowOpacity(), 1.0);
    QVERIFY(host.commands().contains("updateUI(4294967295, true)")); // the other steps follow
}

void TestWebViewDialog::failureWhileLeavingGoesToTheHost()
{
    StandInHost host;
    host.state().needsDialogEnterNotice = true;
    {
        OpenDialog dialog(&host);
        host.failOn(QStringLiteral("notifyDialogLeft"));
    }
    QCOMPARE(host.handledErrors(), QStringList({"notifyDialogLeft failed"}));
}

void TestWebViewDialog::failureWhileClosingGoesToTheHost_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("result");
    QTest::newRow("page accepts") << "page.accept" << int(QDialog::Accepted);
    QTest::newRow("page rejects") << "page.reject" << int(QDialog::Rejected);
    QTest::newRow("done") << "done" << 7;
    QTest::newRow("accept") << "accept" << int(QDialog::Accepted);
    QTest::newRow("reject") << "reject" << int(QDialog::Rejected);
    QTest::newRow("frame") << "close" << int(QDialog::Rejected);
}

// Somebody who listens to the dialog's end asks the host, which fails.
void TestWebViewDialog::failureWhileClosingGoesToTheHost()
{
    QFETCH(QString, way);
    DialogPage shown;
    connect(&shown.dialog, &QDialog::finished, this, [&] { shown.host.isReady(); });
    shown.host.failOn(QStringLiteral("isReady"));
    if (way.startsWith(QLatin1String("page.")))
        shown.page.call(QStringLiteral("bridge.%1()").arg(way.mid(5)));
    else if (way == QLatin1String("done"))
        shown.dialog.done(7);
    else
        QVERIFY(QMetaObject::invokeMethod(&shown.dialog, qPrintable(way)));
    QCOMPARE(shown.host.handledErrors(), QStringList({"isReady failed"}));
    QVERIFY(!shown.dialog.isVisible());
    QTEST(shown.dialog.result(), "result");
}

void TestWebViewDialog::failureOfAnOverrideGoesToTheHost_data()
{
    QTest::addColumn<QByteArray>("place");
    QTest::addColumn<QString>("way");
    QTest::newRow("page accepts") << QByteArray("accept") << "page.accept";
    QTest::newRow("page rejects") << QByteArray("reject") << "page.reject";
    QTest::newRow("frame") << QByteArray("reject") << "close";
    QTest::newRow("show") << QByteArray("showEvent") << "show";
    QTest::newRow("open") << QByteArray("showEvent") << "open";
    QTest::newRow("shown full") << QByteArray("showEvent") << "showFullScreen";
    QTest::newRow("hide") << QByteArray("hideEvent") << "hide";
    QTest::newRow("hidden at the end") << QByteArray("hideEvent") << "page.accept";
}

void TestWebViewDialog::failureOfAnOverrideGoesToTheHost()
{
    QFETCH(QByteArray, place);
    QFETCH(QString, way);
    StandInHost host;
    AskingDialog dialog(&host, new JS_Mediator_Dialog(&host, QStringLiteral("bridge")));
    PageProbe page(dialog.webView());
    dialog.resize(400, 300);
    dialog.show();
    QVERIFY(page.waitLoaded());
    if (place == "showEvent")
        dialog.hide();
    dialog.asking = place;
    host.failOn(QStringLiteral("isReady"));
    if (way.startsWith(QLatin1String("page.")))
        page.call(QStringLiteral("bridge.%1()").arg(way.mid(5)));
    else
        QVERIFY(QMetaObject::invokeMethod(&dialog, qPrintable(way)));
    QCOMPARE(host.handledErrors(), QStringList({"isReady failed"}));
    QCOMPARE(dialog.isVisible(), place != "hideEvent"); // what fails to end stays on the screen
}

// It is not offered to anybody else.
void TestWebViewDialog::eventThatFailsIsTaken()
{
    StandInHost host;
    AskingDialog dialog(&host, nullptr);
    dialog.asking = "showEvent";
    host.failOn(QStringLiteral("isReady"));
    QShowEvent event;
    QVERIFY(static_cast<QObject &>(dialog).event(&event));
    QCOMPARE(host.handledErrors(), QStringList({"isReady failed"}));
}

void TestWebViewDialog::dialogCanCloseBehindAFailure()
{
    DialogPage shown;
    connect(&shown.dialog, &QDialog::finished, this, [&] { shown.host.isReady(); });
    shown.host.failOn(QStringLiteral("isReady"));
    shown.dialog.accept();
    shown.dialog.show();
    shown.dialog.reject();
    QVERIFY(!shown.dialog.isVisible());
    QCOMPARE(shown.dialog.result(), int(QDialog::Rejected));
}

void TestWebViewDialog::dialogThatGoesWhileItLoads()
{
    StandInHost host;
    host.state().needsDialogEnterNotice = true;
    {
        OpenDialog dialog(&host);
        QTRY_COMPARE(host.deterrals(), 1);
        host.clearJournal();
    }
    QCOMPARE(host.deterrals(), 0);
    // The application is told that it has gone when it is free to refresh.
    QCOMPARE(host.journal(), QStringList({"deterUpdateUI(false)", "isDialogExitSuppressed()",
                                          "notifyDialogLeft()"}));
}

void TestWebViewDialog::hostMayEndItWhileItLoads_data()
{
    QTest::addColumn<QString>("call");
    for (const char *call :
         {"deterUpdateUI(true)", "mainWidget()", "getPrefInt(\"main/scrno\", invalid)",
          "deterUpdateUI(false)", "updateUI(4294967295, true)"})
        QTest::newRow(call) << QString::fromLatin1(call);
}

// Nothing more is asked for a dialog that has gone, and what it held is given back.
void TestWebViewDialog::hostMayEndItWhileItLoads()
{
    QFETCH(QString, call);
    StandInHost host;
    QPointer<OpenDialog> dialog(new OpenDialog(&host));
    PageProbe page(dialog->webView());
    dialog->show();
    QVERIFY(page.waitLoaded());
    QStringList story;
    connect(host.events(), &StandInEvents::callJournalled, this, [&](const QString &line) {
        story.append(line);
        if (line == call)
            delete dialog;
    });
    QVERIFY(QMetaObject::invokeMethod(dialog, "loadStarted"));
    if (dialog)
        QVERIFY(QMetaObject::invokeMethod(dialog, "loadFinished", Q_ARG(bool, true)));
    QVERIFY(!dialog);
    QVERIFY(!story.contains("updateUI(4294967295, true)") || story.last() == call);
    QCOMPARE(host.deterrals(), 0);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestWebViewDialog::reloadHoldsRefreshesBackOnce()
{
    DialogPage shown;
    shown.dialog.webView()->reload();
    shown.dialog.webView()->reload();
    QVERIFY(shown.page.waitLoaded());
    QTRY_COMPARE(shown.host.deterrals(), 0);
    shown.host.clearJournal();
    QVERIFY(QMetaObject::invokeMethod(&shown.dialog, "loadStarted"));
    QVERIFY(QMetaObject::invokeMethod(&shown.dialog, "loadStarted")); // no end in between
    QCOMPARE(shown.host.commands(), QStringList({"deterUpdateUI(true)"}));
    QVERIFY(QMetaObject::invokeMethod(&shown.dialog, "loadFinished", Q_ARG(bool, true)));
    QCOMPARE(shown.host.deterrals(), 0);
}

void TestWebViewDialog::pageCallsSlotsWhileItsDialogCloses()
{
    DialogPage shown;
    shown.page.evaluate("bridge.rejected.connect(function () {"
                        "    bridge.setPrefInt('a/b', 1); bridge.getControlStatus();"
                        "    bridge.reject(); bridge.accept(); bridge.closePlugin('t_x'); })");
    QVERIFY(shown.dialog.close());
    QVERIFY(!shown.dialog.isVisible());
    QCOMPARE(shown.dialog.result(), int(QDialog::Rejected));
    const QStringList commands = shown.host.commands();
    QCOMPARE(commands.count("setPrefInt(\"a/b\", 1)"), 1);
    QCOMPARE(commands.count("closePluginByName(\"t_x\")"), 1);
    QCOMPARE(shown.host.deterrals(), 0);
}

void TestWebViewDialog::dialogsOpenFromInsideSlots()
{
    StandInHost host;
    host.settings().declare({"a/b"});
    OpenDialog dialog(&host, new NestingMediator(&host, 3));
    PageProbe page(dialog.webView());
    dialog.resize(400, 300);
    dialog.show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(page.call("bridge.openInner()"),
             QStringLiteral("\"3:1\\\"2:1\\\\\\\"1:1\\\\\\\"\\\"\""));
    QVERIFY(dialog.isVisible());
    QCOMPARE(page.call("bridge.getPrefInt('a/b', 4)"), QStringLiteral("4"));
    QCOMPARE(host.deterrals(), 0);
}

// A page that is slow to come again: longer than the fade-in that had begun before.
void TestWebViewDialog::reloadEndsTheFadeInOfThePageBefore()
{
    DialogPage shown;
    QTRY_VERIFY(shown.dialog.windowOpacity() > 0.0);
    QVERIFY(shown.dialog.windowOpacity() < 1.0);
    emit shown.dialog.webView()->loadStarted();
    QCOMPARE(shown.dialog.windowOpacity(), 0.0);
    QTest::qWait(600);
    QCOMPARE(shown.dialog.windowOpacity(), 0.0);
    emit shown.dialog.webView()->loadFinished(true);
    QTRY_COMPARE(shown.dialog.windowOpacity(), 1.0);
}

void TestWebViewDialog::deleteLaterFromScriptDeletesNothing()
{
    DialogPage shown;
    QPointer<JS_Mediator_Dialog> mediator(shown.mediator);
    shown.page.call("bridge.deleteLater(); bridge['deleteLater()']()");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(mediator);
    QCOMPARE(shown.page.call("bridge.getPrefInt('a/b', 4)"), QStringLiteral("4"));
}

void TestWebViewDialog::deferredUpdatesEndWithTheLoad()
{
    DialogPage shown;
    QCOMPARE(shown.host.deterrals(), 0);
    shown.dialog.webView()->reload();
    QTRY_COMPARE(shown.host.deterrals(), 1);
    QVERIFY(shown.page.waitLoaded());
    QCOMPARE(shown.host.deterrals(), 0);
}

void TestWebViewDialog::centredWithoutMainWidget()
{
    StandInHost host;
    host.settings().setValue("main/scrno", 0);
    OpenDialog dialog(&host);
    PageProbe page(dialog.webView());
    dialog.setFixedSize(200, 100);
    dialog.move(5, 7);
    dialog.show();
    QVERIFY(page.waitLoaded());
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(dialog.pos(),
             screen.topLeft() + QPoint((screen.width() - 200) / 2, (screen.height() - 100) / 2));
}

void TestWebViewDialog::staysWithAMainWidget()
{
    StandInHost host;
    QWidget main;
    host.state().mainWidget = &main;
    OpenDialog dialog(&host);
    PageProbe page(dialog.webView());
    dialog.move(5, 7);
    dialog.show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(dialog.pos(), QPoint(5, 7));
    QVERIFY(!host.journal().contains("getPrefInt(\"main/scrno\", invalid)"));
}

void TestWebViewDialog::unknownScreenMeansItsOwn_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<QRect>("dialog");
    QTest::addColumn<int>("number");
    const QRect onFirst(100, 100, 300, 150);
    const QRect onSecond(2000, 200, 300, 150);
    QTest::newRow("first") << 0 << onSecond << 0;
    QTest::newRow("second") << 1 << onFirst << 1;
    QTest::newRow("no sixth, on the first") << 5 << onFirst << 0;
    QTest::newRow("no sixth, on the second") << 5 << onSecond << 1;
    QTest::newRow("just behind the last, on the first") << 2 << onFirst << 0;
    QTest::newRow("just behind the last, on the second") << 2 << onSecond << 1;
    QTest::newRow("negative, on the first") << -1 << onFirst << 0;
    QTest::newRow("negative, on the second") << -1 << onSecond << 1;
    // The screens meet between columns 1919 and 1920; a dialog 301 wide has its centre 150 further.
    QTest::newRow("across, centre on the last column") << -1 << QRect(1769, 200, 301, 151) << 0;
    QTest::newRow("across, centre on the first column") << -1 << QRect(1770, 200, 301, 151) << 1;
    QTest::newRow("left of both") << -1 << QRect(-900, 200, 300, 150) << 0;
    QTest::newRow("right of both") << -1 << QRect(5000, 200, 300, 150) << 0;
    QTest::newRow("beside the lower end of the second") << -1 << QRect(2000, 1125, 300, 150) << 0;
}

void TestWebViewDialog::unknownScreenMeansItsOwn()
{
    QFETCH(int, wanted);
    QFETCH(QRect, dialog);
    const QList<QRect> screens = {QRect(0, 0, 1920, 1080), QRect(1920, 100, 1280, 1024)};
    QTEST(DialogPlacement::screenNumber(wanted, dialog, screens), "number");
}

void TestWebViewDialog::unknownScreenCentresWhereTheDialogIs()
{
    StandInHost host;
    host.settings().setValue("main/scrno", 5);
    OpenDialog dialog(&host);
    PageProbe page(dialog.webView());
    dialog.setFixedSize(200, 100);
    dialog.move(5, 7);
    dialog.show();
    QVERIFY(page.waitLoaded());
    const QRect screen = QGuiApplication::screenAt(QPoint(5, 7))->geometry();
    QCOMPARE(dialog.pos(),
             screen.topLeft() + QPoint((screen.width() - 200) / 2, (screen.height() - 100) / 2));
}

void TestWebViewDialog::middleIsCounted_data()
{
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<QRect>("dialog");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("even") << QRect(0, 0, 1920, 1080) << QRect(3, 4, 510, 530) << QPoint(705, 275);
    QTest::newRow("odd is cut off")
        << QRect(0, 0, 1921, 1081) << QRect(0, 0, 510, 530) << QPoint(705, 275);
    QTest::newRow("second screen")
        << QRect(1920, 100, 1280, 1024) << QRect(0, 0, 300, 150) << QPoint(2410, 537);
    QTest::newRow("screen to the left")
        << QRect(-1280, 0, 1280, 1024) << QRect(0, 0, 300, 150) << QPoint(-790, 437);
    QTest::newRow("higher than the screen")
        << QRect(0, 0, 800, 600) << QRect(0, 0, 600, 921) << QPoint(100, -160);
}

void TestWebViewDialog::middleIsCounted()
{
    QFETCH(QRect, screen);
    QFETCH(QRect, dialog);
    QTEST(DialogPlacement::centered(screen, dialog), "place");
}

void TestWebViewDialog::noDialogIsLeft()
{
    StandInHost host;
    centerDialog(&host, nullptr);
    QCOMPARE(host.journal(), QStringList());
}

int main(int argc, char **argv)
{
    TestWebViewDialog test;
    return runTest(argc, argv, test);
}

#include "test_web_view_dialog.moc"
