#include "bridge/data/PrefSnapshot.h"

#include "contract/HostGuard.h"

#include <QVariant>

void PrefSnapshot::read(HostServices *host, const QString &key, Type type)
{
    guarded(host, [&] {
        const int value = type == Type::Int ? host->getPrefInt(key, QVariant())
                                            : int(host->getPrefBool(key, QVariant()));
        m_settings.append({key, type, value});
    });
}

void PrefSnapshot::writeBack(HostServices *host) const
{
    for (const Setting &setting : m_settings) {
        if (setting.type == Type::Int)
            host->setPrefInt(setting.key, setting.value);
        else
            host->setPrefBool(setting.key, setting.value != 0);
    }
}
