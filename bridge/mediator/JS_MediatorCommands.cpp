#include "bridge/mediator/JS_Mediator.h"

#include "bridge/operation/ConcurrentTask.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/HostValues.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"
#include "foundation/exceptions/APP_Exception.h"

#include <QFileInfo>

#include <algorithm>
#include <limits>

// Commands that open the host's windows, change the quick tools, or write the support file.

namespace {

constexpr int SelectedArea = 2;

int saturated(qint64 value)
{
    return int(std::clamp<qint64>(value, std::numeric_limits<int>::min(),
                                  std::numeric_limits<int>::max()));
}

bool someCameraKeepsALog(HostServices *host)
{
    const QList<DOCKEY> keys = host->documentKeys(true, false);
    return std::any_of(keys.cbegin(), keys.cend(), [&](DOCKEY key) {
        DOC_Interface *doc = host->deviceByKey(key, true);
        return doc && (doc->hasCapability(Capability::CameraLogToo) ||
                       doc->hasCapability(Capability::CameraLog));
    });
}

QString supportFileQuestion(HostServices *host)
{
    const bool cameraLog = someCameraKeepsALog(host);
    const QString lineBreak = QLatin1String("<br>");
    QString text = host->translate(QLatin1String(
                       "The information below will be output in ZIP file format. Do you want to "
                       "proceed?")) +
                   lineBreak;
    const auto add = [&](const char *line) {
        text += lineBreak + host->translate(QLatin1String(line));
    };
    add("- Camera setting values");
    add("- Orvix setting values");
    add("- Orvix operation log");
    add("- SDK operation log");
    if (cameraLog)
        add("- Camera log");
    add("- PC environment");
    add("- Orvix version");
    add("- Orvix full screen capture");
    if (host->isTrelvikWindowShown())
        add("- Trelvik window screen capture");
    add("- Currently displayed image data (1 frame)");
    return text;
}

QString askSupportFilePath(HostServices *host)
{
    FileChoice::Question question;
    question.kind = FileChoice::Kind::SaveFile;
    question.start = host->getPref(Keys::application.supportDir, QVariant()).toString();
    question.parent = host->mainWidget();
    question.caption = host->translate(QLatin1String("Export support file"));
    question.filter = QLatin1String("zip (*.zip)");
    question.options = QFileDialog::DontConfirmOverwrite;
    return FileChoice::askOne(question);
}

void writeSupportFile(HostServices *host, const QString &path)
{
    SupportSnapshot snapshot;
    host->exportSupportSnapshot(snapshot); // touches widgets, so it happens here
    ConcurrentTask::run(host, QLatin1String("Saving..."), [&] {
        if (!host->writeSupportFile(path, snapshot))
            throw APP_Exception(QLatin1String("Failed to save support file."), 0);
    });
    host->info(host->translate(QLatin1String("Please attach preserved file to a mail.")), nullptr);
}

}

int JS_Mediator::openPrefsDialog(const QString &page)
{
    OperationLogScope scope(QLatin1String("JS_Mediator::openPrefsDialog"),
                            LogGroups::group(QLatin1String("page"), page));
    HostServices *host = m_host; // the mediator may go while the dialog runs
    return guarded(host, 0, [&] {
        if (host->isLiveMode())
            host->prepareLiveForPrefs();
        HostPrefsDialog *dialog = host->prefsDialog();
        dialog->showPage(host->translate(page));
        return dialog->exec();
    });
}

void JS_Mediator::openPrefsEthernetSettings()
{
    OperationLogScope scope(QLatin1String("JS_Mediator::openPrefsEthernetSettings"));
    guarded(m_host, [&] { m_host->openEthernetSettings(); });
}

void JS_Mediator::openExportSupportFileDialog()
{
    OperationLogScope scope(QLatin1String("JS_Mediator::openExportSupportFileDialog"));
    HostServices *host = m_host; // the mediator may go while the user is asked
    guarded(host, [&] {
        const QString question = supportFileQuestion(host);
        if (!host->confirm(question, host->mainWidget(), QVariantMap()))
            return;
        const QString path = askSupportFilePath(host);
        if (path.isEmpty())
            return;
        guarded(host, [&] { writeSupportFile(host, path); });
        host->setPref(Keys::application.supportDir, QFileInfo(path).absolutePath());
    });
}

void JS_Mediator::openAbouOrvixDialog()
{
    OperationLogScope scope(QLatin1String("JS_Mediator::openAbouOrvixDialog"));
    guarded(m_host, [&] { m_host->openAboutDialog(); });
}

void JS_Mediator::copySelectAreaToClipboard()
{
    OperationLogScope scope(QLatin1String("JS_Mediator::copySelectAreaToClipboard"));
    guarded(m_host, [&] { m_host->copySelectArea(SelectedArea); });
}

void JS_Mediator::setDisableAllQuickTool()
{
    OperationLogScope scope(QLatin1String("JS_Mediator::setDisableAllQuickTool"));
    HostServices *host = m_host; // the mediator may go with the tool
    guarded(host, [&] {
        host->setQuickTool(QString());
        host->refreshDocumentInfo(true);
        host->setAllQuickToolsDisabledRefresh();
    });
}

void JS_Mediator::hideSelectBox()
{
    guarded(m_host, [&] { m_host->hideSelectBox(); });
}

bool JS_Mediator::isShownDropBox()
{
    return guarded(m_host, false, [&] { return m_host->isShownDropBox(); });
}

void JS_Mediator::showDropDownBox(const QString &key, int x, int y, int width, int height)
{
    const QRect rect(QPoint(x, y),
                     QPoint(saturated(qint64(x) + width - 1), saturated(qint64(y) + height - 1)));
    guarded(m_host, [&] { m_host->showDropDownBox(key, rect); });
}

void JS_Mediator::hideDropDownBox(const QString &key)
{
    guarded(m_host, [&] { m_host->hideDropDownBox(key); });
}

void JS_Mediator::hideDropDownBox(const QString &key, int x, int y)
{
    guarded(m_host, [&] { m_host->hideDropDownBox(key, QPoint(x, y)); });
}
