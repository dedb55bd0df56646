#include "standin/host/StandInHost.h"
#include "tests/plugin/ProbeTool.h"
#include "tests/support/TestLog.h"

#include <QGuiApplication>
#include <QKeyEvent>

// Mouse and keys of a tool that edits no region.

class TestPlgMouse : public TestBase
{
    Q_OBJECT

private slots:
    void pressOpensOneMacro();
    void pressWithoutDocumentOpensNothing();
    void moveReportsTheCursor();
    void moveWithoutDocumentReportsNothing();
    void moveNeedsTheDocumentTwice();
    void releaseClosesTheMacro();
    void releaseAfterTheDocumentWentStillClosesTheMacro();
    void releaseWithoutPressOnNoDocumentDoesNothing();
    void finishReleasesWhereThePointerWasLast();
    void pressForgetsTheAnchor();
    void leaveForgetsTheDocumentAndKeepsForeignCursors();
    void keysAreHeld();
};

void TestPlgMouse::pressOpensOneMacro()
{
    StandInHost host;
    const int doc = int(host.addCamera()->key());
    ProbeTool tool;
    tool.setHost(&host);
    host.clearJournal();
    tool.onMousePress(QPoint(30, 40), doc);
    QVERIFY(tool.isDragging());
    QCOMPARE(tool.pressPosition(), QPoint(30, 40));
    QCOMPARE(tool.lastMousePosition(), QPoint(30, 40));
    QCOMPARE(host.commands(), QStringList({"beginUndoMacro(\"\")"}));
}

void TestPlgMouse::pressWithoutDocumentOpensNothing()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool;
    tool.setHost(&host);
    host.clearJournal();
    tool.onMousePress(QPoint(30, 40), -1);
    tool.onMousePress(QPoint(30, 40), 4711);
    QVERIFY(!tool.isDragging());
    QCOMPARE(tool.pressPosition(), QPoint(0, 0));
    QCOMPARE(host.commands(), QStringList());
}

void TestPlgMouse::moveReportsTheCursor()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const int doc = int(camera->key());
    ProbeTool tool;
    tool.setHost(&host);
    const QPoint expected = camera->mapPoint(QPoint(12, 7), true);
    tool.onMouseMove(QPoint(12, 7), doc);
    QCOMPARE(tool.lastMousePosition(), QPoint(12, 7));
    QCOMPARE(tool.currentDocId(), doc);
    QCOMPARE(tool.documentPoint(doc), expected);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void TestPlgMouse::moveWithoutDocumentReportsNothing()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool;
    tool.setHost(&host);
    host.clearJournal();
    tool.onMouseMove(QPoint(12, 7), -1);
    QCOMPARE(tool.currentDocId(), -1);
    QCOMPARE(tool.lastMousePosition(), QPoint(0, 0));
    QCOMPARE(host.commands(), QStringList());
}

void TestPlgMouse::moveNeedsTheDocumentTwice()
{
    StandInHost host;
    const int doc = int(host.addCamera()->key());
    ProbeTool tool;
    tool.setHost(&host);
    host.answerNullOn(QStringLiteral("deviceByKey"), 2);
    host.clearJournal();
    tool.onMouseMove(QPoint(12, 7), doc);
    QCOMPARE(host.journal().size(), 2);
    QCOMPARE(tool.currentDocId(), -1);
    QCOMPARE(tool.lastMousePosition(), QPoint(0, 0));
}

void TestPlgMouse::releaseClosesTheMacro()
{
    StandInHost host;
    const int doc = int(host.addCamera()->key());
    ProbeTool tool;
    tool.setHost(&host);
    tool.onMousePress(QPoint(30, 40), doc);
    tool.m_dragHandle = 3;
    tool.m_anchorCorner = 2;
    host.clearJournal();
    tool.onMouseRelease(QPoint(33, 44), doc);
    QVERIFY(!tool.isDragging());
    QCOMPARE(tool.m_dragHandle, 9);
    QCOMPARE(tool.m_anchorCorner, 4);
    QCOMPARE(host.commands(), QStringList({"endUndoMacro()"}));
}

void TestPlgMouse::releaseAfterTheDocumentWentStillClosesTheMacro()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const int doc = int(camera->key());
    ProbeTool tool;
    tool.setHost(&host);
    tool.onMousePress(QPoint(30, 40), doc);
    host.removeDocument(camera->key());
    host.clearJournal();
    tool.onMouseMove(QPoint(31, 41), doc);
    tool.onMouseRelease(QPoint(33, 44), doc);
    QVERIFY(!tool.isDragging());
    QCOMPARE(host.commands(), QStringList({"endUndoMacro()"}));
}

void TestPlgMouse::releaseWithoutPressOnNoDocumentDoesNothing()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.onMouseRelease(QPoint(1, 1), -1);
    QCOMPARE(host.commands(), QStringList());
}

namespace {

class ReleaseProbe : public ProbeTool
{
public:
    QPoint releasedAt;
    int releasedDoc = 0;
    void onMouseRelease(const QPoint &pos, int docId) override
    {
        releasedAt = pos;
        releasedDoc = docId;
    }
};

}

void TestPlgMouse::finishReleasesWhereThePointerWasLast()
{
    StandInHost host;
    const int doc = int(host.addCamera()->key());
    ReleaseProbe tool;
    tool.setHost(&host);
    tool.onMouseMove(QPoint(21, 22), doc);
    tool.finishMouse(doc);
    QCOMPARE(tool.releasedAt, QPoint(21, 22));
    QCOMPARE(tool.releasedDoc, doc);
}

void TestPlgMouse::pressForgetsTheAnchor()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_anchorCorner = 1;
    tool.onMousePress(QPoint(1, 1), -1);
    QCOMPARE(tool.m_anchorCorner, 4);
}

void TestPlgMouse::leaveForgetsTheDocumentAndKeepsForeignCursors()
{
    StandInHost host;
    const int doc = int(host.addCamera()->key());
    ProbeTool tool;
    tool.setHost(&host);
    tool.onMouseMove(QPoint(2, 2), doc);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    tool.onMouseLeave();
    QCOMPARE(tool.currentDocId(), -1);
    QVERIFY(QGuiApplication::overrideCursor() != nullptr);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();
}

void TestPlgMouse::keysAreHeld()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
    tool.onKeyPress(&event);
    QVERIFY(tool.isKeyHeld());
    QCOMPARE(host.commands(), QStringList());
    tool.onKeyRelease();
    QVERIFY(!tool.isKeyHeld());
}

int main(int argc, char *argv[])
{
    TestPlgMouse test;
    return runTest(argc, argv, test);
}

#include "test_plg_mouse.moc"
