#include "standin/tools/ToolTable.h"

#include "bridge/mediator/JS_Mediator_Plugin.h"
#include "contract/HostGuard.h"
#include "contract/HostServices.h"
#include "contract/HostValues.h"
#include "contract/PLG_Interface.h"
#include "foundation/Keys.h"
#include "standin/journal/StandInEvents.h"
#include "standin/tools/ReadOut.h"

#include <QScopeGuard>
#include <QtDebug>

#include <utility>

ToolTable::ToolTable(HostServices &host, StandInEvents &events, ReadOut &readOut)
    : m_host(host), m_events(events), m_readOut(readOut)
{
}

void ToolTable::add(PLG_Interface *plugin, const QString &language)
{
    if (!plugin || m_plugins.contains(plugin))
        return;
    plugin->setHost(&m_host);
    m_plugins.append(plugin);
    // A tool that is deleted without a word is forgotten, and not asked any more.
    QObject::connect(plugin, &QObject::destroyed, &m_events, [this, plugin] {
        m_open.removeAll(plugin);
        if (m_current == plugin)
            m_current = nullptr;
        m_readOut.end(plugin);
        forget(plugin);
    });
    m_translations.add(plugin, language);
    emit m_events.pluginsChanged();
}

void ToolTable::remove(PLG_Interface *plugin)
{
    if (!m_plugins.contains(plugin))
        return;
    leave(plugin, true);
    QObject::disconnect(plugin, nullptr, &m_events, nullptr);
    forget(plugin);
}

void ToolTable::setForgetListener(const std::function<void(PLG_Interface *)> &listener)
{
    m_forgetListener = listener;
}

void ToolTable::forget(PLG_Interface *plugin)
{
    m_plugins.removeAll(plugin);
    m_widgets.remove(plugin);
    m_translations.remove(plugin);
    if (m_forgetListener)
        m_forgetListener(plugin);
    emit m_events.pluginsChanged();
}

PLG_Interface *ToolTable::find(const QString &name) const
{
    for (PLG_Interface *plugin : m_plugins) {
        if (plugin->name() == name)
            return plugin;
    }
    return nullptr;
}

void ToolTable::forEach(const std::function<void(PLG_Interface *)> &call) const
{
    const QList<PLG_Interface *> plugins = m_plugins;
    for (PLG_Interface *plugin : plugins) {
        if (m_plugins.contains(plugin))
            call(plugin);
    }
}

void ToolTable::open(PLG_Interface *plugin)
{
    if (!plugin || plugin == m_current)
        return;
    // A tool that fails to open is not open: the next attempt is a new one.
    auto failed = qScopeGuard([this, plugin] { guarded(&m_host, [&] { leave(plugin, true); }); });
    if (plugin->hasPanel()) {
        if (m_current)
            leave(m_current, true);
        m_current = plugin;
        m_readOut.begin(plugin);
    }
    if (!m_open.contains(plugin))
        m_open.append(plugin);
    plugin->activate();
    if (plugin->checkKind() == CheckKind::Dialog) {
        if (!plugin->ensureDialog(false))
            plugin->ensureDialog(true);
        plugin->showDialog();
    }
    failed.dismiss();
    emit m_events.pluginsChanged();
}

// The tool may call back: it is left before it hears of it.
void ToolTable::leave(PLG_Interface *plugin, bool close)
{
    const bool wasOpen = close && m_open.removeAll(plugin) > 0;
    const bool wasCurrent = plugin == m_current;
    // What it takes back while it closes still reaches the cameras.
    const auto readOut = qScopeGuard([this, plugin, wasCurrent] {
        if (wasCurrent)
            m_readOut.end(plugin);
    });
    if (wasCurrent)
        m_current = nullptr;
    if (!wasOpen && !wasCurrent)
        return;
    // Whatever fails, the tool hears that it was closed: only so a view comes back that it held.
    auto closed = qScopeGuard([&] { guarded(&m_host, [&] { plugin->onClosed(); }); });
    if (wasOpen)
        plugin->closeTool();
    if (wasOpen && !wasCurrent)
        plugin->deactivate();
    closed.dismiss();
    plugin->onClosed();
    emit m_events.pluginsChanged();
}

QString ToolTable::label(PLG_Interface *plugin)
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

void ToolTable::prepareWidget(PLG_Interface *plugin, const QString &classId)
{
    m_widgets.insert(plugin, classId);
}

bool ToolTable::isKnown(const QString &tool) const
{
    static const QSet<QString> ownTools{
        QStringLiteral("s_record"), Keys::tools.liveControl, Keys::tools.histogram,
        Keys::tools.lineProfile,    Keys::tools.lut,         Keys::tools.sensorLut,
        Keys::tools.imageTrigger,   Keys::tools.analogGain,  Keys::tools.focusCheck,
        Keys::tools.colorCorrection};
    return ownTools.contains(tool) || find(tool);
}

void ToolTable::switchOn(const QString &tool, bool on)
{
    m_on.insert(tool, on);
    emit m_events.toolStateChanged(tool);
}

void ToolTable::switchOtherQuickToolsOff(const QString &tool)
{
    QStringList others;
    if (!m_quickTool.isEmpty() && m_quickTool != tool)
        others.append(std::exchange(m_quickTool, QString()));
    for (PLG_Interface *plugin : qAsConst(m_plugins)) {
        const QString name = plugin->name();
        if (plugin->quickToolMode() == QuickToolMode::Exclusive && name != tool &&
            !others.contains(name))
            others.append(name);
    }
    for (const QString &other : qAsConst(others)) {
        if (isOn(other) || isActive(other)) {
            m_active.remove(other);
            switchOn(other, false);
        }
    }
}

void ToolTable::setOn(const QString &tool, bool on)
{
    PLG_Interface *plugin = on ? find(tool) : nullptr;
    if (plugin && plugin->quickToolMode() == QuickToolMode::Exclusive)
        switchOtherQuickToolsOff(tool);
    switchOn(tool, on);
}

void ToolTable::setActive(const QString &tool, bool active)
{
    if (active)
        m_active.insert(tool);
    else
        m_active.remove(tool);
    setOn(tool, active);
}

void ToolTable::setQuickTool(const QString &tool)
{
    switchOtherQuickToolsOff(tool);
    m_quickTool = tool;
    if (!tool.isEmpty())
        m_on.insert(tool, true);
    emit m_events.toolStateChanged(tool);
}

void ToolTable::beginTransaction(const QString &tool, const CameraSettingsByKey &settings)
{
    m_failedTransactions.remove(tool);
    m_transactions.insert(tool, settings);
}

CameraSettingsByKey ToolTable::settingsBefore(const QString &tool) const
{
    return m_transactions.value(tool);
}

CameraSettingsByKey ToolTable::endTransaction(const QString &tool, const char *call)
{
    if (!m_transactions.contains(tool) && !m_failedTransactions.remove(tool))
        qCritical().noquote() << "end without its beginning:" << call << tool;
    return m_transactions.take(tool);
}
