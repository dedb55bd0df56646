#include "bridge/mediator/JS_Mediator.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QSignalSpy>
#include <QWebFrame>
#include <QWebPage>

/// Only its name counts here.
class JS_Mediator_SaveFile : public JS_Mediator
{
    Q_OBJECT

public:
    explicit JS_Mediator_SaveFile(HostServices *host)
        : JS_Mediator(host, QStringLiteral("fileopendialog"))
    {
    }
};

class TestStandInPages : public TestBase
{
    Q_OBJECT

private slots:
    void mediatorIsSeenUnderItsName();
    void hostObjectsStandBesideIt();
    void saveFileMediatorHasItsOwnName();
    void objectsComeBackWithEachPage();
    void mediatorsOfOneViewStandSideBySide();
    void goneMediatorComesBackNoMore();
    void viewOutlivesTheHost();
    void withoutAMediatorTheHostObjectsStand();
    void nullIsTolerated();
};

namespace {

QVariant run(GUI_WebView &view, const QString &script)
{
    return view.page()->mainFrame()->evaluateJavaScript(script);
}

void load(GUI_WebView &view, const QString &title)
{
    QSignalSpy loaded(&view, &QWebView::loadFinished);
    view.setHtml("<html><head><title>" + title + "</title></head></html>");
    QVERIFY(loaded.count() > 0 || loaded.wait());
    QCOMPARE(view.title(), title);
}

}

void TestStandInPages::mediatorIsSeenUnderItsName()
{
    StandInHost host;
    GUI_WebView view(&host, nullptr);
    JS_Mediator mediator(&host, "addnumberdialog");
    QCOMPARE(mediator.webView(), nullptr);
    host.attachMediator(&view, &mediator);
    QCOMPARE(mediator.webView(), &view);
    QCOMPARE(run(view, "typeof addnumberdialog").toString(), QString("object"));
    QCOMPARE(run(view, "addnumberdialog.objectName").toString(), QString("addnumberdialog"));
    QCOMPARE(host.journal().last(), QString("attachMediator(GUI_WebView, JS_Mediator)"));
}

void TestStandInPages::hostObjectsStandBesideIt()
{
    StandInHost host;
    GUI_WebView other(&host, nullptr);
    QCOMPARE(run(other, "typeof app").toString(), QString("undefined"));
    GUI_WebView view(&host, nullptr);
    JS_Mediator mediator(&host, "x");
    host.attachMediator(&view, &mediator);
    host.appScriptObject()->setProperty("place", "first");
    host.mainScriptObject()->setProperty("place", "second");
    QCOMPARE(run(view, "app.place").toString(), QString("first"));
    QCOMPARE(run(view, "main.place").toString(), QString("second"));
}

void TestStandInPages::saveFileMediatorHasItsOwnName()
{
    StandInHost host;
    GUI_WebView view(&host, nullptr);
    JS_Mediator_SaveFile mediator(&host);
    host.attachMediator(&view, &mediator);
    QCOMPARE(run(view, "typeof savefile").toString(), QString("object"));
    QCOMPARE(run(view, "typeof fileopendialog").toString(), QString("undefined"));
}

void TestStandInPages::objectsComeBackWithEachPage()
{
    StandInHost host;
    GUI_WebView view(&host, nullptr);
    JS_Mediator mediator(&host, "x");
    host.attachMediator(&view, &mediator);
    for (const QString &title : {QStringLiteral("one"), QStringLiteral("two")}) {
        load(view, title);
        QCOMPARE(run(view, "x.objectName").toString(), QString("x"));
        QCOMPARE(run(view, "app.objectName").toString(), QString("app"));
        QCOMPARE(run(view, "main.objectName").toString(), QString("main"));
    }
}

void TestStandInPages::mediatorsOfOneViewStandSideBySide()
{
    StandInHost host;
    GUI_WebView view(&host, nullptr);
    JS_Mediator first(&host, "adddevice");
    JS_Mediator second(&host, "adddeviceAutoCameraName");
    host.attachMediator(&view, &first);
    host.attachMediator(&view, &second);
    load(view, "one");
    QCOMPARE(run(view, "adddevice.objectName").toString(), QString("adddevice"));
    QCOMPARE(run(view, "adddeviceAutoCameraName.objectName").toString(),
             QString("adddeviceAutoCameraName"));
}

void TestStandInPages::goneMediatorComesBackNoMore()
{
    StandInHost host;
    GUI_WebView view(&host, nullptr);
    load(view, "one"); // the engine keeps the objects of an empty view for its first page
    {
        JS_Mediator mediator(&host, "x");
        host.attachMediator(&view, &mediator);
    }
    load(view, "two");
    QCOMPARE(run(view, "typeof x").toString(), QString("undefined"));
}

void TestStandInPages::viewOutlivesTheHost()
{
    auto host = std::make_unique<StandInHost>();
    GUI_WebView view(host.get(), nullptr);
    load(view, "one");
    JS_Mediator mediator(host.get(), "x");
    host->attachMediator(&view, &mediator);
    host.reset();
    load(view, "two");
    QCOMPARE(run(view, "typeof x").toString(), QString("object"));
    QCOMPARE(run(view, "typeof app").toString(), QString("undefined"));
}

void TestStandInPages::withoutAMediatorTheHostObjectsStand()
{
    auto host = std::make_unique<StandInHost>();
    GUI_WebView view(host.get(), nullptr);
    host->attachMediator(&view, nullptr);
    QCOMPARE(host->journal(), QStringList("attachMediator(GUI_WebView, null)"));
    QCOMPARE(run(view, "app.objectName + ' ' + main.objectName").toString(), QString("app main"));
    load(view, "one");
    load(view, "two");
    QCOMPARE(run(view, "app.objectName + ' ' + main.objectName").toString(), QString("app main"));
    host.reset();
    load(view, "three");
    QCOMPARE(run(view, "typeof app + ' ' + typeof main").toString(),
             QString("undefined undefined"));
}

void TestStandInPages::nullIsTolerated()
{
    StandInHost host;
    GUI_WebView view(&host, nullptr);
    JS_Mediator mediator(&host, "x");
    host.attachMediator(nullptr, &mediator);
    host.attachMediator(nullptr, nullptr);
    QCOMPARE(mediator.webView(), nullptr);
}

int main(int argc, char **argv)
{
    TestStandInPages test;
    return runTest(argc, argv, test);
}

#include "test_standin_pages.moc"
