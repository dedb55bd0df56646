#include "tests/support/TestLog.h"
#include "workbench/base/Look.h"
#include "workbench/base/Options.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

class TestOptions : public TestBase
{
    Q_OBJECT

private slots:
    void startsWithTwoCamerasAndNothingElse();
    void takesEveryOption();
    void explainsItself();
    void refusesWhatItDoesNotKnow_data();
    void refusesWhatItDoesNotKnow();
    void takesNoAndSixteenCameras();
    void readsTheStyleInAnyCase();
    void keepsTextReadableInBothLooks_data();
    void keepsTextReadableInBothLooks();
    void givesTheLookToTheApplication();

private:
    QTemporaryDir m_folder;
};

void TestOptions::startsWithTwoCamerasAndNothingElse()
{
    const Options options = Options::parse({"orvix-workbench"});
    QCOMPARE(options.action, Options::Action::Run);
    QCOMPARE(options.cameras, 2);
    QCOMPARE(options.pluginFolder, QString());
    QCOMPARE(options.settingsFile, QString());
    QCOMPARE(options.pagesFolder, QString());
    QCOMPARE(options.networkFile, QString());
    QCOMPARE(options.openFolder, QString());
    QCOMPARE(options.style, QString());
    QCOMPARE(options.tourFolder, QString());
    QCOMPARE(options.walk, QString());
}

void TestOptions::takesEveryOption()
{
    QTemporaryDir dir;
    QFile network(dir.filePath("network.json"));
    QVERIFY(network.open(QIODevice::WriteOnly) && network.write("{}") == 2);
    network.close();
    const Options options =
        Options::parse({"orvix-workbench", "--plugins", "p", "--settings=s.ini", "--cameras", "3",
                        "--open", "pictures", "--style", "Dark", "--tour", "t", "--pages", ".",
                        "--walk", "lock", "--network", network.fileName()});
    QCOMPARE(options.action, Options::Action::Run);
    QCOMPARE(options.cameras, 3);
    QCOMPARE(options.pluginFolder, QString("p"));
    QCOMPARE(options.settingsFile, QString("s.ini"));
    QCOMPARE(options.pagesFolder, QString("."));
    QCOMPARE(options.networkFile, network.fileName());
    QCOMPARE(options.openFolder, QString("pictures"));
    QCOMPARE(options.style, QString("dark"));
    QCOMPARE(options.tourFolder, QString("t"));
    QCOMPARE(options.walk, QString("lock"));
}

void TestOptions::explainsItself()
{
    for (const char *help : {"--help", "-h"}) {
        const Options options = Options::parse({"orvix-workbench", help});
        QCOMPARE(options.action, Options::Action::Help);
        for (const char *option : {"--plugins", "--settings", "--pages", "--network", "--cameras",
                                   "--open", "--style", "--tour", "--walk", "--help"})
            QVERIFY2(options.text.contains(option), option);
    }
}

void TestOptions::refusesWhatItDoesNotKnow_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    const QString noNetwork = m_folder.filePath("words.txt");
    QFile words(noNetwork);
    QVERIFY(words.open(QIODevice::WriteOnly) && words.write("no network") > 0);
    words.close();
    QTest::newRow("unknown option") << QStringList{"--camera"} << "Unknown option 'camera'.";
    QTest::newRow("no value") << QStringList{"--tour"} << "Missing value after '--tour'.";
    QTest::newRow("empty value") << QStringList{"--tour", ""} << "--tour wants a name.";
    QTest::newRow("a word") << QStringList{"pictures"} << "Unexpected argument 'pictures'.";
    QTest::newRow("no number") << QStringList{"--cameras", "two"}
                               << "--cameras wants a number from 0 to 16, not 'two'.";
    QTest::newRow("fewer than none")
        << QStringList{"--cameras", "-1"} << "--cameras wants a number from 0 to 16, not '-1'.";
    QTest::newRow("too many") << QStringList{"--cameras", "17"}
                              << "--cameras wants a number from 0 to 16, not '17'.";
    QTest::newRow("no folder name") << QStringList{"--pages", ""} << "--pages wants a name.";
    QTest::newRow("folder that is not there")
        << QStringList{"--pages", "not/there"}
        << "--pages wants a folder that can be read, not 'not/there'.";
    QTest::newRow("file in place of a folder")
        << QStringList{"--pages", noNetwork}
        << "--pages wants a folder that can be read, not '" + noNetwork + "'.";
    QTest::newRow("network that is not there")
        << QStringList{"--network", "not/there"}
        << "--network cannot read 'not/there': it is no file.";
    QTest::newRow("file that is no network")
        << QStringList{"--network", noNetwork}
        << "--network cannot read '" + noNetwork + "': illegal value.";
    QTest::newRow("style") << QStringList{"--style", "blue"}
                           << "--style wants light or dark, not 'blue'.";
}

void TestOptions::refusesWhatItDoesNotKnow()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    const Options options = Options::parse(QStringList("orvix-workbench") + arguments);
    QCOMPARE(options.action, Options::Action::Error);
    QCOMPARE(options.text, reason + "\nTry --help.\n");
}

void TestOptions::takesNoAndSixteenCameras()
{
    QCOMPARE(Options::parse({"orvix-workbench", "--cameras", "0"}).cameras, 0);
    QCOMPARE(Options::parse({"orvix-workbench", "--cameras", "16"}).cameras, 16);
}

void TestOptions::readsTheStyleInAnyCase()
{
    QVERIFY(Look::isDark("dark"));
    QVERIFY(Look::isDark("DARK"));
    QVERIFY(!Look::isDark("light"));
    QVERIFY(!Look::isDark("darkish"));
    QVERIFY(!Look::isDark(QString()));
}

void TestOptions::keepsTextReadableInBothLooks_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

// Relative luminance and contrast as the web guidelines define them: 4.5 for text.
void TestOptions::keepsTextReadableInBothLooks()
{
    QFETCH(bool, dark);
    const auto luminance = [](const QColor &color) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const auto contrast = [&](const QColor &a, const QColor &b) {
        const double brighter = qMax(luminance(a), luminance(b));
        return (brighter + 0.05) / (qMin(luminance(a), luminance(b)) + 0.05);
    };
    const QPalette palette = Look::palette(dark);
    const auto ratio = [&](QPalette::ColorRole ink, QPalette::ColorRole ground) {
        return contrast(palette.color(ink), palette.color(ground));
    };
    QVERIFY(ratio(QPalette::WindowText, QPalette::Window) >= 4.5);
    QVERIFY(ratio(QPalette::Text, QPalette::Base) >= 4.5);
    QVERIFY(ratio(QPalette::ButtonText, QPalette::Button) >= 4.5);
    QVERIFY(ratio(QPalette::HighlightedText, QPalette::Highlight) >= 4.5);
    QVERIFY(ratio(QPalette::ToolTipText, QPalette::ToolTipBase) >= 4.5);
    QVERIFY(ratio(QPalette::Link, QPalette::Window) >= 4.5);
    // Dimmed, but still there.
    QVERIFY(contrast(palette.color(QPalette::Disabled, QPalette::ButtonText),
                     palette.color(QPalette::Disabled, QPalette::Button)) >= 2.5);
    QCOMPARE(palette.color(QPalette::Window).lightness() < 128, dark);
}

void TestOptions::givesTheLookToTheApplication()
{
    Look::apply(true);
    QCOMPARE(QApplication::palette(), Look::palette(true));
    Look::apply(false);
    QCOMPARE(QApplication::palette(), Look::palette(false));
}

int main(int argc, char **argv)
{
    TestOptions test;
    return runTest(argc, argv, test);
}

#include "test_options.moc"
