#include "record/display/InfoItemList.h"
#include "tests/support/TestLog.h"

// The lists of information items: from their setting to the page and back.

using Target = std::optional<InfoItem::Target>;

class TestInfoItemList : public TestBase
{
    Q_OBJECT

private slots:
    void targetIsTheFormOrTheMode_data();
    void targetIsTheFormOrTheMode();
    void itemIsEnabledWhereItIsOffered_data();
    void itemIsEnabledWhereItIsOffered();
    void nothingIsEnabledInAnUnknownMode();
    void entriesAreRead_data();
    void entriesAreRead();
    void lineIsWritten_data();
    void lineIsWritten();
    void linksStandBehindTheirItems_data();
    void linksStandBehindTheirItems();
    void otherItemsHaveNoLink();
    void itemBetweenLinesGivesThreeLines();
    void settingIsWrittenBack_data();
    void settingIsWrittenBack();
    void tickIsChanged_data();
    void tickIsChanged();
    void orderIsChanged_data();
    void orderIsChanged();
    void orderAndTicksFollowEachOther();
    void groupsHaveTheirLists();
    void ticksAreThoseOfTheGroupReadLast();
    void readingAgainForgetsOrderAndTicks();
    void unknownGroupHoldsNothing_data();
    void unknownGroupHoldsNothing();
};

namespace {

const QString Label = QStringLiteral("Text");
const QString Edit = QStringLiteral("edit...");

QString linesOf(const InfoItemList &list, const Target &target)
{
    QString lines;
    for (const InfoItemList::Entry &entry : list.entries(0, target))
        lines += InfoItemList::html(entry, target == InfoItem::SaveForm, Label, Edit);
    return lines;
}

// "A" ticked, "B" not, "(C)" not enabled, "-" a line.
QString shape(const QVector<InfoItemList::Entry> &entries)
{
    QStringList shapes;
    for (const InfoItemList::Entry &entry : entries) {
        if (entry.isSeparator)
            shapes.append(QStringLiteral("-"));
        else
            shapes.append((entry.isChecked ? "+" : "") +
                          (entry.isEnabled ? entry.id : "(" + entry.id + ")"));
    }
    return shapes.join(' ');
}

}

Q_DECLARE_METATYPE(Target)
Q_DECLARE_METATYPE(InfoItemList::Entry)

void TestInfoItemList::targetIsTheFormOrTheMode_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<int>("mode");
    QTest::addColumn<Target>("target");
    QTest::newRow("live") << false << 0 << Target(InfoItem::Live);
    QTest::newRow("memory") << false << 1 << Target(InfoItem::Memory);
    QTest::newRow("file") << false << 2 << Target(InfoItem::File);
    QTest::newRow("above the modes") << false << 3 << Target();
    QTest::newRow("below the modes") << false << -1 << Target();
    QTest::newRow("save form") << true << 0 << Target(InfoItem::SaveForm);
    QTest::newRow("save form in any mode") << true << 7 << Target(InfoItem::SaveForm);
}

void TestInfoItemList::targetIsTheFormOrTheMode()
{
    QFETCH(bool, saveForm);
    QFETCH(int, mode);
    QFETCH(Target, target);
    QVERIFY(InfoItemList::target(saveForm, mode) == target);
}

void TestInfoItemList::itemIsEnabledWhereItIsOffered_data()
{
    QTest::addColumn<Target>("target");
    QTest::addColumn<QString>("shape");
    QTest::newRow("live") << Target(InfoItem::Live)
                          << "CameraState (File name) (Device) (FrameNumber) Comment";
    QTest::newRow("memory") << Target(InfoItem::Memory)
                            << "(CameraState) (File name) (Device) FrameNumber Comment";
    QTest::newRow("file") << Target(InfoItem::File)
                          << "(CameraState) (File name) Device FrameNumber Comment";
    QTest::newRow("save form") << Target(InfoItem::SaveForm)
                               << "(CameraState) File name Device FrameNumber Comment";
}

void TestInfoItemList::itemIsEnabledWhereItIsOffered()
{
    QFETCH(Target, target);
    InfoItemList list;
    list.read(0, QStringLiteral("CameraState:,File name:,Device:,FrameNumber:,Comment:"));
    QTEST(shape(list.entries(0, target)), "shape");
}

void TestInfoItemList::nothingIsEnabledInAnUnknownMode()
{
    InfoItemList list;
    QStringList ids;
    for (const InfoItem &item : infoItems)
        ids.append(item.key + ":true");
    list.read(0, ids.join(','));
    const auto entries = list.entries(0, Target());
    QCOMPARE(entries.size(), 55);
    for (const InfoItemList::Entry &entry : entries)
        QVERIFY2(!entry.isEnabled, qPrintable(entry.id));
}

void TestInfoItemList::entriesAreRead_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("shape");
    QTest::newRow("items and a line") << "FrameNumber:true,<hr>,Date:false"
                                      << "+FrameNumber - Date";
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("line alone") << "<hr>"
                                << "-";
    QTest::newRow("state of other words") << "Date:True,Time:1,Length:,LUT:true "
                                          << "Date Time (Length) (LUT)";
    QTest::newRow("without a state") << "Date,Time:true"
                                     << "+Time";
    QTest::newRow("empty parts") << ",Date:true,,"
                                 << "+Date";
    QTest::newRow("further parts") << "Date:true:false"
                                   << "+Date";
    QTest::newRow("unknown id") << "Wind:true"
                                << "+(Wind)";
    QTest::newRow("no id") << ":true"
                           << "+()";
    QTest::newRow("line with a state") << "<hr>:true"
                                       << "+(<hr>)";
    QTest::newRow("id of other letters") << "date:true"
                                         << "+(date)";
    QTest::newRow("twice") << "Date:true,Date:false"
                           << "+Date Date";
}

void TestInfoItemList::entriesAreRead()
{
    QFETCH(QString, setting);
    InfoItemList list;
    QVERIFY(!list.isRead(0));
    list.read(0, setting);
    QVERIFY(list.isRead(0));
    QTEST(shape(list.entries(0, InfoItem::SaveForm)), "shape");
}

void TestInfoItemList::lineIsWritten_data()
{
    using Entry = InfoItemList::Entry;
    QTest::addColumn<Entry>("entry");
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QString>("html");
    QTest::newRow("item") << Entry{false, "Date", false, true} << false
                          << "<li><input type='checkbox' id='Date' >"
                             "<label for='Date'>Text</label></li>";
    QTest::newRow("ticked") << Entry{false, "Date", true, true} << false
                            << "<li><input type='checkbox' id='Date' checked='checked'>"
                               "<label for='Date'>Text</label></li>";
    QTest::newRow("disabled") << Entry{false, "Date", false, false} << false
                              << "<li><input type='checkbox' id='Date'  disabled='disabled'>"
                                 "<label for='Date'>Text</label></li>";
    QTest::newRow("ticked and disabled")
        << Entry{false, "Date", true, false} << true
        << "<li><input type='checkbox' id='Date' checked='checked' disabled='disabled'>"
           "<label for='Date'>Text</label></li>";
    QTest::newRow("with a link")
        << Entry{false, "Logo", false, true} << true
        << "<li><input type='checkbox' id='Logo' ><label for='Logo'>Text</label>"
           "<a href='#' name='editinfo_edit' id='select_logo' class='float-right localize'>"
           "edit...</a></li>";
    QTest::newRow("line of the editor") << Entry{true, "", false, false} << false << "<hr>";
    QTest::newRow("line of the save form")
        << Entry{true, "", false, false} << true << "<hr class='unsortable'>";
}

void TestInfoItemList::lineIsWritten()
{
    QFETCH(InfoItemList::Entry, entry);
    QFETCH(bool, saveForm);
    QTEST(InfoItemList::html(entry, saveForm, Label, Edit), "html");
}

void TestInfoItemList::linksStandBehindTheirItems_data()
{
    QTest::addColumn<QString>("link");
    const auto row = [](const char *id, const char *link) { QTest::newRow(id) << link; };
    row("Comment", "<a href='#' name='editinfo_edit' id='edit_comment' "
                   "class='float-right localize'>");
    row("Custom", "<a href='#' name='editinfo_edit' id='edit_custom' "
                  "class='float-right localize'>");
    row("Logo", "<a href='#' name='editinfo_edit' id='select_logo' "
                "class='float-right localize'>");
    row("TimeIrigCode", "<a href='#' name='editinfo_edit' id='time_code' "
                        "class='custom_timecode float-right'>");
    row("TimeCode", "<a href='#' name='editinfo_edit' id='time_code' "
                    "class='custom_timecode float-right'>");
    row("ShutterSpeed", "<a href='#' name='editinfo_edit' id='edit_shutter' "
                        "class='float-right localize'>");
    row("Length", "<a href='#' name='editinfo_edit' id='edit_rectime' "
                  "class='float-right localize'>");
    row("FrameRate", "<a href='#' name='editinfo_edit' id='edit_recordrate' "
                     "class='float-right localize'>");
    row("FrameNumber", "<a href='#' name='editinfo_edit' id='edit_frame' "
                       "class='float-right localize'>");
    row("MaxFrames", "<a href='#' name='editinfo_edit' id='edit_frame' "
                     "class='float-right localize'>");
}

void TestInfoItemList::linksStandBehindTheirItems()
{
    QFETCH(QString, link);
    const QString id = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(InfoItemList::hasLink(id));
    const QString html = InfoItemList::html({false, id, false, true}, false, Label, Edit);
    QCOMPARE(html, "<li><input type='checkbox' id='" + id + "' ><label for='" + id +
                       "'>Text</label>" + link + "edit...</a></li>");
}

void TestInfoItemList::otherItemsHaveNoLink()
{
    QStringList linked;
    for (const InfoItem &item : infoItems) {
        if (InfoItemList::hasLink(item.key))
            linked.append(item.key);
    }
    QCOMPARE(linked.size(), 10);
    QVERIFY(!InfoItemList::hasLink(QStringLiteral("comment")));
    QVERIFY(!InfoItemList::hasLink(QString()));
}

void TestInfoItemList::itemBetweenLinesGivesThreeLines()
{
    InfoItemList list;
    list.read(0, QStringLiteral("Date:true,<hr>,Wind:false"));
    const QString first = QStringLiteral("<li><input type='checkbox' id='Date' checked='checked'>"
                                         "<label for='Date'>Text</label></li>");
    const QString last = QStringLiteral("<li><input type='checkbox' id='Wind'  disabled='disabled'>"
                                        "<label for='Wind'>Text</label></li>");
    QCOMPARE(linesOf(list, InfoItem::SaveForm), first + "<hr class='unsortable'>" + last);
}

void TestInfoItemList::settingIsWrittenBack_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("written");
    const auto same = [](const char *name, const char *setting) {
        QTest::newRow(name) << setting << setting;
    };
    same("items and a line", "FrameNumber:true,<hr>,Date:false");
    same("nothing", "");
    same("lines", "<hr>,<hr>");
    same("state of other words", "Date:True,Time:");
    same("unknown id", "Wind:true");
    QTest::newRow("broken entry") << "Date,Time:true,,Length:false"
                                  << "Time:true,Length:false";
    QTest::newRow("further parts") << "Date:true:false"
                                   << "Date:true";
    QTest::newRow("twice") << "Date:true,Date:false"
                           << "Date:false,Date:false";
}

void TestInfoItemList::settingIsWrittenBack()
{
    QFETCH(QString, setting);
    InfoItemList list;
    list.read(0, setting);
    QTEST(list.setting(0), "written");
}

void TestInfoItemList::tickIsChanged_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QString>("written");
    QTest::newRow("set") << "Date" << true << "FrameNumber:true,<hr>,Date:true";
    QTest::newRow("cleared") << "FrameNumber" << false << "FrameNumber:false,<hr>,Date:false";
    QTest::newRow("as it was") << "FrameNumber" << true << "FrameNumber:true,<hr>,Date:false";
    QTest::newRow("not in the list") << "Wind" << true << "FrameNumber:true,<hr>,Date:false";
}

void TestInfoItemList::tickIsChanged()
{
    QFETCH(QString, id);
    QFETCH(bool, checked);
    InfoItemList list;
    list.read(0, QStringLiteral("FrameNumber:true,<hr>,Date:false"));
    list.setChecked(id, checked);
    QTEST(list.setting(0), "written");
}

void TestInfoItemList::orderIsChanged_data()
{
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("written");
    QTest::newRow("turned round") << "Date,HR,FrameNumber"
                                  << "Date:false,<hr>,FrameNumber:true";
    QTest::newRow("line moved") << "HR,FrameNumber,Date"
                                << "<hr>,FrameNumber:true,Date:false";
    QTest::newRow("one left out") << "Date"
                                  << "Date:false";
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("empty parts") << ",Date,,HR,"
                                 << "Date:false,<hr>";
    QTest::newRow("one without a tick") << "Wind,Date"
                                        << "Wind:,Date:false";
    QTest::newRow("line of a setting") << "Date,<hr>"
                                       << "Date:false,<hr>:";
}

void TestInfoItemList::orderIsChanged()
{
    QFETCH(QString, ids);
    InfoItemList list;
    list.read(0, QStringLiteral("FrameNumber:true,<hr>,Date:false"));
    list.setOrder(0, ids);
    QTEST(list.setting(0), "written");
}

void TestInfoItemList::orderAndTicksFollowEachOther()
{
    InfoItemList list;
    list.read(0, QStringLiteral("FrameNumber:true,Date:false"));
    list.setOrder(0, QStringLiteral("Date,FrameNumber"));
    list.setChecked(QStringLiteral("Date"), true);
    list.setChecked(QStringLiteral("FrameNumber"), false);
    QCOMPARE(list.setting(0), QStringLiteral("Date:true,FrameNumber:false"));
    list.setOrder(0, QStringLiteral("FrameNumber,Date"));
    QCOMPARE(list.setting(0), QStringLiteral("FrameNumber:false,Date:true"));
}

void TestInfoItemList::groupsHaveTheirLists()
{
    InfoItemList list;
    for (int group = 0; group < 7; ++group)
        list.read(group, QStringLiteral("Item%1:true").arg(group));
    list.setOrder(3, QStringLiteral("HR,Item3"));
    for (int group = 0; group < 7; ++group) {
        const QString item = QStringLiteral("Item%1:true").arg(group);
        QCOMPARE(list.setting(group), group == 3 ? "<hr>," + item : item);
    }
}

void TestInfoItemList::ticksAreThoseOfTheGroupReadLast()
{
    InfoItemList list;
    list.read(0, QStringLiteral("Date:true,Time:true"));
    list.read(1, QStringLiteral("Date:false"));
    QCOMPARE(list.setting(0), QStringLiteral("Date:false,Time:true"));
    QCOMPARE(shape(list.entries(0, InfoItem::SaveForm)), QStringLiteral("+Date +Time"));
    list.read(0, QStringLiteral("Date:true"));
    QCOMPARE(list.setting(1), QStringLiteral("Date:true"));
}

void TestInfoItemList::readingAgainForgetsOrderAndTicks()
{
    InfoItemList list;
    list.read(0, QStringLiteral("Date:true,Time:false"));
    list.setOrder(0, QStringLiteral("Time"));
    list.setChecked(QStringLiteral("Date"), false);
    list.read(0, QStringLiteral("Date:true"));
    QCOMPARE(list.setting(0), QStringLiteral("Date:true"));
    list.setOrder(0, QStringLiteral("Time,Date")); // ticks of what has gone are kept
    QCOMPARE(list.setting(0), QStringLiteral("Time:false,Date:true"));
}

void TestInfoItemList::unknownGroupHoldsNothing_data()
{
    QTest::addColumn<int>("group");
    QTest::newRow("behind the groups") << 7;
    QTest::newRow("before the groups") << -1;
}

void TestInfoItemList::unknownGroupHoldsNothing()
{
    QFETCH(int, group);
    InfoItemList list;
    list.read(group, QStringLiteral("Date:true"));
    list.setOrder(group, QStringLiteral("Date"));
    QVERIFY(!list.isRead(group));
    QCOMPARE(list.setting(group), QString());
    QVERIFY(list.entries(group, InfoItem::SaveForm).isEmpty());
}

int main(int argc, char **argv)
{
    TestInfoItemList test;
    return runTest(argc, argv, test);
}

#include "test_info_item_list.moc"
