#include "save/dialog/JS_Mediator_SaveFile.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/DialogRun.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/operation/OperationLog.h"
#include "bridge/operation/OwnedDialog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/DateTexts.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"
#include "foundation/Utilities.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "save/dialog/MultiPathRows.h"
#include "save/number/GUI_AddNumberDialog.h"
#include "save/path/PathComposer.h"
#include "save/path/PathText.h"

#include <memory>

namespace {

using SaveModes::Family;

constexpr int InfoGroups = 7; // of the information in saved pictures

const QLatin1String ShownFileName("File name:true");

QStringList inCapitals(std::initializer_list<const char *> formats)
{
    QStringList names;
    for (const char *format : formats)
        names.append(QString::fromLatin1(format).toUpper());
    return names;
}

bool isFormat(const QString &format, const char *name)
{
    return format.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

// The setting that tells whether files of this format hold what the sensor gave; empty for formats
// that have none.
QString rawSetting(const QString &format, const Keys::SaveKeys &keys)
{
    if (isFormat(format, "Raww"))
        return keys.rawwBayerSave;
    if (isFormat(format, "Mraw"))
        return keys.mrawBayerSave;
    if (isFormat(format, "Tiff") || isFormat(format, "Tiff (Multi-Page)"))
        return keys.tiffBayerSave;
    return {};
}

// The names of the devices, in the order of the documents.
QStringList deviceNames(HostServices *host)
{
    QStringList names;
    const QList<DOCKEY> keys = host->documentKeys(true, false);
    for (DOCKEY key : keys) {
        if (DOC_Interface *document = host->deviceByKey(key, true))
            names.append(document->deviceName());
    }
    return names;
}

}

JS_Mediator_SaveFile::JS_Mediator_SaveFile(HostServices *host, const QString &pageName)
    : JS_Mediator(host, QLatin1String("savefile")),
      m_snapMode(pageName == QLatin1String("snapshotdialog")),
      m_convertMode(pageName == QLatin1String("batchconverter") ||
                    pageName == QLatin1String("convertparametereditdialog")),
      m_reportMode(pageName == QLatin1String("reportExportDialog")),
      m_layoutMode(pageName == QLatin1String("layoutsavedialog")), m_parentWidgetName(pageName),
      m_integration(host)
{
}

void JS_Mediator_SaveFile::accept()
{
    guarded(host(), [this] { PageSignal::send(this, [this] { emit accepted(); }); });
}

void JS_Mediator_SaveFile::reject()
{
    guarded(host(), [this] { PageSignal::send(this, [this] { emit rejected(); }); });
}

void JS_Mediator_SaveFile::refresh()
{
    guarded(host(), [this] { PageSignal::send(this, [this] { emit refreshed(); }); });
}

QString JS_Mediator_SaveFile::selectFolder(const QString &dir)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_SaveFile::selectFolder"),
                            LogGroups::group(QLatin1String("dir"), dir));
    HostServices *services = host(); // the mediator may go while the user chooses
    return guarded(services, QString(), [&] {
        FileChoice::Question question;
        question.kind = FileChoice::Kind::Folder;
        question.parent = services->mainWidget();
        question.caption = services->translate(QLatin1String("Select folder"));
        question.start = dir;
        question.options = QFileDialog::ShowDirsOnly;
        QString chosen = FileChoice::askOne(question);
        PathText::ensureTrailingSlash(chosen);
        return chosen;
    });
}

void JS_Mediator_SaveFile::numberSetting4GroupDir()
{
    setNumber(QLatin1String("JS_Mediator_SaveFile::numberSetting4GroupDir"), Level::GroupDir);
}

void JS_Mediator_SaveFile::numberSetting4SubDir()
{
    setNumber(QLatin1String("JS_Mediator_SaveFile::numberSetting4SubDir"), Level::SubDir);
}

void JS_Mediator_SaveFile::numberSetting4FileName()
{
    setNumber(QLatin1String("JS_Mediator_SaveFile::numberSetting4FileName"), Level::FileName);
}

QString JS_Mediator_SaveFile::addNumber4GroupDir()
{
    return numberSample(QLatin1String("JS_Mediator_SaveFile::addNumber4GroupDir"), Level::GroupDir);
}

QString JS_Mediator_SaveFile::addNumber4SubDir()
{
    return numberSample(QLatin1String("JS_Mediator_SaveFile::addNumber4SubDir"), Level::SubDir);
}

QString JS_Mediator_SaveFile::addNumber4FileName()
{
    return numberSample(QLatin1String("JS_Mediator_SaveFile::addNumber4FileName"), Level::FileName);
}

QStringList JS_Mediator_SaveFile::getFileFormats(bool fromDevice)
{
    if (fromDevice)
        return inCapitals(
            {"Bmp", "Tiff", "Jpeg", "Png", "Raww", "Mraw", "Graw", "Avi", "Mov", "Mp4"});
    return inCapitals({"Bmp", "Tiff", "Jpeg", "Png", "Raww", "Mraw", "Avi", "Mov", "Mp4"});
}

QStringList JS_Mediator_SaveFile::getSnapFileFormats()
{
    return inCapitals({"Bmp", "Tiff", "Jpeg", "Png"});
}

QStringList JS_Mediator_SaveFile::getLayoutFileFormats()
{
    return inCapitals({"Bmp", "Tiff", "Jpeg", "Png", "Avi", "Mov", "Mp4"});
}

QStringList JS_Mediator_SaveFile::getCodecFilters()
{
    return inCapitals({"RAW", "H264", "MJPEG", "MPEG2", "MPEG4", "HUFFYUV"});
}

QString JS_Mediator_SaveFile::getFreeSpace(const QString &path)
{
    return UTL::formatCapacity(quint64(UTL::availableBytes(path)));
}

bool JS_Mediator_SaveFile::isSnapMode()
{
    return m_snapMode;
}

bool JS_Mediator_SaveFile::isConvertMode()
{
    return m_convertMode;
}

bool JS_Mediator_SaveFile::isReportMode()
{
    return m_reportMode;
}

bool JS_Mediator_SaveFile::isLayoutMode()
{
    return m_layoutMode;
}

QString JS_Mediator_SaveFile::getParentWidgetName()
{
    return m_parentWidgetName;
}

QString JS_Mediator_SaveFile::addDateTime(const QString &format)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_SaveFile::addDateTime"),
                            LogGroups::group(QLatin1String("format"), format));
    return guarded(host(), QString(), [&] { return DateTexts::currentDateTimeText(format); });
}

void JS_Mediator_SaveFile::selectedDocCount(int count)
{
    m_selectedDocs = count;
}

void JS_Mediator_SaveFile::selectedDocHeadCount(int count)
{
    m_selectedDocHeads = count;
}

bool JS_Mediator_SaveFile::isMovieFormat(const QString &format)
{
    return PathText::isMovieFormatName(format, false);
}

bool JS_Mediator_SaveFile::isRawFormat(const QString &format)
{
    if (m_snapMode || m_reportMode || m_layoutMode)
        return false;
    if (isFormat(format, "Graw"))
        return true;
    const QString setting =
        rawSetting(format, m_convertMode ? Keys::convertSave : Keys::exportSave);
    if (setting.isEmpty())
        return false;
    return guarded(host(), false, [&] { return host()->getPrefBool(setting, QVariant()); });
}

void JS_Mediator_SaveFile::editCustom(bool forTemporary)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_SaveFile::editCustom"),
                            LogGroups::group(QLatin1String("forTemporary"), forTemporary));
    HostServices *services = host();
    const int kind = SaveModes::fileNameKind(family()); // a call of the host may end the mediator
    guarded(services, [&] {
        auto made = std::make_unique<GUI_CustomInfoDialog>(services, nullptr, forTemporary);
        made->setCallbackType(kind);
        const OwnedDialog dialog(made.release());
        DialogRun::exec(*dialog);
    });
}

QString JS_Mediator_SaveFile::getMultiPaths()
{
    return guarded(host(), QString(), [this] {
        return MultiPathRows::destinations(
            host()->getPrefString(Keys::exportTarget.multiPathList, QVariant()));
    });
}

QString JS_Mediator_SaveFile::getMultiPathDevices()
{
    HostServices *services = host();
    return guarded(services, QString(), [services] {
        const QString destinations =
            services->getPrefString(Keys::exportTarget.multiPathList, QVariant());
        const QString assignments =
            services->getPrefString(Keys::exportTarget.multiPathDeviceList, QVariant());
        return MultiPathRows::devices(deviceNames(services), destinations, assignments);
    });
}

bool JS_Mediator_SaveFile::isNeedRefreshPreview()
{
    HostServices *services = host();
    return guarded(services, false, [services] {
        for (int group = 0; group < InfoGroups; ++group) {
            const QString items = services->getPrefString(
                Keys::saveInfo.display + QString::number(group), QVariant());
            if (items.split(QLatin1Char(',')).contains(ShownFileName))
                return true;
        }
        return false;
    });
}

bool JS_Mediator_SaveFile::isQln2OptionDisabled()
{
    UTL_QLN2_Integration integration = m_integration; // a call of the host may end the mediator
    return guarded(host(), false, [&] { return integration.isOptionDisabled(); });
}

bool JS_Mediator_SaveFile::isQLN2AppInstalled()
{
    UTL_QLN2_Integration integration = m_integration;
    return guarded(host(), false, [&] { return integration.isInstalled(); });
}

int JS_Mediator_SaveFile::targetKind(Level level, Family family)
{
    switch (level) {
    case Level::GroupDir:
        // A layout has none, and takes the kind of an export.
        return SaveModes::groupDirKind(family == Family::Layout ? Family::Export : family);
    case Level::SubDir:
        return SaveModes::subDirKind(family);
    case Level::FileName:
        break;
    }
    return SaveModes::fileNameKind(family);
}

Family JS_Mediator_SaveFile::family() const
{
    if (m_layoutMode)
        return Family::Layout;
    if (m_snapMode)
        return Family::Snap;
    if (m_convertMode)
        return Family::Convert;
    return m_reportMode ? Family::Report : Family::Export;
}

QString JS_Mediator_SaveFile::numberSample(const QString &slot, Level level)
{
    OperationLogScope trace(slot);
    HostServices *services = host();
    const int kind = targetKind(level, family());
    const bool isConverted = m_convertMode; // a call of the host may end the mediator
    return guarded(services, QString(), [&] {
        const bool hasSessionOnly = services->isFileMode() || isConverted;
        const int camera = hasSessionOnly ? 0 : PathComposer::cameraDigits(services, kind);
        const int head = hasSessionOnly ? 0 : PathComposer::headDigits(services, kind);
        const int session = PathComposer::sessionDigits(services, kind);
        return PathComposer::composeNumberText(1, 1, 1, camera, head, session);
    });
}

void JS_Mediator_SaveFile::setNumber(const QString &slot, Level level)
{
    OperationLogScope trace(slot);
    HostServices *services = host();
    // A report's page sets the digits of an export.
    const int kind = targetKind(level, m_reportMode ? Family::Export : family());
    const int docs = m_selectedDocs; // the mediator may go while the dialog is open
    const int heads = m_selectedDocHeads;
    guarded(services, [&] {
        const OwnedDialog dialog(
            new GUI_AddNumberDialog(services, services->mainWidget(), kind, docs, heads));
        DialogRun::exec(*dialog);
    });
}
