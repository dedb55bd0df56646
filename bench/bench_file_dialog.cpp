#include "bench/BenchRatios.h"
#include "foundation/Json.h"
#include "save/dialog/JS_Mediator_FileDialog.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVector>

#include <memory>

namespace {

constexpr int Partitions = 10000;

void dropMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

/// A host in memory mode whose one document has many partitions, and a page that lists them.
struct Listing
{
    explicit Listing(bool isFile) : page(&host, QStringLiteral("filesavedialog"))
    {
        host.setMode(StandInHost::Mode::Memory);
        StandInCamera *camera = host.addCamera();
        camera->state().documentKind = isFile ? 2 : 0;
        QVariantList maps;
        for (int i = 1; i <= Partitions; ++i)
            maps.append(facts(i));
        camera->state().infoMap = {{"partitions", maps}};
        document = camera;
        const QJsonArray rows = QJsonDocument::fromJson(page.list(false).toUtf8()).array();
        for (const QJsonValue &row : rows) {
            const QJsonObject object = row.toObject();
            Row ready;
            for (auto value = object.begin(); value != object.end(); ++value) {
                if (value.value().isString())
                    ready.texts.append({value.key(), value.value().toString()});
                else
                    ready.others.append({value.key(), value.value()});
            }
            readyRows.append(ready);
        }
        host.setJournalEnabled(false);
    }

    static QVariantMap facts(int number)
    {
        QVariantMap map{{"totalframesplain", number}};
        for (const char *key : {"dockey",
                                "selected",
                                "filename",
                                "filepath",
                                "slotno",
                                "devicename",
                                "cameraname",
                                "ipaddress",
                                "date",
                                "time",
                                "shutterspeed",
                                "recordrate",
                                "currentpartition",
                                "totalframes",
                                "exportframes",
                                "resolution",
                                "capacity",
                                "capacitylabel",
                                "Comments",
                                "Custom_TestNo",
                                "Custom_Project",
                                "Custom_Engineer"})
            map.insert(QLatin1String(key), QString("%1 %2").arg(QLatin1String(key)).arg(number));
        return map;
    }

    // The same text from values that are there.
    QString write()
    {
        benchmark::DoNotOptimize(document->documentInfoMap(true, false, false, false, true));
        QJsonArray rows;
        for (const Row &ready : qAsConst(readyRows)) {
            QJsonObject row;
            for (const auto &text : ready.texts)
                row.insert(text.first, text.second);
            for (const auto &value : ready.others)
                row.insert(value.first, value.second);
            rows.append(row);
        }
        return Json::compactText(rows);
    }

    struct Row
    {
        QVector<QPair<QString, QString>> texts;
        QVector<QPair<QString, QJsonValue>> others;
    };

    StandInHost host;
    JS_Mediator_FileDialog page;
    DOC_Interface *document = nullptr;
    QVector<Row> readyRows;
};

bool addListing(BenchRatios &ratios, const char *name, bool isFile)
{
    const auto listing = std::make_shared<Listing>(isFile);
    if (listing->readyRows.size() != Partitions || listing->write() != listing->page.list(false))
        return false;
    ratios.add(
        name, 1.5,
        [listing](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(listing->page.list(false));
        },
        [listing](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(listing->write());
        });
    return true;
}

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    qInstallMessageHandler(dropMessages);
    BenchRatios ratios;
    if (!addListing(ratios, "targets, a file of 10,000 partitions", true) ||
        !addListing(ratios, "targets, a camera of 10,000 partitions", false))
        return 1;
    return ratios.run(argc, argv);
}
