#include "standin/documents/DocumentTarget.h"

#include "contract/HostValues.h"
#include "standin/answers/FileNameAddition.h"
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
