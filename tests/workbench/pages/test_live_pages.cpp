#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/pages/LivePages.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/pages/PageEntry.h"
#include "workbench/pages/PageFolder.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/pages/Pages.h"
#include "workbench/tour/PageHand.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QWebFrame>

#include <functional>

using namespace PageHand;

namespace {

// Longer than a change can stay unseen.
constexpr int Quiet = 3 * LivePages::LookInterval + 2 * LivePages::SettleTime; // milliseconds

QByteArray page(const QByteArray &text, const QByteArray &head = QByteArray())
{
    return "<!DOCTYPE html><html><head>" + head + "</head><body><p id=text>" + text +
           "</p></body></html>";
}

/// A folder of pages, and a panel that shows one of them.
struct Shown
{
    explicit Shown(const QMap<QString, QByteArray> &files,
                   const QString &url = QStringLiteral("qrc:/page.html"))
    {
        for (auto file = files.cbegin(); file != files.cend(); ++file)
            write(file.key(), file.value());
        live = std::make_unique<LivePages>(dir.path());
        panel = show(url);
    }

    std::unique_ptr<PagePanel> show(const QString &url)
    {
        PageEntry page = PageCatalogue::page(QStringLiteral("devices"));
        page.url = url;
        page.title = QStringLiteral("Probe");
        auto shown = std::make_unique<PagePanel>(host, page);
        QObject::connect(shown->view(), &QWebView::loadStarted, [this] { ++loads; });
        shown->show();
        return shown;
    }

    bool write(const QString &name, const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(dir.filePath(name)).path());
        QFile file(dir.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }

    GUI_WebView *view() { return panel->view(); }
    QString said() { return text(view(), "#text"); }

    QTemporaryDir dir;
    StandInHost host;
    std::unique_ptr<LivePages> live;
    std::unique_ptr<PagePanel> panel;
    int loads = 0; ///< begun behind the first one
};

/// A slot that a page calls, and what happens before it returns.
class Waiter : public QObject
{
    Q_OBJECT

public:
    explicit Waiter(const std::function<void()> &meanwhile) : m_meanwhile(meanwhile) {}

public slots:
    void wait() { m_meanwhile(); }

private:
    std::function<void()> m_meanwhile;
};

}

class TestLivePages : public TestBase
{
    Q_OBJECT

private slots:
    void findsFilesByTheirFlatNames_data();
    void findsFilesByTheirFlatNames();
    void findsEveryPageOfTheResources();
    void takesAPageFromTheFolder();
    void takesFromTheResourcesWhatTheFolderLacks();
    void tellsScriptErrorsWithPageAndLine();
    void loadsAPageAnewWhenAFileChanges_data();
    void loadsAPageAnewWhenAFileChanges();
    void loadsEachPageAnewThatUsesAFile();
    void leavesOtherPagesAlone();
    void loadsOnceForFilesThatChangeTogether();
    void waitsForAFileThatIsBeingWritten();
    void takesAFileThatStaysEmpty();
    void takesAFileThatIsReplaced();
    void outlivesTheFolder();
    void showsAPageThatWasMissing();
    void waitsForThePagesOwnScript();
    void loadsADialogAnewOverAPageThatWaits();
    void leavesAToolsOwnTextAlone();
    void keepsTheViewsWhenTheirPageIsLoadedAnew();
    void leavesPagesBehindThatLoadFromTheResources();
};

void TestLivePages::findsFilesByTheirFlatNames_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("file");
    QTest::newRow("in the folder") << "qrc:/flat.html"
                                   << "flat.html";
    QTest::newRow("two slashes more") << "qrc:///flat.html"
                                      << "flat.html";
    QTest::newRow("with a query") << "qrc:/flat.html?a=b"
                                  << "flat.html";
    QTest::newRow("with a place in it") << "qrc:/flat.html#b"
                                        << "flat.html";
    QTest::newRow("with a blank") << "qrc:/two%20words.html"
                                  << "two words.html";
    QTest::newRow("in a room") << "qrc:/roomy.css"
                               << "shared/roomy.css";
    QTest::newRow("in two rooms") << "qrc:/twice.js"
                                  << "device/twice.js";
    QTest::newRow("in the folder and a room") << "qrc:/both.js"
                                              << "both.js";
    QTest::newRow("with a path") << "qrc:/shared/roomy.css"
                                 << "shared/roomy.css";
    QTest::newRow("with a path in a room") << "qrc:/pictures/a.png"
                                           << "device/pictures/a.png";
    QTest::newRow("not there") << "qrc:/none.html"
                               << "";
    QTest::newRow("a folder") << "qrc:/shared"
                              << "";
    QTest::newRow("no name") << "qrc:/"
                             << "";
    QTest::newRow("out of the folder") << "qrc:/shared/../../outside.html"
                                       << "";
    QTest::newRow("out of the folder, hidden") << "qrc:/%2e%2e/outside.html"
                                               << "";
    QTest::newRow("no resource") << "file:/flat.html"
                                 << "";
}

void TestLivePages::findsFilesByTheirFlatNames()
{
    QFETCH(QString, url);
    QFETCH(QString, file);
    QTemporaryDir dir;
    const QDir pages(dir.filePath("pages"));
    for (const char *name :
         {"outside.html", "pages/flat.html", "pages/two words.html", "pages/shared/roomy.css",
          "pages/shared/twice.js", "pages/device/twice.js", "pages/both.js", "pages/shared/both.js",
          "pages/device/pictures/a.png"}) {
        QDir().mkpath(QFileInfo(dir.filePath(name)).path());
        QFile made(dir.filePath(name));
        QVERIFY(made.open(QIODevice::WriteOnly));
    }
    const QString found = PageFolder(pages.path()).stateOf(QUrl(url)).file;
    QCOMPARE(found, file.isEmpty() ? QString() : pages.filePath(file));
}

// The folder that the resources are made from serves the same files under the same names.
void TestLivePages::findsEveryPageOfTheResources()
{
    Pages::registerResources();
    const PageFolder folder(PAGES_FOLDER);
    const QStringList names = QDir(":/").entryList({"*.html", "*.css", "*.js"}, QDir::Files);
    for (const QString &name : names) {
        QFile resource(":/" + name);
        QFile file(folder.stateOf(QUrl("qrc:/" + name)).file);
        QVERIFY2(resource.open(QIODevice::ReadOnly) && file.open(QIODevice::ReadOnly),
                 qPrintable(name));
        QCOMPARE(file.readAll(), resource.readAll());
    }
    QVERIFY(names.size() > 20);
}

void TestLivePages::takesAPageFromTheFolder()
{
    Shown shown({{"room/page.html",
                  page("from the folder", "<meta charset=utf-8><link rel=stylesheet href=a.css>"
                                          "<script src=a.js></script>")},
                 {"a.css", "#text { color: rgb(1, 2, 3); }"},
                 {"other/a.js", "var answer = '\xc3\xa4';"}});
    QTRY_COMPARE(shown.said(), QString("from the folder"));
    QCOMPARE(read(shown.view(), "getComputedStyle(document.getElementById('text')).color"),
             QVariant("rgb(1, 2, 3)"));
    QCOMPARE(read(shown.view(), "answer"), QVariant(QString::fromUtf8("\xc3\xa4")));
    QCOMPARE(shown.view()->url(), QUrl("qrc:/page.html"));
}

void TestLivePages::takesFromTheResourcesWhatTheFolderLacks()
{
    Shown shown({{"devices.css", "#devices { color: rgb(1, 2, 3); }"}}, "qrc:/devices.html");
    QTRY_VERIFY(shown.panel->isLoaded());
    QCOMPARE(read(shown.view(), "getComputedStyle(document.getElementById('devices')).color"),
             QVariant("rgb(1, 2, 3)"));
    QVERIFY(read(shown.view(), "typeof Page.start").toString() == "function");
}

void TestLivePages::tellsScriptErrorsWithPageAndLine()
{
    const QByteArray keep = "<script>var told = []; window.onerror = function (text, page, line) {"
                            " told.push(page + ':' + line); };</script>"
                            "<script src=broken.js></script><script src=thrown.js></script>";
    Shown shown({{"page.html", page("shown", keep)},
                 {"broken.js", "var a;\n\nvar = 1;\n"},
                 {"thrown.js", "var b;\nnothing.there();\n"}});
    QTRY_COMPARE(shown.said(), QString("shown"));
    QCOMPARE(read(shown.view(), "told.join(' ')"), QVariant("qrc:/broken.js:3 qrc:/thrown.js:2"));
}

void TestLivePages::loadsAPageAnewWhenAFileChanges_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QVariant>("value");
    const QString text = "document.getElementById('text').textContent";
    const QString colour = "getComputedStyle(document.getElementById('text')).color";
    QTest::newRow("the page") << "page.html" << page("new") << text << QVariant("new");
    QTest::newRow("its style") << "page.css" << QByteArray("p { color: rgb(4, 5, 6); }") << colour
                               << QVariant("rgb(4, 5, 6)");
    QTest::newRow("what its style takes in")
        << "more.css" << QByteArray("p { color: rgb(7, 8, 9); }") << colour
        << QVariant("rgb(7, 8, 9)");
    QTest::newRow("its script") << "page.js" << QByteArray("var answer = 2;") << "answer"
                                << QVariant(2.0);
    QTest::newRow("a file that was not there")
        << "late.js" << QByteArray("var late = 3;") << "late" << QVariant(3.0);
}

void TestLivePages::loadsAPageAnewWhenAFileChanges()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, expression);
    QFETCH(QVariant, value);
    Shown shown({{"page.html", page("old", "<link rel=stylesheet href=page.css>"
                                           "<script src=page.js></script>"
                                           "<script src=late.js></script>")},
                 {"page.css", "@import url(more.css);"},
                 {"more.css", "p { color: rgb(1, 2, 3); }"},
                 {"page.js", "var answer = 1;"}});
    QTRY_VERIFY(shown.panel->isLoaded());
    QVERIFY(read(shown.view(), expression) != value);
    QVERIFY(shown.write(file, content));
    QTRY_COMPARE(read(shown.view(), expression), value);
    QTRY_VERIFY(shown.panel->isLoaded());
    QTest::qWait(Quiet);
    QCOMPARE(shown.loads, 1);
}

void TestLivePages::loadsEachPageAnewThatUsesAFile()
{
    const QByteArray head = "<script src=both.js></script>";
    Shown shown({{"page.html", page("one", head)},
                 {"other.html", page("two", head)},
                 {"both.js", "var answer = 1;"}});
    const auto other = shown.show("qrc:/other.html");
    QTRY_VERIFY(shown.panel->isLoaded() && other->isLoaded());
    for (const double answer : {2, 3}) {
        QVERIFY(shown.write("both.js", "var answer =   " + QByteArray::number(answer)));
        QTRY_COMPARE(read(shown.view(), "answer"), QVariant(answer));
        QTRY_COMPARE(read(other->view(), "answer"), QVariant(answer));
    }
}

void TestLivePages::leavesOtherPagesAlone()
{
    Shown shown({{"page.html", page("one")}, {"other.html", page("two")}});
    QTRY_VERIFY(shown.panel->isLoaded());
    shown.loads = 0;
    QVERIFY(shown.write("other.html", page("changed")));
    QTest::qWait(Quiet);
    QCOMPARE(shown.loads, 0);
}

void TestLivePages::loadsOnceForFilesThatChangeTogether()
{
    Shown shown({{"page.html", page("old", "<script src=page.js></script>")},
                 {"page.js", "var answer = 1;"}});
    QTRY_VERIFY(shown.panel->isLoaded());
    shown.loads = 0;
    QVERIFY(shown.write("page.js", "var answer = 20;"));
    QTest::qWait(LivePages::LookInterval);
    QVERIFY(shown.write("page.html", page("newer", "<script src=page.js></script>")));
    QTRY_COMPARE(shown.said(), QString("newer"));
    QCOMPARE(read(shown.view(), "answer"), QVariant(20.0));
    QTest::qWait(Quiet);
    QCOMPARE(shown.loads, 1);
}

void TestLivePages::waitsForAFileThatIsBeingWritten()
{
    Shown shown({{"page.html", page("old")}});
    QTRY_COMPARE(shown.said(), QString("old"));
    shown.loads = 0;
    QFile file(shown.dir.filePath("page.html"));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)); // nothing in it any more
    QTest::qWait(Quiet);
    QCOMPARE(shown.said(), QString("old"));
    const QByteArray whole = page("written byte by byte");
    for (int i = 0; i < whole.size(); i += 8) {
        QVERIFY(file.write(whole.mid(i, 8)) > 0);
        QTest::qWait(LivePages::LookInterval / 2);
        QCOMPARE(shown.said(), QString("old"));
    }
    QTRY_COMPARE(shown.said(), QString("written byte by byte"));
    QCOMPARE(shown.loads, 1);
}

void TestLivePages::takesAFileThatStaysEmpty()
{
    Shown shown({{"page.html", page("shown", "<link rel=stylesheet href=page.css>")},
                 {"page.css", "p { color: rgb(1, 2, 3); }"}});
    const QString colour = "getComputedStyle(document.getElementById('text')).color";
    QTRY_COMPARE(read(shown.view(), colour), QVariant("rgb(1, 2, 3)"));
    QVERIFY(shown.write("page.css", QByteArray()));
    QTRY_COMPARE(read(shown.view(), colour), QVariant("rgb(0, 0, 0)"));
}

void TestLivePages::takesAFileThatIsReplaced()
{
    Shown shown({{"page.html", page("old")}});
    QTRY_COMPARE(shown.said(), QString("old"));
    for (const char *text : {"renamed", "renamed again"}) {
        QVERIFY(shown.write("page.html.new", page(text)));
        QVERIFY(std::rename(qPrintable(shown.dir.filePath("page.html.new")),
                            qPrintable(shown.dir.filePath("page.html"))) == 0);
        QTRY_COMPARE(shown.said(), QString(text));
    }
    shown.loads = 0;
    QVERIFY(QFile::rename(shown.dir.filePath("page.html"), shown.dir.filePath("page.html~")));
    QVERIFY(shown.write("page.html", page("written behind a copy")));
    QTRY_COMPARE(shown.said(), QString("written behind a copy"));
    QCOMPARE(shown.loads, 1);
}

// What the folder held comes from the resources until it is back.
void TestLivePages::outlivesTheFolder()
{
    Shown shown({{"pages/devices.html", page("of the folder")}});
    shown.panel.reset();
    shown.live = std::make_unique<LivePages>(shown.dir.filePath("pages"));
    shown.panel = shown.show("qrc:/devices.html");
    QTRY_COMPARE(shown.said(), QString("of the folder"));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(QDir().rename(shown.dir.filePath("pages"), shown.dir.filePath("gone")));
        QTRY_COMPARE(count(shown.view(), "#devices"), 1);
        QTRY_VERIFY(shown.panel->isLoaded());
        QVERIFY(QDir().rename(shown.dir.filePath("gone"), shown.dir.filePath("pages")));
        QTRY_COMPARE(shown.said(), QString("of the folder"));
    }
    QVERIFY(shown.write("pages/devices.html", page("changed since")));
    QTRY_COMPARE(shown.said(), QString("changed since"));
}

void TestLivePages::showsAPageThatWasMissing()
{
    Shown shown({});
    QSignalSpy finished(shown.view(), &QWebView::loadFinished);
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toBool(), false);
    QVERIFY(shown.write("page.html", page("there now")));
    QTRY_COMPARE(shown.said(), QString("there now"));
    QVERIFY(QFile::remove(shown.dir.filePath("page.html")));
    QTRY_COMPARE(finished.count(), 3);
    QVERIFY(shown.write("page.html", page("there again")));
    QTRY_COMPARE(shown.said(), QString("there again"));
}

void TestLivePages::waitsForThePagesOwnScript()
{
    Shown shown({{"page.html", page("old")}});
    QTRY_COMPARE(shown.said(), QString("old"));
    shown.loads = 0;
    Waiter waiter([&] {
        QVERIFY(shown.write("page.html", page("changed")));
        QTest::qWait(Quiet);
    });
    shown.view()->page()->mainFrame()->addToJavaScriptWindowObject("waiter", &waiter);
    read(shown.view(), "waiter.wait(); document.getElementById('text').textContent = 'waited'");
    QCOMPARE(shown.loads, 0);
    QCOMPARE(shown.said(), QString("waited"));
    QTRY_COMPARE(shown.said(), QString("changed"));
    QCOMPARE(shown.loads, 1);
}

// A page has opened a dialog and waits for it: that of the dialog is worked at.
void TestLivePages::loadsADialogAnewOverAPageThatWaits()
{
    Shown shown({{"page.html", page("old")}, {"other.html", page("other")}});
    QTRY_COMPARE(shown.said(), QString("old"));
    QString last;
    Waiter waiter([&] {
        const auto other = shown.show("qrc:/other.html");
        QTRY_COMPARE(text(other->view(), "#text"), QString("other"));
        for (const char *changed : {"changed", "changed again"}) {
            QVERIFY(shown.write("other.html", page(changed)));
            QTRY_COMPARE(text(other->view(), "#text"), QString(changed));
            last = changed;
        }
    });
    shown.view()->page()->mainFrame()->addToJavaScriptWindowObject("waiter", &waiter);
    read(shown.view(), "waiter.wait()");
    QCOMPARE(last, QString("changed again"));
}

void TestLivePages::leavesAToolsOwnTextAlone()
{
    Shown shown({{"page.html", page("a page")}, {"tool.js", "var answer = 1;"}});
    QTRY_COMPARE(shown.said(), QString("a page"));
    shown.view()->setHtml(page("a tool", "<script src=tool.js></script>"), QUrl("qrc:/"));
    QTRY_COMPARE(read(shown.view(), "answer"), QVariant(1.0));
    shown.loads = 0;
    QVERIFY(shown.write("tool.js", "var answer =  2;"));
    QTest::qWait(Quiet);
    QCOMPARE(shown.said(), QString("a tool"));
    QCOMPARE(shown.loads, 0);
}

void TestLivePages::keepsTheViewsWhenTheirPageIsLoadedAnew()
{
    QTemporaryDir dir;
    QVERIFY(QFile::copy(PAGES_FOLDER "/window/viewarea.html", dir.filePath("viewarea.html")));
    QFile file(dir.filePath("viewarea.html"));
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
    Options options;
    options.settingsFile = dir.filePath("settings.ini");
    options.pagesFolder = dir.path();
    options.pluginFolder = dir.filePath("none");
    Workbench workbench(options);
    LogCapture missingFolder;
    workbench.start(options);
    workbench.window().show();
    PagePanel *viewPage = workbench.window().viewPage();
    QTRY_VERIFY(viewPage->isLoaded() && workbench.window().views()->isVisible());
    QSignalSpy finished(viewPage->view(), &QWebView::loadFinished);
    QVERIFY(file.open(QIODevice::Append));
    file.write("<!-- changed -->");
    file.close();
    QTRY_COMPARE(finished.count(), 1);
    QTRY_VERIFY(viewPage->isLoaded() && workbench.window().views()->isVisible());
    QCOMPARE(workbench.window().views()->views().size(), 2);
    QCOMPARE(workbench.window().views()->window(), &workbench.window());
}

void TestLivePages::leavesPagesBehindThatLoadFromTheResources()
{
    Shown shown({{"devices.html", page("of the folder")}}, "qrc:/devices.html");
    QTRY_COMPARE(shown.said(), QString("of the folder"));
    shown.live.reset();
    shown.view()->load(QUrl("qrc:/devices.html"));
    QTRY_COMPARE(count(shown.view(), "#devices"), 1);
}

int main(int argc, char **argv)
{
    TestLivePages test;
    return runTest(argc, argv, test);
}

#include "test_live_pages.moc"
