#include "standin/documents/DocumentPreview.h"

#include "standin/documents/StandInDocument.h"

#include <algorithm>

namespace {

// A divider beyond what a camera has makes no larger picture.
constexpr int LargestDivider = 16;

}

quint64 DocumentPreview::lastFrame(int partitionNo) const
{
    const StandInPartition *partition = m_document.partitionOrCurrent(partitionNo);
    return partition && partition->frames > 0 ? partition->frames - 1 : 0;
}

quint64 DocumentPreview::position(int partitionNo) const
{
    const StandInPartition *partition = m_document.partitionOrCurrent(partitionNo);
    const quint64 moved = partition ? m_document.state().previewFrames.value(partition->number) : 0;
    return std::min(moved, lastFrame(partitionNo));
}

QSize DocumentPreview::pictureSize() const
{
    const DocumentState &state = m_document.state();
    QSize size = m_document.pictureSize();
    if (state.saveScaleOption && state.hasScaleDivider)
        size *= std::clamp(state.scaleDivider, 1, LargestDivider);
    return state.saveCorrectOption && m_document.geometry().isTransposed() ? size.transposed()
                                                                           : size;
}

QImage DocumentPreview::pictureOf(int partitionNo) const
{
    const QImage picture = m_document.partitionFrame(position(partitionNo), partitionNo);
    if (picture.isNull() || !m_document.state().saveCorrectOption)
        return picture;
    ViewGeometry seen = m_document.geometry();
    seen.scale = 1.0;
    seen.origin = QPoint();
    return picture.transformed(seen.transform());
}

QImage DocumentPreview::picture(int mode, int partitionNo, const QSize &size, const QDateTime &time)
{
    m_partitionNo = partitionNo;
    if (size.isEmpty())
        return QImage();
    const QImage picture = pictureOf(partitionNo);
    DocumentOverlay &overlay = m_document.overlay();
    const DocumentOverlay::Moment moment{position(partitionNo), partitionNo, time, mode};
    return m_document.state().saveInfoOption ? overlay.saved(picture, pictureSize(), moment, size)
                                             : DocumentOverlay::plain(picture, pictureSize(), size);
}

QImage DocumentPreview::thumbnail(int mode, int partitionNo, const QSize &size,
                                  const QDateTime &time) const
{
    return m_document.overlay().saved(pictureOf(partitionNo), pictureSize(),
                                      {position(partitionNo), partitionNo, time, mode}, size);
}

QSize DocumentPreview::savedSize(int mode, int partitionNo) const
{
    return m_document.overlay().savedSize(pictureSize(),
                                          {position(partitionNo), partitionNo, {}, mode});
}

void DocumentPreview::step(int frames)
{
    const StandInPartition *partition = m_document.partitionOrCurrent(m_partitionNo);
    if (!partition)
        return;
    const qint64 moved = qint64(position(m_partitionNo)) + frames;
    m_document.state().previewFrames[partition->number] =
        quint64(std::clamp<qint64>(moved, 0, qint64(lastFrame(m_partitionNo))));
}
