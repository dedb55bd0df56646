#include "bridge/operation/DialogRun.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/pages/Pages.h"
#include "workbench/tour/PageHand.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QWebFrame>

using namespace PageHand;

/// What a workbench knows of fonts.
class FontSamples : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QString substituteFont(const QString &family) const
    {
        return family == "Gone Sans" ? "DejaVu Sans" : QString();
    }
};

namespace {

// In live mode the second item is off.
const QString FourItems =
    QStringLiteral("FrameRate:true,Date:true,Comment:false,<hr>,Resolution:true");

/// The editor over a camera, or the editor of what is saved.
struct Editor
{
    explicit Editor(StandInHost &host) : dialog(&host) {}

    Editor(StandInHost &host, int fileType)
        : dialog(&host, fileType, true, nullptr, 0, {}, QDateTime::currentDateTime())
    {
    }

    bool open()
    {
        dialog.show();
        dialog.activateWindow();
        if (!QTest::qWaitForWindowActive(&dialog))
            return false;
        view()->setFocus();
        return QTest::qWaitFor([this] {
            return read(view(), "document.readyState === 'complete' && "
                                "document.body.classList.length > 1")
                .toBool();
        });
    }

    GUI_WebView *view() const { return dialog.webView(); }

    /// A row's text, in brackets where it is off, with its tick before it.
    QStringList rows() const
    {
        return read(view(), "Array.from(list.children).map(function (row) {"
                            "    if (row.className.indexOf('line') === 0)"
                            "        return '-';"
                            "    var text = row.querySelector('.label').textContent;"
                            "    var box = row.querySelector('input');"
                            "    return (box.checked ? '+' : ' ') +"
                            "        (box.disabled ? '[' + text + ']' : text); })")
            .toStringList();
    }

    /// Which row has the focus, from 0; -1: none.
    int focusedRow() const
    {
        return read(view(), "Array.from(list.children).indexOf(document.activeElement)").toInt();
    }

    void focusRow(int row) const { read(view(), QString("list.children[%1].focus()").arg(row)); }

    /// A point in a row, at a share of its height from the top.
    QPoint pointIn(int row, double share = 0.5) const
    {
        const QVariantList box =
            read(view(), QString("var box = list.children[%1].getBoundingClientRect();"
                                 "[box.left + 60, box.top, box.height]")
                             .arg(row))
                .toList();
        return QPointF(box.at(0).toDouble(), box.at(1).toDouble() + box.at(2).toDouble() * share)
            .toPoint();
    }

    void mouse(QEvent::Type type, const QPoint &point, Qt::MouseButtons buttons) const
    {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, point, view()->mapToGlobal(point),
                          isMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view(), &event);
    }

    /// Takes a row and moves it, without letting go.
    void take(int row, const QPoint &to) const
    {
        mouse(QEvent::MouseButtonPress, pointIn(row), Qt::LeftButton);
        mouse(QEvent::MouseMove, (pointIn(row) + to) / 2, Qt::LeftButton);
        mouse(QEvent::MouseMove, to, Qt::LeftButton);
    }

    void letGo(const QPoint &at) const
    {
        mouse(QEvent::MouseButtonRelease, at, Qt::NoButton);
        QTest::qWait(30);
    }

    QString place() const { return text(view(), "#place"); }

    GUI_EditInfoDialog dialog;
};

QString stored(StandInHost &host, const QString &key)
{
    return host.settings().value(key, QVariant()).toString();
}

int callsOf(const StandInHost &host, const QString &start)
{
    const QStringList lines = host.journal();
    return int(std::count_if(lines.begin(), lines.end(),
                             [&](const QString &line) { return line.contains(start); }));
}

}

/// The pages of the two forms that edit which information stands over pictures.
class TestEditInfoPage : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void listsTheItems();
    void runsNoMarkupOfLabels();
    void keepsIdsAsTheyAre();
    void endsLongLabelsInAnEllipsis();
    void tellsThatThereIsNoDocument();
    void tellsThatNothingIsListed();

    void tellsAChangeBehindItsDocument_data();
    void tellsAChangeBehindItsDocument();
    void followsItsDocument_data();
    void followsItsDocument();

    void ticksByClicksAndKeys();
    void keepsItemsOfOtherModes();
    void ordersByTheMouse();
    void leavesTheOrder_data();
    void leavesTheOrder();
    void ordersByKeys_data();
    void ordersByKeys();
    void goesThroughTheRowsByKeys();
    void keepsLinesOfTheSaveForm();
    void scrollsWhereARowIsMoved();
    void ordersOnlyWholeLists_data();
    void ordersOnlyWholeLists();
    void tellsWhatCouldNotBeStored_data();
    void tellsWhatCouldNotBeStored();

    void opensTheEditors_data();
    void opensTheEditors();
    void opensAnEditorByKeys();

    void changesTheFont_data();
    void changesTheFont();
    void refusesWrongValues_data();
    void refusesWrongValues();
    void staysWithAWrongValue();
    void forgetsAWrongValueThatHasNoEffect_data();
    void forgetsAWrongValueThatHasNoEffect();
    void keepsTheFontWithOk();
    void takesTheFontBackWithCancel();
    void takesAllFontsBack();
    void takesTheFontBackToTheStart();
    void setsFontsOfAllPlaces();
    void namesAMissingFont_data();
    void namesAMissingFont();
    void knowsTheSubstitutesInTheWorkbench_data();
    void knowsTheSubstitutesInTheWorkbench();
    void leavesTheGroupsAloneWhileTheFontIsSet();

    void showsGroupsAsTabs();
    void readsAGroupAnewWhenItIsEntered();
    void storesForItsGroup();
    void previewsWithAPause();
    void previewsInTheSizeOfItsPlace();
    void previewsTheKindOfTheFile_data();
    void previewsTheKindOfTheFile();
    void previewsTheFontWhileItIsSet();
    void writesIntoThePictureOrBesideIt();
    void tellsThatThePlaceWasNotStored_data();
    void tellsThatThePlaceWasNotStored();

    void setsEmptyLines();
    void asksBeforeAReset_data();
    void asksBeforeAReset();
    void endsByItsButtons_data();
    void endsByItsButtons();
    void fitsInItsPlace_data();
    void fitsInItsPlace();

private:
    std::unique_ptr<StandInHost> m_host;
    StandInCamera *m_camera = nullptr;
};

void TestEditInfoPage::init()
{
    TestBase::init();
    Pages::registerResources();
    m_host = std::make_unique<StandInHost>();
    m_camera = m_host->addCamera();
    m_host->settings().setValue(Keys::info.display, FourItems);
    m_host->settings().setValue(Keys::saveInfo.display + "0", FourItems);
    m_host->state().fontFamilies = QStringList{"DejaVu Sans", "DejaVu Serif", "Other"};
}

void TestEditInfoPage::cleanup()
{
    DialogRun::setAnswer({});
    FileChoice::setAnswer({});
    m_host.reset();
    TestBase::cleanup();
}

void TestEditInfoPage::listsTheItems()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QCOMPARE(editor.rows(),
             QStringList({"+Frame rate", "+[Date]", " Comment", "-", "+Resolution"}));
    QVERIFY(read(editor.view(), "list.children[1].title")
                .toString()
                .contains("Not shown in this mode. It keeps its tick and its place."));
    QCOMPARE(read(editor.view(), "list.children[0].title").toString(), QString("Frame rate"));
    QVERIFY(!isShown(editor.view(), "#state") && !isShown(editor.view(), "#failure"));
    QCOMPARE(text(editor.view(), "#item-FrameRate .edit"), QString("edit..."));
    QCOMPARE(count(editor.view(), "#list .edit"), 2); // of frame rate and comment
}

void TestEditInfoPage::runsNoMarkupOfLabels()
{
    m_host->state().infoItemLabels = {
        {"FrameRate", "<img src='nothing.png' onerror='window.ran = 1'><b>Rate</b>"},
        {"Comment", "<script>window.ran = 2</script>a &lt; b<svg onload='window.ran = 3'></svg>"}};
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QTest::qWait(100);
    QCOMPARE(editor.rows().at(0), QString("+Rate"));
    QVERIFY(editor.rows().at(2).contains("a < b"));
    QCOMPARE(count(editor.view(), "#list img, #list b, #list script, #list svg"), 0);
    QVERIFY(read(editor.view(), "typeof window.ran === 'undefined'").toBool());
}

void TestEditInfoPage::keepsIdsAsTheyAre()
{
    m_host->settings().setValue(
        Keys::info.display, QString::fromUtf8("1e3:true,Camera name:true,\u05d0\U0001F4F7 \"x\":"
                                              "false,constructor:true,FrameRate:true"));
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QCOMPARE(editor.rows().size(), 5);
    editor.focusRow(4);
    QVERIFY(press(editor.view(), Qt::Key_Up, Qt::AltModifier));
    QCOMPARE(stored(*m_host, Keys::info.display),
             QString::fromUtf8("1e3:true,Camera name:true,\u05d0\U0001F4F7 \"x\":false,"
                               "FrameRate:true,constructor:true"));
}

void TestEditInfoPage::endsLongLabelsInAnEllipsis()
{
    const QString label = QString("A rather long label ").repeated(10).trimmed();
    m_host->state().infoItemLabels = {{"FrameRate", label}};
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(read(editor.view(), "var label = document.querySelector('#item-FrameRate .label');"
                                "label.scrollWidth > label.clientWidth && "
                                "getComputedStyle(label).textOverflow === 'ellipsis'")
                .toBool());
    QVERIFY(isShown(editor.view(), "#item-FrameRate .edit"));
    QVERIFY(read(editor.view(), "list.scrollWidth <= list.clientWidth && "
                                "document.documentElement.scrollWidth <= innerWidth")
                .toBool());
    QCOMPARE(read(editor.view(), "list.children[0].title").toString(), label);
}

void TestEditInfoPage::tellsThatThereIsNoDocument()
{
    StandInHost host;
    Editor editor(host);
    QVERIFY(editor.open());
    QVERIFY(editor.rows().isEmpty() && !isShown(editor.view(), "#list"));
    QCOMPARE(editor.place(), QString()); // nothing to move
    QCOMPARE(text(editor.view(), "#state"),
             QString("Open a camera or a recording: its information is listed here."));

    Editor saved(host, 1);
    QVERIFY(saved.open());
    QCOMPARE(text(saved.view(), "#state"),
             QString("Open a camera or a recording: its information is listed here."));
    QCOMPARE(text(saved.view(), "#noPreview"), QString("No picture to show."));
    QVERIFY(!isShown(saved.view(), "#preview"));
}

void TestEditInfoPage::tellsThatNothingIsListed()
{
    m_host->settings().setValue(Keys::info.display, QString());
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QCOMPARE(text(editor.view(), "#state"),
             QString("Nothing is listed, or the list could not be read. Open this window again, "
                     "or reset all items."));

    Editor saved(*m_host, 1);
    QVERIFY(saved.open());
    LogCapture log;
    m_host->failOn("getPref");
    QVERIFY(click(saved.view(), "#group-1"));
    QCOMPARE(m_host->handledErrors(), QStringList("getPref failed"));
    QVERIFY(saved.rows().isEmpty());
    QCOMPARE(text(saved.view(), "#state"),
             QString("Nothing is listed, or the list could not be read. Open this window again, "
                     "or reset all items."));
}

void TestEditInfoPage::tellsAChangeBehindItsDocument_data()
{
    QTest::addColumn<bool>("isSaved");
    QTest::addColumn<bool>("isMove");
    QTest::newRow("tick") << false << false;
    QTest::newRow("tick, saved") << true << false;
    QTest::newRow("move") << false << true;
    QTest::newRow("move, saved") << true << true;
}

// The document goes before the page is told.
void TestEditInfoPage::tellsAChangeBehindItsDocument()
{
    QFETCH(bool, isSaved);
    QFETCH(bool, isMove);
    const QString key = isSaved ? Keys::saveInfo.display + "0" : QString(Keys::info.display);
    const std::unique_ptr<Editor> editor =
        isSaved ? std::make_unique<Editor>(*m_host, 1) : std::make_unique<Editor>(*m_host);
    QVERIFY(editor->open());
    m_host->closeDocument(1);
    if (isMove) {
        editor->focusRow(0);
        QVERIFY(press(editor->view(), Qt::Key_End, Qt::AltModifier));
    } else {
        QVERIFY(click(editor->view(), "#item-FrameRate .label"));
    }
    QCOMPARE(stored(*m_host, key),
             isMove ? FourItems
                    : QString("FrameRate:false,Date:true,Comment:false,<hr>,Resolution:true"));
    QCOMPARE(text(editor->view(), "#state"),
             QString("What this list belongs to is no longer open."));
    QVERIFY(!isShown(editor->view(), "#failure") && !isShown(editor->view(), "#list"));
    QCOMPARE(editor->place(), QString());
    QVERIFY(click(editor->view(), "#cancel"));
    QCOMPARE(stored(*m_host, key), FourItems);
    QCOMPARE(m_host->handledErrors(), QStringList());
}

void TestEditInfoPage::followsItsDocument_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("editor") << "editinfo";
    QTest::newRow("saved") << "saveinfo";
}

void TestEditInfoPage::followsItsDocument()
{
    QFETCH(QString, page);
    const bool isSaved = page == "saveinfo";
    PageVisit visit;
    visit.host.addCamera();
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(isShown(view, "#list"));
        if (isSaved)
            QTRY_VERIFY(isShown(view, "#preview"));
        const QString asked =
            isSaved ? "getPref(\"saveinfo/display0\"" : "getPref(\"info/display\"";
        const int reads = callsOf(visit.host, asked);
        visit.host.addCamera(); // others come and go
        visit.host.closeDocument(2);
        QTest::qWait(400);
        QCOMPARE(callsOf(visit.host, asked), reads);
        visit.host.closeDocument(1);
        QTRY_COMPARE(text(view, "#state"), QString("What this list belongs to is no longer open."));
        QVERIFY(!isShown(view, "#list") && !isShown(view, "#failure"));
        if (isSaved) {
            QTRY_COMPARE(text(view, "#noPreview"), QString("No picture to show."));
            QVERIFY(!isShown(view, "#preview"));
            QCOMPARE(text(view, "#resolution"), QString());
        }
    }));
    QCOMPARE(visit.host.handledErrors(), QStringList());
}

void TestEditInfoPage::ticksByClicksAndKeys()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#item-FrameRate .label"));
    QCOMPARE(stored(*m_host, Keys::info.display),
             QString("FrameRate:false,Date:true,Comment:false,<hr>,Resolution:true"));
    QVERIFY(click(editor.view(), "#item-FrameRate input"));
    QCOMPARE(stored(*m_host, Keys::info.display), FourItems);
    QVERIFY(click(editor.view(), "#item-FrameRate .grip")); // a place to take the row
    QCOMPARE(stored(*m_host, Keys::info.display), FourItems);
    QCOMPARE(editor.focusedRow(), 0);

    editor.focusRow(2);
    const int updates = callsOf(*m_host, "updateUI(");
    QVERIFY(press(editor.view(), Qt::Key_Space));
    QCOMPARE(stored(*m_host, Keys::info.display),
             QString("FrameRate:true,Date:true,Comment:true,<hr>,Resolution:true"));
    QCOMPARE(callsOf(*m_host, "updateUI("), updates + 1); // the views follow
    QCOMPARE(editor.rows().at(2), QString("+Comment"));
    QCOMPARE(read(editor.view(), "list.children[2].getAttribute('aria-checked')").toString(),
             QString("true"));
    QCOMPARE(editor.focusedRow(), 2);
}

void TestEditInfoPage::keepsItemsOfOtherModes()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#item-Date .label"));
    QCOMPARE(editor.place(), QString("Date: Not shown in this mode. It keeps its tick and its "
                                     "place."));
    editor.focusRow(1);
    QCOMPARE(editor.focusedRow(), 1);
    QVERIFY(press(editor.view(), Qt::Key_Space));
    QVERIFY(press(editor.view(), Qt::Key_Down, Qt::AltModifier));
    editor.take(1, editor.pointIn(4, 0.9));
    QVERIFY(!isShown(editor.view(), "#marker"));
    editor.letGo(editor.pointIn(4, 0.9));
    QCOMPARE(stored(*m_host, Keys::info.display), FourItems);
    // Others go past it, and its tick stays.
    editor.focusRow(0);
    QVERIFY(press(editor.view(), Qt::Key_Down, Qt::AltModifier));
    QCOMPARE(stored(*m_host, Keys::info.display),
             QString("Date:true,FrameRate:true,Comment:false,<hr>,Resolution:true"));
}

void TestEditInfoPage::ordersByTheMouse()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(!isShown(editor.view(), "#marker"));
    editor.take(0, editor.pointIn(2, 0.2));
    QVERIFY(isShown(editor.view(), "#marker"));
    const auto markerTop = [&] {
        return read(editor.view(), "marker.getBoundingClientRect().top").toDouble();
    };
    const double above = markerTop();
    QVERIFY(qAbs(above - editor.pointIn(2, 0).y()) <= 3);
    editor.mouse(QEvent::MouseMove, editor.pointIn(2, 0.8), Qt::LeftButton);
    QVERIFY(qAbs(markerTop() - editor.pointIn(3, 0).y()) <= 3);
    QVERIFY(markerTop() > above);
    QCOMPARE(stored(*m_host, Keys::info.display), FourItems); // not yet

    editor.letGo(editor.pointIn(2, 0.8));
    QCOMPARE(stored(*m_host, Keys::info.display),
             QString("Date:true,Comment:false,FrameRate:true,<hr>,Resolution:true"));
    QVERIFY(!isShown(editor.view(), "#marker"));
    QCOMPARE(editor.focusedRow(), 2);
    QCOMPARE(editor.place(), QString("3 of 5: Frame rate"));
    // Behind the last one, the line too.
    editor.take(3, editor.pointIn(4, 0.9));
    editor.letGo(editor.pointIn(4, 0.9));
    QCOMPARE(stored(*m_host, Keys::info.display),
             QString("Date:true,Comment:false,FrameRate:true,Resolution:true,<hr>"));
    QCOMPARE(editor.place(), QString("5 of 5: Separator"));
    // No tick has come from it, and a click ticks again.
    QVERIFY(click(editor.view(), "#item-Comment .label"));
    QCOMPARE(stored(*m_host, Keys::info.display),
             QString("Date:true,Comment:true,FrameRate:true,Resolution:true,<hr>"));
}

void TestEditInfoPage::leavesTheOrder_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"escape", "own place"})
        QTest::newRow(how) << how;
}

void TestEditInfoPage::leavesTheOrder()
{
    QFETCH(QString, how);
    Editor editor(*m_host);
    QVERIFY(editor.open());
    const QPoint target = how == "own place" ? editor.pointIn(0, 0.95) : editor.pointIn(4);
    editor.take(0, target);
    QVERIFY(isShown(editor.view(), "#marker"));
    if (how == "escape")
        QTest::keyClick(editor.view(), Qt::Key_Escape);
    editor.letGo(target);
    QVERIFY(!isShown(editor.view(), "#marker"));
    QCOMPARE(stored(*m_host, Keys::info.display), FourItems);
    QVERIFY(editor.dialog.isVisible());
    QCOMPARE(callsOf(*m_host, "setPref(\"info/display\""), 0);
}

void TestEditInfoPage::ordersByKeys_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("display");
    QTest::addColumn<int>("focused");
    QTest::addColumn<QString>("place");
    QTest::newRow("down") << 0 << int(Qt::Key_Down)
                          << "Date:true,FrameRate:true,Comment:false,<hr>,Resolution:true" << 1
                          << "2 of 5: Frame rate";
    QTest::newRow("up") << 4 << int(Qt::Key_Up)
                        << "FrameRate:true,Date:true,Comment:false,Resolution:true,<hr>" << 3
                        << "4 of 5: Resolution";
    QTest::newRow("a line") << 3 << int(Qt::Key_Up)
                            << "FrameRate:true,Date:true,<hr>,Comment:false,Resolution:true" << 2
                            << "3 of 5: Separator";
    QTest::newRow("to the end") << 0 << int(Qt::Key_End)
                                << "Date:true,Comment:false,<hr>,Resolution:true,FrameRate:true"
                                << 4 << "5 of 5: Frame rate";
    QTest::newRow("to the start") << 2 << int(Qt::Key_Home)
                                  << "Comment:false,FrameRate:true,Date:true,<hr>,Resolution:true"
                                  << 0 << "1 of 5: Comment";
    QTest::newRow("up from the first")
        << 0 << int(Qt::Key_Up) << FourItems << 0 << "1 of 5: Frame rate";
    QTest::newRow("down from the last")
        << 4 << int(Qt::Key_Down) << FourItems << 4 << "5 of 5: Resolution";
}

void TestEditInfoPage::ordersByKeys()
{
    QFETCH(int, row);
    QFETCH(int, key);
    QFETCH(QString, display);
    Editor editor(*m_host);
    QVERIFY(editor.open());
    editor.focusRow(row);
    const int updates = callsOf(*m_host, "updateUI(");
    QVERIFY(press(editor.view(), key, Qt::AltModifier));
    QCOMPARE(stored(*m_host, Keys::info.display), display);
    QTEST(editor.focusedRow(), "focused");
    QTEST(editor.place(), "place");
    QCOMPARE(read(editor.view(), "document.getElementById('place').getAttribute('aria-live')")
                 .toString(),
             QString("polite"));
    QVERIFY(isShown(editor.view(), "#place"));
    QCOMPARE(callsOf(*m_host, "updateUI("), updates + (display == FourItems ? 0 : 1));
    // The list as it is read again is the one that is shown.
    const QStringList rows = editor.rows();
    Editor other(*m_host);
    QVERIFY(other.open());
    QCOMPARE(other.rows(), rows);
}

void TestEditInfoPage::goesThroughTheRowsByKeys()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(press(editor.view(), Qt::Key_Tab));
    QCOMPARE(editor.focusedRow(), 0);
    QVERIFY(press(editor.view(), Qt::Key_Down));
    QCOMPARE(editor.focusedRow(), 1);
    QVERIFY(press(editor.view(), Qt::Key_End));
    QCOMPARE(editor.focusedRow(), 4);
    QVERIFY(press(editor.view(), Qt::Key_Up));
    QCOMPARE(editor.focusedRow(), 3);
    QVERIFY(press(editor.view(), Qt::Key_Home));
    QCOMPARE(editor.focusedRow(), 0);
    // Tab goes to the row's own link, and on to what stands behind the list.
    QVERIFY(press(editor.view(), Qt::Key_Tab));
    QCOMPARE(read(editor.view(), "document.activeElement.parentNode.id").toString(),
             QString("item-FrameRate"));
    QVERIFY(press(editor.view(), Qt::Key_Tab));
    QCOMPARE(read(editor.view(), "document.activeElement.id").toString(), QString("blankLine"));
    QCOMPARE(stored(*m_host, Keys::info.display), FourItems);
}

// Their markup says that they are not sorted.
void TestEditInfoPage::keepsLinesOfTheSaveForm()
{
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    editor.focusRow(3);
    QVERIFY(press(editor.view(), Qt::Key_Up, Qt::AltModifier));
    QCOMPARE(editor.place(), QString("Separators keep their place here."));
    QCOMPARE(stored(*m_host, Keys::saveInfo.display + "0"), FourItems);
    editor.focusRow(0);
    QVERIFY(press(editor.view(), Qt::Key_Up, Qt::AltModifier)); // tells of another row
    editor.take(3, editor.pointIn(1, 0.2));
    QVERIFY(!isShown(editor.view(), "#marker"));
    editor.letGo(editor.pointIn(1, 0.2));
    QCOMPARE(editor.place(), QString("Separators keep their place here."));
    QCOMPARE(stored(*m_host, Keys::saveInfo.display + "0"), FourItems);
    QCOMPARE(callsOf(*m_host, "setPref(\"saveinfo/display0\""), 0);
    editor.focusRow(4);
    QVERIFY(press(editor.view(), Qt::Key_Up, Qt::AltModifier));
    QCOMPARE(stored(*m_host, Keys::saveInfo.display + "0"),
             QString("FrameRate:true,Date:true,Comment:false,Resolution:true,<hr>"));
}

void TestEditInfoPage::scrollsWhereARowIsMoved()
{
    QStringList entries;
    for (int i = 0; i < 60; ++i)
        entries.append(QString("item%1:true").arg(i));
    entries.append("FrameRate:true");
    m_host->settings().setValue(Keys::info.display, entries.join(','));
    Editor editor(*m_host);
    QVERIFY(editor.open());
    editor.focusRow(60);
    QVERIFY(read(editor.view(), "list.scrollTop > 0").toBool());
    QVERIFY(press(editor.view(), Qt::Key_Home, Qt::AltModifier));
    QCOMPARE(read(editor.view(), "list.scrollTop").toInt(), 0);
    QCOMPARE(editor.place(), QString("1 of 61: Frame rate"));
    // At the lower edge the list goes on by itself while a row is held there.
    const QPoint edge(editor.pointIn(0).x(),
                      read(editor.view(), "list.getBoundingClientRect().bottom - 3").toInt());
    editor.take(0, edge);
    QTRY_VERIFY(read(editor.view(), "list.scrollTop > 0 && "
                                    "list.scrollTop + list.clientHeight >= list.scrollHeight - 1")
                    .toBool());
    editor.letGo(edge);
    QVERIFY(stored(*m_host, Keys::info.display).endsWith(",FrameRate:true"));
}

void TestEditInfoPage::ordersOnlyWholeLists_data()
{
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("editor") << false;
    QTest::newRow("saved") << true;
}

// A list that failed in its middle shows its first rows.
void TestEditInfoPage::ordersOnlyWholeLists()
{
    QFETCH(bool, isSaved);
    const QString key = isSaved ? Keys::saveInfo.display + "0" : QString(Keys::info.display);
    const std::unique_ptr<Editor> editor =
        isSaved ? std::make_unique<Editor>(*m_host, 1) : std::make_unique<Editor>(*m_host);
    LogCapture log;
    m_host->failOn("infoItemLabel", 3);
    QVERIFY(editor->open());
    QCOMPARE(editor->rows().size(), 2);
    editor->focusRow(0);
    QVERIFY(press(editor->view(), Qt::Key_End, Qt::AltModifier));
    QCOMPARE(stored(*m_host, key), FourItems);
    QCOMPARE(text(editor->view(), "#failure"),
             QString("The list has changed. Please move the row again."));
    QCOMPARE(editor->rows().size(), 5);
    QCOMPARE(editor->focusedRow(), 0);
    QVERIFY(press(editor->view(), Qt::Key_End, Qt::AltModifier));
    QCOMPARE(stored(*m_host, key),
             QString("Date:true,Comment:false,<hr>,Resolution:true,FrameRate:true"));
    QVERIFY(!isShown(editor->view(), "#failure"));
}

void TestEditInfoPage::tellsWhatCouldNotBeStored_data()
{
    QTest::addColumn<bool>("isSaved");
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const QString ticked = "FrameRate:false,Date:true,Comment:false,<hr>,Resolution:true";
    const QString moved = "Date:true,Comment:false,<hr>,Resolution:true,FrameRate:true";
    const QString group = Keys::saveInfo.display + "0";
    QTest::newRow("tick") << false << "tick"
                          << "#failure" << QString(Keys::info.display) << FourItems << ticked;
    QTest::newRow("tick, saved") << true << "tick"
                                 << "#failure" << group << FourItems << ticked;
    QTest::newRow("order") << false << "order"
                           << "#failure" << QString(Keys::info.display) << FourItems << moved;
    QTest::newRow("order, saved") << true << "order"
                                  << "#failure" << group << FourItems << moved;
    QTest::newRow("font") << false << "#bold"
                          << "#fontState" << QString(Keys::info.bold) << "false"
                          << "true";
    QTest::newRow("font, saved") << true << "#bold"
                                 << "#fontState" << Keys::saveInfo.bold + "0"
                                 << "false"
                                 << "true";
    QTest::newRow("size") << false << "#fontSize"
                          << "#fontState" << QString(Keys::info.fontSize) << "12"
                          << "13";
    QTest::newRow("width") << false << "#width"
                           << "#fontState" << QString(Keys::info.width) << "7"
                           << "8";
    QTest::newRow("blank line") << false << "#blankLine"
                                << "#failure" << QString(Keys::info.blankLine) << "true"
                                << "false";
    QTest::newRow("within image") << true << "#withinImage"
                                  << "#choiceState" << QString(Keys::saveInfo.withinImage) << "true"
                                  << "false";
}

// The change that works behind it takes the text away.
void TestEditInfoPage::tellsWhatCouldNotBeStored()
{
    QFETCH(bool, isSaved);
    QFETCH(QString, change);
    QFETCH(QString, place);
    QFETCH(QString, key);
    QFETCH(QString, before);
    QFETCH(QString, after);
    const std::unique_ptr<Editor> editor =
        isSaved ? std::make_unique<Editor>(*m_host, 1) : std::make_unique<Editor>(*m_host);
    m_host->settings().setValue(Keys::info.width, "7");
    QVERIFY(editor->open());
    GUI_WebView *view = editor->view();
    if (place == "#fontState")
        QVERIFY(click(view, "#font"));
    const QStringList rows = editor->rows();
    const auto make = [&] {
        if (change == "tick")
            return click(view, "#item-FrameRate .label");
        if (change == "#width")
            return click(view, change) && press(view, Qt::Key_A, Qt::ControlModifier) &&
                   type(view, after);
        if (change == "#fontSize") {
            read(view, "fontSize.focus()");
            return press(view, Qt::Key_Down);
        }
        if (change != "order")
            return click(view, change);
        editor->focusRow(0);
        return press(view, Qt::Key_End, Qt::AltModifier);
    };
    const auto shown = [&] {
        const bool isText = change == "#fontSize" || change == "#width";
        return shownIn(view, change.mid(1), isText ? "value" : "checked").toString();
    };
    LogCapture log;
    m_host->failOn("setPref");
    QVERIFY(make());
    QCOMPARE(stored(*m_host, key), before);
    QCOMPARE(text(view, place), QString("The setting could not be stored."));
    QCOMPARE(editor->rows(), rows); // as it is stored
    if (change.startsWith('#'))
        QCOMPARE(shown(), before);
    QVERIFY(make());
    QCOMPARE(stored(*m_host, key), after);
    QVERIFY(!isShown(view, place));
    if (change.startsWith('#'))
        QCOMPARE(shown(), after);
    else
        QVERIFY(editor->rows() != rows);
}

void TestEditInfoPage::opensTheEditors_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("dialog");
    QTest::newRow("comment") << "Comment"
                             << "GUI_CommentDialog";
    QTest::newRow("time code") << "TimeIrigCode"
                               << "GUI_TimeCodeCustomDialog";
    QTest::newRow("time code that is saved") << "TimeCode"
                                             << "GUI_TimeCodeCustomDialog";
    QTest::newRow("shutter speed") << "ShutterSpeed"
                                   << "GUI_ShutterSpeedFormatDialog";
    QTest::newRow("length") << "Length"
                            << "GUI_RectimeFormatDialog";
    QTest::newRow("record rate") << "FrameRate"
                                 << "GUI_RecordRateFormatDialog";
    QTest::newRow("frame number") << "FrameNumber"
                                  << "GUI_FrameFormatDialog";
    QTest::newRow("number of frames") << "MaxFrames"
                                      << "GUI_FrameFormatDialog";
    QTest::newRow("custom") << "Custom"
                            << "GUI_CustomInfoDialog";
}

// Behind it the list is read again.
void TestEditInfoPage::opensTheEditors()
{
    QFETCH(QString, item);
    m_host->settings().setValue(Keys::info.display, item + ":true");
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QStringList dialogs;
    DialogRun::setAnswer([&](QDialog &dialog) {
        dialogs.append(dialog.metaObject()->className());
        m_host->state().infoItemLabels[item] = "Another label";
        return int(QDialog::Accepted);
    });
    QVERIFY(click(editor.view(), QString("#item-%1 .edit").arg(item)));
    QTEST(dialogs.join(' '), "dialog");
    QVERIFY(editor.rows().join(',').contains("Another label"));
    QCOMPARE(editor.focusedRow(), 0);
    QCOMPARE(m_host->handledErrors(), QStringList());
}

void TestEditInfoPage::opensAnEditorByKeys()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    int dialogs = 0;
    DialogRun::setAnswer([&](QDialog &) {
        ++dialogs;
        return int(QDialog::Rejected);
    });
    editor.focusRow(0);
    QVERIFY(press(editor.view(), Qt::Key_Return));
    QCOMPARE(dialogs, 1);
    QCOMPARE(editor.focusedRow(), 0);
    QVERIFY(press(editor.view(), Qt::Key_Tab));
    QVERIFY(press(editor.view(), Qt::Key_Space));
    QCOMPARE(dialogs, 2);
    QCOMPARE(stored(*m_host, Keys::info.display), FourItems);

    m_host->settings().setValue(Keys::info.display, "Logo:true");
    Editor logo(*m_host);
    QVERIFY(logo.open());
    const QString path = QDir::temp().filePath("logo.png");
    FileChoice::setAnswer([&](const FileChoice::Question &) { return QStringList(path); });
    logo.focusRow(0);
    QVERIFY(press(logo.view(), Qt::Key_Return));
    QCOMPARE(stored(*m_host, Keys::info.logoPath), path);
}

void TestEditInfoPage::changesTheFont_data()
{
    QTest::addColumn<bool>("isSaved");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    const auto &info = Keys::info;
    const auto &save = Keys::saveInfo;
    const auto row = [](const char *name, const char *id, const char *value, const QString &editor,
                        const QString &saved, const char *result) {
        if (!editor.isEmpty())
            QTest::addRow("%s", name) << false << id << value << editor << result;
        if (!saved.isEmpty())
            QTest::addRow("%s, saved", name) << true << id << value << saved + "2" << result;
    };
    row("family", "fontName", "DejaVu Serif", info.fontName, save.fontName, "DejaVu Serif");
    row("size", "fontSize", "28", info.fontSize, save.fontSize, "28");
    row("bold", "bold", "", info.bold, save.bold, "true");
    row("italic", "italic", "", info.italic, save.italic, "true");
    row("colour", "foreground", "#ffcc00", info.foregroundColor, save.foregroundColor, "#ffcc00");
    row("alignment", "alignment", "2", info.alignment, save.alignment, "2");
    row("width", "width", "345", info.width, save.width, "345");
    row("icon size", "iconSize", "24", info.iconSize, "", "24");
    row("background in use", "useBackground", "", "", save.useBackgroundColor, "true");
    row("background", "background", "#102030", "", save.backgroundColor, "#102030");
    row("columns in use", "toColumn", "", "", save.toColumn, "true");
    row("columns", "columnNum", "5", "", save.columnNum, "5");
    row("column spacing", "columnSpacing", "17", "", save.columnSpacing, "17");
    row("fixed ratio", "fixedRatio", "", "", save.fixedFontSizeRatio, "true");
}

// The settings, and with them the pictures, follow each change at once.
void TestEditInfoPage::changesTheFont()
{
    QFETCH(bool, isSaved);
    QFETCH(QString, id);
    QFETCH(QString, value);
    QFETCH(QString, key);
    m_host->settings().setValue(Keys::saveInfo.useBackgroundColor + "2", id == "background");
    m_host->settings().setValue(Keys::saveInfo.toColumn + "2", id.startsWith("column"));
    const std::unique_ptr<Editor> editor =
        isSaved ? std::make_unique<Editor>(*m_host, 1) : std::make_unique<Editor>(*m_host);
    QVERIFY(editor->open());
    GUI_WebView *view = editor->view();
    if (isSaved)
        QVERIFY(click(view, "#group-2"));
    QVERIFY(click(view, "#font"));
    QVERIFY(isShown(view, '#' + id));
    const int updates = callsOf(*m_host, "updateUI(");
    if (read(view, "document.getElementById('" + id + "').tagName") == "SELECT") {
        // A click would open a box of the window system; the arrows choose without it.
        const int steps =
            read(view, QString("var box = document.getElementById('%1'); box.focus();"
                               "Array.from(box.options).findIndex(function (option) {"
                               "    return option.value === '%2'; }) - box.selectedIndex")
                           .arg(id, value))
                .toInt();
        for (int i = 0; i < qAbs(steps); ++i)
            QVERIFY(press(view, steps > 0 ? Qt::Key_Down : Qt::Key_Up));
    } else {
        QVERIFY(click(view, '#' + id));
        if (!value.isEmpty()) {
            QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
            QVERIFY(type(view, value));
        }
    }
    QTEST(stored(*m_host, key), "stored");
    QVERIFY((callsOf(*m_host, "updateUI(") > updates) != isSaved);
    QVERIFY(!isShown(view, "#fontState"));
}

void TestEditInfoPage::refusesWrongValues_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("kept");
    QTest::newRow("no colour") << "foreground"
                               << "red" << Keys::info.foregroundColor << "#ffffff";
    QTest::newRow("no number") << "width"
                               << "x" << Keys::info.width << "200";
    QTest::newRow("a negative number") << "width"
                                       << "-2" << Keys::info.width << "200";
    QTest::newRow("nothing") << "iconSize"
                             << "" << Keys::info.iconSize << "16";
}

void TestEditInfoPage::refusesWrongValues()
{
    QFETCH(QString, id);
    QFETCH(QString, value);
    QFETCH(QString, key);
    QFETCH(QString, kept);
    m_host->settings().setValue(key, kept);
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(click(editor.view(), '#' + id));
    QVERIFY(press(editor.view(), Qt::Key_A, Qt::ControlModifier));
    QVERIFY(press(editor.view(), Qt::Key_Delete));
    QVERIFY(type(editor.view(), value));
    QCOMPARE(stored(*m_host, key), kept);
    QVERIFY(isShown(editor.view(), "#fontState"));
    QCOMPARE(count(editor.view(), '#' + id + ".wrong"), 1);
    // Another value is stored nevertheless, and what is wrong stays told.
    QVERIFY(click(editor.view(), "#bold"));
    QCOMPARE(stored(*m_host, Keys::info.bold), QString("true"));
    QVERIFY(isShown(editor.view(), "#fontState"));
}

void TestEditInfoPage::staysWithAWrongValue()
{
    m_host->settings().setValue(Keys::info.width, "200");
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(typeInto(editor.view(), "width", "30x"));
    QVERIFY(click(editor.view(), "#bold"));
    QVERIFY(click(editor.view(), "#fontOk"));
    QVERIFY(isShown(editor.view(), "#fontPanel") && !isShown(editor.view(), "#list"));
    QCOMPARE(text(editor.view(), "#fontState"),
             QString("A length is a whole number from 0 to 9999."));
    QCOMPARE(read(editor.view(), "document.activeElement.id").toString(), QString("width"));
    QVERIFY(typeInto(editor.view(), "width", "300"));
    QVERIFY(click(editor.view(), "#fontOk"));
    QVERIFY(!isShown(editor.view(), "#fontPanel") && isShown(editor.view(), "#list"));
    QCOMPARE(stored(*m_host, Keys::info.width), QString("300"));
    // Cancel takes it back with all else.
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(typeInto(editor.view(), "width", "x"));
    QVERIFY(click(editor.view(), "#fontCancel"));
    QVERIFY(isShown(editor.view(), "#list"));
    QVERIFY(click(editor.view(), "#font"));
    QCOMPARE(shownIn(editor.view(), "width").toString(), QString("300"));
    QCOMPARE(count(editor.view(), ".wrong"), 0);
}

void TestEditInfoPage::forgetsAWrongValueThatHasNoEffect_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("needs");
    QTest::addColumn<QString>("kept");
    QTest::newRow("background") << "background"
                                << "useBackground"
                                << "#102030";
    QTest::newRow("column spacing") << "columnSpacing"
                                    << "toColumn"
                                    << "17";
}

void TestEditInfoPage::forgetsAWrongValueThatHasNoEffect()
{
    QFETCH(QString, id);
    QFETCH(QString, needs);
    QFETCH(QString, kept);
    m_host->settings().setValue(Keys::saveInfo.useBackgroundColor + "2", true);
    m_host->settings().setValue(Keys::saveInfo.backgroundColor + "2", "#102030");
    m_host->settings().setValue(Keys::saveInfo.toColumn + "2", true);
    m_host->settings().setValue(Keys::saveInfo.columnSpacing + "2", 17);
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#group-2"));
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(typeInto(editor.view(), id, "x"));
    QVERIFY(isShown(editor.view(), "#fontState"));
    QVERIFY(click(editor.view(), '#' + needs));
    QVERIFY(!isShown(editor.view(), "#fontState"));
    QVERIFY(!isEnabled(editor.view(), '#' + id));
    QCOMPARE(count(editor.view(), ".wrong"), 0);
    QCOMPARE(shownIn(editor.view(), id).toString(), kept);
    // A wrong value elsewhere stays told.
    QVERIFY(typeInto(editor.view(), "width", "x"));
    QVERIFY(click(editor.view(), '#' + needs));
    QVERIFY(isShown(editor.view(), "#fontState"));
    QVERIFY(typeInto(editor.view(), "width", "100"));
    QVERIFY(click(editor.view(), "#fontOk"));
    QVERIFY(isShown(editor.view(), "#list"));
}

void TestEditInfoPage::keepsTheFontWithOk()
{
    m_host->settings().setValue(Keys::saveInfo.fixedFontSizeRatio + "0", true);
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(!isShown(editor.view(), "#list") && !isShown(editor.view(), "#ok"));
    QVERIFY(click(editor.view(), "#italic"));
    QVERIFY(click(editor.view(), "#fontOk"));
    QVERIFY(isShown(editor.view(), "#list") && !isShown(editor.view(), "#fontPanel"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.italic + "0"), QString("true"));
    // The size that the share is of.
    QCOMPARE(m_host->settings()
                 .value(Keys::saveInfo.fixedFontSizeRatioBaseResolution + "0", QVariant())
                 .toSize(),
             m_camera->pictureSize());
    QCOMPARE(read(editor.view(), "document.activeElement.id").toString(), QString("font"));
}

void TestEditInfoPage::takesTheFontBackWithCancel()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(click(editor.view(), "#bold"));
    QVERIFY(click(editor.view(), "#fontOk"));
    QVERIFY(click(editor.view(), "#font"));
    for (const char *id : {"#bold", "#italic", "#foreground-ffff00"})
        QVERIFY(click(editor.view(), id));
    QVERIFY(click(editor.view(), "#iconSize"));
    QVERIFY(press(editor.view(), Qt::Key_A, Qt::ControlModifier));
    QVERIFY(type(editor.view(), "99"));
    QCOMPARE(stored(*m_host, Keys::info.bold), QString("false"));
    QCOMPARE(stored(*m_host, Keys::info.foregroundColor), QString("#ffff00"));
    QCOMPARE(stored(*m_host, Keys::info.iconSize), QString("99"));
    const int updates = callsOf(*m_host, "updateUI(");
    QVERIFY(click(editor.view(), "#fontCancel"));
    // What was confirmed before stays.
    QCOMPARE(stored(*m_host, Keys::info.bold), QString("true"));
    QCOMPARE(stored(*m_host, Keys::info.italic), QString("false"));
    QCOMPARE(stored(*m_host, Keys::info.foregroundColor), QString("#ffffff"));
    QCOMPARE(stored(*m_host, Keys::info.iconSize), QString("16"));
    QVERIFY(callsOf(*m_host, "updateUI(") > updates);
    QVERIFY(isShown(editor.view(), "#list"));
}

void TestEditInfoPage::takesAllFontsBack()
{
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    const auto isChecked = [&](const char *id) {
        return read(editor.view(), QString("document.getElementById('%1').checked").arg(id))
            .toBool();
    };
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(!isShown(editor.view(), "#fontUndo")); // the strip takes no part
    QVERIFY(click(editor.view(), "#fontCancel"));
    QVERIFY(click(editor.view(), "#group-1"));
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(click(editor.view(), "#bold"));
    QVERIFY(click(editor.view(), "#fontOk"));
    QVERIFY(click(editor.view(), "#group-5"));
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(click(editor.view(), "#italic"));
    QVERIFY(click(editor.view(), "#fontOk"));
    QVERIFY(click(editor.view(), "#withinImage"));
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(click(editor.view(), "#foreground-ffff00"));
    const auto fonts = [&] {
        QStringList values;
        for (const QString &key :
             {Keys::saveInfo.bold + "1", Keys::saveInfo.italic + "5",
              Keys::saveInfo.foregroundColor + "5", QString(Keys::saveInfo.withinImage)})
            values.append(stored(*m_host, key));
        return values;
    };
    QCOMPARE(read(editor.view(), "fontUndo.title").toString(),
             QString("The fonts of all places in the picture as they were when this window "
                     "opened"));

    m_host->answerConfirm(false);
    QVERIFY(click(editor.view(), "#fontUndo"));
    QCOMPARE(m_host->messages().size(), 1);
    QCOMPARE(m_host->messages().at(0).kind, QString("confirm"));
    QCOMPARE(m_host->messages().at(0).text,
             QString("Put the fonts of all places in the picture back to how they were when this "
                     "window opened?"));
    QCOMPARE(fonts(), QStringList({"true", "true", "#ffff00", "false"}));
    m_host->answerConfirm(true);
    QVERIFY(click(editor.view(), "#fontUndo"));
    QCOMPARE(m_host->messages().size(), 2);
    QCOMPARE(fonts(), QStringList({"false", "false", "#ffffff", "false"}));
    QVERIFY(!isChecked("italic"));
    // The next change goes to the group that is shown.
    QVERIFY(click(editor.view(), "#italic"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.italic + "5"), QString("true"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.italic + "6"), QString("false"));
    // The group that is shown goes back to where its panel opened, the others stay.
    QVERIFY(click(editor.view(), "#fontCancel"));
    QCOMPARE(fonts(), QStringList({"false", "true", "#ffffff", "false"}));
    QVERIFY(!isChecked("withinImage"));
}

void TestEditInfoPage::takesTheFontBackToTheStart()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(click(editor.view(), "#bold"));
    QVERIFY(click(editor.view(), "#fontOk"));
    QVERIFY(click(editor.view(), "#font"));
    QCOMPARE(read(editor.view(), "fontUndo.title").toString(),
             QString("The font as it was when this window opened"));
    m_host->answerConfirm(false);
    QVERIFY(click(editor.view(), "#fontUndo"));
    QCOMPARE(m_host->messages().size(), 1);
    QCOMPARE(m_host->messages().at(0).text,
             QString("Put the font back to how it was when this window opened?"));
    QCOMPARE(stored(*m_host, Keys::info.bold), QString("true"));
    m_host->answerConfirm(true);
    QVERIFY(click(editor.view(), "#fontUndo"));
    QCOMPARE(stored(*m_host, Keys::info.bold), QString("false"));
    QCOMPARE(callsOf(*m_host, "saveinfo"), 0);
    QVERIFY(click(editor.view(), "#fontCancel"));
    QCOMPARE(stored(*m_host, Keys::info.bold), QString("true"));
}

void TestEditInfoPage::setsFontsOfAllPlaces()
{
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#group-2"));
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(click(editor.view(), "#bold"));
    QVERIFY(click(editor.view(), "#collective"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.collectiveSetting), QString("true"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.bold + "4"), QString("false"));
    QVERIFY(click(editor.view(), "#fontOk"));
    for (const char *group : {"1", "2", "3", "4", "5", "6"})
        QCOMPARE(stored(*m_host, Keys::saveInfo.bold + group), QString("true"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.bold + "0"), QString("false"));
}

void TestEditInfoPage::namesAMissingFont_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<bool>("withSamples");
    QTest::addColumn<QString>("told");
    QTest::newRow("there") << "DejaVu Sans" << true << "";
    QTest::newRow("there, in other letters") << "dejavu sans" << true << "";
    QTest::newRow("there, beside nobody who knows") << "DejaVu Sans" << false << "";
    QTest::newRow("missing") << "Gone Sans" << true
                             << "The font Gone Sans is missing; DejaVu Sans is used.";
    QTest::newRow("missing, beside nobody who knows")
        << "Gone %2 <b>" << false << "The font Gone %2 <b> is missing; another one is used.";
    QTest::newRow("none") << "" << false << "";
}

void TestEditInfoPage::namesAMissingFont()
{
    QFETCH(QString, family);
    QFETCH(bool, withSamples);
    QFETCH(QString, told);
    m_host->settings().setValue(Keys::info.fontName, family);
    FontSamples samples;
    Editor editor(*m_host);
    QWebFrame *frame = editor.view()->page()->mainFrame();
    connect(frame, &QWebFrame::javaScriptWindowObjectCleared, &samples, [&] {
        if (withSamples)
            frame->addToJavaScriptWindowObject("informationSamples", &samples);
    });
    QVERIFY(editor.open());
    QCOMPARE(text(editor.view(), "#summary"), family + ", 12");
    QCOMPARE(isShown(editor.view(), "#missing"), !told.isEmpty());
    QCOMPARE(text(editor.view(), "#missing"), told);
    QVERIFY(click(editor.view(), "#font"));
    QCOMPARE(isShown(editor.view(), "#fontMissing"), !told.isEmpty());
    QCOMPARE(text(editor.view(), "#fontMissing"), told);
    QCOMPARE(read(editor.view(), "document.getElementById('fontName').value").toString(), family);
    QCOMPARE(stored(*m_host, Keys::info.fontName), family); // it stays until another is chosen
}

void TestEditInfoPage::knowsTheSubstitutesInTheWorkbench_data()
{
    QTest::addColumn<QString>("page");
    for (const char *page : {"editinfo", "saveinfo"})
        QTest::newRow(page) << page;
}

void TestEditInfoPage::knowsTheSubstitutesInTheWorkbench()
{
    QFETCH(QString, page);
    PageVisit visit;
    visit.host.addCamera();
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(read(view, "typeof informationSamples").toString(), QString("object"));
        QVERIFY(read(view, "informationSamples.substituteFont('Gone Sans') !== ''").toBool());
    }));
}

void TestEditInfoPage::leavesTheGroupsAloneWhileTheFontIsSet()
{
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#font"));
    QVERIFY(!isEnabled(editor.view(), "#group-3"));
    QVERIFY(click(editor.view(), "#fontCancel"));
    QVERIFY(isEnabled(editor.view(), "#group-3"));
}

void TestEditInfoPage::showsGroupsAsTabs()
{
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QCOMPARE(count(editor.view(), "[role=tablist] > [role=tab]"), 7);
    const auto chosen = [&] {
        return count(editor.view(), "[role=tab][aria-selected=true]") == 1
                   ? read(editor.view(),
                          "document.querySelector('[aria-selected=true][role=tab]').id")
                         .toString()
                   : QString();
    };
    QCOMPARE(chosen(), QString("group-0"));
    QVERIFY(press(editor.view(), Qt::Key_Tab));
    const QList<QPair<int, QString>> keys = {{Qt::Key_Right, "group-1"}, {Qt::Key_Right, "group-2"},
                                             {Qt::Key_Left, "group-1"},  {Qt::Key_Home, "group-0"},
                                             {Qt::Key_Left, "group-6"},  {Qt::Key_Right, "group-0"},
                                             {Qt::Key_End, "group-6"}};
    for (const auto &key : keys) {
        QVERIFY(press(editor.view(), key.first));
        QCOMPARE(chosen(), key.second);
        QCOMPARE(read(editor.view(), "document.activeElement.id").toString(), key.second);
    }
    QVERIFY(press(editor.view(), Qt::Key_Tab)); // into the list, past the other tabs
    QCOMPARE(editor.focusedRow(), 0);
}

void TestEditInfoPage::readsAGroupAnewWhenItIsEntered()
{
    m_host->settings().setValue(Keys::saveInfo.display + "3", "Resolution:true");
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#group-3"));
    QCOMPARE(editor.rows(), QStringList("+Resolution"));
    QVERIFY(click(editor.view(), "#group-0"));
    m_host->settings().setValue(Keys::saveInfo.display + "3", "Comment:false,Resolution:false");
    QVERIFY(click(editor.view(), "#group-3"));
    QCOMPARE(editor.rows(), QStringList({" Comment", " Resolution"}));
    // The same item has a tick of its own in each group.
    QVERIFY(click(editor.view(), "#item-Resolution .label"));
    QVERIFY(click(editor.view(), "#group-0"));
    QVERIFY(click(editor.view(), "#item-FrameRate .label"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.display + "3"),
             QString("Comment:false,Resolution:true"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.display + "0"),
             QString("FrameRate:false,Date:true,Comment:false,<hr>,Resolution:true"));
}

void TestEditInfoPage::storesForItsGroup()
{
    m_host->settings().setValue(Keys::saveInfo.display + "4", "Comment:false,Resolution:false");
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#group-4"));
    QVERIFY(click(editor.view(), "#item-Comment .label"));
    QVERIFY(drag(editor.view(), "#item-Comment", "#item-Resolution"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.display + "4"),
             QString("Resolution:false,Comment:true"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.display + "0"), FourItems);
    QCOMPARE(stored(*m_host, Keys::info.display), FourItems);
}

void TestEditInfoPage::previewsWithAPause()
{
    m_host->settings().setValue("display/outputLanguage", 2);
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QTRY_VERIFY(isShown(editor.view(), "#preview")); // once it is decoded
    QTRY_VERIFY(
        read(editor.view(), "document.getElementById('preview').naturalWidth > 0").toBool());
    QVERIFY(read(editor.view(), "document.getElementById('preview').src")
                .toString()
                .startsWith("data:image/png;base64,"));
    QCOMPARE(text(editor.view(), "#resolution"), QString("Resolution : 640 x 480"));
    QCOMPARE(text(editor.view(), "#language"), QString("Output Language Setting : Japanese"));
    // The picture fills its place as far as its shape lets it.
    QVERIFY(read(editor.view(),
                 "var picture = document.getElementById('preview').getBoundingClientRect(),"
                 "    frame = document.getElementById('frame').getBoundingClientRect();"
                 "picture.width <= frame.width && picture.height <= frame.height &&"
                 "    (frame.width - picture.width < 4 || frame.height - picture.height < 4)")
                .toBool());

    const int before = callsOf(*m_host, "documentThumbnail(");
    editor.focusRow(0);
    for (int i = 0; i < 4; ++i)
        QVERIFY(press(editor.view(), Qt::Key_Space));
    QVERIFY(press(editor.view(), Qt::Key_Down, Qt::AltModifier));
    QCOMPARE(callsOf(*m_host, "documentThumbnail("), before);
    QTRY_COMPARE(callsOf(*m_host, "documentThumbnail("), before + 1);
    QTest::qWait(500);
    QCOMPARE(callsOf(*m_host, "documentThumbnail("), before + 1);
}

void TestEditInfoPage::previewsInTheSizeOfItsPlace()
{
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QCOMPARE(callsOf(*m_host, "documentThumbnail("), 1);
    const QVariantList size =
        read(editor.view(), "[frame.clientWidth, frame.clientHeight]").toList();
    QCOMPARE(callsOf(*m_host, QString("documentThumbnail(10, %1, %2, ")
                                  .arg(size.at(0).toInt())
                                  .arg(size.at(1).toInt())),
             1);
}

void TestEditInfoPage::previewsTheKindOfTheFile_data()
{
    QTest::addColumn<int>("fileType");
    QTest::addColumn<int>("kind");
    QTest::newRow("1") << 1 << 10;
    QTest::newRow("4") << 4 << 18;
    QTest::newRow("6") << 6 << 11;
    QTest::newRow("16") << 16 << 17;
}

void TestEditInfoPage::previewsTheKindOfTheFile()
{
    QFETCH(int, fileType);
    QFETCH(int, kind);
    Editor editor(*m_host, fileType);
    QVERIFY(editor.open());
    QCOMPARE(callsOf(*m_host, "documentThumbnail("), 1);
    QCOMPARE(callsOf(*m_host, QString("documentThumbnail(%1, ").arg(kind)), 1);
}

void TestEditInfoPage::previewsTheFontWhileItIsSet()
{
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#font"));
    QTRY_VERIFY(isShown(editor.view(), "#preview")); // once it is decoded
    const int before = callsOf(*m_host, "documentThumbnail(");
    QVERIFY(click(editor.view(), "#bold"));
    QTRY_COMPARE(callsOf(*m_host, "documentThumbnail("), before + 1);
    QVERIFY(click(editor.view(), "#fontCancel"));
    QTRY_COMPARE(callsOf(*m_host, "documentThumbnail("), before + 2);
}

void TestEditInfoPage::writesIntoThePictureOrBesideIt()
{
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    const int before = callsOf(*m_host, "documentThumbnail(");
    QVERIFY(click(editor.view(), "#withinImage"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.withinImage), QString("false"));
    QTRY_COMPARE(callsOf(*m_host, "documentThumbnail("), before + 1);
    QVERIFY(click(editor.view(), "#cancel"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.withinImage), QString("true"));
}

void TestEditInfoPage::tellsThatThePlaceWasNotStored_data()
{
    QTest::addColumn<bool>("isFontOpen");
    QTest::newRow("beside the list") << false;
    QTest::newRow("beside the font") << true;
}

void TestEditInfoPage::tellsThatThePlaceWasNotStored()
{
    QFETCH(bool, isFontOpen);
    Editor editor(*m_host, 1);
    QVERIFY(editor.open());
    if (isFontOpen)
        QVERIFY(click(editor.view(), "#font"));
    LogCapture log;
    m_host->failOn("setPref");
    QVERIFY(click(editor.view(), "#withinImage"));
    QVERIFY(isShown(editor.view(), "#choiceState"));
    QCOMPARE(text(editor.view(), "#choiceState"), QString("The setting could not be stored."));
    QVERIFY(shownIn(editor.view(), "withinImage", "checked").toBool()); // as it is stored
    QVERIFY(read(editor.view(), "document.documentElement.scrollHeight <= innerHeight").toBool());
    QVERIFY(click(editor.view(), "#withinImage"));
    QVERIFY(!isShown(editor.view(), "#choiceState"));
    QCOMPARE(stored(*m_host, Keys::saveInfo.withinImage), QString("false"));
}

void TestEditInfoPage::setsEmptyLines()
{
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(read(editor.view(), "document.getElementById('blankLine').checked").toBool());
    QVERIFY(click(editor.view(), "#blankLine"));
    QCOMPARE(stored(*m_host, Keys::info.blankLine), QString("false"));
    QVERIFY(click(editor.view(), "#cancel"));
    QCOMPARE(stored(*m_host, Keys::info.blankLine), QString("true"));
}

void TestEditInfoPage::asksBeforeAReset_data()
{
    QTest::addColumn<bool>("isSaved");
    QTest::addColumn<bool>("answer");
    QTest::newRow("no") << false << false;
    QTest::newRow("yes") << false << true;
    QTest::newRow("no, saved") << true << false;
    QTest::newRow("yes, saved") << true << true;
}

void TestEditInfoPage::asksBeforeAReset()
{
    QFETCH(bool, isSaved);
    QFETCH(bool, answer);
    m_host->settings().setValue(Keys::info.blankLine, false);
    const std::unique_ptr<Editor> editor =
        isSaved ? std::make_unique<Editor>(*m_host, 1) : std::make_unique<Editor>(*m_host);
    QVERIFY(editor->open());
    m_host->answerConfirm(answer);
    QVERIFY(click(editor->view(), "#reset"));
    QCOMPARE(m_host->messages().size(), 1);
    QCOMPARE(m_host->messages().at(0).kind, QString("confirm"));
    QCOMPARE(m_host->messages().at(0).text,
             QString(isSaved ? "Put the items of all places back to how they were at first?"
                             : "Put all items back to how they were at first?"));
    QCOMPARE(editor->rows().size() == 5, !answer);
    if (isSaved)
        QCOMPARE(m_host->settings().contains(Keys::saveInfo.display + "0"), !answer);
    else
        QCOMPARE(read(editor->view(), "document.getElementById('blankLine').checked").toBool(),
                 answer);
}

void TestEditInfoPage::endsByItsButtons_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("isKept");
    QTest::newRow("OK") << "#ok" << true;
    QTest::newRow("Cancel") << "#cancel" << false;
}

void TestEditInfoPage::endsByItsButtons()
{
    QFETCH(QString, button);
    QFETCH(bool, isKept);
    Editor editor(*m_host);
    QVERIFY(editor.open());
    QVERIFY(click(editor.view(), "#item-Comment .label"));
    QTest::keyClick(editor.view(), Qt::Key_Escape);
    QVERIFY(editor.dialog.isVisible()); // nothing is lost by it
    QVERIFY(click(editor.view(), button));
    QVERIFY(!editor.dialog.isVisible());
    QCOMPARE(editor.dialog.result(), int(isKept ? QDialog::Accepted : QDialog::Rejected));
    QCOMPARE(stored(*m_host, Keys::info.display) == FourItems, !isKept);
}

void TestEditInfoPage::fitsInItsPlace_data()
{
    QTest::addColumn<bool>("isSaved");
    QTest::addColumn<int>("fontSize");
    for (const int size : {13, 16, 18}) {
        QTest::addRow("editor, %d", size) << false << size;
        QTest::addRow("saved, %d", size) << true << size;
    }
}

// All but the list and the controls of the font, which scroll, is in view.
void TestEditInfoPage::fitsInItsPlace()
{
    QFETCH(bool, isSaved);
    QFETCH(int, fontSize);
    m_host->settings().setValue(Keys::application.style, fontSize == 16 ? "dark" : "light");
    m_host->settings().setValue(Keys::info.fontName, "Gone Sans with a long name");
    m_host->settings().setValue(Keys::saveInfo.fontName + "0", "Gone Sans with a long name");
    m_host->settings().remove(Keys::info.display);
    m_host->settings().remove(Keys::saveInfo.display + "0");
    const std::unique_ptr<Editor> editor =
        isSaved ? std::make_unique<Editor>(*m_host, 1) : std::make_unique<Editor>(*m_host);
    editor->view()->settings()->setFontSize(QWebSettings::DefaultFontSize, fontSize);
    QVERIFY(editor->open());
    GUI_WebView *view = editor->view();
    QCOMPARE(editor->dialog.size(), isSaved ? QSize(850, 680) : QSize(340, 680));
    for (const char *step : {"list", "font"}) {
        if (step == QString("font"))
            QVERIFY(click(view, "#font"));
        const QString pictures = qEnvironmentVariable("ORVIX_TEST_PICTURES");
        if (!pictures.isEmpty()) {
            QTest::qWait(100); // the preview
            editor->dialog.grab().save(
                QString("%1/info %2 %3.png").arg(pictures, QTest::currentDataTag(), step));
        }
        QVERIFY(read(view, "document.documentElement.scrollWidth <= innerWidth &&"
                           "document.documentElement.scrollHeight <= innerHeight")
                    .toBool());
        QCOMPARE(read(view,
                      "Array.from(document.querySelectorAll('button, p, .tabs, #frame, #sorting'))"
                      ".filter(function (element) {"
                      "    var box = element.getBoundingClientRect();"
                      "    return box.width > 0 && (box.left < 0 || box.right > innerWidth ||"
                      "        (!list.contains(element) &&"
                      "         !document.querySelector('.fields').contains(element) &&"
                      "         (box.top < 0 || box.bottom > innerHeight)) ||"
                      "        element.scrollWidth > element.clientWidth + 1 &&"
                      "            getComputedStyle(element).textOverflow !== 'ellipsis');"
                      "}).map(function (element) { return element.id || element.tagName; }).join()")
                     .toString(),
                 QString());
        QCOMPARE(read(view, "Array.from(document.querySelectorAll('.fields *, #list *'))"
                            ".filter(function (element) {"
                            "    var around = element.closest('.fields') || list;"
                            "    return element.getBoundingClientRect().right >"
                            "        around.getBoundingClientRect().left + around.clientWidth;"
                            "}).map(function (element) { return element.id || element.className; })"
                            ".join()")
                     .toString(),
                 QString());
        QVERIFY(read(view, step == QString("list")
                               ? "list.clientHeight > 250"
                               : "document.querySelector('.fields').clientHeight > 250")
                    .toBool());
    }
}

int main(int argc, char **argv)
{
    TestEditInfoPage test;
    return runTest(argc, argv, test);
}

#include "test_edit_info_page.moc"
