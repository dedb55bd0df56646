#include "bench/BenchRatios.h"
#include "bridge/data/RowSelection.h"
#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "foundation/LogLines.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTimer>
#include <QWebFrame>
#include <QWebView>

#include <chrono>
#include <memory>
#include <utility>
#include <vector>

// Pages that call slots, and snapshots that pages redraw from.

namespace {

constexpr int CallsPerScript = 500;
constexpr int Devices = 1000;
constexpr int ViewsBefore = 400;
constexpr int SelectedRows = 10000;
constexpr int SkipDocuments = 64;
constexpr int SkipPartitions = 16;
const QUrl Page(QStringLiteral("qrc:/bench/page.html"));

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

/// A host that answers at once, since its own time is not what is measured, and counts.
class QuickHost : public StandInHost
{
public:
    QuickHost() { setJournalEnabled(false); }

    int calls() { return m_calls + callCount(); }

    void addCameraDevice()
    {
        StandInCamera *camera = addCamera();
        m_keys.append(camera->key());
        m_byKey.insert(camera->key(), camera);
    }

    bool isLiveMode() override
    {
        ++m_calls;
        return true;
    }
    int getPrefInt(const QString &, const QVariant &) override
    {
        ++m_calls;
        return 7;
    }
    void setPrefInt(const QString &, int) override { ++m_calls; }
    void updateUI(uint, bool) override { ++m_calls; }
    void deviceKeys(QList<DOCKEY> &out, bool) override
    {
        ++m_calls;
        out = m_keys;
    }
    DOC_Interface *documentByKey(DOCKEY key) override
    {
        ++m_calls;
        return m_byKey.value(key);
    }

private:
    int m_calls = 0;
    QList<DOCKEY> m_keys;
    QHash<DOCKEY, DOC_Interface *> m_byKey;
};

/// Slots as bare as a slot can be, with the arguments and results of those that are measured. The
/// engine looks for them among as many others.
class EmptySlots : public JS_Mediator
{
    Q_OBJECT

public:
    using JS_Mediator::JS_Mediator;

public slots:
    bool ask() { return true; }
    int askValue(const QString &, const QVariant & = QVariant()) { return 7; }
    void storeWithTwoLines(const QString &, int, bool = true)
    {
        static const QString name = QStringLiteral("JS_Mediator::setPrefInt");
        LogLines::info() << "[ENTER]" << name << QString();
        LogLines::info() << "[LEAVE]" << name;
    }
};

/// A page in which scripts call the bridge and the empty slots.
struct CallingPage
{
    explicit CallingPage(QuickHost &quickHost) : host(quickHost), view(&quickHost, nullptr)
    {
        host.attachMediator(&view, &mediator);
        QEventLoop loop;
        QObject::connect(&view, &QWebView::loadFinished, &loop, &QEventLoop::quit);
        view.load(Page);
        loop.exec();
        frame()->addToJavaScriptWindowObject(QStringLiteral("empty"), &empty);
    }

    QWebFrame *frame() const { return view.page()->mainFrame(); }

    BenchRatios::Body body(const QString &call) const
    {
        const QString script =
            QStringLiteral("(function () { for (var i = 0; i < %1; ++i) %2; })()")
                .arg(QString::number(CallsPerScript), call);
        return [this, script](benchmark::State &state) {
            for (auto _ : state)
                frame()->evaluateJavaScript(script);
        };
    }

    void add(BenchRatios &ratios, const std::string &name, double limit, const QString &ours,
             const QString &plain, const std::function<void()> &once)
    {
        ratios.add(name, limit, body(ours), body(plain));
        ratios.countCalls(name, {once, [this] { return host.calls(); }});
    }

    QuickHost &host;
    JS_Mediator mediator{&host, QStringLiteral("bridge")};
    EmptySlots empty{&host, QStringLiteral("empty")};
    GUI_WebView view;
};

QString constantFlags(const QStringList &names)
{
    QJsonObject flags;
    for (const QString &name : names)
        flags.insert(name, true);
    return QString::fromUtf8(QJsonDocument(flags).toJson(QJsonDocument::Compact));
}

void addStatus(BenchRatios &ratios, QuickHost &host, JS_Mediator &mediator)
{
    const QStringList names =
        QJsonDocument::fromJson(mediator.getControlStatus().toUtf8()).object().keys();
    ratios.add(
        "getControlStatus", 1.5,
        [&mediator](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(mediator.getControlStatus());
        },
        [names](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(constantFlags(names));
        });
    ratios.countCalls("getControlStatus", {[&mediator] { mediator.getControlStatus(); },
                                           [&host] { return host.calls(); }});
}

// Names and values of a row, in the order of its text.
using Row = std::vector<std::pair<QString, QJsonValue>>;

std::vector<Row> readRows(const QVariantList &rows)
{
    std::vector<Row> result;
    for (const QVariant &text : rows) {
        const QJsonObject object = QJsonDocument::fromJson(text.toString().toUtf8()).object();
        Row row;
        for (auto value = object.begin(); value != object.end(); ++value)
            row.emplace_back(value.key(), value.value());
        result.push_back(row);
    }
    return result;
}

QVariantList writeRows(const std::vector<Row> &rows)
{
    QVariantList texts;
    for (const Row &row : rows) {
        QJsonObject object;
        for (const auto &[name, value] : row)
            object.insert(name, value);
        texts.append(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    }
    return texts;
}

void addDeviceList(BenchRatios &ratios, QuickHost &host, JS_Mediator &mediator)
{
    for (int i = 0; i < Devices; ++i)
        host.addCameraDevice();
    const QVariantList ours = mediator.getDeviceInfoList(false);
    const std::vector<Row> rows = readRows(ours);
    ratios.add(
        "getDeviceInfoList of 1,000", 1.5,
        [&mediator](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(mediator.getDeviceInfoList(false));
        },
        [rows, ours](benchmark::State &state) {
            if (writeRows(rows) != ours)
                state.SkipWithError("the plain rows are other rows");
            for (auto _ : state)
                benchmark::DoNotOptimize(writeRows(rows));
        });
}

// Time from before `make` to the end of the load.
template <class Make> void timeLoad(benchmark::State &state, Make make)
{
    for (auto _ : state) {
        QEventLoop loop;
        const auto start = std::chrono::steady_clock::now();
        auto shown = make(loop);
        loop.exec();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        shown.reset();
        // The page goes behind the slots of its load, and a timer of the engine collects what its
        // script left: neither belongs to the next load.
        QEventLoop rest;
        QTimer::singleShot(15, &rest, &QEventLoop::quit);
        rest.exec();
    }
}

void addDialog(BenchRatios &ratios, QuickHost &host)
{
    ratios.addTimedByItself(
        "dialog to its loaded page", 1.2,
        [&host](benchmark::State &state) {
            timeLoad(state, [&host](QEventLoop &loop) {
                auto dialog = std::make_unique<GUI_WebViewDialog>(
                    &host, QStringLiteral("Page"), Page.toString(),
                    new JS_Mediator_Dialog(&host, QStringLiteral("bridge")), nullptr);
                QObject::connect(dialog->webView(), &QWebView::loadFinished, &loop,
                                 &QEventLoop::quit);
                dialog->show();
                return dialog;
            });
        },
        [](benchmark::State &state) {
            timeLoad(state, [](QEventLoop &loop) {
                auto view = std::make_unique<QWebView>();
                QObject::connect(view.get(), &QWebView::loadFinished, &loop, &QEventLoop::quit);
                view->load(Page);
                view->show();
                return view;
            });
        });
}

/// A mediator whose page hears of `update`, behind pages that did and have gone.
class HeardMediator
{
public:
    HeardMediator(QuickHost &host, int pagesBefore)
        : m_host(host), m_mediator(&host, QStringLiteral("bridge"))
    {
        for (int i = 0; i <= pagesBefore; ++i)
            show();
    }

    BenchRatios::Body emissions()
    {
        return [this](benchmark::State &state) {
            for (auto _ : state)
                emit m_mediator.update();
        };
    }

private:
    void show()
    {
        m_view = std::make_unique<GUI_WebView>(&m_host, nullptr);
        m_host.attachMediator(m_view.get(), &m_mediator);
        QEventLoop loop;
        QObject::connect(m_view.get(), &QWebView::loadFinished, &loop, &QEventLoop::quit);
        m_view->load(Page);
        loop.exec();
        m_view->page()->mainFrame()->evaluateJavaScript(
            QStringLiteral("var heard = 0; bridge.update.connect(function () { ++heard; })"));
    }

    QuickHost &m_host;
    JS_Mediator m_mediator;
    std::unique_ptr<GUI_WebView> m_view;
};

class SkipMediator : public JS_Mediator
{
public:
    using JS_Mediator::JS_Mediator;
    using JS_Mediator::refreshSkipRange;

    int getSkipMode() override { return 1; }
};

using SkipTargets = QMap<DOC_Interface *, QList<PARTITIONNUMBER>>;

// Partitions of four record rates, each a multiple of `rate`.
SkipTargets addRecordings(QuickHost &host, uint rate)
{
    SkipTargets targets;
    for (int i = 0; i < SkipDocuments; ++i) {
        StandInCamera *camera = host.addCamera();
        QList<PARTITIONNUMBER> numbers;
        camera->state().partitions.clear();
        for (int number = 1; number <= SkipPartitions; ++number) {
            camera->state().partitions.append({number, QString(), 5000, rate * uint(i % 4 + 1)});
            numbers.append(number);
        }
        targets.insert(camera, numbers);
    }
    return targets;
}

uint askRatesAndCounts(const SkipTargets &targets)
{
    uint sum = 0;
    for (auto target = targets.cbegin(); target != targets.cend(); ++target) {
        for (PARTITIONNUMBER number : target.value())
            sum += target.key()->partitionRecordRate(number) +
                   target.key()->partitionFrameCount(number);
    }
    return sum;
}

// Beside the bare questions: once for the same targets again, as at each refresh of a page, and
// once for targets whose rates have another divisor each time, so that the values are made anew.
void addSkipRange(BenchRatios &ratios, QuickHost &host, SkipMediator &mediator)
{
    host.setMode(StandInHost::Mode::Memory);
    const SkipTargets targets = addRecordings(host, 500);
    const SkipTargets others = addRecordings(host, 700);
    ratios.add(
        "skip range of 64 x 16, again", 0,
        [&mediator, targets](benchmark::State &state) {
            for (auto _ : state)
                mediator.refreshSkipRange(targets);
        },
        [targets](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(askRatesAndCounts(targets));
        });
    ratios.add(
        "skip range of 64 x 16, anew", 0,
        [&mediator, targets, others](benchmark::State &state) {
            bool odd = false;
            for (auto _ : state) {
                odd = !odd;
                mediator.refreshSkipRange(odd ? others : targets);
            }
        },
        [targets, others](benchmark::State &state) {
            bool odd = false;
            for (auto _ : state) {
                odd = !odd;
                benchmark::DoNotOptimize(askRatesAndCounts(odd ? others : targets));
            }
        });
}

// A user takes the current one of many rows out, and puts it back.
void addRowSelection(BenchRatios &ratios)
{
    QList<int> all;
    for (int id = 1; id <= SelectedRows; ++id)
        all.append(id);
    const QList<int> fewer = all.mid(0, SelectedRows - 1);
    ratios.add(
        "one of 10,000 rows, out and in", 3.0,
        [all, fewer](benchmark::State &state) {
            RowSelection selection;
            selection.select(all);
            for (auto _ : state) {
                selection.select(fewer);
                selection.select(all);
                benchmark::DoNotOptimize(selection.current());
            }
        },
        [all, fewer](benchmark::State &state) {
            for (auto _ : state) {
                for (const QList<int> &ids : {fewer, all})
                    benchmark::DoNotOptimize(QSet<int>(ids.cbegin(), ids.cend()).size());
            }
        });
}

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    // The offscreen platform tells of what it cannot do, dialogs of their loading.
    QtMessageHandler previous = qInstallMessageHandler(dropMessage);
    QuickHost host;
    QuickHost devices;
    QuickHost recordings;
    JS_Mediator deviceMediator(&devices, QStringLiteral("page"));
    SkipMediator skipMediator(&recordings, QStringLiteral("page"));
    BenchRatios ratios;

    CallingPage page(host);
    JS_Mediator &mediator = page.mediator;
    page.add(ratios, "getter from script", 1.3, QStringLiteral("bridge.isLiveMode()"),
             QStringLiteral("empty.ask()"), [&] { mediator.isLiveMode(); });
    page.add(ratios, "getPrefInt from script", 1.3, QStringLiteral("bridge.getPrefInt('a/b', 5)"),
             QStringLiteral("empty.askValue('a/b', 5)"),
             [&] { mediator.getPrefInt(Keys::recording.autoDownload, QVariant()); });
    page.add(ratios, "setPrefInt with update", 1.4, QStringLiteral("bridge.setPrefInt('a/b', 5)"),
             QStringLiteral("empty.storeWithTwoLines('a/b', 5)"),
             [&] { mediator.setPrefInt(Keys::recording.autoDownload, 5); });
    addStatus(ratios, host, mediator);
    addDeviceList(ratios, devices, deviceMediator);
    addDialog(ratios, host);
    HeardMediator heardByMany(host, ViewsBefore);
    HeardMediator heardByOne(host, 0);
    ratios.add("signal to a page, after 400 views", 1.2, heardByMany.emissions(),
               heardByOne.emissions());
    addSkipRange(ratios, recordings, skipMediator);
    addRowSelection(ratios);

    const int status = ratios.run(argc, argv);
    qInstallMessageHandler(previous);
    return status;
}

#include "bench_bridge.moc"
