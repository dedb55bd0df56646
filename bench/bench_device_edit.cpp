#include "bench/BenchRatios.h"
#include "contract/DOC_Interface.h"
#include "device/edit/DummyAddress.h"
#include "device/edit/JS_Mediator_AddDeviceDialog.h"
#include "device/names/CameraNameList.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <memory>

// What a dialog for a new camera reads as it opens: the user's names, and the dummies that there
// are.

namespace {

constexpr int Names = 100000;
constexpr int FewNames = 1000;
constexpr int Devices = 10000;

/// A shape of the file: how its names are laid out over lines and categories.
struct Shape
{
    const char *name;
    QByteArray (*line)(int number);
};

// Ten names a line in 1,000 categories, which come again and again.
QByteArray inCategories(int number)
{
    const QByteArray begin =
        number % 10 == 0 ? "\nCategory " + QByteArray::number(number / 10 % 1000) : QByteArray();
    return begin + ",Camera " + QByteArray::number(number);
}

QByteArray inOneCategory(int number)
{
    return "Laboratory,Camera " + QByteArray::number(number) + '\n';
}

QByteArray inNone(int number)
{
    return ",Camera " + QByteArray::number(number) + '\n';
}

QByteArray file(const Shape &shape, int names)
{
    QByteArray bytes;
    for (int i = 0; i < names; ++i)
        bytes += shape.line(i);
    return bytes;
}

// As little as one can do to have seen each field once.
int bareRead(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const QString text = QString::fromUtf8(buffer.readAll());
    QSet<QString> fields;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        for (const QString &field : line.split(QLatin1Char(',')))
            fields.insert(field);
    }
    return fields.size();
}

int read(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return CameraNameList::read(buffer.readAll()).names.size();
}

QString bareText(const CameraNameList::Content &content)
{
    QJsonArray rows;
    for (auto each = content.names.begin(); each != content.names.end(); ++each) {
        for (const QString &name : each.value())
            rows.append(QJsonObject{{"category", each.key()}, {"label", name}});
    }
    return QString::fromUtf8(QJsonDocument(rows).toJson(QJsonDocument::Compact));
}

void addShape(BenchRatios &ratios, const Shape &shape)
{
    const QByteArray many = file(shape, Names);
    const QByteArray few = file(shape, FewNames);
    const std::string name = std::string("100,000 names ") + shape.name;
    const auto readMany = [many](benchmark::State &state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(read(many));
    };
    ratios.add(name + ", read", 1.3, readMany, [many](benchmark::State &state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(bareRead(many));
    });
    ratios.add(name + ", beside 100 times 1,000", 0, readMany, [few](benchmark::State &state) {
        for (auto _ : state) {
            for (int i = 0; i < Names / FewNames; ++i)
                benchmark::DoNotOptimize(read(few));
        }
    });
    const CameraNameList::Content content = CameraNameList::read(many);
    ratios.add(
        name + ", to the page", 1.5,
        [content](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(CameraNameList::pageText(content));
        },
        [content](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(bareText(content));
        });
}

// A line without a name is told of.
QByteArray bareCategories()
{
    QByteArray bytes;
    for (int i = 0; i < Names; ++i)
        bytes += "Category " + QByteArray::number(i) + '\n';
    return bytes;
}

/// A host with as many dummies as there are addresses for, among other cameras.
struct Dummies
{
    explicit Dummies(int devices)
    {
        host.setJournalEnabled(false);
        host.state().defaultCameraName = QStringLiteral("Camera");
        for (int i = 0; i < devices; ++i) {
            DocumentState &state = host.addCamera()->state();
            state.isDummy = i % (devices / DummyAddress::Count) == 0 &&
                            i / (devices / DummyAddress::Count) < DummyAddress::Count;
            if (state.isDummy)
                state.ipAddress = DummyAddress::numbered(i / (devices / DummyAddress::Count) + 1);
        }
    }

    /// By the contract, as the mediator asks.
    static int barePass(HostServices *services)
    {
        QList<DOCKEY> keys;
        services->deviceKeys(keys, true);
        int length = 0;
        for (DOCKEY key : qAsConst(keys)) {
            DOC_Interface *doc = services->documentByKey(key);
            if (doc->isDummy())
                length += doc->ipAddress().size();
        }
        return length;
    }

    StandInHost host;
    JS_Mediator_AddDeviceDialog mediator{&host, true};
};

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Shape shapes[] = {{"in 1,000 categories", inCategories},
                            {"in one category", inOneCategory},
                            {"without a category", inNone}};
    for (const Shape &shape : shapes) {
        int names = 0;
        for (const QStringList &each : CameraNameList::read(file(shape, Names)).names)
            names += each.size();
        if (names != Names)
            return 1;
    }
    const auto dummies = std::make_shared<Dummies>(Devices);
    const QString settings = dummies->mediator.getAddDeviceDialogSettings();
    if (!settings.contains(QLatin1String("\"999.999.999.1\""))) // all are taken
        return 1;

    BenchRatios ratios;
    for (const Shape &shape : shapes)
        addShape(ratios, shape);
    const QByteArray bare = bareCategories();
    ratios.add(
        "100,000 lines without a name, read", 1.3,
        [bare](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(read(bare));
        },
        [bare](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(bareRead(bare));
        });
    ratios.add(
        "255 dummies among 10,000 devices", 1.2,
        [dummies](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(dummies->mediator.getAddDeviceDialogSettings());
        },
        [dummies](benchmark::State &state) {
            HostServices *services = &dummies->host;
            for (auto _ : state) {
                benchmark::DoNotOptimize(services);
                benchmark::DoNotOptimize(Dummies::barePass(services));
            }
        });
    return ratios.run(argc, argv);
}
