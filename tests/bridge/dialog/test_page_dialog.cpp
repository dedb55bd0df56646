#include "bridge/dialog/GUI_PageDialog.h"
#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/DialogRun.h"
#include "bridge/page/GUI_WebView.h"
#include "bridge/page/PageHandlers.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/TestLog.h"

#include <QTimer>
#include <QVBoxLayout>
#include <QWebFrame>

// A dialog that its page works by the dialog's own slots, and how dialogs are run.

class TestPageDialog : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void windowIsAsTold();
    void pageFindsTheDialogAndTheApplication();
    void objectsComeBackWithEachPage();
    void missingApplicationIsLeftOut();
    void hostMayEndItBeforeItsPageFindsTheApplication();
    void pageCallsItsSlots_data();
    void pageCallsItsSlots();
    void styleAndTranslationAreTheHosts();
    void escapeDoesNothing();
    void pageEndsIt_data();
    void pageEndsIt();
    void failureInWhatAPageStartsGoesToTheHost_data();
    void failureInWhatAPageStartsGoesToTheHost();
    void failureWhileConstructedReachesTheCaller();
    void frameIsClosedOnce();
    void pageCannotDeleteIt();
    void pageCannotDeleteTheApplicationsObjects();
    void ownerCanDeleteIt_data();
    void ownerCanDeleteIt();
    void throwingHandlerIsSurvived_data();
    void throwingHandlerIsSurvived();
    void signalWithoutAPageIsSentDirectly();
    void pageThatAsksWhileItsDialogGoes();
    void dialogMayGoWithoutItsPage();
    void dialogIsRun();
    void dialogIsAnsweredAhead();
};

namespace {

/// Notes to a recording, as a dialog of its own.
class GUI_NotesDialog : public GUI_PageDialog
{
    Q_OBJECT

public:
    explicit GUI_NotesDialog(HostServices *host, QWidget *parent = nullptr)
        : GUI_NotesDialog(host, QStringLiteral("qrc:/pages/calls.html"), parent)
    {
    }
    GUI_NotesDialog(HostServices *host, const QString &url, QWidget *parent = nullptr)
        : GUI_PageDialog(host, QStringLiteral("Notes"), parent)
    {
        resize(400, 300);
        loadPage(url);
    }

signals:
    void changed();

public slots:
    void ok() { accept(); }
    void cancel() { reject(); }

private slots:
    void populateJavaScriptWindowObject() override { showToPage(QStringLiteral("notes")); }

public slots:
    QString keyText(DOCKEY key) { return QString::number(key); }
    QString partitionText(PARTITIONNUMBER number) { return QString::number(number); }
    QList<int> doubled(const QList<int> &ids)
    {
        QList<int> twice;
        for (int id : ids)
            twice.append(2 * id);
        return twice;
    }
    QString getStyle() { return style(); }
    QString translate(const QString &text) { return translated(text); }

protected:
    void showEvent(QShowEvent *event) override
    {
        GUI_PageDialog::showEvent(event);
        host()->isReady();
    }
};

struct Shown
{
    Shown() : dialog(new GUI_NotesDialog(&host)), page(new PageProbe(dialog->webView()))
    {
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
    QPointer<GUI_NotesDialog> dialog;
    std::unique_ptr<PageProbe> page;
    bool loaded = false;
};

void runDeletions()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}

void TestPageDialog::cleanup()
{
    DialogRun::setAnswer(DialogRun::Answer());
    TestBase::cleanup();
}

void TestPageDialog::windowIsAsTold()
{
    StandInHost host;
    host.state().translations.insert("Notes", "Notizen");
    QWidget parent;
    GUI_NotesDialog dialog(&host, &parent);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Notizen"));
    QCOMPARE(int(dialog.windowFlags() & ~Qt::WindowType_Mask), 0x8003000);
    QCOMPARE(dialog.webView()->parentWidget(), static_cast<QWidget *>(&dialog));
    QVERIFY(qobject_cast<QVBoxLayout *>(dialog.layout()));
    QCOMPARE(dialog.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
}

void TestPageDialog::pageFindsTheDialogAndTheApplication()
{
    Shown shown;
    QVERIFY(shown.loaded);
    QCOMPARE(shown.page->call("typeof notes + app.objectName + typeof main"),
             QStringLiteral("\"objectappundefined\""));
}

void TestPageDialog::objectsComeBackWithEachPage()
{
    Shown shown;
    for (int i = 0; i < 2; ++i) {
        shown.dialog->webView()->reload();
        QVERIFY(shown.page->waitLoaded());
        QCOMPARE(shown.host.journal(), QStringList({"appScriptObject()"}));
        shown.host.clearJournal();
        QCOMPARE(shown.page->call("notes.keyText(7) + app.objectName"), QStringLiteral("\"7app\""));
    }
}

void TestPageDialog::missingApplicationIsLeftOut()
{
    Shown shown;
    shown.host.failOn(QStringLiteral("appScriptObject"));
    shown.dialog->webView()->reload();
    QVERIFY(shown.page->waitLoaded());
    QCOMPARE(shown.host.handledErrors(), QStringList({"appScriptObject failed"}));
    QCOMPARE(shown.page->call("typeof notes + typeof app"), QStringLiteral("\"objectundefined\""));
}

void TestPageDialog::hostMayEndItBeforeItsPageFindsTheApplication()
{
    Shown shown;
    shown.page.reset();
    connect(shown.host.events(), &StandInEvents::callJournalled, this,
            [&](const QString &) { delete shown.dialog; });
    QVERIFY(QMetaObject::invokeMethod(shown.dialog, "populateJavaScriptWindowObject"));
    QVERIFY(!shown.dialog);
    QCOMPARE(shown.host.journal(), QStringList({"appScriptObject()"}));
}

void TestPageDialog::pageCallsItsSlots_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("result");
    QTest::newRow("key") << "notes.keyText(12)"
                         << "\"12\"";
    QTest::newRow("key as text") << "notes.keyText('4294967297')"
                                 << "\"4294967297\"";
    QTest::newRow("partition") << "notes.partitionText(3)"
                               << "\"3\"";
    QTest::newRow("list of ids") << "notes.doubled([1, 20])"
                                 << "[2,40]";
    QTest::newRow("empty list") << "notes.doubled([])"
                                << "[]";
}

void TestPageDialog::pageCallsItsSlots()
{
    QFETCH(QString, script);
    Shown shown;
    QTEST(shown.page->call(script), "result");
}

void TestPageDialog::styleAndTranslationAreTheHosts()
{
    Shown shown;
    shown.host.state().translations.insert("Comment", "Kommentar");
    QCOMPARE(shown.page->call("notes.getStyle() + notes.translate('Comment')"),
             QStringLiteral("\"lightKommentar\""));
    QCOMPARE(shown.host.journal(),
             QStringList({"getPrefString(\"env/style\", \"light\")", "translate(\"Comment\")"}));
    shown.host.settings().setValue("env/style", "dark");
    QCOMPARE(shown.page->call("notes.getStyle()"), QStringLiteral("\"dark\""));
    shown.host.failOn(QStringLiteral("getPrefString"));
    shown.host.failOn(QStringLiteral("translate"));
    QCOMPARE(shown.page->call("notes.getStyle() + notes.translate('Comment')"),
             QStringLiteral("\"light\""));
    QCOMPARE(shown.host.handledErrors(), QStringList({"getPrefString failed", "translate failed"}));
}

void TestPageDialog::escapeDoesNothing()
{
    Shown shown;
    QTest::keyClick(shown.dialog, Qt::Key_Escape);
    QVERIFY(shown.dialog->isVisible());
}

void TestPageDialog::pageEndsIt_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("result");
    QTest::newRow("own slot") << "ok" << int(QDialog::Accepted);
    QTest::newRow("other own slot") << "cancel" << int(QDialog::Rejected);
    QTest::newRow("inherited slot") << "accept" << int(QDialog::Accepted);
    QTest::newRow("close") << "close" << int(QDialog::Rejected);
}

void TestPageDialog::pageEndsIt()
{
    QFETCH(QString, call);
    Shown shown;
    shown.dialog->setResult(7);
    shown.page->call("notes." + call + "()");
    QVERIFY(!shown.dialog->isVisible());
    QTEST(shown.dialog->result(), "result");
}

void TestPageDialog::failureInWhatAPageStartsGoesToTheHost_data()
{
    QTest::addColumn<QString>("script");
    for (const char *script :
         {"accept()", "reject()", "done(5)", "close()", "ok()", "hide(); notes.show()",
          "hide(); notes.open()", "setVisible(false); notes.setVisible(true)",
          "hide(); notes.showNormal()"})
        QTest::newRow(script) << QString::fromLatin1(script);
}

// Showing asks the host, and so does somebody who listens to the dialog's end.
void TestPageDialog::failureInWhatAPageStartsGoesToTheHost()
{
    QFETCH(QString, script);
    Shown shown;
    connect(shown.dialog, &QDialog::finished, this, [&] { shown.host.isReady(); });
    shown.host.failOn(QStringLiteral("isReady"));
    shown.page->evaluate("notes." + script);
    QCOMPARE(shown.host.handledErrors(), QStringList({"isReady failed"}));
}

void TestPageDialog::failureWhileConstructedReachesTheCaller()
{
    StandInHost host;
    host.failOn(QStringLiteral("translate"));
    QVERIFY_EXCEPTION_THROWN(GUI_NotesDialog dialog(&host), StandInFault);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestPageDialog::frameIsClosedOnce()
{
    Shown shown;
    QSignalSpy rejected(shown.dialog, &QDialog::rejected);
    LogCapture log;
    QVERIFY(shown.dialog->close());
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(log.texts(), QStringList({"[USER] \"[URL:GUI_NotesDialog] [ID:close] "
                                       "[Control:Button] [Operation:clicked] [Value:] \""}));
}

void TestPageDialog::pageCannotDeleteIt()
{
    Shown shown;
    QCOMPARE(shown.page->call("notes.deleteLater(); notes['deleteLater()'](); 1"),
             QStringLiteral("1"));
    runDeletions();
    QVERIFY(shown.dialog);
    QCOMPARE(shown.page->call("notes.keyText(7)"), QStringLiteral("\"7\""));
}

void TestPageDialog::pageCannotDeleteTheApplicationsObjects()
{
    Shown shown;
    QPointer<QObject> app(shown.host.appScriptObject());
    QPointer<QObject> main(shown.host.mainScriptObject());
    shown.dialog->webView()->page()->mainFrame()->addToJavaScriptWindowObject("main", main);
    shown.page->call("app.deleteLater(); main.deleteLater()");
    runDeletions();
    QVERIFY(app);
    QVERIFY(main);
}

void TestPageDialog::ownerCanDeleteIt_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"delete", "deleteLater", "connection", "at its close"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestPageDialog::ownerCanDeleteIt()
{
    QFETCH(QString, way);
    Shown shown;
    shown.page->call("notes.deleteLater()");
    QObject owner;
    connect(&owner, &QObject::objectNameChanged, shown.dialog, &QObject::deleteLater);
    if (way == QLatin1String("delete")) {
        delete shown.dialog;
    } else if (way == QLatin1String("deleteLater")) {
        shown.dialog->deleteLater();
    } else if (way == QLatin1String("connection")) {
        owner.setObjectName(QStringLiteral("gone"));
    } else {
        shown.dialog->setAttribute(Qt::WA_DeleteOnClose);
        shown.dialog->close();
    }
    runDeletions();
    QVERIFY(!shown.dialog);
}

void TestPageDialog::throwingHandlerIsSurvived_data()
{
    QTest::addColumn<bool>("byPageSignal");
    QTest::newRow("sent to the page") << true;
    QTest::newRow("emitted") << false;
}

void TestPageDialog::throwingHandlerIsSurvived()
{
    QFETCH(bool, byPageSignal);
    Shown shown;
    shown.page->evaluate("notes.changed.connect(function () { throw new Error('no element'); })");
    LogCapture log;
    if (byPageSignal)
        PageSignal::send(shown.dialog, [&] { emit shown.dialog->changed(); });
    else
        emit shown.dialog->changed();
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
    QVERIFY(log.texts().first().startsWith("[SCRIPT] \"Error: no element"));
    QCOMPARE(shown.page->call("1 + 1"), QStringLiteral("2"));
}

void TestPageDialog::signalWithoutAPageIsSentDirectly()
{
    QObject object;
    QSignalSpy heard(&object, &QObject::objectNameChanged);
    PageSignal::send(&object, [&] { object.setObjectName(QStringLiteral("other")); });
    QCOMPARE(heard.count(), 1);

    Shown shown;
    QCOMPARE(PageHandlers::frameOf(shown.dialog), shown.dialog->webView()->page()->mainFrame());
    QSignalSpy changed(shown.dialog, &GUI_NotesDialog::changed);
    PageSignal::send(shown.dialog, [&] { emit shown.dialog->changed(); });
    QCOMPARE(changed.count(), 1);
}

void TestPageDialog::pageThatAsksWhileItsDialogGoes()
{
    Shown shown;
    shown.page->evaluate("window.onunload = function () { notes.keyText(7); notes.getStyle(); }");
    delete shown.dialog;
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestPageDialog::dialogMayGoWithoutItsPage()
{
    StandInHost host;
    auto dialog =
        std::make_unique<GUI_NotesDialog>(&host, QStringLiteral("qrc:/pages/absent.html"));
    PageProbe page(dialog->webView());
    QVERIFY(page.waitLoaded());
    QVERIFY(!page.isFound());
    dialog.reset();
    GUI_NotesDialog unloaded(&host); // goes while its page loads
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestPageDialog::dialogIsRun()
{
    Shown shown;
    shown.dialog->hide();
    QTimer::singleShot(0, shown.dialog, [&] { shown.page->evaluate("notes.done(5)"); });
    QCOMPARE(DialogRun::exec(*shown.dialog), 5);
    QVERIFY(!shown.dialog->isVisible());
}

void TestPageDialog::dialogIsAnsweredAhead()
{
    StandInHost host;
    GUI_NotesDialog dialog(&host);
    QStringList asked;
    DialogRun::setAnswer([&](QDialog &run) {
        asked.append(run.windowTitle());
        return 4;
    });
    QCOMPARE(DialogRun::exec(dialog), 4);
    QCOMPARE(asked, QStringList({"Notes"}));
    QVERIFY(!dialog.isVisible());
    DialogRun::setAnswer(DialogRun::Answer());
    QTimer::singleShot(0, &dialog, [&] { dialog.done(6); });
    QCOMPARE(DialogRun::exec(dialog), 6);
    QCOMPARE(asked.size(), 1);
}

int main(int argc, char **argv)
{
    TestPageDialog test;
    return runTest(argc, argv, test);
}

#include "test_page_dialog.moc"
