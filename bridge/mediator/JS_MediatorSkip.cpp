#include "bridge/mediator/JS_Mediator.h"

#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"

#include <QtDebug>

// Skip values: every n-th frame, or every n milliseconds.

namespace {

constexpr int Milliseconds = 1;

void addFrameCounts(SkipSource &source, DOC_Interface *doc,
                    const QList<PARTITIONNUMBER> &partitions)
{
    for (PARTITIONNUMBER partition : partitions)
        source.addFrames(doc->partitionFrameCount(partition));
}

// In memory each partition has a rate of its own; a file has one. What has no rate does not count.
void addRatesAndCounts(SkipSource &source, DOC_Interface *doc,
                       const QList<PARTITIONNUMBER> &partitions, bool memory)
{
    if (!memory) {
        const uint rate = doc->fileRecordRate();
        if (rate < 1)
            return;
        source.addRate(rate);
        addFrameCounts(source, doc, partitions);
        return;
    }
    for (PARTITIONNUMBER partition : partitions) {
        const uint rate = doc->partitionRecordRate(partition);
        if (rate < 1)
            continue;
        source.addRate(rate);
        source.addFrames(doc->partitionFrameCount(partition));
    }
}

}

void JS_Mediator::setSkipMode(int) {}

void JS_Mediator::applySkipFrames(double) {}

int JS_Mediator::getSkipMode()
{
    return 0;
}

void JS_Mediator::setSkipFrames(double) {}

double JS_Mediator::getSkipFrames()
{
    return 1.0;
}

double JS_Mediator::getSkipMinFrames()
{
    return m_skipRange.minimum;
}

double JS_Mediator::getSkipMaxFrames()
{
    return m_skipRange.maximum;
}

void JS_Mediator::refreshSkipRange(const QMap<DOC_Interface *, QList<PARTITIONNUMBER>> &targets)
{
    if (targets.isEmpty())
        return;
    HostServices *host = m_host;
    QPointer<JS_Mediator> self(this);
    bool inTime = getSkipMode() == Milliseconds;
    if (!self)
        return;
    if (inTime) {
        SkipSource source;
        const bool memory = host->isMemoryMode();
        for (auto target = targets.cbegin(); target != targets.cend(); ++target)
            addRatesAndCounts(source, target.key(), target.value(), memory);
        if (!self)
            return;
        if (source.hasRates()) {
            m_skipRange = source.inMilliseconds(m_skipRange);
            if (m_skipRange.cut)
                qWarning() << "skip values end at" << MostSkipValues;
        } else {
            setSkipMode(0); // nothing has a rate: frames are all that is left to count
            if (!self)
                return;
            inTime = false;
        }
    }
    if (!inTime) {
        SkipSource source;
        for (auto target = targets.cbegin(); target != targets.cend(); ++target)
            addFrameCounts(source, target.key(), target.value());
        if (!self)
            return;
        m_skipRange = source.inFrames(m_skipRange);
    }
    const double current = getSkipFrames();
    if (!self)
        return;
    const double value = clampedSkipValue(m_skipRange, current);
    if (current != value)
        applySkipFrames(value);
}
