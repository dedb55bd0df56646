#include "save/path/PathText.h"
#include "tests/support/TestLog.h"

// Small changes of texts that become parts of a path.
class TestPathText : public TestBase
{
    Q_OBJECT

private slots:
    void invalidCharactersAreReplaced_data();
    void invalidCharactersAreReplaced();
    void replacementMayBeAnyText_data();
    void replacementMayBeAnyText();
    void bracketsBecomeRound();
    void slashEndsATextOnce_data();
    void slashEndsATextOnce();
    void partsAreJoined_data();
    void partsAreJoined();
    void formatsOfMovies_data();
    void formatsOfMovies();
};

void TestPathText::invalidCharactersAreReplaced_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("replaced");
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("ordinary") << "Shot 1-2_3.avi [x] (y) 'z' #&$;="
                              << "Shot 1-2_3.avi [x] (y) 'z' #&$;=";
    QTest::newRow("back slash") << "a\\b"
                                << "a_b";
    QTest::newRow("slash") << "a/b"
                           << "a_b";
    QTest::newRow("colon") << "a:b"
                           << "a_b";
    QTest::newRow("star") << "a*b"
                          << "a_b";
    QTest::newRow("question mark") << "a?b"
                                   << "a_b";
    QTest::newRow("double quote") << "a\"b"
                                  << "a_b";
    QTest::newRow("less") << "a<b"
                          << "a_b";
    QTest::newRow("greater") << "a>b"
                             << "a_b";
    QTest::newRow("bar") << "a|b"
                         << "a_b";
    QTest::newRow("percent") << "a%1"
                             << "a_1";
    QTest::newRow("all, repeated") << "\\/:*?\"<>|%%"
                                   << "___________";
    QTest::newRow("tab stays") << "a\tb"
                               << "a\tb";
    QTest::newRow("line feed stays") << "a\nb"
                                     << "a\nb";
    QTest::newRow("beside a tab") << "a\tb:c"
                                  << "a\tb_c";
    QTest::newRow("point") << "."
                           << "_";
    QTest::newRow("two points") << ".."
                                << "__";
    QTest::newRow("three points") << "..."
                                  << "...";
    QTest::newRow("point in front") << ".a"
                                    << ".a";
    QTest::newRow("letters of all planes")
        << QString::fromUtf8("\xC3\x9F\xC4\xB0\xF0\x90\x90\x80/")
        << QString::fromUtf8("\xC3\x9F\xC4\xB0\xF0\x90\x90\x80_");
}

void TestPathText::invalidCharactersAreReplaced()
{
    QFETCH(QString, text);
    QTEST(PathText::replaceInvalidChars(text, QStringLiteral("_")), "replaced");
}

void TestPathText::replacementMayBeAnyText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<QString>("replaced");
    QTest::newRow("nothing") << "a:b/c"
                             << ""
                             << "abc";
    QTest::newRow("several letters") << "a:b"
                                     << "--"
                                     << "a--b";
    QTest::newRow("replaced behind it") << "a\\b"
                                        << ":"
                                        << "a:b";
    QTest::newRow("points from it") << ":"
                                    << "."
                                    << ".";
    QTest::newRow("points by it") << ".."
                                  << "ab"
                                  << "abab";
}

void TestPathText::replacementMayBeAnyText()
{
    QFETCH(QString, text);
    QFETCH(QString, replacement);
    QTEST(PathText::replaceInvalidChars(text, replacement), "replaced");
}

void TestPathText::bracketsBecomeRound()
{
    QCOMPARE(PathText::bracketsToParens(QStringLiteral("[a][[b]]{c}(d)")),
             QString("(a)((b)){c}(d)"));
    QCOMPARE(PathText::bracketsToParens(QString()), QString());
}

void TestPathText::slashEndsATextOnce_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("ended");
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("without") << "D:/data"
                             << "D:/data/";
    QTest::newRow("with") << "D:/data/"
                          << "D:/data/";
    QTest::newRow("root") << "/"
                          << "/";
    QTest::newRow("back slash") << "D:\\data\\"
                                << "D:\\data\\/";
}

void TestPathText::slashEndsATextOnce()
{
    QFETCH(QString, text);
    PathText::ensureTrailingSlash(text);
    QTEST(text, "ended");
}

void TestPathText::partsAreJoined_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("joined");
    QTest::newRow("both") << "Shot"
                          << "S0001"
                          << "Shot_S0001";
    QTest::newRow("no name") << ""
                             << "S0001"
                             << "S0001";
    QTest::newRow("no part") << "Shot"
                             << ""
                             << "Shot";
    QTest::newRow("neither") << ""
                             << ""
                             << "";
    QTest::newRow("marks of arguments") << "%1"
                                        << "%2"
                                        << "%1_%2";
}

void TestPathText::partsAreJoined()
{
    QFETCH(QString, name);
    QFETCH(QString, part);
    QTEST(PathText::joined(name, part), "joined");
}

void TestPathText::formatsOfMovies_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("strict");
    QTest::addColumn<bool>("loose");
    for (const char *name : {"Avi", "Mov", "Wmv", "Mp4", "AVI", "mov", "wMV", "MP4"})
        QTest::newRow(name) << QString(name) << true << true;
    for (const char *name : {"Mraw", "Graw", "MRAW", "graw"})
        QTest::newRow(name) << QString(name) << false << true;
    for (const char *name :
         {"Bmp", "Tiff", "Tiff (Multi-Page)", "Jpeg", "Png", "Raww", "", "Av", "Avi ", ".avi"})
        QTest::newRow(qPrintable(QStringLiteral("\"%1\"").arg(name)))
            << QString(name) << false << false;
}

void TestPathText::formatsOfMovies()
{
    QFETCH(QString, format);
    QTEST(PathText::isMovieFormatName(format, true), "strict");
    QTEST(PathText::isMovieFormatName(format, false), "loose");
}

int main(int argc, char *argv[])
{
    TestPathText test;
    return runTest(argc, argv, test);
}

#include "test_path_text.moc"
