#include "standin/documents/StandInDocument.h"

template <class Contract> QSize StandInDocumentView<Contract>::imageSize()
{
    this->asked("imageSize");
    return this->pictureSize();
}

template <class Contract>
void StandInDocumentView<Contract>::reportCursorPosition(const QPoint &pos)
{
    this->told("reportCursorPosition", pos);
    this->state().cursorPosition = pos;
}

template <class Contract>
QPoint StandInDocumentView<Contract>::mapPoint(const QPoint &pos, bool flag)
{
    this->asked("mapPoint", pos, flag);
    return this->geometry().toImage(pos);
}

template <class Contract> QRect StandInDocumentView<Contract>::mapRect(const QRect &rect)
{
    this->asked("mapRect", rect);
    return this->geometry().toView(rect);
}

template <class Contract> bool StandInDocumentView<Contract>::isTransposed()
{
    this->asked("isTransposed");
    return this->geometry().isTransposed();
}

template <class Contract> QPoint StandInDocumentView<Contract>::cursorPosition()
{
    this->asked("cursorPosition");
    return this->state().cursorPosition;
}

template <class Contract> bool StandInDocumentView<Contract>::imageFormat(ImageFormat &out)
{
    this->asked("imageFormat");
    if (!this->state().hasImageFormat)
        return false;
    out = this->state().imageFormat;
    return true;
}

template class StandInDocumentView<DOC_Interface>;
template class StandInDocumentView<DOC_Camera>;
