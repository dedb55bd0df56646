#pragma once

#include "foundation/SaveModes.h"
#include "standin/drawing/InfoLines.h"
#include "standin/drawing/InfoOverlay.h"

#include <QDateTime>
#include <QHash>
#include <QRect>

class StandInDocument;

/// The information of a document, over its pictures on the screen and over those that are saved.
///
/// On the screen the settings are taken over when the document's overlay is marked as dirty, and
/// kept until then; values are those of the moment. Pictures to save follow the settings at once.
class DocumentOverlay
{
public:
    /// Part of the document, which outlives it.
    explicit DocumentOverlay(StandInDocument &document);

    /// A picture that is saved.
    struct Moment
    {
        quint64 frame = 0;   ///< from 0
        int partitionNo = 0; ///< 0: the current partition
        QDateTime time;
        int mode = SaveModes::ExportPreview; ///< of the save, which names the file
    };

    /// Paints the information of a frame, from 0, upright into this part of the screen, from its
    /// top left. Text has the size of its settings in screen pixels, and less where there is little
    /// room.
    void paint(QPainter &painter, const QRect &area, quint64 frame);

    /// Size of a picture that is saved in this size, with the strips around it.
    QSize savedSize(const QSize &picture, const Moment &moment) const;

    /// A picture with the information that is saved, and one without. `whole` is the size in which
    /// the picture is saved, `size` the one into which it has to fit here, and a side of 0 follows
    /// the other; the result is never larger than what is saved. Null where there is no picture.
    QImage saved(const QImage &picture, const QSize &whole, const Moment &moment,
                 const QSize &size) const;
    static QImage plain(const QImage &picture, const QSize &whole, const QSize &size);

    /// The lines on the screen, for a test.
    QStringList shownTexts() const;

private:
    using Setting = std::function<QVariant(const QString &key)>;

    Setting setting() const;
    InfoValues values() const;
    QVector<InfoItemList::Entry> entries(InfoFontSettings::Form form, int group,
                                         InfoItem::Target target) const;
    QImage logo(InfoFontSettings::Form form) const;
    bool hasBlankLines() const;
    void rebuild();
    InfoOverlay savedOverlay(const Moment &moment, const QSize &picture) const;

    StandInDocument &m_document;
    bool m_isBuilt = false;
    int m_mode = 0; ///< for which it was built
    InfoOverlay m_overlay;
    InfoValues m_values;
    QVector<InfoItemList::Entry> m_entries;
    InfoLines::Options m_options;
};
