#include "standin/documents/StandInDocument.h"

template <class Contract> bool StandInDocumentMain<Contract>::usesScaleDivider(bool flag)
{
    asked("usesScaleDivider", flag);
    return state().usesScaleDivider;
}

template <class Contract> void StandInDocumentMain<Contract>::notifyChange(int what, bool flag)
{
    told("notifyChange", what, flag);
    if (what & 1)
        pushSettings();
}

template <class Contract> QList<int> StandInDocumentMain<Contract>::partitionNumbers()
{
    QList<int> numbers;
    if (asked("partitionNumbers").empty)
        return numbers;
    for (const StandInPartition &entry : qAsConst(state().partitions))
        numbers.append(entry.number);
    return numbers;
}

template <class Contract> QString StandInDocumentMain<Contract>::originalFilePath()
{
    asked("originalFilePath");
    return state().originalFilePath;
}

template <class Contract> QString StandInDocumentMain<Contract>::originalFileName()
{
    asked("originalFileName");
    return state().originalFileName;
}

template <class Contract> QString StandInDocumentMain<Contract>::partitionName(int partitionNo)
{
    asked("partitionName", partitionNo);
    const StandInPartition *found = partition(partitionNo);
    return found ? found->name : QString();
}

template <class Contract> QString StandInDocumentMain<Contract>::deviceName()
{
    asked("deviceName");
    return state().deviceName;
}

template <class Contract> bool StandInDocumentMain<Contract>::isCameraRecord()
{
    asked("isCameraRecord");
    return state().isCameraRecord;
}

template <class Contract>
QString StandInDocumentMain<Contract>::fileNameAddition(int mode, int partitionNo, int sequence,
                                                        bool &usesSequence, const QDateTime &time)
{
    asked("fileNameAddition", mode, partitionNo, sequence, time);
    if (!state().nameAddition)
        return target().nameAddition(mode, partitionNo, sequence, usesSequence, time);
    QString addition = *state().nameAddition;
    usesSequence = addition.contains(QLatin1String("%1"));
    return addition.replace(QLatin1String("%1"), QString::number(sequence));
}

template <class Contract> int StandInDocumentMain<Contract>::documentKind()
{
    asked("documentKind");
    return state().documentKind;
}

template <class Contract> bool StandInDocumentMain<Contract>::isOnSdCard()
{
    asked("isOnSdCard");
    return state().isOnSdCard;
}

template <class Contract> bool StandInDocumentMain<Contract>::isOnKelvault()
{
    asked("isOnKelvault");
    return state().isOnKelvault;
}

template <class Contract> bool StandInDocumentMain<Contract>::isOnCFast()
{
    asked("isOnCFast");
    return state().isOnCFast;
}

template <class Contract> bool StandInDocumentMain<Contract>::isBusySaving()
{
    asked("isBusySaving");
    return state().isBusySaving;
}

template <class Contract> void StandInDocumentMain<Contract>::setSaveInfoOption(bool on)
{
    told("setSaveInfoOption", on);
    state().saveInfoOption = on;
}

template <class Contract> void StandInDocumentMain<Contract>::setSaveCorrectOption(bool on)
{
    told("setSaveCorrectOption", on);
    state().saveCorrectOption = on;
}

template <class Contract> void StandInDocumentMain<Contract>::setSaveScaleOption(bool on)
{
    told("setSaveScaleOption", on);
    state().saveScaleOption = on;
}

template <class Contract>
QVariantMap StandInDocumentMain<Contract>::documentInfoMap(bool first, bool second, bool convert,
                                                           bool layout, bool third)
{
    if (asked("documentInfoMap", first, second, convert, layout, third).empty)
        return {};
    return state().infoMap.isEmpty() ? target().infoMap(layout) : state().infoMap;
}

template <class Contract> int StandInDocumentMain<Contract>::currentPartition()
{
    asked("currentPartition");
    return state().currentPartition;
}

template <class Contract> bool StandInDocumentMain<Contract>::supportsMultiSkip()
{
    asked("supportsMultiSkip");
    return state().supportsMultiSkip;
}

template <class Contract> bool StandInDocumentMain<Contract>::supportsFileMultiSkip()
{
    asked("supportsFileMultiSkip");
    return state().supportsFileMultiSkip;
}

template <class Contract> bool StandInDocumentMain<Contract>::isRecordedOnce()
{
    asked("isRecordedOnce");
    return state().isRecordedOnce.value_or(hasRecordedFrames());
}

template <class Contract> void StandInDocumentMain<Contract>::setOpenedByImport(bool on)
{
    told("setOpenedByImport", on);
    state().isOpenedByImport = on;
}

template <class Contract> bool StandInDocumentMain<Contract>::canRenameData()
{
    asked("canRenameData");
    return state().canRenameData;
}

template <class Contract> bool StandInDocumentMain<Contract>::canCheckSaved()
{
    asked("canCheckSaved");
    return state().canCheckSaved;
}

template <class Contract> bool StandInDocumentMain<Contract>::canDeleteFile()
{
    asked("canDeleteFile");
    return state().canDeleteFile;
}

template <class Contract> void StandInDocumentMain<Contract>::deleteOwnFile()
{
    told("deleteOwnFile");
    state().isFileDeleted = true;
}

template <class Contract> void StandInDocumentMain<Contract>::setDataName(const QString &name)
{
    told("setDataName", name);
    state().dataName = name;
}

template <class Contract> QString StandInDocumentMain<Contract>::documentName()
{
    asked("documentName");
    return state().documentName;
}

template <class Contract> QVariantList StandInDocumentMain<Contract>::customInfoList()
{
    return asked("customInfoList").empty ? QVariantList() : state().customInfo;
}

template <class Contract> void StandInDocumentMain<Contract>::clearCustomInfo()
{
    told("clearCustomInfo");
    state().customInfo.clear();
    notifyInfoChanged();
}

template <class Contract>
void StandInDocumentMain<Contract>::addCustomInfo(const QString &name, const QString &value,
                                                  const QString &unit, bool display,
                                                  bool useFileName)
{
    told("addCustomInfo", name, value, unit, display, useFileName);
    state().customInfo.append(customInfoRecord(name, value, unit, display, useFileName));
    notifyInfoChanged();
}

template <class Contract>
void StandInDocumentMain<Contract>::setCustomInfo(const QString &name, const QString &value,
                                                  const QString &unit, bool display,
                                                  bool useFileName)
{
    told("setCustomInfo", name, value, unit, display, useFileName);
    const int index = indexOfCustomInfo(name);
    if (index < 0)
        return;
    state().customInfo[index] = customInfoRecord(name, value, unit, display, useFileName);
    notifyInfoChanged();
}

template <class Contract> void StandInDocumentMain<Contract>::removeCustomInfo(const QString &name)
{
    told("removeCustomInfo", name);
    const int index = indexOfCustomInfo(name);
    if (index < 0)
        return;
    state().customInfo.removeAt(index);
    notifyInfoChanged();
}

template <class Contract>
void StandInDocumentMain<Contract>::renameCustomInfo(const QString &oldName, const QString &newName)
{
    told("renameCustomInfo", oldName, newName);
    const int index = indexOfCustomInfo(oldName);
    if (index < 0)
        return;
    QVariantMap record = state().customInfo.at(index).toMap();
    record.insert(QStringLiteral("name"), newName);
    state().customInfo[index] = record;
    notifyInfoChanged();
}

template <class Contract> QString StandInDocumentMain<Contract>::documentComment()
{
    asked("documentComment");
    return state().comment;
}

template <class Contract>
void StandInDocumentMain<Contract>::setDocumentComment(const QString &text)
{
    told("setDocumentComment", text);
    state().comment = text;
    notifyInfoChanged();
}

template <class Contract> bool StandInDocumentMain<Contract>::isPlaying()
{
    asked("isPlaying");
    return state().isPlaying;
}

template <class Contract> uint StandInDocumentMain<Contract>::partitionFrameCount(int partitionNo)
{
    asked("partitionFrameCount", partitionNo);
    const StandInPartition *found = partition(partitionNo);
    return found ? found->frames : 0;
}

template <class Contract> uint StandInDocumentMain<Contract>::fileRecordRate()
{
    asked("fileRecordRate");
    return state().fileRecordRate;
}

template <class Contract> uint StandInDocumentMain<Contract>::partitionRecordRate(int partitionNo)
{
    asked("partitionRecordRate", partitionNo);
    const StandInPartition *found = partition(partitionNo);
    return found ? found->recordRate : 0;
}

template <class Contract> QString StandInDocumentMain<Contract>::fallbackName()
{
    asked("fallbackName");
    return state().fallbackName;
}

template <class Contract> bool StandInDocumentMain<Contract>::isSelected()
{
    asked("isSelected");
    return isSelectedHere();
}

template <class Contract> QString StandInDocumentMain<Contract>::displayName()
{
    asked("displayName");
    return state().displayName;
}

template <class Contract> bool StandInDocumentMain<Contract>::isMultiTrimming()
{
    asked("isMultiTrimming");
    return state().isMultiTrimming;
}

template <class Contract> QString StandInDocumentMain<Contract>::multiTrimmingLabel()
{
    asked("multiTrimmingLabel");
    return state().multiTrimmingLabel;
}

template <class Contract> void StandInDocumentMain<Contract>::showPreviousPreview()
{
    told("showPreviousPreview");
    preview().step(-1);
}

template <class Contract> void StandInDocumentMain<Contract>::showNextPreview()
{
    told("showNextPreview");
    preview().step(1);
}

template <class Contract> int StandInDocumentMain<Contract>::selectPartition(int partitionNo)
{
    told("selectPartition", partitionNo);
    const QList<StandInPartition> &partitions = state().partitions;
    int before = 0;
    int position = 0;
    for (int i = 0; i < partitions.size(); ++i) {
        if (i + 1 == state().currentPartition)
            before = partitions.at(i).number;
        if (partitions.at(i).number == partitionNo)
            position = i + 1;
    }
    if (position > 0)
        state().currentPartition = position;
    return before;
}

template <class Contract> bool StandInDocumentMain<Contract>::isSelectable()
{
    asked("isSelectable");
    return state().isSelectable;
}

template <class Contract> void StandInDocumentMain<Contract>::setSelected(bool selected)
{
    told("setSelected", selected);
    setSelectedHere(selected);
}

template <class Contract> bool StandInDocumentMain<Contract>::isSelectedMulti()
{
    asked("isSelectedMulti");
    return isSelectedHere() && selectedCount() > 1;
}

template <class Contract> bool StandInDocumentMain<Contract>::isGroup()
{
    asked("isGroup");
    return standsForGroup();
}

template <class Contract> QList<DOC_Interface *> StandInDocumentMain<Contract>::groupMembers()
{
    return asked("groupMembers").empty ? QList<DOC_Interface *>() : groupMembersHere();
}

template <class Contract> QString StandInDocumentMain<Contract>::recordDate()
{
    asked("recordDate");
    return state().recordDate;
}

template <class Contract> QString StandInDocumentMain<Contract>::recordTime()
{
    asked("recordTime");
    return state().recordTime;
}

template class StandInDocumentMain<DOC_Interface>;
template class StandInDocumentMain<DOC_Camera>;
