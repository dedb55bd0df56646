#include "record/display/InfoFontSettings.h"
#include "tests/support/TestLog.h"

#include <QSize>

using namespace InfoFontSettings;

// Where the settings of the information display are stored, and in which order they go.

class TestInfoFontSettings : public TestBase
{
    Q_OBJECT

private slots:
    void keysAreAsTold_data();
    void keysAreAsTold();
    void groupThatIsNoneHasNoKey_data();
    void groupThatIsNoneHasNoKey();
    void valuesHaveTheirType_data();
    void valuesHaveTheirType();
    void valuesAreStoredAsTold_data();
    void valuesAreStoredAsTold();
    void passesHaveTheirOrder_data();
    void passesHaveTheirOrder();
    void dialogReadsEveryGroup_data();
    void dialogReadsEveryGroup();
};

Q_DECLARE_METATYPE(InfoFontSettings::Property)
Q_DECLARE_METATYPE(InfoFontSettings::Pass)
Q_DECLARE_METATYPE(InfoFontSettings::Form)

namespace {

using P = Property;

// The last word of a key is the property's name.
QString nameOf(Property property)
{
    const QString saved = key(property, Form::Save, 0);
    QString name = (saved.isEmpty() ? key(property, Form::Editor, 0) : saved).section('/', 1);
    if (isPerGroup(property))
        name.chop(1);
    return name;
}

QString namesOf(const QVector<Property> &properties)
{
    QStringList names;
    for (Property property : properties)
        names.append(nameOf(property));
    return names.join(' ');
}

}

void TestInfoFontSettings::keysAreAsTold_data()
{
    QTest::addColumn<Property>("property");
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, Property property, const char *saved, const char *shown) {
        QTest::newRow(name) << property << saved << shown;
    };
    row("FontName", P::FontName, "saveinfo/FontName5", "info/FontName");
    row("FontSize", P::FontSize, "saveinfo/FontSize5", "info/FontSize");
    row("Bold", P::Bold, "saveinfo/Bold5", "info/Bold");
    row("Italic", P::Italic, "saveinfo/Italic5", "info/Italic");
    row("ForegroundColor", P::ForegroundColor, "saveinfo/ForegroundColor5", "info/ForegroundColor");
    row("Alignment", P::Alignment, "saveinfo/Alignment5", "info/Alignment");
    row("Width", P::Width, "saveinfo/Width5", "info/Width");
    row("FixedFontSizeRatio", P::FixedFontSizeRatio, "saveinfo/FixedFontSizeRatio5", "");
    row("FixedFontSizeRatioBaseResolution", P::FixedFontSizeRatioBaseResolution,
        "saveinfo/FixedFontSizeRatioBaseResolution5", "");
    row("UseBackgroundColor", P::UseBackgroundColor, "saveinfo/UseBackgroundColor5", "");
    row("BackgroundColor", P::BackgroundColor, "saveinfo/BackgroundColor5", "");
    row("ToColumn", P::ToColumn, "saveinfo/ToColumn5", "");
    row("ColumnNum", P::ColumnNum, "saveinfo/ColumnNum5", "");
    row("ColumnSpacing", P::ColumnSpacing, "saveinfo/ColumnSpacing5", "");
    row("IconSize", P::IconSize, "", "info/IconSize");
    row("display", P::Display, "saveinfo/display5", "info/display");
    row("WithinImage", P::WithinImage, "saveinfo/WithinImage", "");
    row("collectiveSetting", P::CollectiveSetting, "saveinfo/collectiveSetting", "");
    row("BlankLine", P::BlankLine, "info/BlankLine", "info/BlankLine");
    row("LogoPath", P::LogoPath, "saveinfo/LogoPath", "info/LogoPath");
}

void TestInfoFontSettings::keysAreAsTold()
{
    QFETCH(Property, property);
    QFETCH(QString, saved);
    QTEST(key(property, Form::Save, 5), "saved");
    QTEST(key(property, Form::Editor, 5), "shown");
    const bool isNumbered = saved.endsWith('5');
    QCOMPARE(isPerGroup(property), isNumbered);
    if (isNumbered)
        saved.replace(saved.size() - 1, 1, QStringLiteral("0"));
    QCOMPARE(key(property, Form::Save, 0), saved);
}

void TestInfoFontSettings::groupThatIsNoneHasNoKey_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("isGroup");
    QTest::newRow("below") << -1 << false;
    QTest::newRow("first") << 0 << true;
    QTest::newRow("last") << 6 << true;
    QTest::newRow("behind") << 7 << false;
}

void TestInfoFontSettings::groupThatIsNoneHasNoKey()
{
    QFETCH(int, group);
    QFETCH(bool, isGroup);
    QCOMPARE(!key(P::Bold, Form::Save, group).isEmpty(), isGroup);
    QCOMPARE(key(P::Bold, Form::Editor, group), QStringLiteral("info/Bold"));
    QCOMPARE(key(P::WithinImage, Form::Save, group), QStringLiteral("saveinfo/WithinImage"));
}

void TestInfoFontSettings::valuesHaveTheirType_data()
{
    QTest::addColumn<Property>("property");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("absent");
    const QVariant text(QString("7"));
    for (P property : {P::FontName, P::FontSize, P::ForegroundColor, P::BackgroundColor,
                       P::ColumnNum, P::Display, P::LogoPath})
        QTest::newRow(qPrintable(nameOf(property))) << property << text << text << QVariant("");
    for (P property : {P::Bold, P::Italic, P::FixedFontSizeRatio, P::UseBackgroundColor,
                       P::ToColumn, P::WithinImage, P::CollectiveSetting, P::BlankLine})
        QTest::newRow(qPrintable(nameOf(property)))
            << property << QVariant("true") << QVariant(true) << QVariant(false);
    for (P property : {P::Alignment, P::Width, P::IconSize, P::ColumnSpacing})
        QTest::newRow(qPrintable(nameOf(property)))
            << property << text << QVariant(7) << QVariant(0);
    QTest::newRow("base resolution")
        << P::FixedFontSizeRatioBaseResolution << QVariant(QSize(640, 480))
        << QVariant(QSize(640, 480)) << QVariant(QSize(-1, -1));
}

void TestInfoFontSettings::valuesHaveTheirType()
{
    QFETCH(Property, property);
    QFETCH(QVariant, stored);
    QFETCH(QVariant, value);
    const QVariant read = InfoFontSettings::value(property, stored);
    QCOMPARE(read.type(), value.type());
    QCOMPARE(read, value);
    QTEST(InfoFontSettings::value(property, QVariant()), "absent");
}

void TestInfoFontSettings::valuesAreStoredAsTold_data()
{
    QTest::addColumn<Property>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("stored");
    QTest::newRow("text") << P::FontSize << QVariant("12") << QVariant("12");
    QTest::newRow("flag") << P::Bold << QVariant(true) << QVariant(true);
    QTest::newRow("alignment") << P::Alignment << QVariant(2) << QVariant("2");
    QTest::newRow("width") << P::Width << QVariant(-300) << QVariant("-300");
    QTest::newRow("icon size") << P::IconSize << QVariant(48) << QVariant("48");
    QTest::newRow("column spacing") << P::ColumnSpacing << QVariant(8) << QVariant(8);
    QTest::newRow("base resolution")
        << P::FixedFontSizeRatioBaseResolution << QVariant(QSize(1, 2)) << QVariant(QSize(1, 2));
}

void TestInfoFontSettings::valuesAreStoredAsTold()
{
    QFETCH(Property, property);
    QFETCH(QVariant, value);
    QFETCH(QVariant, stored);
    const QVariant written = InfoFontSettings::stored(property, value);
    QCOMPARE(written.type(), stored.type());
    QCOMPARE(written, stored);
}

void TestInfoFontSettings::passesHaveTheirOrder_data()
{
    QTest::addColumn<Pass>("pass");
    QTest::addColumn<Form>("form");
    QTest::addColumn<QString>("names");
    QTest::newRow("initial, save form")
        << Pass::Initial << Form::Save
        << "collectiveSetting display FontName FontSize Bold Italic FixedFontSizeRatio "
           "FixedFontSizeRatioBaseResolution Alignment Width ToColumn ColumnNum ForegroundColor "
           "UseBackgroundColor BackgroundColor ColumnSpacing WithinImage BlankLine";
    QTest::newRow("initial, editor form")
        << Pass::Initial << Form::Editor
        << "display FontName FontSize Bold Italic Alignment Width ForegroundColor BlankLine";
    QTest::newRow("backup, save form")
        << Pass::Backup << Form::Save
        << "collectiveSetting FontName FontSize Bold Italic ForegroundColor FixedFontSizeRatio "
           "FixedFontSizeRatioBaseResolution Alignment UseBackgroundColor BackgroundColor Width "
           "ToColumn ColumnNum ColumnSpacing";
    QTest::newRow("backup, editor form")
        << Pass::Backup << Form::Editor
        << "FontName FontSize Bold Italic ForegroundColor Alignment Width IconSize";
    QTest::newRow("collective, save form")
        << Pass::Collective << Form::Save
        << "FontName FontSize Bold Italic ForegroundColor FixedFontSizeRatio "
           "FixedFontSizeRatioBaseResolution UseBackgroundColor BackgroundColor Alignment Width "
           "ToColumn ColumnNum ColumnSpacing";
    QTest::newRow("rollback, save form")
        << Pass::Rollback << Form::Save
        << "collectiveSetting FontName FontSize Bold Italic Alignment Width ToColumn ColumnNum "
           "ForegroundColor BackgroundColor UseBackgroundColor WithinImage ColumnSpacing "
           "FixedFontSizeRatio FixedFontSizeRatioBaseResolution";
    QTest::newRow("rollback, editor form")
        << Pass::Rollback << Form::Editor
        << "FontName FontSize Bold Italic Alignment Width ForegroundColor";
}

void TestInfoFontSettings::passesHaveTheirOrder()
{
    QFETCH(Pass, pass);
    QFETCH(Form, form);
    QTEST(namesOf(order(pass, form)), "names");
}

void TestInfoFontSettings::dialogReadsEveryGroup_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<QStringList>("firstKeys");
    QTest::addColumn<QStringList>("lastKeys");
    QTest::addColumn<int>("perGroup");
    QTest::newRow("save form") << Form::Save
                               << QStringList({"saveinfo/collectiveSetting", "saveinfo/display0",
                                               "saveinfo/FontName0"})
                               << QStringList({"saveinfo/BackgroundColor6",
                                               "saveinfo/ColumnSpacing6", "saveinfo/WithinImage",
                                               "info/BlankLine"})
                               << 15;
    QTest::newRow("editor form") << Form::Editor
                                 << QStringList({"info/display", "info/FontName", "info/FontSize"})
                                 << QStringList(
                                        {"info/Width", "info/ForegroundColor", "info/BlankLine"})
                                 << 8;
}

void TestInfoFontSettings::dialogReadsEveryGroup()
{
    QFETCH(Form, form);
    QFETCH(QStringList, firstKeys);
    QFETCH(QStringList, lastKeys);
    QFETCH(int, perGroup);
    QStringList keys;
    QVector<int> counts(GroupCount);
    for (const Place &place : initialOrder(form)) {
        keys.append(key(place.property, form, place.group));
        if (isPerGroup(place.property))
            ++counts[place.group];
        else
            QCOMPARE(place.group, 0);
    }
    QCOMPARE(counts, QVector<int>(7, perGroup));
    QCOMPARE(keys.mid(0, firstKeys.size()), firstKeys);
    QCOMPARE(keys.mid(keys.size() - lastKeys.size()), lastKeys);
    const int alone = form == Form::Save ? 3 : 1;
    QCOMPARE(keys.size(), 7 * perGroup + alone);
}

int main(int argc, char **argv)
{
    TestInfoFontSettings test;
    return runTest(argc, argv, test);
}

#include "test_info_font_settings.moc"
