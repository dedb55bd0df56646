#include "bridge/data/DocumentRows.h"
#include "tests/support/TestLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// The rows of pages that list documents.

class TestDocumentRows : public TestBase
{
    Q_OBJECT

private slots:
    void withoutRows();
    void rowsAreNumberedFromOne();
    void keysAreDecimalText();
    void lastInitialRowIsSelected();
    void textPassesUnchanged();
};

namespace {

QJsonObject object(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

}

void TestDocumentRows::withoutRows()
{
    QCOMPARE(DocumentRows().text(), QStringLiteral(R"({"InitSelect":0,"Records":[]})"));
}

void TestDocumentRows::rowsAreNumberedFromOne()
{
    DocumentRows rows;
    rows.add(QStringLiteral("left"), false);
    rows.add(QString(), false);
    QCOMPARE(object(rows.text()),
             object(R"({"Records":[{"recid":1,"name":"left"},{"recid":2,"name":""}],)"
                    R"("InitSelect":0})"));
    QVERIFY(!rows.text().contains(QLatin1Char('\n')));
}

void TestDocumentRows::keysAreDecimalText()
{
    DocumentRows rows;
    rows.add(QStringLiteral("left"), true, 18446744073709551614u);
    QCOMPARE(object(rows.text()),
             object(R"({"Records":[{"recid":1,"name":"left","dockey":"18446744073709551614"}],)"
                    R"("InitSelect":1})"));
}

void TestDocumentRows::lastInitialRowIsSelected()
{
    DocumentRows rows;
    for (const bool isInitial : {false, true, true, false})
        rows.add(QStringLiteral("twin"), isInitial);
    QCOMPARE(object(rows.text()).value(QLatin1String("InitSelect")).toInt(), 3);
}

void TestDocumentRows::textPassesUnchanged()
{
    const QString name = QString::fromUtf8("\"<b>\\\n\u2028 \u05d0\u05d1 \U0001f3a5");
    DocumentRows rows;
    rows.add(name, false);
    const QJsonArray records = object(rows.text()).value(QLatin1String("Records")).toArray();
    QCOMPARE(records.at(0).toObject().value(QLatin1String("name")).toString(), name);
}

QTEST_GUILESS_MAIN(TestDocumentRows)
#include "test_document_rows.moc"
