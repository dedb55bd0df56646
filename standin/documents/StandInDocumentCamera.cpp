#include "standin/documents/StandInDocument.h"

#include "standin/documents/DocumentOwner.h"

#include <algorithm>
#include <type_traits>

template <class Contract> void StandInDocumentCamera<Contract>::fullImageSize(int *w, int *h)
{
    this->asked("fullImageSize");
    const QSize size = this->sensorSize();
    if (w)
        *w = size.width();
    if (h)
        *h = size.height();
}

template <class Contract> bool StandInDocumentCamera<Contract>::hasScaleDivider(bool flag)
{
    this->asked("hasScaleDivider", flag);
    return this->state().hasScaleDivider;
}

template <class Contract> int StandInDocumentCamera<Contract>::scaleDivider()
{
    this->asked("scaleDivider");
    return this->state().scaleDivider;
}

template <class Contract> void StandInDocumentCamera<Contract>::applyPreset(int number)
{
    this->told("applyPreset", number);
    this->takePreset(number);
}

template <class Contract> int StandInDocumentCamera<Contract>::cameraNumber()
{
    this->asked("cameraNumber");
    return this->state().cameraNumber;
}

template <class Contract> int StandInDocumentCamera<Contract>::headNumber()
{
    this->asked("headNumber");
    return this->state().headNumber;
}

template <class Contract> int StandInDocumentCamera<Contract>::cameraCount()
{
    this->asked("cameraCount");
    return this->cameraCountOfOwner();
}

template <class Contract> DOC_HeadInterface *StandInDocumentCamera<Contract>::headInterface()
{
    if (this->asked("headInterface").null || this->state().headCount < 1)
        return nullptr;
    return this->heads();
}

template <class Contract> bool StandInDocumentCamera<Contract>::isMediaManaged()
{
    this->asked("isMediaManaged");
    return this->state().isMediaManaged;
}

template <class Contract> bool StandInDocumentCamera<Contract>::isSlotUsable(int slot)
{
    this->asked("isSlotUsable", slot);
    const StandInSlot *found = this->slotAt(slot);
    return found && found->usable;
}

template <class Contract> bool StandInDocumentCamera<Contract>::isSlotEnabled(int slot)
{
    this->asked("isSlotEnabled", slot);
    const StandInSlot *found = this->slotAt(slot);
    return found && found->enabled;
}

template <class Contract> SlotStatus StandInDocumentCamera<Contract>::slotStatus(int slot)
{
    this->asked("slotStatus", slot);
    const StandInSlot *found = this->slotAt(slot);
    return found ? found->status : SlotStatus();
}

template <class Contract> bool StandInDocumentCamera<Contract>::isFitMemoryMode()
{
    this->asked("isFitMemoryMode");
    return this->state().isFitMemoryMode;
}

template <class Contract> int StandInDocumentCamera<Contract>::maxDataCount(int slot)
{
    this->asked("maxDataCount", slot);
    const StandInSlot *found = this->slotAt(slot);
    return found ? found->maxDataCount : 0;
}

template <class Contract> uint StandInDocumentCamera<Contract>::dataFrames(int slot, int index)
{
    this->asked("dataFrames", slot, index);
    const StandInData *data = this->dataAt(slot, index);
    return data ? data->frames : 0;
}

template <class Contract> QString StandInDocumentCamera<Contract>::dataName(int slot, int index)
{
    this->asked("dataName", slot, index);
    const StandInData *data = this->dataAt(slot, index);
    return data ? data->name : QString();
}

template <class Contract> DataTime StandInDocumentCamera<Contract>::dataTime(int slot, int index)
{
    this->asked("dataTime", slot, index);
    const StandInData *data = this->dataAt(slot, index);
    return data ? data->time : DataTime();
}

template <class Contract> void StandInDocumentCamera<Contract>::formatSlot(int slot)
{
    this->told("formatSlot", slot);
    if (StandInSlot *found = this->slotAt(slot)) {
        found->data.clear();
        found->status.formatted = 1;
    }
}

template <class Contract> void StandInDocumentCamera<Contract>::refreshSlot(int slot)
{
    this->told("refreshSlot", slot);
    if (StandInSlot *found = this->slotAt(slot))
        ++found->refreshes;
}

template <class Contract> int StandInDocumentCamera<Contract>::slotOfHead(int headNo)
{
    this->asked("slotOfHead", headNo);
    return this->state().slotOfHead.value(headNo, -1);
}

template <class Contract> quint64 StandInDocumentCamera<Contract>::slotCapacity(int slot)
{
    this->asked("slotCapacity", slot);
    const StandInSlot *found = this->slotAt(slot);
    return found ? found->freeMebibytes : 0;
}

template <class Contract>
void StandInDocumentCamera<Contract>::setDataNameOnSlot(int slot, int dataNo,
                                                        const QByteArray &name)
{
    this->told("setDataNameOnSlot", slot, dataNo, name);
    StandInSlot *found = this->slotAt(slot);
    if (found && dataNo >= 0 && dataNo < found->data.size())
        found->data[dataNo].name = QString::fromUtf8(name);
}

template <class Contract> QString StandInDocumentCamera<Contract>::cameraName()
{
    this->asked("cameraName");
    return this->state().cameraName;
}

template <class Contract> bool StandInDocumentCamera<Contract>::isMobile()
{
    this->asked("isMobile");
    return this->state().isMobile;
}

template <class Contract> bool StandInDocumentCamera<Contract>::isDummy()
{
    this->asked("isDummy");
    return this->state().isDummy;
}

template <class Contract> bool StandInDocumentCamera<Contract>::hasCapability(int capability)
{
    this->asked("hasCapability", capability);
    return this->state().capabilities.contains(capability);
}

template <class Contract> bool StandInDocumentCamera<Contract>::isLocked()
{
    this->asked("isLocked");
    return this->isLockedTogether();
}

template <class Contract> SdCardInfo StandInDocumentCamera<Contract>::sdCardInfo(int slot)
{
    this->asked("sdCardInfo", slot);
    const StandInSlot *found = this->slotAt(slot);
    return found ? found->card : SdCardInfo();
}

template <class Contract> bool StandInDocumentCamera<Contract>::sharesDevice()
{
    this->asked("sharesDevice");
    return this->sharesDeviceHere();
}

template <class Contract> EditDeviceData StandInDocumentCamera<Contract>::editDeviceData()
{
    this->asked("editDeviceData");
    return this->state().editData;
}

template <class Contract> void StandInDocumentCamera<Contract>::setCameraName(const QString &name)
{
    this->told("setCameraName", name);
    DocumentState &state = this->state();
    state.cameraName = name;
    if constexpr (std::is_same_v<Contract, DOC_Camera>) { // a recording has the name of its folder
        state.documentName = name;
        state.displayName = name;
        state.fallbackName = name;
    }
    this->notifyInfoChanged();
}

template <class Contract>
void StandInDocumentCamera<Contract>::setNetworkSetting(int etherType,
                                                        const NetworkSetting &setting)
{
    this->told("setNetworkSetting", etherType, setting);
    if (StandInCamera *camera = this->owner().camera(this->key()))
        this->owner().changeNetwork(*camera, etherType, setting);
}

template <class Contract> void StandInDocumentCamera<Contract>::setEtherType(int type)
{
    this->told("setEtherType", type);
    if (StandInCamera *camera = this->owner().camera(this->key()))
        this->owner().chooseEtherType(*camera, type);
}

template <class Contract> QList<PresetInfo> StandInDocumentCamera<Contract>::presets()
{
    if (this->asked("presets").empty)
        return {};
    QList<PresetInfo> result = this->state().presets;
    std::stable_sort(result.begin(), result.end(),
                     [](const PresetInfo &a, const PresetInfo &b) { return a.number < b.number; });
    return result;
}

template <class Contract> bool StandInDocumentCamera<Contract>::presetNeedsReboot(int number)
{
    this->asked("presetNeedsReboot", number);
    return this->state().presetsWithReboot.contains(number);
}

template <class Contract> void StandInDocumentCamera<Contract>::refreshCamera()
{
    this->told("refreshCamera");
    ++this->state().cameraRefreshes;
}

template class StandInDocumentCamera<DOC_Interface>;
template class StandInDocumentCamera<DOC_Camera>;
