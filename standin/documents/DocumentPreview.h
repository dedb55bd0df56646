#pragma once

#include <QDateTime>
#include <QImage>

class StandInDocument;

/// Pictures of a document as a save would write them, by its save options: turned and flipped as it
/// is seen, in the size that it has without the scale divider, with the information. None is larger
/// than what is saved. Each partition shows the frame that its preview was moved to.
class DocumentPreview
{
public:
    /// Part of the document, which outlives it.
    explicit DocumentPreview(StandInDocument &document) : m_document(document) {}

    /// The preview of a partition as a save in this mode would write it, of the current one for a
    /// number that the document does not have; step() moves it from now on. Null for sides below 1
    /// and where there is no picture.
    QImage picture(int mode, int partitionNo, const QSize &size, const QDateTime &time);

    /// The same with the information, whatever the options say of it. A side of 0 follows the
    /// other.
    QImage thumbnail(int mode, int partitionNo, const QSize &size, const QDateTime &time) const;

    /// Size of a saved picture with the information, and the strips around it.
    QSize savedSize(int mode, int partitionNo) const;

    /// Moves the preview that was asked for last, by so many frames, between the first and the last
    /// one of its partition.
    void step(int frames);

private:
    quint64 lastFrame(int partitionNo) const;
    quint64 position(int partitionNo) const;
    QSize pictureSize() const;
    QImage pictureOf(int partitionNo) const;

    StandInDocument &m_document;
    int m_partitionNo = 0; ///< of the preview that was asked for last; 0: the current one
};
