#include "standin/network/NetworkFile.h"

#include "standin/network/Ipv4.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <cmath>

namespace {

constexpr int MostHeads = 16;
constexpr int LongestTime = 60000; // milliseconds

/// Reads the entries of a file, and keeps the first reason why that is not possible.
class Reader
{
public:
    explicit Reader(const QJsonObject &file) : m_file(file) {}

    NetworkFile::Outcome read()
    {
        NetworkFile::Outcome outcome;
        NetworkPlan &plan = outcome.plan;
        m_where = QStringLiteral("the network");
        plan.searchTime = number(m_file, "searchTime", 1, LongestTime, plan.searchTime);
        const QJsonArray adapters = array("adapters");
        for (int i = 0; i < adapters.size(); ++i) {
            m_where = QStringLiteral("adapter %1").arg(i + 1);
            plan.adapters.append(adapter(adapters.at(i).toObject()));
        }
        const QJsonArray devices = array("devices");
        for (int i = 0; i < devices.size(); ++i) {
            m_where = QStringLiteral("device %1").arg(i + 1);
            plan.devices.append(device(devices.at(i).toObject()));
        }
        outcome.reason = m_reason;
        return outcome;
    }

private:
    NetworkAdapter adapter(const QJsonObject &entry)
    {
        NetworkAdapter adapter;
        adapter.name = text(entry, "name");
        adapter.address = address(entry, "address");
        adapter.mask = mask(entry, "mask");
        return adapter;
    }

    NetworkDevice device(const QJsonObject &entry)
    {
        NetworkDevice device;
        device.serialNumber = text(entry, "serialNumber");
        if (device.serialNumber.isEmpty())
            fail(QStringLiteral("it has no \"serialNumber\""));
        else if (m_serialNumbers.contains(device.serialNumber))
            fail(QStringLiteral("its \"serialNumber\" stands there twice"));
        m_serialNumbers.insert(device.serialNumber);
        device.hardwareAddress = text(entry, "hardwareAddress");
        const QString hardware = device.hardwareAddress.toUpper();
        if (!hardware.isEmpty() && m_hardwareAddresses.contains(hardware))
            fail(QStringLiteral("its \"hardwareAddress\" stands there twice"));
        m_hardwareAddresses.insert(hardware);
        if (entry.contains(QLatin1String("model")))
            device.model = text(entry, "model");
        device.heads = number(entry, "heads", 1, MostHeads, 1);
        device.setting = {address(entry, "address"), mask(entry, "mask"), text(entry, "gateway")};
        device.adapter = text(entry, "adapter");
        device.delay = number(entry, "delay", -1, LongestTime, 0);
        device.isHeldElsewhere = flag(entry, "heldElsewhere", false);
        device.isPlugged = flag(entry, "plugged", true);
        return device;
    }

    QJsonArray array(const char *key)
    {
        const QJsonValue value = m_file.value(QLatin1String(key));
        if (!value.isUndefined() && !value.isArray())
            fail(QStringLiteral("its \"%1\" is no array").arg(QLatin1String(key)));
        return value.toArray();
    }

    QString text(const QJsonObject &entry, const char *key)
    {
        const QJsonValue value = entry.value(QLatin1String(key));
        if (!value.isUndefined() && !value.isString())
            fail(QStringLiteral("its \"%1\" is no text").arg(QLatin1String(key)));
        return value.toString();
    }

    QString address(const QJsonObject &entry, const char *key)
    {
        const QString value = text(entry, key);
        if (!Ipv4::address(value))
            fail(QStringLiteral("its \"%1\" is no address").arg(QLatin1String(key)));
        return value;
    }

    QString mask(const QJsonObject &entry, const char *key)
    {
        const QString value = text(entry, key);
        if (!Ipv4::mask(value))
            fail(QStringLiteral("its \"%1\" is no subnet mask").arg(QLatin1String(key)));
        return value;
    }

    int number(const QJsonObject &entry, const char *key, int smallest, int largest, int otherwise)
    {
        const QJsonValue value = entry.value(QLatin1String(key));
        if (value.isUndefined())
            return otherwise;
        const double number = value.toDouble(std::nan(""));
        if (!(number >= smallest && number <= largest) || number != std::floor(number)) {
            fail(QStringLiteral("its \"%1\" is no whole number from %2 to %3")
                     .arg(QLatin1String(key), QString::number(smallest), QString::number(largest)));
            return otherwise;
        }
        return int(number);
    }

    bool flag(const QJsonObject &entry, const char *key, bool otherwise)
    {
        const QJsonValue value = entry.value(QLatin1String(key));
        if (!value.isUndefined() && !value.isBool())
            fail(QStringLiteral("its \"%1\" is neither true nor false").arg(QLatin1String(key)));
        return value.toBool(otherwise);
    }

    void fail(const QString &reason)
    {
        if (m_reason.isEmpty())
            m_reason = m_where + QStringLiteral(": ") + reason;
    }

    QJsonObject m_file;
    QString m_where;
    QString m_reason;
    QSet<QString> m_serialNumbers;
    QSet<QString> m_hardwareAddresses;
};

NetworkFile::Outcome failure(const QString &reason)
{
    NetworkFile::Outcome outcome;
    outcome.reason = reason;
    return outcome;
}

}

NetworkFile::Outcome NetworkFile::read(const QString &path)
{
    if (!QFileInfo(path).isFile()) // opening a pipe would wait
        return failure(QStringLiteral("it is no file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return failure(file.errorString());
    const QByteArray content = file.read(LargestFile + 1);
    if (file.error() != QFileDevice::NoError)
        return failure(file.errorString());
    if (content.size() > LargestFile)
        return failure(QStringLiteral("it is larger than %1 bytes").arg(LargestFile));
    return parse(content);
}

NetworkFile::Outcome NetworkFile::parse(const QByteArray &content)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError)
        return failure(error.errorString());
    if (!document.isObject())
        return failure(QStringLiteral("it holds no JSON object"));
    return Reader(document.object()).read();
}
