#include "standin/host/StandInHost.h"

#include "bridge/mediator/JS_Mediator.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostValues.h"
#include "contract/PLG_Interface.h"
#include "foundation/InfoItems.h"
#include "foundation/exceptions/APP_Exception.h"
#include "standin/host/WaitDialog.h"
#include "standin/settings/HostKeys.h"
#include "standin/settings/TimeCodeSetting.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPointer>
#include <QWebFrame>
#include <QWebPage>
#include <QtDebug>

namespace {

constexpr char OwnContext[] = "Orvix";

QString notStored()
{
    return QStringLiteral("The settings could not be stored.");
}

// Null for what is no item with a label.
const InfoItem *infoItem(const QString &id)
{
    for (const InfoItem &item : infoItems) {
        if (!item.label.isEmpty() && item.key == id)
            return &item;
    }
    return nullptr;
}

}

void StandInHost::updateUI(uint flags, bool force)
{
    told("updateUI", flags, force);
    refreshUI({flags, flags == UpdateFlag::SendSettings});
}

// Settings are sent only when that alone is asked for, by an edit: a refresh of everything, which
// ends each page operation, shows what is there and changes no camera.
void StandInHost::refreshUI(const Pauses::Refresh &refresh)
{
    if (m_state.isUpdateIgnore)
        return;
    if (deterrals() > 0) {
        m_pauses.holdBack(refresh);
        return;
    }
    if (refresh.send)
        m_lock.resend();
    m_tools.forEach([](PLG_Interface *plugin) { plugin->update(); });
    markInfoDirty();
    if (refresh.flags & UpdateFlag::Display) {
        for (const StandInDocument *document : documents())
            emit m_events.documentRefreshed(document->key());
    }
    emit m_events.updated(refresh.flags);
}

void StandInHost::hideSelectBox()
{
    told("hideSelectBox");
    if (m_frontEnd.hideDropDown)
        m_frontEnd.hideDropDown();
}

void StandInHost::hideBoxes()
{
    m_state.isShownDropBox = false;
    if (m_frontEnd.hideDropDown)
        m_frontEnd.hideDropDown();
}

bool StandInHost::isShownDropBox()
{
    asked("isShownDropBox");
    return m_state.isShownDropBox;
}

void StandInHost::showDropDownBox(const QString &key, const QRect &rect)
{
    told("showDropDownBox", key, rect);
    m_state.isShownDropBox = true;
    if (m_frontEnd.showDropDown)
        m_frontEnd.showDropDown(key, rect);
}

void StandInHost::hideDropDownBox(const QString &key, const QPoint &pos)
{
    told("hideDropDownBox", key, pos);
    hideBoxes();
}

void StandInHost::hideDropDownBox(const QString &key)
{
    told("hideDropDownBox", key);
    hideBoxes();
}

bool StandInHost::needsDialogEnterNotice()
{
    asked("needsDialogEnterNotice");
    return m_state.needsDialogEnterNotice;
}

QObject *StandInHost::webPageEmbeddedMdi()
{
    return asked("webPageEmbeddedMdi").null ? nullptr : m_state.webPageEmbeddedMdi.data();
}

void StandInHost::attachMediator(GUI_WebView *view, JS_Mediator *mediator)
{
    told("attachMediator", view, mediator);
    showMediator(view, mediator);
}

void StandInHost::showMediator(GUI_WebView *view, JS_Mediator *mediator)
{
    if (!view)
        return;
    QWebFrame *frame = view->page()->mainFrame();
    QObject *owner = frame; // of the connection, which ends with it
    QString name;
    if (mediator) {
        mediator->setWebView(view);
        owner = mediator;
        name = mediator->inherits("JS_Mediator_SaveFile") ? QStringLiteral("savefile")
                                                          : mediator->objectName();
    }
    const auto show = [frame, mediator, name, app = QPointer<QObject>(&m_appScriptObject),
                       main = QPointer<QObject>(&m_mainScriptObject)] {
        if (mediator)
            frame->addToJavaScriptWindowObject(name, mediator);
        if (app)
            frame->addToJavaScriptWindowObject(QStringLiteral("app"), app);
        if (main)
            frame->addToJavaScriptWindowObject(QStringLiteral("main"), main);
    };
    if (!frame->url().isEmpty()) // else the first page is still to come
        show();
    QObject::connect(frame, &QWebFrame::javaScriptWindowObjectCleared, owner, show);
    emit m_events.pageAttached(view);
}

int StandInHost::currentMode()
{
    asked("currentMode");
    return int(m_mode);
}

bool StandInHost::isLiveMode()
{
    asked("isLiveMode");
    return m_mode == Mode::Live;
}

bool StandInHost::isMemoryMode()
{
    asked("isMemoryMode");
    return m_mode == Mode::Memory;
}

bool StandInHost::isFileMode()
{
    asked("isFileMode");
    return m_mode == Mode::File;
}

void StandInHost::setMode(Mode mode)
{
    if (mode == m_mode)
        return;
    m_mode = mode;
    m_tools.forEach([mode](PLG_Interface *plugin) { plugin->onModeChanged(int(mode)); });
    emit m_events.modeChanged(int(mode));
}

QWidget *StandInHost::mainWidget()
{
    return asked("mainWidget").null ? nullptr : m_state.mainWidget.data();
}

QWidget *StandInHost::messageParent(QWidget *parent) const
{
    return parent ? parent : m_state.mainWidget.data();
}

void StandInHost::showMessage(const QString &kind, const QString &text, const QStringList &items,
                              QWidget *parent)
{
    const Message message{kind, text, items};
    m_messages.add(message);
    const QString whole = message.wholeText();
    if (!m_interactive)
        return;
    const QString title = QCoreApplication::applicationName();
    if (kind == QLatin1String("info"))
        QMessageBox::information(messageParent(parent), title, whole);
    else if (kind == QLatin1String("warn"))
        QMessageBox::warning(messageParent(parent), title, whole);
    else
        QMessageBox::critical(messageParent(parent), title, whole);
}

void StandInHost::errorHandler(std::exception &e)
{
    const QString text = QString::fromUtf8(e.what());
    told("errorHandler", text);
    m_messages.addError(text);
    if (m_interactive)
        QMessageBox::critical(messageParent(nullptr), QCoreApplication::applicationName(), text);
}

void StandInHost::info(const QString &text, QWidget *parent)
{
    told("info", text, parent);
    showMessage(QStringLiteral("info"), text, {}, parent);
}

void StandInHost::warn(const QString &text, const QStringList &items, QWidget *parent)
{
    told("warn", text, items, parent);
    showMessage(QStringLiteral("warn"), text, items, parent);
}

void StandInHost::warn(const QString &text, QWidget *parent)
{
    told("warn", text, parent);
    showMessage(QStringLiteral("warn"), text, {}, parent);
}

void StandInHost::alert(const QString &text, const QStringList &items, QWidget *parent)
{
    told("alert", text, items, parent);
    showMessage(QStringLiteral("alert"), text, items, parent);
}

void StandInHost::alert(const QString &text, QWidget *parent)
{
    told("alert", text, parent);
    showMessage(QStringLiteral("alert"), text, {}, parent);
}

bool StandInHost::confirm(const QString &text, QWidget *parent, const QVariantMap &options)
{
    told("confirm", text, parent, options);
    m_messages.add({QStringLiteral("confirm"), text, {}});
    if (!m_interactive)
        return m_messages.confirmAnswer();
    return QMessageBox::question(messageParent(parent), QCoreApplication::applicationName(), text,
                                 QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

QString StandInHost::translate(const QString &text)
{
    asked("translate", text);
    return translation(text);
}

QString StandInHost::translation(const QString &text) const
{
    const auto own = m_state.translations.find(text);
    return own != m_state.translations.end()
               ? *own
               : QCoreApplication::translate(OwnContext, text.toUtf8().constData());
}

void StandInHost::setAllQuickToolsDisabledRefresh()
{
    told("setAllQuickToolsDisabledRefresh");
    emit m_events.toolStateChanged(QString());
}

HostPrefsDialog *StandInHost::prefsDialog()
{
    asked("prefsDialog");
    return &m_prefsDialog;
}

void StandInHost::PrefsDialog::showPage(const QString &page)
{
    m_host.m_journal.command(QStringLiteral("prefsDialog"), "showPage", page);
    if (m_host.m_frontEnd.prefsDialog)
        m_host.m_frontEnd.prefsDialog->showPage(page);
}

int StandInHost::PrefsDialog::exec()
{
    m_host.m_journal.command(QStringLiteral("prefsDialog"), "exec");
    if (m_host.m_frontEnd.prefsDialog)
        return m_host.m_frontEnd.prefsDialog->exec();
    return m_host.m_state.prefsDialogResult;
}

void StandInHost::openAboutDialog()
{
    told("openAboutDialog");
    if (m_frontEnd.showAbout)
        m_frontEnd.showAbout();
    else if (m_interactive)
        QMessageBox::about(messageParent(nullptr), QCoreApplication::applicationName(),
                           m_state.hostVersion);
}

bool StandInHost::isToolRunning(const QString &tool)
{
    asked("isToolRunning", tool);
    PLG_Interface *current = m_tools.current();
    return m_state.runningTools.contains(tool) || m_tools.isActive(tool) ||
           (current && current->name() == tool);
}

bool StandInHost::isFeatureOn(const QString &key, DOC_Interface *doc, bool flag)
{
    asked("isFeatureOn", key, doc, flag);
    const StandInDocument *document = m_documents.document(m_documents.keyOf(doc));
    return document ? document->isFeatureOn(key) : hasFeature(key);
}

bool StandInHost::isReady()
{
    asked("isReady");
    return m_state.isReady;
}

bool StandInHost::isDialogExitSuppressed()
{
    asked("isDialogExitSuppressed");
    return m_state.isDialogExitSuppressed;
}

bool StandInHost::isUpdateIgnore()
{
    asked("isUpdateIgnore");
    return m_state.isUpdateIgnore;
}

void StandInHost::deterUpdateUI(bool deter)
{
    if (deter) {
        begun(m_pauses.deterral, "deterUpdateUI", deter);
        return;
    }
    told("deterUpdateUI", deter);
    if (!m_pauses.deterral.end() || deterrals() > 0)
        return;
    const Pauses::Refresh heldBack = m_pauses.takeHeldBack();
    if (heldBack.flags != 0)
        refreshUI(heldBack);
}

void StandInHost::exportSupportSnapshot(SupportSnapshot &out)
{
    asked("exportSupportSnapshot");
    out =
        m_frontEnd.takeSupportSnapshot ? m_frontEnd.takeSupportSnapshot() : m_state.supportSnapshot;
}

bool StandInHost::writeSupportFile(const QString &path, const SupportSnapshot &snapshot)
{
    told("writeSupportFile", path, snapshot);
    return m_state.supportFileSucceeds &&
           (!m_frontEnd.writeSupportFile || m_frontEnd.writeSupportFile(path, snapshot));
}

bool StandInHost::isAutoCameraNameEnabled()
{
    asked("isAutoCameraNameEnabled");
    return m_state.isAutoCameraNameEnabled || setting(HostKeys::completeCameraNames).toBool();
}

// A tool has the settings that begin with its name.
void StandInHost::checkKey(const QString &key) const
{
    const int slash = key.indexOf(QLatin1Char('/'));
    if (m_settings->isKnown(key) || (slash > 0 && m_tools.find(key.left(slash))))
        return;
    qCritical().noquote() << "unknown setting:" << key;
}

// Read with an empty name there is nothing to find, and nothing to complain of.
QVariant StandInHost::pref(const QString &key, const QVariant &defaultValue) const
{
    if (!key.isEmpty())
        checkKey(key);
    return m_settings->value(key, defaultValue);
}

void StandInHost::storePref(const QString &key, const QVariant &value)
{
    storePrefs({{key, value}});
}

void StandInHost::storePrefs(const QMap<QString, QVariant> &values)
{
    const QStringList keys = values.keys();
    for (const QString &key : keys)
        checkKey(key);
    if (!m_settings->setValues(values))
        throw APP_Exception(notStored(), 0);
    for (const QString &key : keys)
        emit m_events.settingChanged(key);
}

QVariant StandInHost::getPref(const QString &key, const QVariant &defaultValue)
{
    asked("getPref", key, defaultValue);
    return pref(key, defaultValue);
}

int StandInHost::getPrefInt(const QString &key, const QVariant &defaultValue)
{
    asked("getPrefInt", key, defaultValue);
    return pref(key, defaultValue).toInt();
}

bool StandInHost::getPrefBool(const QString &key, const QVariant &defaultValue)
{
    asked("getPrefBool", key, defaultValue);
    return pref(key, defaultValue).toBool();
}

double StandInHost::getPrefFloat(const QString &key, const QVariant &defaultValue)
{
    asked("getPrefFloat", key, defaultValue);
    return pref(key, defaultValue).toDouble();
}

QString StandInHost::getPrefString(const QString &key, const QVariant &defaultValue)
{
    asked("getPrefString", key, defaultValue);
    return pref(key, defaultValue).toString();
}

void StandInHost::setPref(const QString &key, const QVariant &value)
{
    told("setPref", JournalText::Setting{key, value});
    storePref(key, value);
}

void StandInHost::setPrefInt(const QString &key, int value)
{
    told("setPrefInt", JournalText::Setting{key, value});
    storePref(key, value);
}

void StandInHost::setPrefBool(const QString &key, bool value)
{
    told("setPrefBool", JournalText::Setting{key, value});
    storePref(key, value);
}

void StandInHost::setPrefFloat(const QString &key, double value)
{
    told("setPrefFloat", JournalText::Setting{key, value});
    storePref(key, value);
}

void StandInHost::setPrefString(const QString &key, const QString &value)
{
    told("setPrefString", JournalText::Setting{key, value});
    storePref(key, value);
}

void StandInHost::setTextBoxFocusState(bool focused)
{
    told("setTextBoxFocusState", focused);
    m_state.textBoxFocus = focused;
}

void StandInHost::notifyDialogLeft()
{
    told("notifyDialogLeft");
    --m_state.openDialogs;
}

void StandInHost::notifyDialogEntered()
{
    told("notifyDialogEntered");
    ++m_state.openDialogs;
}

bool StandInHost::hasRestoredPrefs()
{
    asked("hasRestoredPrefs");
    return m_state.hasRestoredPrefs;
}

void StandInHost::acknowledgeRestoredPrefs(bool flag)
{
    told("acknowledgeRestoredPrefs", flag);
    m_state.hasRestoredPrefs = false;
}

void StandInHost::runWithProgress(const QString &text, QFutureWatcher<void> &watcher)
{
    told("runWithProgress", text);
    std::unique_ptr<WaitDialog> progress;
    if (m_interactive)
        progress = std::make_unique<WaitDialog>(text, messageParent(nullptr));
    QEventLoop loop;
    QObject::connect(&watcher, &QFutureWatcher<void>::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec();
    watcher.future().waitForFinished();
}

bool StandInHost::isTrelvikWindowShown()
{
    asked("isTrelvikWindowShown");
    return m_state.isTrelvikWindowShown;
}

void StandInHost::openEthernetSettings()
{
    told("openEthernetSettings");
    if (m_frontEnd.showEthernetSettings)
        m_frontEnd.showEthernetSettings();
}

QVariant StandInHost::prefDefault(const QString &key)
{
    asked("prefDefault", key);
    if (!key.isEmpty())
        checkKey(key);
    return m_settings->defaultOf(key);
}

void StandInHost::removePref(const QString &key)
{
    told("removePref", key);
    checkKey(key);
    if (!m_settings->remove(key))
        throw APP_Exception(notStored(), 0);
    emit m_events.settingChanged(key);
}

QString StandInHost::infoItemDefaultDisplay()
{
    asked("infoItemDefaultDisplay");
    return m_settings->defaultOf(QStringLiteral("info/display")).toString();
}

QString StandInHost::infoItemLabel(const QString &id)
{
    asked("infoItemLabel", id);
    const auto own = m_state.infoItemLabels.find(id);
    if (own != m_state.infoItemLabels.end())
        return *own;
    const InfoItem *item = infoItem(id);
    return item ? translation(item->label) : id;
}

QString StandInHost::infoLabel(const QString &id, bool inEnglish) const
{
    const auto own = m_state.infoItemLabels.find(id);
    if (own != m_state.infoItemLabels.end() && !inEnglish)
        return *own;
    const InfoItem *item = infoItem(id);
    if (!item)
        return id;
    const QString &text = item->shortLabel.isEmpty() ? item->label : item->shortLabel;
    return inEnglish ? text : translation(text);
}

void StandInHost::markInfoDirty()
{
    for (StandInDocument *document : documents())
        document->state().isInfoOverlayDirty = true;
}

QStringList StandInHost::fontFamilyList()
{
    if (asked("fontFamilyList").empty)
        return QStringList();
    return m_state.fontFamilies.value_or(QFontDatabase().families());
}

void StandInHost::applyOutputFontName(const QString &fontName, int group)
{
    told("applyOutputFontName", fontName, group);
    m_state.outputFontNames.insert(group, fontName);
}

QString StandInHost::hostVersionText()
{
    asked("hostVersionText");
    return m_state.hostVersion;
}

void StandInHost::getTimeCodeSetting(TimeCodeRecord &out)
{
    asked("getTimeCodeSetting");
    TimeCodeSetting::read(*m_settings, out);
}

TimeCodeRecord StandInHost::timeCode() const
{
    TimeCodeRecord record;
    TimeCodeSetting::read(*m_settings, record);
    return record;
}

void StandInHost::setTimeCodeSetting(const TimeCodeRecord &record)
{
    told("setTimeCodeSetting", record);
    storePrefs(TimeCodeSetting::values(record));
}

bool StandInHost::isConverting()
{
    asked("isConverting");
    return m_state.isConverting;
}

bool StandInHost::isPartitionSelectionAuto()
{
    asked("isPartitionSelectionAuto");
    return m_state.isPartitionSelectionAuto;
}

QObject *StandInHost::appScriptObject()
{
    asked("appScriptObject");
    return &m_appScriptObject;
}

QObject *StandInHost::mainScriptObject()
{
    asked("mainScriptObject");
    return &m_mainScriptObject;
}

bool StandInHost::isCycleView()
{
    asked("isCycleView");
    return m_state.isCycleView;
}

bool StandInHost::isNotLivePage(bool orDeviceSettings)
{
    asked("isNotLivePage", orDeviceSettings);
    return orDeviceSettings ? m_state.isNotLiveOrDeviceSettingsPage : m_state.isNotLivePage;
}

bool StandInHost::isPrefsDialogOpen()
{
    asked("isPrefsDialogOpen");
    return m_state.isPrefsDialogOpen;
}

bool StandInHost::isModalDialogOpen()
{
    asked("isModalDialogOpen");
    return m_state.isModalDialogOpen;
}

bool StandInHost::textBoxFocusState()
{
    asked("textBoxFocusState");
    return m_state.textBoxFocus;
}

QString StandInHost::companionInstallDir()
{
    asked("companionInstallDir");
    return m_state.companionInstallDir;
}
