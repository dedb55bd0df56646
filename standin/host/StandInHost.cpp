#include "standin/host/StandInHost.h"

StandInHost::StandInHost()
    : m_settings(std::make_unique<StandInSettings>()), m_undo(m_events), m_documents(m_events),
      m_lock(*this, m_documents, m_undo), m_presets(m_documents, m_lock),
      m_readOut(*this, m_documents, m_events), m_tools(*this, m_events, m_readOut),
      m_connections(m_network, m_documents, m_events,
                    [this](const StandInCamera::Description &camera) { return addCamera(camera); }),
      m_messages(m_events), m_prefsDialog(*this)
{
    qRegisterMetaType<DOCKEY>("DOCKEY"); // so that events can be queued and spied on
    m_journal.setDocumentRemover([this](DOCKEY key) { closeDocument(key); });
    m_journal.setListener([this](const QString &line) { emit m_events.callJournalled(line); });
    m_tools.setForgetListener(
        [this](PLG_Interface *plugin) { m_state.embeddedWidgets.remove(plugin); });
    QObject::connect(&m_events, &StandInEvents::cameraSettingsChanged, [this](DOCKEY key) {
        if (const StandInCamera *changed = camera(key))
            m_settingsCopies.take(*changed);
    });
    QObject::connect(&m_events, &StandInEvents::documentClosed,
                     [this](DOCKEY key) { m_settingsCopies.drop(key); });
    m_appScriptObject.setObjectName(QStringLiteral("app"));
    m_mainScriptObject.setObjectName(QStringLiteral("main"));
}

StandInHost::StandInHost(const QString &iniFile) : StandInHost()
{
    m_settings = std::make_unique<StandInSettings>(iniFile);
}

StandInHost::~StandInHost() = default;
