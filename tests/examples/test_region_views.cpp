#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/tour/PageHand.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/PictureArea.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/ToolBar.h"
#include "workbench/window/ToolPanel.h"

#include <QAction>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <QWindow>

#include <cmath>
#include <memory>

// The region tool on a picture that is turned, flipped, zoomed and scrolled: what lies under the
// pointer on the screen is what moves in the picture, and what is typed stays in the range shown.
class TestRegionViews : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void handlesAreGrabbedOnThePixelsOfTheirSides_data();
    void handlesAreGrabbedOnThePixelsOfTheirSides();
    void sidesAreGrabbedWithinFivePixelsOfTheScreen_data();
    void sidesAreGrabbedWithinFivePixelsOfTheScreen();
    void dragBesideThePictureStopsAtItsBorder_data();
    void dragBesideThePictureStopsAtItsBorder();
    void drawingLiesOnThePicture_data();
    void drawingLiesOnThePicture();
    void handlesAtTheBorderAreDrawnWhole();
    void wheelScrollsALargePicture();
    void wheelLeavesASmallPictureToThePage();
    void scrollingInMidDragGoesOnUnderThePointer();
    void leavingInMidDragEndsIt_data();
    void leavingInMidDragEndsIt();
    void typedValuesAreBroughtIntoTheRangeShown_data();
    void typedValuesAreBroughtIntoTheRangeShown();
    void typedValuesKeepToTheAspectShown();

private:
    PLG_Interface *tool() const { return m_workbench->loader().tools().value(0); }
    StandInHost &host() const { return m_workbench->host(); }
    StandInCamera *camera() const { return host().cameras().first(); }
    PictureArea *area() const;
    QRect region() const { return tool()->region(camera()->contract()); }
    void setRegion(const QRect &rect) const;
    void open() const;
    ToolPanel *panel() const { return m_workbench->window().findChild<ToolPanel *>(); }
    bool waitForPanel() const;
    bool type(const QString &field, const QString &text) const;
    void handlesAreGrabbed(const QByteArray &look, bool last, int first, int step) const;
    void dragStopsAtTheBorder(const QByteArray &look) const;
    void drawingLiesThere(const QByteArray &look) const;
    void look(double zoom, int turns, bool horizontally, bool vertically) const;
    void bringIntoView(const QPoint &pixel) const;
    double scale() const;
    QPoint seen(const QPoint &pixel) const;
    QPoint onScreen(const QPoint &pixel, bool last = false) const;
    QPoint pixelAt(const QPoint &screen) const;
    void move(const QPoint &screen) const;
    void press(const QPoint &screen) const;
    void release(const QPoint &screen) const;
    bool wheel(const QPoint &angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Workbench> m_workbench;
};

namespace {

const QSize Picture(320, 240);
constexpr double Fit = 0.0;

QRect corners(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

const QRect Start = corners(80, 60, 199, 159);

// Turned by quarters, then flipped as it is seen.
struct Look
{
    int turns;
    bool horizontally;
    bool vertically;
    QByteArray name;
};

QList<Look> looks()
{
    QList<Look> all;
    for (int way = 0; way < 16; ++way) {
        const QByteArray name = QByteArray::number(way / 4 * 90) +
                                (way & 1 ? " left to right" : "") +
                                (way & 2 ? " top to bottom" : "");
        all.append({way / 4, bool(way & 1), bool(way & 2), name});
    }
    return all;
}

void addZooms(const QList<double> &zooms)
{
    QTest::addColumn<double>("zoom");
    for (const double zoom : zooms)
        QTest::newRow(qPrintable(zoom > 0.0 ? QString::number(zoom) : QString("fit"))) << zoom;
}

}

void TestRegionViews::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    Options options;
    options.settingsFile = m_dir->filePath("settings.ini");
    options.pluginFolder = PLUGIN_FOLDER;
    options.cameras = 0;
    m_workbench = std::make_unique<Workbench>(options);
    m_workbench->start(options);
    StandInCamera::Description description;
    description.limits.sensorSize = Picture;
    description.limits.minRegion = QSize(4, 4);
    description.region = corners(80, 60, 239, 179);
    host().addCamera(description)->setZoom(1.0);
    m_workbench->window().resize(1300, 900);
    m_workbench->window().show();
    m_workbench->window().views()->setRunning(false);
    m_workbench->window().refresh();
    // The view stands in a page, which has to load.
    QVERIFY(QTest::qWaitFor([this] { return area() && area()->width() > 340; }, 10000));
    QVERIFY(tool());
    QCOMPARE(tool()->name(), QString("t_region"));
}

void TestRegionViews::cleanup()
{
    m_workbench.reset();
    m_dir.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
    TestBase::cleanup();
}

PictureArea *TestRegionViews::area() const
{
    DocumentView *view = m_workbench->window().views()->view(camera()->key());
    return view ? view->findChild<PictureArea *>() : nullptr;
}

void TestRegionViews::setRegion(const QRect &rect) const
{
    tool()->setRegion(camera()->contract(), rect, false);
    host().events()->viewChanged(camera()->key());
}

void TestRegionViews::open() const
{
    m_workbench->window().tools()->action(tool())->trigger();
}

bool TestRegionViews::waitForPanel() const
{
    return QTest::qWaitFor([this] { return panel()->isLoaded(); }, 10000);
}

// By hand: a click into the field, all of it marked, the text, and on to the next field.
bool TestRegionViews::type(const QString &field, const QString &text) const
{
    QWebView *page = panel()->view();
    m_workbench->window().activateWindow();
    return PageHand::click(page, '#' + field) &&
           PageHand::press(page, Qt::Key_A, Qt::ControlModifier) &&
           (text.isEmpty() ? PageHand::press(page, Qt::Key_Delete) : PageHand::type(page, text)) &&
           PageHand::press(page, Qt::Key_Tab);
}

void TestRegionViews::look(double zoom, int turns, bool horizontally, bool vertically) const
{
    camera()->setZoom(zoom);
    camera()->setQuarterTurns(turns);
    camera()->setFlips(horizontally, vertically);
}

// A picture that is larger than its view is scrolled until the pixel lies near the middle.
void TestRegionViews::bringIntoView(const QPoint &pixel) const
{
    camera()->scrollBy(area()->rect().center() - onScreen(pixel));
}

double TestRegionViews::scale() const
{
    const double zoom = camera()->state().zoom;
    if (zoom > 0.0)
        return zoom;
    const QSize turned = camera()->state().quarterTurns % 2 ? Picture.transposed() : Picture;
    return qMin(double(area()->width()) / turned.width(),
                double(area()->height()) / turned.height());
}

// An image pixel where the picture is seen, pixel for pixel: turned clockwise, then flipped.
QPoint TestRegionViews::seen(const QPoint &pixel) const
{
    const DocumentState &state = camera()->state();
    QPoint point = pixel;
    QSize size = Picture;
    for (int turn = 0; turn < state.quarterTurns; ++turn) {
        point = QPoint(size.height() - 1 - point.y(), point.x());
        size.transpose();
    }
    if (state.isFlippedHorizontally)
        point.setX(size.width() - 1 - point.x());
    if (state.isFlippedVertically)
        point.setY(size.height() - 1 - point.y());
    return point;
}

// The first or the last pixel of the screen on which an image pixel is seen; of a smaller picture
// the one that shows it together with its neighbours.
QPoint TestRegionViews::onScreen(const QPoint &pixel, bool last) const
{
    const auto along = [this, last](int at) {
        const int first = int(scale() < 1.0 ? std::floor(at * scale()) : std::ceil(at * scale()));
        return last && scale() >= 1.0 ? int(std::ceil((at + 1) * scale())) - 1 : first;
    };
    const QPoint point = seen(pixel);
    return camera()->geometry().origin + QPoint(along(point.x()), along(point.y()));
}

// The image pixel under a pixel of the screen: the offset taken away, divided by the zoom, then the
// flips and turns taken back.
QPoint TestRegionViews::pixelAt(const QPoint &screen) const
{
    const DocumentState &state = camera()->state();
    const QPoint offset = screen - camera()->geometry().origin;
    QPoint point(int(std::floor(offset.x() / scale())), int(std::floor(offset.y() / scale())));
    QSize size = state.quarterTurns % 2 ? Picture.transposed() : Picture;
    if (state.isFlippedHorizontally)
        point.setX(size.width() - 1 - point.x());
    if (state.isFlippedVertically)
        point.setY(size.height() - 1 - point.y());
    for (int turn = 0; turn < state.quarterTurns; ++turn) {
        point = QPoint(point.y(), size.width() - 1 - point.x());
        size.transpose();
    }
    return point;
}

// Events as the window system sends them: the window finds the widget.
void TestRegionViews::move(const QPoint &screen) const
{
    MainWindow &window = m_workbench->window();
    QTest::mouseMove(window.windowHandle(), area()->mapTo(&window, screen));
}

void TestRegionViews::press(const QPoint &screen) const
{
    MainWindow &window = m_workbench->window();
    move(screen);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      area()->mapTo(&window, screen));
}

void TestRegionViews::release(const QPoint &screen) const
{
    MainWindow &window = m_workbench->window();
    move(screen);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                        area()->mapTo(&window, screen));
}

// Whether the view took it.
bool TestRegionViews::wheel(const QPoint &angle, Qt::KeyboardModifiers modifiers) const
{
    const QPointF middle = area()->rect().center();
    QWheelEvent event(middle, area()->mapToGlobal(middle.toPoint()), QPoint(), angle, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(area(), &event);
    return event.isAccepted();
}

void TestRegionViews::handlesAreGrabbedOnThePixelsOfTheirSides_data()
{
    addZooms({0.5, 1.0, 8.0, Fit});
}

void TestRegionViews::handlesAreGrabbedOnThePixelsOfTheirSides()
{
    QFETCH(double, zoom);
    open();
    int way = 0;
    for (const Look &each : looks()) {
        look(zoom, each.turns, each.horizontally, each.vertically);
        // Of the pixels of the screen that show a pixel, the last or the first. Pixel by pixel each
        // handle under each look, else each handle under a third of them.
        const int step = zoom == 1.0 ? 1 : 3;
        handlesAreGrabbed(each.name, each.horizontally, way++ % step, step);
        if (QTest::currentTestFailed())
            return;
    }
}

void TestRegionViews::handlesAreGrabbed(const QByteArray &look, bool last, int first,
                                        int step) const
{
    struct Handle
    {
        const char *name;
        QPoint pixel;
        QPoint way; // in the picture
        bool left;
        bool top;
        bool right;
        bool bottom;
    };
    const QList<Handle> handles{
        {"top", {140, 60}, {6, -11}, false, true, false, false},
        {"bottom", {140, 159}, {6, 12}, false, false, false, true},
        {"left", {80, 110}, {-11, 6}, true, false, false, false},
        {"right", {199, 110}, {12, 6}, false, false, true, false},
        {"top left", {80, 60}, {-9, -11}, true, true, false, false},
        {"top right", {199, 60}, {12, -9}, false, true, true, false},
        {"bottom left", {80, 159}, {-11, 12}, true, false, false, true},
        {"bottom right", {199, 159}, {10, 12}, false, false, true, true},
        {"inside", {140, 110}, {9, -7}, true, true, true, true},
    };
    for (int i = first; i < handles.size(); i += step) {
        const Handle &handle = handles.at(i);
        setRegion(Start);
        bringIntoView(handle.pixel);
        const QPoint from = onScreen(handle.pixel, last);
        const QPoint to = onScreen(handle.pixel + handle.way, last);
        const QByteArray name = look + ": " + handle.name;
        QVERIFY2(area()->rect().contains(from) && area()->rect().contains(to), name);
        press(from);
        release(to);
        const QPoint at = pixelAt(to);
        QRect expected = Start;
        if (qstrcmp(handle.name, "inside") == 0) {
            expected.translate(at - pixelAt(from));
        } else {
            if (handle.left)
                expected.setLeft(at.x());
            if (handle.right)
                expected.setRight(at.x());
            if (handle.top)
                expected.setTop(at.y());
            if (handle.bottom)
                expected.setBottom(at.y());
        }
        QVERIFY2(region() == expected, name);
        QCOMPARE(camera()->deviceSettings().region, expected);
    }
    QCOMPARE(host().openMacros(), 0);
}

void TestRegionViews::sidesAreGrabbedWithinFivePixelsOfTheScreen_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("grabbed"); // pixels of the screen beside the pixel of the side
    QTest::addColumn<int>("missed");
    QTest::newRow("half the size") << 0.5 << 5 << 6;
    QTest::newRow("pixel by pixel") << 1.0 << 5 << 6;
    QTest::newRow("twice") << 2.0 << 4 << 6;        // two pixels of the picture
    QTest::newRow("eight times") << 8.0 << 8 << 16; // one pixel of the picture, the least
}

void TestRegionViews::sidesAreGrabbedWithinFivePixelsOfTheScreen()
{
    QFETCH(double, zoom);
    QFETCH(int, grabbed);
    QFETCH(int, missed);
    open();
    look(zoom, 0, false, false);
    for (const int beside : {grabbed, missed}) {
        setRegion(Start);
        bringIntoView({80, 110});
        const QPoint from = onScreen({80, 110}) + QPoint(beside, 0);
        const QPoint to = from + QPoint(int(10 * zoom), 0);
        press(from);
        release(to);
        QRect expected = Start; // a side goes to the pointer, the inside by its way
        if (beside == grabbed)
            expected.setLeft(pixelAt(to).x());
        else
            expected.translate(10, 0);
        QCOMPARE(region(), expected);
    }
}

void TestRegionViews::dragBesideThePictureStopsAtItsBorder_data()
{
    addZooms({0.5, 1.0, 8.0});
}

void TestRegionViews::dragBesideThePictureStopsAtItsBorder()
{
    QFETCH(double, zoom);
    open();
    for (const Look &each : looks()) {
        look(zoom, each.turns, each.horizontally, each.vertically);
        dragStopsAtTheBorder(each.name);
        if (QTest::currentTestFailed())
            return;
    }
}

void TestRegionViews::dragStopsAtTheBorder(const QByteArray &look) const
{
    for (const QPoint &corner : {QPoint(80, 60), QPoint(199, 159)}) {
        setRegion(Start);
        bringIntoView(corner);
        press(onScreen(corner));
        // Far beside the picture, beyond the corner that is held.
        const bool first = corner == Start.topLeft();
        release(onScreen(first ? QPoint(-40, -50) : QPoint(360, 290)));
        QVERIFY2(region() == (first ? corners(0, 0, 199, 159) : corners(80, 60, 319, 239)), look);
    }
}

void TestRegionViews::drawingLiesOnThePicture_data()
{
    addZooms({0.5, 1.0, 8.0, Fit});
}

void TestRegionViews::drawingLiesOnThePicture()
{
    QFETCH(double, zoom);
    open();
    for (const Look &each : looks()) {
        look(zoom, each.turns, each.horizontally, each.vertically);
        drawingLiesThere(each.name);
        if (QTest::currentTestFailed())
            return;
    }
}

void TestRegionViews::drawingLiesThere(const QByteArray &look) const
{
    setRegion(Start);
    const QColor yellow(0xffd23c);
    for (const bool last : {false, true}) {
        bringIntoView(last ? Start.bottomRight() : Start.topLeft());
        const QImage image = area()->grab().toImage();
        const QRect inView = QRect(seen(Start.topLeft()), seen(Start.bottomRight())).normalized();
        const QPoint origin = camera()->geometry().origin;
        const QPoint first(int(std::floor(inView.left() * scale() + 1e-3)),
                           int(std::floor(inView.top() * scale() + 1e-3)));
        const QPoint end(int(std::ceil((inView.right() + 1) * scale() - 1e-3)) - 1,
                         int(std::ceil((inView.bottom() + 1) * scale() - 1e-3)) - 1);
        int tested = 0;
        // Away from the handles at corners and middles.
        const auto test = [&](const QPoint &point) {
            if (!image.rect().contains(origin + point))
                return;
            ++tested;
            QVERIFY2(image.pixelColor(origin + point) == yellow, look);
        };
        const int shift = 12;
        test({first.x(), first.y() + shift});
        test({first.x(), end.y() - shift});
        test({end.x(), first.y() + shift});
        test({end.x(), end.y() - shift});
        test({first.x() + shift, first.y()});
        test({end.x() - shift, first.y()});
        test({first.x() + shift, end.y()});
        test({end.x() - shift, end.y()});
        QVERIFY2(tested >= 2, look); // a corner of a large picture is in view
    }
}

void TestRegionViews::handlesAtTheBorderAreDrawnWhole()
{
    open();
    setRegion(QRect(QPoint(0, 0), Picture));
    const QImage image = area()->grab().toImage();
    const QColor yellow(0xffd23c);
    const QPoint origin = camera()->geometry().origin;
    // A handle is seven pixels wide, its outermost line black.
    for (const QPoint &inside : {QPoint(1, 1), QPoint(5, 5)}) {
        QCOMPARE(image.pixelColor(origin + inside), yellow);
        QCOMPARE(image.pixelColor(origin + QPoint(319, 239) - inside), yellow);
    }
}

void TestRegionViews::wheelScrollsALargePicture()
{
    look(8.0, 0, false, false); // of the 160 by 120 pixels that are read
    const QPoint middle = camera()->geometry().origin;
    QVERIFY(wheel({0, 120}));
    QCOMPARE(camera()->geometry().origin, middle + QPoint(0, 60));
    QVERIFY(wheel({0, -240}));
    QCOMPARE(camera()->geometry().origin, middle + QPoint(0, -60));
    QVERIFY(wheel({0, 120}, Qt::ShiftModifier));
    QCOMPARE(camera()->geometry().origin, middle + QPoint(60, -60));
    QVERIFY(wheel({-120, 0}));
    QCOMPARE(camera()->geometry().origin, middle + QPoint(0, -60));

    // To the upper side and no further; back from there at once.
    QVERIFY(wheel({0, 120000}));
    QCOMPARE(camera()->geometry().origin.y(), 0);
    QVERIFY(!wheel({0, 120}));
    QVERIFY(wheel({0, -120}));
    QCOMPARE(camera()->geometry().origin.y(), -60);
    QVERIFY(wheel({0, -120000}));
    QCOMPARE(camera()->geometry().origin.y(), area()->height() - 8 * 120);

    // A picture that fits again stands in the middle, whatever was scrolled.
    camera()->setZoom(1.0);
    QCOMPARE(camera()->geometry().origin,
             QPoint((area()->width() - 160) / 2, (area()->height() - 120) / 2));
}

void TestRegionViews::wheelLeavesASmallPictureToThePage()
{
    const QPoint origin = camera()->geometry().origin;
    QVERIFY(!wheel({0, 120}));
    QCOMPARE(camera()->geometry().origin, origin);
}

void TestRegionViews::scrollingInMidDragGoesOnUnderThePointer()
{
    open();
    look(8.0, 0, false, false);
    setRegion(Start);
    bringIntoView({80, 110});
    const QPoint from = onScreen({80, 110});
    press(from);
    QVERIFY(wheel({-320, 0})); // the picture goes 160 pixels to the left, 20 of its own
    QVERIFY(tool()->isDragging());
    release(from + QPoint(1, 0)); // on the same pixel
    QCOMPARE(region(), corners(100, 60, 199, 159));
    QCOMPARE(host().openMacros(), 0);
}

void TestRegionViews::leavingInMidDragEndsIt_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"cancel", "ok", "close", "button", "closePlugin", "returnFromPlugin"})
        QTest::newRow(way) << way;
}

void TestRegionViews::leavingInMidDragEndsIt()
{
    QFETCH(QString, way);
    open();
    QVERIFY(waitForPanel());
    const QPoint from = onScreen({239, 110});
    const QPoint to = onScreen({250, 110});
    press(from);
    move(to);
    QCOMPARE(region(), corners(80, 60, 250, 179));
    QVERIFY(QGuiApplication::overrideCursor());
    if (way == "close")
        panel()->close();
    else if (way == "button")
        m_workbench->window().tools()->action(tool())->trigger();
    else if (way == "closePlugin")
        host().closePluginByName("t_region");
    else if (way == "returnFromPlugin")
        host().returnFromPlugin();
    else
        QVERIFY(PageHand::click(panel()->view(), '#' + way));
    QVERIFY(QTest::qWaitFor([this] { return panel()->isHidden(); }));
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!tool()->isDragging());
    QCOMPARE(host().openMacros(), 0);
    QCOMPARE(host().handledErrors(), QStringList());
    const QRect left = camera()->deviceSettings().region;
    QCOMPARE(left, corners(80, 60, way == "ok" ? 250 : 239, 179));

    // The button is still down, and comes up over the picture of a tool that is open again.
    open();
    QVERIFY(waitForPanel());
    move(onScreen({270, 110}));
    QCOMPARE(region(), left);
    QStringList calls;
    connect(host().events(), &StandInEvents::callJournalled, this,
            [&calls](const QString &line) { calls.append(line); });
    release(onScreen({270, 110}));
    disconnect(host().events(), nullptr, this, nullptr);
    QVERIFY(!calls.contains("endUndoMacro()"));
    QVERIFY(!calls.contains("[1].notifyChange(1, false)"));
    QCOMPARE(region(), left);
    QCOMPARE(host().undoSteps()->count(), 0);
    tool()->onCancel();
}

void TestRegionViews::typedValuesAreBroughtIntoTheRangeShown_data()
{
    QTest::addColumn<int>("turns");
    QTest::newRow("upright") << 0;
    QTest::newRow("turned") << 1; // the panel counts in image pixels either way
}

void TestRegionViews::typedValuesAreBroughtIntoTheRangeShown()
{
    QFETCH(int, turns);
    struct Row
    {
        const char *field;
        const char *typed;
        QRect result;
        const char *shown;
    };
    // Of 80 to 239, 60 to 179 in a picture of 320 by 240, at least 16 by 16.
    const QRect before = corners(80, 60, 239, 179);
    const QList<Row> rows{
        {"Width", "500", corners(80, 60, 319, 179), "240"},
        {"Width", "241", corners(80, 60, 319, 179), "240"},
        {"Width", "240", corners(80, 60, 319, 179), "240"},
        {"Width", "3", corners(80, 60, 95, 179), "16"},
        {"Width", "0", corners(80, 60, 95, 179), "16"},
        {"Width", "-7", corners(80, 60, 95, 179), "16"},
        {"Width", "4294967396", corners(80, 60, 319, 179), "240"}, // 100 in 32 bits
        {"Width", "1e999", corners(80, 60, 319, 179), "240"},
        {"Height", "99999", corners(80, 60, 239, 239), "180"},
        {"Height", "1", corners(80, 60, 239, 75), "16"},
        {"PosX", "161", corners(160, 60, 319, 179), "160"},
        {"PosX", "-4", corners(0, 60, 159, 179), "0"},
        {"PosY", "1e12", corners(80, 120, 239, 239), "120"},
        {"PosY", "-1e12", corners(80, 0, 239, 119), "0"},
        {"Width", "100.6", corners(80, 60, 180, 179), "101"},
        {"PosX", "160.4", corners(160, 60, 319, 179), "160"},
        {"Height", "50", corners(80, 60, 239, 109), "50"},
        {"Width", "wide", before, "160"},
        {"Width", "", before, "160"},
    };
    camera()->setQuarterTurns(turns);
    open();
    QVERIFY(waitForPanel());
    for (const Row &row : rows) {
        setRegion(before);
        tool()->update();
        const QByteArray name = QByteArray(row.field) + ' ' + row.typed;
        QVERIFY2(type(row.field, row.typed), name);
        QVERIFY2(region() == row.result, name);
        QVERIFY2(PageHand::read(panel()->view(),
                                QStringLiteral("document.getElementById('%1').value")
                                    .arg(QLatin1String(row.field))) == QVariant(row.shown),
                 name);
        if (region() != before)
            QVERIFY2(camera()->deviceSettings().region == row.result, name);
    }
    tool()->onCancel();
}

void TestRegionViews::typedValuesKeepToTheAspectShown()
{
    open();
    QVERIFY(waitForPanel());
    QVERIFY(PageHand::click(panel()->view(), "#options"));
    JS_Mediator_Dialog *options = tool()->ensureDialog(false)->mediator();
    for (const auto &option : {qMakePair(QString("aspect"), QVariant(0.5)),
                               qMakePair(QString("fixAspect"), QVariant(true))})
        QVERIFY(QMetaObject::invokeMethod(options, "setOption", Q_ARG(QString, option.first),
                                          Q_ARG(QVariant, option.second)));
    tool()->hideDialog();
    setRegion(corners(80, 60, 199, 119));
    tool()->update();
    // The 240 pixels to the right take 120 of the 180 below; the least is 32 by 16.
    QVERIFY(type("Width", "500"));
    QCOMPARE(region(), corners(80, 60, 319, 179));
    QVERIFY(type("Height", "500"));
    QCOMPARE(region(), corners(80, 60, 319, 179));
    QVERIFY(type("Width", "5"));
    QCOMPARE(region(), corners(80, 60, 111, 75));
    tool()->onCancel();
}

int main(int argc, char **argv)
{
    TestRegionViews test;
    return runTest(argc, argv, test);
}

#include "test_region_views.moc"
