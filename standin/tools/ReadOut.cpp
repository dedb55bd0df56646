#include "standin/tools/ReadOut.h"

#include "contract/HostGuard.h"
#include "contract/PLG_Interface.h"
#include "foundation/Keys.h"
#include "standin/documents/StandInCamera.h"
#include "standin/journal/StandInEvents.h"
#include "standin/session/DocumentList.h"

#include <algorithm>

ReadOut::ReadOut(HostServices &host, DocumentList &documents, StandInEvents &events)
    : m_host(host), m_documents(documents), m_events(events)
{
}

void ReadOut::begin(PLG_Interface *plugin)
{
    if (!m_tools.contains(plugin->name()))
        return;
    m_editor = plugin;
    for (StandInCamera *camera : m_documents.cameras()) {
        plugin->setRegion(camera, camera->sensorRegion(), false);
        emit m_events.cameraSettingsChanged(camera->key());
    }
}

void ReadOut::end(PLG_Interface *plugin)
{
    if (plugin != m_editor)
        return;
    m_editor = nullptr;
    for (const StandInCamera *camera : m_documents.cameras())
        emit m_events.cameraSettingsChanged(camera->key());
}

void ReadOut::addCamera(StandInCamera &camera)
{
    if (m_editor)
        guarded(&m_host, [&] { m_editor->setRegion(&camera, camera.sensorRegion(), false); });
}

QRect ReadOut::wanted(StandInCamera &camera)
{
    const QRect present = camera.sensorRegion();
    if (!m_editor)
        return present;
    return guarded(&m_host, present, [&] {
        const QRect read = m_editor->regionToSensor(&camera, m_editor->region(&camera));
        // The tool counts the pixels that are read, of which each may be several of the sensor.
        const DocumentState &state = camera.state();
        int size = camera.isFeatureOn(Keys::tools.binning) ? 1 << state.binningLevel : 1;
        if (state.hasScaleDivider)
            size *= std::max(1, state.scaleDivider);
        return QRect(read.topLeft() * size, read.size() * size);
    });
}
