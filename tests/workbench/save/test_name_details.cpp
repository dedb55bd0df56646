#include "bridge/page/GUI_WebView.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/save/support/SaveVisit.h"
#include "workbench/save/SavePreview.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace PageHand;

namespace {

const QString Ids = QStringLiteral("export/filenameadddetails");

/// The first of the cameras is "Left" and of the device "Cam", with one head. Exports have items of
/// information in their names.
struct DetailVisit : SaveVisit
{
    explicit DetailVisit(const QString &ids = QString())
    {
        host.camera(1)->state().cameraName = "Left";
        host.camera(1)->state().deviceName = "Cam";
        set("export/filenameadddetail", true);
        set(Ids, ids);
    }

    bool open(const std::function<void(QDialog &, GUI_WebView *)> &body)
    {
        return SaveVisit::open("exportdialog", body);
    }

    QString ids() { return setting(Ids).toString(); }
};

QJsonArray listed(SavePreview &preview)
{
    return QJsonDocument::fromJson(preview.nameDetails().toUtf8()).array();
}

QStringList idsOf(const QJsonArray &items)
{
    QStringList ids;
    for (const QJsonValue &item : items)
        ids.append(item["id"].toString());
    return ids;
}

// The rows that are chosen, "Label=place", in the order of the list.
QStringList chosen(GUI_WebView *view)
{
    return read(view, "Array.from(document.querySelectorAll("
                      "    '#fileDetailList [aria-selected=true]')).map(function (row) {"
                      "        return Array.from(row.children).map(function (each) {"
                      "            return each.textContent;"
                      "        }).join('=');"
                      "    })")
        .toStringList();
}

// Goes down to a row of the list that has the focus.
bool goDownTo(GUI_WebView *view, const QString &id)
{
    const QString isThere = "document.activeElement.id === '" + id + "'";
    for (int i = count(view, "#fileDetailList li"); i > 0 && !read(view, isThere).toBool(); --i)
        press(view, Qt::Key_Down);
    return read(view, isThere).toBool();
}

}

/// The items of information in the name of a file.
class TestNameDetails : public TestBase
{
    Q_OBJECT

private slots:
    void listsWhatARecordingTells();
    void tellsItemsInTheHostsWords();
    void handsAFailureToTheHost();
    void switchesThemOnAndOff();
    void followsATick();
    void goesByKeys();
    void keepsTheOrderOfTheChoice();
    void takesARangeInTheOrderOfTheList();
    void keepsWhatItDoesNotKnow();
    void showsTheFirstThatIsChosen_data();
    void showsTheFirstThatIsChosen();
    void joinsThemByAText();
    void storesInItsOwnFamily_data();
    void storesInItsOwnFamily();
    void namesThePartOfThePath();
    void listsThemAgainBehindAFailure();
    void cutsNoText_data();
    void cutsNoText();
};

void TestNameDetails::listsWhatARecordingTells()
{
    StandInHost host;
    SavePreview preview(host);
    const QStringList ids = idsOf(listed(preview));
    QCOMPARE(ids.mid(0, 5),
             QStringList({"Camera name", "File name", "Device", "Head", "PartitionNumber"}));
    for (const char *id : {"FrameRate", "ShutterSpeed", "MaxFrames", "Comment", "Custom", "Date"})
        QVERIFY2(ids.contains(id), id);
    // Of a live picture alone, a line between items, a picture.
    for (const char *id : {"CameraState", "FanStatus", "Battery", "<hr>", "Logo", ""})
        QVERIFY2(!ids.contains(id), id);
    QVERIFY(QSet<QString>(ids.begin(), ids.end()).size() == ids.size());
}

void TestNameDetails::tellsItemsInTheHostsWords()
{
    StandInHost host;
    host.state().infoItemLabels["Head"] = "Kopf";
    SavePreview preview(host);
    const QJsonArray items = listed(preview);
    QCOMPARE(items[3].toObject(), QJsonObject({{"id", "Head"}, {"label", "Kopf"}}));
    QCOMPARE(items[4].toObject(),
             QJsonObject({{"id", "PartitionNumber"}, {"label", "Partition number"}}));
    QCOMPARE(host.commands(), QStringList());
}

void TestNameDetails::handsAFailureToTheHost()
{
    StandInHost host;
    SavePreview preview(host);
    host.failOn("infoItemLabel", 3);
    const LogCapture log;
    QCOMPARE(preview.nameDetails(), QString());
    QCOMPARE(host.handledErrors(), QStringList("infoItemLabel failed"));
    QVERIFY(!preview.nameDetails().isEmpty());
}

void TestNameDetails::switchesThemOnAndOff()
{
    DetailVisit visit("Camera name");
    visit.set("export/filenameadddetail", false);
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownPath(view), QString("Shot"));
        QVERIFY(!isShown(view, "#fileDetailList"));
        QVERIFY(!isEnabled(view, "#fileDetailsConnect"));
        QVERIFY(goTo(view, "fileDetails"));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(shownPath(view), QString("Shot_Left"));
        QCOMPARE(visit.setting("export/filenameadddetail"), QVariant(true));
        QCOMPARE(chosen(view), QStringList("Camera name=1"));
        QVERIFY(isEnabled(view, "#fileDetailsConnect"));
        QVERIFY(click(view, "#fileDetails"));
        QCOMPARE(shownPath(view), QString("Shot"));
        QVERIFY(!isShown(view, "#fileDetailList"));
    }));
    QCOMPARE(visit.setting("export/filenameadddetail"), QVariant(false));
    QCOMPARE(visit.ids(), QString("Camera name"));
}

void TestNameDetails::followsATick()
{
    DetailVisit visit;
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownPath(view), QString("Shot"));
        visit.host.clearJournal();
        QVERIFY(click(view, "#detail-Cameraname"));
        QCOMPARE(shownPath(view), QString("Shot_Left"));
        QCOMPARE(visit.stored(), QStringList("setPrefString(\"" + Ids + "\", \"Camera name\")"));
        QVERIFY(click(view, "#detail-FrameRate"));
        QCOMPARE(shownPath(view), QString("Shot_1000 fps"));
        QCOMPARE(visit.ids(), QString("FrameRate"));
    }));
}

void TestNameDetails::goesByKeys()
{
    DetailVisit visit;
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(goTo(view, "fileDetailsConnect"));
        QVERIFY(press(view, Qt::Key_Tab));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(visit.ids(), QString("Camera name"));
        QVERIFY(goDownTo(view, "detail-Head"));
        QCOMPARE(visit.ids(), QString("Camera name"));
        QVERIFY(press(view, Qt::Key_Space, Qt::ControlModifier));
        QCOMPARE(visit.ids(), QString("Camera name,Head"));
        QCOMPARE(shownPath(view), QString("Shot_Left_1"));
        // The row keeps the focus.
        QVERIFY(press(view, Qt::Key_Space, Qt::ControlModifier));
        QCOMPARE(visit.ids(), QString("Camera name"));
        QVERIFY(press(view, Qt::Key_Home));
        QVERIFY(press(view, Qt::Key_Space, Qt::ControlModifier));
        QCOMPARE(visit.ids(), QString());
        QCOMPARE(shownPath(view), QString("Shot"));
    }));
}

void TestNameDetails::keepsTheOrderOfTheChoice()
{
    DetailVisit visit;
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#detail-Head"));
        QVERIFY(press(view, Qt::Key_Up));
        QVERIFY(press(view, Qt::Key_Space, Qt::ControlModifier));
        QVERIFY(press(view, Qt::Key_Home));
        QVERIFY(press(view, Qt::Key_Space, Qt::ControlModifier));
        QCOMPARE(visit.ids(), QString("Head,Device,Camera name"));
        QCOMPARE(shownPath(view), QString("Shot_1_Cam_Left"));
        QCOMPARE(chosen(view), QStringList({"Camera name=3", "Device name=2", "Head number=1"}));
        QVERIFY(goDownTo(view, "detail-Device"));
        QVERIFY(press(view, Qt::Key_Space, Qt::ControlModifier));
        QCOMPARE(visit.ids(), QString("Head,Camera name"));
        QCOMPARE(chosen(view), QStringList({"Camera name=2", "Head number=1"}));
    }));
}

void TestNameDetails::takesARangeInTheOrderOfTheList()
{
    DetailVisit visit("Head");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#detail-Head"));
        QVERIFY(press(view, Qt::Key_Home, Qt::ShiftModifier));
        QCOMPARE(visit.ids(), QString("Head,Camera name,File name,Device"));
    }));
}

void TestNameDetails::keepsWhatItDoesNotKnow()
{
    DetailVisit visit("Weather,Head,Moon");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(text(view, "#fileDetailHint").endsWith("Not in the list, and kept: Weather, Moon"));
        QCOMPARE(chosen(view), QStringList("Head number=2"));
        QVERIFY(click(view, "#detail-Device"));
        QCOMPARE(visit.ids(), QString("Weather,Moon,Device"));
        QCOMPARE(shownPath(view), QString("Shot_Cam"));
        QVERIFY(press(view, Qt::Key_Space, Qt::ControlModifier));
        QCOMPARE(visit.ids(), QString("Weather,Moon"));
    }));
    visit.set(Ids, "Head");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(!text(view, "#fileDetailHint").contains("kept"));
    }));
}

void TestNameDetails::showsTheFirstThatIsChosen_data()
{
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("scrolls");
    QTest::newRow("in sight") << "Head"
                              << "detail-Head" << false;
    QTest::newRow("below") << "Custom,Comment"
                           << "detail-Comment" << true;
}

void TestNameDetails::showsTheFirstThatIsChosen()
{
    QFETCH(QString, ids);
    QFETCH(QString, row);
    QFETCH(bool, scrolls);
    DetailVisit visit(ids);
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(read(view, "document.getElementById('fileDetailList').scrollTop > 0").toBool(),
                 scrolls);
        QVERIFY(read(view, "(function (list, row) {"
                           "    var place = list.getBoundingClientRect();"
                           "    var box = row.getBoundingClientRect();"
                           "    return box.top >= place.top && box.bottom <= place.bottom;"
                           "})(document.getElementById('fileDetailList'),"
                           "   document.getElementById('" +
                               row + "'))")
                    .toBool());
    }));
}

void TestNameDetails::joinsThemByAText()
{
    DetailVisit visit("Camera name,Head");
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownPath(view), QString("Shot_Left_1"));
        QVERIFY(typeInto(view, "fileDetailsConnect", "-x-"));
        QVERIFY(waitForPath(view, "Shot_Left-x-1"));
        QCOMPARE(visit.setting("export/filenameadddetailsconnect"), QVariant("-x-"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(shownPath(view), QString("Shot_Left-x-1"));
    }));
}

void TestNameDetails::storesInItsOwnFamily_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("family");
    QTest::newRow("convert") << "batchconverter"
                             << "convert";
    QTest::newRow("snap") << "snapshotdialog"
                          << "snap";
    QTest::newRow("report") << "reportExportDialog"
                            << "report";
    QTest::newRow("layout") << "layoutsavedialog"
                            << "layout";
    QTest::newRow("automatic conversion") << "convertparametereditdialog"
                                          << "convert";
}

void TestNameDetails::storesInItsOwnFamily()
{
    QFETCH(QString, page);
    QFETCH(QString, family);
    SaveVisit visit;
    visit.host.camera(1)->state().cameraName = "Left";
    visit.host.camera(2)->state().cameraName = "Left";
    visit.set(family + "/filename", "Mine");
    visit.set(family + "/filenameadddetail", false);
    visit.set(family + "/filenameadddetails", "");
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#fileDetails"));
        QVERIFY(click(view, "#detail-Cameraname"));
        QCOMPARE(shownPath(view), QString("Mine_Left"));
    }));
    QCOMPARE(visit.stored(), QStringList({"setPrefBool(\"" + family + "/filenameadddetail\", true)",
                                          "setPrefString(\"" + family +
                                              "/filenameadddetails\", \"Camera name\")"}));
}

// What a document adds is named for what it is.
void TestNameDetails::namesThePartOfThePath()
{
    DetailVisit visit;
    visit.numberFiles();
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownParts(view), QString("file=Shot fileNumber=S0001"));
        QCOMPARE(text(view, "#legend .fileNumber"), QString("Number"));
        QVERIFY(click(view, "#detail-Cameraname"));
        QCOMPARE(shownParts(view), QString("file=Shot fileNumber=S0001_Left"));
        QCOMPARE(text(view, "#legend .fileNumber"), QString("Additions"));
    }));
}

void TestNameDetails::listsThemAgainBehindAFailure()
{
    DetailVisit visit("Head");
    visit.set("export/filenameadddetail", false);
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        visit.host.failOn("infoItemLabel", 0);
        QVERIFY(click(view, "#fileDetails"));
        QCOMPARE(text(view, "#fileDetailState"),
                 QString("The items of information could not be listed."));
        QVERIFY(!isShown(view, "#fileDetailList"));
        QVERIFY(!isShown(view, "#fileDetailHint"));
        QCOMPARE(shownPath(view), QString("Shot_1"));
        visit.host.clearFaults();
        QVERIFY(click(view, "#fileDetails"));
        QVERIFY(click(view, "#fileDetails"));
        QVERIFY(!isShown(view, "#fileDetailState"));
        QCOMPARE(chosen(view), QStringList("Head number=1"));
    }));
    QStringList errors = visit.host.handledErrors();
    errors.removeDuplicates();
    QCOMPARE(errors, QStringList("infoItemLabel failed"));
    QCOMPARE(visit.ids(), QString("Head"));
}

void TestNameDetails::cutsNoText_data()
{
    QTest::addColumn<QString>("page");
    for (const char *page : {"exportdialog", "reportExportDialog", "convertparametereditdialog"})
        QTest::newRow(page) << page;
}

void TestNameDetails::cutsNoText()
{
    QFETCH(QString, page);
    SaveVisit visit;
    visit.set("export/filenameadddetail", true);
    visit.set("convert/filenameadddetail", true);
    visit.set("report/filenameadddetails", QString("Weather in words,").repeated(20));
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(isShown(view, "#fileDetailList"));
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(read(view, "document.getElementById('right').scrollWidth <= "
                           "document.getElementById('right').clientWidth")
                    .toBool());
    }));
}

int main(int argc, char **argv)
{
    TestNameDetails test;
    return runTest(argc, argv, test);
}

#include "test_name_details.moc"
