#include "foundation/Json.h"
#include "tests/support/TestLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// Compact text for pages.

class TestJson : public TestBase
{
    Q_OBJECT

private slots:
    void objectIsCompact();
    void arrayIsCompact();
    void charactersStay();
};

void TestJson::objectIsCompact()
{
    QCOMPARE(Json::compactText(QJsonObject({{"a", 1}})), QStringLiteral("{\"a\":1}"));
    QCOMPARE(Json::compactText(QJsonObject({{"a", QJsonArray({true, "b"})}})),
             QStringLiteral("{\"a\":[true,\"b\"]}"));
    QCOMPARE(Json::compactText(QJsonObject()), QStringLiteral("{}"));
}

void TestJson::arrayIsCompact()
{
    QCOMPARE(Json::compactText(QJsonArray({QJsonObject({{"a", ""}}), 2.5})),
             QStringLiteral("[{\"a\":\"\"},2.5]"));
    QCOMPARE(Json::compactText(QJsonArray()), QStringLiteral("[]"));
}

void TestJson::charactersStay()
{
    const QString text = QString::fromUtf8("µ \"b\" \\ \U0001F4F7\n");
    const QString json = Json::compactText(QJsonArray({text}));
    QCOMPARE(json, QString::fromUtf8("[\"µ \\\"b\\\" \\\\ \U0001F4F7\\n\"]"));
    QCOMPARE(QJsonDocument::fromJson(json.toUtf8()).array().first().toString(), text);
}

int main(int argc, char **argv)
{
    TestJson test;
    return runTest(argc, argv, test);
}

#include "test_json.moc"
