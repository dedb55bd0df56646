#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator.h"
#include "standin/host/StandInHost.h"
#include "tests/plugin/ProbeTool.h"
#include "tests/support/TestLog.h"

#include <QPainter>
#include <QSignalSpy>
#include <QThread>
#include <QWidget>

class TestPlgState : public TestBase
{
    Q_OBJECT

private slots:
    void fieldsStartAtTheirDefaults();
    void capabilitiesAndValuesAreFixed();
    void hooksDoNothing();
    void gettersGiveTheFields();
    void settersStore();
    void modesAreBits_data();
    void modesAreBits();
    void currentModeIsTheHosts();
    void unknownModeOfTheHostIsForbidden_data();
    void unknownModeOfTheHostIsForbidden();
    void modeFlagsBelongToTheModeFamily();
    void secondModeFlagIsReadByFamily();
    void storedRectIsKeptAndCleared();
    void updateRepaintsAnActiveViewAndSignals();
    void updateWithoutViewAndMediatorDoesNothing();
    void viewWidgetThatWasDeletedIsGone();
    void lockIsRecursiveAndHoldsOtherThreadsOff();
    void metaCastAnswersItsOwnNameAndObject();
    void buttonIsOfTypeTwo();
    void signalsAndSlotsStandInOrder();
    void documentExistsByKey();
    void documentPointIsTheOneReportedLast();
    void regionAnswersOfAToolWithoutRegion();
    void destructorDeletesInOrder();
};

void TestPlgState::fieldsStartAtTheirDefaults()
{
    ProbeTool tool{QString()};
    QVERIFY(tool.m_host == nullptr);
    QVERIFY(tool.m_fontCache && tool.m_fontCache->font && !tool.m_fontCache->metrics);
    QCOMPARE(*tool.m_fontCache->font, QFont());
    QCOMPARE(tool.m_fontCache->value, qint64(-1));
    QVERIFY(tool.m_modelessDialog.isNull());
    QVERIFY(!tool.isKeyHeld());
    QCOMPARE(tool.lastMousePosition(), QPoint(0, 0));
    QVERIFY(!tool.suspendsView());
    QCOMPARE(tool.pluginType(), 0);
    QCOMPARE(tool.pluginSubType(), 0);
    QCOMPARE(tool.name(), QString());
    QVERIFY(!tool.isModified());
    QCOMPARE(tool.m_allowedModes, 7u);
    QVERIFY(!tool.m_modeFlag[0] && !tool.m_modeFlag[1]);
    QCOMPARE(tool.layoutValueA(), 0);
    QCOMPARE(tool.layoutValueB(), 0);
    QVERIFY(!tool.hasPanel());
    QVERIFY(!tool.m_modeFlagB[0] && !tool.m_modeFlagB[1]);
    QVERIFY(tool.mediator() == nullptr);
    QVERIFY(tool.viewWidget() == nullptr);
    QCOMPARE(tool.checkKind(), 0);
    QCOMPARE(tool.transactionKind(), 0);
    QCOMPARE(tool.layoutValueC(), 3);
    QVERIFY(!tool.isDragging());
    QCOMPARE(tool.pressPosition(), QPoint(0, 0));
    QCOMPARE(tool.m_pressRegion, QRect(QPoint(0, 0), QPoint(-1, -1)));
    QCOMPARE(tool.m_dragHandle, 9);
    QCOMPARE(tool.m_reservedPair[0], 0);
    QCOMPARE(tool.m_reservedPair[1], 0);
    QCOMPARE(tool.currentDocId(), -1);
    QCOMPARE(tool.buttonKind(), 0);
    QCOMPARE(tool.quickToolMode(), 0);
    QCOMPARE(tool.layoutValueD(), 0);
    QCOMPARE(tool.layoutValueE(), 2);
    QVERIFY(!tool.flagA());
    QVERIFY(tool.m_toolMutex != nullptr);
    QVERIFY(!tool.flagB());
    QVERIFY(!tool.m_transactionOpen);
    QVERIFY(!tool.flagC());
    QVERIFY(!tool.flagD());
    QVERIFY(!tool.flagE());
    QCOMPARE(tool.storedRect(), QRect(QPoint(0, 0), QPoint(-1, -1)));
    QVERIFY(tool.applyOnEdit());
    QVERIFY(tool.applyToAllWhenLocked());
    QVERIFY(!tool.m_symmetricX && !tool.m_symmetricY);
    QCOMPARE(tool.m_positionStep, QPoint(1, 1));
    QCOMPARE(tool.m_sizeStep, QSize(1, 1));
    QCOMPARE(tool.m_maxSize, QSize(-1, -1));
    QCOMPARE(tool.m_minSize, QSize(1, 1));
    QVERIFY(!tool.closeCurrentOnFinish());
    QVERIFY(tool.closesOnForbiddenMode());
    QCOMPARE(tool.userValue(), 0);
    QCOMPARE(tool.m_anchorCorner, 4);
    QVERIFY(!tool.flagF());
}

void TestPlgState::capabilitiesAndValuesAreFixed()
{
    ProbeTool tool;
    QVERIFY(tool.capabilityA() && tool.capabilityB() && tool.capabilityJ());
    QVERIFY(!tool.capabilityC() && !tool.capabilityD() && !tool.capabilityE());
    QVERIFY(!tool.capabilityF() && !tool.capabilityG() && !tool.capabilityH());
    QVERIFY(!tool.capabilityI() && !tool.capabilityK() && !tool.capabilityL());
    QCOMPARE(tool.valueA(), 0);
    QCOMPARE(tool.valueB(), 0);
    QCOMPARE(tool.acceptQuestion(), QStringLiteral("Do you want to accept?"));
    QVERIFY(!tool.isAspectFixed());
    QCOMPARE(tool.aspectRatio(), 0.0);
    QVERIFY(!tool.customChecked());
    QVERIFY(tool.createModelessPatternDialog(true) == nullptr);
}

void TestPlgState::hooksDoNothing()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.updateHookA();
    tool.updateHookB();
    tool.updateHookC();
    tool.panelHookA();
    tool.panelHookB();
    tool.panelHookC();
    tool.clearHookA();
    tool.mouseHookA();
    tool.mouseHookB();
    tool.mouseHookC();
    tool.mouseHookD();
    tool.hookD();
    tool.hookE(2);
    tool.textHook(QStringLiteral("value"));
    tool.hookF();
    tool.hookG();
    tool.hookH();
    tool.hookI();
    tool.hookJ();
    tool.hookK();
    tool.hookL();
    tool.hookM();
    tool.hookN();
    tool.slotModelessPatternDialogShown();
    tool.slotScreenShot(QStringLiteral("picture.png"));
    QCOMPARE(host.journal(), QStringList());
}

void TestPlgState::gettersGiveTheFields()
{
    ProbeTool tool;
    tool.m_pluginType = 11;
    tool.m_pluginSubType = 12;
    tool.m_layoutValueA = 13;
    tool.m_layoutValueB = 14;
    tool.m_layoutValueC = 15;
    tool.m_layoutValueD = 16;
    tool.m_layoutValueE = 17;
    tool.m_checkKind = 18;
    tool.m_transactionKind = 19;
    tool.m_buttonKind = 20;
    tool.m_quickToolMode = 21;
    tool.m_currentDocId = 22;
    QCOMPARE(tool.pluginType(), 11);
    QCOMPARE(tool.pluginSubType(), 12);
    QCOMPARE(tool.layoutValueA(), 13);
    QCOMPARE(tool.layoutValueB(), 14);
    QCOMPARE(tool.layoutValueC(), 15);
    QCOMPARE(tool.layoutValueD(), 16);
    QCOMPARE(tool.layoutValueE(), 17);
    QCOMPARE(tool.checkKind(), 18);
    QCOMPARE(tool.transactionKind(), 19);
    QCOMPARE(tool.buttonKind(), 20);
    QCOMPARE(tool.quickToolMode(), 21);
    QCOMPARE(tool.currentDocId(), 22);
    tool.m_flagA = true;
    QVERIFY(tool.flagA() && !tool.flagB());
    tool.m_flagB = true;
    QVERIFY(tool.flagB() && !tool.flagC());
    tool.m_flagC = true;
    QVERIFY(tool.flagC() && !tool.flagD());
    tool.m_flagD = true;
    QVERIFY(tool.flagD() && !tool.flagE() && !tool.flagF());
    tool.m_flagF = true;
    QVERIFY(tool.flagF() && !tool.flagE());
    tool.m_suspendsView = true;
    QVERIFY(tool.suspendsView());
    tool.m_hasPanel = true;
    QVERIFY(tool.hasPanel());
}

void TestPlgState::settersStore()
{
    ProbeTool tool;
    tool.setModified(true);
    QVERIFY(tool.isModified());
    tool.setModified(false);
    QVERIFY(!tool.isModified());
    tool.setClosesOnForbiddenMode(false);
    QVERIFY(!tool.closesOnForbiddenMode());
    tool.setFlagE(true);
    QVERIFY(tool.flagE());
    tool.setApplyOnEdit(false);
    QVERIFY(!tool.applyOnEdit());
    tool.setApplyToAllWhenLocked(false);
    QVERIFY(!tool.applyToAllWhenLocked());
    tool.setCloseCurrentOnFinish(true);
    QVERIFY(tool.closeCurrentOnFinish());
    tool.setUserValue(-5);
    QCOMPARE(tool.userValue(), -5);
}

void TestPlgState::modesAreBits_data()
{
    QTest::addColumn<uint>("modes");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("live of all") << 7u << 0 << true;
    QTest::newRow("memory of all") << 7u << 1 << true;
    QTest::newRow("file of all") << 7u << 2 << true;
    QTest::newRow("no fourth mode") << 7u << 3 << false;
    QTest::newRow("no fourth mode, all bits") << ~0u << 3 << false;
    QTest::newRow("below") << ~0u << -1 << false;
    QTest::newRow("far above") << ~0u << 32 << false;
    QTest::newRow("live only: live") << 1u << 0 << true;
    QTest::newRow("live only: memory") << 1u << 1 << false;
    QTest::newRow("memory only: memory") << 2u << 1 << true;
    QTest::newRow("file only: file") << 4u << 2 << true;
    QTest::newRow("file only: live") << 4u << 0 << false;
}

void TestPlgState::modesAreBits()
{
    QFETCH(uint, modes);
    QFETCH(int, mode);
    ProbeTool tool;
    tool.m_allowedModes = modes;
    QTEST(tool.isModeAllowed(mode), "allowed");
}

void TestPlgState::currentModeIsTheHosts()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_allowedModes = 1;
    host.setMode(StandInHost::Mode::Live);
    QVERIFY(tool.isAllowedInCurrentMode());
    host.setMode(StandInHost::Mode::Memory);
    QVERIFY(!tool.isAllowedInCurrentMode());
}

namespace {

class HostInUnknownMode : public StandInHost
{
public:
    explicit HostInUnknownMode(int mode) : m_mode(mode) {}
    int currentMode() override { return m_mode; }

private:
    int m_mode;
};

}

void TestPlgState::unknownModeOfTheHostIsForbidden_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("above") << 3;
    QTest::newRow("below") << -1;
    QTest::newRow("far above") << 33;
}

void TestPlgState::unknownModeOfTheHostIsForbidden()
{
    QFETCH(int, mode);
    HostInUnknownMode host(mode);
    StandInCamera *camera = host.addCamera();
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_allowedModes = ~0u;
    tool.m_checkKind = 1;
    QVERIFY(!tool.isAllowedInCurrentMode());
    QVERIFY(!tool.isChecked(camera, false));
}

void TestPlgState::modeFlagsBelongToTheModeFamily()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    host.setMode(StandInHost::Mode::File);
    tool.setModeFlag(true);
    QVERIFY(tool.m_modeFlag[1]);
    QVERIFY(!tool.m_modeFlag[0]);
    QVERIFY(tool.modeFlag());
    host.setMode(StandInHost::Mode::Memory);
    QVERIFY(!tool.modeFlag());
    host.setMode(StandInHost::Mode::Live);
    QVERIFY(!tool.modeFlag());
    tool.setModeFlag(true);
    host.setMode(StandInHost::Mode::File);
    tool.setModeFlag(false);
    QVERIFY(tool.m_modeFlag[0]);
}

void TestPlgState::secondModeFlagIsReadByFamily()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_modeFlagB[1] = true;
    host.setMode(StandInHost::Mode::Live);
    QVERIFY(!tool.modeFlagB());
    host.setMode(StandInHost::Mode::File);
    QVERIFY(tool.modeFlagB());
}

void TestPlgState::storedRectIsKeptAndCleared()
{
    ProbeTool tool;
    tool.setStoredRect(QRect(3, 4, 50, 60));
    QCOMPARE(tool.storedRect(), QRect(3, 4, 50, 60));
    tool.clearStoredRect();
    QCOMPARE(tool.storedRect(), QRect(QPoint(0, 0), QPoint(-1, -1)));
}

namespace {

class PaintCounter : public QWidget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *) override { ++paints; }
};

}

void TestPlgState::updateRepaintsAnActiveViewAndSignals()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_mediator = std::make_unique<JS_Mediator>(&host, QStringLiteral("probe"));
    QSignalSpy updates(tool.mediator(), &JS_Mediator::update);
    PaintCounter view;
    tool.m_viewWidget = &view;
    view.show();
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    view.paints = 0;
    tool.update();
    QCOMPARE(view.paints, 1);
    QCOMPARE(updates.count(), 1);

    PaintCounter other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QTRY_VERIFY(!view.isActiveWindow());
    view.paints = 0;
    tool.update();
    QCOMPARE(view.paints, 0);
    QCOMPARE(updates.count(), 2);
}

void TestPlgState::updateWithoutViewAndMediatorDoesNothing()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.update();
    QCOMPARE(host.journal(), QStringList());
}

void TestPlgState::viewWidgetThatWasDeletedIsGone()
{
    ProbeTool tool;
    auto view = std::make_unique<QWidget>();
    tool.m_viewWidget = view.get();
    QCOMPARE(tool.viewWidget(), view.get());
    view.reset();
    QVERIFY(tool.viewWidget() == nullptr);
    tool.update();
    QWidget second;
    tool.m_viewWidget = &second;
    tool.clearViewWidget();
    QVERIFY(tool.viewWidget() == nullptr);
}

void TestPlgState::lockIsRecursiveAndHoldsOtherThreadsOff()
{
    ProbeTool tool;
    tool.lock();
    tool.lock();
    auto triedElsewhere = [&] {
        bool got = true;
        std::unique_ptr<QThread> thread(QThread::create([&] {
            got = tool.m_toolMutex->tryLock();
            if (got)
                tool.m_toolMutex->unlock();
        }));
        thread->start();
        thread->wait();
        return got;
    };
    QVERIFY(!triedElsewhere());
    tool.unlock();
    QVERIFY(!triedElsewhere());
    tool.unlock();
    QVERIFY(triedElsewhere());
}

void TestPlgState::metaCastAnswersItsOwnNameAndObject()
{
    PLG_Button tool;
    QVERIFY(tool.qt_metacast("PLG_Common") == static_cast<PLG_Common *>(&tool));
    QVERIFY(tool.qt_metacast("QObject") == static_cast<QObject *>(&tool));
    QVERIFY(tool.qt_metacast("PLG_Interface") == nullptr);
    QVERIFY(tool.qt_metacast("PLG_Button") == nullptr);
    QVERIFY(tool.inherits("PLG_Common"));
    QCOMPARE(tool.metaObject()->className(), "PLG_Common");
    QCOMPARE(tool.metaObject()->superClass(), &QObject::staticMetaObject);
}

void TestPlgState::buttonIsOfTypeTwo()
{
    PLG_Button button;
    QCOMPARE(button.pluginType(), 2);
    QCOMPARE(button.buttonKind(), 0);
    QCOMPARE(sizeof(PLG_Button), sizeof(PLG_Common));
}

void TestPlgState::signalsAndSlotsStandInOrder()
{
    const QMetaObject &meta = PLG_Common::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    QCOMPARE(methods,
             QStringList({"signalRecord()", "signalSaveFile()", "signalSaveLayout()",
                          "signalEndRecording()", "signalDisconnect()", "signalStartAutoUpdate()",
                          "signalStopAutoUpdate()", "signalScreenShot(QString)",
                          "slotModelessPatternDialogShown()", "slotModelessPatternDialogClosed()",
                          "slotScreenShot(QString)"}));
}

void TestPlgState::documentExistsByKey()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    ProbeTool tool;
    tool.setHost(&host);
    QVERIFY(tool.documentExists(QPoint(0, 0), int(camera->key())));
    host.clearJournal();
    QVERIFY(!tool.documentExists(QPoint(0, 0), -1));
    QCOMPARE(host.journal(), QStringList({"deviceByKey(-1, true)"}));
    QVERIFY(!tool.documentExists(QPoint(0, 0), 4711));
}

void TestPlgState::documentPointIsTheOneReportedLast()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    ProbeTool tool;
    tool.setHost(&host);
    QCOMPARE(tool.documentPoint(-1), QPoint(0, 0));
    QCOMPARE(tool.documentPoint(int(camera->key())), QPoint(0, 0));
    camera->reportCursorPosition(QPoint(31, 17));
    host.clearJournal();
    QCOMPARE(tool.documentPoint(int(camera->key())), QPoint(31, 17));
    QCOMPARE(host.journal(), QStringList({"deviceByKey(1, true)", "[1].cursorPosition()"}));
    QCOMPARE(tool.documentPoint(-1), QPoint(0, 0));
}

void TestPlgState::regionAnswersOfAToolWithoutRegion()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    ProbeTool tool;
    tool.setHost(&host);
    QVERIFY(!tool.editsRegion(camera));
    QVERIFY(!tool.editsRegionOf(camera));
    QCOMPARE(tool.region(camera), QRect(QPoint(0, 0), QPoint(-1, -1)));
    host.clearJournal();
    tool.setRegion(camera, QRect(1, 2, 3, 4), true);
    QCOMPARE(tool.region(camera), QRect(QPoint(0, 0), QPoint(-1, -1)));
    QVERIFY(tool.regionInfo(camera, QSize(100, 100), QRect(1, 2, 3, 4), false, false, 0.0, 100)
                .isEmpty());
    QCOMPARE(host.journal(), QStringList());
}

namespace {

class EditsEverywhere : public ProbeTool
{
public:
    bool editsRegion(DOC_Interface *) override { return true; }
};

class NotingMediator : public JS_Mediator
{
public:
    NotingMediator(HostServices *host, QStringList *notes, const std::function<void()> &look)
        : JS_Mediator(host, QStringLiteral("noting")), m_notes(notes), m_look(look)
    {
    }
    ~NotingMediator() override
    {
        m_look();
        m_notes->append(QStringLiteral("mediator"));
    }

private:
    QStringList *m_notes;
    std::function<void()> m_look;
};

class NotingDialog : public GUI_ModelessPatternDialog
{
public:
    NotingDialog(HostServices *host, QStringList *notes, const std::function<void()> &look)
        : GUI_ModelessPatternDialog(host, QStringLiteral("noting"), QStringLiteral("about:blank"),
                                    nullptr, nullptr),
          m_notes(notes), m_look(look)
    {
    }
    ~NotingDialog() override
    {
        m_look();
        m_notes->append(QStringLiteral("dialog"));
    }

private:
    QStringList *m_notes;
    std::function<void()> m_look;
};

}

void TestPlgState::destructorDeletesInOrder()
{
    StandInHost host;
    QStringList notes;
    auto *tool = new EditsEverywhere;
    tool->setHost(&host);
    QVERIFY(tool->editsRegionOf(nullptr));
    tool->m_mediator = std::make_unique<NotingMediator>(&host, &notes, [&notes, tool] {
        if (!tool->m_toolMutex)
            notes.append(QStringLiteral("mutex before"));
        if (tool->m_fontCache)
            notes.append(QStringLiteral("font behind"));
    });
    tool->m_modelessDialog = new NotingDialog(&host, &notes, [&notes, tool] {
        if (!tool->m_fontCache)
            notes.append(QStringLiteral("font before"));
        if (!tool->m_toolName.isEmpty())
            notes.append(QStringLiteral("name behind"));
    });
    delete tool;
    QCOMPARE(notes, QStringList({"mutex before", "font behind", "mediator", "font before",
                                 "name behind", "dialog"}));
}

int main(int argc, char *argv[])
{
    TestPlgState test;
    return runTest(argc, argv, test);
}

#include "test_plg_state.moc"
