#include "save/dialog/JS_Mediator_FileDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/operation/OperationLog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"
#include "foundation/SaveModes.h"
#include "foundation/Utilities.h"
#include "save/dialog/RecordingFiles.h"
#include "save/dialog/TargetRows.h"

#include <QBuffer>
#include <QPixmap>
#include <QPointer>

// What can be saved, and what it looks like.

namespace {

constexpr int OpenedFile = 2;
constexpr int SortByName = 1;

/// What a save writes beside the recording.
struct SaveOptions
{
    bool info;
    bool correct;
    bool scale;
};

SaveOptions readOptions(HostServices *host, int mode)
{
    const bool converts = mode == SaveModes::ConvertMode;
    const Keys::SaveKeys &keys = converts ? Keys::convertSave : Keys::exportSave;
    const bool info = host->getPrefBool(keys.saveInfo, QVariant());
    const bool correct = !converts && host->getPrefBool(keys.saveCorrect, QVariant());
    const bool scale =
        !converts && mode != SaveModes::LayoutMode && host->getPrefBool(keys.saveScale, QVariant());
    return {info, correct, scale};
}

bool isOnMedium(DOC_Interface *doc)
{
    return doc->isOnSdCard() || doc->isOnKelvault() || doc->isOnCFast();
}

QList<DOCKEY> targetKeys(HostServices *host, bool temporary)
{
    if (!temporary)
        return host->isLiveMode() ? host->liveDocumentKeys(true) : host->documentKeys(true, false);
    QList<DOCKEY> keys;
    host->temporaryDocumentKeys(keys);
    DOC_Interface *first = keys.isEmpty() ? nullptr : host->deviceByKey(keys.first(), true);
    if (first && !isOnMedium(first))
        return UTL::sortDocuments(host, SortByName, keys, false);
    return keys;
}

QList<DOCKEY> keysOfDocuments(HostServices *host, const QList<DOCKEY> &keys)
{
    QList<DOCKEY> found;
    for (DOCKEY key : keys) {
        if (host->deviceByKey(key, true))
            found.append(key);
    }
    return found;
}

FileTarget fileTarget(DOC_Interface *doc, const QVariantList &partitions)
{
    FileTarget target;
    target.partitions = partitions;
    target.allowsSkip = doc->supportsMultiSkip() || doc->supportsFileMultiSkip();
    target.isOnMedium = isOnMedium(doc);
    return target;
}

CameraTarget cameraTarget(HostServices *host, DOC_Interface *doc, const QVariantList &partitions)
{
    const Keys::RecordingKeys &keys = Keys::recording;
    CameraTarget target;
    target.partitions = partitions;
    target.allowsSkip = doc->supportsMultiSkip();
    target.loopsOverPartitions = host->getPrefBool(keys.loopRecord, QVariant()) &&
                                 host->getPrefBool(keys.autoIncrementPartition, QVariant());
    target.stopsAfterLast = host->getPrefBool(keys.stopRecordingAfterLastPartition, QVariant());
    target.current = doc->currentPartition();
    target.isLive = host->isLiveMode();
    target.selectsRecorded = host->isPartitionSelectionAuto() && host->isMemoryMode();
    target.isRecordedOnce = !target.selectsRecorded && doc->isRecordedOnce();
    return target;
}

// A document that goes while it, or another, is asked makes no row.
void addTarget(TargetRows &rows, HostServices *host, DOCKEY key, int mode,
               const SaveOptions &options)
{
    DOC_Interface *doc = host->deviceByKey(key, true);
    if (!doc)
        return;
    const bool isFile = doc->documentKind() == OpenedFile;
    if (!isFile && doc->isBusySaving())
        return;
    doc->setSaveInfoOption(options.info);
    doc->setSaveCorrectOption(options.correct);
    doc->setSaveScaleOption(options.scale);
    const QVariantMap info = doc->documentInfoMap(true, false, mode == SaveModes::ConvertMode,
                                                  mode == SaveModes::LayoutMode, true);
    doc = host->deviceByKey(key, true);
    if (!doc)
        return;
    const QVariantList partitions = info.value(QLatin1String("partitions")).toList();
    if (isFile)
        rows.add(fileTarget(doc, partitions));
    else
        rows.add(cameraTarget(host, doc, partitions));
}

QString pngText(const QPixmap &picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return QString::fromLatin1(buffer.data().toBase64());
}

void importFolder(HostServices *host, const QString &folder)
{
    host->closeFileDocuments(false);
    host->openFiles(RecordingFiles::below(folder), true, true, true, false, false);
    const QList<DOCKEY> keys = host->openedDocumentKeys();
    for (DOCKEY key : keys) {
        if (DOC_Interface *doc = host->deviceByKey(key, true))
            doc->setOpenedByImport(true);
    }
}

}

bool JS_Mediator_FileDialog::openFolder()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::openFolder"));
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    bool chosen = false;
    guarded(services, [&] {
        FileChoice::Question question;
        question.kind = FileChoice::Kind::Folder;
        question.start = services->getPref(Keys::application.importDir, QVariant()).toString();
        question.caption = services->translate(QLatin1String("Select folder"));
        if (!self)
            return;
        question.parent = webView() ? webView()->window() : nullptr;
        const QString folder = FileChoice::askOne(question);
        if (folder.isEmpty())
            return;
        services->setPref(Keys::application.importDir, folder);
        importFolder(services, folder);
        chosen = true;
    });
    return chosen;
}

void JS_Mediator_FileDialog::importTarget(const QVariantList &dockeyList)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::importTarget"),
                            LogGroups::group(QLatin1String("dockeyList"), dockeyList));
    QList<DOCKEY> keys;
    for (const QVariant &key : dockeyList)
        keys.append(key.toULongLong());
    guarded(host(), [&] { host()->importTargets(keys); });
}

QString JS_Mediator_FileDialog::list(bool temporary)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::list"),
                            LogGroups::group(QLatin1String("temporary"), temporary));
    HostServices *services = host(); // its calls may end the mediator
    const int mode = saveModeOfPage();
    TargetRows rows(m_savedCheck);
    return guarded(services, QString(), [&] {
        const SaveOptions options = readOptions(services, mode);
        const QList<DOCKEY> keys = keysOfDocuments(services, targetKeys(services, temporary));
        for (DOCKEY key : keys)
            addTarget(rows, services, key, mode, options);
        return rows.text();
    });
}

QString JS_Mediator_FileDialog::list()
{
    return list(false);
}

QString JS_Mediator_FileDialog::select(DOCKEY dockey, PARTITIONNUMBER partitionNo, int width,
                                       int height)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::select"),
                            LogGroups::group(QLatin1String("dockey"), dockey) +
                                LogGroups::group(QLatin1String("partitionNo"), partitionNo) +
                                LogGroups::group(QLatin1String("width"), width) +
                                LogGroups::group(QLatin1String("height"), height));
    setSelection(dockey, partitionNo);
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    const int mode = previewModeOfPage();
    const QDateTime time = m_exportTime;
    return guarded(services, QString(), [&] {
        if (services->isLiveMode())
            return QString();
        DOC_Interface *doc = services->deviceByKey(dockey, true);
        if (dynamic_cast<DOC_Camera *>(doc)) {
            DOC_HeadInterface *heads = doc->headInterface();
            doc = services->deviceByKey(dockey, true); // heads go with their document
            if (doc && heads) {
                const int count = heads->headCount();
                if (self)
                    PageSignal::send(self, [&] { emit self->selectedDocHeadCount(count); });
                doc = services->deviceByKey(dockey, true); // the page may have closed it
            }
        }
        return doc ? pngText(doc->previewPixmap(mode, width, height, partitionNo, false, time))
                   : QString();
    });
}

int JS_Mediator_FileDialog::countSelectedDocs()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::countSelectedDocs"));
    return guarded(host(), 0, [this] { return host()->selectedDocumentCount(); });
}
