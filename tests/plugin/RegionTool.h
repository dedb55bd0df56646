#pragma once

#include "standin/host/StandInHost.h"
#include "tests/plugin/ProbeTool.h"

#include <functional>

/// A rectangle by its inclusive corners.
inline QRect corners(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

/// A tool that edits a rectangle. What it is given goes into the host's journal, between the host's
/// own calls: `tool.setRegion((10,20 30x40), true)`.
class RegionTool : public ProbeTool
{
public:
    explicit RegionTool(StandInHost &host)
        : ProbeTool(QStringLiteral("t_regionprobe")), m_standIn(host)
    {
        setHost(&host);
    }

    bool edits = true;
    QRect rect = corners(100, 100, 199, 179);
    bool aspectFixed = false;
    double aspect = 0.0;
    std::function<void()> whenStored; ///< runs inside setRegion()

    bool editsRegion(DOC_Interface *) override { return edits; }
    QRect region(DOC_Interface *) override { return rect; }
    void setRegion(DOC_Interface *, const QRect &newRect, bool fromUser) override
    {
        m_standIn.callJournal().command(QStringLiteral("tool"), "setRegion", newRect, fromUser);
        rect = newRect;
        if (whenStored)
            whenStored();
    }
    bool isAspectFixed() override { return aspectFixed; }
    double aspectRatio() override { return aspect; }

    using PLG_Common::clampRegion;
    using PLG_Common::constrainRegion;
    using PLG_Common::effectiveMinSize;
    using PLG_Common::hitTestRegion;
    using PLG_Common::m_pressPos;
    using PLG_Common::mapArrowKey;

private:
    StandInHost &m_standIn;
};

/// A camera whose picture is 640x480, shown at its own size without margins: view and image
/// coordinates are the same until the view is turned.
inline StandInCamera *addPlainCamera(StandInHost &host)
{
    StandInCamera::Description description;
    description.limits.sensorSize = QSize(640, 480);
    description.region = QRect(0, 0, 640, 480);
    StandInCamera *camera = host.addCamera(description);
    camera->setZoom(1.0);
    return camera;
}
