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
    QTest::newRow("text of a page") << group("value", QVariant("a")) << "[value:a] ";
    QTest::newRow("number of a page") << group("value", QVariant(12.5)) << "[value:12.5] ";
    QTest::newRow("bool of a page") << group("value", QVariant(true)) << "[value:true] ";
    QTest::newRow("value without a text") << group("value", QVariant()) << "[value:] ";
    QTest::newRow("list of a page")
        << group("ids", QVariantList({1, "b", QVariantList({true})})) << "[ids:[1,\"b\",[true]]] ";
    QTest::newRow("texts") << group("names", QStringList({"a", "b"})) << "[names:[\"a\",\"b\"]] ";
    QTest::newRow("numbers") << group("ids", QList<int>({3, 4})) << "[ids:[3,4]] ";
    QTest::newRow("keys of 64 bits")
        << group("keys", QList<quint64>({~quint64(0)})) << "[keys:[\"18446744073709551615\"]] ";
    QTest::newRow("no values") << group("ids", QList<int>()) << "[ids:[]] ";
    QTest::newRow("map") << group("custom", QVariantMap({{"name", "a"}, {"use", false}}))
                         << "[custom:{\"name\":\"a\",\"use\":false}] ";
    QTest::newRow("password in a map")
        << group("drive", QVariantMap({{"no", 1}, {"oldPass", "abc"}}))
        << "[drive:{\"no\":1,\"oldPass\":\"***\"}] ";
    QTest::newRow("password deep inside")
        << group("drives", QVariantList({QVariantMap({{"password", "abc"}})}))
        << "[drives:[{\"password\":\"***\"}]] ";
    QTest::newRow("map under the name of a password")
        << group("password", QVariantMap({{"value", "abc"}})) << "[password:***] ";
    QTest::newRow("no values under the name of a password")
        << group("passwords", QVariantMap()) << "[passwords:{}] ";
    QTest::newRow("password of a page") << group("pass", QVariant("abc")) << "[pass:***] ";
    QTest::newRow("passwords of a page")
        << group("passwords", QStringList({"abc", "def"})) << "[passwords:***] ";
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
    QTest::newRow("passwd") << "passwd" << true;
    QTest::newRow("passphrase") << "passphrase" << true;
    QTest::newRow("passcode") << "passcode" << true;
    QTest::newRow("passwords") << "passwords" << true;
    QTest::newRow("change in front") << "changepass" << true;
    QTest::newRow("confirm in front") << "confirmpassword" << true;
    QTest::newRow("old in front") << "oldpasswd" << true;
    QTest::newRow("new in front, capitals") << "NEWPASSCODE" << true;
    QTest::newRow("capital in a row of capitals") << "KVPassword" << true;
    QTest::newRow("capitals before a word") << "PASSWORDText" << true;
    QTest::newRow("capitals behind a small letter") << "userPASSWORD" << true;
    QTest::newRow("capitals behind one small letter") << "KvPASSWORD" << true;
    QTest::newRow("beside a digit") << "1pass2" << true;
    QTest::newRow("last of three words") << "a.b-pass" << true;
    QTest::newRow("compass") << "compass" << false;
    QTest::newRow("bypass") << "bypass" << false;
    QTest::newRow("passage") << "passage" << false;
    QTest::newRow("other word in front") << "lowpass" << false;
    QTest::newRow("two words that make one") << "pas_s" << false;
    QTest::newRow("front alone") << "confirm" << false;
    QTest::newRow("two fronts") << "oldnewpass" << false;
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
