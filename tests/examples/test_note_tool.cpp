#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/DOC_Interface.h"
#include "contract/PLG_Interface.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourPictures.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"
#include "workbench/window/ToolBar.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

// The module of the note tool in the workbench, worked by its button, the mouse and the keys.
class TestNoteTool : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsOneSymbol();
    void opensAndClosesByItsButton();
    void preparesThePageBeforeItIsShown();
    void closes_data();
    void closes();
    void escapeDoesNotCloseIt();
    void keepsItsPageBetweenShowings();
    void comesBackWhenMinimised();
    void closesInAForbiddenMode();
    void staysInAForbiddenModeWhenToldTo();
    void hasTheWantedSize();
    void keepsANotePerCamera();
    void startsWithThePresentNote();
    void survivesARestart_data();
    void survivesARestart();
    void losesNothingWhenTheApplicationGoesInMidTyping();
    void typedTextBelongsToItsCamera();
    void cameraThatGoesInMidTyping();
    void saysThatThereIsNoCamera();
    void keepsWhatCannotBeWritten();
    void tellsATroubleOnceWhileItLasts();
    void failingHostHarmsNothing();
    void shortcutsWorkInTheDialog();
    void modalDialogKeepsTheShortcutsAway();
    void shortcutsStandAsideForTyping_data();
    void shortcutsStandAsideForTyping();
    void shortcutsComeBack_data();
    void shortcutsComeBack();
    void unloadsUnderTheLoadOfItsPage();
    void shortcutsComeBackWithoutWordOfTheFocus_data();
    void shortcutsComeBackWithoutWordOfTheFocus();
    void goesThroughItsControlsByTab();
    void takesTheStyle();
    void speaksTheLanguageOfTheHost();

private:
    void start();
    PLG_Interface *tool() const { return m_workbench->loader().tools().value(0); }
    StandInHost &host() const { return m_workbench->host(); }
    MainWindow &window() const { return m_workbench->window(); }
    QAction *button() const { return window().tools()->action(tool()); }
    bool press() const;
    bool open() const;
    GUI_ModelessPatternDialog *dialog() const { return tool()->ensureDialog(false); }
    GUI_WebView *page() const { return dialog()->webView(); }
    bool isShown() const { return dialog() && dialog()->isVisible(); }
    bool choose(int index) const;
    QString name() const { return PageHand::text(page(), "#name"); }
    QString note() const { return PageHand::read(page(), "text.value").toString(); }
    QString state() const { return PageHand::text(page(), "#state"); }
    bool isTyping() const;
    QString stored(int camera) const;
    static void pressInFocus(int key, Qt::KeyboardModifiers modifiers);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Workbench> m_workbench;
};

namespace {
const QString NoCamera = QStringLiteral("There is no camera to write a note for.");

// A window system that says nothing of the focus when a window goes.
class FocusSwallower : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::FocusOut || event->type() == QEvent::WindowDeactivate;
    }
};

const QString NotStored = QStringLiteral("This note could not be stored. It is kept here.");
}

void TestNoteTool::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    start();
}

void TestNoteTool::cleanup()
{
    m_workbench.reset();
    m_dir.reset();
    TestBase::cleanup();
}

void TestNoteTool::start()
{
    m_workbench.reset(); // one at a time
    Options options;
    options.settingsFile = m_dir->filePath("settings.ini");
    options.pluginFolder = PLUGIN_FOLDER;
    options.cameras = 2;
    m_workbench = std::make_unique<Workbench>(options);
    m_workbench->start(options);
    window().resize(1280, 800);
    window().show();
    window().views()->setRunning(false);
    window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    // The pictures stand in a page, which has to load.
    QVERIFY(QTest::qWaitFor([this] { return window().views()->isVisible(); }));
    QVERIFY(tool());
    QCOMPARE(tool()->name(), QString("t_note"));
}

bool TestNoteTool::press() const
{
    return TourHand::click(window().tools()->widgetForAction(button()));
}

// With its page, and the window that has the keys.
bool TestNoteTool::open() const
{
    return press() && isShown() && QTest::qWaitForWindowActive(dialog()) && QTest::qWaitFor([this] {
               return PageHand::isShown(page(), "#text") || PageHand::isShown(page(), "#none");
           });
}

// A click on a picture in the main window.
bool TestNoteTool::choose(int index) const
{
    DocumentView *view = window().views()->views().value(index);
    return TourHand::click(view) &&
           QTest::qWaitFor([&] { return view->isCurrent() && name() == view->title(); });
}

bool TestNoteTool::isTyping() const
{
    return host().state().textBoxFocus;
}

QString TestNoteTool::stored(int camera) const
{
    return host().settings().value(QStringLiteral("t_note/text%1").arg(camera), "none").toString();
}

void TestNoteTool::pressInFocus(int key, Qt::KeyboardModifiers modifiers)
{
    TourHand::press(key, modifiers);
}

void TestNoteTool::showsOneSymbol()
{
    QProcess nm;
    nm.start("nm", {"-D", "--defined-only", PLUGIN_FOLDER "/t_note.orvix"});
    QVERIFY(nm.waitForFinished());
    const QByteArrayList lines = nm.readAllStandardOutput().trimmed().split('\n');
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.first().endsWith(" T makeButtonPlugin"));
}

void TestNoteTool::opensAndClosesByItsButton()
{
    DOC_Interface *doc = host().cameras().first()->contract();
    QCOMPARE(button()->text(), QString("Note"));
    QVERIFY(!button()->isChecked());
    QVERIFY(!tool()->isChecked(doc, false));
    QVERIFY(!dialog());

    QVERIFY(open());
    QVERIFY(host().isPluginOpen(tool()));
    QVERIFY(tool()->isChecked(doc, false));
    QVERIFY(button()->isChecked());
    QCOMPARE(dialog()->windowTitle(), QString("Note"));
    QVERIFY(!dialog()->isModal());
    QCOMPARE(dialog()->parentWidget(), &window());

    QVERIFY(press());
    QVERIFY(!isShown());
    QVERIFY(!host().isPluginOpen(tool()));
    QVERIFY(!tool()->isChecked(doc, false));
    QVERIFY(!button()->isChecked());
}

void TestNoteTool::preparesThePageBeforeItIsShown()
{
    QVERIFY(tool()->ensureDialog(true));
    QStringList story;
    const auto visible = [this] { return dialog()->isVisible() ? "shown" : "hidden"; };
    connect(dialog()->mediator(), &JS_Mediator::open, this,
            [&] { story.append(QStringLiteral("open while %1").arg(visible())); });
    connect(dialog(), &GUI_ModelessPatternDialog::shown, this,
            [&] { story.append(QStringLiteral("told while %1").arg(visible())); });
    QVERIFY(open());
    QCOMPARE(story, QStringList({"open while hidden", "told while shown"}));
    tool()->showDialog(); // is there already
    QCOMPARE(story.size(), 2);
    QVERIFY(press());
    QVERIFY(open());
    QCOMPARE(story.size(), 4);
    disconnect(dialog(), nullptr, this, nullptr);
    disconnect(dialog()->mediator(), nullptr, this, nullptr);
}

void TestNoteTool::closes_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"frame", "page", "button", "mediator", "host"})
        QTest::newRow(way) << way;
}

void TestNoteTool::closes()
{
    QFETCH(QString, way);
    QVERIFY(open());
    int closed = 0;
    connect(dialog(), &GUI_ModelessPatternDialog::closed, this, [&] { ++closed; });
    for (int time = 1; time <= 2; ++time) {
        QVERIFY(time == 1 || open());
        if (way == "frame")
            dialog()->close();
        else if (way == "page")
            QVERIFY(PageHand::click(page(), "#close"));
        else if (way == "button")
            QVERIFY(press());
        else if (way == "mediator")
            PageHand::read(page(), "note.onClose()");
        else
            host().closePluginByName("t_note");
        QVERIFY(!isShown());
        QCOMPARE(closed, time);
        QVERIFY(!host().isPluginOpen(tool()));
        QTRY_VERIFY(!button()->isChecked());
        QCOMPARE(host().deterrals(), 0);
    }
    disconnect(dialog(), nullptr, this, nullptr);
}

void TestNoteTool::escapeDoesNotCloseIt()
{
    QVERIFY(open());
    QVERIFY(PageHand::press(page(), Qt::Key_Escape));
    QVERIFY(isShown());
}

void TestNoteTool::keepsItsPageBetweenShowings()
{
    QVERIFY(open());
    const auto *first = dialog();
    PageHand::read(page(), "var kept = 7");
    dialog()->move(dialog()->pos() + QPoint(40, 30));
    dialog()->resize(400, 310);
    const QPoint place = dialog()->pos();
    QVERIFY(press());
    QVERIFY(open());
    QCOMPARE(dialog(), first);
    QCOMPARE(PageHand::read(page(), "kept").toInt(), 7);
    QCOMPARE(dialog()->pos(), place);
    QCOMPARE(dialog()->size(), QSize(400, 310));
}

void TestNoteTool::comesBackWhenMinimised()
{
    QVERIFY(open());
    int opened = 0;
    connect(dialog()->mediator(), &JS_Mediator::open, this, [&] { ++opened; });
    dialog()->showMinimized();
    QVERIFY(dialog()->isMinimized());
    host().openPlugin(tool());
    QVERIFY(isShown());
    QVERIFY(!dialog()->isMinimized());
    QCOMPARE(opened, 1);
    disconnect(dialog()->mediator(), nullptr, this, nullptr);
}

void TestNoteTool::closesInAForbiddenMode()
{
    QVERIFY(tool()->closesOnForbiddenMode());
    QVERIFY(open());
    host().setMode(StandInHost::Mode::Memory);
    QVERIFY(isShown());
    host().setMode(StandInHost::Mode::File);
    QVERIFY(!isShown());
    QVERIFY(!host().isPluginOpen(tool()));
    window().refresh();
    QVERIFY(!button()->isEnabled());
    host().setMode(StandInHost::Mode::Live);
    window().refresh();
    QVERIFY(button()->isEnabled());
    QVERIFY(!isShown());
}

void TestNoteTool::staysInAForbiddenModeWhenToldTo()
{
    QTemporaryDir pictures;
    QVERIFY(TourPictures::write(pictures.path()));
    tool()->setClosesOnForbiddenMode(false);
    QVERIFY(open());
    QVERIFY(PageHand::type(page(), "of a camera"));
    LogCapture log; // the tour's folder holds what cannot be read
    m_workbench->openFolder(pictures.path());
    QCOMPARE(host().mode(), StandInHost::Mode::File);
    QVERIFY(isShown());
    // A recording is no camera.
    QTRY_VERIFY(PageHand::isShown(page(), "#none"));
    QCOMPARE(PageHand::text(page(), "#none"), NoCamera);
    QVERIFY(!PageHand::isShown(page(), "#text"));
    QVERIFY(!tool()->isChecked(host().documents().last()->contract(), false));
    host().setMode(StandInHost::Mode::Live);
    QTRY_VERIFY(PageHand::isShown(page(), "#text"));
    QCOMPARE(note(), QString("of a camera"));
}

void TestNoteTool::hasTheWantedSize()
{
    host().cameras().first()->state().displayName = QString(80, 'W');
    QVERIFY(open());
    QCOMPARE(dialog()->mediator()->getWidth(), 360);
    QCOMPARE(dialog()->mediator()->getHeight(), 280);
    QCOMPARE(dialog()->size(), QSize(360, 280));
    const QString fits = "document.documentElement.scrollHeight <= innerHeight && "
                         "document.documentElement.scrollWidth <= innerWidth";
    QVERIFY(PageHand::read(page(), fits).toBool());
    dialog()->resize(100, 100); // not below the smallest
    QCOMPARE(dialog()->size(), QSize(240, 200));
    TourHand::settle();
    QVERIFY(PageHand::read(page(), fits).toBool());
    host().failOn("setPrefString");
    QVERIFY(PageHand::type(page(), "x"));
    QCOMPARE(state(), NotStored); // the longest
    QVERIFY(PageHand::read(page(), fits).toBool());
    QVERIFY(PageHand::isShown(page(), "#close"));
}

void TestNoteTool::keepsANotePerCamera()
{
    QVERIFY(open());
    QCOMPARE(name(), QString("Camera 1"));
    QCOMPARE(note(), QString());
    QCOMPARE(state(), QString("Notes are stored as you type."));
    QVERIFY(PageHand::type(page(), "Lens"));
    QVERIFY(PageHand::press(page(), Qt::Key_Return));
    QVERIFY(PageHand::type(page(), "cleaned"));
    QCOMPARE(stored(0), QString("Lens\ncleaned"));
    QCOMPARE(stored(1), QString("none"));
    QVERIFY(state().startsWith("Changed "));

    QVERIFY(choose(1));
    QCOMPARE(name(), QString("Camera 2"));
    QCOMPARE(note(), QString());
    QVERIFY(PageHand::click(page(), "#text"));
    QVERIFY(PageHand::type(page(), "Filter 3"));
    QCOMPARE(stored(0), QString("Lens\ncleaned"));
    QCOMPARE(stored(1), QString("Filter 3"));

    QVERIFY(choose(0));
    QCOMPARE(note(), QString("Lens\ncleaned"));
    QVERIFY(PageHand::click(page(), "#text"));
    QVERIFY(PageHand::press(page(), Qt::Key_A, Qt::ControlModifier));
    QVERIFY(PageHand::press(page(), Qt::Key_Delete));
    QCOMPARE(stored(0), QString());
    QCOMPARE(stored(1), QString("Filter 3"));
}

// Also when another camera became the current one while the dialog was not there.
void TestNoteTool::startsWithThePresentNote()
{
    host().settings().setValue("t_note/text1", "before");
    host().makeCurrent(2);
    QVERIFY(open());
    QCOMPARE(name(), QString("Camera 2"));
    QCOMPARE(note(), QString("before"));
    QVERIFY(press());
    host().makeCurrent(1);
    host().settings().setValue("t_note/text0", "meanwhile");
    window().refresh();
    QVERIFY(open());
    QCOMPARE(name(), QString("Camera 1"));
    QCOMPARE(note(), QString("meanwhile"));
}

void TestNoteTool::survivesARestart_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "Lens cleaned";
    QTest::newRow("lines") << "one\n\n  two \n";
    QTest::newRow("signs of the file's own") << "a, b; c = \"d\" \\n [e] @Invalid() %1 100 %";
    QTest::newRow("leading at sign") << "@camera";
    QTest::newRow("other letters")
        << QString::fromUtf8("\xc3\xbc \xe9\xab\x98\xe9\x80\x9f \xf0\x9f\x8e\xa5");
    QTest::newRow("markup") << "</textarea><b>&amp;";
}

void TestNoteTool::survivesARestart()
{
    QFETCH(QString, text);
    QVERIFY(open());
    QVERIFY(choose(1));
    PageHand::read(page(), QStringLiteral("note.setNote(1, decodeURIComponent('%1'))")
                               .arg(QString::fromLatin1(text.toUtf8().toPercentEncoding())));
    start();
    QVERIFY(open());
    QCOMPARE(note(), QString());
    QVERIFY(choose(1));
    QCOMPARE(note(), text);
    QVERIFY(state().startsWith("Changed "));
}

void TestNoteTool::losesNothingWhenTheApplicationGoesInMidTyping()
{
    QVERIFY(open());
    QTest::keyClicks(page(), "half a wor"); // and no time to do anything else
    start();
    QVERIFY(!isTyping());
    QVERIFY(open());
    QCOMPARE(note(), QString("half a wor"));
}

void TestNoteTool::typedTextBelongsToItsCamera()
{
    QVERIFY(open());
    QVERIFY(PageHand::type(page(), "first"));
    // The other camera is current, but the page has not been told.
    host().makeCurrent(2);
    QTest::keyClick(page(), Qt::Key_X);
    QCOMPARE(stored(0), QString("firstx"));
    QCOMPARE(stored(1), QString("none"));
    QTRY_COMPARE(name(), QString("Camera 2"));
    QCOMPARE(note(), QString());
    QVERIFY(isTyping()); // the box still has the focus
    QVERIFY(PageHand::type(page(), "second"));
    host().makeCurrent(1);
    QTRY_COMPARE(name(), QString("Camera 1"));
    QCOMPARE(note(), QString("firstx"));
    QVERIFY(PageHand::press(page(), Qt::Key_End, Qt::ControlModifier));
    QVERIFY(PageHand::type(page(), "y"));
    QCOMPARE(stored(0), QString("firstxy"));
    QCOMPARE(stored(1), QString("second"));
    // Refreshes come while the user types, and leave the cursor where it is.
    QVERIFY(PageHand::press(page(), Qt::Key_Home));
    host().updateUI(63, true);
    QVERIFY(PageHand::type(page(), "0"));
    QCOMPARE(stored(0), QString("0firstxy"));
}

void TestNoteTool::cameraThatGoesInMidTyping()
{
    QVERIFY(open());
    QVERIFY(PageHand::type(page(), "first"));
    host().closeDocument(1);
    QTest::keyClick(page(), Qt::Key_X); // before the page has been told
    QCOMPARE(stored(0), QString("firstx"));
    QTRY_COMPARE(name(), QString("Camera 2"));
    QCOMPARE(note(), QString());
    QVERIFY(PageHand::type(page(), "second"));
    QCOMPARE(stored(1), QString("second"));

    host().closeDocument(2);
    QTRY_VERIFY(PageHand::isShown(page(), "#none"));
    QCOMPARE(PageHand::text(page(), "#none"), NoCamera);
    QVERIFY(!PageHand::isShown(page(), "#text"));
    QVERIFY(!isTyping());
    QTest::keyClicks(page(), "lost");
    QCOMPARE(host().settings().keys().filter("t_note/text"),
             QStringList({"t_note/text0", "t_note/text1"}));
    QCOMPARE(stored(0), QString("firstx"));
    QCOMPARE(stored(1), QString("second"));

    m_workbench->addCamera(); // with the lowest number that is free
    QTRY_COMPARE(name(), QString("Camera 1"));
    QCOMPARE(note(), QString("firstx"));
    QCOMPARE(host().handledErrors(), QStringList());
}

void TestNoteTool::saysThatThereIsNoCamera()
{
    host().closeDocument(1);
    host().closeDocument(2);
    QVERIFY(open());
    QCOMPARE(PageHand::text(page(), "#none"), NoCamera);
    QVERIFY(!PageHand::isShown(page(), "#text"));
    QVERIFY(!PageHand::isShown(page(), "#name"));
    QCOMPARE(state(), QString());
    QVERIFY(PageHand::press(page(), Qt::Key_Return)); // Close has the focus
    QVERIFY(!isShown());
}

void TestNoteTool::keepsWhatCannotBeWritten()
{
    QVERIFY(open());
    host().failOn("setPrefString");
    QTest::keyClick(page(), Qt::Key_A);
    QCOMPARE(host().handledErrors().size(), 1);
    QVERIFY(window().notice()->isVisible());
    QCOMPARE(note(), QString("a"));
    QCOMPARE(stored(0), QString("none"));
    QCOMPARE(state(), NotStored);
    QCOMPARE(PageHand::read(page(), "state.getAttribute('role')").toString(), QString("alert"));

    // The other camera has a note of its own, and the first one's is still there.
    QVERIFY(choose(1));
    QCOMPARE(note(), QString());
    QVERIFY(choose(0));
    QCOMPARE(note(), QString("a"));
    QCOMPARE(state(), NotStored);

    QVERIFY(choose(1));
    QVERIFY(PageHand::click(page(), "#text"));
    QVERIFY(PageHand::type(page(), "b"));
    QCOMPARE(stored(0), QString("a"));
    QCOMPARE(stored(1), QString("b"));
    QVERIFY(state().startsWith("Changed "));

    host().failOn("setPrefString"); // another trouble
    QVERIFY(PageHand::type(page(), "c"));
    QCOMPARE(host().handledErrors().size(), 2);
    QCOMPARE(note(), QString("bc"));
}

void TestNoteTool::tellsATroubleOnceWhileItLasts()
{
    QVERIFY(open());
    const auto failAlways = [this] {
        for (int nth = 1; nth <= 20; ++nth)
            host().failOn("setPrefString", nth);
    };
    failAlways();
    QVERIFY(PageHand::type(page(), "abc"));
    QCOMPARE(host().handledErrors().size(), 1);
    QCOMPARE(note(), QString("abc"));

    // Closing is another try, and tells again.
    QVERIFY(press());
    QVERIFY(!isShown());
    QCOMPARE(host().handledErrors().size(), 2);
    host().clearFaults();
    QVERIFY(open());
    QCOMPARE(note(), QString("abc"));
    QCOMPARE(state(), NotStored);
    QVERIFY(press());
    QCOMPARE(stored(0), QString("abc"));
    QCOMPARE(host().handledErrors().size(), 2);

    // A trouble that comes again is another one.
    QVERIFY(open());
    host().failOn("setPrefString");
    QVERIFY(PageHand::type(page(), "d"));
    QCOMPARE(host().handledErrors().size(), 3);
}

void TestNoteTool::failingHostHarmsNothing()
{
    QVERIFY(open());
    QVERIFY(PageHand::type(page(), "kept"));
    {
        LogCapture log; // pages tell what they miss
        host().failFromCall(1);
        QTest::keyClicks(page(), "!");
        PageHand::read(page(), "note.update(); note.open(); note.onOpen()");
        host().clearFaults();
    }
    QVERIFY(!host().handledErrors().isEmpty());
    QCOMPARE(note(), QString("kept!"));
    QVERIFY(PageHand::isShown(page(), "#text"));
    QVERIFY(PageHand::type(page(), "?"));
    QCOMPARE(stored(0), QString("kept!?"));
}

void TestNoteTool::shortcutsWorkInTheDialog()
{
    QVERIFY(open());
    QVERIFY(PageHand::press(page(), Qt::Key_Tab)); // to Close
    QVERIFY(!isTyping());
    pressInFocus(Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(host().mode(), StandInHost::Mode::Memory);
    auto *play = window().findChild<QAbstractButton *>("play");
    pressInFocus(Qt::Key_Space, Qt::ControlModifier);
    QVERIFY(play->isChecked());
    pressInFocus(Qt::Key_PageDown, Qt::ControlModifier);
    QTRY_COMPARE(name(), QString("Camera 2"));
    QVERIFY(dialog()->isActiveWindow());
    pressInFocus(Qt::Key_BracketRight, Qt::ControlModifier); // turns the picture
    QCOMPARE(host().cameras().last()->state().quarterTurns, 1);
}

void TestNoteTool::modalDialogKeepsTheShortcutsAway()
{
    QVERIFY(open());
    QVERIFY(PageHand::press(page(), Qt::Key_Tab));
    QDialog modal(&window());
    modal.setModal(true);
    modal.show();
    QVERIFY(QTest::qWaitForWindowActive(&modal));
    pressInFocus(Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(host().mode(), StandInHost::Mode::Live);
}

void TestNoteTool::shortcutsStandAsideForTyping_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("memory mode") << int(Qt::Key_2);
    QTest::newRow("add a camera") << int(Qt::Key_N);
    QTest::newRow("close the camera") << int(Qt::Key_W);
    QTest::newRow("next picture") << int(Qt::Key_PageDown);
    QTest::newRow("turn the picture") << int(Qt::Key_BracketRight);
}

void TestNoteTool::shortcutsStandAsideForTyping()
{
    QFETCH(int, key);
    QVERIFY(open());
    QVERIFY(isTyping());
    QVERIFY(PageHand::type(page(), "note"));
    pressInFocus(key, Qt::ControlModifier);
    QCOMPARE(host().mode(), StandInHost::Mode::Live);
    QCOMPARE(host().cameras().size(), 2);
    QCOMPARE(host().currentKey(), DOCKEY(1));
    QCOMPARE(host().cameras().first()->state().quarterTurns, 0);
    QCOMPARE(note(), QString("note"));
    QVERIFY(PageHand::read(page(), "JSON.parse(note.getControlStatus())"
                                   ".IsModalessDialogTextFocussing")
                .toBool());

    QVERIFY(PageHand::press(page(), Qt::Key_Tab));
    QVERIFY(!isTyping());
    pressInFocus(Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(host().mode(), StandInHost::Mode::Memory);
}

void TestNoteTool::shortcutsComeBack_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"frame", "page", "button", "hidden", "mode", "unloaded", "main window"})
        QTest::newRow(way) << way;
}

// However the text box goes in mid-typing, the keys are the main window's again.
void TestNoteTool::shortcutsComeBack()
{
    QFETCH(QString, way);
    QVERIFY(open());
    QVERIFY(PageHand::type(page(), "note"));
    QVERIFY(isTyping());
    if (way == "frame")
        dialog()->close();
    else if (way == "page")
        PageHand::read(page(), "note.reject()");
    else if (way == "button")
        button()->trigger();
    else if (way == "hidden")
        tool()->hideDialog();
    else if (way == "mode")
        host().setMode(StandInHost::Mode::File);
    else if (way == "unloaded")
        m_workbench->unloadTool(tool());
    if (way != "main window")
        QVERIFY(!isTyping());
    window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    QTRY_VERIFY(!isTyping());
    TourHand::press(Qt::Key_2, Qt::ControlModifier, &window());
    QCOMPARE(host().mode(), StandInHost::Mode::Memory);
}

// Its page goes before its code, also when the engine has just told of a load.
void TestNoteTool::unloadsUnderTheLoadOfItsPage()
{
    QVERIFY(open());
    const QPointer<QWebPage> loading = page()->page();
    page()->reload();
    m_workbench->unloadTool(tool());
    QVERIFY(!loading);
    QTest::qWait(50); // what is left would run code that has gone
}

void TestNoteTool::shortcutsComeBackWithoutWordOfTheFocus_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"closed", "hidden", "deleted"})
        QTest::newRow(way) << way;
}

void TestNoteTool::shortcutsComeBackWithoutWordOfTheFocus()
{
    QFETCH(QString, way);
    FocusSwallower swallower;
    QVERIFY(tool()->ensureDialog(true));
    tool()->showDialog(); // the host takes it for closed, and does not close it before its end
    QVERIFY(QTest::qWaitForWindowActive(dialog()));
    QTRY_VERIFY(isTyping());
    page()->installEventFilter(&swallower);
    if (way == "closed")
        tool()->closeDialog();
    else if (way == "hidden")
        tool()->hideDialog();
    else
        m_workbench->unloadTool(tool());
    QVERIFY(!isTyping());
}

void TestNoteTool::goesThroughItsControlsByTab()
{
    QVERIFY(open());
    const QString focus = "document.activeElement.id";
    QCOMPARE(PageHand::read(page(), focus).toString(), QString("text"));
    QVERIFY(PageHand::press(page(), Qt::Key_Tab));
    QCOMPARE(PageHand::read(page(), focus).toString(), QString("close"));
    QCOMPARE(PageHand::read(page(), "getComputedStyle(document.activeElement).outlineStyle"),
             QVariant("solid"));
    QVERIFY(PageHand::press(page(), Qt::Key_Backtab, Qt::ShiftModifier));
    QCOMPARE(PageHand::read(page(), focus).toString(), QString("text"));
    QCOMPARE(PageHand::read(page(), "document.querySelector('label[for=text]').id"),
             QVariant("name"));
    QCOMPARE(note(), QString()); // a tab is not text
    QVERIFY(PageHand::press(page(), Qt::Key_Tab));
    QVERIFY(PageHand::press(page(), Qt::Key_Space));
    QVERIFY(!isShown());
}

void TestNoteTool::takesTheStyle()
{
    QVERIFY(open());
    const QString background = "getComputedStyle(document.body).backgroundColor";
    QCOMPARE(PageHand::read(page(), background).toString(), QString("rgb(242, 243, 245)"));
    m_workbench->setStyle("dark");
    QTRY_COMPARE(PageHand::read(page(), background).toString(), QString("rgb(43, 45, 48)"));
}

void TestNoteTool::speaksTheLanguageOfTheHost()
{
    host().state().translations = {{"Note", "Notiz"},
                                   {"Close", "Ende"},
                                   {"Changed %1", "Am %1"},
                                   {"Notes are stored as you type.", "Wird gespeichert."}};
    QVERIFY(open());
    QCOMPARE(dialog()->windowTitle(), QString("Notiz"));
    QCOMPARE(PageHand::text(page(), "#close"), QString("Ende"));
    QCOMPARE(state(), QString("Wird gespeichert."));
    QVERIFY(PageHand::type(page(), "x"));
    QVERIFY(state().startsWith("Am "));
}

int main(int argc, char **argv)
{
    TestNoteTool test;
    return runTest(argc, argv, test);
}

#include "test_note_tool.moc"
