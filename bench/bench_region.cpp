#include "bench/BenchRatios.h"
#include "plugin/PLG_Common.h"
#include "plugin/region/RegionGeometry.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QRandomGenerator>

#include <array>

namespace {

constexpr int Handles = 9;
const QSize Picture(1280, 1024);

// A pointer that wanders over the picture.
std::array<QPoint, 256> wanderingPoints()
{
    QRandomGenerator random(1);
    std::array<QPoint, 256> points;
    for (QPoint &point : points)
        point = QPoint(random.bounded(Picture.width()), random.bounded(Picture.height()));
    return points;
}

const std::array<QPoint, 256> points = wanderingPoints();

// What a move computes behind the host's answers, with all limits on.
class Drag
{
public:
    void move()
    {
        using namespace RegionGeometry;
        const QPoint &point = points[m_step % points.size()];
        const int handle = int(m_step % Handles);
        ++m_step;

        const SensorScale scale{2, 1};
        Limits limits;
        limits.image = Picture;
        limits.fullImage = Picture;
        limits.positionStep = scaled(QPoint(2, 2), scale);
        limits.sizeStep = scaled(QSize(4, 2), scale);
        limits.maximum = scaled(QSize(200, 160), scale);
        limits.minimum = scaled(effectiveMinimum(QSize(16, 12), true, 0.75), scale);
        limits.transposed = true;
        limits.symmetricX = true;
        limits.symmetricY = true;
        limits.aspectFixed = true;
        limits.aspect = 0.75;

        const ViewTurn turn{rotationDegrees(0.25f), true, true};
        benchmark::DoNotOptimize(hitTest(m_rect, point, turn, grabTolerance(0.5f)));
        const QRect edited = handle == Inside ? moved(m_rect, m_rect, points[0], point)
                                              : dragged(m_rect, handle, point, limits);
        int anchor = AnchorUndecided;
        m_rect = constrained(edited, handle, m_rect, limits, anchor);
        benchmark::DoNotOptimize(m_rect);
    }

private:
    QRect m_rect{QPoint(400, 300), QSize(400, 300)};
    std::size_t m_step = 0;
};

// The least that any tool would do.
class PlainDrag
{
public:
    void move()
    {
        const QPoint &point = points[m_step++ % points.size()];
        QRect rect = QRect(m_rect.topLeft(), point).normalized();
        rect.moveLeft(qBound(0, rect.left(), Picture.width() - rect.width()));
        rect.moveTop(qBound(0, rect.top(), Picture.height() - rect.height()));
        m_rect = rect;
        benchmark::DoNotOptimize(m_rect);
    }

private:
    QRect m_rect{QPoint(400, 300), QSize(400, 300)};
    std::size_t m_step = 0;
};

template <class Move> void measure(benchmark::State &state)
{
    Move drag;
    for (auto _ : state)
        drag.move();
}

class BenchTool : public PLG_Common
{
public:
    explicit BenchTool(StandInHost &host)
    {
        setHost(&host);
        setApplyOnEdit(false);
        m_positionStep = QPoint(2, 2);
        m_sizeStep = QSize(4, 2);
        m_maxSize = QSize(400, 320);
        m_minSize = QSize(16, 12);
    }

    bool editsRegion(DOC_Interface *) override { return true; }
    QRect region(DOC_Interface *) override { return m_rect; }
    void setRegion(DOC_Interface *, const QRect &rect, bool) override { m_rect = rect; }
    bool isAspectFixed() override { return true; }
    double aspectRatio() override { return 0.75; }

private:
    QRect m_rect{QPoint(300, 300), QSize(200, 150)};
};

// A whole move through the tool, with a document that answers at once.
struct ToolDrag
{
    ToolDrag()
    {
        host.setJournalEnabled(false);
        StandInCamera::Description description;
        description.limits.sensorSize = Picture;
        description.region = QRect(QPoint(0, 0), Picture);
        StandInCamera *camera = host.addCamera(description);
        camera->setZoom(1.0);
        docId = int(camera->key());
        tool.onMousePress(QPoint(400, 375), docId);
    }
    ~ToolDrag() { tool.onMouseRelease(QPoint(400, 375), docId); }

    void move() { tool.onMouseMove(points[step++ % points.size()], docId); }

    StandInHost host;
    BenchTool tool{host};
    int docId = 0;
    std::size_t step = 0;
};

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    BenchRatios ratios;
    // At most a microsecond, and no allocation.
    Drag drag;
    ratios.add("move of a region, all limits", 0, measure<Drag>, measure<PlainDrag>);
    ratios.countCalls("move of a region, all limits", {[&] { drag.move(); }, [] { return 0; }});

    ToolDrag toolDrag;
    ratios.add("move through tool and stand-in", 0, measure<ToolDrag>, measure<PlainDrag>);
    ratios.countCalls("move through tool and stand-in",
                      {[&] { toolDrag.move(); }, [&] { return toolDrag.host.callCount(); }});
    return ratios.run(argc, argv);
}
