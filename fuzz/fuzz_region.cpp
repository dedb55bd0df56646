#include "FuzzInput.h"

#include "plugin/PLG_Common.h"
#include "plugin/region/RegionGeometry.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

// Random drags and keys on a region, through the base of the tools, with a document and limits that
// no camera would have.

namespace {

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

void refuseMessages(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    std::fprintf(stderr, "message: %s\n", qPrintable(text));
    std::abort();
}

// A document that answers what the input says.
class FuzzDocument : public StandInCamera
{
public:
    using StandInCamera::StandInCamera;

    void draw(FuzzInput &input)
    {
        image = input.size();
        fullImage = input.size();
        divides = input.flag();
        hasDivider = input.flag();
        divider = input.number();
        level = input.number();
        scale = float(input.real());
        rotation = input.flag() ? float(input.choice(4)) / 4.0f : float(input.real());
        transposed = input.flag();
        horizontally = input.flag();
        vertically = input.flag();
        view.picture = image.boundedTo(QSize(10000, 10000)).expandedTo(QSize(0, 0));
        view.quarterTurns = input.choice(4);
        view.flippedHorizontally = horizontally;
        view.flippedVertically = vertically;
        view.scale = (input.byte() + 1) / 32.0;
    }

    bool usesScaleDivider(bool) override { return divides; }
    void notifyChange(int, bool) override {}
    QSize imageSize() override { return image; }
    void reportCursorPosition(const QPoint &) override {}
    QPoint mapPoint(const QPoint &pos, bool) override { return view.toImage(pos); }
    QRect mapRect(const QRect &rect) override
    {
        static constexpr int far = 100000000; // what a view can still show
        const auto bounded = [](int value) { return std::clamp(value, -far, far); };
        return view.toView(QRect(QPoint(bounded(rect.left()), bounded(rect.top())),
                                 QPoint(bounded(rect.right()), bounded(rect.bottom()))));
    }
    bool isTransposed() override { return transposed; }
    void fullImageSize(int *w, int *h) override
    {
        *w = fullImage.width();
        *h = fullImage.height();
    }
    bool hasScaleDivider(bool) override { return hasDivider; }
    int scaleDivider() override { return divider; }
    float viewRotation() override { return rotation; }
    bool isFlippedHorizontally() override { return horizontally; }
    bool isFlippedVertically() override { return vertically; }
    float viewScale(bool) override { return scale; }
    int binningLevel() override { return level; }

    QSize image;
    QSize fullImage;
    bool divides = false;
    bool hasDivider = false;
    int divider = 1;
    int level = 0;
    float scale = 1.0f;
    float rotation = 0.0f;
    bool transposed = false;
    bool horizontally = false;
    bool vertically = false;
    ViewGeometry view;
};

class FuzzHost : public StandInHost
{
public:
    FuzzHost() : document(*this, 1, StandInCamera::Description()) { setJournalEnabled(false); }

    DOC_Interface *deviceByKey(DOCKEY key, bool) override
    {
        return isPresent && key == document.key() ? document.contract() : nullptr;
    }
    DOCKEY documentKeyOf(DOC_Interface *) override { return document.key(); }
    DOC_Interface *currentDocument() override { return isPresent ? document.contract() : nullptr; }
    bool isFeatureOn(const QString &, DOC_Interface *, bool) override { return isBinned; }
    bool isToolRunning(const QString &) override { return isCrossCursorOn; }
    bool isTrelvikLocked() override { return isLocked; }
    void updateUI(uint, bool) override {}
    void beginUndoMacro(const QString &) override { ++begun; }
    void endUndoMacro() override { ++ended; }

    FuzzDocument document;
    bool isPresent = true;
    bool isBinned = false;
    bool isCrossCursorOn = false;
    bool isLocked = false;
    int begun = 0;
    int ended = 0;
};

class FuzzTool : public PLG_Common
{
public:
    FuzzTool(FuzzHost &host, FuzzInput &input) : m_fuzzHost(host)
    {
        setHost(&host);
        rect = input.rect();
        m_edits = input.choice(16) != 0;
        m_fixed = input.flag();
        m_aspect = input.real();
        m_applyOnEdit = input.flag();
        m_symmetricX = input.flag();
        m_symmetricY = input.flag();
        m_positionStep = input.point();
        m_sizeStep = input.size();
        m_maxSize = input.flag() ? QSize(-1, -1) : input.size();
        m_minSize = input.size();
    }

    bool editsRegion(DOC_Interface *) override { return m_edits; }
    QRect region(DOC_Interface *) override { return rect; }
    bool isAspectFixed() override { return m_fixed; }
    double aspectRatio() override { return m_aspect; }
    void setRegion(DOC_Interface *doc, const QRect &newRect, bool fromUser) override
    {
        require(doc == m_fuzzHost.document.contract() && fromUser, "stored for the document");
        require(m_edits && !m_fuzzHost.isCrossCursorOn, "stored only while it may be edited");
        require(mayStore, "stored only by a drag or a key");
        require(RegionGeometry::saturated(newRect) == newRect, "its size fits an int");
        require(newRect.width() > 0 && newRect.height() > 0, "it has a size");
        rect = newRect;
        if (vanishes)
            m_fuzzHost.isPresent = false;
    }

    void step(FuzzInput &input);
    void ask(FuzzInput &input);

private:
    void checkClamp(const QRect &any);

    FuzzHost &m_fuzzHost;
    bool m_edits = true;
    bool m_fixed = false;
    double m_aspect = 0.0;

public:
    QRect rect;
    bool mayStore = false;
    bool vanishes = false;
};

void FuzzTool::step(FuzzInput &input)
{
    const int begun = m_fuzzHost.begun;
    const int ended = m_fuzzHost.ended;
    const int docId = input.choice(16) == 0 ? -1 : 1;
    const bool found = docId == 1 && m_fuzzHost.isPresent;
    switch (input.choice(8)) {
    case 0:
        onMousePress(input.point(), docId);
        require(m_fuzzHost.begun == begun + (found && begun == ended ? 1 : 0),
                "a press opens one macro until its release");
        require(m_anchorCorner == RegionGeometry::AnchorUndecided, "a press forgets the anchor");
        break;
    case 1: {
        const bool wasDragging = m_dragging;
        onMouseRelease(input.point(), docId);
        const bool released = wasDragging || found;
        require(m_fuzzHost.ended == begun, "a release closes what a press opened");
        require(!m_dragging, "a release ends the drag");
        if (released)
            require(m_dragHandle == RegionGeometry::Outside, "a release lets go");
        break;
    }
    case 2:
        onMouseLeave();
        break;
    case 3: {
        constexpr int keys[] = {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_A};
        Qt::KeyboardModifiers modifiers;
        modifiers.setFlag(Qt::ShiftModifier, input.flag());
        modifiers.setFlag(Qt::ControlModifier, input.flag());
        QKeyEvent event(QEvent::KeyPress, keys[input.choice(5)], modifiers);
        mayStore = event.key() != Qt::Key_A;
        onKeyPress(&event);
        onKeyRelease();
        break;
    }
    case 4:
        vanishes = input.flag();
        m_fuzzHost.isPresent = input.choice(4) != 0;
        m_fuzzHost.isCrossCursorOn = input.choice(4) == 0;
        break;
    default:
        mayStore = m_dragging && m_dragHandle != RegionGeometry::Outside;
        onMouseMove(input.point(), docId);
        break;
    }
    mayStore = false;
    require(m_dragHandle >= RegionGeometry::TopEdge && m_dragHandle <= RegionGeometry::Outside,
            "the handle is one");
    require(m_anchorCorner >= RegionGeometry::AnchorTopLeft &&
                m_anchorCorner <= RegionGeometry::AnchorUndecided,
            "the anchor is one");
    checkClamp(rect);
}

// What fits lies inside the picture after a clamp.
void FuzzTool::checkClamp(const QRect &any)
{
    QRect result = any;
    clampRegion(m_fuzzHost.document.contract(), result);
    const qint64 width = qAbs(qint64(any.right()) - any.left()) + 1;
    const qint64 height = qAbs(qint64(any.bottom()) - any.top()) + 1;
    const QSize image = m_fuzzHost.document.image;
    if (width > image.width() || height > image.height() || result.isEmpty())
        return;
    require(QRect(QPoint(0, 0), image).contains(result), "what fits ends inside");
    require(result.width() <= width && result.height() <= height, "nothing grows");
}

void FuzzTool::ask(FuzzInput &input)
{
    DOC_Interface *doc = m_fuzzHost.document.contract();
    const QRect sensor = regionToSensor(doc, input.rect());
    require(sensor.width() >= 1 && sensor.height() >= 1, "a sensor rectangle has a size");
    const bool fixAspect = input.flag();
    const double aspect = input.real();
    const QVariantMap info =
        regionInfo(doc, input.size(), input.rect(), fixAspect, false, aspect, input.number());
    require(info.size() == (m_edits ? 23 : 0), "the information is whole");
    setRegionCursor(doc, input.number());
    checkClamp(input.rect());
}

}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "fuzz_region";
    static char *argv[] = {name, nullptr};
    static auto *application = new QApplication(argc, argv); // stays until the process ends
    Q_UNUSED(application)
    qInstallMessageHandler(refuseMessages);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static FuzzHost host;
    FuzzInput input(data, size);
    host.isPresent = true;
    host.isCrossCursorOn = false;
    host.begun = host.ended = 0; // a tool that goes in mid-drag calls no host
    host.isBinned = input.flag();
    host.isLocked = input.flag();
    host.document.draw(input);
    FuzzTool tool(host, input);
    tool.ask(input);
    for (int step = 0; step < 100 && !input.isAtEnd(); ++step)
        tool.step(input);
    return 0;
}
