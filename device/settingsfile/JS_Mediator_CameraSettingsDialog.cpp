#include "device/settingsfile/JS_Mediator_CameraSettingsDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/ConcurrentTask.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/operation/OperationLog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/ViewPauseGuard.h"
#include "device/settingsfile/CameraSettingsPath.h"
#include "device/settingsfile/CameraSettingsTarget.h"
#include "foundation/Clock.h"
#include "foundation/DateTexts.h"
#include "foundation/Json.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"
#include "foundation/LogLines.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QSet>

#include <optional>

namespace {

const QString UserFileName = QLatin1String("userFileName");
const QString Original = QLatin1String("original");
const QString AddTime = QLatin1String("addTime");
const QString AddTimeFormat = QLatin1String("addTimeFormat");

CameraSettingsPath::NameParts nameParts(HostServices *host)
{
    CameraSettingsPath::NameParts parts;
    parts.typed = host->getPrefString(Keys::qcfg.userFileName, QVariant());
    parts.startsTyped = host->getPrefBool(Keys::qcfg.fileNameAsOriginal, QVariant());
    parts.hasTime = host->getPrefBool(Keys::qcfg.fileNameAddTime, QVariant());
    parts.timeFormat =
        host->getPrefString(Keys::qcfg.fileNameAddTimeFormat, QLatin1String("yyyyMMdd_HHmmss"));
    return parts;
}

QList<DOCKEY> selectedKeys(HostServices *host)
{
    QList<DOCKEY> keys;
    host->selectedDocKeys(keys, true);
    return keys;
}

QString firstCameraName(HostServices *host)
{
    const QList<DOCKEY> keys = selectedKeys(host);
    DOC_Interface *first = keys.isEmpty() ? nullptr : host->deviceByKey(keys.first(), true);
    return first ? first->cameraName() : QString();
}

QString composedName(HostServices *host, bool additional)
{
    const CameraSettingsPath::NameParts parts = nameParts(host);
    LogLines::info() << "original-> " << parts.startsTyped;
    const QString camera = parts.startsTyped ? QString() : firstCameraName(host);
    return additional ? CameraSettingsPath::fileNameWithSuffix(parts, camera, Clock::now())
                      : CameraSettingsPath::fileName(parts, camera, Clock::now());
}

QString folderOf(HostServices *host, const QString &chosen)
{
    return chosen.isEmpty() ? host->getPrefString(Keys::qcfg.path, QVariant()) : chosen;
}

bool saveFile(HostServices *host, const QString &chosenFolder)
{
    std::optional<ViewPauseGuard> pause;
    if (host->isLiveMode())
        pause.emplace(host, false, false);
    const QString folder = folderOf(host, chosenFolder);
    const QString name = composedName(host, true);
    // A name is no way into another folder.
    const QString path =
        name.contains(QLatin1Char('/')) ? QString() : CameraSettingsPath::path(folder, name);
    if (!CameraSettingsTarget::mayWrite(host, path, nullptr))
        return false;
    const QList<DOCKEY> keys = selectedKeys(host);
    ConcurrentTask::run(host, QLatin1String("Saving..."),
                        [&] { host->saveCameraSettings(path, keys); });
    return true;
}

bool loadFile(HostServices *host, const QString &file)
{
    if (file.isEmpty())
        return false;
    ViewPauseGuard pause(host, true, false);
    host->loadCameraSettings(file, selectedKeys(host));
    return true;
}

bool applyPresets(HostServices *host, const QMap<DOCKEY, int> &presets)
{
    ViewPauseGuard pause(host, true, false);
    for (auto preset = presets.cbegin(); preset != presets.cend(); ++preset) {
        if (preset.value() <= 0)
            continue;
        if (DOC_Interface *document = host->deviceByKey(preset.key(), true))
            document->applyPreset(preset.value());
    }
    return true;
}

QMap<DOCKEY, int> presetsOf(const QJsonArray &list)
{
    QMap<DOCKEY, int> presets;
    for (const QJsonValue &each : list) {
        const QJsonObject pair = each.toObject();
        bool isKey = false;
        const DOCKEY key = pair.value(QLatin1String("key")).toVariant().toULongLong(&isKey);
        if (isKey)
            presets.insert(key, pair.value(QLatin1String("value")).toInt(0));
    }
    return presets;
}

QJsonObject presetRow(DOCKEY key, DOC_Interface *document)
{
    QJsonObject row{{QLatin1String("key"), QString::number(key)},
                    {QLatin1String("name"), document->documentName()},
                    {QLatin1String("ipaddress"), document->ipAddress()},
                    {QLatin1String("devicename"), document->deviceName()}};
    QJsonArray presets;
    bool isNoneSelected = true;
    const QList<PresetInfo> infos = document->presets();
    for (const PresetInfo &info : infos) {
        presets.append(QJsonObject{{QLatin1String("presetno"), info.number},
                                   {QLatin1String("selected"), info.selected}});
        isNoneSelected = isNoneSelected && !info.selected;
    }
    row.insert(QLatin1String("presets"), presets);
    row.insert(QLatin1String("selNone"), isNoneSelected);
    return row;
}

}

JS_Mediator_CameraSettingsDialog::JS_Mediator_CameraSettingsDialog(HostServices *host, int mode)
    : JS_Mediator_Dialog(host, QLatin1String("camerasettings")), m_dialogMode(mode)
{
}

int JS_Mediator_CameraSettingsDialog::getDialogMode()
{
    return m_dialogMode;
}

bool JS_Mediator_CameraSettingsDialog::openFile()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CameraSettingsDialog::openFile"));
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_CameraSettingsDialog> self(this);
    return guarded(services, false, [&] {
        const QString filter = QLatin1String("*.%1");
        FileChoice::Question question;
        question.kind = FileChoice::Kind::OpenFile;
        question.start = services->getPrefString(Keys::qcfg.path, QVariant());
        question.caption = services->translate(QLatin1String("Select folder"));
        question.filter = filter.arg(CameraSettingsPath::suffix()) + QLatin1Char('\n') +
                          filter.arg(CameraSettingsPath::suffix().toUpper());
        if (!self)
            return false;
        question.parent = webView() ? webView()->window() : nullptr;
        const QString file = FileChoice::askOne(question);
        if (file.isEmpty() || !self)
            return false;
        m_file = file;
        return true;
    });
}

bool JS_Mediator_CameraSettingsDialog::openFolder()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CameraSettingsDialog::openFolder"));
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_CameraSettingsDialog> self(this);
    return guarded(services, false, [&] {
        FileChoice::Question question;
        question.kind = FileChoice::Kind::Folder;
        question.start = services->getPrefString(Keys::qcfg.path, QVariant());
        question.caption = services->translate(QLatin1String("Select folder"));
        question.options = QFileDialog::ShowDirsOnly;
        if (!self)
            return false;
        question.parent = webView() ? webView()->window() : nullptr;
        const QString folder = FileChoice::askOne(question);
        if (folder.isEmpty() || !self)
            return false;
        m_folder = folder;
        services->setPrefString(Keys::qcfg.path, folder);
        return true;
    });
}

QString JS_Mediator_CameraSettingsDialog::getFilePathSettings()
{
    HostServices *services = host();
    const QString file = m_file; // a call of the host may end the mediator
    const QString folder = m_folder;
    return guarded(services, QString(), [&] {
        return Json::compactText(
            QJsonObject{{QLatin1String("FolderPath"), folderOf(services, folder)},
                        {QLatin1String("FileName"), QFileInfo(file).fileName()}});
    });
}

QVariantList JS_Mediator_CameraSettingsDialog::getPresetList()
{
    HostServices *services = host();
    return guarded(services, QVariantList(), [services] {
        QVariantList rows;
        QSet<int> devices;
        const QList<DOCKEY> keys = selectedKeys(services);
        for (DOCKEY key : keys) {
            DOC_Interface *document = services->deviceByKey(key, true);
            if (!document)
                continue;
            const int device = document->cameraNumber();
            if (devices.contains(device))
                continue;
            devices.insert(device);
            rows.append(Json::compactText(presetRow(key, document)));
        }
        return rows;
    });
}

QString JS_Mediator_CameraSettingsDialog::addDateTime(const QString &format)
{
    return DateTexts::currentDateTimeText(format);
}

QString JS_Mediator_CameraSettingsDialog::recvFileNameDialogData()
{
    HostServices *services = host();
    return guarded(services, QString(), [services] {
        const CameraSettingsPath::NameParts parts = nameParts(services);
        return Json::compactText(QJsonObject{{UserFileName, parts.typed},
                                             {Original, parts.startsTyped},
                                             {AddTime, parts.hasTime},
                                             {AddTimeFormat, parts.timeFormat}});
    });
}

void JS_Mediator_CameraSettingsDialog::sendFileNameDialogData(const QString &sendData)
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_CameraSettingsDialog::sendFileNameDialogData"),
        LogGroups::group(QLatin1String("sendData"), sendData));
    HostServices *services = host();
    const QJsonObject data = QJsonDocument::fromJson(sendData.toUtf8()).object();
    const auto storeText = [&](const QString &name, const QString &key) {
        if (data.value(name).isString())
            services->setPrefString(key, data.value(name).toString());
    };
    const auto storeFlag = [&](const QString &name, const QString &key) {
        if (data.value(name).isBool())
            services->setPrefBool(key, data.value(name).toBool());
    };
    guarded(services, [&] {
        storeText(UserFileName, Keys::qcfg.userFileName);
        storeFlag(Original, Keys::qcfg.fileNameAsOriginal);
        storeFlag(AddTime, Keys::qcfg.fileNameAddTime);
        storeText(AddTimeFormat, Keys::qcfg.fileNameAddTimeFormat);
    });
}

QString JS_Mediator_CameraSettingsDialog::getFileName(bool additional)
{
    HostServices *services = host();
    return guarded(services, QString(), [&] { return composedName(services, additional); });
}

QString JS_Mediator_CameraSettingsDialog::getFileName()
{
    return getFileName(false);
}

void JS_Mediator_CameraSettingsDialog::ok(const QString &sendData)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CameraSettingsDialog::ok"),
                            LogGroups::group(QLatin1String("sendData"), sendData));
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_CameraSettingsDialog> self(this);
    const QJsonObject data = QJsonDocument::fromJson(sendData.toUtf8()).object();
    m_dialogMode = data.value(QLatin1String("dialogMode")).toInt(m_dialogMode);
    m_presets = presetsOf(data.value(QLatin1String("presetList")).toArray());
    guarded(services, [&] {
        if (runWork() && self)
            PageSignal::send(this, [this] { emit accept(); });
    });
}

bool JS_Mediator_CameraSettingsDialog::runWork()
{
    const QString folder = m_folder; // a call of the host may end the mediator
    const QString file = m_file;
    const QMap<DOCKEY, int> presets = m_presets;
    switch (m_dialogMode) {
    case SaveFile:
        return saveFile(host(), folder);
    case LoadFile:
        return loadFile(host(), file);
    case ApplyPresets:
        return applyPresets(host(), presets);
    default:
        return false;
    }
}

void JS_Mediator_CameraSettingsDialog::cancel()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CameraSettingsDialog::cancel"));
    guarded(host(), [this] { PageSignal::send(this, [this] { emit reject(); }); });
}
