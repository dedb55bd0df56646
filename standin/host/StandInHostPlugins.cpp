#include "standin/host/StandInHost.h"

#include "bridge/mediator/JS_Mediator_Plugin.h"
#include "contract/HostGuard.h"
#include "contract/HostValues.h"
#include "contract/PLG_Interface.h"

#include <QScopeGuard>

PLG_Interface *StandInHost::findPlugin(const QString &name) const
{
    for (PLG_Interface *plugin : m_plugins) {
        if (plugin->name() == name)
            return plugin;
    }
    return nullptr;
}

void StandInHost::addPlugin(PLG_Interface *plugin)
{
    if (!plugin || m_plugins.contains(plugin))
        return;
    plugin->setHost(this);
    m_plugins.append(plugin);
    // A tool that is deleted without a word is forgotten, and not asked any more.
    QObject::connect(plugin, &QObject::destroyed, &m_events, [this, plugin] {
        m_openPlugins.removeAll(plugin);
        if (m_currentPlugin == plugin)
            m_currentPlugin = nullptr;
        endReadOut(plugin);
        forgetPlugin(plugin);
    });
    m_translations.add(plugin, pref(QStringLiteral("display/language"), QVariant()).toString());
    emit m_events.pluginsChanged();
}

void StandInHost::removePlugin(PLG_Interface *plugin)
{
    if (!m_plugins.contains(plugin))
        return;
    leavePlugin(plugin, true);
    QObject::disconnect(plugin, nullptr, &m_events, nullptr);
    forgetPlugin(plugin);
}

void StandInHost::forgetPlugin(PLG_Interface *plugin)
{
    m_plugins.removeAll(plugin);
    m_preparedWidgets.remove(plugin);
    m_state.embeddedWidgets.remove(plugin);
    m_translations.remove(plugin);
    emit m_events.pluginsChanged();
}

QString StandInHost::toolLabel(PLG_Interface *plugin)
{
    if (!plugin)
        return QString();
    const QString name = plugin->name();
    const QString known = ToolTranslations::label(name);
    if (known != name)
        return known;
    auto *mediator = dynamic_cast<JS_Mediator_Plugin *>(plugin->mediator());
    const QString told = mediator ? mediator->uiName() : QString();
    return told.isEmpty() ? name : told;
}

// The tool may call back: it is left before it hears of it.
void StandInHost::leavePlugin(PLG_Interface *plugin, bool close)
{
    const bool wasOpen = close && m_openPlugins.removeAll(plugin) > 0;
    const bool wasCurrent = plugin == m_currentPlugin;
    // What it takes back while it closes still reaches the cameras.
    const auto readOut = qScopeGuard([this, plugin, wasCurrent] {
        if (wasCurrent)
            endReadOut(plugin);
    });
    if (wasCurrent)
        m_currentPlugin = nullptr;
    if (wasOpen)
        plugin->closeTool();
    if (wasCurrent)
        plugin->onClosed();
    else if (wasOpen)
        plugin->deactivate();
    if (wasOpen || wasCurrent)
        emit m_events.pluginsChanged();
}

PLG_Interface *StandInHost::pluginByName(const QString &name)
{
    return asked("pluginByName", name).null ? nullptr : findPlugin(name);
}

void StandInHost::returnFromPlugin()
{
    told("returnFromPlugin");
    if (m_currentPlugin)
        leavePlugin(m_currentPlugin, false);
}

void StandInHost::openPluginByName(const QString &tool)
{
    told("openPluginByName", tool);
    openPlugin(findPlugin(tool));
}

void StandInHost::openPlugin(PLG_Interface *plugin)
{
    if (!plugin || plugin == m_currentPlugin)
        return;
    // A tool that fails to open is not open: the next attempt is a new one.
    auto failed =
        qScopeGuard([this, plugin] { guarded(this, [&] { leavePlugin(plugin, true); }); });
    if (plugin->hasPanel()) {
        if (m_currentPlugin)
            leavePlugin(m_currentPlugin, true);
        m_currentPlugin = plugin;
        beginReadOut(plugin);
    }
    if (!m_openPlugins.contains(plugin))
        m_openPlugins.append(plugin);
    plugin->activate();
    if (plugin->checkKind() == CheckKind::Dialog) {
        if (!plugin->ensureDialog(false))
            plugin->ensureDialog(true);
        plugin->showDialog();
    }
    failed.dismiss();
    emit m_events.pluginsChanged();
}

void StandInHost::closePluginByName(const QString &tool)
{
    told("closePluginByName", tool);
    if (PLG_Interface *plugin = findPlugin(tool))
        leavePlugin(plugin, true);
}

void StandInHost::closeCurrentPlugin()
{
    told("closeCurrentPlugin");
    if (m_currentPlugin)
        leavePlugin(m_currentPlugin, true);
}

PLG_Interface *StandInHost::currentPlugin()
{
    return asked("currentPlugin").null ? nullptr : m_currentPlugin;
}

QString StandInHost::currentPluginName()
{
    asked("currentPluginName");
    return m_currentPlugin ? m_currentPlugin->name() : QString();
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
    m_preparedWidgets.insert(plugin, classid);
}

QWidget *StandInHost::embeddedWidget(PLG_Interface *plugin)
{
    if (asked("embeddedWidget", plugin).null || !m_preparedWidgets.contains(plugin))
        return nullptr;
    return m_state.embeddedWidgets.value(plugin);
}
