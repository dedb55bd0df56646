#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "record/info/JS_Mediator_CustomInfoDialog.h"
#include "record/info/XmlTree.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/ChildRun.h"
#include "tests/support/TestLog.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaMethod>
#include <QTemporaryDir>

#include <memory>

#include <sys/stat.h>

// The dialog of custom information, worked by its page and by its mediator, on three cameras.

using Operation = std::function<void(JS_Mediator_CustomInfoDialog &)>;
Q_DECLARE_METATYPE(Operation)

class TestCustomInfoDialog : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void windowIsAsTold();
    void parentMayBeGiven();
    void slotsStandInOrder();
    void pageFindsTheObject();
    void callbackTypeIsTheCallers();
    void documentsAreKeptAtTheBeginning_data();
    void documentsAreKeptAtTheBeginning();
    void devicesAreListed();
    void initialDevice_data();
    void initialDevice();
    void keyWithoutADocumentMakesNoRow();
    void recordsAreListed_data();
    void recordsAreListed();
    void unknownDocumentHasNoRecords();
    void keysComeAsNumberOrText_data();
    void keysComeAsNumberOrText();
    void operationsAreTold_data();
    void operationsAreTold();
    void documentThatHasGoneIsPassedOver_data();
    void documentThatHasGoneIsPassedOver();
    void failureEndsTheBodyAndRefreshes_data();
    void failureEndsTheBodyAndRefreshes();
    void failedRefreshIsTold_data();
    void failedRefreshIsTold();
    void failuresGiveNeutralValues();
    void editKeepsTheFlags_data();
    void editKeepsTheFlags();
    void editOfARecordThatOnlyOneHas();
    void enableTakesTheOtherFlagAsAnyText_data();
    void enableTakesTheOtherFlagAsAnyText();
    void enableReadsEachListOnce();
    void enableTakesTheFirstOfTheName();
    void enableOfANameThatIsNotThere();
    void addStoresCommentsAsARecord();
    void restoreTakesCommentsAsTheComment();
    void selectionFollowsThePage_data();
    void selectionFollowsThePage();
    void saveAsksForTheFile();
    void saveReplacesTheFile();
    void saveWithoutAFileChangesNothing();
    void saveIsSilentWhereTheFileCannotBeOpened();
    void failedSaveLeavesTheOldFile();
    void loadAsksForTheFile();
    void loadWithoutAFileRefreshes();
    void loadTakesCustomFiles();
    void loadTakesJobFiles();
    void loadReplacesTheRecords();
    void unreadableFilesLeaveTheDocuments_data();
    void unreadableFilesLeaveTheDocuments();
    void loadThatCannotRestoreIsToldOnce();
    void savedFlagComesBackAsTheDisplays_data();
    void savedFlagComesBackAsTheDisplays();
    void textsPassUnchanged_data();
    void textsPassUnchanged();
    void cancelBringsAllBack();
    void cancelOrdersTheKeysAsTexts();
    void cancelTwiceGivesTheSame();
    void cancelLeavesADocumentThatCameLater();
    void commentSurvivesACancel();
    void wholeStory_data();
    void wholeStory();
    void frameClosesWhenTheCancelFails();
    void failureWhileConstructedReachesTheCaller();
    void escapeIsIgnored();
    void pageMayEndItByItself_data();
    void pageMayEndItByItself();
    void dialogMayGoWhileItsHostIsAsked_data();
    void dialogMayGoWhileItsHostIsAsked();
    void dialogMayGoWhileTheFileIsChosen_data();
    void dialogMayGoWhileTheFileIsChosen();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString write(const QString &name, const QByteArray &content) const;
    QByteArray read(const QString &name) const;
    void choose(const QString &file);

    std::unique_ptr<QTemporaryDir> m_folder;
    QList<FileChoice::Question> m_questions;
    QStringList m_chosen;
};

namespace {

const QString Object = QStringLiteral("CustomInfoDialog.");
const QString Class = QStringLiteral("JS_Mediator_CustomInfoDialog::");
const QString Refresh = QStringLiteral("refreshDocumentInfo(true)");

QVariantMap stored(const QString &name, const QString &value, const QString &unit,
                   const QString &display, const QString &useFileName)
{
    return {{"name", name},
            {"value", value},
            {"unit", unit},
            {"display", display},
            {"usefilename", useFileName}};
}

QVariantMap custom(const QString &name, const QString &value, const QString &unit,
                   bool selected = false)
{
    return {{"name", name}, {"value", value}, {"unit", unit}, {"selected", selected}};
}

QVariantMap edit(const QString &oldName, const QString &name, const QString &value,
                 const QString &unit)
{
    return {{"oldname", oldName}, {"name", name}, {"value", value}, {"unit", unit}};
}

/// "name=value unit D F", with the letters of the flags that are on.
QStringList textsOf(const QVariantList &records)
{
    QStringList texts;
    for (const QVariant &each : records) {
        const QVariantMap record = each.toMap();
        texts.append(record["name"].toString() + "=" + record["value"].toString() + " " +
                     record["unit"].toString() + (record["display"] == "on" ? " D" : "") +
                     (record["usefilename"] == "on" ? " F" : ""));
    }
    return texts;
}

/// Three cameras, of which all are selected. The records of each are its own speed, shown in the
/// display alone, a number for file names alone, and a distance with both flags.
struct Cameras
{
    Cameras()
    {
        host.state().mainWidget = &mainWidget;
        host.state().hostVersion = QStringLiteral("1.2.3");
        for (int i = 1; i <= 3; ++i) {
            StandInCamera *camera = host.addCamera();
            camera->state().documentName = QStringLiteral("Camera %1").arg(i);
            camera->state().comment = QStringLiteral("Comment %1").arg(i);
            camera->state().customInfo = {
                stored("Speed", QString::number(i), "m/s", "on", ""),
                stored("TestNo", QString::number(10 * i), "", "", "on"),
                stored("Distance", QString::number(100 * i), "mm", "on", "on")};
            host.select(camera->key(), true);
        }
        host.makeCurrent(2);
        host.clearJournal();
    }

    QStringList records(int number)
    {
        return textsOf(host.camera(DOCKEY(number))->state().customInfo);
    }
    QString comment(int number) { return host.camera(DOCKEY(number))->state().comment; }

    QWidget mainWidget;
    StandInHost host;
};

struct Opened : Cameras
{
    explicit Opened(bool forTemporary = false) : mediator(&host, nullptr, forTemporary)
    {
        host.clearJournal();
    }

    JS_Mediator_CustomInfoDialog mediator;
};

struct Shown : Cameras
{
    explicit Shown(bool forTemporary = false)
        : dialog(new GUI_CustomInfoDialog(&host, nullptr, forTemporary)),
          page(std::make_unique<PageProbe>(dialog->webView()))
    {
        dialog->show();
        loaded = page->waitLoaded();
        host.clearJournal();
    }
    ~Shown()
    {
        page.reset();
        delete dialog;
    }

    QString call(const QString &slot) { return page->call(Object + slot); }

    QPointer<GUI_CustomInfoDialog> dialog;
    std::unique_ptr<PageProbe> page;
    bool loaded = false;
};

QJsonArray arrayOf(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).array();
}

QJsonObject objectOf(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

QString enter(const QString &operation, const QString &arguments = QString())
{
    QString quoted = arguments;
    quoted.replace("\\", "\\\\").replace('"', "\\\"");
    return "[ENTER] \"" + operation + "\" \"" + quoted + "\"";
}

QString leave(const QString &operation)
{
    return "[LEAVE] \"" + operation + "\"";
}

QByteArray job(const QByteArray &fields)
{
    return "<job>" + fields + "</job>";
}

QByteArray customFile(const QByteArray &items)
{
    return "<custom><customItems>" + items + "</customItems></custom>";
}

/// The operations that change documents 1 and 2, by their names.
QVector<QPair<QByteArray, Operation>> changes()
{
    const QVariantList targets = {1, 2};
    return {
        {"deleteCustomData",
         [targets](JS_Mediator_CustomInfoDialog &mediator) {
             mediator.deleteCustomData(targets, {custom("Speed", "", ""), custom("x", "", "")});
         }},
        {"restoreCustomData",
         [targets](JS_Mediator_CustomInfoDialog &mediator) {
             mediator.restoreCustomData(targets,
                                        {custom("a", "1", "mm", true), custom("b", "2", "")});
         }},
        {"editCustomData",
         [targets](JS_Mediator_CustomInfoDialog &mediator) {
             mediator.editCustomData(targets, edit("Speed", "Pace", "7", "km/h"));
         }},
        {"addCustomData",
         [targets](JS_Mediator_CustomInfoDialog &mediator) {
             mediator.addCustomData(targets, custom("Angle", "30", "deg"));
         }},
        {"enableCustomData",
         [targets](JS_Mediator_CustomInfoDialog &mediator) {
             mediator.enableCustomData(
                 targets, {custom("Speed", "", "", false), custom("TestNo", "", "", true)});
         }},
        {"cancel", [](JS_Mediator_CustomInfoDialog &mediator) { mediator.cancel(); }},
    };
}

void addChanges()
{
    QTest::addColumn<Operation>("operation");
    for (const auto &change : changes())
        QTest::newRow(change.first) << change.second;
}

}

void TestCustomInfoDialog::init()
{
    TestBase::init();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_questions.clear();
    m_chosen.clear();
    FileChoice::setAnswer([this](const FileChoice::Question &question) {
        m_questions.append(question);
        return m_chosen;
    });
}

void TestCustomInfoDialog::cleanup()
{
    FileChoice::setAnswer(FileChoice::Answer());
    m_folder.reset();
    TestBase::cleanup();
}

QString TestCustomInfoDialog::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray TestCustomInfoDialog::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

void TestCustomInfoDialog::choose(const QString &file)
{
    m_chosen = QStringList(file);
}

void TestCustomInfoDialog::windowIsAsTold()
{
    Cameras cameras;
    cameras.host.state().translations.insert("Custom info", "Eigene Angaben");
    GUI_CustomInfoDialog dialog(&cameras.host, nullptr, false);
    QCOMPARE(dialog.parentWidget(), &cameras.mainWidget);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Eigene Angaben"));
    QCOMPARE(dialog.minimumSize(), QSize(510, 530));
    QCOMPARE(dialog.maximumSize(), QSize(510, 530));
    QCOMPARE(dialog.mediator()->pageName(), QStringLiteral("CustomInfoDialog"));
}

void TestCustomInfoDialog::parentMayBeGiven()
{
    Cameras cameras;
    QWidget parent;
    GUI_CustomInfoDialog dialog(&cameras.host, &parent, false);
    QCOMPARE(dialog.parentWidget(), &parent);
    QVERIFY(!cameras.host.journal().contains("mainWidget()"));
}

void TestCustomInfoDialog::slotsStandInOrder()
{
    const QMetaObject &meta = JS_Mediator_CustomInfoDialog::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).access(), QMetaMethod::Public);
        methods.append(QString::fromLatin1(meta.method(i).typeName()) + " " +
                       QString::fromLatin1(meta.method(i).methodSignature()));
    }
    QCOMPARE(methods, QStringList({"void cancel()", "QString getDeviceInfo()",
                                   "QString getCustomInfo(DOCKEY)", "void save(QVariantList)",
                                   "void load(QVariantList)",
                                   "void deleteCustomData(QVariantList,QVariantList)",
                                   "void restoreCustomData(QVariantList,QVariantList)",
                                   "void editCustomData(QVariantList,QVariant)",
                                   "void addCustomData(QVariantList,QVariant)",
                                   "void enableCustomData(QVariantList,QVariantList)",
                                   "void setSelectedDeviceItems(QList<int>)",
                                   "int getCurrentDeviceRecord()", "int getCallbackType()"}));
    QCOMPARE(GUI_CustomInfoDialog::staticMetaObject.methodCount(),
             GUI_WebViewDialog::staticMetaObject.methodCount());
}

void TestCustomInfoDialog::pageFindsTheObject()
{
    Shown shown;
    QVERIFY(shown.page->isFound());
    QCOMPARE(shown.call("getCallbackType()"), QStringLiteral("17"));
    QCOMPARE(shown.call("getCurrentDeviceRecord()"), QStringLiteral("0"));
    QCOMPARE(shown.host.journal(), QStringList());
}

void TestCustomInfoDialog::callbackTypeIsTheCallers()
{
    Shown shown;
    shown.dialog->setCallbackType(5);
    QCOMPARE(shown.call("getCallbackType()"), QStringLiteral("5"));
    QCOMPARE(shown.page->call("JSON.parse(CustomInfoDialog.getCustomInfo(1))[1].selected"),
             QStringLiteral("true"));
}

void TestCustomInfoDialog::documentsAreKeptAtTheBeginning_data()
{
    QTest::addColumn<bool>("forTemporary");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("selected") << false
                              << QStringList({"selectedDocKeys(true)", "deviceByKey(1, true)",
                                              "[1].customInfoList()", "deviceByKey(2, true)",
                                              "[2].customInfoList()", "deviceByKey(3, true)",
                                              "[3].customInfoList()"});
    QTest::newRow("of a temporary save")
        << true
        << QStringList({"temporaryDocumentKeys()", "deviceByKey(3, true)", "[3].customInfoList()",
                        "deviceByKey(77, true)", "deviceByKey(1, true)", "[1].customInfoList()"});
}

void TestCustomInfoDialog::documentsAreKeptAtTheBeginning()
{
    QFETCH(bool, forTemporary);
    QFETCH(QStringList, calls);
    Cameras cameras;
    cameras.host.state().temporaryKeys = {3, 77, 1};
    const JS_Mediator_CustomInfoDialog mediator(&cameras.host, nullptr, forTemporary);
    QCOMPARE(cameras.host.journal(), calls);
}

void TestCustomInfoDialog::devicesAreListed()
{
    Opened opened;
    LogCapture log;
    const QString text = opened.mediator.getDeviceInfo();
    QCOMPARE(objectOf(text),
             objectOf("{\"Records\":[{\"recid\":1,\"name\":\"Camera 1\",\"dockey\":\"1\"},"
                      "{\"recid\":2,\"name\":\"Camera 2\",\"dockey\":\"2\"},"
                      "{\"recid\":3,\"name\":\"Camera 3\",\"dockey\":\"3\"}],\"InitSelect\":2}"));
    QVERIFY(!text.contains('\n') && !text.contains(": "));
    QCOMPARE(opened.host.journal(),
             QStringList({"selectedDocKeys(true)", "currentDocKey()", "deviceByKey(1, true)",
                          "[1].documentName()", "deviceByKey(2, true)", "[2].documentName()",
                          "deviceByKey(3, true)", "[3].documentName()"}));
    QCOMPARE(log.texts(),
             QStringList({enter(Class + "getDeviceInfo"), leave(Class + "getDeviceInfo")}));
}

void TestCustomInfoDialog::initialDevice_data()
{
    QTest::addColumn<bool>("forTemporary");
    QTest::addColumn<QList<DOCKEY>>("temporary");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("row");
    QTest::newRow("current document") << false << QList<DOCKEY>({2}) << 3 << 3;
    QTest::newRow("current document that is not listed") << false << QList<DOCKEY>({2}) << 4 << 0;
    QTest::newRow("first of a temporary save") << true << QList<DOCKEY>({3, 2}) << 2 << 1;
    QTest::newRow("first of a temporary save has gone") << true << QList<DOCKEY>({77, 2}) << 2 << 0;
    QTest::newRow("temporary save of nothing") << true << QList<DOCKEY>() << 2 << 0;
}

void TestCustomInfoDialog::initialDevice()
{
    QFETCH(bool, forTemporary);
    QFETCH(QList<DOCKEY>, temporary);
    QFETCH(int, current);
    Opened opened(forTemporary);
    opened.host.addCamera(); // the fourth, which is not selected
    opened.host.select(4, false);
    opened.host.state().temporaryKeys = temporary;
    opened.host.makeCurrent(DOCKEY(current));
    if (current == 4)
        opened.host.select(4, false);
    QTEST(objectOf(opened.mediator.getDeviceInfo()).value("InitSelect").toInt(-1), "row");
}

void TestCustomInfoDialog::keyWithoutADocumentMakesNoRow()
{
    Opened opened(true);
    opened.host.state().temporaryKeys = {3, 77, 1};
    const QJsonArray rows = objectOf(opened.mediator.getDeviceInfo()).value("Records").toArray();
    QCOMPARE(rows, arrayOf("[{\"recid\":1,\"name\":\"Camera 3\",\"dockey\":\"3\"},"
                           "{\"recid\":2,\"name\":\"Camera 1\",\"dockey\":\"1\"}]"));
}

void TestCustomInfoDialog::recordsAreListed_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QList<bool>>("selected");
    QTest::newRow("display") << 17 << QList<bool>({true, false, true, false, false});
    for (int type : {2, 5, 8, 11, 16, 0, 18, -17})
        QTest::addRow("file names, %d", type)
            << type << QList<bool>({false, true, true, false, false});
}

void TestCustomInfoDialog::recordsAreListed()
{
    QFETCH(int, type);
    QFETCH(QList<bool>, selected);
    Opened opened;
    opened.mediator.setCallbackType(type);
    opened.host.camera(2)->state().customInfo.append(stored("off", "", "", "off", "false"));
    opened.host.camera(2)->state().customInfo.append(stored("On", "", "", "On", "true"));
    QJsonArray expected =
        arrayOf("[{\"recid\":1,\"name\":\"Speed\",\"value\":\"2\",\"unit\":\"m/s\"},"
                "{\"recid\":2,\"name\":\"TestNo\",\"value\":\"20\",\"unit\":\"\"},"
                "{\"recid\":3,\"name\":\"Distance\",\"value\":\"200\",\"unit\":\"mm\"},"
                "{\"recid\":4,\"name\":\"off\",\"value\":\"\",\"unit\":\"\"},"
                "{\"recid\":5,\"name\":\"On\",\"value\":\"\",\"unit\":\"\"}]");
    for (int i = 0; i < expected.size(); ++i) {
        QJsonObject row = expected.at(i).toObject();
        row.insert("selected", selected.at(i));
        expected[i] = row;
    }
    LogCapture log;
    const QString text = opened.mediator.getCustomInfo(2);
    QCOMPARE(arrayOf(text), expected);
    QVERIFY(!text.contains('\n') && !text.contains(": "));
    QCOMPARE(opened.host.journal(), QStringList({"deviceByKey(2, true)", "[2].customInfoList()"}));
    QCOMPARE(log.texts(), QStringList({enter(Class + "getCustomInfo", "[dockey:2]"),
                                       leave(Class + "getCustomInfo")}));
}

void TestCustomInfoDialog::unknownDocumentHasNoRecords()
{
    Opened opened;
    QCOMPARE(opened.mediator.getCustomInfo(77), QStringLiteral("[]"));
    QCOMPARE(opened.host.journal(), QStringList({"deviceByKey(77, true)"}));
}

void TestCustomInfoDialog::keysComeAsNumberOrText_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("number") << "2";
    QTest::newRow("text") << "'2'";
}

void TestCustomInfoDialog::keysComeAsNumberOrText()
{
    QFETCH(QString, key);
    Shown shown;
    shown.call("addCustomData([" + key + "], {name: 'a', value: 'b', unit: 'c'})");
    QCOMPARE(shown.records(2).last(), QStringLiteral("a=b c D F"));
    QCOMPARE(shown.page->call("JSON.parse(CustomInfoDialog.getCustomInfo(" + key + ")).length"),
             QStringLiteral("4"));
}

void TestCustomInfoDialog::operationsAreTold_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QStringList>("calls");
    const QVector<QStringList> calls = {
        {"deviceByKey(1, true)", "[1].removeCustomInfo(\"Speed\")", "[1].removeCustomInfo(\"x\")",
         "deviceByKey(2, true)", "[2].removeCustomInfo(\"Speed\")", "[2].removeCustomInfo(\"x\")"},
        {"deviceByKey(1, true)", "[1].clearCustomInfo()",
         "[1].addCustomInfo(\"a\", \"1\", \"mm\", true, true)",
         "[1].addCustomInfo(\"b\", \"2\", \"\", false, true)", "deviceByKey(2, true)",
         "[2].clearCustomInfo()", "[2].addCustomInfo(\"a\", \"1\", \"mm\", true, true)",
         "[2].addCustomInfo(\"b\", \"2\", \"\", false, true)"},
        {"deviceByKey(1, true)", "[1].customInfoList()",
         "[1].renameCustomInfo(\"Speed\", \"Pace\")",
         "[1].setCustomInfo(\"Pace\", \"7\", \"km/h\", true, false)", "deviceByKey(2, true)",
         "[2].customInfoList()", "[2].renameCustomInfo(\"Speed\", \"Pace\")",
         "[2].setCustomInfo(\"Pace\", \"7\", \"km/h\", true, false)"},
        {"deviceByKey(1, true)", "[1].addCustomInfo(\"Angle\", \"30\", \"deg\", true, true)",
         "deviceByKey(2, true)", "[2].addCustomInfo(\"Angle\", \"30\", \"deg\", true, true)"},
        {"deviceByKey(1, true)", "[1].customInfoList()",
         "[1].setCustomInfo(\"Speed\", \"1\", \"m/s\", false, false)",
         "[1].setCustomInfo(\"TestNo\", \"10\", \"\", true, true)", "deviceByKey(2, true)",
         "[2].customInfoList()", "[2].setCustomInfo(\"Speed\", \"2\", \"m/s\", false, false)",
         "[2].setCustomInfo(\"TestNo\", \"20\", \"\", true, true)"},
        {"deviceByKey(1, true)", "[1].clearCustomInfo()",
         "[1].addCustomInfo(\"Speed\", \"1\", \"m/s\", true, false)",
         "[1].addCustomInfo(\"TestNo\", \"10\", \"\", false, true)",
         "[1].addCustomInfo(\"Distance\", \"100\", \"mm\", true, true)", "deviceByKey(2, true)",
         "[2].clearCustomInfo()", "[2].addCustomInfo(\"Speed\", \"2\", \"m/s\", true, false)",
         "[2].addCustomInfo(\"TestNo\", \"20\", \"\", false, true)",
         "[2].addCustomInfo(\"Distance\", \"200\", \"mm\", true, true)", "deviceByKey(3, true)",
         "[3].clearCustomInfo()", "[3].addCustomInfo(\"Speed\", \"3\", \"m/s\", true, false)",
         "[3].addCustomInfo(\"TestNo\", \"30\", \"\", false, true)",
         "[3].addCustomInfo(\"Distance\", \"300\", \"mm\", true, true)"}};
    for (int i = 0; i < calls.size(); ++i)
        QTest::newRow(changes().at(i).first) << changes().at(i).second << calls.at(i);
}

// What the host is asked and told, and the trace of it.
void TestCustomInfoDialog::operationsAreTold()
{
    QFETCH(Operation, operation);
    QFETCH(QStringList, calls);
    Opened opened;
    LogCapture log;
    operation(opened.mediator);
    QCOMPARE(opened.host.journal(), calls + QStringList(Refresh));
    const QString name = Class + QTest::currentDataTag();
    QCOMPARE(log.texts(), QStringList({enter(name), leave(name)}));
    QCOMPARE(opened.host.handledErrors(), QStringList());
}

void TestCustomInfoDialog::documentThatHasGoneIsPassedOver_data()
{
    addChanges();
}

void TestCustomInfoDialog::documentThatHasGoneIsPassedOver()
{
    QFETCH(Operation, operation);
    Opened opened;
    opened.host.closeDocument(1);
    opened.host.clearJournal();
    operation(opened.mediator);
    QStringList calls = opened.host.journal();
    QCOMPARE(calls.mid(0, 2), QStringList({"deviceByKey(1, true)", "deviceByKey(2, true)"}));
    QCOMPARE(calls.filter("[1]"), QStringList());
    QVERIFY(!calls.filter("[2]").isEmpty());
    QCOMPARE(calls.last(), Refresh);
    QCOMPARE(opened.host.handledErrors(), QStringList());
}

void TestCustomInfoDialog::failureEndsTheBodyAndRefreshes_data()
{
    addChanges();
}

// Each call of the host fails in turn.
void TestCustomInfoDialog::failureEndsTheBodyAndRefreshes()
{
    QFETCH(Operation, operation);
    QStringList calls;
    {
        Opened opened;
        operation(opened.mediator);
        calls = opened.host.journal();
    }
    QVERIFY(calls.size() > 4);
    for (int nth = 1; nth < calls.size(); ++nth) {
        Opened opened;
        LogCapture log;
        opened.host.failAtCall(nth);
        operation(opened.mediator);
        QString failed = calls.at(nth - 1);
        failed = failed.section('(', 0, 0).section('.', -1) + " failed";
        QCOMPARE(opened.host.journal(),
                 calls.mid(0, nth) + QStringList({"errorHandler(\"" + failed + "\")", Refresh}));
        QCOMPARE(log.texts(QtInfoMsg).size(), 2);
    }
}

void TestCustomInfoDialog::failedRefreshIsTold_data()
{
    addChanges();
}

void TestCustomInfoDialog::failedRefreshIsTold()
{
    QFETCH(Operation, operation);
    Opened opened;
    opened.host.failOn("refreshDocumentInfo");
    operation(opened.mediator);
    QCOMPARE(opened.host.handledErrors(), QStringList({"refreshDocumentInfo failed"}));
}

void TestCustomInfoDialog::failuresGiveNeutralValues()
{
    Opened opened;
    opened.host.failOn("documentName", 2);
    opened.host.failOn("customInfoList");
    QCOMPARE(opened.mediator.getDeviceInfo(), QString());
    QCOMPARE(opened.mediator.getCustomInfo(1), QString());
    QCOMPARE(opened.host.handledErrors(),
             QStringList({"documentName failed", "customInfoList failed"}));

    Opened temporary(true);
    temporary.host.failOn("temporaryDocumentKeys");
    QCOMPARE(temporary.mediator.getDeviceInfo(), QString());
    QCOMPARE(temporary.host.handledErrors(), QStringList({"temporaryDocumentKeys failed"}));
}

void TestCustomInfoDialog::editKeepsTheFlags_data()
{
    QTest::addColumn<QVariantMap>("change");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("name") << edit("Speed", "Pace", "1", "m/s")
                          << QStringList({"Pace=1 m/s D", "TestNo=10  F", "Distance=100 mm D F"});
    QTest::newRow("same name") << edit("TestNo", "TestNo", "11", "x")
                               << QStringList(
                                      {"Speed=1 m/s D", "TestNo=11 x F", "Distance=100 mm D F"});
    QTest::newRow("missing value and unit")
        << QVariantMap({{"oldname", "Distance"}, {"name", "Distance"}})
        << QStringList({"Speed=1 m/s D", "TestNo=10  F", "Distance=  D F"});
}

void TestCustomInfoDialog::editKeepsTheFlags()
{
    QFETCH(QVariantMap, change);
    QFETCH(QStringList, records);
    Opened opened;
    opened.mediator.editCustomData({1}, change);
    QCOMPARE(opened.records(1), records);
}

// The other document gets a rename of what it has not, and cleared flags.
void TestCustomInfoDialog::editOfARecordThatOnlyOneHas()
{
    Opened opened;
    opened.host.camera(2)->state().customInfo.removeFirst();
    opened.mediator.editCustomData({1, 2}, edit("Speed", "Pace", "7", ""));
    QCOMPARE(opened.host.journal().filter("[2]"),
             QStringList({"[2].customInfoList()", "[2].renameCustomInfo(\"Speed\", \"Pace\")",
                          "[2].setCustomInfo(\"Pace\", \"7\", \"\", false, false)"}));
    QCOMPARE(opened.records(1).first(), QStringLiteral("Pace=7  D"));
    QCOMPARE(opened.records(2), QStringList({"TestNo=20  F", "Distance=200 mm D F"}));
}

void TestCustomInfoDialog::enableTakesTheOtherFlagAsAnyText_data()
{
    QTest::addColumn<QString>("flag");
    QTest::addColumn<bool>("counts");
    QTest::newRow("on") << "on" << true;
    QTest::newRow("off") << "off" << true;
    QTest::newRow("no") << "no" << true;
    QTest::newRow("1") << "1" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("0") << "0" << false;
    QTest::newRow("false") << "false" << false;
}

// Elsewhere "on" alone counts.
void TestCustomInfoDialog::enableTakesTheOtherFlagAsAnyText()
{
    QFETCH(QString, flag);
    QFETCH(bool, counts);
    const QString other = counts ? "true" : "false";
    for (bool selected : {true, false}) {
        Opened opened;
        opened.host.camera(1)->state().customInfo = {stored("a", "1", "mm", flag, flag)};
        const QVariantList customs = {custom("a", "9", "x", selected)};
        opened.mediator.enableCustomData({1}, customs);
        const QString wanted = selected ? "true" : "false";
        QVERIFY(opened.host.journal().contains("[1].setCustomInfo(\"a\", \"1\", \"mm\", " + wanted +
                                               ", " + other + ")"));
        opened.host.camera(1)->state().customInfo = {stored("a", "1", "mm", flag, flag)};
        opened.mediator.setCallbackType(5);
        opened.mediator.enableCustomData({1}, customs);
        QVERIFY(opened.host.journal().contains("[1].setCustomInfo(\"a\", \"1\", \"mm\", " + other +
                                               ", " + wanted + ")"));
    }
}

// What an element before it set does not count.
void TestCustomInfoDialog::enableReadsEachListOnce()
{
    Opened opened;
    opened.mediator.enableCustomData(
        {1}, {custom("Speed", "", "", false), custom("Speed", "", "", true)});
    QCOMPARE(opened.host.journal(),
             QStringList({"deviceByKey(1, true)", "[1].customInfoList()",
                          "[1].setCustomInfo(\"Speed\", \"1\", \"m/s\", false, false)",
                          "[1].setCustomInfo(\"Speed\", \"1\", \"m/s\", true, false)", Refresh}));
}

void TestCustomInfoDialog::enableTakesTheFirstOfTheName()
{
    Opened opened;
    opened.host.camera(1)->state().customInfo = {stored("a", "1", "mm", "", "on"),
                                                 stored("A", "2", "", "", ""),
                                                 stored("a", "3", "m", "on", "")};
    opened.mediator.enableCustomData({1}, {custom("a", "", "", true)});
    QCOMPARE(opened.host.journal().filter("setCustomInfo"),
             QStringList({"[1].setCustomInfo(\"a\", \"1\", \"mm\", true, true)"}));
}

void TestCustomInfoDialog::enableOfANameThatIsNotThere()
{
    Opened opened;
    opened.mediator.enableCustomData({1}, {custom("x", "1", "mm", true), QVariant()});
    QCOMPARE(opened.host.journal().filter("setCustomInfo"),
             QStringList({"[1].setCustomInfo(\"\", \"\", \"\", true, false)",
                          "[1].setCustomInfo(\"\", \"\", \"\", false, false)"}));
}

void TestCustomInfoDialog::addStoresCommentsAsARecord()
{
    Opened opened;
    opened.mediator.addCustomData({1}, custom("Comments", "new", ""));
    QCOMPARE(opened.records(1).last(), QStringLiteral("Comments=new  D F"));
    QCOMPARE(opened.comment(1), QStringLiteral("Comment 1"));
}

void TestCustomInfoDialog::restoreTakesCommentsAsTheComment()
{
    Opened opened;
    opened.mediator.restoreCustomData(
        {1}, {custom("a", "1", ""), custom("Comments", "new", ""), custom("comments", "2", "")});
    QCOMPARE(opened.host.journal(),
             QStringList({"deviceByKey(1, true)", "[1].clearCustomInfo()",
                          "[1].addCustomInfo(\"a\", \"1\", \"\", false, true)",
                          "[1].setDocumentComment(\"new\")",
                          "[1].addCustomInfo(\"comments\", \"2\", \"\", false, true)", Refresh}));
    QCOMPARE(opened.records(1), QStringList({"a=1  F", "comments=2  F"}));
    QCOMPARE(opened.comment(1), QStringLiteral("new"));
}

void TestCustomInfoDialog::selectionFollowsThePage_data()
{
    QTest::addColumn<QStringList>("selections");
    QTest::addColumn<int>("current");
    QTest::newRow("nothing") << QStringList() << 0;
    QTest::newRow("one") << QStringList({"[2]"}) << 2;
    QTest::newRow("none again") << QStringList({"[2]", "[]"}) << 0;
    QTest::newRow("last added") << QStringList({"[1]", "[1,2]"}) << 2;
    QTest::newRow("last of several") << QStringList({"[1]", "[3,1,2]"}) << 2;
    QTest::newRow("next one") << QStringList({"[2]", "[2,1,3]", "[2]", "[1,2,3]", "[1,2]", "[2]",
                                              "[1,2,3]", "[1,2]"})
                              << 1;
    QTest::newRow("stays") << QStringList({"[1]", "[1,2]", "[2,3]"}) << 2;
    QTest::newRow("another current one goes") << QStringList({"[1,3]", "[1,2,3]", "[1,3]"}) << 3;
    QTest::newRow("wraps") << QStringList({"[1]", "[1,2]", "[1,2,3]", "[1,2]"}) << 1;
    QTest::newRow("none of the old") << QStringList({"[1]", "[1,2]", "[4,3]"}) << 4;
}

void TestCustomInfoDialog::selectionFollowsThePage()
{
    QFETCH(QStringList, selections);
    QFETCH(int, current);
    Shown shown;
    LogCapture log;
    for (const QString &ids : selections)
        shown.call("setSelectedDeviceItems(" + ids + ")");
    QCOMPARE(shown.call("getCurrentDeviceRecord()"), QString::number(current));
    QCOMPARE(shown.host.journal(), QStringList());
    QCOMPARE(log.texts(), QStringList());
}

void TestCustomInfoDialog::saveAsksForTheFile()
{
    Shown shown;
    shown.host.settings().setValue("xml/dir", "/data/before");
    choose(path("items.xml"));
    LogCapture log;
    shown.call("save([{name: 'a\"b', value: '1', unit: 'mm', selected: true}])");
    QCOMPARE(m_questions.size(), 1);
    const FileChoice::Question question = m_questions.first();
    QCOMPARE(question.kind, FileChoice::Kind::SaveFile);
    QCOMPARE(question.parent, static_cast<QWidget *>(shown.dialog));
    QCOMPARE(question.caption, QString());
    QCOMPARE(question.start, QStringLiteral("/data/before"));
    QCOMPARE(question.filter, QStringLiteral("xml (*.xml)"));
    QCOMPARE(question.options, QFileDialog::Options(QFileDialog::DontConfirmOverwrite));
    QCOMPARE(
        shown.host.journal(),
        QStringList({"getPref(\"xml/dir\", invalid)",
                     "setPref(\"xml/dir\", \"" + m_folder->path() + "\")", "hostVersionText()"}));
    QCOMPARE(log.texts(),
             QStringList({enter(Class + "save", "[customs:[{\"name\":\"a\\\"b\",\"selected\":true,"
                                                "\"unit\":\"mm\",\"value\":\"1\"}]]"),
                          leave(Class + "save")}));
    QCOMPARE(shown.records(1), Cameras().records(1));
}

void TestCustomInfoDialog::saveReplacesTheFile()
{
    Opened opened;
    choose(write("items.xml", QByteArray(5000, 'x')));
    opened.mediator.save({custom("a", "1", "mm", true), QVariant()});
    QCOMPARE(read("items.xml"),
             QByteArray("<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?>\n"
                        "<custom>\n"
                        "  <version>1.2.3</version>\n"
                        "  <customItems>\n"
                        "    <customItem>\n"
                        "      <name>a</name>\n"
                        "      <value>1</value>\n"
                        "      <unit>mm</unit>\n"
                        "      <display>true</display>\n"
                        "      <usefilename>true</usefilename>\n"
                        "    </customItem>\n"
                        "    <customItem>\n"
                        "      <name></name>\n"
                        "      <value></value>\n"
                        "      <unit></unit>\n"
                        "      <display></display>\n"
                        "      <usefilename>true</usefilename>\n"
                        "    </customItem>\n"
                        "  </customItems>\n"
                        "</custom>\n"));
    QCOMPARE(opened.host.handledErrors(), QStringList());
}

void TestCustomInfoDialog::saveWithoutAFileChangesNothing()
{
    Opened opened;
    opened.mediator.save({custom("a", "1", "mm", true)});
    QCOMPARE(m_questions.size(), 1);
    QCOMPARE(opened.host.journal(), QStringList({"getPref(\"xml/dir\", invalid)"}));
}

void TestCustomInfoDialog::saveIsSilentWhereTheFileCannotBeOpened()
{
    Opened opened;
    LogCapture log;
    choose(path("none/items.xml"));
    opened.mediator.save({custom("a", "1", "mm", true)});
    QCOMPARE(opened.host.handledErrors(), QStringList());
    QCOMPARE(opened.host.messages().size(), 0);
    QCOMPARE(log.texts().size(), 2);
    QCOMPARE(opened.host.settings().value("xml/dir", QVariant()).toString(), path("none"));
    QVERIFY(!QFile::exists(path("none")));
}

// As on a full disk.
void TestCustomInfoDialog::failedSaveLeavesTheOldFile()
{
    choose(write("items.xml", "old"));
    const QByteArray result = ChildRun::run([] {
        Opened opened;
        LogCapture log;
        ChildRun::limitFileSize(1000);
        opened.mediator.save({custom("a", QString(5000, 'x'), "")});
        return opened.host.handledErrors().join("|").toUtf8();
    });
    QCOMPARE(result, QByteArray("File too large"));
    QCOMPARE(read("items.xml"), QByteArray("old"));
}

void TestCustomInfoDialog::loadAsksForTheFile()
{
    Shown shown;
    shown.host.settings().setValue("xml/dir", "/data/before");
    choose(write("items.XML", customFile("<customItem><name>a</name><value>1</value>"
                                         "<unit>mm</unit><display>true</display></customItem>"
                                         "<customItem><name>b</name></customItem>"
                                         "<customItem><value>lost</value></customItem>")));
    LogCapture log;
    shown.call("load(['3', 1])");
    QCOMPARE(m_questions.size(), 1);
    const FileChoice::Question question = m_questions.first();
    QCOMPARE(question.kind, FileChoice::Kind::OpenFile);
    QCOMPARE(question.parent, static_cast<QWidget *>(shown.dialog));
    QCOMPARE(question.caption, QString());
    QCOMPARE(question.start, QStringLiteral("/data/before"));
    QCOMPARE(question.filter, QStringLiteral("xml (*.xml *.XML)"));
    QCOMPARE(question.options, QFileDialog::Options());
    QCOMPARE(
        shown.host.journal(),
        QStringList({"getPref(\"xml/dir\", invalid)",
                     "setPref(\"xml/dir\", \"" + m_folder->path() + "\")", "deviceByKey(3, true)",
                     "[3].clearCustomInfo()", "[3].addCustomInfo(\"a\", \"1\", \"mm\", true, true)",
                     "[3].addCustomInfo(\"b\", \"\", \"\", false, true)", "deviceByKey(1, true)",
                     "[1].clearCustomInfo()", "[1].addCustomInfo(\"a\", \"1\", \"mm\", true, true)",
                     "[1].addCustomInfo(\"b\", \"\", \"\", false, true)", Refresh, Refresh}));
    QCOMPARE(log.texts(), QStringList({enter(Class + "load"), "\"[root.nodeName():custom] \"",
                                       enter(Class + "restoreCustomData"),
                                       leave(Class + "restoreCustomData"), leave(Class + "load")}));
}

void TestCustomInfoDialog::loadWithoutAFileRefreshes()
{
    Opened opened;
    opened.mediator.load({1});
    QCOMPARE(opened.host.journal(), QStringList({"getPref(\"xml/dir\", invalid)", Refresh}));
}

void TestCustomInfoDialog::loadTakesCustomFiles()
{
    Opened opened;
    LogCapture log;
    choose(write("items.xml", "\xEF\xBB\xBF<settings><version>9</version><customItems>"
                              "<customItem><NAME>a</NAME><display>TRUE</display></customItem>"
                              "<customItem><name>Sf_TestCode</name><value>7</value>"
                              "<display>true</display><usefilename>false</usefilename>"
                              "</customItem></customItems></settings>"));
    opened.mediator.load({1});
    QCOMPARE(opened.records(1), QStringList({"a=  F", "TestNo=7  D F"}));
}

void TestCustomInfoDialog::loadTakesJobFiles()
{
    Opened opened;
    LogCapture log;
    choose(write("job.xml", "<JOB><Sf_TestCode>7</Sf_TestCode><cm_comment>small</cm_comment>"
                            "<Empty/><Speed unit=\"m/s\" display=\"false\">3</Speed>"
                            "<Cm_Comment>the comment</Cm_Comment></JOB>"));
    opened.mediator.load({1});
    QCOMPARE(opened.records(1),
             QStringList({"TestNo=7  D F", "cm_comment=small  D F", "Speed=3 m/s F"}));
    QCOMPARE(opened.comment(1), QStringLiteral("the comment"));
    QCOMPARE(opened.comment(2), QStringLiteral("Comment 2"));
}

void TestCustomInfoDialog::loadReplacesTheRecords()
{
    Opened opened;
    LogCapture log;
    choose(write("items.xml", customFile("<customItem><name>Speed</name></customItem>")));
    opened.mediator.load({1, 2});
    QCOMPARE(opened.records(1), QStringList({"Speed=  F"}));
    QCOMPARE(opened.records(2), QStringList({"Speed=  F"}));
    QCOMPARE(opened.records(3).size(), 3);
}

void TestCustomInfoDialog::unreadableFilesLeaveTheDocuments_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray item = "<customItem><name>a</name></customItem>";
    QTest::newRow("not there") << QByteArray();
    QTest::newRow("a folder") << QByteArray("folder");
    QTest::newRow("a pipe") << QByteArray("pipe");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("binary") << QByteArray("\0\1\2\xff", 4);
    QTest::newRow("no XML") << QByteArray("Speed = 3");
    QTest::newRow("empty list") << customFile("");
    QTest::newRow("no item with a name") << customFile("<customItem><value>1</value></customItem>");
    QTest::newRow("job of empty fields") << job("<Sf_TestCode/><a>  </a>");
    QTest::newRow("too deep") << QByteArray("<a>").repeated(100000);
    QTest::newRow("too large") << customFile(item) + QByteArray(XmlTree::MaxSize, ' ');
    QTest::newRow("definitions of its own")
        << "<!DOCTYPE custom [<!ENTITY e \"x\">]>" + customFile(item);
}

void TestCustomInfoDialog::unreadableFilesLeaveTheDocuments()
{
    QFETCH(QByteArray, content);
    Opened opened;
    choose(path("items.xml"));
    if (content == "folder")
        QVERIFY(QDir(m_folder->path()).mkdir("items.xml"));
    else if (content == "pipe")
        QCOMPARE(mkfifo(qPrintable(path("items.xml")), 0600), 0);
    else if (!content.isNull())
        write("items.xml", content);
    LogCapture log;
    opened.mediator.load({1, 2, 3});
    QCOMPARE(opened.host.journal(),
             QStringList({"getPref(\"xml/dir\", invalid)",
                          "setPref(\"xml/dir\", \"" + m_folder->path() + "\")",
                          "errorHandler(\"File read failed.\")", Refresh}));
    QVERIFY(log.texts(QtCriticalMsg).join("|").contains(path("items.xml")));
    QCOMPARE(opened.records(1), Cameras().records(1));
}

void TestCustomInfoDialog::loadThatCannotRestoreIsToldOnce()
{
    Opened opened;
    LogCapture log;
    choose(write("items.xml", job("<a>1</a>")));
    opened.host.failOn("addCustomInfo");
    opened.mediator.load({1});
    QCOMPARE(opened.host.journal().mid(2),
             QStringList({"deviceByKey(1, true)", "[1].clearCustomInfo()",
                          "[1].addCustomInfo(\"a\", \"1\", \"\", true, true)",
                          "errorHandler(\"addCustomInfo failed\")", Refresh, Refresh}));
}

void TestCustomInfoDialog::savedFlagComesBackAsTheDisplays_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("display") << 17
                             << QStringList(
                                    {"Speed=1 m/s D F", "TestNo=10  F", "Distance=100 mm D F"});
    QTest::newRow("file names") << 5
                                << QStringList(
                                       {"Speed=1 m/s F", "TestNo=10  D F", "Distance=100 mm D F"});
}

// A file keeps the flag that the page showed. Read back it is the display's, whichever it was, and
// all records take part in file names. This is meant to be so.
void TestCustomInfoDialog::savedFlagComesBackAsTheDisplays()
{
    QFETCH(int, type);
    QFETCH(QStringList, records);
    Shown shown;
    shown.dialog->setCallbackType(type);
    LogCapture log;
    choose(path("items.xml"));
    shown.call("save(JSON.parse(CustomInfoDialog.getCustomInfo(1)))");
    shown.call("load([2])");
    QCOMPARE(shown.records(2), records);
}

void TestCustomInfoDialog::textsPassUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("markup") << "<b onclick=\"x()\">'&amp;'</b>]]>";
    QTest::newRow("separator") << "a{Separator}b;c,d|e:f";
    QTest::newRow("lines") << "one\n\ntwo\tthree\\n";
    QTest::newRow("right to left") << QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u202e1");
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\U0001F3A5 \U00010348");
    QTest::newRow("numbered") << "%1 100%";
}

// From the page to the document, to a file, to the page and to a document.
void TestCustomInfoDialog::textsPassUnchanged()
{
    QFETCH(QString, text);
    Shown shown;
    LogCapture log;
    const QString script = scriptText(text);
    shown.call("restoreCustomData([1], [{name: " + script + ", value: " + script +
               ", unit: " + script + ", selected: true}])");
    QCOMPARE(shown.records(1), QStringList(text + "=" + text + " " + text + " D F"));
    choose(path("items.xml"));
    shown.call("save(JSON.parse(CustomInfoDialog.getCustomInfo(1)))");
    shown.call("load([2])");
    QCOMPARE(shown.records(2), shown.records(1));
    const QString row = "JSON.parse(CustomInfoDialog.getCustomInfo(2))[0]";
    for (const char *key : {".name", ".value", ".unit"})
        QCOMPARE(shown.page->call(row + key + " === " + script), QStringLiteral("true"));
    shown.call("editCustomData([2], {oldname: " + script + ", name: 'a' + " + script +
               ", value: " + script + ", unit: ''})");
    QCOMPARE(shown.records(2), QStringList("a" + text + "=" + text + "  D F"));
}

void TestCustomInfoDialog::cancelBringsAllBack()
{
    Opened opened;
    const QStringList before = opened.records(1);
    QVariantList all;
    for (const char *name : {"Distance", "Speed", "TestNo"})
        all.append(custom(name, "", ""));
    opened.mediator.deleteCustomData({1}, all);
    QCOMPARE(opened.records(1), QStringList());
    opened.mediator.cancel();
    QCOMPARE(opened.records(1), before);
}

void TestCustomInfoDialog::cancelOrdersTheKeysAsTexts()
{
    StandInHost host;
    for (DOCKEY key : {DOCKEY(9), DOCKEY(10), DOCKEY(4000000000000000001)}) {
        host.setNextKey(key);
        host.select(host.addCamera()->key(), true);
    }
    JS_Mediator_CustomInfoDialog mediator(&host, nullptr, false);
    host.clearJournal();
    mediator.cancel();
    QCOMPARE(host.journal().filter("deviceByKey"),
             QStringList({"deviceByKey(10, true)", "deviceByKey(4000000000000000001, true)",
                          "deviceByKey(9, true)"}));
}

void TestCustomInfoDialog::cancelTwiceGivesTheSame()
{
    Opened opened;
    opened.mediator.addCustomData({1}, custom("a", "", ""));
    opened.host.clearJournal();
    opened.mediator.cancel();
    const QStringList calls = opened.host.journal();
    opened.host.clearJournal();
    opened.mediator.cancel();
    QCOMPARE(opened.host.journal(), calls);
    QCOMPARE(opened.records(1), Cameras().records(1));
}

void TestCustomInfoDialog::cancelLeavesADocumentThatCameLater()
{
    Opened opened;
    StandInCamera *camera = opened.host.addCamera();
    opened.host.select(camera->key(), true);
    opened.mediator.addCustomData({camera->key()}, custom("a", "1", ""));
    opened.mediator.cancel();
    QCOMPARE(textsOf(camera->state().customInfo), QStringList({"a=1  D F"}));
}

void TestCustomInfoDialog::commentSurvivesACancel()
{
    Opened opened;
    opened.mediator.restoreCustomData({1}, {custom("Comments", "loaded", "")});
    opened.mediator.cancel();
    QCOMPARE(opened.records(1), Cameras().records(1));
    QCOMPARE(opened.comment(1), QStringLiteral("loaded"));
}

void TestCustomInfoDialog::wholeStory_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("isAccepted");
    QTest::addColumn<bool>("isCancelled");
    QTest::newRow("accept") << "CustomInfoDialog.accept()" << true << false;
    QTest::newRow("cancel and reject")
        << "CustomInfoDialog.cancel(); CustomInfoDialog.reject()" << false << true;
    QTest::newRow("reject alone") << "CustomInfoDialog.reject()" << false << false;
    QTest::newRow("frame") << "" << false << true;
}

// From opening to closing: what the host is asked and told, and what stands in the log.
void TestCustomInfoDialog::wholeStory()
{
    QFETCH(QString, way);
    QFETCH(bool, isAccepted);
    QFETCH(bool, isCancelled);
    Cameras cameras;
    cameras.host.select(3, false);
    cameras.host.clearJournal();
    LogCapture log;
    {
        GUI_CustomInfoDialog dialog(&cameras.host, nullptr, false);
        PageProbe page(dialog.webView());
        QSignalSpy finished(&dialog, &QDialog::finished);
        QSignalSpy rejected(dialog.mediator(), &JS_Mediator_Dialog::rejected);
        dialog.show();
        QVERIFY(page.waitLoaded());
        page.call(Object + "editCustomData([1], {oldname: 'TestNo', name: 'TestNo', value: '99', "
                           "unit: ''})");
        log.clear();
        if (way.isEmpty())
            QVERIFY(dialog.close());
        else
            page.call(way);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(isAccepted ? QDialog::Accepted : QDialog::Rejected));
        QCOMPARE(finished.count(), 1);
        QCOMPARE(rejected.count(), isAccepted ? 0 : 1);
    }
    QStringList calls = {"mainWidget()",
                         "selectedDocKeys(true)",
                         "deviceByKey(1, true)",
                         "[1].customInfoList()",
                         "deviceByKey(2, true)",
                         "[2].customInfoList()",
                         "needsDialogEnterNotice()",
                         "translate(\"Custom info\")",
                         "attachMediator(GUI_WebView, JS_Mediator_CustomInfoDialog)",
                         "deterUpdateUI(true)",
                         "mainWidget()",
                         "deterUpdateUI(false)",
                         "updateUI(4294967295, true)",
                         "deviceByKey(1, true)",
                         "[1].customInfoList()",
                         "[1].renameCustomInfo(\"TestNo\", \"TestNo\")",
                         "[1].setCustomInfo(\"TestNo\", \"99\", \"\", false, true)",
                         Refresh};
    if (isCancelled)
        calls += QStringList(
            {"deviceByKey(1, true)", "[1].clearCustomInfo()",
             "[1].addCustomInfo(\"Speed\", \"1\", \"m/s\", true, false)",
             "[1].addCustomInfo(\"TestNo\", \"10\", \"\", false, true)",
             "[1].addCustomInfo(\"Distance\", \"100\", \"mm\", true, true)", "deviceByKey(2, true)",
             "[2].clearCustomInfo()", "[2].addCustomInfo(\"Speed\", \"2\", \"m/s\", true, false)",
             "[2].addCustomInfo(\"TestNo\", \"20\", \"\", false, true)",
             "[2].addCustomInfo(\"Distance\", \"200\", \"mm\", true, true)", Refresh});
    QCOMPARE(cameras.host.journal(), calls);
    QStringList trace;
    if (isCancelled)
        trace = QStringList({enter(Class + "cancel"), leave(Class + "cancel")});
    if (way.isEmpty())
        trace = QStringList({"[USER] \"[URL:GUI_CustomInfoDialog] [ID:close] [Control:Button] "
                             "[Operation:clicked] [Value:] \"",
                             enter("GUI_CustomInfoDialog::closeEvent")}) +
                trace + QStringList(leave("GUI_CustomInfoDialog::closeEvent"));
    QCOMPARE(log.texts(), trace);
    QCOMPARE(cameras.records(1).at(1),
             isCancelled ? QStringLiteral("TestNo=10  F") : QStringLiteral("TestNo=99  F"));
}

void TestCustomInfoDialog::frameClosesWhenTheCancelFails()
{
    Shown shown;
    LogCapture log;
    shown.host.failOn("clearCustomInfo", 2);
    QVERIFY(shown.dialog->close());
    QCOMPARE(shown.host.handledErrors(), QStringList({"clearCustomInfo failed"}));
    QVERIFY(!shown.dialog->isVisible());
    QCOMPARE(shown.dialog->result(), int(QDialog::Rejected));
}

void TestCustomInfoDialog::failureWhileConstructedReachesTheCaller()
{
    for (const char *operation : {"mainWidget", "selectedDocKeys", "deviceByKey", "customInfoList",
                                  "translate", "attachMediator"}) {
        Cameras cameras;
        cameras.host.failOn(QString::fromLatin1(operation));
        QVERIFY_EXCEPTION_THROWN(GUI_CustomInfoDialog dialog(&cameras.host, nullptr, false),
                                 StandInFault);
        QCOMPARE(cameras.host.deterrals(), 0);
    }
}

void TestCustomInfoDialog::escapeIsIgnored()
{
    Shown shown;
    QTest::keyClick(shown.dialog, Qt::Key_Escape);
    QTest::keyClick(shown.dialog->webView(), Qt::Key_Escape);
    QVERIFY(shown.dialog->isVisible());
}

void TestCustomInfoDialog::pageMayEndItByItself_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("accept") << "accept()" << false;
    QTest::newRow("rejected is no way out") << "rejected()" << true;
    QTest::newRow("cancel from its rejection")
        << "rejected.connect(function () { CustomInfoDialog.cancel(); CustomInfoDialog.reject(); "
           "}); CustomInfoDialog.reject()"
        << false;
    QTest::newRow("deleteLater") << "deleteLater()" << true;
    for (const char *slot : {"exec", "hide", "close", "done", "show"})
        QTest::addRow("%s is not there", slot) << QString::fromLatin1(slot) + "()" << true;
}

void TestCustomInfoDialog::pageMayEndItByItself()
{
    QFETCH(QString, script);
    QFETCH(bool, isOpen);
    Shown shown;
    const QSignalSpy finished(shown.dialog, &QDialog::finished);
    LogCapture log;
    shown.call(script);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(shown.dialog && shown.dialog->mediator());
    QCOMPARE(shown.dialog->isVisible(), isOpen);
    QCOMPARE(finished.count(), isOpen ? 0 : 1);
    QCOMPARE(shown.call("getCallbackType()"), QStringLiteral("17"));
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestCustomInfoDialog::dialogMayGoWhileItsHostIsAsked_data()
{
    QTest::addColumn<Operation>("operation");
    for (const auto &change : changes())
        QTest::newRow(change.first) << change.second;
    QTest::newRow("getDeviceInfo")
        << Operation([](JS_Mediator_CustomInfoDialog &mediator) { mediator.getDeviceInfo(); });
    QTest::newRow("getCustomInfo")
        << Operation([](JS_Mediator_CustomInfoDialog &mediator) { mediator.getCustomInfo(1); });
    QTest::newRow("save") << Operation(
        [](JS_Mediator_CustomInfoDialog &mediator) { mediator.save({}); });
    QTest::newRow("load") << Operation(
        [](JS_Mediator_CustomInfoDialog &mediator) { mediator.load({1}); });
}

void TestCustomInfoDialog::dialogMayGoWhileItsHostIsAsked()
{
    QFETCH(Operation, operation);
    Shown shown;
    LogCapture log;
    shown.page.reset();
    auto *mediator = static_cast<JS_Mediator_CustomInfoDialog *>(shown.dialog->mediator());
    connect(shown.host.events(), &StandInEvents::callJournalled, shown.dialog,
            [&] { delete shown.dialog; });
    operation(*mediator);
    QVERIFY(!shown.dialog);
    QCOMPARE(shown.host.handledErrors(), QStringList());
    QCOMPARE(m_questions.size(), 0); // nobody is asked for a dialog that has gone
}

void TestCustomInfoDialog::dialogMayGoWhileTheFileIsChosen_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<bool>("writes");
    QTest::newRow("save") << Operation([](JS_Mediator_CustomInfoDialog &mediator) {
        mediator.save({custom("a", "", "")});
    }) << true;
    QTest::newRow("load") << Operation([](JS_Mediator_CustomInfoDialog &mediator) {
        mediator.load({1});
    }) << false;
}

// The documents are left alone; a file that was chosen is written.
void TestCustomInfoDialog::dialogMayGoWhileTheFileIsChosen()
{
    QFETCH(Operation, operation);
    QFETCH(bool, writes);
    Shown shown;
    LogCapture log;
    shown.page.reset();
    const QByteArray before = job("<a>1</a>");
    const QString file = write("items.xml", before);
    FileChoice::setAnswer([&](const FileChoice::Question &) {
        delete shown.dialog;
        return QStringList(file);
    });
    operation(*static_cast<JS_Mediator_CustomInfoDialog *>(shown.dialog->mediator()));
    QVERIFY(!shown.dialog);
    QCOMPARE(shown.host.handledErrors(), QStringList());
    QCOMPARE(shown.records(1), Cameras().records(1));
    QCOMPARE(read("items.xml") != before, writes);
}

int main(int argc, char **argv)
{
    TestCustomInfoDialog test;
    return runTest(argc, argv, test);
}

#include "test_custom_info_dialog.moc"
