#include "EditInfoScene.h"
#include "foundation/InfoItems.h"
#include "tests/support/TestLog.h"

#include <algorithm>

Q_DECLARE_METATYPE(StandInHost::Mode)

// The items of the information display: the list that the page gets, and what it sends back.

class TestEditInfoItems : public TestBase
{
    Q_OBJECT

private slots:
    void listIsBuilt_data();
    void listIsBuilt();
    void itemIsEnabledByModeAndForm_data();
    void itemIsEnabledByModeAndForm();
    void linksAreTranslated();
    void itemBetweenLinesGivesThreeLines();
    void unknownItemIsDisabled();
    void labelsPassAsTheyAre();
    void withoutADocumentTheListIsEmpty();
    void documentOfAnotherKeyIsNone();
    void failedListHoldsWhatWasBuilt_data();
    void failedListHoldsWhatWasBuilt();
    void tickIsStored_data();
    void tickIsStored();
    void orderIsStored_data();
    void orderIsStored();
    void shortFormsMeanGroupZero();
    void changeBeforeTheListWasReadReadsItFirst_data();
    void changeBeforeTheListWasReadReadsItFirst();
    void failedReadingWipesNothing_data();
    void failedReadingWipesNothing();
    void groupThatIsNoneIsNotWritten_data();
    void groupThatIsNoneIsNotWritten();
    void itemOfAnotherModeKeepsTickAndPlace();
    void brokenEntryIsDropped();
    void everyItemPassesThroughThePage();
};

namespace {

const QString Mode = QStringLiteral("currentMode()");
const QString Present = QStringLiteral("documentKeyOf([1])");

// Has another document at the address of each one.
class RenumberingHost : public StandInHost
{
public:
    DOCKEY documentKeyOf(DOC_Interface *doc) override
    {
        return StandInHost::documentKeyOf(doc) + (isRenumbered ? 70 : 0);
    }

    bool isRenumbered = false;
};

QString line(const QString &id, const QString &label, const QString &between)
{
    return "<li><input type='checkbox' id='" + id + "' " + between + "><label for='" + id + "'>" +
           label + "</label></li>";
}

}

void TestEditInfoItems::listIsBuilt_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("line");
    QTest::newRow("editor form") << false << "info/display"
                                 << "<hr>";
    QTest::newRow("save form") << true << "saveinfo/display3"
                               << "<hr class='unsortable'>";
}

void TestEditInfoItems::listIsBuilt()
{
    QFETCH(bool, saveForm);
    QFETCH(QString, key);
    EditInfoScene scene(saveForm);
    scene.host.settings().setValue(key, "Resolution:true,<hr>,Trigger:false,broken,<hr>");
    scene.host.state().infoItemLabels.insert("Resolution", "Tag");
    scene.host.state().infoItemLabels.insert("Trigger", "Uhr");
    const QString html = scene.dialog->getInfoSettingsHtml(3);
    QFETCH(QString, line);
    QCOMPARE(html, ::line("Resolution", "Tag", "checked='checked'") + line +
                       ::line("Trigger", "Uhr", "") + line);
    QCOMPARE(scene.journal(),
             QStringList({EditInfoScene::asked(key), Mode, Present, "infoItemLabel(\"Resolution\")",
                          "infoItemLabel(\"Trigger\")"}));
}

void TestEditInfoItems::itemIsEnabledByModeAndForm_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<StandInHost::Mode>("mode");
    QTest::addColumn<int>("target");
    using Mode = StandInHost::Mode;
    QTest::newRow("live") << false << Mode::Live << int(InfoItem::Live);
    QTest::newRow("memory") << false << Mode::Memory << int(InfoItem::Memory);
    QTest::newRow("file") << false << Mode::File << int(InfoItem::File);
    QTest::newRow("save form, live") << true << Mode::Live << int(InfoItem::SaveForm);
    QTest::newRow("save form, file") << true << Mode::File << int(InfoItem::SaveForm);
}

// Every item of the table, ticked.
void TestEditInfoItems::itemIsEnabledByModeAndForm()
{
    QFETCH(bool, saveForm);
    QFETCH(StandInHost::Mode, mode);
    QFETCH(int, target);
    EditInfoScene scene(saveForm);
    scene.host.setMode(mode);
    QStringList entries;
    for (const InfoItem &item : infoItems) {
        if (!item.key.isEmpty() && item.key != "<hr>")
            entries.append(item.key + ":true");
    }
    scene.host.settings().setValue(saveForm ? "saveinfo/display0" : "info/display",
                                   entries.join(','));
    const QString html = scene.dialog->getInfoSettingsHtml();
    for (const InfoItem &item : infoItems) {
        if (item.key.isEmpty() || item.key == "<hr>")
            continue;
        const QString enabled = "id='" + item.key + "' checked='checked'>";
        const QString disabled = "id='" + item.key + "' checked='checked' disabled='disabled'>";
        QVERIFY2(html.contains(item.usable[target] ? enabled : disabled), qPrintable(item.key));
    }
}

void TestEditInfoItems::linksAreTranslated()
{
    EditInfoScene scene(false);
    scene.host.settings().setValue("info/display", "Comment:false,Date:false,TimeCode:true");
    scene.host.state().translations.insert("edit...", "<i>\u00e4ndern</i>");
    const QString html = scene.dialog->getInfoSettingsHtml();
    QVERIFY(html.contains("</label><a href='#' name='editinfo_edit' id='edit_comment' "
                          "class='float-right localize'><i>\u00e4ndern</i></a></li>"));
    QVERIFY(html.contains("</label><a href='#' name='editinfo_edit' id='time_code' "
                          "class='custom_timecode float-right'><i>\u00e4ndern</i></a></li>"));
    QCOMPARE(scene.journal(), QStringList({EditInfoScene::asked("info/display"), Mode, Present,
                                           "infoItemLabel(\"Comment\")", "translate(\"edit...\")",
                                           "infoItemLabel(\"Date\")", "infoItemLabel(\"TimeCode\")",
                                           "translate(\"edit...\")"}));
}

void TestEditInfoItems::itemBetweenLinesGivesThreeLines()
{
    EditInfoScene scene(true);
    scene.host.settings().setValue("saveinfo/display0", "Date:true,<hr>,Time:false");
    const QStringList lines = scene.dialog->getInfoSettingsHtml()
                                  .replace("<li>", "\n<li>")
                                  .replace("<hr", "\n<hr")
                                  .split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(1), QStringLiteral("<hr class='unsortable'>"));
}

void TestEditInfoItems::unknownItemIsDisabled()
{
    for (bool saveForm : {false, true}) {
        EditInfoScene scene(saveForm);
        scene.host.settings().setValue(saveForm ? "saveinfo/display0" : "info/display",
                                       "NoSuchItem:true");
        QCOMPARE(scene.dialog->getInfoSettingsHtml(),
                 line("NoSuchItem", "NoSuchItem", "checked='checked' disabled='disabled'"));
    }
}

// What shows them takes care of their markup.
void TestEditInfoItems::labelsPassAsTheyAre()
{
    const QString label = "<img src=x onerror=\"fail()\">&'\u05e9\U0001F3A5";
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    scene.host.settings().setValue("info/display", "Resolution:false");
    scene.host.state().infoItemLabels.insert("Resolution", label);
    QCOMPARE(scene.dialog->getInfoSettingsHtml(), line("Resolution", label, ""));
    QCOMPARE(scene.call("getInfoSettingsHtml() === " + scriptText(line("Resolution", label, ""))),
             QStringLiteral("true"));
}

void TestEditInfoItems::withoutADocumentTheListIsEmpty()
{
    EditInfoScene scene;
    scene.host.answerNullOn("currentDocument", 1);
    scene.open(true);
    QCOMPARE(scene.dialog->getInfoSettingsHtml(2), QString());
    QCOMPARE(scene.journal(), QStringList({EditInfoScene::asked("saveinfo/display2"), Mode}));
    scene.dialog->changeDisp("Date", false, 2); // the setting has been read all the same
    QCOMPARE(scene.setting("saveinfo/display2"), QVariant("Date:false,<hr>,Item2:false"));
}

// A document that has gone, and one that came to where it was.
void TestEditInfoItems::documentOfAnotherKeyIsNone()
{
    EditInfoScene scene;
    scene.open(true, 1, scene.document(2));
    QVERIFY(!scene.dialog->getInfoSettingsHtml().isEmpty());
    scene.host.closeDocument(2);
    QCOMPARE(scene.dialog->getInfoSettingsHtml(), QString());
    QCOMPARE(scene.host.handledErrors(), QStringList());

    RenumberingHost host;
    host.addCamera();
    GUI_EditInfoDialog dialog(&host);
    QVERIFY(!dialog.getInfoSettingsHtml().isEmpty());
    host.isRenumbered = true;
    QCOMPARE(dialog.getInfoSettingsHtml(), QString());
    QCOMPARE(dialog.getThumbnail(40, 30), QString());
    QCOMPARE(dialog.getResolutionStr(), QString());
}

void TestEditInfoItems::failedListHoldsWhatWasBuilt_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("nth");
    QTest::addColumn<bool>("hasFirst");
    QTest::newRow("setting") << "getPref" << 1 << false;
    QTest::newRow("mode") << "currentMode" << 1 << false;
    QTest::newRow("document") << "documentKeyOf" << 1 << false;
    QTest::newRow("first label") << "infoItemLabel" << 1 << false;
    QTest::newRow("second label") << "infoItemLabel" << 2 << true;
    QTest::newRow("link of the second") << "translate" << 1 << true;
}

void TestEditInfoItems::failedListHoldsWhatWasBuilt()
{
    QFETCH(QString, operation);
    QFETCH(int, nth);
    QFETCH(bool, hasFirst);
    EditInfoScene scene(false);
    scene.host.settings().setValue("info/display", "Resolution:true,Comment:true");
    scene.host.state().infoItemLabels.insert("Resolution", "Tag");
    scene.host.failOn(operation, nth);
    QCOMPARE(scene.dialog->getInfoSettingsHtml(),
             hasFirst ? line("Resolution", "Tag", "checked='checked'") : QString());
    QCOMPARE(scene.host.handledErrors(), QStringList(operation + " failed"));
}

void TestEditInfoItems::tickIsStored_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QString>("key");
    QTest::newRow("editor form") << false << "info/display";
    QTest::newRow("save form") << true << "saveinfo/display4";
}

void TestEditInfoItems::tickIsStored()
{
    QFETCH(bool, saveForm);
    QFETCH(QString, key);
    const QStringList refresh = saveForm ? QStringList() : QStringList(EditInfoScene::refreshed());
    EditInfoScene scene(saveForm);
    scene.host.settings().setValue(key, "Date:true,<hr>,Time:false");
    QVERIFY(scene.show());
    scene.call("getInfoSettingsHtml(4)");
    scene.journal();
    scene.call("changeDisp('Time', true, 4)");
    QCOMPARE(scene.journal(),
             QStringList(EditInfoScene::written(key, "Date:true,<hr>,Time:true")) + refresh);
    scene.call("changeDisp('Date', false, 4)");
    QCOMPARE(scene.journal(),
             QStringList(EditInfoScene::written(key, "Date:false,<hr>,Time:true")) + refresh);
}

void TestEditInfoItems::orderIsStored_data()
{
    tickIsStored_data();
}

void TestEditInfoItems::orderIsStored()
{
    QFETCH(bool, saveForm);
    QFETCH(QString, key);
    const QStringList refresh = saveForm ? QStringList() : QStringList(EditInfoScene::refreshed());
    EditInfoScene scene(saveForm);
    scene.host.settings().setValue(key, "Date:true,<hr>,Time:false");
    QVERIFY(scene.show());
    scene.call("getInfoSettingsHtml(4)");
    scene.journal();
    scene.call("changeOrder('Time,HR,Date', 4)");
    QCOMPARE(scene.journal(),
             QStringList(EditInfoScene::written(key, "Time:false,<hr>,Date:true")) + refresh);
    scene.call("changeOrder('New,,Date,HR,Time,', 4)"); // nobody has ticked the first
    QCOMPARE(scene.journal(),
             QStringList(EditInfoScene::written(key, "New:,Date:true,<hr>,Time:false")) + refresh);
    QVERIFY(scene.dialog->getInfoSettingsHtml(4).startsWith(
        "<li><input type='checkbox' id='New'  disabled='disabled'>"));
}

void TestEditInfoItems::shortFormsMeanGroupZero()
{
    EditInfoScene scene(true);
    QVERIFY(scene.show());
    scene.call("getInfoSettingsHtml()");
    QCOMPARE(scene.journal().first(), EditInfoScene::asked("saveinfo/display0"));
    scene.call("changeDisp('Date', false)");
    QCOMPARE(scene.journal(), QStringList(EditInfoScene::written("saveinfo/display0",
                                                                 "Date:false,<hr>,Item0:false")));
    scene.call("changeOrder('Item0,Date')");
    QCOMPARE(scene.journal(),
             QStringList(EditInfoScene::written("saveinfo/display0", "Item0:false,Date:false")));
}

void TestEditInfoItems::changeBeforeTheListWasReadReadsItFirst_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("text");
    QTest::newRow("tick") << "changeDisp('Item2', true, 2)"
                          << "Date:true,<hr>,Item2:true";
    QTest::newRow("order") << "changeOrder('Item2,HR,Date', 2)"
                           << "Item2:false,<hr>,Date:true";
}

void TestEditInfoItems::changeBeforeTheListWasReadReadsItFirst()
{
    QFETCH(QString, call);
    QFETCH(QString, text);
    EditInfoScene scene(true);
    QVERIFY(scene.show());
    scene.call(call);
    QCOMPARE(scene.journal(), QStringList({EditInfoScene::asked("saveinfo/display2"),
                                           EditInfoScene::written("saveinfo/display2", text)}));
    scene.call(call);
    QCOMPARE(scene.journal(), QStringList(EditInfoScene::written("saveinfo/display2", text)));
}

void TestEditInfoItems::failedReadingWipesNothing_data()
{
    changeBeforeTheListWasReadReadsItFirst_data();
}

void TestEditInfoItems::failedReadingWipesNothing()
{
    QFETCH(QString, call);
    EditInfoScene scene(true);
    QVERIFY(scene.show());
    scene.host.failOn("getPref", 1);
    scene.call(call);
    QCOMPARE(scene.host.handledErrors(), QStringList("getPref failed"));
    QCOMPARE(scene.setting("saveinfo/display2"), QVariant("Date:true,<hr>,Item2:false"));
}

void TestEditInfoItems::groupThatIsNoneIsNotWritten_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<int>("group");
    for (bool saveForm : {false, true}) {
        for (int group : {-1, 7})
            QTest::addRow("%s %d", saveForm ? "save form" : "editor form", group)
                << saveForm << group;
    }
}

void TestEditInfoItems::groupThatIsNoneIsNotWritten()
{
    QFETCH(bool, saveForm);
    QFETCH(int, group);
    EditInfoScene scene(saveForm);
    QCOMPARE(scene.dialog->getInfoSettingsHtml(group), QString());
    scene.dialog->changeDisp("Date", false, group);
    scene.dialog->changeOrder("Date", group);
    QCOMPARE(scene.host.commands(), QStringList());
}

// An item that the mode cannot show is still there in the mode that can.
void TestEditInfoItems::itemOfAnotherModeKeepsTickAndPlace()
{
    const auto differing = std::find_if(infoItems.cbegin(), infoItems.cend(), [](const auto &item) {
        return !item.usable[InfoItem::Live] && item.usable[InfoItem::File];
    });
    QVERIFY(differing != infoItems.cend());
    EditInfoScene scene(false);
    scene.host.settings().setValue("info/display", "Date:true," + differing->key + ":true");
    QVERIFY(scene.dialog->getInfoSettingsHtml().contains(
        "id='" + differing->key + "' checked='checked' disabled='disabled'>"));
    scene.dialog->changeDisp("Date", false);
    scene.dialog->changeOrder(differing->key + ",Date");
    QCOMPARE(scene.setting("info/display"), QVariant(differing->key + ":true,Date:false"));
}

void TestEditInfoItems::brokenEntryIsDropped()
{
    EditInfoScene scene(true);
    scene.host.settings().setValue("saveinfo/display0", "Date:true,broken,Time:false");
    QVERIFY(!scene.dialog->getInfoSettingsHtml().contains("broken"));
    scene.dialog->changeDisp("Time", true);
    QCOMPARE(scene.setting("saveinfo/display0"), QVariant("Date:true,Time:true"));
}

// Read by the page, sent back by it in the opposite order.
void TestEditInfoItems::everyItemPassesThroughThePage()
{
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    const QString shipped = scene.host.infoItemDefaultDisplay();
    scene.host.settings().setValue("info/display", shipped);
    scene.page->evaluate(
        "var list = document.implementation.createHTMLDocument('').body;"
        "list.innerHTML = editInfo.getInfoSettingsHtml();"
        "var ids = Array.from(list.children).map(function (child) {"
        "  return child.tagName === 'HR' ? 'HR' : child.querySelector('input').id; });"
        "editInfo.changeOrder(ids.reverse().join(','));");
    QStringList reversed = shipped.split(',');
    std::reverse(reversed.begin(), reversed.end());
    QCOMPARE(scene.setting("info/display"), QVariant(reversed.join(',')));
}

int main(int argc, char **argv)
{
    TestEditInfoItems test;
    return runTest(argc, argv, test);
}

#include "test_edit_info_items.moc"
