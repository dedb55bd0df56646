#include "standin/documents/DocumentTarget.h"

#include "contract/HostValues.h"
#include "standin/answers/FileNameAddition.h"
#include "standin/answers/PartitionInfo.h"
#include "standin/documents/DocumentOwner.h"
#include "standin/documents/StandInDocument.h"

InfoValues DocumentTarget::values() const
{
    const DocumentOwner &owner = m_document.owner();
    return {DisplayFormats::read([&](const QString &key) { return owner.setting(key); }),
            owner.timeCode()};
}

QString DocumentTarget::nameAddition(int mode, int partitionNo, int sequence, bool &usesSequence,
                                     const QDateTime &time) const
{
    const DocumentOwner &owner = m_document.owner();
    const DocumentState &state = m_document.state();
    const FileNameAddition addition = FileNameAddition::read(
        SaveModes::family(mode), [&](const QString &key) { return owner.setting(key); });
    const bool isFileMode = owner.viewMode() == HostMode::File;
    PathRules::NumberFacts device;
    if (!isFileMode)
        device = {state.cameraNumber + 1, state.headNumber, owner.cameraCount(), state.headCount};
    usesSequence = addition.usesSequence();
    return addition.compose(sequence, device, isFileMode, [&](const QString &id) {
        InfoFacts facts = m_document.infoFacts(0, partitionNo);
        facts.time = time;
        return values().lines(id, facts).join(QLatin1Char(' '));
    });
}

QVariantMap DocumentTarget::infoMap(bool layout) const
{
    const DocumentOwner &owner = m_document.owner();
    const DocumentState &state = m_document.state();
    const Keys::SaveKeys &keys = layout ? Keys::layoutSave : Keys::exportSave;
    const InfoValues texts = values();
    QVariantList rows;
    for (const StandInPartition &partition : state.partitions) {
        PartitionInfo info;
        info.docKey = m_document.key();
        info.isSelected = owner.selection().contains(m_document.key());
        info.facts = m_document.infoFacts(0, partition.number);
        info.filePath = state.originalFilePath;
        info.ipAddress = state.ipAddress;
        info.slotNumber = state.slotOfHead.value(state.headNumber, -1) + 1;
        info.isOnMedium = state.isOnSdCard || state.isOnKelvault || state.isOnCFast;
        info.dataName = state.dataName.isEmpty() ? state.documentName : state.dataName;
        info.driveName = state.driveName;
        info.serialNumber = state.dataSerialNumber;
        info.dataNumber = state.dataNumber;
        info.currentPartition = state.currentPartition;
        info.frames = partition.frames;
        info.skip = owner.setting(keys.skipSaveFrame).toInt();
        info.bits = state.imageFormat.bits;
        info.customInfo = state.customInfo;
        rows.append(info.row(texts));
    }
    return {{QStringLiteral("partitions"), rows}};
}
