#include "bridge/dialog/GUI_PageDialog.h"
#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/pages/DropDownBoxes.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/pages/PageDialogs.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>

using namespace PageHand;

/// A dialog that its page works directly, and that tells how it is shown.
class OwnPageDialog : public GUI_PageDialog
{
    Q_OBJECT

public:
    explicit OwnPageDialog(HostServices *host) : GUI_PageDialog(host, "Own", nullptr)
    {
        resize(321, 123);
        loadPage("qrc:/nothing.html");
    }

public slots:
    void populateJavaScriptWindowObject() override { showToPage("own"); }
};

namespace {

/// The workbench with two cameras and no tools.
struct Shown
{
    explicit Shown(const QString &style = QStringLiteral("light"))
    {
        options.settingsFile = folder.filePath("settings.ini");
        options.pluginFolder = folder.path();
        options.cameras = 2;
        options.style = style;
        workbench = std::make_unique<Workbench>(options);
        workbench->start(options);
    }

    bool open()
    {
        window().show();
        window().activateWindow();
        return QTest::qWaitForWindowActive(&window()) && QTest::qWaitFor([this] {
                   for (PagePanel *panel : window().findChildren<PagePanel *>()) {
                       if (!panel->isLoaded())
                           return false;
                   }
                   return true;
               });
    }

    MainWindow &window() { return workbench->window(); }
    StandInHost &host() { return workbench->host(); }

    QTemporaryDir folder;
    Options options;
    std::unique_ptr<Workbench> workbench;
};

bool isDrawn(GUI_WebView *view)
{
    return read(view, "document.readyState === 'complete' && document.body.classList.length > 0")
        .toBool();
}

using Visit = std::function<void(GUI_WebView *)>;

bool visitPanel(Shown &shown, const PageEntry &page, const Visit &body)
{
    for (PagePanel *panel : shown.window().findChildren<PagePanel *>()) {
        if (panel->view()->url() == QUrl(page.url)) {
            for (QWidget *around = panel; around; around = around->parentWidget()) {
                if (auto *dock = qobject_cast<QDockWidget *>(around))
                    dock->raise(); // another one may stand in its place
            }
            QApplication::processEvents();
            body(panel->view());
            return true;
        }
    }
    return false;
}

bool visitDialog(Shown &shown, const PageEntry &page, const Visit &body)
{
    bool visited = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        QPointer<QWidget> dialog = QApplication::activeModalWidget();
        auto *view = dialog ? dialog->findChild<GUI_WebView *>() : nullptr;
        if (!view || !isDrawn(view))
            return;
        look.stop();
        visited = true;
        body(view);
        if (dialog)
            dialog->close();
    });
    look.start(5);
    QTimer::singleShot(20000, &look, [] {
        if (QWidget *dialog = QApplication::activeModalWidget())
            dialog->close();
    });
    shown.window().findChild<QAction *>(page.name)->trigger();
    return visited;
}

// The only list is that of the partitions.
bool visitList(Shown &shown, const Visit &body)
{
    DropDownBoxes *boxes = shown.workbench->boxes();
    if (!click(shown.window().statusPanel()->view(), "#partition") || !QTest::qWaitFor([&] {
            return boxes->box() && boxes->box()->isVisible() && isDrawn(boxes->box()->webView());
        }))
        return false;
    body(boxes->box()->webView());
    boxes->box()->hide();
    return true;
}

bool visit(Shown &shown, const PageEntry &page, const Visit &body)
{
    switch (page.kind) {
    case PageEntry::Kind::Panel:
        return visitPanel(shown, page, body);
    case PageEntry::Kind::Dialog:
        return visitDialog(shown, page, body);
    case PageEntry::Kind::List:
        return visitList(shown, body);
    }
    return false;
}

void addPages()
{
    QTest::addColumn<QString>("name");
    for (const PageEntry &page : PageCatalogue::pages())
        QTest::newRow(qPrintable(page.name)) << page.name;
}

void addPagesInBothStyles()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("style");
    for (const PageEntry &page : PageCatalogue::pages()) {
        for (const char *style : {"light", "dark"})
            QTest::addRow("%s, %s", qPrintable(page.name), style) << page.name << style;
    }
}

QString sourceOf(const QString &url)
{
    QFile file(QString(url).remove(0, 3)); // "qrc"
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Which controls a user can reach now, a name each: of radio buttons the chosen one of its group.
const char *const WalkScript =
    "window.walk = {"
    "    controls: Array.from(document.querySelectorAll("
    "        'button, input, select, textarea, a[href], [tabindex], [contenteditable]'))"
    "        .filter(function (element) {"
    "            return !element.disabled && element.tabIndex >= 0 &&"
    "                element.getClientRects().length > 0 &&"
    "                (element.type !== 'radio' || element.checked);"
    "        }),"
    "    names: function (elements) {"
    "        return elements.map(function (element) {"
    "            return element.id || element.tagName; }).sort().join(' ');"
    "    },"
    "    isMarked: function (element) {"
    "        var style = getComputedStyle(element);"
    "        return style.outlineStyle !== 'none' && parseFloat(style.outlineWidth) >= 1;"
    "    },"
    "    isInView: function (element) {"
    "        var box = element.getBoundingClientRect();"
    "        return box.left >= 0 && box.top >= 0 && box.right <= innerWidth &&"
    "            box.bottom <= innerHeight;"
    "    },"
    // What of the page's texts is wider than the place that it has.
    "    cutTexts: function () {"
    "        var cut = [];"
    "        var texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT, null,"
    "            false);"
    "        while (texts.nextNode()) {"
    "            var node = texts.currentNode;"
    "            var range = document.createRange();"
    "            range.selectNodeContents(node);"
    "            var box = range.getBoundingClientRect();"
    "            if (node.data.trim() === '' || box.width === 0)"
    "                continue;"
    "            for (var around = node.parentNode; around !== document;"
    "                    around = around.parentNode) {"
    "                var place = around.getBoundingClientRect();"
    "                var holds = getComputedStyle(around).overflowX !== 'visible' ||"
    "                    around === document.documentElement ||"
    "                    ['BUTTON', 'LI', 'LABEL'].indexOf(around.tagName) >= 0;"
    "                if (holds && (box.left < place.left - 1 || box.right > place.right + 1)) {"
    "                    cut.push(node.data.trim());"
    "                    break;"
    "                }"
    "            }"
    "        }"
    "        return cut.join(', ');"
    "    }"
    "};"
    "0";

}

class TestPageCatalogue : public TestBase
{
    Q_OBJECT

private slots:
    void hasEachPageOnce();
    void loadsTheSharedScriptFirst_data();
    void loadsTheSharedScriptFirst();
    void hasAnEntryForEachDialog_data();
    void hasAnEntryForEachDialog();
    void hasEachMenuOnce();
    void takesBothStyles_data();
    void takesBothStyles();
    void isWalkedByKeys_data();
    void isWalkedByKeys();
    void cutsNoText_data();
    void cutsNoText();
    void runsADialogWithoutACommand();
    void runsADialogThatIsMadeForIt();
    void tellsAFailureOfTheHost();
};

void TestPageCatalogue::hasEachPageOnce()
{
    QStringList names;
    QStringList urls;
    for (const PageEntry &page : PageCatalogue::pages()) {
        names.append(page.name);
        // A page that is made for what it shows may be there for several such things.
        if (!page.make || !urls.contains(page.url))
            urls.append(page.url);
        QCOMPARE(&PageCatalogue::page(page.name), &page);
        QVERIFY2(!page.title.isEmpty() && !page.mediator.isEmpty(), qPrintable(page.name));
    }
    QCOMPARE(names.removeDuplicates(), 0);
    QCOMPARE(urls.removeDuplicates(), 0);
    for (const char *name :
         {"views", "devices", "devicecontrol", "status", "partitions", "prefs", "ethernet",
          "editinfo", "saveinfo", "saveinfoLayout", "saveinfoConvert", "saveinfoReport", "timeCode",
          "comments", "shutterSpeed", "recordRate", "frameNumber", "recordingTime", "about"})
        QVERIFY2(names.contains(name), name);
}

void TestPageCatalogue::loadsTheSharedScriptFirst_data()
{
    addPages();
}

// Else it hears nothing of what the others do wrong.
void TestPageCatalogue::loadsTheSharedScriptFirst()
{
    QFETCH(QString, name);
    const Shown shown; // makes the pages known
    const QString source = sourceOf(PageCatalogue::page(name).url);
    const int first = source.indexOf("<script");
    QVERIFY(first > 0);
    QCOMPARE(source.mid(first, 34), QString("<script src=\"common.js\"></script>\n"));
    QVERIFY(!source.contains(QRegularExpression("\\son[a-z]+=")));
}

void TestPageCatalogue::hasAnEntryForEachDialog_data()
{
    addPages();
}

void TestPageCatalogue::hasAnEntryForEachDialog()
{
    QFETCH(QString, name);
    const PageEntry &page = PageCatalogue::page(name);
    Shown shown;
    QStringList menus;
    for (const QAction *menu : shown.window().menuBar()->actions()) {
        for (const QAction *entry : menu->menu()->actions()) {
            if (entry->objectName() != name)
                continue;
            menus.append(QString(menu->text()).remove('&'));
            QCOMPARE(entry->text(), page.entry);
            QCOMPARE(entry->shortcut(), page.shortcut);
        }
    }
    QCOMPARE(menus, page.menu.isEmpty() ? QStringList() : QStringList(page.menu));
    QVERIFY(page.kind != PageEntry::Kind::Dialog || menus.size() == 1);
}

void TestPageCatalogue::hasEachMenuOnce()
{
    Shown shown;
    QStringList menus;
    for (const QAction *menu : shown.window().menuBar()->actions())
        menus.append(QString(menu->text()).remove('&'));
    QVERIFY(menus.contains("Information"));
    QCOMPARE(menus.removeDuplicates(), 0);
}

void TestPageCatalogue::takesBothStyles_data()
{
    addPagesInBothStyles();
}

// What goes wrong would be in the log, which fails the test.
void TestPageCatalogue::takesBothStyles()
{
    QFETCH(QString, name);
    QFETCH(QString, style);
    const PageEntry &page = PageCatalogue::page(name);
    Shown shown(style);
    QVERIFY(shown.open());
    QVERIFY(visit(shown, page, [&](GUI_WebView *view) {
        QCOMPARE(view->url(), QUrl(page.url));
        QCOMPARE(read(view, "typeof " + page.mediator).toString(), QString("object"));
        QVERIFY(read(view, "document.body.classList.contains('" + style + "')").toBool());
        const QString other = style == "dark" ? "light" : "dark";
        shown.workbench->setStyle(other);
        shown.host().updateUI(63, true);
        QTRY_VERIFY(read(view, "document.body.classList.contains('" + other + "')").toBool());
        if (page.kind == PageEntry::Kind::Dialog) {
            QCOMPARE(view->window()->windowTitle(), page.title);
            QCOMPARE(view->window()->objectName(), page.mediator);
            if (page.size.isValid())
                QCOMPARE(view->window()->size(), page.size);
        }
        QVERIFY(!view->accessibleName().isEmpty());
    }));
    QCOMPARE(shown.window().notice()->text(), QString());
}

void TestPageCatalogue::isWalkedByKeys_data()
{
    addPagesInBothStyles();
}

void TestPageCatalogue::isWalkedByKeys()
{
    QFETCH(QString, name);
    QFETCH(QString, style);
    Shown shown(style);
    QVERIFY(shown.open());
    QVERIFY(visit(shown, PageCatalogue::page(name), [](GUI_WebView *view) {
        view->window()->activateWindow();
        view->setFocus();
        read(view, WalkScript);
        read(view, "document.activeElement.blur(); walk.reached = []; 0");
        const int controls = read(view, "walk.controls.length").toInt();
        // Tab goes on to what stands beside the page, and comes back.
        for (int i = 0; i < 2 * controls + 2; ++i) {
            view->setFocus();
            QVERIFY(press(view, Qt::Key_Tab));
            if (!read(view, "walk.controls.indexOf(document.activeElement) >= 0").toBool())
                continue;
            const QString at = read(view, "walk.names([document.activeElement])").toString();
            QVERIFY2(read(view, "walk.isMarked(document.activeElement)").toBool(), qPrintable(at));
            QVERIFY2(read(view, "walk.isInView(document.activeElement)").toBool(), qPrintable(at));
            read(view, "if (walk.reached.indexOf(document.activeElement) < 0)"
                       "    walk.reached.push(document.activeElement)");
        }
        QCOMPARE(read(view, "walk.names(walk.reached)").toString(),
                 read(view, "walk.names(walk.controls)").toString());
    }));
    QCOMPARE(shown.window().notice()->text(), QString());
}

void TestPageCatalogue::cutsNoText_data()
{
    addPages();
}

void TestPageCatalogue::cutsNoText()
{
    QFETCH(QString, name);
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(visit(shown, PageCatalogue::page(name), [](GUI_WebView *view) {
        read(view, WalkScript);
        QCOMPARE(read(view, "walk.cutTexts()").toString(), QString());
        QVERIFY(read(view, "document.documentElement.scrollWidth <= innerWidth").toBool());
    }));
}

void TestPageCatalogue::runsADialogWithoutACommand()
{
    StandInHost host;
    PageDialogs dialogs(host);
    JS_Mediator_Page commands(&host, "x");
    PageEntry page;
    page.title = "Ethernet settings";
    page.url = "qrc:/ethernet.html";
    page.mediator = "ethernet";
    page.size = {450, 260};
    bool visited = false;
    QTimer::singleShot(0, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        auto *view = dialog ? dialog->findChild<GUI_WebView *>() : nullptr;
        if (QTest::qWaitFor([&] { return isDrawn(view); })) {
            visited = dialog->size() == page.size && host.state().isModalDialogOpen;
            click(view, "#cancel");
        }
        if (QApplication::activeModalWidget())
            dialog->close();
    });
    dialogs.open(page, commands);
    QVERIFY(visited);
    QVERIFY(!host.state().isModalDialogOpen);
}

void TestPageCatalogue::runsADialogThatIsMadeForIt()
{
    LogCapture log; // its page is missing
    Shown shown;
    QVERIFY(shown.open());
    PageEntry page;
    page.mediator = "own";
    page.make = [](StandInHost &host, const PageEntry &, QWidget *) -> std::unique_ptr<QDialog> {
        return std::make_unique<OwnPageDialog>(&host);
    };
    QString name;
    QSize size;
    QTimer look;
    connect(&look, &QTimer::timeout, &look, [&] {
        auto *dialog = dynamic_cast<OwnPageDialog *>(QApplication::activeModalWidget());
        if (!dialog || shown.window().notice()->text().isEmpty())
            return;
        look.stop();
        name = dialog->objectName();
        size = dialog->size();
        dialog->close();
    });
    look.start(5);
    emit shown.window().pageRequested(page);
    QCOMPARE(name, QString("own"));
    QCOMPARE(size, QSize(321, 123));
    QCOMPARE(shown.window().notice()->text(),
             QString("The page qrc:/nothing.html cannot be loaded"));
}

void TestPageCatalogue::tellsAFailureOfTheHost()
{
    StandInHost host;
    PageDialogs dialogs(host);
    JS_Mediator_Page commands(&host, "x");
    PageEntry page;
    page.mediator = "x";
    page.make = [](StandInHost &, const PageEntry &, QWidget *) -> std::unique_ptr<QDialog> {
        throw std::runtime_error("no dialog today");
    };
    LogCapture log;
    dialogs.open(page, commands);
    QCOMPARE(host.handledErrors(), QStringList("no dialog today"));
    QVERIFY(!host.state().isModalDialogOpen);
}

int main(int argc, char **argv)
{
    TestPageCatalogue test;
    return runTest(argc, argv, test);
}

#include "test_page_catalogue.moc"
