#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "contract/PLG_Interface.h"
#include "standin/tools/PluginLoader.h"
#include "tests/bridge/support/FaultMatrix.h"
#include "tests/support/TestLog.h"

#include <cstdio>

namespace {

/// Calls the slots of a tool's mediator, of a tool that is loaded anew for each run and is open.
class ToolCaller : public FaultMatrix::Caller
{
public:
    ToolCaller(const QString &module, bool ofDialog) : m_module(module), m_ofDialog(ofDialog) {}

    void begin(StandInHost &host) override
    {
        m_host = &host;
        m_loader = std::make_unique<PluginLoader>();
        m_tool = m_loader->load(m_module);
        host.addPlugin(m_tool);
        host.openPlugin(m_tool);
        if (m_ofDialog)
            m_tool->ensureDialog(!m_tool->ensureDialog(false));
    }
    void call(const QMetaMethod &slot, const QVariantList &arguments) override
    {
        callSlot(mediator(), slot, arguments);
    }
    void end() override
    {
        m_host->removePlugin(m_tool);
        m_tool = nullptr;
        m_loader.reset();
    }

    QObject *mediator() const
    {
        if (m_ofDialog)
            return m_tool->ensureDialog(false)->mediator();
        return m_tool->mediator();
    }

private:
    QString m_module;
    bool m_ofDialog;
    StandInHost *m_host = nullptr;
    std::unique_ptr<PluginLoader> m_loader;
    PLG_Interface *m_tool = nullptr;
};

}

// The slots that the pages of the example tools call, while the host's calls fail.
class TestExamplesMatrix : public TestBase
{
    Q_OBJECT

private slots:
    void nothingEscapes_data();
    void nothingEscapes();
};

void TestExamplesMatrix::nothingEscapes_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<bool>("ofDialog");
    QTest::addColumn<int>("slotsAtLeast");
    QTest::newRow("region") << QStringLiteral(REGION_TOOL) << false << 18;
    QTest::newRow("region options") << QStringLiteral(REGION_TOOL) << true << 4;
    QTest::newRow("note") << QStringLiteral(NOTE_TOOL) << true << 4;
}

void TestExamplesMatrix::nothingEscapes()
{
    QFETCH(QString, module);
    QFETCH(bool, ofDialog);
    QFETCH(int, slotsAtLeast);
    PluginLoader keeper; // keeps the module, with its meta-object, between the runs
    QVERIFY(keeper.load(module));
    ToolCaller caller(module, ofDialog);
    StandInHost host;
    caller.begin(host);
    const QMetaObject *meta = caller.mediator()->metaObject();
    caller.end();

    const auto value = [](const char *slot, const QVariantList &arguments) {
        return SlotCase{slot, arguments, {}};
    };
    PageClass tool{meta, {}, {}};
    if (meta->indexOfSlot("setRegionValue(QString,double)") >= 0) {
        for (const char *name : {"Width", "Height", "PosX", "PosY"})
            tool.cases.append(value("setRegionValue(QString,double)", {name, 40.0}));
    } else if (meta->indexOfSlot("setOption(QString,QVariant)") >= 0) {
        tool.cases = {value("setOption(QString,QVariant)", {"originalAspect", true}),
                      value("setOption(QString,QVariant)", {"minWidth", 100}),
                      value("setOption(QString,QVariant)", {"applyToAll", false})};
    } else {
        tool.cases = {value("setNote(int,QString)", {0, "Light from the left."})};
    }

    FaultMatrix matrix;
    matrix.walk(*meta, {tool}, caller);
    std::printf("fault matrix of %s: %d slots, %d call sites, %d runs\n", meta->className(),
                matrix.slotCount(), matrix.callSites(), matrix.runs());
    QVERIFY2(matrix.problems().isEmpty(),
             qPrintable(matrix.problems().mid(0, 10).join(QLatin1Char('\n'))));
    QVERIFY(matrix.slotCount() >= slotsAtLeast);
    QVERIFY(matrix.callSites() > matrix.slotCount());
}

int main(int argc, char **argv)
{
    TestExamplesMatrix test;
    return runTest(argc, argv, test);
}

#include "test_examples_matrix.moc"
