#include "record/display/GUI_EditInfoDialog.h"

#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"

#include <QBuffer>
#include <QPixmap>
#include <QPointer>

// The picture of the save form, and the texts beside it.

namespace {

// What a document draws for a format; the numbers of both are the host's.
int pictureKind(int fileType)
{
    switch (fileType) {
    case 4:
        return 18;
    case 6:
        return 11;
    case 16:
        return 17;
    default:
        return 10;
    }
}

const char *languageName(int language)
{
    switch (language) {
    case 0:
        return "Same as operating language";
    case 1:
        return "English";
    case 2:
        return "Japanese";
    default:
        return "";
    }
}

QString pngText(const QPixmap &picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG"); // opens it
    return QString::fromLatin1(bytes.toBase64());
}

}

QString GUI_EditInfoDialog::getThumbnail(int width, int height)
{
    HostServices *services = host();
    const QPointer<GUI_EditInfoDialog> self(this);
    const HeldDocument held = m_document;
    const int fileType = m_fileType;
    const int partition = m_partition;
    const QDateTime timeStamp = m_timeStamp;
    return guarded(services, QString(), [&] {
        DOC_Interface *document = present(services, held);
        if (!document)
            return QString();
        const QSize size = width == 0 ? document->documentResolution(fileType, partition, false)
                                      : QSize(width, height);
        const QPixmap picture = document->documentThumbnail(pictureKind(fileType), size.width(),
                                                            size.height(), partition, 0, timeStamp);
        if (self)
            m_thumbnailSize = picture.size();
        return pngText(picture);
    });
}

QList<int> GUI_EditInfoDialog::getThumbnailResolution()
{
    return {m_thumbnailSize.width(), m_thumbnailSize.height()};
}

QString GUI_EditInfoDialog::getResolutionStr()
{
    HostServices *services = host();
    const HeldDocument held = m_document;
    const int fileType = m_fileType;
    const int partition = m_partition;
    return guarded(services, QString(), [&] {
        DOC_Interface *document = present(services, held);
        if (!document)
            return QString();
        const QString label = services->translate(QLatin1String("Resolution"));
        const QSize size = document->documentResolution(fileType, partition, false);
        return label + QLatin1String(" : ") + QString::number(size.width()) + QLatin1String(" x ") +
               QString::number(size.height());
    });
}

QString GUI_EditInfoDialog::getExportLanguage()
{
    HostServices *services = host();
    return guarded(services, QString(), [&] {
        const int language = services->getPrefInt(Keys::display.outputLanguage, QVariant());
        const QString label = services->translate(QLatin1String("Output Language Setting"));
        return label + QLatin1String(" : ") +
               services->translate(QLatin1String(languageName(language)));
    });
}
