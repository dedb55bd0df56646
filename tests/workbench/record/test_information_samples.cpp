#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/pages/InformationSamples.h"
#include "workbench/pages/Pages.h"
#include "workbench/tour/PageHand.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QJsonDocument>

using PageHand::read;

/// The object by which the workbench shows pages what the settings of the information mean.
class TestInformationSamples : public TestBase
{
    Q_OBJECT

private slots:
    void namesTheSubstituteOfAFont();
    void hasNoSubstituteForWhatIsInstalled();
    void listsTheChoices_data();
    void listsTheChoices();
    void writesAsThePicturesDo_data();
    void writesAsThePicturesDo();
    void isOnEachPage();
    void isNotDeletedByAPage();
};

void TestInformationSamples::namesTheSubstituteOfAFont()
{
    StandInHost host;
    const InformationSamples samples(host);
    const QString missing("No Such Family");
    const QString substitute = samples.substituteFont(missing);
    QVERIFY(!substitute.isEmpty());
    QVERIFY(substitute != missing);
    QCOMPARE(substitute, QFontInfo(QFont(missing)).family());
}

void TestInformationSamples::hasNoSubstituteForWhatIsInstalled()
{
    StandInHost host;
    const InformationSamples samples(host);
    const QStringList families = QFontDatabase().families();
    QVERIFY(!families.isEmpty());
    for (const QString &family : families)
        QCOMPARE(samples.substituteFont(family), QString());
    QCOMPARE(samples.substituteFont(QString()), QString());
}

void TestInformationSamples::listsTheChoices_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QString>("choices");
    QTest::newRow("form of the shutter speed")
        << QByteArray("shutterSpeedChoices")
        << R"([{"number":0,"label":"Fraction of a second"},{"number":1,"label":"Exposure time"},)"
           R"({"number":2,"label":"Fraction and exposure time"}])";
    QTest::newRow("unit of the exposure time")
        << QByteArray("shutterSpeedUnitChoices")
        << R"([{"number":0,"label":"Automatic"},{"number":1,"label":"sec"},)"
           R"({"number":2,"label":"msec"},{"number":3,"label":"usec"},)"
           R"({"number":4,"label":"nsec"}])";
    QTest::newRow("unit of the recording time")
        << QByteArray("recordingTimeChoices")
        << R"([{"number":0,"label":"sec"},{"number":1,"label":"msec"},)"
           R"({"number":2,"label":"usec"},{"number":3,"label":"min:sec"},)"
           R"({"number":4,"label":"hour:min:sec"}])";
}

void TestInformationSamples::listsTheChoices()
{
    QFETCH(QByteArray, method);
    QFETCH(QString, choices);
    StandInHost host;
    InformationSamples samples(host);
    QString text;
    QVERIFY(QMetaObject::invokeMethod(&samples, method, Q_RETURN_ARG(QString, text)));
    QCOMPARE(QJsonDocument::fromJson(text.toUtf8()), QJsonDocument::fromJson(choices.toUtf8()));
}

void TestInformationSamples::writesAsThePicturesDo_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *call, const char *text) {
        QTest::newRow(call) << call << text;
    };
    row("shutterSpeed(0, 0, false)", "1/1000 sec");
    row("shutterSpeed(0, 3, true)", "1/1,000 sec");
    row("shutterSpeed(1, 3, true)", "1,000 usec");
    row("shutterSpeed(2, 4, true)", "1/1,000 sec (1,000,000 nsec)");
    row("shutterSpeed(-1, 0, false)", "1/1000 sec");
    row("recordRate(false)", "12500 fps");
    row("recordRate(true)", "12,500 fps");
    row("frame(false)", "1234567");
    row("frame(true)", "1,234,567");
    row("recordingTime(0)", "3725.25 sec");
    row("recordingTime(4)", "01:02:05.250");
    row("recordingTime(99)", "3725.25 sec");
}

void TestInformationSamples::writesAsThePicturesDo()
{
    QFETCH(QString, call);
    StandInHost host;
    const InformationSamples samples(host);
    GUI_WebView view(&host, nullptr);
    host.showMediator(&view, nullptr);
    view.setHtml("<p>x</p>");
    QTEST(read(&view, "informationSamples." + call).toString(), "text");
    QCOMPARE(host.commands(), QStringList());
}

void TestInformationSamples::isOnEachPage()
{
    Pages::registerResources();
    StandInHost host;
    const auto samples = std::make_unique<InformationSamples>(host);
    GUI_WebViewDialog dialog(&host, "About", "qrc:/about.html",
                             new JS_Mediator_Dialog(&host, "about"), nullptr);
    QTRY_COMPARE(read(dialog.webView(), "typeof informationSamples").toString(), QString("object"));
    dialog.webView()->load(QUrl("qrc:/ethernet.html"));
    QTRY_COMPARE(read(dialog.webView(), "document.title").toString(), QString("Ethernet settings"));
    QCOMPARE(read(dialog.webView(), "typeof informationSamples").toString(), QString("object"));
}

void TestInformationSamples::isNotDeletedByAPage()
{
    StandInHost host;
    const InformationSamples samples(host);
    GUI_WebView view(&host, nullptr);
    host.showMediator(&view, nullptr);
    view.setHtml("<p>x</p>");
    read(&view, "informationSamples.deleteLater()");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(read(&view, "informationSamples.frame(true)").toString(), QString("1,234,567"));
}

int main(int argc, char **argv)
{
    TestInformationSamples test;
    return runTest(argc, argv, test);
}

#include "test_information_samples.moc"
