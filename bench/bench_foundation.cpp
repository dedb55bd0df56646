#include "bench/BenchRatios.h"
#include "bridge/mediator/OperationEventHandler.h"
#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "foundation/LogGroups.h"
#include "foundation/Utilities.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QCollator>

#include <algorithm>
#include <vector>

namespace {

constexpr int SortedDocuments = 10000;
constexpr int NameUp = 1;

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

/// A host that finds its documents at once: the time of its own search is not what is measured.
class IndexedHost : public StandInHost
{
public:
    IndexedHost() { setJournalEnabled(false); }

    void addNamed(const QString &name)
    {
        StandInDocument *document = addCamera();
        document->state().documentName = name;
        m_byKey.insert(document->key(), document->contract());
    }

    DOC_Interface *deviceByKey(DOCKEY key, bool) override { return m_byKey.value(key); }

private:
    QHash<DOCKEY, DOC_Interface *> m_byKey;
};

void addTraceScope(BenchRatios &ratios)
{
    const QString name = "JS_Mediator::setPrefInt";
    const QString arguments = LogGroups::group("name", QString("display/language")) +
                              LogGroups::group("value", 1) + LogGroups::group("update", true);
    const QString shown = arguments.trimmed();
    const auto plain = [=](benchmark::State &state) {
        for (auto _ : state) {
            qInfo() << "[ENTER]" << name << shown;
            qInfo() << "[LEAVE]" << name;
        }
    };
    const auto add = [&](const char *label, auto once) {
        ratios.add(
            label, 1.3,
            [once](benchmark::State &state) {
                for (auto _ : state)
                    once();
            },
            plain);
        ratios.countCalls(label, {once, [] { return 0; }});
    };
    add("trace scope", [=] { const OperationLogScope scope(name, arguments); });
    add("trace scope of an event",
        [=] { const OperationEventHandler operation(nullptr, name, arguments); });
}

void addSort(BenchRatios &ratios, IndexedHost &host)
{
    QStringList names;
    for (int i = 0; i < SortedDocuments; ++i)
        names.append(QString("Camera_C%1_Shot%2").arg(i % 7).arg(i * 7919 % SortedDocuments));
    QList<DOCKEY> keys;
    for (const QString &name : names) {
        host.addNamed(name);
        keys.append(DOCKEY(keys.size() + 1));
    }
    ratios.add(
        "sortDocuments of 10,000", 1.5,
        [&host, keys](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(UTL::sortDocuments(&host, NameUp, keys, false));
        },
        [names](benchmark::State &state) {
            for (auto _ : state) {
                QCollator collator;
                collator.setNumericMode(true);
                std::vector<std::pair<QCollatorSortKey, DOCKEY>> sorted;
                sorted.reserve(size_t(names.size()));
                for (int i = 0; i < names.size(); ++i)
                    sorted.emplace_back(collator.sortKey(names.at(i)), DOCKEY(i + 1));
                std::stable_sort(sorted.begin(), sorted.end(),
                                 [](const auto &a, const auto &b) { return a.first < b.first; });
                QList<DOCKEY> result;
                result.reserve(names.size());
                for (const auto &entry : sorted)
                    result.append(entry.second);
                benchmark::DoNotOptimize(result);
            }
        });
}

void addGuardedCall(BenchRatios &ratios, HostServices *host, StandInHost &standIn)
{
    ratios.add(
        "guarded call", 0,
        [host](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(guarded(host, false, [&] { return host->isLiveMode(); }));
        },
        [host](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(host->isLiveMode());
        });
    ratios.countCalls("guarded call",
                      {[host] { guarded(host, false, [&] { return host->isLiveMode(); }); },
                       [&standIn] { return standIn.callCount(); }});
}

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    IndexedHost host;
    BenchRatios ratios;
    addTraceScope(ratios);
    addSort(ratios, host);
    addGuardedCall(ratios, &host, host);

    QtMessageHandler previous = qInstallMessageHandler(dropMessage);
    const int status = ratios.run(argc, argv);
    qInstallMessageHandler(previous);
    return status;
}
