#include "standin/documents/StandInDocument.h"

namespace {

QPixmap pixmapOf(const QImage &picture)
{
    return picture.isNull() ? QPixmap() : QPixmap::fromImage(picture);
}

}

template <class Contract>
bool StandInDocumentDisplay<Contract>::isToolAvailable(const QString &tool, bool flag)
{
    this->asked("isToolAvailable", tool, flag);
    return this->state().availableTools.contains(tool) || this->isInTransaction(tool);
}

template <class Contract> bool StandInDocumentDisplay<Contract>::isToolOn(const QString &tool)
{
    this->asked("isToolOn", tool);
    return this->isToolOnHere(tool);
}

template <class Contract> float StandInDocumentDisplay<Contract>::viewRotation()
{
    this->asked("viewRotation");
    return float(this->state().quarterTurns) / 4.0f;
}

template <class Contract> bool StandInDocumentDisplay<Contract>::isFlippedHorizontally()
{
    this->asked("isFlippedHorizontally");
    return this->state().isFlippedHorizontally;
}

template <class Contract> bool StandInDocumentDisplay<Contract>::isFlippedVertically()
{
    this->asked("isFlippedVertically");
    return this->state().isFlippedVertically;
}

template <class Contract> float StandInDocumentDisplay<Contract>::viewScale(bool flag)
{
    this->asked("viewScale", flag);
    return float(this->geometry().scale);
}

template <class Contract> int StandInDocumentDisplay<Contract>::binningLevel()
{
    this->asked("binningLevel");
    return this->state().binningLevel;
}

template <class Contract>
QPixmap StandInDocumentDisplay<Contract>::previewPixmap(int mode, int width, int height,
                                                        int partitionNo, bool flag,
                                                        const QDateTime &time)
{
    this->asked("previewPixmap", mode, width, height, partitionNo, flag, time);
    return pixmapOf(this->preview().picture(mode, partitionNo, QSize(width, height), time));
}

template <class Contract>
QSize StandInDocumentDisplay<Contract>::documentResolution(int kind, int partitionNo, bool base)
{
    this->asked("documentResolution", kind, partitionNo, base);
    return base ? this->pictureSize() : this->preview().savedSize(kind, partitionNo);
}

template <class Contract>
QPixmap StandInDocumentDisplay<Contract>::documentThumbnail(int kind, int width, int height,
                                                            int partitionNo, int number,
                                                            const QDateTime &time)
{
    this->asked("documentThumbnail", kind, width, height, partitionNo, number, time);
    return pixmapOf(this->preview().thumbnail(kind, partitionNo, QSize(width, height), time));
}

template <class Contract> QString StandInDocumentDisplay<Contract>::documentLogoPath()
{
    this->asked("documentLogoPath");
    return this->state().logoPath;
}

template <class Contract> void StandInDocumentDisplay<Contract>::applyLogoPath(const QString &path)
{
    this->told("applyLogoPath", path);
    this->state().logoPath = path;
}

template <class Contract> void StandInDocumentDisplay<Contract>::markInfoOverlayDirty()
{
    this->told("markInfoOverlayDirty");
    this->state().isInfoOverlayDirty = true;
}

template <class Contract> bool StandInDocumentDisplay<Contract>::showsLutCurve()
{
    this->asked("showsLutCurve");
    return this->state().showsLutCurve;
}

template <class Contract> bool StandInDocumentDisplay<Contract>::isReductionSuspended()
{
    this->asked("isReductionSuspended");
    return this->state().isReductionSuspended;
}

template class StandInDocumentDisplay<DOC_Interface>;
template class StandInDocumentDisplay<DOC_Camera>;
