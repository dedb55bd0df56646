#include "bridge/mediator/JS_Mediator.h"

#include "bridge/data/CalibrationUnits.h"
#include "bridge/data/ControlStatus.h"
#include "bridge/data/DeviceRow.h"
#include "bridge/mediator/OperationEventHandler.h"
#include "bridge/mediator/UpdateFlagsScope.h"
#include "bridge/operation/CurrentDocRestoreScope.h"
#include "bridge/operation/DeterUpdateScope.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/HostValues.h"
#include "contract/PLG_Interface.h"
#include "foundation/Json.h"
#include "foundation/Keys.h"

#include <QJsonArray>
#include <QJsonObject>

// What pages redraw themselves from, and the selection.

namespace {

constexpr int WirelessConnected = 1;
constexpr int LinkSpeedSupported = 1;

DeviceRow rowOf(DOC_Interface *doc, DOCKEY key)
{
    DeviceRow row;
    row.key = key;
    row.cameraName = doc->cameraName();
    row.deviceName = doc->deviceName().isEmpty() ? doc->fallbackName() : doc->deviceName();
    row.ipAddress = doc->ipAddress();
    row.headNumber = doc->headNumber();
    row.selected = doc->isSelected();
    row.found = doc->isFound();
    row.mobile = doc->isMobile();
    row.dummy = doc->isDummy();
    row.canShutDown = doc->hasCapability(Capability::Shutdown);
    row.wireless = doc->hasCapability(Capability::Wireless);
    row.wirelessConnected = doc->wirelessState() == WirelessConnected;
    row.linkSpeed = doc->linkSpeedState() == LinkSpeedSupported;
    return row;
}

void readDocument(ControlStatus &status, DOC_Interface *doc)
{
    status.document = true;
    status.documentFound = doc->isFound();
    status.documentLocked = status.multiCameraRunning && status.liveMode && doc->isLocked();
    status.documentLutCurve = doc->showsLutCurve();
    status.documentReductionSuspended = doc->isReductionSuspended();
    status.documentOnExternalMedia = doc->isOnSdCard() || doc->isOnKelvault() || doc->isOnCFast();
}

// Runs at every refresh of a page: each getter of the host is asked once.
ControlStatus readStatus(HostServices *host, DOC_Interface *doc)
{
    ControlStatus s;
    s.windows = host->countMdiWindow(true, 0);
    s.documents = host->documentCount();
    s.selected = host->selectedDocumentCount();
    if (!doc)
        doc = host->currentDocument();
    PLG_Interface *plugin = host->currentPlugin();
    s.recordingState = host->recordingState();
    s.currentTool = host->currentPluginName();

    s.recording = host->isRecording();
    s.backgroundSaving = host->isBackgroundSaving();
    s.backgroundConverting = host->isBackgroundConverting();
    s.directSaving = host->isDirectSaving(true);
    s.liveMode = host->isLiveMode();
    s.memoryMode = host->isMemoryMode();
    s.fileMode = host->isFileMode();
    s.canUndo = host->canUndo();
    s.canRedo = host->canRedo();
    s.lowlightOn = host->isLowlightOn();
    s.lowlightDevice = host->hasLowlightDevice();
    s.allLowlightOn = host->areAllLowlight(true);
    s.allLowlightOff = host->areAllLowlight(false);
    s.autoExposureSetting = host->isAutoExposureSettingOpen();
    s.hardwareTriggerSetting = host->isHwTriggerSettingOpen();
    s.variableSetting = host->isVariableSettingOpen();
    s.tracking = host->isTracking();
    s.lensCalibration = host->isLensCalibrationRunning();
    s.waveformData = host->hasWaveformData();
    s.autoDownload = host->getPrefBool(Keys::recording.autoDownload, QVariant());
    s.useTriggerTest = host->getPrefBool(Keys::recording.useTriggerTest, QVariant());
    s.partitionConflict = host->hasPartitionConflict(true);
    s.sendingNodeCommand = host->isSendingNodeCommand();
    s.adjustingImage = host->isAdjustingImage();
    s.detectingPixelDefect = host->isDetectingPixelDefect();
    s.cycleView = host->isCycleView() || host->isViewCycling();
    s.imageTriggerCapturing = host->isImageTriggerCapturing();
    s.imageTriggerDetecting = host->isImageTriggerDetecting();
    s.mouseDragging = plugin && plugin->isDragging();
    s.autoFocusing = host->isAutoFocusing();
    s.notLivePage = host->isNotLivePage(false);
    s.notLiveAndDeviceSettingPage = host->isNotLivePage(true);
    s.prefsDialogOpen = host->isPrefsDialogOpen();
    s.modalDialogOpen = host->isModalDialogOpen();
    s.phaseAdjusting = host->isPhaseAdjusting();
    s.fullScreen = host->isFullScreen();
    s.modelessTextFocus = host->textBoxFocusState();
    s.shading = host->isShading();
    s.multiCameraRunning = host->isTrelvikRunning();
    s.activeOnMultiCamera = host->isActiveOnTrelvik();
    s.allDevicesLocked = s.multiCameraRunning && s.liveMode && host->areAllDevicesLocked();
    s.otherPluginOpen = host->isOtherPluginOpen();
    s.currentOtherThanAutoFocus = s.liveMode && host->isCurrentOtherThanAutoFocus(true);
    s.autoExporting = s.liveMode && host->isAutoExporting();
    if (doc)
        readDocument(s, doc);
    return s;
}

}

QString JS_Mediator::getControlStatus(DOC_Interface *pDoc)
{
    return guarded(m_host, QString(), [&] { return controlStatusText(readStatus(m_host, pDoc)); });
}

QString JS_Mediator::getControlStatus()
{
    return getControlStatus(nullptr);
}

QVariantList JS_Mediator::getDeviceInfoList(bool isMinilist)
{
    HostServices *host = m_host;
    QVariantList rows;
    guarded(host, [&] {
        QList<DOCKEY> keys;
        host->deviceKeys(keys, true);
        for (DOCKEY key : qAsConst(keys)) {
            const bool onlyFound =
                isMinilist && host->currentMode() == HostMode::Live &&
                host->getPref(Keys::application.connectedCameraOnlyShowing, false).toBool();
            if (onlyFound) {
                DOC_Interface *device = host->deviceByKey(key, true);
                if (!device || !device->isFound())
                    continue;
            }
            if (DOC_Interface *doc = host->documentByKey(key))
                rows.append(deviceRowText(rowOf(doc, key)));
        }
    });
    return rows;
}

QVariantList JS_Mediator::getSelectedDockey()
{
    QVariantList texts;
    guarded(m_host, [&] {
        QList<DOCKEY> keys;
        m_host->selectedDocKeys(keys, false);
        for (DOCKEY key : qAsConst(keys))
            texts.append(QString::number(key));
    });
    return texts;
}

void JS_Mediator::setSelectDoc(const QString &docKey)
{
    HostServices *host = m_host;
    UpdateFlagsScope flags(this);
    OperationEventHandler operation(this, QLatin1String("JS_Mediator::setSelectDocSub"));
    guarded(host, [&] {
        DeterUpdateScope deter(host);
        bool parsed = false;
        const DOCKEY key = docKey.toULongLong(&parsed, 10);
        host->selectDocs(parsed ? QList<DOCKEY>({key}) : QList<DOCKEY>(), false);
    });
}

void JS_Mediator::selectAllDocs()
{
    HostServices *host = m_host;
    QPointer<JS_Mediator> self(this);
    DOCKEY current = NoDocKey;
    const bool prepared = guarded(host, false, [&] {
        host->prepareSelectAll();
        current = host->currentDocKey();
        return true;
    });
    if (!prepared || !self)
        return;
    UpdateFlagsScope flags(this);
    CurrentDocRestoreScope restore(host, current);
    OperationEventHandler operation(this, QLatin1String("JS_Mediator::selectAllDocsSub"));
    guarded(host, [&] {
        DeterUpdateScope deter(host);
        if (self)
            host->selectAllDocs(self);
    });
}

QString JS_Mediator::getCalibrationUnits()
{
    HostServices *host = m_host;
    return guarded(host, QString(), [&] {
        const bool metric = host->getPrefInt(Keys::application.unitSystem, QVariant()) != 0;
        QJsonArray units;
        for (const QString &entry : CalibrationUnits::entries(metric)) {
            units.append(QJsonObject(
                {{QLatin1String("value"), entry},
                 {QLatin1String("view"), host->translate(CalibrationUnits::shortName(entry))}}));
        }
        return Json::compactText(units);
    });
}
