#include "standin/documents/StandInDocument.h"

template <class Contract> void StandInDocumentRefresh<Contract>::refresh(bool flag)
{
    this->told("refresh", flag);
    this->notifyRefreshed();
}

template class StandInDocumentRefresh<DOC_Interface>;
template class StandInDocumentRefresh<DOC_Camera>;
