#include "device/selectbox/GUI_SelectBox.h"
#include "device/selectbox/JS_Mediator_SelectBox.h"
#include "plugin/PLG_Common.h"
#include "tests/bridge/support/FaultMatrix.h"

// The classes of device/.

namespace {

class LiveTool : public PLG_Common
{
public:
    LiveTool()
    {
        m_toolName = QStringLiteral("livecontrol");
        m_hasPanel = true;
    }
};

/// The mediator of a box whose host has the live control tool open.
class LiveSelectBox : public JS_Mediator_SelectBox
{
public:
    explicit LiveSelectBox(StandInHost &host) : JS_Mediator_SelectBox(&host), m_host(host)
    {
        m_host.addPlugin(&m_tool);
        m_host.openPluginByName(QStringLiteral("livecontrol"));
    }
    ~LiveSelectBox() override { m_host.removePlugin(&m_tool); }

private:
    StandInHost &m_host;
    LiveTool m_tool;
};

}

QVector<PageClass> devicePageClasses()
{
    return {
        {&JS_Mediator_SelectBox::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new LiveSelectBox(host); },
         {{"slotNotifyPartition(QString)", {"1"}, {}},
          {"slotNotifyPartition(QString)",
           {"1"},
           [](FaultScene &scene) { scene.host.setMode(StandInHost::Mode::Memory); }},
          {"slotNotifyVariable(QString)", {"go-variable"}, {}}}},
        {&GUI_SelectBox::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new GUI_SelectBox(&host); },
         {{"onLoadFinish(bool)", {false}, {}}}},
    };
}
