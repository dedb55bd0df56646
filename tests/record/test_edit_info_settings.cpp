#include "EditInfoScene.h"
#include "tests/support/TestLog.h"

#include <functional>

// The settings of the information display, as the page of their dialog reads and writes them.

using Getter = std::function<QVariant(GUI_EditInfoDialog &, int)>;
using Setter = std::function<void(GUI_EditInfoDialog &, const QVariant &, bool)>;
Q_DECLARE_METATYPE(Getter)
Q_DECLARE_METATYPE(Setter)

class TestEditInfoSettings : public TestBase
{
    Q_OBJECT

private slots:
    void openingReadsEverything_data();
    void openingReadsEverything();
    void failedReadingIsNotWrittenBack();
    void propertyIsReadAndWritten_data();
    void propertyIsReadAndWritten();
    void propertyHasShortForms_data();
    void propertyHasShortForms();
    void propertyIsReadBackInANewDialog_data();
    void propertyIsReadBackInANewDialog();
    void propertyOfTheOtherFormIsNone_data();
    void propertyOfTheOtherFormIsNone();
    void readingSelectsTheGroup();
    void openingLeavesTheLastGroup();
    void groupThatIsNoneHasNoSettings();
    void fontOfASavedGroupGoesToTheOutput_data();
    void fontOfASavedGroupGoesToTheOutput();
    void settingWithoutAGroup_data();
    void settingWithoutAGroup();
    void collectiveSettingOfTheEditorDoesNothing();
    void listsAreAsTold();
    void backupIsWrittenIntoTheCurrentGroup();
    void backupOfTheEditorHoldsTheIconSize();
    void withoutABackupNothingsAreWritten();
    void whatTheBackupCouldNotReadStays();
    void failedRestoringGoesOn();
    void confirmedTypefaceOfTheEditorStays();
    void confirmedTypefaceStaysAlone_data();
    void confirmedTypefaceStaysAlone();
    void confirmedTypefaceGoesToTheOthers_data();
    void confirmedTypefaceGoesToTheOthers();
    void sizeIsThatOfTheDocument();
    void sizeNeedsTheDocument();
    void failedConfirmationGoesNoFurther_data();
    void failedConfirmationGoesNoFurther();
    void cancelledTypefaceOfTheEditor();
    void cancelledTypefacesOfTheSaveForm();
    void iconSizeIsNotWrittenBack();
    void resetOfTheEditor();
    void resetOfTheSaveForm();
    void failuresGiveNeutralValues();
};

namespace {

// A getter and a setter of one property, in one form.
template <class Got, class Set>
void row(const char *name, bool saveForm, const QVariant &value, const QVariant &stored,
         Got (GUI_EditInfoDialog::*getter)(int), void (GUI_EditInfoDialog::*setter)(Set, bool))
{
    QTest::addRow("%s, %s form", name, saveForm ? "save" : "editor")
        << QString::fromLatin1(name) << saveForm << value << stored
        << Getter([getter](GUI_EditInfoDialog &dialog, int group) {
               return QVariant::fromValue((dialog.*getter)(group));
           })
        << Setter([setter](GUI_EditInfoDialog &dialog, const QVariant &to, bool update) {
               (dialog.*setter)(to.value<std::decay_t<Set>>(), update);
           });
}

void addColumns()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<Getter>("get");
    QTest::addColumn<Setter>("set");
}

using D = GUI_EditInfoDialog;

void addShared(bool saveForm)
{
    row("FontName", saveForm, "Serif", "Serif", &D::getFontName, &D::setFontName);
    row("FontSize", saveForm, "44", "44", &D::getFontSize, &D::setFontSize);
    row("Bold", saveForm, true, true, &D::getBold, &D::setBold);
    row("Italic", saveForm, true, true, &D::getItalic, &D::setItalic);
    row("ForegroundColor", saveForm, "#123456", "#123456", &D::getForegroundColor,
        &D::setForegroundColor);
    row("Alignment", saveForm, 7, "7", &D::getAlignment, &D::setAlignment);
    row("Width", saveForm, -300, "-300", &D::getWidth, &D::setWidth);
}

// What the save form alone has.
void addSaved(bool saveForm)
{
    row("FixedFontSizeRatio", saveForm, true, true, &D::isFixedFontSizeRatio,
        &D::setFixedFontSizeRatio);
    row("FixedFontSizeRatioBaseResolution", saveForm, QSize(640, 480), QSize(640, 480),
        &D::getFixedFontSizeRatioBaseResolution, &D::setFixedFontSizeRatioBaseResolution);
    row("UseBackgroundColor", saveForm, true, true, &D::getUseBackgroundColor,
        &D::setUseBackgroundColor);
    row("BackgroundColor", saveForm, "#654321", "#654321", &D::getBackgroundColor,
        &D::setBackgroundColor);
    row("ToColumn", saveForm, true, true, &D::getToColumn, &D::setToColumn);
    row("ColumnNum", saveForm, "9", "9", &D::getColumnNum, &D::setColumnNum);
    row("ColumnSpacing", saveForm, 5, 5, &D::getColumnSpacing, &D::setColumnSpacing);
}

// What the editor form alone has.
void addShown(bool saveForm)
{
    row("IconSize", saveForm, 48, "48", &D::getIconSize, &D::setIconSize);
}

QString keyOf(const QString &name, bool saveForm, int group)
{
    return saveForm ? "saveinfo/" + name + QString::number(group) : "info/" + name;
}

QStringList initialReads(bool saveForm)
{
    // The order in which a dialog keeps what there is.
    const QStringList saved = {"display",
                               "FontName",
                               "FontSize",
                               "Bold",
                               "Italic",
                               "FixedFontSizeRatio",
                               "FixedFontSizeRatioBaseResolution",
                               "Alignment",
                               "Width",
                               "ToColumn",
                               "ColumnNum",
                               "ForegroundColor",
                               "UseBackgroundColor",
                               "BackgroundColor",
                               "ColumnSpacing"};
    const QStringList shown = {"display", "FontName",  "FontSize", "Bold",
                               "Italic",  "Alignment", "Width",    "ForegroundColor"};
    QStringList lines;
    if (saveForm)
        lines.append(EditInfoScene::asked("saveinfo/collectiveSetting"));
    for (int group = 0; group < 7; ++group) {
        for (const QString &name : saveForm ? saved : shown)
            lines.append(EditInfoScene::asked(keyOf(name, saveForm, group)));
    }
    if (saveForm)
        lines.append(EditInfoScene::asked("saveinfo/WithinImage"));
    lines.append(EditInfoScene::asked("info/BlankLine"));
    return lines;
}

// The properties that are set together, in their order.
const QStringList Together = {"FontName",
                              "FontSize",
                              "Bold",
                              "Italic",
                              "ForegroundColor",
                              "FixedFontSizeRatio",
                              "FixedFontSizeRatioBaseResolution",
                              "UseBackgroundColor",
                              "BackgroundColor",
                              "Alignment",
                              "Width",
                              "ToColumn",
                              "ColumnNum",
                              "ColumnSpacing"};

// What the scene has stored for a property of a group of the save form.
QVariant begunWith(const QString &name, int group)
{
    for (const StoredSetting &each : EditInfoScene::typeface(true, group)) {
        if (each.key == "saveinfo/" + name + QString::number(group))
            return each.value;
    }
    return QVariant();
}

QStringList readTogether(int group)
{
    QStringList lines;
    for (const QString &name : Together)
        lines.append(EditInfoScene::asked("saveinfo/" + name + QString::number(group)));
    return lines;
}

// A group takes over what another began with.
QStringList writeTogether(int group, int from)
{
    QStringList lines;
    for (const QString &name : Together) {
        const QVariant value = begunWith(name, from);
        lines.append(EditInfoScene::written("saveinfo/" + name + QString::number(group), value));
        if (name == "FontName")
            lines += EditInfoScene::fontGoesOut(group, value.toString());
    }
    return lines;
}

}

void TestEditInfoSettings::openingReadsEverything_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<int>("document");
    QTest::addColumn<int>("partition");
    QTest::addColumn<QStringList>("calls");
    const QStringList others = {"documentKeyOf([3])", "documentKeyOf([2])"};
    const QStringList given("documentKeyOf([2])");
    const QStringList current = {"currentDocument()", "documentKeyOf([1])"};
    QTest::newRow("all given") << true << 2 << 3 << given + others;
    QTest::newRow("no partition") << true << 2 << 0
                                  << given + QStringList("[2].currentPartition()") + others;
    QTest::newRow("no document") << false << 0 << 3 << current + others;
    QTest::newRow("neither") << false << 0 << 0
                             << current + QStringList("[1].currentPartition()") + others;
}

void TestEditInfoSettings::openingReadsEverything()
{
    QFETCH(bool, saveForm);
    QFETCH(int, document);
    QFETCH(int, partition);
    QFETCH(QStringList, calls);
    EditInfoScene scene;
    const GUI_EditInfoDialog dialog(
        &scene.host, 4, saveForm, document ? scene.document(DOCKEY(document)) : nullptr, partition,
        {scene.document(3), nullptr, scene.document(2)}, QDateTime());
    QCOMPARE(scene.host.journal(),
             QStringList({"mainWidget()", "translate(\"edit information\")"}) + calls +
                 initialReads(saveForm));
}

void TestEditInfoSettings::failedReadingIsNotWrittenBack()
{
    EditInfoScene scene;
    scene.host.failOn("getPref", 3); // the first group's font size
    scene.open(false);
    QCOMPARE(scene.host.handledErrors(), QStringList({"getPref failed"}));
    scene.host.settings().setValue("info/FontSize", "40");
    scene.dialog->cancel();
    QCOMPARE(scene.journal(), EditInfoScene::allBack(false)); // other groups have read it too

    scene.host.failOn("getPref", 0);
    scene.open(false);
    scene.host.clearFaults();
    LogCapture log;
    scene.dialog->cancel();
    QCOMPARE(scene.journal(), QStringList(EditInfoScene::refreshed()));

    // Behind one that all groups share each group reads 15: of group 1 font size and bold.
    scene.host.failOn("getPref", 1 + 15 + 3);
    scene.host.failOn("getPref", 1 + 15 + 4);
    const int errors = scene.host.handledErrors().size();
    scene.open(true);
    QCOMPARE(scene.host.handledErrors().mid(errors),
             QStringList({"getPref failed", "getPref failed"}));
    scene.dialog->cancel();
    QStringList expected = EditInfoScene::allBack(true);
    QVERIFY(expected.removeOne(EditInfoScene::written("saveinfo/FontSize1", "11")));
    QVERIFY(expected.removeOne(EditInfoScene::written("saveinfo/Bold1", true)));
    QCOMPARE(scene.journal(), expected);
}

void TestEditInfoSettings::propertyIsReadAndWritten_data()
{
    addColumns();
    for (bool saveForm : {false, true})
        addShared(saveForm);
    addSaved(true);
    addShown(false);
}

void TestEditInfoSettings::propertyIsReadAndWritten()
{
    QFETCH(QString, name);
    QFETCH(bool, saveForm);
    QFETCH(QVariant, value);
    QFETCH(QVariant, stored);
    QFETCH(Getter, get);
    QFETCH(Setter, set);
    const QString key = keyOf(name, saveForm, 5);
    EditInfoScene scene(saveForm);
    scene.host.settings().setValue(key, stored);
    QCOMPARE(get(*scene.dialog, 5), value);
    QCOMPARE(scene.journal(), QStringList(EditInfoScene::asked(key)));

    scene.host.settings().setValue(key, QVariant());
    QStringList expected(EditInfoScene::written(key, stored));
    if (saveForm && name == "FontName")
        expected += EditInfoScene::fontGoesOut(5, value.toString());
    set(*scene.dialog, value, false);
    QCOMPARE(scene.journal(), expected);
    QCOMPARE(scene.setting(key), stored);
    QCOMPARE(scene.setting(key).type(), stored.type());
    set(*scene.dialog, value, true);
    if (!saveForm)
        expected.append(EditInfoScene::refreshed());
    QCOMPARE(scene.journal(), expected);
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

void TestEditInfoSettings::propertyHasShortForms_data()
{
    propertyIsReadAndWritten_data();
}

// A getter without a group means group 0, a setter without a word refreshes.
void TestEditInfoSettings::propertyHasShortForms()
{
    QFETCH(QString, name);
    QFETCH(bool, saveForm);
    QFETCH(QVariant, value);
    QFETCH(QVariant, stored);
    const QString key = keyOf(name, saveForm, 0);
    EditInfoScene scene(saveForm);
    QVERIFY(scene.show());
    const QString prefix = name == "FixedFontSizeRatio" ? "is" : "get";
    const QString read = scene.call(prefix + name + "()");
    QCOMPARE(scene.journal(), QStringList(EditInfoScene::asked(key)));
    if (value.type() == QVariant::Size) { // a page reads nothing, and cannot pass one
        QCOMPARE(read, QStringLiteral("\"\""));
        return;
    }
    const QString text =
        value.type() == QVariant::String ? scriptText(value.toString()) : value.toString();
    scene.call("set" + name + "(" + text + ")");
    QStringList expected(EditInfoScene::written(key, stored));
    if (saveForm && name == "FontName")
        expected += EditInfoScene::fontGoesOut(0, value.toString());
    if (!saveForm)
        expected.append(EditInfoScene::refreshed());
    QCOMPARE(scene.journal(), expected);
}

void TestEditInfoSettings::propertyIsReadBackInANewDialog_data()
{
    propertyIsReadAndWritten_data();
}

// Confirmed it holds, cancelled it is what it was; the size of icons alone is not written back.
void TestEditInfoSettings::propertyIsReadBackInANewDialog()
{
    QFETCH(QString, name);
    QFETCH(bool, saveForm);
    QFETCH(QVariant, value);
    QFETCH(Getter, get);
    QFETCH(Setter, set);
    const QVariant other(value.userType(), nullptr);
    EditInfoScene scene;
    scene.host.settings().setValue(keyOf(name, saveForm, 5), QVariant());
    LogCapture log;
    scene.open(saveForm);
    get(*scene.dialog, 5);
    set(*scene.dialog, value, true);
    scene.dialog->ok();
    scene.open(saveForm);
    QCOMPARE(get(*scene.dialog, 5), value);
    set(*scene.dialog, other, true);
    scene.dialog->cancel();
    scene.open(saveForm);
    QCOMPARE(get(*scene.dialog, 5), name == "IconSize" ? other : value);
}

void TestEditInfoSettings::propertyOfTheOtherFormIsNone_data()
{
    addColumns();
    addSaved(false);
    addShown(true);
}

// It is neither read nor written, but the views of the editor form follow where they are asked to.
void TestEditInfoSettings::propertyOfTheOtherFormIsNone()
{
    QFETCH(QString, name);
    QFETCH(bool, saveForm);
    QFETCH(QVariant, value);
    QFETCH(Getter, get);
    QFETCH(Setter, set);
    EditInfoScene scene(saveForm);
    QVariant none(value.userType(), nullptr);
    if (name == "FixedFontSizeRatioBaseResolution")
        none = QSize(-1, -1);
    QCOMPARE(get(*scene.dialog, 3), none);
    set(*scene.dialog, value, false);
    QCOMPARE(scene.journal(), QStringList());
    set(*scene.dialog, value, true);
    QCOMPARE(scene.journal(), saveForm ? QStringList() : QStringList(EditInfoScene::refreshed()));
}

void TestEditInfoSettings::readingSelectsTheGroup()
{
    EditInfoScene scene(true);
    scene.dialog->getBold(5);
    scene.dialog->setBold(false);
    QCOMPARE(scene.setting("saveinfo/Bold5"), QVariant(false));
    scene.dialog->getInfoSettingsHtml(2); // the items do not
    scene.dialog->setFontSize("28");
    QCOMPARE(scene.setting("saveinfo/FontSize5"), QVariant("28"));
    QCOMPARE(scene.setting("saveinfo/FontSize2"), QVariant("12"));
    scene.dialog->backupFontSettings(1);
    scene.dialog->setFontSize("36");
    QCOMPARE(scene.setting("saveinfo/FontSize1"), QVariant("36"));
}

void TestEditInfoSettings::openingLeavesTheLastGroup()
{
    EditInfoScene scene(true);
    scene.dialog->setFontSize("28");
    QCOMPARE(scene.journal(), QStringList(EditInfoScene::written("saveinfo/FontSize6", "28")));
}

void TestEditInfoSettings::groupThatIsNoneHasNoSettings()
{
    EditInfoScene scene(true);
    for (int group : {-1, 7}) {
        QCOMPARE(scene.dialog->getFontName(group), QString());
        scene.dialog->setFontName("Serif");
        QCOMPARE(scene.dialog->getFixedFontSizeRatioBaseResolution(group), QSize(-1, -1));
        QCOMPARE(scene.journal(), QStringList());
    }
}

void TestEditInfoSettings::fontOfASavedGroupGoesToTheOutput_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("calls");
    const QStringList none;
    QTest::newRow("English, first") << "en" << 1 << QStringList("applyOutputFontName(\"X\", 0)");
    QTest::newRow("English, last") << "en" << 6 << QStringList("applyOutputFontName(\"X\", 5)");
    QTest::newRow("none") << "" << 2 << QStringList("applyOutputFontName(\"X\", 1)");
    QTest::newRow("English, group 0") << "en" << 0 << none;
    QTest::newRow("Japanese") << "ja" << 1 << none;
    QTest::newRow("Japanese, group 0") << "ja" << 0 << none;
}

void TestEditInfoSettings::fontOfASavedGroupGoesToTheOutput()
{
    QFETCH(QString, language);
    QFETCH(int, group);
    QFETCH(QStringList, calls);
    EditInfoScene scene(true);
    scene.host.settings().setValue("display/language", language);
    scene.dialog->getFontName(group);
    scene.journal();
    scene.dialog->setFontName("X");
    const QString key = "saveinfo/FontName" + QString::number(group);
    QCOMPARE(scene.journal(), QStringList(EditInfoScene::written(key, "X")) +
                                  QStringList("getPrefString(\"display/language\", invalid)") +
                                  calls);
}

void TestEditInfoSettings::settingWithoutAGroup_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QString>("getter");
    QTest::addColumn<QString>("setter");
    QTest::addColumn<QString>("key");
    QTest::newRow("within image") << true << "getWithinImage"
                                  << "setWithinImage"
                                  << "saveinfo/WithinImage";
    QTest::newRow("together") << true << "isCollectiveSetting"
                              << "setCollectiveSetting"
                              << "saveinfo/collectiveSetting";
    QTest::newRow("blank line, save form") << true << "getDisplayBlankLine"
                                           << "setDisplayBlankLine"
                                           << "info/BlankLine";
    QTest::newRow("blank line, editor form") << false << "getDisplayBlankLine"
                                             << "setDisplayBlankLine"
                                             << "info/BlankLine";
    QTest::newRow("within image, editor form") << false << "getWithinImage"
                                               << "setWithinImage"
                                               << "";
}

// Neither group 0 nor the current one has any part in it.
void TestEditInfoSettings::settingWithoutAGroup()
{
    QFETCH(bool, saveForm);
    QFETCH(QString, getter);
    QFETCH(QString, setter);
    QFETCH(QString, key);
    EditInfoScene scene(saveForm);
    QVERIFY(scene.show());
    scene.dialog->getBold(3);
    scene.journal();
    const QStringList refresh = saveForm ? QStringList() : QStringList(EditInfoScene::refreshed());
    for (bool value : {true, false}) {
        const QString text = value ? "true" : "false";
        scene.call(setter + "(" + text + ")");
        const QStringList write =
            key.isEmpty() ? QStringList() : QStringList(EditInfoScene::written(key, value));
        QCOMPARE(scene.journal(), write + refresh);
        QCOMPARE(scene.call(getter + "()"), key.isEmpty() ? QString("false") : text);
        QCOMPARE(scene.journal(),
                 key.isEmpty() ? QStringList() : QStringList(EditInfoScene::asked(key)));
        if (setter == "setDisplayBlankLine")
            continue;
        scene.call(setter + "(" + text + ", false)");
        QCOMPARE(scene.journal(), write);
    }
    scene.dialog->setFontSize("28");
    QCOMPARE(scene.setting(keyOf("FontSize", saveForm, 3)), QVariant("28"));
}

void TestEditInfoSettings::collectiveSettingOfTheEditorDoesNothing()
{
    EditInfoScene scene(false);
    QVERIFY(!scene.dialog->isCollectiveSetting());
    scene.dialog->setCollectiveSetting(true);
    scene.dialog->setCollectiveSetting(true, true);
    QVERIFY(!scene.dialog->isCollectiveSetting());
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoSettings::listsAreAsTold()
{
    EditInfoScene scene(true);
    scene.host.state().fontFamilies = QStringList({"B", "A"});
    QCOMPARE(scene.dialog->getFontNameList(), QStringList({"B", "A"}));
    QCOMPARE(scene.journal(), QStringList("fontFamilyList()"));
    QCOMPARE(scene.dialog->getFontSizeList(),
             QStringList({"7", "8", "9", "10", "11", "12", "13", "14", "16", "18", "20", "22", "24",
                          "26", "28", "32", "36", "40", "44"}));
    QCOMPARE(scene.dialog->getToColumnList(),
             QStringList({"2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoSettings::backupIsWrittenIntoTheCurrentGroup()
{
    const QStringList names = {"FontName",
                               "FontSize",
                               "Bold",
                               "Italic",
                               "ForegroundColor",
                               "FixedFontSizeRatio",
                               "FixedFontSizeRatioBaseResolution",
                               "Alignment",
                               "UseBackgroundColor",
                               "BackgroundColor",
                               "Width",
                               "ToColumn",
                               "ColumnNum",
                               "ColumnSpacing"};
    EditInfoScene scene(true);
    scene.dialog->backupFontSettings(2);
    QStringList reads(EditInfoScene::asked("saveinfo/collectiveSetting"));
    for (const QString &name : names)
        reads.append(EditInfoScene::asked("saveinfo/" + name + "2"));
    QCOMPARE(scene.journal(), reads);

    scene.host.settings().setValue("saveinfo/FontSize2", "40");
    for (int group : {2, 5}) {
        scene.dialog->getBold(group);
        scene.journal();
        scene.dialog->restoreFontSettings();
        QStringList writes(EditInfoScene::written("saveinfo/collectiveSetting", true));
        for (const QString &name : names) {
            writes.append(EditInfoScene::written("saveinfo/" + name + QString::number(group),
                                                 begunWith(name, 2)));
            if (name == "FontName")
                writes += EditInfoScene::fontGoesOut(group, "Font 2");
        }
        QCOMPARE(scene.journal(), writes);
        QCOMPARE(scene.setting("saveinfo/FontSize" + QString::number(group)), QVariant("12"));
    }
}

void TestEditInfoSettings::backupOfTheEditorHoldsTheIconSize()
{
    EditInfoScene scene(false);
    scene.dialog->backupFontSettings(0);
    QStringList reads;
    for (const char *name : {"FontName", "FontSize", "Bold", "Italic", "ForegroundColor",
                             "Alignment", "Width", "IconSize"})
        reads.append(EditInfoScene::asked("info/" + QString::fromLatin1(name)));
    QCOMPARE(scene.journal(), reads);
    scene.dialog->setIconSize(48);
    scene.journal();
    scene.dialog->restoreFontSettings();
    QCOMPARE(scene.journal(),
             QStringList({EditInfoScene::written("info/FontName", "Font 0"),
                          EditInfoScene::written("info/FontSize", "10"),
                          EditInfoScene::written("info/Bold", false),
                          EditInfoScene::written("info/Italic", true),
                          EditInfoScene::written("info/ForegroundColor", "#000000"),
                          EditInfoScene::written("info/Alignment", "0"),
                          EditInfoScene::written("info/Width", "100"),
                          EditInfoScene::written("info/IconSize", "24")}));
}

void TestEditInfoSettings::withoutABackupNothingsAreWritten()
{
    EditInfoScene scene(true);
    scene.dialog->restoreFontSettings();
    QCOMPARE(scene.setting("saveinfo/FixedFontSizeRatioBaseResolution6"), QVariant(QSize(-1, -1)));
    QCOMPARE(scene.setting("saveinfo/FontName6"), QVariant(""));
    QCOMPARE(scene.setting("saveinfo/Width6"), QVariant("0"));
    QCOMPARE(scene.setting("saveinfo/collectiveSetting"), QVariant(false));
}

void TestEditInfoSettings::whatTheBackupCouldNotReadStays()
{
    EditInfoScene scene(true);
    scene.host.failOn("getPref", 3); // the font size
    scene.dialog->backupFontSettings(2);
    QCOMPARE(scene.host.handledErrors(), QStringList({"getPref failed"}));
    scene.host.settings().setValue("saveinfo/FontSize2", "40");
    scene.host.settings().setValue("saveinfo/Width2", "77");
    scene.dialog->restoreFontSettings();
    QCOMPARE(scene.setting("saveinfo/FontSize2"), QVariant("40"));
    QCOMPARE(scene.setting("saveinfo/Width2"), QVariant("102"));
}

void TestEditInfoSettings::failedRestoringGoesOn()
{
    EditInfoScene scene(true);
    scene.dialog->backupFontSettings(2);
    scene.host.settings().setValue("saveinfo/Width2", "77");
    scene.host.failOn("setPref", 2);
    scene.dialog->restoreFontSettings();
    QCOMPARE(scene.host.handledErrors(), QStringList({"setPref failed"}));
    QCOMPARE(scene.setting("saveinfo/Width2"), QVariant("102"));
}

void TestEditInfoSettings::confirmedTypefaceOfTheEditorStays()
{
    EditInfoScene scene(false);
    scene.dialog->writeFontOK();
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoSettings::confirmedTypefaceStaysAlone_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("isTied");
    QTest::newRow("free size") << 2 << false;
    QTest::newRow("tied size") << 3 << true;
    QTest::newRow("group 0") << 0 << false;
}

// While the groups are not set together.
void TestEditInfoSettings::confirmedTypefaceStaysAlone()
{
    QFETCH(int, group);
    QFETCH(bool, isTied);
    EditInfoScene scene(true);
    scene.host.settings().setValue("saveinfo/collectiveSetting", false);
    const QSize size = scene.document(1)->documentResolution(1, 0, true);
    scene.dialog->getBold(group);
    scene.journal();
    scene.dialog->writeFontOK();
    const QString number = QString::number(group);
    QStringList expected(EditInfoScene::asked("saveinfo/FixedFontSizeRatio" + number));
    if (isTied)
        expected += QStringList(
            {"documentKeyOf([1])", "[1].documentResolution(1, 0, true)",
             EditInfoScene::written("saveinfo/FixedFontSizeRatioBaseResolution" + number, size)});
    QCOMPARE(scene.journal(),
             expected + QStringList(EditInfoScene::asked("saveinfo/collectiveSetting")));
}

void TestEditInfoSettings::confirmedTypefaceGoesToTheOthers_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QList<int>>("others");
    QTest::newRow("group 0") << 0 << QList<int>({1, 2, 3, 4, 5, 6});
    QTest::newRow("group 2") << 2 << QList<int>({1, 3, 4, 5, 6});
    QTest::newRow("group 6") << 6 << QList<int>({1, 2, 3, 4, 5});
}

void TestEditInfoSettings::confirmedTypefaceGoesToTheOthers()
{
    QFETCH(int, group);
    QFETCH(QList<int>, others);
    const QString number = QString::number(group);
    EditInfoScene scene(true);
    scene.dialog->getBold(group);
    scene.journal();
    scene.dialog->writeFontOK();
    QStringList expected = {EditInfoScene::asked("saveinfo/FixedFontSizeRatio" + number),
                            EditInfoScene::asked("saveinfo/collectiveSetting")};
    expected += readTogether(group);
    for (int other : others)
        expected += writeTogether(other, group);
    QCOMPARE(scene.journal(), expected);
    scene.dialog->setFontSize("28"); // the group is still the current one
    QCOMPARE(scene.setting("saveinfo/FontSize" + number), QVariant("28"));
    if (group != 0)
        QCOMPARE(scene.setting("saveinfo/FontName0"), QVariant("Font 0"));
}

// Which the others take over too.
void TestEditInfoSettings::sizeIsThatOfTheDocument()
{
    EditInfoScene scene(true);
    const QSize size = scene.document(1)->documentResolution(1, 0, true);
    scene.dialog->getBold(3);
    scene.dialog->writeFontOK();
    for (int group : {1, 2, 3, 4, 5, 6})
        QCOMPARE(
            scene.setting("saveinfo/FixedFontSizeRatioBaseResolution" + QString::number(group)),
            QVariant(size));
    QCOMPARE(scene.setting("saveinfo/FixedFontSizeRatioBaseResolution0"), QVariant(QSize(100, 50)));
}

void TestEditInfoSettings::sizeNeedsTheDocument()
{
    EditInfoScene scene(true);
    scene.host.settings().setValue("saveinfo/collectiveSetting", false);
    scene.dialog->getBold(3);
    scene.host.closeDocument(1);
    scene.journal();
    scene.dialog->writeFontOK();
    QCOMPARE(scene.journal(), QStringList({EditInfoScene::asked("saveinfo/FixedFontSizeRatio3"),
                                           "documentKeyOf([1])",
                                           EditInfoScene::asked("saveinfo/collectiveSetting")}));
    QCOMPARE(scene.setting("saveinfo/FixedFontSizeRatioBaseResolution3"), QVariant(QSize(103, 50)));
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

void TestEditInfoSettings::failedConfirmationGoesNoFurther_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("nth");
    QTest::newRow("resolution") << "documentResolution" << 1;
    QTest::newRow("flag") << "getPref" << 2;
    QTest::newRow("value") << "getPref" << 9;
    QTest::newRow("write") << "setPref" << 20; // the fifth of group 2
}

// What could not be read is copied to no group, and group 3 is current as before.
void TestEditInfoSettings::failedConfirmationGoesNoFurther()
{
    QFETCH(QString, operation);
    QFETCH(int, nth);
    EditInfoScene scene(true);
    scene.dialog->getBold(3);
    scene.host.clearJournal();
    scene.host.failOn(operation, nth);
    scene.dialog->writeFontOK();
    QCOMPARE(scene.host.handledErrors(), QStringList(operation + " failed"));
    const bool isWriting = operation == "setPref";
    QCOMPARE(scene.setting("saveinfo/FontSize1"), QVariant(isWriting ? "13" : "11"));
    QCOMPARE(scene.setting("saveinfo/FontSize2"), QVariant(isWriting ? "13" : "12"));
    QCOMPARE(scene.setting("saveinfo/Width2"), QVariant("102"));
    QCOMPARE(scene.setting("saveinfo/FontSize6"), QVariant("16"));
    scene.dialog->setFontSize("28");
    QCOMPARE(scene.setting("saveinfo/FontSize3"), QVariant("28"));
}

void TestEditInfoSettings::cancelledTypefaceOfTheEditor()
{
    EditInfoScene scene(false);
    for (const StoredSetting &each : EditInfoScene::typeface(false, 0))
        scene.host.settings().setValue(each.key, QVariant());
    scene.host.settings().setValue("info/display", "Custom:true");
    scene.dialog->writeFontCancel();
    QCOMPARE(scene.journal(),
             EditInfoScene::typefaceBack(false, 0) + QStringList(EditInfoScene::refreshed()));
    for (const StoredSetting &each : EditInfoScene::typeface(false, 0))
        QCOMPARE(scene.setting(each.key), each.value);
    QCOMPARE(scene.setting("info/display"), QVariant("Custom:true"));
}

void TestEditInfoSettings::cancelledTypefacesOfTheSaveForm()
{
    EditInfoScene scene(true);
    for (int group = 0; group < 7; ++group) {
        for (const StoredSetting &each : EditInfoScene::typeface(true, group))
            scene.host.settings().setValue(each.key, QVariant());
    }
    scene.host.settings().setValue("saveinfo/FontSize0", "40");
    scene.dialog->getBold(2);
    scene.journal();
    scene.dialog->writeFontCancel();
    QStringList expected;
    for (int group = 1; group < 7; ++group)
        expected += EditInfoScene::typefaceBack(true, group);
    QCOMPARE(scene.journal(), expected);
    for (int group = 1; group < 7; ++group) {
        for (const StoredSetting &each : EditInfoScene::typeface(true, group))
            QCOMPARE(scene.setting(each.key), each.value);
    }
    QCOMPARE(scene.setting("saveinfo/FontSize0"), QVariant("40"));
    scene.dialog->setFontSize("28");
    QCOMPARE(scene.setting("saveinfo/FontSize6"), QVariant("28"));
}

void TestEditInfoSettings::iconSizeIsNotWrittenBack()
{
    EditInfoScene scene(false);
    scene.dialog->setIconSize(48);
    scene.dialog->writeFontCancel();
    QCOMPARE(scene.setting("info/IconSize"), QVariant("48"));
    scene.dialog->cancel();
    QCOMPARE(scene.setting("info/IconSize"), QVariant("48"));
}

void TestEditInfoSettings::resetOfTheEditor()
{
    EditInfoScene scene(false);
    const QString shipped = scene.host.infoItemDefaultDisplay();
    scene.journal();
    scene.dialog->reset();
    QCOMPARE(
        scene.journal(),
        QStringList({"infoItemDefaultDisplay()", EditInfoScene::written("info/display", shipped),
                     "prefDefault(\"info/BlankLine\")",
                     EditInfoScene::written("info/BlankLine", true), EditInfoScene::refreshed()}));
    QCOMPARE(scene.setting("info/FontSize"), QVariant("10"));
}

void TestEditInfoSettings::resetOfTheSaveForm()
{
    EditInfoScene scene(true);
    scene.dialog->reset();
    QStringList expected;
    for (int group = 0; group < 7; ++group)
        expected.append("removePref(\"saveinfo/display" + QString::number(group) + "\")");
    QCOMPARE(scene.journal(), expected);
    for (int group = 0; group < 7; ++group) {
        const QString key = "saveinfo/display" + QString::number(group);
        QCOMPARE(scene.setting(key), scene.host.prefDefault(key));
    }
    QCOMPARE(scene.setting("saveinfo/FontSize2"), QVariant("12"));
    QCOMPARE(scene.setting("info/BlankLine"), QVariant(false));
}

void TestEditInfoSettings::failuresGiveNeutralValues()
{
    EditInfoScene scene(true);
    scene.host.failFromCall(1);
    QCOMPARE(scene.dialog->getFontName(3), QString());
    QCOMPARE(scene.dialog->getBold(3), false);
    QCOMPARE(scene.dialog->getWidth(3), 0);
    QCOMPARE(scene.dialog->getFixedFontSizeRatioBaseResolution(3), QSize(-1, -1));
    QCOMPARE(scene.dialog->getFontNameList(), QStringList());
    QCOMPARE(scene.dialog->getDisplayBlankLine(), false);
    scene.dialog->setDisplayBlankLine(true);
    QCOMPARE(scene.host.handledErrors().size(), 7);
    scene.host.clearFaults();
    scene.dialog->setFontSize("28"); // the group was selected before its reading failed
    QCOMPARE(scene.setting("saveinfo/FontSize3"), QVariant("28"));
}

int main(int argc, char **argv)
{
    TestEditInfoSettings test;
    return runTest(argc, argv, test);
}

#include "test_edit_info_settings.moc"
