#include "JS_Mediator_Note.h"

#include "PLG_note.h"
#include "contract/HostGuard.h"
#include "contract/HostServices.h"

#include <QDateTime>
#include <QLocale>

namespace {

constexpr int Width = 360;
constexpr int Height = 280;

QString forTheUser(const QString &isoTime)
{
    const QDateTime time = QDateTime::fromString(isoTime, Qt::ISODate);
    return time.isValid() ? QLocale().toString(time, QLocale::ShortFormat) : QString();
}

}

JS_Mediator_Note::JS_Mediator_Note(HostServices *host, PLG_note &tool)
    : JS_Mediator_ModelessPatternDialog(host, QLatin1String("note")), m_tool(tool)
{
    setWantedSize(Width, Height);
}

void JS_Mediator_Note::onOpen()
{
    guarded(host(), [&] { m_tool.showDialog(); });
}

void JS_Mediator_Note::onClose()
{
    guarded(host(), [&] { m_tool.closeDialog(); });
}

QVariantMap JS_Mediator_Note::getNote()
{
    return guarded(host(), QVariantMap(), [&] {
        QString cameraName;
        const int camera = m_tool.currentCamera(cameraName);
        if (camera < 0)
            return QVariantMap{{QLatin1String("camera"), -1}};
        const PLG_note::Note note = m_tool.note(camera);
        return QVariantMap{{QLatin1String("camera"), camera},
                           {QLatin1String("name"), cameraName},
                           {QLatin1String("text"), note.text},
                           {QLatin1String("changed"), forTheUser(note.changed)},
                           {QLatin1String("written"), note.written}};
    });
}

void JS_Mediator_Note::setNote(int camera, const QString &text)
{
    guarded(host(), [&] {
        m_tool.setNote(camera, text);
        m_tool.writeNotes();
    });
}
