#include "bridge/data/PrefSnapshot.h"

#include "contract/HostGuard.h"

#include <algorithm>

namespace {

QVariant valueOf(HostServices *host, const QString &key, PrefSnapshot::Type type)
{
    switch (type) {
    case PrefSnapshot::Type::Int:
        return host->getPrefInt(key, QVariant());
    case PrefSnapshot::Type::Bool:
        return host->getPrefBool(key, QVariant());
    case PrefSnapshot::Type::Plain:
        break;
    }
    return host->getPref(key, QVariant());
}

}

void PrefSnapshot::read(HostServices *host, const QString &key, Type type)
{
    guarded(host, [&] { m_settings.append({key, type, valueOf(host, key, type)}); });
}

void PrefSnapshot::writeBack(HostServices *host) const
{
    for (const Setting &setting : m_settings) {
        switch (setting.type) {
        case Type::Int:
            host->setPrefInt(setting.key, setting.value.toInt());
            break;
        case Type::Bool:
            host->setPrefBool(setting.key, setting.value.toBool());
            break;
        case Type::Plain:
            host->setPref(setting.key, setting.value);
            break;
        }
    }
}

std::optional<QVariant> PrefSnapshot::value(const QString &key) const
{
    const auto found = std::find_if(m_settings.cbegin(), m_settings.cend(),
                                    [&](const Setting &setting) { return setting.key == key; });
    if (found == m_settings.cend())
        return std::nullopt;
    return found->value;
}
