#include "foundation/Theme.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QTemporaryDir>

// The light and the dark form of native widgets.

class TestTheme : public TestBase
{
    Q_OBJECT

private slots:
    void sheetFollowsTheSetting_data();
    void sheetFollowsTheSetting();
    void defaultIsLight();
    void failureIsTheCallers();
    void sheetIsReadWhole();
    void missingSheetIsEmptyWithoutAMessage_data();
    void missingSheetIsEmptyWithoutAMessage();
};

namespace {

const QString Light = QStringLiteral("QWidget { color: #111; }\n");
const QString Dark = QStringLiteral("QWidget { color: #eee; }\n");

}

void TestTheme::sheetFollowsTheSetting_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("light") << "light" << Light;
    QTest::newRow("dark") << "dark" << Dark;
    QTest::newRow("dark in capitals") << "DARK" << Dark;
    QTest::newRow("dark in other case") << "Dark" << Dark;
    QTest::newRow("unknown") << "blue" << Light;
    QTest::newRow("empty") << "" << Light;
    QTest::newRow("blanks are no dark") << " dark " << Light;
}

void TestTheme::sheetFollowsTheSetting()
{
    QFETCH(QString, style);
    StandInHost host;
    host.settings().setValue("env/style", style);
    QWidget widget;
    Theme::applyNativeStyle(&host, &widget);
    QTEST(widget.styleSheet(), "sheet");
    QCOMPARE(host.journal(), QStringList({"getPref(\"env/style\", \"light\")"}));
}

void TestTheme::defaultIsLight()
{
    StandInHost host;
    QWidget widget;
    Theme::applyNativeStyle(&host, &widget);
    QCOMPARE(widget.styleSheet(), Light);
}

void TestTheme::failureIsTheCallers()
{
    StandInHost host;
    host.failOn(QStringLiteral("getPref"));
    QWidget widget;
    widget.setStyleSheet(Dark);
    QVERIFY_EXCEPTION_THROWN(Theme::applyNativeStyle(&host, &widget), StandInFault);
    QCOMPARE(widget.styleSheet(), Dark);
}

void TestTheme::sheetIsReadWhole()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("sheet.css"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("a { }\nb { }\n");
    file.close();
    QCOMPARE(Theme::readStyleSheet(path), QStringLiteral("a { }\nb { }\n"));
    QVERIFY(file.remove()); // it was closed
}

void TestTheme::missingSheetIsEmptyWithoutAMessage_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("resource") << "://absent.css";
    QTest::newRow("file") << "/no/such/sheet.css";
    QTest::newRow("nothing") << "";
}

void TestTheme::missingSheetIsEmptyWithoutAMessage()
{
    QFETCH(QString, path);
    LogCapture log;
    QCOMPARE(Theme::readStyleSheet(path), QString());
    QCOMPARE(log.texts(), QStringList());
}

int main(int argc, char **argv)
{
    TestTheme test;
    return runTest(argc, argv, test);
}

#include "test_theme.moc"
