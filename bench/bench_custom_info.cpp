#include "bench/BenchRatios.h"
#include "record/info/CustomInfoFile.h"
#include "record/info/JS_Mediator_CustomInfoDialog.h"
#include "record/info/XmlTree.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QBuffer>
#include <QDomDocument>
#include <QTextStream>

#include <chrono>
#include <memory>

namespace {

constexpr int Items = 10000;
constexpr int FewItems = 1000;

void dropMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

QVariantList manyCustoms(int count = Items)
{
    QVariantList customs;
    for (int i = 0; i < count; ++i) {
        customs.append(QVariantMap{{"name", QStringLiteral("Item %1").arg(i)},
                                   {"value", QString::number(i * 0.37)},
                                   {"unit", "mm"},
                                   {"selected", i % 2 == 0}});
    }
    return customs;
}

// A tree with these texts, of which nothing is asked.
QByteArray bareXml(const QVector<QStringList> &texts)
{
    static const QString names[] = {"name", "value", "unit", "display", "usefilename"};
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
        "xml", "version=\"1.0\" encoding=\"utf-8\" standalone=\"no\""));
    QDomElement root = document.createElement("custom");
    document.appendChild(root);
    QDomElement version = document.createElement("version");
    version.appendChild(document.createTextNode("1"));
    root.appendChild(version);
    QDomElement items = document.createElement("customItems");
    root.appendChild(items);
    for (const QStringList &row : texts) {
        QDomElement item = document.createElement("customItem");
        items.appendChild(item);
        for (int i = 0; i < row.size(); ++i) {
            QDomElement element = document.createElement(names[i]);
            element.appendChild(document.createTextNode(row.at(i)));
            item.appendChild(element);
        }
    }
    QByteArray bytes;
    QTextStream stream(&bytes);
    document.save(stream, 2, QDomNode::EncodingFromDocument);
    stream.flush();
    return bytes;
}

QVector<QStringList> textsOf(const QVariantList &customs)
{
    QVector<QStringList> texts;
    for (const QVariant &custom : customs) {
        const QVariantMap map = custom.toMap();
        texts.append({map["name"].toString(), map["value"].toString(), map["unit"].toString(),
                      map["selected"].toString(), "true"});
    }
    return texts;
}

struct Loaded
{
    QDomDocument tree;
    QVariantList records;
};

Loaded load(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Loaded loaded;
    loaded.tree = XmlTree::read(buffer);
    CustomInfoFile::loadCustomInfo(loaded.tree.documentElement(), loaded.records,
                                   CustomInfoFile::jobFields());
    return loaded;
}

QDomDocument loadBare(const QByteArray &bytes)
{
    QDomDocument tree;
    tree.setContent(bytes);
    return tree;
}

// The time of the work alone. What it gives goes behind it, and so does the memory that the heap
// joins late, with the next large piece: either would count for whoever comes next.
template <class Work> void measure(benchmark::State &state, Work work)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::make_unique<char[]>(1 << 16));
        const auto begin = std::chrono::steady_clock::now();
        const auto result = work();
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        benchmark::DoNotOptimize(&result);
        state.SetIterationTime(time.count());
    }
}

void addReading(BenchRatios &ratios, const char *name, const QByteArray &bytes)
{
    ratios.addTimedByItself(
        name, 1.3,
        [bytes](benchmark::State &state) { measure(state, [&] { return load(bytes); }); },
        [bytes](benchmark::State &state) { measure(state, [&] { return loadBare(bytes); }); });
}

QByteArray jobFile()
{
    QByteArray fields;
    for (int i = 0; i < Items; ++i)
        fields += "<Field" + QByteArray::number(i) + " unit=\"mm\" display=\"true\">1.25</Field" +
                  QByteArray::number(i) + ">\n";
    return "<job>" + fields + "</job>";
}

// A document that keeps no record: what the dialog does is measured, not how a host stores it.
class QuickDocument : public StandInCamera
{
public:
    QuickDocument(StandInHost &host, int records)
        : StandInCamera(host, 1, Description()), m_records(manyCustoms(records))
    {
    }

    int sets() const { return m_sets; }

    QVariantList customInfoList() override { return m_records; }
    void setCustomInfo(const QString &, const QString &, const QString &, bool, bool) override
    {
        ++m_sets;
    }

private:
    QVariantList m_records;
    int m_sets = 0;
};

// A dialog on one document with so many records, all of which are ticked.
class Ticking
{
public:
    explicit Ticking(int records)
        : m_document(m_host, records), m_customs(manyCustoms(records)),
          m_mediator(&m_host, nullptr, false)
    {
        m_host.document = &m_document;
    }

    /// How many records were set.
    int tick()
    {
        const int before = m_document.sets();
        m_mediator.enableCustomData({1}, m_customs);
        return m_document.sets() - before;
    }

private:
    class QuickHost : public StandInHost
    {
    public:
        QuickHost() { setJournalEnabled(false); }

        DOC_Interface *deviceByKey(DOCKEY, bool) override { return document; }

        DOC_Interface *document = nullptr;
    };

    QuickHost m_host;
    QuickDocument m_document;
    QVariantList m_customs;
    JS_Mediator_CustomInfoDialog m_mediator;
};

void addTicking(BenchRatios &ratios)
{
    const auto many = std::make_shared<Ticking>(Items);
    const auto few = std::make_shared<Ticking>(FewItems);
    ratios.add(
        "ticks of 10,000 items, per item", 2.0,
        [many](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(many->tick());
        },
        [few](benchmark::State &state) {
            for (auto _ : state) {
                for (int i = 0; i < Items / FewItems; ++i)
                    benchmark::DoNotOptimize(few->tick());
            }
        });
}

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    qInstallMessageHandler(dropMessages);
    const QVariantList customs = manyCustoms();
    const QByteArray file = CustomInfoFile::toXml(customs, "1");
    const QVector<QStringList> texts = textsOf(customs);
    if (bareXml(texts) != file || load(file).records != customs ||
        load(jobFile()).records.size() != Items || Ticking(Items).tick() != Items)
        return 1;

    BenchRatios ratios;
    addReading(ratios, "custom file of 10,000 items", file);
    addReading(ratios, "job file of 10,000 fields", jobFile());
    ratios.addTimedByItself(
        "10,000 items to a custom file", 1.3,
        [customs](benchmark::State &state) {
            measure(state, [&] { return CustomInfoFile::toXml(customs, "1"); });
        },
        [texts](benchmark::State &state) { measure(state, [&] { return bareXml(texts); }); });
    addTicking(ratios);
    return ratios.run(argc, argv);
}
