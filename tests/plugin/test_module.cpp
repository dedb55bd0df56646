#include "contract/PLG_Interface.h"
#include "tests/support/TestApplication.h"

#include <QApplication>
#include <QFile>
#include <QLibrary>
#include <QProcess>
#include <QTranslator>
#include <QtTest>

#include <memory>

// The module as the application meets it: nothing of the toolkit is linked here.

namespace {

const QString labelResource = QStringLiteral(":/lockcameratr_en.qm");

using Factory = PLG_Interface *(*)();

// Whether the module's file is mapped into this process.
bool isMapped()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("t_multilock.orvix");
}

std::unique_ptr<QLibrary> loadModule()
{
    auto library = std::make_unique<QLibrary>(QStringLiteral(MODULE_FILE));
    library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
    library->load();
    return library;
}

quint32 bigEndian32(const QByteArray &bytes, int at)
{
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

// The bytes of a section of a message file: a tag of one byte, the length in four, the content.
QByteArray section(const QByteArray &file, uchar tag)
{
    int at = 16; // behind the magic
    while (at + 5 <= file.size()) {
        const int length = int(bigEndian32(file, at + 1));
        if (uchar(file.at(at)) == tag)
            return file.mid(at + 5, length);
        at += 5 + length;
    }
    return QByteArray();
}

}

class TestModule : public QObject
{
    Q_OBJECT

private slots:
    void exportsItsFactoryAlone();
    void loadsWithAllSymbolsAndUnloads();
    void toolIdentifiesItself();
    void labelIsThereWhileTheModuleIs();
    void labelFileHoldsOneMessageAndItsNumerusRule();
    void textsOutliveTheModule();
};

void TestModule::exportsItsFactoryAlone()
{
    QProcess nm;
    nm.start(QStringLiteral("nm"), {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                                    QStringLiteral("--format=posix"), QStringLiteral(MODULE_FILE)});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.exitCode(), 0);
    QStringList names;
    for (const QByteArray &line : nm.readAllStandardOutput().split('\n')) {
        if (!line.isEmpty())
            names.append(QString::fromLatin1(line.split(' ').first()));
    }
    QCOMPARE(names, QStringList({"makeButtonPlugin"}));
}

void TestModule::loadsWithAllSymbolsAndUnloads()
{
    auto library = loadModule();
    QVERIFY2(library->isLoaded(), qPrintable(library->errorString()));
    QVERIFY(isMapped());
    QVERIFY(library->unload());
    QVERIFY(!isMapped());
}

void TestModule::toolIdentifiesItself()
{
    auto library = loadModule();
    auto factory = reinterpret_cast<Factory>(library->resolve("makeButtonPlugin"));
    QVERIFY(factory);
    {
        std::unique_ptr<PLG_Interface> tool(factory());
        QVERIFY(tool != nullptr);
        QCOMPARE(tool->name(), QStringLiteral("t_multilock"));
        QCOMPARE(tool->buttonKind(), 1);
        QCOMPARE(tool->pluginType(), 2);
        QVERIFY(tool->inherits("PLG_Common"));
        QVERIFY(tool->parent() == nullptr);
        std::unique_ptr<PLG_Interface> second(factory());
        QVERIFY(second != nullptr && second != tool);
    }
    QVERIFY(library->unload());
}

void TestModule::labelIsThereWhileTheModuleIs()
{
    QVERIFY(!QFile::exists(labelResource));
    auto library = loadModule();
    QVERIFY(QFile::exists(labelResource));
    QVERIFY(library->unload());
    QVERIFY(!QFile::exists(labelResource));
}

void TestModule::labelFileHoldsOneMessageAndItsNumerusRule()
{
    auto library = loadModule();
    QByteArray bytes;
    {
        QFile file(labelResource);
        QVERIFY(file.open(QIODevice::ReadOnly));
        bytes = file.readAll();
    }
    QVERIFY(library->unload());

    const QByteArray magic = QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd");
    QCOMPARE(bytes.left(16), magic);
    QCOMPARE(section(bytes, 0x88), QByteArray("\x01\x01", 2)); // numerus rules
    QCOMPARE(section(bytes, 0x42).size(), 8);                  // hashes: one message
    const QByteArray messages = section(bytes, 0x69);
    QVERIFY(messages.contains(
        QByteArray::fromHex("004c006f0063006b002000430061006d006500720061"))); // "Lock Camera"

    QTranslator translator;
    QVERIFY(translator.load(reinterpret_cast<const uchar *>(bytes.constData()), bytes.size()));
    QCOMPARE(translator.translate("mutlicamera", "Lock Camera"), QStringLiteral("Lock Camera"));
    QVERIFY(translator.translate("multicamera", "Lock Camera").isEmpty());
}

void TestModule::textsOutliveTheModule()
{
    auto library = loadModule();
    auto factory = reinterpret_cast<Factory>(library->resolve("makeButtonPlugin"));
    QString name;
    QString question;
    {
        std::unique_ptr<PLG_Interface> tool(factory());
        name = tool->name();
        question = tool->acceptQuestion();
    }
    QVERIFY(library->unload());
    QVERIFY(!isMapped());
    QCOMPARE(name, QStringLiteral("t_multilock"));
    QCOMPARE(question, QStringLiteral("Do you want to accept?"));
}

int main(int argc, char *argv[])
{
    const auto application = makeTestApplication(argc, argv);
    TestModule test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_module.moc"
