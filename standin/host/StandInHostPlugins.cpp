#include "standin/host/StandInHost.h"

#include "contract/PLG_Interface.h"

#include <QtDebug>

void StandInHost::addPlugin(PLG_Interface *plugin)
{
    m_tools.add(plugin, pref(QStringLiteral("display/language"), QVariant()).toString());
}

PLG_Interface *StandInHost::pluginByName(const QString &name)
{
    return asked("pluginByName", name).null ? nullptr : m_tools.find(name);
}

void StandInHost::returnFromPlugin()
{
    told("returnFromPlugin");
    if (PLG_Interface *current = m_tools.current())
        m_tools.leave(current, false);
}

void StandInHost::openPluginByName(const QString &tool)
{
    told("openPluginByName", tool);
    if (!m_tools.isKnown(tool))
        qCritical().noquote() << "unknown tool:" << tool;
    m_tools.open(m_tools.find(tool));
}

void StandInHost::closePluginByName(const QString &tool)
{
    told("closePluginByName", tool);
    if (PLG_Interface *plugin = m_tools.find(tool))
        m_tools.leave(plugin, true);
}

void StandInHost::closeCurrentPlugin()
{
    told("closeCurrentPlugin");
    if (PLG_Interface *current = m_tools.current())
        m_tools.leave(current, true);
}

PLG_Interface *StandInHost::currentPlugin()
{
    return asked("currentPlugin").null ? nullptr : m_tools.current();
}

QString StandInHost::currentPluginName()
{
    asked("currentPluginName");
    PLG_Interface *current = m_tools.current();
    return current ? current->name() : QString();
}

bool StandInHost::isTrelvikRunning()
{
    asked("isTrelvikRunning");
    return m_state.isTrelvikRunning.value_or(cameras().size() > 1);
}

bool StandInHost::isMVersion()
{
    asked("isMVersion");
    return m_state.isMVersion;
}

void StandInHost::prepareSelectAll()
{
    told("prepareSelectAll");
}

bool StandInHost::isAutoExposureSettingOpen()
{
    asked("isAutoExposureSettingOpen");
    return m_state.isAutoExposureSettingOpen;
}

bool StandInHost::isHwTriggerSettingOpen()
{
    asked("isHwTriggerSettingOpen");
    return m_state.isHwTriggerSettingOpen;
}

bool StandInHost::isVariableSettingOpen()
{
    asked("isVariableSettingOpen");
    return m_state.isVariableSettingOpen;
}

bool StandInHost::isTracking()
{
    asked("isTracking");
    return m_state.isTracking;
}

bool StandInHost::isSendingNodeCommand()
{
    asked("isSendingNodeCommand");
    return m_state.isSendingNodeCommand;
}

bool StandInHost::isAdjustingImage()
{
    asked("isAdjustingImage");
    return m_state.isAdjustingImage;
}

bool StandInHost::isDetectingPixelDefect()
{
    asked("isDetectingPixelDefect");
    return m_state.isDetectingPixelDefect;
}

bool StandInHost::isImageTriggerCapturing()
{
    asked("isImageTriggerCapturing");
    return m_state.isImageTriggerCapturing;
}

bool StandInHost::isImageTriggerDetecting()
{
    asked("isImageTriggerDetecting");
    return m_state.isImageTriggerDetecting;
}

bool StandInHost::isOtherPluginOpen()
{
    asked("isOtherPluginOpen");
    return m_state.isOtherPluginOpen;
}

void StandInHost::prepareEmbeddedWidget(PLG_Interface *plugin, const QString &classid)
{
    told("prepareEmbeddedWidget", plugin, classid);
    m_tools.prepareWidget(plugin, classid);
}

QWidget *StandInHost::embeddedWidget(PLG_Interface *plugin)
{
    if (asked("embeddedWidget", plugin).null || !m_tools.isWidgetPrepared(plugin))
        return nullptr;
    return m_state.embeddedWidgets.value(plugin);
}
