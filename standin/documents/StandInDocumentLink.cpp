#include "standin/documents/StandInDocument.h"

template <class Contract> bool StandInDocumentLink<Contract>::isConnected()
{
    this->asked("isConnected");
    return this->state().isConnected;
}

template <class Contract> QString StandInDocumentLink<Contract>::ipAddress()
{
    this->asked("ipAddress");
    return this->state().ipAddress;
}

template <class Contract> bool StandInDocumentLink<Contract>::isFound()
{
    this->asked("isFound");
    return this->state().isFound;
}

template <class Contract> int StandInDocumentLink<Contract>::wirelessState()
{
    this->asked("wirelessState");
    return this->state().wirelessState;
}

template <class Contract> int StandInDocumentLink<Contract>::linkSpeedState()
{
    this->asked("linkSpeedState");
    return this->state().linkSpeedState;
}

template class StandInDocumentLink<DOC_Interface>;
template class StandInDocumentLink<DOC_Camera>;
