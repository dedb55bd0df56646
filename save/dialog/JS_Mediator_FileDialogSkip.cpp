#include "save/dialog/JS_Mediator_FileDialog.h"

#include "contract/HostGuard.h"
#include "foundation/Keys.h"
#include "foundation/SaveModes.h"
#include "foundation/Utilities.h"

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <limits>

// Skipped frames.

namespace {

constexpr int Milliseconds = 1;

// Snapshots and conversions have none of their own.
const Keys::SaveKeys &skipKeys(int mode)
{
    switch (SaveModes::family(mode)) {
    case SaveModes::Family::Layout:
        return Keys::layoutSave;
    case SaveModes::Family::Report:
        return Keys::reportSave;
    default:
        return Keys::exportSave;
    }
}

// The nearest number of the type; 0 for what is no number.
int wholeFrames(double frames)
{
    if (std::isnan(frames))
        return 0;
    return int(std::clamp<double>(frames, std::numeric_limits<int>::min(),
                                  std::numeric_limits<int>::max()));
}

}

void JS_Mediator_FileDialog::setSkipMode(int mode)
{
    const QString &key = skipKeys(saveModeOfPage()).skipUnit;
    guarded(host(), [&] { host()->setPrefInt(key, mode); });
}

int JS_Mediator_FileDialog::skipMode()
{
    return host()->getPrefInt(skipKeys(saveModeOfPage()).skipUnit, QVariant());
}

int JS_Mediator_FileDialog::getSkipMode()
{
    QPointer<JS_Mediator_FileDialog> self(this); // a call of the host may end the mediator
    bool known = false;
    const int mode = guarded(host(), 0, [&] {
        const int stored = skipMode();
        known = true;
        return stored;
    });
    if (self && !known)
        m_isSkipKnown = false;
    return mode;
}

void JS_Mediator_FileDialog::setSkipFrames(double val)
{
    guarded(host(), [&] { storeSkipFrames(val); });
}

void JS_Mediator_FileDialog::applySkipFrames(double value)
{
    if (m_isSkipKnown)
        setSkipFrames(value);
}

void JS_Mediator_FileDialog::storeSkipFrames(double value)
{
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    const Keys::SaveKeys &keys = skipKeys(saveModeOfPage());
    const bool inTime = skipMode() == Milliseconds;
    if (!inTime) {
        services->setPrefInt(keys.skipSaveFrame, wholeFrames(value));
        return;
    }
    if (!self)
        return;
    const uint rate = skipRateDivisor();
    const double msec = UTL::nearestSkipValue(value, skipFrameValues(), UTL::SkipTie::First);
    services->setPrefFloat(keys.skipSaveMsec, msec);
    if (rate != 0)
        services->setPrefInt(keys.skipSaveFrame, wholeFrames(std::round(msec / 1000.0 * rate)));
}

double JS_Mediator_FileDialog::skipFrames()
{
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    const Keys::SaveKeys &keys = skipKeys(saveModeOfPage());
    const double frames = services->getPrefInt(keys.skipSaveFrame, QVariant());
    if (!self || skipMode() != Milliseconds || !self)
        return frames;
    const uint rate = skipRateDivisor();
    if (rate == 0)
        return services->getPrefFloat(keys.skipSaveMsec, QVariant());
    return UTL::nearestSkipValue(frames * 1000.0 / rate, skipFrameValues(), UTL::SkipTie::First);
}

double JS_Mediator_FileDialog::getSkipFrames()
{
    QPointer<JS_Mediator_FileDialog> self(this); // a call of the host may end the mediator
    bool known = false;
    const double value = guarded(host(), 0.0, [&] {
        const double stored = skipFrames();
        known = true;
        return stored;
    });
    if (self && !known)
        m_isSkipKnown = false;
    return value;
}

void JS_Mediator_FileDialog::refreshSkipFrame(const QVariantMap &targets)
{
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    guarded(services, [&] {
        QMap<DOC_Interface *, QList<PARTITIONNUMBER>> partitions;
        for (auto target = targets.cbegin(); target != targets.cend(); ++target) {
            DOC_Interface *doc = services->deviceByKey(target.key().toULongLong(), true);
            if (!doc)
                continue;
            QList<PARTITIONNUMBER> numbers;
            const QVariantList values = target.value().toList();
            for (const QVariant &number : values)
                numbers.append(number.toInt());
            partitions.insert(doc, numbers);
        }
        if (!self)
            return;
        m_isSkipKnown = true;
        refreshSkipRange(partitions);
    });
}
