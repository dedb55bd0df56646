#include "record/info/XmlText.h"
#include "tests/support/TestLog.h"

// What no XML 1.0 document can hold is replaced; everything else stays.

class TestXmlText : public TestBase
{
    Q_OBJECT

private slots:
    void replacesWhatXmlCannotHold_data();
    void replacesWhatXmlCannotHold();
    void keepsEveryOtherUnit();
    void replacesEachUnitOnce();
};

void TestXmlText::replacesWhatXmlCannotHold_data()
{
    const QChar bad(0xFFFD);
    const QString pair = QString::fromUcs4(U"\U0001F4F7");
    const QChar high = pair.at(0);
    const QChar low = pair.at(1);
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("storable");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("plain") << "Shot 12"
                           << "Shot 12";
    QTest::newRow("markup") << "<a b=\"c\">&amp;'"
                            << "<a b=\"c\">&amp;'";
    QTest::newRow("tab and line ends") << "\ta\r\nb\n"
                                       << "\ta\r\nb\n";
    QTest::newRow("null") << "a" + QString(QChar(0)) + "b"
                          << "a" + QString(bad) + "b";
    QTest::newRow("pair") << pair + "x" << pair + "x";
    QTest::newRow("highest character")
        << QString::fromUcs4(U"\U0010FFFF") << QString::fromUcs4(U"\U0010FFFF");
    QTest::newRow("first half at the end") << "a" + QString(high) << "a" + QString(bad);
    QTest::newRow("first half before a letter")
        << QString(high) + "a" + low << QString(bad) + "a" + bad;
    QTest::newRow("first half twice") << QString(high) + pair << QString(bad) + pair;
    QTest::newRow("second half first") << QString(low) + high << QString(bad) + bad;
    QTest::newRow("second half behind a pair") << pair + low << pair + bad;
}

void TestXmlText::replacesWhatXmlCannotHold()
{
    QFETCH(QString, text);
    QFETCH(QString, storable);
    QCOMPARE(XmlText::storable(text), storable);
}

// The production Char: #x9 | #xA | #xD | [#x20-#xD7FF] | [#xE000-#xFFFD], and pairs above.
void TestXmlText::keepsEveryOtherUnit()
{
    for (uint unit = 0; unit <= 0xFFFF; ++unit) {
        const bool isCharacter = unit == 0x9 || unit == 0xA || unit == 0xD ||
                                 (unit >= 0x20 && unit <= 0xD7FF) ||
                                 (unit >= 0xE000 && unit <= 0xFFFD);
        const QString text(1, QChar(ushort(unit)));
        const QString expected = isCharacter ? text : QString(1, QChar(0xFFFD));
        if (XmlText::storable(text) != expected)
            QFAIL(qPrintable(QString::number(unit, 16)));
    }
}

void TestXmlText::replacesEachUnitOnce()
{
    const QString text(3, QChar(1));
    QCOMPARE(XmlText::storable(text), QString(3, QChar(0xFFFD)));
    QCOMPARE(text, QString(3, QChar(1)));
}

int main(int argc, char *argv[])
{
    TestXmlText test;
    return runTest(argc, argv, test);
}

#include "test_xml_text.moc"
