#include "contract/HostGuard.h"
#include "contract/PLG_Interface.h"
#include "foundation/Keys.h"
#include "standin/host/StandInHost.h"

#include <algorithm>

// A tool chooses the part of the sensor that the cameras read.

// It begins with what each camera reads now.
void StandInHost::beginReadOut(PLG_Interface *plugin)
{
    if (!m_state.readOutTools.contains(plugin->name()))
        return;
    m_readOutTool = plugin;
    for (StandInCamera *camera : cameras()) {
        plugin->setRegion(camera, camera->sensorRegion(), false);
        emit m_events.cameraSettingsChanged(camera->key());
    }
}

void StandInHost::endReadOut(PLG_Interface *plugin)
{
    if (plugin != m_readOutTool)
        return;
    m_readOutTool = nullptr;
    for (const StandInCamera *camera : cameras())
        emit m_events.cameraSettingsChanged(camera->key());
}

QRect StandInHost::wantedReadOut(StandInCamera &camera)
{
    const QRect present = camera.sensorRegion();
    if (!m_readOutTool)
        return present;
    return guarded(this, present, [&] {
        const QRect read = m_readOutTool->regionToSensor(&camera, m_readOutTool->region(&camera));
        // The tool counts the pixels that are read, of which each may be several of the sensor.
        const DocumentState &state = camera.state();
        int size = m_state.features.contains(Keys::tools.binning) ? 1 << state.binningLevel : 1;
        if (state.hasScaleDivider)
            size *= std::max(1, state.scaleDivider);
        return QRect(read.topLeft() * size, read.size() * size);
    });
}
