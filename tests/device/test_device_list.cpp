#include "bridge/operation/DialogRun.h"
#include "device/edit/GUI_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_AddDeviceDialog.h"
#include "device/list/JS_Mediator_DeviceList.h"
#include "standin/host/StandInHost.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QPointer>

#include <memory>

// The bridge of the page that lists cameras and files: selects, adds and removes them.

class TestDeviceList : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void slotsStandInOrder();
    void pageNameIsGiven();
    void callsAreTraced();
    void documentIsSelected_data();
    void documentIsSelected();
    void documentThatCannotBeSelectedStays_data();
    void documentThatCannotBeSelectedStays();
    void documentIsUnselected();
    void addingOpensTheDialog_data();
    void addingOpensTheDialog();
    void unknownDocumentIsNotAskedFor();
    void questionFollowsFromTheHeads_data();
    void questionFollowsFromTheHeads();
    void questionIsTranslated();
    void documentGoesOnYes_data();
    void documentGoesOnYes();
    void documentThatGoesWhileAskedIsNotRemoved();
    void everythingIsRemovedUnasked_data();
    void everythingIsRemovedUnasked();
    void selectionIsTold();
    void severalSelectedAreTold();
    void headsAreTold_data();
    void headsAreTold();
    void keyWithoutADocumentIsFalse();
    void failureGoesToTheHost_data();
    void failureGoesToTheHost();
    void mediatorMayGoInAnyCall_data();
    void mediatorMayGoInAnyCall();
    void flagReachesTheDialog_data();
    void flagReachesTheDialog();
    void callIsTracedFirst_data();
    void callIsTracedFirst();
    void keysKeepAllTheirBits();

private:
    struct Run
    {
        QString dialog;
        QWidget *parent;
    };
    QList<Run> m_runs;
    QList<QPointer<QDialog>> m_dialogs;
};

namespace {

const QString DeleteQuestion = QStringLiteral("Do you want to delete?");
const QString LongerQuestion =
    QStringLiteral("Heads connected to the same device are also removed from the list. Is it OK?");

struct List
{
    StandInHost host;
    std::unique_ptr<JS_Mediator_DeviceList> mediator =
        std::make_unique<JS_Mediator_DeviceList>(&host, QStringLiteral("devicepanel"));
};

using Call = std::function<void(JS_Mediator_DeviceList &)>;

/// A name and a call of each slot with the document 1, where it takes one.
const QVector<QPair<const char *, Call>> &calls()
{
    using Mediator = JS_Mediator_DeviceList;
    static const QVector<QPair<const char *, Call>> all = {
        {"selectDoc", [](Mediator &m) { m.selectDoc(1); }},
        {"unselectDoc", [](Mediator &m) { m.unselectDoc(1); }},
        {"addDoc", [](Mediator &m) { m.addDoc(); }},
        {"deleteDoc", [](Mediator &m) { m.deleteDoc(1); }},
        {"deleteAllDocs", [](Mediator &m) { m.deleteAllDocs(); }},
        {"isSelectedDoc", [](Mediator &m) { m.isSelectedDoc(1); }},
        {"isSelectedMultiDoc", [](Mediator &m) { m.isSelectedMultiDoc(1); }},
        {"isMultiHead", [](Mediator &m) { m.isMultiHead(1); }},
    };
    return all;
}

}

Q_DECLARE_METATYPE(Call)

void TestDeviceList::init()
{
    TestBase::init();
    m_runs.clear();
    m_dialogs.clear();
    DialogRun::setAnswer([this](QDialog &dialog) {
        m_runs.append(
            {QString::fromLatin1(dialog.metaObject()->className()), dialog.parentWidget()});
        m_dialogs.append(&dialog);
        return int(QDialog::Rejected);
    });
}

void TestDeviceList::cleanup()
{
    DialogRun::setAnswer(DialogRun::Answer());
    TestBase::cleanup();
}

void TestDeviceList::slotsStandInOrder()
{
    const QMetaObject &meta = JS_Mediator_DeviceList::staticMetaObject;
    QCOMPARE(
        ownMethods(meta),
        QStringList({"void selectDoc(QVariant)", "void unselectDoc(QVariant)", "void addDoc(bool)",
                     "void addDoc()", "void deleteDoc(DOCKEY)", "void deleteAllDocs(bool)",
                     "void deleteAllDocs()", "bool isSelectedDoc(QVariant)",
                     "bool isSelectedMultiDoc(QVariant)", "bool isMultiHead(QVariant)"}));
    QCOMPARE(QLatin1String(meta.superClass()->className()), QLatin1String("JS_Mediator"));
}

void TestDeviceList::pageNameIsGiven()
{
    List list;
    QCOMPARE(list.mediator->pageName(), QString("devicepanel"));
    QCOMPARE(list.mediator->objectName(), QString("devicepanel"));
}

void TestDeviceList::callsAreTraced()
{
    List list;
    LogCapture log;
    const auto traced = [&](const char *slot, const char *argument) {
        const QString name = QStringLiteral("\"JS_Mediator_DeviceList::%1\"").arg(slot);
        const QStringList lines = {"[ENTER] " + name + " \"" + argument + "\"", "[LEAVE] " + name};
        const QStringList written = log.texts();
        log.clear();
        QCOMPARE(written, lines);
    };
    list.mediator->selectDoc("5");
    traced("selectDoc", "[key:5]");
    list.mediator->unselectDoc(5);
    traced("unselectDoc", "[key:5]");
    list.mediator->deleteDoc(DOCKEY(1) << 63);
    traced("deleteDoc", "[dockey:9223372036854775808]");
    list.mediator->deleteAllDocs();
    traced("deleteAllDocs", "[unselectOnly:false]");
    list.mediator->isSelectedDoc(5);
    traced("isSelectedDoc", "[key:5]");
    list.mediator->isSelectedMultiDoc(5);
    traced("isSelectedMultiDoc", "[key:5]");
    list.mediator->isMultiHead(5);
    traced("isMultiHead", "[key:5]");
    list.mediator->addDoc(false);
    QCOMPARE(log.texts().first(),
             QString("[ENTER] \"JS_Mediator_DeviceList::addDoc\" \"[connect:false]\""));
    log.clear();
    list.mediator->addDoc();
    QCOMPARE(log.texts().first(),
             QString("[ENTER] \"JS_Mediator_DeviceList::addDoc\" \"[connect:true]\""));
}

void TestDeviceList::documentIsSelected_data()
{
    QTest::addColumn<QVariant>("key");
    QTest::newRow("number") << QVariant(2);
    QTest::newRow("number of a page") << QVariant(2.0);
    QTest::newRow("text") << QVariant("2");
}

void TestDeviceList::documentIsSelected()
{
    QFETCH(QVariant, key);
    List list;
    list.host.addCamera();
    list.host.addCamera();
    list.mediator->selectDoc(key);
    QCOMPARE(list.host.journal(),
             QStringList({"prepareSelectAll()", "deviceByKey(2, true)", "[2].isSelectable()",
                          "setCurrentDoc(2, true)", "[2].setSelected(true)"}));
    QCOMPARE(list.host.currentKey(), DOCKEY(2));
    QCOMPARE(list.host.selection(), QList<DOCKEY>({1, 2}));
}

void TestDeviceList::documentThatCannotBeSelectedStays_data()
{
    QTest::addColumn<QVariant>("key");
    QTest::addColumn<QStringList>("asked");
    QTest::newRow("unknown") << QVariant(7) << QStringList("deviceByKey(7, true)");
    QTest::newRow("no number") << QVariant("a") << QStringList("deviceByKey(0, true)");
    QTest::newRow("negative") << QVariant("-1") << QStringList("deviceByKey(0, true)");
    QTest::newRow("no document") << QVariant("18446744073709551615")
                                 << QStringList("deviceByKey(-1, true)");
    QTest::newRow("not selectable")
        << QVariant(2) << QStringList({"deviceByKey(2, true)", "[2].isSelectable()"});
}

void TestDeviceList::documentThatCannotBeSelectedStays()
{
    QFETCH(QVariant, key);
    QFETCH(QStringList, asked);
    List list;
    list.host.addCamera();
    list.host.addCamera()->state().isSelectable = false;
    list.mediator->selectDoc(key);
    QCOMPARE(list.host.journal(), QStringList("prepareSelectAll()") + asked);
}

void TestDeviceList::documentIsUnselected()
{
    List list;
    list.host.addCamera();
    list.mediator->unselectDoc("1");
    list.mediator->unselectDoc(7); // the host knows best
    QCOMPARE(list.host.journal(), QStringList({"prepareSelectAll()", "unselectDoc(1)",
                                               "prepareSelectAll()", "unselectDoc(7)"}));
    QCOMPARE(list.host.selection(), QList<DOCKEY>());
    QCOMPARE(list.host.currentKey(), DOCKEY(1));
}

void TestDeviceList::addingOpensTheDialog_data()
{
    QTest::addColumn<bool>("hasWindow");
    QTest::newRow("over the main window") << true;
    QTest::newRow("alone") << false;
}

void TestDeviceList::addingOpensTheDialog()
{
    QFETCH(bool, hasWindow);
    List list;
    QWidget window;
    list.host.state().mainWidget = hasWindow ? &window : nullptr;
    list.mediator->addDoc();
    QCOMPARE(list.host.journal().first(), QString("mainWidget()"));
    QCOMPARE(m_runs.size(), 1);
    QCOMPARE(m_runs.first().dialog, QString("GUI_AddDeviceDialog"));
    QCOMPARE(m_runs.first().parent, hasWindow ? &window : nullptr);
    QVERIFY(!m_dialogs.first());
    QCOMPARE(list.host.handledErrors(), QStringList());
}

void TestDeviceList::unknownDocumentIsNotAskedFor()
{
    List list;
    list.host.addCamera();
    list.host.answerConfirm(true);
    list.mediator->deleteDoc(7);
    QCOMPARE(list.host.journal(), QStringList({"prepareSelectAll()", "deviceByKey(7, true)"}));
    QCOMPARE(list.host.documents().size(), 1);
}

void TestDeviceList::questionFollowsFromTheHeads_data()
{
    QTest::addColumn<int>("heads");
    QTest::addColumn<QString>("question");
    QTest::newRow("one head") << 1 << DeleteQuestion;
    QTest::newRow("two heads") << 2 << LongerQuestion;
}

void TestDeviceList::questionFollowsFromTheHeads()
{
    QFETCH(int, heads);
    QFETCH(QString, question);
    List list;
    StandInCamera::Description description;
    description.cameraNumber = 0;
    description.headCount = heads;
    for (description.headNumber = 1; description.headNumber <= heads; ++description.headNumber)
        list.host.addCamera(description);
    list.mediator->deleteDoc(1); // the answer is no
    QCOMPARE(list.host.journal(),
             QStringList({"prepareSelectAll()", "deviceByKey(1, true)", "[1].sharesDevice()",
                          "translate(\"" + question + "\")",
                          "confirm(\"" + question + "\", null, {})"}));
    QCOMPARE(list.host.documents().size(), heads);
}

void TestDeviceList::questionIsTranslated()
{
    List list;
    list.host.addCamera();
    list.host.state().translations.insert(DeleteQuestion, QStringLiteral("Fort damit?"));
    list.mediator->deleteDoc(1);
    QCOMPARE(list.host.messages().size(), 1);
    QCOMPARE(list.host.messages().first().text, QString("Fort damit?"));
}

void TestDeviceList::documentGoesOnYes_data()
{
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QStringList>("then");
    QTest::newRow("yes") << true << QStringList({"deviceByKey(1, true)", "removeDocument(1)"});
    QTest::newRow("no") << false << QStringList();
}

void TestDeviceList::documentGoesOnYes()
{
    QFETCH(bool, yes);
    QFETCH(QStringList, then);
    List list;
    list.host.addCamera();
    list.host.answerConfirm(yes);
    list.mediator->deleteDoc(1);
    QCOMPARE(list.host.journal().mid(5), then);
    QCOMPARE(list.host.documents().isEmpty(), yes);
}

void TestDeviceList::documentThatGoesWhileAskedIsNotRemoved()
{
    List list;
    list.host.addCamera();
    list.host.answerConfirm(true);
    list.host.removeDocumentOn("confirm", 1);
    list.mediator->deleteDoc(1);
    QCOMPARE(list.host.journal().mid(5), QStringList("deviceByKey(1, true)"));
    QCOMPARE(list.host.handledErrors(), QStringList());
}

void TestDeviceList::everythingIsRemovedUnasked_data()
{
    QTest::addColumn<bool>("unselectOnly");
    QTest::newRow("removed") << false;
    QTest::newRow("unselected") << true;
}

void TestDeviceList::everythingIsRemovedUnasked()
{
    QFETCH(bool, unselectOnly);
    List list;
    list.host.addCamera();
    list.host.addCamera();
    list.mediator->deleteAllDocs(unselectOnly);
    QCOMPARE(list.host.journal(),
             QStringList({"prepareSelectAll()", unselectOnly ? "removeAllDocuments(0, true)"
                                                             : "removeAllDocuments(0, false)"}));
    QCOMPARE(list.host.documents().size(), unselectOnly ? 2 : 0);
    QCOMPARE(list.host.selection(), QList<DOCKEY>());
    QCOMPARE(list.host.messages().size(), 0);
}

void TestDeviceList::selectionIsTold()
{
    List list;
    list.host.addCamera();
    list.host.addCamera();
    QVERIFY(list.mediator->isSelectedDoc("1"));
    QVERIFY(!list.mediator->isSelectedDoc(2));
    QCOMPARE(list.host.journal(), QStringList({"deviceByKey(1, true)", "[1].isSelected()",
                                               "deviceByKey(2, true)", "[2].isSelected()"}));
}

void TestDeviceList::severalSelectedAreTold()
{
    List list;
    list.host.addCamera();
    list.host.addCamera();
    list.host.addCamera();
    QVERIFY(!list.mediator->isSelectedMultiDoc(1));
    list.host.select(2, true);
    QVERIFY(list.mediator->isSelectedMultiDoc(1));
    QVERIFY(list.mediator->isSelectedMultiDoc("2"));
    QVERIFY(!list.mediator->isSelectedMultiDoc(3));
}

void TestDeviceList::headsAreTold_data()
{
    QTest::addColumn<int>("heads");
    QTest::addColumn<bool>("selectable");
    QTest::addColumn<bool>("told");
    QTest::newRow("none") << 0 << true << false;
    QTest::newRow("one") << 1 << true << false;
    QTest::newRow("two") << 2 << true << true;
    QTest::newRow("two, not selectable") << 2 << false << false;
}

void TestDeviceList::headsAreTold()
{
    QFETCH(int, heads);
    QFETCH(bool, selectable);
    List list;
    StandInCamera *camera = list.host.addCamera();
    camera->state().headCount = heads;
    camera->state().isSelectable = selectable;
    QTEST(list.mediator->isMultiHead(1), "told");
}

void TestDeviceList::keyWithoutADocumentIsFalse()
{
    List list;
    list.host.addCamera();
    for (const QVariant &key : {QVariant(7), QVariant("x"), QVariant(), QVariant(QVariantList())}) {
        QVERIFY(!list.mediator->isSelectedDoc(key));
        QVERIFY(!list.mediator->isSelectedMultiDoc(key));
        QVERIFY(!list.mediator->isMultiHead(key));
    }
}

void TestDeviceList::failureGoesToTheHost_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("operation");
    const char *const operations[] = {"prepareSelectAll", "prepareSelectAll", "mainWidget",
                                      "prepareSelectAll", "prepareSelectAll", "deviceByKey",
                                      "deviceByKey",      "deviceByKey"};
    for (int i = 0; i < calls().size(); ++i)
        QTest::newRow(calls().at(i).first)
            << calls().at(i).second << QString::fromLatin1(operations[i]);
}

void TestDeviceList::failureGoesToTheHost()
{
    QFETCH(Call, call);
    QFETCH(QString, operation);
    List list;
    list.host.addCamera();
    list.host.failOn(operation);
    call(*list.mediator);
    QCOMPARE(list.host.handledErrors(), QStringList(operation + " failed"));
    QCOMPARE(list.host.documents().size(), 1);
    QCOMPARE(m_runs.size(), 0);
}

void TestDeviceList::mediatorMayGoInAnyCall_data()
{
    QTest::addColumn<Call>("call");
    for (const auto &each : calls())
        QTest::newRow(each.first) << each.second;
}

void TestDeviceList::mediatorMayGoInAnyCall()
{
    QFETCH(Call, call);
    List list;
    list.host.addCamera();
    list.host.answerConfirm(true);
    QObject::connect(list.host.events(), &StandInEvents::callJournalled, list.host.events(),
                     [&] { list.mediator.reset(); });
    call(*list.mediator);
    QVERIFY(!list.mediator);
    QCOMPARE(list.host.handledErrors(), QStringList());
}

void TestDeviceList::flagReachesTheDialog_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QList<bool>>("flags");
    using Mediator = JS_Mediator_DeviceList;
    QTest::newRow("at once") << Call([](Mediator &m) { m.addDoc(true); }) << QList<bool>({true});
    QTest::newRow("later") << Call([](Mediator &m) { m.addDoc(false); }) << QList<bool>({false});
    QTest::newRow("not told") << Call([](Mediator &m) { m.addDoc(); }) << QList<bool>({true});
}

void TestDeviceList::flagReachesTheDialog()
{
    QFETCH(Call, call);
    List list;
    QList<bool> flags;
    DialogRun::setAnswer([&](QDialog &dialog) {
        JS_Mediator_Dialog *mediator = static_cast<GUI_AddDeviceDialog &>(dialog).mediator();
        flags.append(static_cast<JS_Mediator_AddDeviceDialog *>(mediator)->connectsAtOnce());
        return int(QDialog::Rejected);
    });
    call(*list.mediator);
    QTEST(flags, "flags");
}

void TestDeviceList::callIsTracedFirst_data()
{
    QTest::addColumn<Call>("call");
    for (const auto &each : calls())
        QTest::newRow(each.first) << each.second;
}

void TestDeviceList::callIsTracedFirst()
{
    QFETCH(Call, call);
    List list;
    list.host.addCamera();
    LogCapture log;
    QList<QStringList> before; // what stood in the log at each call of the host
    QObject context;
    QObject::connect(list.host.events(), &StandInEvents::callJournalled, &context,
                     [&] { before.append(log.texts()); });
    call(*list.mediator);
    QVERIFY(!before.isEmpty());
    QCOMPARE(before.first().size(), 1);
    QVERIFY(before.first().first().startsWith(
        QString("[ENTER] \"JS_Mediator_DeviceList::%1\" \"[").arg(QTest::currentDataTag())));
}

void TestDeviceList::keysKeepAllTheirBits()
{
    const DOCKEY key = (DOCKEY(1) << 63) + 1;
    const QVariant text = QString::number(key);
    List list;
    list.host.setNextKey(key);
    list.host.addCamera()->state().headCount = 2;
    StandInCamera *other = list.host.addCamera();
    list.host.select(other->key(), true);
    QVERIFY(list.mediator->isSelectedDoc(text));
    QVERIFY(list.mediator->isSelectedMultiDoc(text));
    QVERIFY(list.mediator->isMultiHead(text));
    list.mediator->unselectDoc(text);
    QCOMPARE(list.host.selection(), QList<DOCKEY>({other->key()}));
    list.mediator->selectDoc(text);
    QCOMPARE(list.host.currentKey(), key);
    QCOMPARE(list.host.selection(), QList<DOCKEY>({other->key(), key}));
}

int main(int argc, char *argv[])
{
    TestDeviceList test;
    return runTest(argc, argv, test);
}

#include "test_device_list.moc"
