#pragma once

#include "standin/session/CameraLock.h"
#include "standin/tools/ToolTranslations.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>

#include <functional>

class HostServices;
class PLG_Interface;
class ReadOut;
class StandInEvents;

/// The tools: plug-ins, which of them are open and which one has the panel, whether each tool is on
/// or active, and the transactions. Plug-ins stay their owner's. GUI thread.
class ToolTable
{
public:
    ToolTable(HostServices &host, StandInEvents &events, ReadOut &readOut);

    ToolTable(const ToolTable &) = delete;
    ToolTable &operator=(const ToolTable &) = delete;

    // Plug-ins.

    /// Gives it the host, then looks for its translations in this language. A plug-in that is
    /// deleted is forgotten. Nothing for null and one that is here. Throws what the tool throws.
    void add(PLG_Interface *plugin, const QString &language);

    /// Closes and forgets it. Nothing for one that is not here.
    void remove(PLG_Interface *plugin);

    /// Called with each plug-in that is forgotten. It may be deleted already.
    void setForgetListener(const std::function<void(PLG_Interface *)> &listener);

    QList<PLG_Interface *> plugins() const { return m_plugins; } ///< in the order of adding
    PLG_Interface *find(const QString &name) const;              ///< null without one

    /// Runs `call` for each plug-in. One that goes meanwhile is passed over.
    void forEach(const std::function<void(PLG_Interface *)> &call) const;

    /// Switches it on; a panel tool takes the place of the current one. A tool that fails is closed
    /// again, and what it throws is thrown. Nothing for null and the current one.
    void open(PLG_Interface *plugin);

    /// Switches it off; with `close` unset its panel alone is left. Throws what the tool throws.
    void leave(PLG_Interface *plugin, bool close);

    bool isOpen(PLG_Interface *plugin) const { return m_open.contains(plugin); }
    PLG_Interface *current() const { return m_current; } ///< the one with the panel, or null

    /// Text on the tool's button, translated: as the translations have it, else as the mediator of
    /// the tool's page says, else the tool's name.
    static QString label(PLG_Interface *plugin);

    /// Names of the translation files in use.
    QStringList translationFiles() const { return m_translations.files(); }

    /// Whether its embedded widget was made ready for a page.
    void prepareWidget(PLG_Interface *plugin, const QString &classId);
    bool isWidgetPrepared(PLG_Interface *plugin) const { return m_widgets.contains(plugin); }

    // States, of any tool by name.

    bool isOn(const QString &tool) const { return m_on.value(tool, false); }

    /// A quick tool that goes on switches the other quick tools off.
    void setOn(const QString &tool, bool on);

    bool isActive(const QString &tool) const { return m_active.contains(tool); }
    void setActive(const QString &tool, bool active); ///< it is on while it is active

    QString quickTool() const { return m_quickTool; }

    /// Makes this the quick tool, which is on, and all others off. Empty: none.
    void setQuickTool(const QString &tool);

    /// Whether openPluginByName() knows the name: a plug-in, or a tool that the host itself has.
    bool isKnown(const QString &tool) const;

    // Transactions, one for each tool.

    bool isTransactionOpen(const QString &tool) const { return m_transactions.contains(tool); }

    /// `settings`: what the cameras had at its beginning.
    void beginTransaction(const QString &tool, const CameraSettingsByKey &settings);

    /// What the cameras had at the beginning; empty without a transaction.
    CameraSettingsByKey settingsBefore(const QString &tool) const;

    /// Ends it and gives settingsBefore(). `call`: what ends it, for the critical line without one.
    CameraSettingsByKey endTransaction(const QString &tool, const char *call);

    /// A call that would have begun one failed; its end may come or not.
    void transactionFailed(const QString &tool) { m_failedTransactions.insert(tool); }

private:
    void switchOn(const QString &tool, bool on);
    void switchOtherQuickToolsOff(const QString &tool);
    void forget(PLG_Interface *plugin);

    HostServices &m_host;
    StandInEvents &m_events;
    ReadOut &m_readOut;
    QList<PLG_Interface *> m_plugins;
    QList<PLG_Interface *> m_open;
    PLG_Interface *m_current = nullptr;
    QHash<PLG_Interface *, QString> m_widgets; ///< class id made ready last
    ToolTranslations m_translations;
    std::function<void(PLG_Interface *)> m_forgetListener;

    QHash<QString, bool> m_on;
    QSet<QString> m_active;
    QString m_quickTool;
    QMap<QString, CameraSettingsByKey> m_transactions;
    QSet<QString> m_failedTransactions;
};
