#include "record/display/GUI_EditInfoDialog.h"

#include "bridge/operation/DialogRun.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/operation/OwnedDialog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "record/comment/GUI_CommentDialog.h"
#include "record/format/GUI_FrameFormatDialog.h"
#include "record/format/GUI_RecordRateFormatDialog.h"
#include "record/format/GUI_RectimeFormatDialog.h"
#include "record/format/GUI_ShutterSpeedFormatDialog.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "record/timecode/GUI_TimeCodeCustomDialog.h"

#include <QFileInfo>
#include <QPointer>

#include <memory>

// What is edited in dialogs of its own. A call of the host may end this one, and so may the user
// while another is open.

namespace {

bool playsBackFiles(HostServices *host)
{
    return !host->isLiveMode() && !host->isMemoryMode();
}

void markOverlaysDirty(HostServices *host)
{
    const QList<DOCKEY> keys = host->documentKeys(true, false);
    for (DOCKEY key : keys) {
        if (DOC_Interface *document = host->deviceByKey(key, true))
            document->markInfoOverlayDirty();
    }
}

}

void GUI_EditInfoDialog::setLogoPath()
{
    const InfoSettings settings = m_settings;
    const QPointer<GUI_EditInfoDialog> self(this);
    const HeldDocument held = m_document;
    const QVector<HeldDocument> others = m_documents;
    HostServices *services = settings.host();
    guarded(services, [&] {
        if (playsBackFiles(services)) {
            if (DOC_Interface *document = present(services, held))
                document->documentLogoPath(); // asked for, but the setting holds in every case
        }
        const QString path = settings.read(Property::LogoPath).toString();
        FileChoice::Question question;
        question.kind = FileChoice::Kind::OpenFile;
        if (!path.isEmpty())
            question.start = QFileInfo(path).absolutePath();
        question.caption = services->translate(QLatin1String("Logo Setting"));
        question.filter = QLatin1String("Image files (*.bmp *.jpg *.png)");
        question.parent = self;
        const QString chosen = FileChoice::askOne(question);
        if (chosen.isEmpty())
            return;
        if (playsBackFiles(services)) {
            for (const HeldDocument &each : QVector<HeldDocument>{held} + others) {
                if (DOC_Interface *document = present(services, each))
                    document->applyLogoPath(chosen);
            }
        }
        settings.write(Property::LogoPath, chosen);
        markOverlaysDirty(services);
        settings.refresh();
    });
}

template <typename Make> void GUI_EditInfoDialog::runDialog(Make &&make)
{
    const InfoSettings settings = m_settings;
    const QPointer<GUI_EditInfoDialog> self(this);
    guarded(settings.host(), [&] {
        const OwnedDialog dialog(make(settings.host()));
        if (!self)
            return;
        DialogRun::exec(*dialog);
        settings.refresh();
    });
}

void GUI_EditInfoDialog::editComment()
{
    runDialog([held = m_document](HostServices *services) {
        return new GUI_CommentDialog(services, present(services, held));
    });
}

void GUI_EditInfoDialog::execTimeCodeSettingDialog()
{
    runDialog([view = QPointer<QWidget>(webView())](HostServices *services) {
        auto dialog = std::make_unique<GUI_TimeCodeCustomDialog>(services, nullptr);
        if (view) // it may go while the other is made
            dialog->setParent(view, dialog->windowFlags());
        return dialog.release();
    });
}

void GUI_EditInfoDialog::editCustom()
{
    runDialog(
        [](HostServices *services) { return new GUI_CustomInfoDialog(services, nullptr, false); });
}

void GUI_EditInfoDialog::editShutterDispFormat()
{
    runDialog([](HostServices *services) { return new GUI_ShutterSpeedFormatDialog(services); });
}

void GUI_EditInfoDialog::editRectimeDispFormat()
{
    runDialog([](HostServices *services) { return new GUI_RectimeFormatDialog(services); });
}

void GUI_EditInfoDialog::editRecordRateDispFormat()
{
    runDialog([](HostServices *services) { return new GUI_RecordRateFormatDialog(services); });
}

void GUI_EditInfoDialog::editFrameDispFormat()
{
    runDialog([](HostServices *services) { return new GUI_FrameFormatDialog(services); });
}
