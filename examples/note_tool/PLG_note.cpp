#include "PLG_note.h"

#include "GUI_NoteDialog.h"
#include "JS_Mediator_Note.h"
#include "bridge/mediator/PageSignal.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/HostServices.h"
#include "contract/HostValues.h"

#include <QDateTime>

namespace {

constexpr uint LiveAndMemory = 3;

QString textKey(int camera)
{
    return QLatin1String("t_note/text") + QString::number(camera);
}

QString timeKey(int camera)
{
    return QLatin1String("t_note/changed") + QString::number(camera);
}

}

PLG_note::PLG_note()
{
    m_toolName = QLatin1String("t_note");
    m_checkKind = CheckKind::Dialog;
    m_allowedModes = LiveAndMemory;
}

void PLG_note::update()
{
    PLG_Button::update();
    if (!isDialogVisible())
        return; // it draws when it opens
    if (JS_Mediator_Dialog *page = ensureDialog(false)->mediator())
        PageSignal::send(page, [page] { emit page->update(); });
}

GUI_ModelessPatternDialog *PLG_note::createModelessPatternDialog(bool)
{
    return new GUI_NoteDialog(m_host, new JS_Mediator_Note(m_host, *this)); // deleted by the base
}

int PLG_note::currentCamera(QString &cameraName)
{
    DOC_Interface *doc = m_host->currentDocument();
    QList<DOCKEY> cameras;
    m_host->deviceKeys(cameras, true);
    if (!doc || !cameras.contains(m_host->documentKeyOf(doc)))
        return -1;
    cameraName = doc->displayName();
    if (cameraName.isEmpty())
        cameraName = doc->documentName();
    return doc->cameraNumber();
}

PLG_note::Note PLG_note::note(int camera)
{
    const auto unwritten = m_unwritten.constFind(camera);
    if (unwritten != m_unwritten.constEnd())
        return *unwritten;
    return {m_host->getPrefString(textKey(camera), QString()),
            m_host->getPrefString(timeKey(camera), QString()), true};
}

void PLG_note::setNote(int camera, const QString &text)
{
    m_unwritten.insert(camera, {text, QDateTime::currentDateTime().toString(Qt::ISODate), false});
}

void PLG_note::writeNotes()
{
    try {
        while (!m_unwritten.isEmpty()) {
            const int camera = m_unwritten.constBegin().key();
            const Note note = *m_unwritten.constBegin();
            m_host->setPrefString(textKey(camera), note.text);
            m_host->setPrefString(timeKey(camera), note.changed);
            m_unwritten.remove(camera);
        }
    } catch (const std::exception &) {
        if (m_troubleTold)
            return;
        m_troubleTold = true;
        throw;
    }
    m_troubleTold = false;
}

void PLG_note::slotModelessPatternDialogClosed()
{
    m_troubleTold = false;
    guarded(m_host, [this] { writeNotes(); });
    PLG_Button::slotModelessPatternDialogClosed();
}
