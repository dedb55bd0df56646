#pragma once

#include "standin/documents/StandInDocument.h"

#include <QStringList>

/// A recording opened from a folder of images, a frame each, in natural order of the file names.
///
/// Pictures are read when they are asked for; the one read last is kept. All have the size of the
/// first: others are scaled into it, black around them.
class StandInRecording : public StandInDocumentLink<DOC_Interface>
{
public:
    /// A file of the folder that is no image, though its name says so.
    struct Unreadable
    {
        QString path;
        QString reason;
    };

    /// For the host. Throws a DOC_ReadFileException when the folder does not exist or holds no
    /// image that can be read.
    StandInRecording(DocumentOwner &owner, DOCKEY key, const QString &folder);

    QString folder() const { return m_folder; }

    /// Paths of the images, a frame each.
    QStringList files() const { return m_files; }

    /// What was left out.
    QList<Unreadable> unreadable() const { return m_unreadable; }

    /// A black picture for a file that has become unreadable since.
    QImage frame(quint64 number) const override;
    quint64 frameCount() const override { return quint64(m_files.size()); }
    QSize pictureSize() const override { return m_size; }

private:
    void readFolder();
    QImage fitted(const QImage &image) const;

    QString m_folder;
    QStringList m_files;
    QList<Unreadable> m_unreadable;
    QSize m_size;
    mutable int m_cachedIndex = -1;
    mutable QImage m_cached;
};
