#include "foundation/LogGroups.h"
#include "foundation/LogLines.h"
#include "tests/support/TestLog.h"

class TestLogGroups : public TestBase
{
    Q_OBJECT

private slots:
    void writesLabelColonValue_data();
    void writesLabelColonValue();
    void masksSecrets_data();
    void masksSecrets();
    void linesQuoteTextsOnly();
    void linesCarryNoPlace();
};

void TestLogGroups::writesLabelColonValue_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("text");
    using LogGroups::group;
    QTest::newRow("text") << group("page", QString("main")) << "[page:main] ";
    QTest::newRow("empty text") << group("page", QString()) << "[page:] ";
    QTest::newRow("empty label") << group("", QString("x")) << "[:x] ";
    QTest::newRow("text with brackets") << group("a", QString("]:[")) << "[a:]:[] ";
    QTest::newRow("text with a place to fill") << group("%2", QString("%1")) << "[%2:%1] ";
    QTest::newRow("true") << group("update", true) << "[update:true] ";
    QTest::newRow("false") << group("update", false) << "[update:false] ";
    QTest::newRow("negative") << group("docKey", -1) << "[docKey:-1] ";
    QTest::newRow("unsigned") << group("errorCode", 4294967295u) << "[errorCode:4294967295] ";
    QTest::newRow("64 bits") << group("key", ~quint64(0)) << "[key:18446744073709551615] ";
    QTest::newRow("decimals") << group("val", 0.5) << "[val:0.5] ";
    QTest::newRow("blank at both ends stays") << group("a", QString(" b ")) << "[a: b ] ";
}

void TestLogGroups::writesLabelColonValue()
{
    QFETCH(QString, group);
    QFETCH(QString, text);
    QCOMPARE(group, text);
}

void TestLogGroups::masksSecrets_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("secret");
    QTest::newRow("pass") << "pass" << true;
    QTest::newRow("password") << "password" << true;
    QTest::newRow("old password") << "oldPass" << true;
    QTest::newRow("new password") << "newPass1" << true;
    QTest::newRow("page") << "inputpass" << true;
    QTest::newRow("class") << "GUI_ChangePasswordDialog" << true;
    QTest::newRow("page's address") << "qrc:/input_password_dialog.html" << true;
    QTest::newRow("upper case") << "PASSWORD" << true;
    QTest::newRow("path") << "path" << false;
    QTest::newRow("name") << "name" << false;
    QTest::newRow("empty") << "" << false;
}

void TestLogGroups::masksSecrets()
{
    QFETCH(QString, name);
    QFETCH(bool, secret);
    const QString masked = "***";
    QCOMPARE(LogGroups::masked(), masked);
    QCOMPARE(LogGroups::isSecretName(name), secret);
    QCOMPARE(LogGroups::group(name, QString("abc")),
             QString("[" + name + ":" + (secret ? masked : QString("abc")) + "] "));
    QCOMPARE(LogGroups::group(name, QString()), QString("[" + name + ":] "));
    QCOMPARE(LogGroups::secretGroup(name), QString("[" + name + ":***] "));
}

void TestLogGroups::linesQuoteTextsOnly()
{
    LogCapture log;
    LogLines::info() << "[ENTER]" << QString("a \"b\"") << QString();
    LogLines::critical() << QString("c");
    QCOMPARE(log.lines().size(), 2);
    QCOMPARE(log.texts(QtInfoMsg), QStringList({"[ENTER] \"a \\\"b\\\"\" \"\""}));
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({"\"c\""}));
}

namespace {

int linesWithPlace = 0;
int linesSeen = 0;

void notePlace(QtMsgType, const QMessageLogContext &context, const QString &)
{
    ++linesSeen;
    if (context.file || context.function || context.line != 0)
        ++linesWithPlace;
}

}

void TestLogGroups::linesCarryNoPlace()
{
    QtMessageHandler previous = qInstallMessageHandler(notePlace);
    LogLines::info() << "a";
    LogLines::critical() << "b";
    qInstallMessageHandler(previous);
    QCOMPARE(linesSeen, 2);
    QCOMPARE(linesWithPlace, 0);
}

int main(int argc, char **argv)
{
    TestLogGroups test;
    return runTest(argc, argv, test);
}

#include "test_log_groups.moc"
