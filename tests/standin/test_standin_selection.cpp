#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QSignalSpy>

#include <functional>

// What is selected can be taken back where it became one undo step, and heads of one device go
// together.

class TestStandInSelection : public TestBase
{
    Q_OBJECT

private slots:
    void selectionInsideAMacroIsTakenBack_data();
    void selectionInsideAMacroIsTakenBack();
    void selectionOutsideOfAMacroIsNoStep();
    void unchangedSelectionIsNoStep();
    void severalChangesAreOneStep();
    void changesOfOneMacroComeBackAtOnce();
    void orderOfSelectionComesBack();
    void documentsThatHaveGoneStayAway();
    void removalInsideAMacroIsNotTakenBack();
    void changeIsToldOnce();
    void headsShareTheirDevice();
    void headsGoTogether_data();
    void headsGoTogether();
    void headsThatGoTogetherAreTold();
};

namespace {

using Change = std::function<void(StandInHost &)>;

/// Three cameras, the second current and selected behind the first.
void furnish(StandInHost &host)
{
    for (int i = 0; i < 3; ++i)
        host.addCamera();
    host.makeCurrent(2);
    host.select(2, true);
}

/// A camera with so many heads that it tells of, and one document for each.
QList<StandInCamera *> addDevice(StandInHost &host, int number, int heads)
{
    QList<StandInCamera *> added;
    StandInCamera::Description description;
    description.cameraNumber = number;
    description.headCount = heads;
    for (description.headNumber = 1; description.headNumber <= heads; ++description.headNumber)
        added.append(host.addCamera(description));
    return added;
}

}

Q_DECLARE_METATYPE(Change)

void TestStandInSelection::selectionInsideAMacroIsTakenBack_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QList<DOCKEY>>("selection");
    QTest::addColumn<DOCKEY>("current");
    using Host = StandInHost;
    QTest::newRow("selected") << Change(
                                     [](Host &h) { h.document(3)->contract()->setSelected(true); })
                              << QList<DOCKEY>({1, 2, 3}) << DOCKEY(2);
    QTest::newRow("unselected by the document")
        << Change([](Host &h) { h.document(1)->contract()->setSelected(false); })
        << QList<DOCKEY>({2}) << DOCKEY(2);
    QTest::newRow("unselected") << Change([](Host &h) { h.unselectDoc(2); }) << QList<DOCKEY>({1})
                                << DOCKEY(2);
    QTest::newRow("current") << Change([](Host &h) { h.setCurrentDoc(1, true); })
                             << QList<DOCKEY>({1, 2}) << DOCKEY(1);
    QTest::newRow("just these") << Change([](Host &h) {
        h.selectDocs({3, 1}, false);
    }) << QList<DOCKEY>({3, 1}) << DOCKEY(1);
    QTest::newRow("all") << Change([](Host &h) { h.selectAllDocs(nullptr); })
                         << QList<DOCKEY>({1, 2, 3}) << DOCKEY(3);
    QTest::newRow("none") << Change([](Host &h) { h.removeAllDocuments(0, true); })
                          << QList<DOCKEY>() << DOCKEY(2);
}

void TestStandInSelection::selectionInsideAMacroIsTakenBack()
{
    QFETCH(Change, change);
    QFETCH(QList<DOCKEY>, selection);
    QFETCH(DOCKEY, current);
    StandInHost host;
    furnish(host);
    host.beginUndoMacro(QString());
    change(host);
    host.endUndoMacro();
    QCOMPARE(host.selection(), selection);
    QCOMPARE(host.currentKey(), current);
    QVERIFY(host.canUndo());
    host.undo();
    QCOMPARE(host.selection(), QList<DOCKEY>({1, 2}));
    QCOMPARE(host.currentKey(), DOCKEY(2));
    QVERIFY(!host.canUndo());
    host.redo();
    QCOMPARE(host.selection(), selection);
    QCOMPARE(host.currentKey(), current);
}

void TestStandInSelection::selectionOutsideOfAMacroIsNoStep()
{
    StandInHost host;
    furnish(host);
    host.setCurrentDoc(3, true);
    host.document(3)->contract()->setSelected(true);
    QVERIFY(!host.canUndo());
}

void TestStandInSelection::unchangedSelectionIsNoStep()
{
    StandInHost host;
    furnish(host);
    host.beginUndoMacro(QString());
    host.setCurrentDoc(2, true);
    host.document(2)->contract()->setSelected(true);
    host.unselectDoc(3);
    host.setCurrentDoc(9, true);
    host.endUndoMacro();
    QVERIFY(!host.canUndo());
}

void TestStandInSelection::severalChangesAreOneStep()
{
    StandInHost host;
    furnish(host);
    host.beginUndoMacro(QString());
    host.setCurrentDoc(3, true);
    host.document(3)->contract()->setSelected(true);
    host.unselectDoc(1);
    host.camera(1)->setShutterSpeed(2000);
    host.endUndoMacro();
    host.undo();
    QCOMPARE(host.selection(), QList<DOCKEY>({1, 2}));
    QCOMPARE(host.currentKey(), DOCKEY(2));
    QCOMPARE(host.camera(1)->shutterSpeed(), 1000u);
    QVERIFY(!host.canUndo());
}

void TestStandInSelection::changesOfOneMacroComeBackAtOnce()
{
    StandInHost host;
    furnish(host);
    for (int macro = 0; macro < 2; ++macro) {
        host.beginUndoMacro(QString());
        host.unselectDoc(1);
        host.document(3)->contract()->setSelected(macro == 0);
        host.document(1)->contract()->setSelected(true);
        host.endUndoMacro();
    }
    QCOMPARE(host.selection(), QList<DOCKEY>({2, 1}));
    QSignalSpy selected(host.events(), &StandInEvents::selectionChanged);
    host.undo();
    QCOMPARE(host.selection(), QList<DOCKEY>({2, 3, 1}));
    QCOMPARE(selected.size(), 1);
    host.undo();
    QCOMPARE(host.selection(), QList<DOCKEY>({1, 2}));
    host.redo();
    QCOMPARE(host.selection(), QList<DOCKEY>({2, 3, 1}));
    QCOMPARE(selected.size(), 3);
}

void TestStandInSelection::orderOfSelectionComesBack()
{
    StandInHost host;
    furnish(host);
    host.selectDocs({3, 1, 2}, false);
    host.beginUndoMacro(QString());
    host.unselectDoc(3);
    host.document(3)->contract()->setSelected(true);
    host.endUndoMacro();
    QCOMPARE(host.selection(), QList<DOCKEY>({1, 2, 3}));
    host.undo();
    QCOMPARE(host.selection(), QList<DOCKEY>({3, 1, 2}));
}

void TestStandInSelection::documentsThatHaveGoneStayAway()
{
    StandInHost host;
    furnish(host);
    host.beginUndoMacro(QString());
    host.selectDocs({3}, false);
    host.endUndoMacro();
    host.closeDocument(2);
    host.undo();
    QCOMPARE(host.selection(), QList<DOCKEY>({1}));
    QCOMPARE(host.currentKey(), DOCKEY(3)); // the one before has gone
    host.closeDocument(3);
    host.redo();
    QCOMPARE(host.selection(), QList<DOCKEY>());
    QCOMPARE(host.currentKey(), DOCKEY(1));
}

void TestStandInSelection::removalInsideAMacroIsNotTakenBack()
{
    StandInHost host;
    furnish(host);
    host.beginUndoMacro(QString());
    host.removeDocument(2);
    host.endUndoMacro();
    QVERIFY(!host.canUndo());
}

void TestStandInSelection::changeIsToldOnce()
{
    StandInHost host;
    furnish(host);
    host.beginUndoMacro(QString());
    host.selectDocs({3, 1}, false);
    host.endUndoMacro();
    QSignalSpy selected(host.events(), &StandInEvents::selectionChanged);
    QSignalSpy current(host.events(), &StandInEvents::currentDocumentChanged);
    host.undo();
    QCOMPARE(selected.size(), 1);
    QCOMPARE(current.size(), 1);
    QCOMPARE(current.first().first().value<DOCKEY>(), DOCKEY(2));
}

void TestStandInSelection::headsShareTheirDevice()
{
    StandInHost host;
    StandInCamera *alone = host.addCamera();
    const QList<StandInCamera *> pair = addDevice(host, 7, 2);
    QVERIFY(!alone->sharesDevice());
    QVERIFY(pair.at(0)->sharesDevice());
    QVERIFY(pair.at(1)->sharesDevice());
    host.closeDocument(pair.at(0)->key());
    QVERIFY(!pair.at(1)->sharesDevice()); // no other is in the list
    QVERIFY(!host.addGroup("both", {})->sharesDevice());
}

void TestStandInSelection::headsGoTogether_data()
{
    QTest::addColumn<DOCKEY>("removed");
    QTest::addColumn<QList<DOCKEY>>("left");
    QTest::newRow("camera of one head") << DOCKEY(1) << QList<DOCKEY>({2, 3, 4, 5});
    QTest::newRow("first head") << DOCKEY(2) << QList<DOCKEY>({1, 5});
    QTest::newRow("last head") << DOCKEY(4) << QList<DOCKEY>({1, 5});
    QTest::newRow("no camera") << DOCKEY(5) << QList<DOCKEY>({1, 2, 3, 4});
    QTest::newRow("no document") << DOCKEY(9) << QList<DOCKEY>({1, 2, 3, 4, 5});
}

void TestStandInSelection::headsGoTogether()
{
    QFETCH(DOCKEY, removed);
    StandInHost host;
    host.addCamera();
    addDevice(host, 7, 3);
    host.addGroup("both", {});
    host.removeDocument(removed);
    QTEST(host.documentKeys(true, false), "left");
}

void TestStandInSelection::headsThatGoTogetherAreTold()
{
    StandInHost host;
    addDevice(host, 0, 2);
    host.removeDocument(1);
    QVERIFY(host.documents().isEmpty());
    QCOMPARE(host.currentKey(), NoDocKey);
    QCOMPARE(host.commands(), QStringList("removeDocument(1)"));
}

int main(int argc, char *argv[])
{
    TestStandInSelection test;
    return runTest(argc, argv, test);
}

#include "test_standin_selection.moc"
