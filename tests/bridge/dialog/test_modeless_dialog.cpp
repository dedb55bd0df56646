#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/mediator/JS_Mediator_Plugin.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QMetaMethod>

#include <cstdint>
#include <cstring>
#include <functional>

// The family of mediators, and the dialog that stands beside the main window.

/// Also the classes between the base and a concrete mediator.
class TestModelessDialog : public TestBase
{
    Q_OBJECT

private slots:
    void classesStandOnEachOther_data();
    void classesStandOnEachOther();
    void operationsStandInOrder();
    void slotsAndSignalsStandInOrder_data();
    void slotsAndSignalsStandInOrder();
    void plainPageFindsTheSlotsOfTheBase();
    void newDialogMediatorHasNoWantedSize();
    void wantedSizeIsTold();
    void textBoxTellsItsFocus();
    void nameReachesTheBase();
    void pageCallsItsTool();
    void shownAndClosedAreTold();
    void pageClosesIt();
    void pageAcceptsIt();
    void dialogThatMayNotFinishStays_data();
    void dialogThatMayNotFinishStays();
    void failureInMayFinishKeepsIt();
    void failureOfAListenerGoesToTheHost();
    void listenerMayDeleteIt();
    void listenerMayCloseItAgain();
    void questionMayCloseItAgain();
    void answerHoldsForOneClosing();
    void shownIsToldOfShowingAlone();
    void closeButtonThatComesAndGoesShowsNothing();
    void opensWhereAnyDialogOpens();
    void hidingIsNotClosing();
    void defaultsLetItGo();
};

namespace {

const QString Calls = QStringLiteral("qrc:/pages/calls.html");

class PatternMediator : public JS_Mediator_ModelessPatternDialog
{
public:
    explicit PatternMediator(HostServices *host)
        : JS_Mediator_ModelessPatternDialog(host, QStringLiteral("pattern"))
    {
    }

    void onOpen() override { calls.append(QStringLiteral("onOpen")); }
    void onClose() override { calls.append(QStringLiteral("onClose")); }

    using JS_Mediator_Dialog::setWantedSize;

    QStringList calls;
};

class ToolMediator : public JS_Mediator_Plugin
{
public:
    explicit ToolMediator(HostServices *host) : JS_Mediator_Plugin(host, QStringLiteral("bridge"))
    {
    }

    QString name() override { return noted(QStringLiteral("name")); }
    QString uiName() override { return noted(QStringLiteral("uiName")); }
    void onOpen() override { noted(QStringLiteral("onOpen")); }
    void onApply() override { noted(QStringLiteral("onApply")); }
    void onOK() override { noted(QStringLiteral("onOK")); }
    void onCancel() override { noted(QStringLiteral("onCancel")); }
    void onReset() override { noted(QStringLiteral("onReset")); }
    void onClose() override { noted(QStringLiteral("onClose")); }
    void onClosed() override { noted(QStringLiteral("onClosed")); }
    void undo() override { noted(QStringLiteral("undo")); }
    void redo() override { noted(QStringLiteral("redo")); }
    void beginMacro() override { noted(QStringLiteral("beginMacro")); }
    void endMacro() override { noted(QStringLiteral("endMacro")); }
    bool isCurrentDummy() override { return !noted(QStringLiteral("isCurrentDummy")).isEmpty(); }
    QString getCurrentWindowTitle() override
    {
        return noted(QStringLiteral("getCurrentWindowTitle"));
    }

    QStringList calls;

private:
    QString noted(const QString &call)
    {
        calls.append(call);
        return call;
    }
};

class PatternDialog : public GUI_ModelessPatternDialog
{
public:
    explicit PatternDialog(HostServices *host)
        : GUI_ModelessPatternDialog(host, QStringLiteral("Pattern"), Calls,
                                    new PatternMediator(host), nullptr)
    {
    }

    bool mayFinish() override
    {
        if (fails)
            throw std::runtime_error("no answer");
        if (whenAsked)
            whenAsked();
        return finishes;
    }

    bool finishes = true;
    bool fails = false;
    std::function<void()> whenAsked;
};

/// A host with a shown modeless dialog.
struct Shown
{
    Shown() : dialog(new PatternDialog(&host)), page(new PageProbe(dialog->webView()))
    {
        dialog->resize(400, 300);
        dialog->show();
        loaded = page->waitLoaded();
        host.clearJournal();
    }
    ~Shown()
    {
        page.reset();
        delete dialog;
    }

    StandInHost host;
    QPointer<PatternDialog> dialog;
    std::unique_ptr<PageProbe> page;
    bool loaded = false;
};

// Place of a virtual operation in the table of its class; -1 for one that is not virtual.
template <class Member> int tablePlace(Member member)
{
    std::uintptr_t word[2];
    static_assert(sizeof member == sizeof word);
    std::memcpy(word, &member, sizeof word);
    return (word[0] & 1) && word[1] == 0 ? int(word[0] / 8) : -1;
}

QStringList ownMethods(const QMetaObject *meta)
{
    QStringList result;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        const bool isSignal = method.methodType() == QMetaMethod::Signal;
        result.append(QLatin1String(isSignal ? "signal " : "slot ") + method.typeName() +
                      QLatin1Char(' ') + method.methodSignature());
    }
    return result;
}

}

Q_DECLARE_METATYPE(const QMetaObject *)

void TestModelessDialog::classesStandOnEachOther_data()
{
    QTest::addColumn<const QMetaObject *>("meta");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");
    QTest::newRow("mediator") << &JS_Mediator::staticMetaObject << "JS_Mediator"
                              << "QObject";
    QTest::newRow("tool") << &JS_Mediator_Plugin::staticMetaObject << "JS_Mediator_Plugin"
                          << "JS_Mediator";
    QTest::newRow("page") << &JS_Mediator_Page::staticMetaObject << "JS_Mediator_Page"
                          << "JS_Mediator";
    QTest::newRow("dialog") << &JS_Mediator_Dialog::staticMetaObject << "JS_Mediator_Dialog"
                            << "JS_Mediator";
    QTest::newRow("modeless dialog") << &JS_Mediator_ModelessPatternDialog::staticMetaObject
                                     << "JS_Mediator_ModelessPatternDialog"
                                     << "JS_Mediator_Dialog";
    QTest::newRow("modeless window")
        << &GUI_ModelessPatternDialog::staticMetaObject << "GUI_ModelessPatternDialog"
        << "GUI_WebViewDialog";
    QTest::newRow("window with a page")
        << &GUI_WebViewDialog::staticMetaObject << "GUI_WebViewDialog"
        << "GUI_Dialog";
    QTest::newRow("window") << &GUI_Dialog::staticMetaObject << "GUI_Dialog"
                            << "QDialog";
}

void TestModelessDialog::classesStandOnEachOther()
{
    QFETCH(const QMetaObject *, meta);
    QFETCH(QString, name);
    QFETCH(QString, base);
    QCOMPARE(QString::fromLatin1(meta->className()), name);
    QCOMPARE(QString::fromLatin1(meta->superClass()->className()), base);
}

// The application binds to them by their places, behind the twelve of QObject.
void TestModelessDialog::operationsStandInOrder()
{
    QCOMPARE(tablePlace(&JS_Mediator::setSkipMode), 12);
    QCOMPARE(tablePlace(&JS_Mediator::applySkipFrames), 13);
    QCOMPARE(tablePlace(&JS_Mediator::getSkipMode), 14);
    QCOMPARE(tablePlace(&JS_Mediator::setSkipFrames), 15);
    QCOMPARE(tablePlace(&JS_Mediator::getSkipFrames), 16);
    QCOMPARE(tablePlace(&JS_Mediator::isFileMode), 17);
    QCOMPARE(tablePlace(&JS_Mediator::addPrefsJSObject), 18);
    QCOMPARE(tablePlace(&JS_Mediator::getDeviceInfoList), 19);
    QCOMPARE(tablePlace(&JS_Mediator::isMemoryMode), -1);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::name), 20);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::uiName), 21);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::onOpen), 22);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::onApply), 23);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::onOK), 24);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::onCancel), 25);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::onReset), 26);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::onClose), 27);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::onClosed), 28);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::undo), 29);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::redo), 30);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::beginMacro), 31);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::endMacro), 32);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::isCurrentDummy), 33);
    QCOMPARE(tablePlace(&JS_Mediator_Plugin::getCurrentWindowTitle), 34);
    QCOMPARE(tablePlace(&JS_Mediator_ModelessPatternDialog::onOpen), 20);
    QCOMPARE(tablePlace(&JS_Mediator_ModelessPatternDialog::onClose), 21);
}

void TestModelessDialog::slotsAndSignalsStandInOrder_data()
{
    QTest::addColumn<const QMetaObject *>("meta");
    QTest::addColumn<QStringList>("methods");
    QTest::newRow("tool") << &JS_Mediator_Plugin::staticMetaObject
                          << QStringList({"slot QString name()", "slot QString uiName()",
                                          "slot void onOpen()", "slot void onApply()",
                                          "slot void onOK()", "slot void onCancel()",
                                          "slot void onReset()", "slot void onClose()",
                                          "slot void onClosed()", "slot void undo()",
                                          "slot void redo()", "slot void beginMacro()",
                                          "slot void endMacro()", "slot bool isCurrentDummy()",
                                          "slot QString getCurrentWindowTitle()"});
    QTest::newRow("page") << &JS_Mediator_Page::staticMetaObject << QStringList();
    QTest::newRow("dialog") << &JS_Mediator_Dialog::staticMetaObject
                            << QStringList({"signal void accept()", "signal void reject()",
                                            "signal void rejected()", "slot int getHeight()",
                                            "slot int getWidth()"});
    QTest::newRow("modeless dialog") << &JS_Mediator_ModelessPatternDialog::staticMetaObject
                                     << QStringList({"slot void onOpen()", "slot void onClose()",
                                                     "slot void setTextBoxFocusState(bool)"});
    QTest::newRow("window") << &GUI_Dialog::staticMetaObject
                            << QStringList({"signal void signalEnableCloseButton()",
                                            "signal void signalDisableCloseButton()",
                                            "slot void userOperationLogWebView(QString,QString,"
                                            "QString,QString,QString,QVariant)",
                                            "slot void userOperationErrorLog(QString)",
                                            "slot void slotEnableCloseButton()",
                                            "slot void slotDisableCloseButton()"});
    QTest::newRow("window with a page")
        << &GUI_WebViewDialog::staticMetaObject
        << QStringList({"slot void slotRejected()", "slot void loadStarted()",
                        "slot void loadProgress(int)", "slot void loadFinished(bool)"});
    QTest::newRow("modeless window")
        << &GUI_ModelessPatternDialog::staticMetaObject
        << QStringList({"signal void shown()", "signal void closed()"});
    QTest::newRow("view") << &GUI_WebView::staticMetaObject
                          << QStringList({"slot void showCustomContextMenu(QPoint)",
                                          "slot void execWebInspector()"});
}

void TestModelessDialog::slotsAndSignalsStandInOrder()
{
    QFETCH(const QMetaObject *, meta);
    QTEST(ownMethods(meta), "methods");
}

void TestModelessDialog::plainPageFindsTheSlotsOfTheBase()
{
    QCOMPARE(JS_Mediator_Page::staticMetaObject.methodCount(),
             JS_Mediator::staticMetaObject.methodCount());
    StandInHost host;
    JS_Mediator_Page mediator(&host, QStringLiteral("plain"));
    GUI_WebView view(&host, nullptr);
    PageProbe page(&view);
    view.resize(400, 300);
    host.attachMediator(&view, &mediator);
    view.load(QUrl(Calls));
    QVERIFY(page.waitLoaded());
    QCOMPARE(page.call("plain.isLiveMode()"), QStringLiteral("true"));
}

void TestModelessDialog::newDialogMediatorHasNoWantedSize()
{
    DialogPage shown;
    QCOMPARE(shown.page.call("bridge.getWidth()"), QStringLiteral("-1"));
    QCOMPARE(shown.page.call("bridge.getHeight()"), QStringLiteral("-1"));
}

void TestModelessDialog::wantedSizeIsTold()
{
    StandInHost host;
    PatternMediator mediator(&host);
    mediator.setWantedSize(510, 530);
    QCOMPARE(mediator.getWidth(), 510);
    QCOMPARE(mediator.getHeight(), 530);
}

void TestModelessDialog::textBoxTellsItsFocus()
{
    Shown shown;
    shown.page->call("pattern.setTextBoxFocusState(true)");
    QCOMPARE(shown.host.journal(), QStringList({"setTextBoxFocusState(true)"}));
    QCOMPARE(shown.page->call("JSON.parse(pattern.getControlStatus())"
                              ".IsModalessDialogTextFocussing"),
             QStringLiteral("true"));
    shown.page->call("pattern.setTextBoxFocusState(false)");
    QCOMPARE(shown.page->call("JSON.parse(pattern.getControlStatus())"
                              ".IsModalessDialogTextFocussing"),
             QStringLiteral("false"));
}

void TestModelessDialog::nameReachesTheBase()
{
    StandInHost host;
    PatternMediator mediator(&host);
    QCOMPARE(mediator.pageName(), QStringLiteral("pattern"));
    QCOMPARE(mediator.objectName(), QStringLiteral("pattern"));
    QCOMPARE(mediator.host(), static_cast<HostServices *>(&host));
}

void TestModelessDialog::pageCallsItsTool()
{
    StandInHost host;
    ToolMediator mediator(&host);
    GUI_WebView view(&host, nullptr);
    PageProbe page(&view);
    view.resize(400, 300);
    host.attachMediator(&view, &mediator);
    view.load(QUrl(Calls));
    QVERIFY(page.waitLoaded());
    const QStringList names = {
        "name",     "uiName",     "onOpen",   "onApply",        "onOK",
        "onCancel", "onReset",    "onClose",  "onClosed",       "undo",
        "redo",     "beginMacro", "endMacro", "isCurrentDummy", "getCurrentWindowTitle"};
    for (const QString &name : names)
        page.call("bridge." + name + "()");
    QCOMPARE(mediator.calls, names);
    QCOMPARE(page.call("bridge.getCurrentWindowTitle()"),
             QStringLiteral("\"getCurrentWindowTitle\""));
    QCOMPARE(page.call("bridge.isCurrentDummy()"), QStringLiteral("true"));
}

void TestModelessDialog::shownAndClosedAreTold()
{
    Shown shown;
    QSignalSpy shownTold(shown.dialog, &GUI_ModelessPatternDialog::shown);
    QSignalSpy closedTold(shown.dialog, &GUI_ModelessPatternDialog::closed);
    shown.dialog->hide();
    shown.dialog->show();
    QCOMPARE(shownTold.count(), 1);
    QVERIFY(shown.dialog->close());
    QCOMPARE(closedTold.count(), 1);
    QVERIFY(!shown.dialog->isVisible());
}

void TestModelessDialog::pageClosesIt()
{
    Shown shown;
    QSignalSpy closedTold(shown.dialog, &GUI_ModelessPatternDialog::closed);
    shown.page->evaluate("var heard = 0; pattern.rejected.connect(function () { ++heard; })");
    shown.page->call("pattern.reject()");
    QCOMPARE(closedTold.count(), 1);
    QVERIFY(!shown.dialog->isVisible());
    QCOMPARE(shown.page->evaluate("heard").toInt(), 1);
}

void TestModelessDialog::pageAcceptsIt()
{
    Shown shown;
    QSignalSpy closedTold(shown.dialog, &GUI_ModelessPatternDialog::closed);
    QSignalSpy accepted(shown.dialog, &QDialog::accepted);
    shown.page->call("pattern.accept()");
    QCOMPARE(closedTold.count(), 1);
    QCOMPARE(accepted.count(), 1);
    QVERIFY(!shown.dialog->isVisible());
}

void TestModelessDialog::dialogThatMayNotFinishStays_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("frame") << "frame";
    QTest::newRow("page rejects") << "pattern.reject()";
    QTest::newRow("page accepts") << "pattern.accept()";
}

void TestModelessDialog::dialogThatMayNotFinishStays()
{
    QFETCH(QString, way);
    Shown shown;
    QSignalSpy closedTold(shown.dialog, &GUI_ModelessPatternDialog::closed);
    shown.dialog->finishes = false;
    if (way == QLatin1String("frame"))
        QVERIFY(!shown.dialog->close());
    else
        shown.page->call(way);
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(closedTold.count(), 0);
    shown.dialog->finishes = true;
    QVERIFY(shown.dialog->close());
    QCOMPARE(closedTold.count(), 1);
}

void TestModelessDialog::failureInMayFinishKeepsIt()
{
    Shown shown;
    shown.dialog->fails = true;
    shown.page->call("pattern.reject()");
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(shown.host.handledErrors(), QStringList({"no answer"}));
}

void TestModelessDialog::failureOfAListenerGoesToTheHost()
{
    Shown shown;
    connect(shown.dialog, &GUI_ModelessPatternDialog::closed, this,
            [] { throw std::runtime_error("closed badly"); });
    connect(shown.dialog, &GUI_ModelessPatternDialog::shown, this,
            [] { throw std::runtime_error("shown badly"); });
    shown.page->call("pattern.reject()");
    QVERIFY(!shown.dialog->isVisible());
    shown.dialog->show();
    QCOMPARE(shown.host.handledErrors(), QStringList({"closed badly", "shown badly"}));
}

void TestModelessDialog::listenerMayDeleteIt()
{
    Shown shown;
    shown.page.reset();
    connect(shown.dialog, &GUI_ModelessPatternDialog::closed, this, [&] { delete shown.dialog; });
    shown.dialog->close();
    QVERIFY(!shown.dialog);
}

void TestModelessDialog::listenerMayCloseItAgain()
{
    Shown shown;
    QSignalSpy closedTold(shown.dialog, &GUI_ModelessPatternDialog::closed);
    connect(shown.dialog, &GUI_ModelessPatternDialog::closed, this, [&] {
        if (closedTold.count() < 5)
            shown.dialog->reject();
    });
    shown.dialog->reject();
    QCOMPARE(closedTold.count(), 1);
    QVERIFY(!shown.dialog->isVisible());
}

// The user closes it once more while it asks.
void TestModelessDialog::questionMayCloseItAgain()
{
    Shown shown;
    QSignalSpy closedTold(shown.dialog, &GUI_ModelessPatternDialog::closed);
    int questions = 0;
    shown.dialog->whenAsked = [&] {
        if (++questions < 5)
            shown.dialog->reject();
    };
    shown.dialog->reject();
    QCOMPARE(questions, 1);
    QCOMPARE(closedTold.count(), 1);
}

// What let it go says nothing of the next time. While it closes, nobody asks again.
void TestModelessDialog::answerHoldsForOneClosing()
{
    Shown shown;
    int questions = 0;
    shown.dialog->whenAsked = [&] { ++questions; };
    QList<bool> answers;
    connect(shown.dialog, &GUI_ModelessPatternDialog::closed, this, [&] {
        shown.dialog->finishes = false;
        answers.append(shown.dialog->mayFinishNow());
    });
    QVERIFY(shown.dialog->close());
    QCOMPARE(answers, QList<bool>({true}));
    QCOMPARE(questions, 1);
    QVERIFY(!shown.dialog->mayFinishNow());
    shown.dialog->show();
    QVERIFY(!shown.dialog->close());
    QVERIFY(!shown.dialog->mayFinishNow());
    QCOMPARE(questions, 4);
}

// A window that comes back from the task bar was not opened.
void TestModelessDialog::shownIsToldOfShowingAlone()
{
    Shown shown;
    QSignalSpy shownTold(shown.dialog, &GUI_ModelessPatternDialog::shown);
    QShowEvent back;
    QSpontaneKeyEvent::setSpontaneous(&back);
    static_cast<QObject *>(shown.dialog)->event(&back);
    QCOMPARE(shownTold.count(), 0);
}

void TestModelessDialog::closeButtonThatComesAndGoesShowsNothing()
{
    Shown shown;
    QSignalSpy shownTold(shown.dialog, &GUI_ModelessPatternDialog::shown);
    emit shown.dialog->signalDisableCloseButton();
    QVERIFY(!(shown.dialog->windowFlags() & Qt::WindowCloseButtonHint));
    emit shown.dialog->signalEnableCloseButton();
    QVERIFY(shown.dialog->windowFlags() & Qt::WindowCloseButtonHint);
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(shownTold.count(), 0);
    shown.dialog->hide();
    shown.dialog->show();
    QCOMPARE(shownTold.count(), 1);
}

void TestModelessDialog::opensWhereAnyDialogOpens()
{
    StandInHost host;
    QWidget window;
    window.setGeometry(310, 220, 400, 300);
    GUI_WebViewDialog any(&host, QString(), Calls, nullptr, &window);
    GUI_ModelessPatternDialog dialog(&host, QString(), Calls, nullptr, &window);
    any.resize(200, 100);
    dialog.resize(200, 100);
    any.show();
    dialog.show();
    QVERIFY(!any.pos().isNull());
    QCOMPARE(dialog.pos(), any.pos());
}

void TestModelessDialog::hidingIsNotClosing()
{
    Shown shown;
    QSignalSpy closedTold(shown.dialog, &GUI_ModelessPatternDialog::closed);
    shown.dialog->hide();
    QCOMPARE(closedTold.count(), 0);
    shown.page->evaluate("var kept = 5");
    shown.dialog->show();
    QCOMPARE(shown.page->evaluate("kept").toInt(), 5);
}

void TestModelessDialog::defaultsLetItGo()
{
    StandInHost host;
    GUI_ModelessPatternDialog dialog(&host, QStringLiteral("Pattern"), Calls, nullptr, nullptr);
    QVERIFY(dialog.mayFinish());
    host.clearJournal();
    dialog.modeChanged(1);
    QCOMPARE(host.journal(), QStringList());
}

int main(int argc, char **argv)
{
    TestModelessDialog test;
    return runTest(argc, argv, test);
}

#include "test_modeless_dialog.moc"
