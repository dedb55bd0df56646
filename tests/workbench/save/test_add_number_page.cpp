#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/GUI_WebView.h"
#include "save/dialog/JS_Mediator_SaveFile.h"
#include "save/number/GUI_AddNumberDialog.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/tour/PageHand.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTimer>

using namespace PageHand;

/// The page that sets the digits of a number.
class TestAddNumberPage : public TestBase
{
    Q_OBJECT

private slots:
    void kindDecidesWhatIsSet_data();
    void kindDecidesWhatIsSet();
    void kindWithoutDigitsSaysSo_data();
    void kindWithoutDigitsSaysSo();
    void filesHaveTheSessionOnly_data();
    void filesHaveTheSessionOnly();
    void sampleFollowsEachChange();
    void automaticDigitsFollowTheSelection();
    void ownDigitsAreKeptWhileTheyFollow();
    void tellsWhatTheDigitsMean_data();
    void tellsWhatTheDigitsMean();
    void okWritesWhatWasChanged_data();
    void okWritesWhatWasChanged();
    void okWritesNothingWithoutAChange();
    void everyOtherWayWritesNothing_data();
    void everyOtherWayWritesNothing();
    void escapeLeavesItOpen();
    void isWorkedByTheMouse();
    void digitsThatAreNotOfferedStay();
    void storesAllOrNothing_data();
    void storesAllOrNothing();
    void keepsDigitsThatCannotBeRead_data();
    void keepsDigitsThatCannotBeRead();
    void takesDigitsInPlaceOfThoseThatCannotBeRead();
    void keepsAFormatThatCannotBeRead();
    void bringsBackOnlyWhatCouldBeRead();
    void goesOnWithoutScrolling_data();
    void goesOnWithoutScrolling();
    void keepsWhatTheUserChoseOverARefresh();
    void opensFromAPageThatSaves();
};

namespace {

const char *const FileName = "export/filename";

/// A host with the settings of a level, and its dialog.
struct Visit : PageVisit
{
    /// Opens the dialog as PageVisit does with those of the catalogue.
    bool openKind(int kind, int docs, int heads,
                  const std::function<void(QDialog &, GUI_WebView *)> &body)
    {
        host.clearJournal();
        GUI_AddNumberDialog dialog(&host, nullptr, kind, docs, heads);
        return run(body, [&] { dialog.exec(); });
    }

    bool run(const std::function<void(QDialog &, GUI_WebView *)> &body,
             const std::function<void()> &opening)
    {
        bool visited = false;
        QTimer::singleShot(0, [&] {
            const QPointer<QDialog> dialog =
                qobject_cast<QDialog *>(QApplication::activeModalWidget());
            auto *view = dialog ? dialog->findChild<GUI_WebView *>() : nullptr;
            if (view && QTest::qWaitFor([view] {
                    return read(view, "document.body && document.body.classList.length > 1 && "
                                      "document.readyState === 'complete'")
                        .toBool();
                })) {
                visited = true;
                dialog->activateWindow();
                view->setFocus();
                body(*dialog, view);
            }
            if (dialog && dialog->isVisible())
                dialog->reject();
        });
        opening();
        return visited;
    }

    void set(const QString &level, const QString &format, int camera, int head, int session)
    {
        host.settings().setValue(level + "addnumberformat", format);
        host.settings().setValue(level + "addnumbercameranodigits", camera);
        host.settings().setValue(level + "addnumberheadnodigits", head);
        host.settings().setValue(level + "addnumbersessionnodigits", session);
    }

    /// Which of the calls of getPrefString() asks for this key while the dialog opens, from 1.
    int readOf(const QString &key)
    {
        openKind(2, 12, 1, [](QDialog &, GUI_WebView *) {});
        const QStringList reads = host.journal().filter("getPrefString(");
        for (const QString &read : reads) {
            if (read.contains('"' + key + '"'))
                return reads.indexOf(read) + 1;
        }
        return 0;
    }

    void keep(const QString &level, int camera, int head, int session)
    {
        host.settings().setValue(level + "addnumbermanualcameranodigits", camera);
        host.settings().setValue(level + "addnumbermanualheadnodigits", head);
        host.settings().setValue(level + "addnumbermanualsessionnodigits", session);
    }
};

// Which controls there are, "auto camera head session".
QString shownControls(GUI_WebView *view)
{
    QStringList shown;
    for (const char *id : {"auto", "camera", "head", "session"}) {
        if (isShown(view, '#' + QString(id)))
            shown.append(id);
    }
    return shown.join(' ');
}

QString sample(GUI_WebView *view)
{
    return text(view, "#sample");
}

}

void TestAddNumberPage::kindDecidesWhatIsSet_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("controls");
    QTest::addColumn<QString>("level");
    QTest::addColumn<QString>("number");
    const QString all = "auto camera head session";
    const auto row = [](int kind, const QString &controls, const QString &level,
                        const QString &number) {
        QTest::addRow("%d", kind) << kind << controls << level << number;
    };
    row(0, all, "export/groupdir", "C01H001S00001");
    row(1, all, "export/subdir", "C01H001S00001");
    row(2, all, "export/filename", "C01H001S00001");
    row(3, "session", "convert/groupdir", "S00001");
    row(4, "session", "convert/subdir", "S00001");
    row(5, "session", "convert/filename", "S00001");
    row(6, all, "snap/groupdir", "C01H001S00001");
    row(7, all, "snap/subdir", "C01H001S00001");
    row(8, all, "snap/filename", "C01H001S00001");
    row(10, "session", "report/subdir", "S00001");
    row(11, "session", "report/filename", "S00001");
    row(13, "camera head session", "export/kv/dataname", "C01H001S00001");
    row(15, all, "layout/subdir", "C01H001S00001");
    row(16, all, "layout/filename", "C01H001S00001");
}

void TestAddNumberPage::kindDecidesWhatIsSet()
{
    QFETCH(int, kind);
    QFETCH(QString, controls);
    QFETCH(QString, level);
    QFETCH(QString, number);
    Visit visit;
    visit.set(level, "manual", 2, 3, 5);
    QVERIFY(visit.openKind(kind, 1, 1, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownControls(view), controls);
        QCOMPARE(sample(view), number);
        QVERIFY(!isShown(view, "#state"));
        QVERIFY(chooseByKeys(view, "session", 4));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.setting(level + "addnumbersessionnodigits"), QVariant(4));
    for (const QString &line : visit.stored())
        QVERIFY2(line.contains('"' + level + "addnumber"), qPrintable(line));
}

void TestAddNumberPage::kindWithoutDigitsSaysSo_data()
{
    QTest::addColumn<int>("kind");
    for (int kind : {-1, 9, 12, 14, 17})
        QTest::addRow("%d", kind) << kind;
}

void TestAddNumberPage::kindWithoutDigitsSaysSo()
{
    QFETCH(int, kind);
    Visit visit;
    QVERIFY(visit.openKind(kind, 1, 1, [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(shownControls(view), QString());
        QCOMPARE(text(view, "#state"), QString("This number has no digits that can be set."));
        QVERIFY(!isEnabled(view, "#ok"));
        QVERIFY(press(view, Qt::Key_Space)); // the focus is on Cancel
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.stored(), QStringList());
}

void TestAddNumberPage::filesHaveTheSessionOnly_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("level");
    QTest::newRow("export") << 2 << "export/filename";
    QTest::newRow("snapshot") << 6 << "snap/groupdir";
    QTest::newRow("conversion") << 4 << "convert/subdir";
    QTest::newRow("data in a drive") << 13 << "export/kv/dataname";
}

// What is not shown stays as it is.
void TestAddNumberPage::filesHaveTheSessionOnly()
{
    QFETCH(int, kind);
    QFETCH(QString, level);
    Visit visit;
    visit.host.setMode(StandInHost::Mode::File);
    visit.set(level, "auto", 2, 3, 4);
    QVERIFY(visit.openKind(kind, 12, 2, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownControls(view), QString("session"));
        QCOMPARE(sample(view), QString("S0001"));
        QVERIFY(chooseByKeys(view, "session", 6));
        QCOMPARE(sample(view), QString("S000001"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.stored(),
             QStringList("setPrefInt(\"" + level + "addnumbersessionnodigits\", 6)"));
}

void TestAddNumberPage::sampleFollowsEachChange()
{
    Visit visit;
    visit.set(FileName, "manual", 3, 3, 4);
    QVERIFY(visit.openKind(2, 1, 1, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(sample(view), QString("C001H001S0001"));
        QVERIFY(goTo(view, "camera"));
        QVERIFY(press(view, Qt::Key_Up));
        QCOMPARE(sample(view), QString("C01H001S0001"));
        QVERIFY(press(view, Qt::Key_Up));
        QCOMPARE(sample(view), QString("C1H001S0001"));
        QVERIFY(chooseByKeys(view, "head", 0));
        QCOMPARE(sample(view), QString("C1S0001"));
        QVERIFY(chooseByKeys(view, "session", 9));
        QCOMPARE(sample(view), QString("C1S000000001"));
        QVERIFY(chooseByKeys(view, "camera", 0));
        QVERIFY(chooseByKeys(view, "session", 0));
        QCOMPARE(sample(view), QString());
    }));
}

void TestAddNumberPage::automaticDigitsFollowTheSelection()
{
    Visit visit;
    visit.set(FileName, "auto", 5, 5, 3);
    visit.keep(FileName, 4, 1, 6);
    QVERIFY(visit.openKind(2, 12, 3, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(shownIn(view, "auto", "checked").toBool());
        QVERIFY(!isEnabled(view, "#camera"));
        QVERIFY(!isEnabled(view, "#head"));
        QVERIFY(isEnabled(view, "#session"));
        QCOMPARE(sample(view), QString("C01H1S001"));
        QVERIFY(goTo(view, "auto"));
        QVERIFY(press(view, Qt::Key_Space));
        QVERIFY(isEnabled(view, "#camera"));
        QCOMPARE(sample(view), QString("C0001H1S001"));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(sample(view), QString("C01H1S001"));
    }));
    QVERIFY(visit.openKind(2, 2, 1, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(sample(view), QString("C1S001")); // a single head has no number
    }));
    QCOMPARE(visit.stored(), QStringList());
}

void TestAddNumberPage::ownDigitsAreKeptWhileTheyFollow()
{
    Visit visit;
    visit.set(FileName, "manual", 4, 2, 3);
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "camera", 5));
        QVERIFY(click(view, "#ok"));
    }));
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#auto"));
        QCOMPARE(sample(view), QString("C01S001"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.setting("export/filenameaddnumberformat"), QVariant("auto"));
    QCOMPARE(visit.setting("export/filenameaddnumbercameranodigits"), QVariant(2));
    QCOMPARE(visit.setting("export/filenameaddnumberheadnodigits"), QVariant(0));
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#auto"));
        QCOMPARE(sample(view), QString("C00001H01S001"));
    }));
}

void TestAddNumberPage::tellsWhatTheDigitsMean_data()
{
    QTest::addColumn<QList<int>>("digits");
    QTest::addColumn<int>("docs");
    QTest::addColumn<int>("heads");
    QTest::addColumn<QString>("hint");
    QTest::newRow("nothing to say") << QList<int>{1, 1, 4} << 2 << 2 << "";
    QTest::newRow("no number at all")
        << QList<int>{0, 0, 0} << 1 << 1 << "The name gets no number.";
    QTest::newRow("no session")
        << QList<int>{1, 1, 0} << 1 << 1
        << "Without a session number, nothing is done to avoid names that exist.";
    QTest::newRow("fewer digits than cameras")
        << QList<int>{1, 0, 4} << 12 << 1
        << "Some of the selected cameras have longer numbers, which are written whole.";
    QTest::newRow("cameras left out") << QList<int>{0, 0, 4} << 12 << 1 << "";
    QTest::newRow("heads left out")
        << QList<int>{2, 0, 4} << 12 << 2
        << "Several heads are selected, which the number does not tell apart.";
}

void TestAddNumberPage::tellsWhatTheDigitsMean()
{
    QFETCH(QList<int>, digits);
    QFETCH(int, docs);
    QFETCH(int, heads);
    QFETCH(QString, hint);
    Visit visit;
    visit.set(FileName, "manual", 9, 9, 9);
    QVERIFY(visit.openKind(2, docs, heads, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#hint"), QString());
        QVERIFY(chooseByKeys(view, "camera", digits.at(0)));
        QVERIFY(chooseByKeys(view, "head", digits.at(1)));
        QVERIFY(chooseByKeys(view, "session", digits.at(2)));
        QCOMPARE(text(view, "#hint"), hint);
        QCOMPARE(cutTexts(view), QStringList());
    }));
}

void TestAddNumberPage::okWritesWhatWasChanged_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("togglesAuto");
    QTest::addColumn<QStringList>("stored");
    const auto written = [](const char *suffix, int value) {
        return QStringLiteral("setPrefInt(\"export/filenameaddnumber%1nodigits\", %2)")
            .arg(suffix)
            .arg(value);
    };
    // The settings are 2, 2, 4, kept are 3, 3, 3; the user sets the session to 5.
    QTest::newRow("own digits") << "manual" << false
                                << QStringList({written("manualcamera", 2),
                                                written("manualhead", 2), written("session", 5),
                                                written("manualsession", 5)});
    QTest::newRow("own digits in a format of another name")
        << "other" << false
        << QStringList({written("manualcamera", 2), written("manualhead", 2), written("session", 5),
                        written("manualsession", 5)});
    QTest::newRow("automatic") << "auto" << false
                               << QStringList({written("head", 0), written("session", 5)});
    QTest::newRow("automatic from now on")
        << "manual" << true
        << QStringList({written("head", 0), written("session", 5),
                        "setPrefString(\"export/filenameaddnumberformat\", \"auto\")"});
    QTest::newRow("own from now on")
        << "auto" << true
        << QStringList({written("camera", 3), written("head", 3), written("session", 5),
                        written("manualsession", 5),
                        "setPrefString(\"export/filenameaddnumberformat\", \"manual\")"});
}

void TestAddNumberPage::okWritesWhatWasChanged()
{
    QFETCH(QString, format);
    QFETCH(bool, togglesAuto);
    QFETCH(QStringList, stored);
    Visit visit;
    visit.set(FileName, format, 2, 2, 4);
    visit.keep(FileName, 3, 3, 3);
    int result = -1;
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &dialog, GUI_WebView *view) {
        connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        if (togglesAuto)
            QVERIFY(click(view, "#auto"));
        QVERIFY(chooseByKeys(view, "session", 5));
        QCOMPARE(visit.stored(), QStringList());
        visit.host.clearJournal();
        QVERIFY(goTo(view, "ok"));
        QVERIFY(press(view, Qt::Key_Space));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(visit.stored(), stored);
    // The views follow once, behind the last one.
    const QStringList commands = visit.host.commands();
    QCOMPARE(commands.filter("updateUI(").size(), 1);
    QVERIFY(commands.indexOf("updateUI(63, true)") > commands.indexOf(stored.last()));
}

void TestAddNumberPage::okWritesNothingWithoutAChange()
{
    Visit visit;
    visit.set(FileName, "manual", 2, 2, 4);
    visit.keep(FileName, 2, 2, 4);
    int result = -1;
    QVERIFY(visit.openKind(2, 1, 1, [&](QDialog &dialog, GUI_WebView *view) {
        connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(visit.stored(), QStringList());
}

void TestAddNumberPage::everyOtherWayWritesNothing_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"button", "key", "title bar", "program"})
        QTest::newRow(way) << way;
}

void TestAddNumberPage::everyOtherWayWritesNothing()
{
    QFETCH(QString, way);
    Visit visit;
    visit.set(FileName, "auto", 2, 2, 4);
    int result = -1;
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &dialog, GUI_WebView *view) {
        connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        QVERIFY(click(view, "#auto"));
        QVERIFY(chooseByKeys(view, "camera", 7));
        QVERIFY(chooseByKeys(view, "session", 7));
        if (way == "button") {
            QVERIFY(click(view, "#cancel"));
        } else if (way == "key") {
            QVERIFY(goTo(view, "cancel"));
            QVERIFY(press(view, Qt::Key_Space));
        } else if (way == "title bar") {
            QVERIFY(dialog.close());
        } else {
            dialog.reject();
        }
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(visit.stored(), QStringList());
}

void TestAddNumberPage::escapeLeavesItOpen()
{
    Visit visit;
    QVERIFY(visit.openKind(2, 1, 1, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "session", 7));
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(dialog.isVisible());
        QCOMPARE(sample(view), QString("C1S0000001"));
    }));
}

// A click opens a list; the pop-up of the engine is worked by the tests of the pages' lists.
void TestAddNumberPage::isWorkedByTheMouse()
{
    Visit visit;
    visit.set(FileName, "auto", 1, 0, 4);
    visit.keep(FileName, 3, 2, 4);
    QVERIFY(visit.openKind(2, 1, 1, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(sample(view), QString("C1S0001"));
        QVERIFY(click(view, "#autoChoice span"));
        QCOMPARE(sample(view), QString("C001H01S0001"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.setting("export/filenameaddnumberformat"), QVariant("manual"));
}

void TestAddNumberPage::digitsThatAreNotOfferedStay()
{
    Visit visit;
    visit.set(FileName, "manual", 12, -3, 11);
    visit.keep(FileName, 12, -3, 11);
    QVERIFY(visit.openKind(2, 1, 1, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(sample(view), QString("C000000000001S00000000001"));
        QCOMPARE(shownIn(view, "camera").toString(), QString("12"));
        QCOMPARE(shownIn(view, "head").toString(), QString("0"));
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.setting("export/filenameaddnumbercameranodigits"), QVariant(12));
    QCOMPARE(visit.setting("export/filenameaddnumbersessionnodigits"), QVariant(11));
}

void TestAddNumberPage::storesAllOrNothing_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("nth");
    for (int nth = 1; nth <= 4; ++nth)
        QTest::addRow("number %d", nth) << "setPrefInt" << nth;
    QTest::newRow("format") << "setPrefString" << 1;
}

void TestAddNumberPage::storesAllOrNothing()
{
    QFETCH(QString, operation);
    QFETCH(int, nth);
    Visit visit;
    visit.set(FileName, "auto", 2, 2, 4);
    visit.keep(FileName, 3, 3, 3);
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(click(view, "#auto"));
        QVERIFY(chooseByKeys(view, "session", 5));
        visit.host.failOn(operation, nth);
        QVERIFY(click(view, "#ok"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(text(view, "#state"), QString("The setting could not be stored."));
        QCOMPARE(visit.host.handledErrors(), QStringList(operation + " failed"));
        QCOMPARE(visit.setting("export/filenameaddnumbercameranodigits"), QVariant(2));
        QCOMPARE(visit.setting("export/filenameaddnumberheadnodigits"), QVariant(2));
        QCOMPARE(visit.setting("export/filenameaddnumbersessionnodigits"), QVariant(4));
        QCOMPARE(visit.setting("export/filenameaddnumbermanualsessionnodigits"), QVariant(3));
        QCOMPARE(visit.setting("export/filenameaddnumberformat"), QVariant("auto"));
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(click(view, "#ok")); // again
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.setting("export/filenameaddnumbersessionnodigits"), QVariant(5));
    QCOMPARE(visit.setting("export/filenameaddnumberformat"), QVariant("manual"));
}

void TestAddNumberPage::keepsDigitsThatCannotBeRead_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("part");
    QTest::addColumn<QStringList>("stored");
    const auto written = [](const char *suffix, int value) {
        return QStringLiteral("setPrefInt(\"export/filenameaddnumber%1nodigits\", %2)")
            .arg(suffix)
            .arg(value);
    };
    const QString format = "setPrefString(\"export/filenameaddnumberformat\", \"manual\")";
    QTest::newRow("camera") << "manual"
                            << "camera"
                            << QStringList({written("manualhead", 2), written("manualsession", 4)});
    QTest::newRow("head") << "manual"
                          << "head"
                          << QStringList({written("manualcamera", 2), written("manualsession", 4)});
    QTest::newRow("session") << "manual"
                             << "session"
                             << QStringList({written("manualcamera", 2), written("manualhead", 2)});
    QTest::newRow("own camera") << "auto"
                                << "camera"
                                << QStringList(
                                       {written("head", 3), written("manualsession", 4), format});
    QTest::newRow("own head") << "auto"
                              << "head"
                              << QStringList(
                                     {written("camera", 3), written("manualsession", 4), format});
}

// The settings are 2, 2, 4, kept are 3, 3, 3.
void TestAddNumberPage::keepsDigitsThatCannotBeRead()
{
    QFETCH(QString, format);
    QFETCH(QString, part);
    const bool follows = format == "auto";
    Visit visit;
    visit.set(FileName, format, 2, 2, 4);
    visit.keep(FileName, 3, 3, 3);
    const int read = visit.readOf(
        QString("export/filenameaddnumber%1%2nodigits").arg(follows ? "manual" : "", part));
    QVERIFY(read > 0);
    visit.host.failOn("getPrefString", read);
    int result = -1;
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &dialog, GUI_WebView *view) {
        connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        QCOMPARE(visit.host.handledErrors(), QStringList("getPrefString failed"));
        if (follows) {
            QCOMPARE(sample(view), QString("C01S0001"));
            QVERIFY(click(view, "#auto"));
        }
        QCOMPARE(shownIn(view, part, "selectedOptions[0].textContent").toString(),
                 QString("Not readable"));
        QCOMPARE(text(view, "#hint"), QString("Digits that could not be read stay as they are."));
        QCOMPARE(sample(view), QString());
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
    QTEST(visit.stored(), "stored");
}

void TestAddNumberPage::takesDigitsInPlaceOfThoseThatCannotBeRead()
{
    Visit visit;
    visit.set(FileName, "manual", 2, 2, 4);
    visit.keep(FileName, 2, 2, 4);
    visit.host.failOn("getPrefString", visit.readOf("export/filenameaddnumbersessionnodigits"));
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "session", 5));
        QCOMPARE(sample(view), QString("C01H01S00001"));
        QCOMPARE(text(view, "#hint"), QString());
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.stored(),
             QStringList({"setPrefInt(\"export/filenameaddnumbersessionnodigits\", 5)",
                          "setPrefInt(\"export/filenameaddnumbermanualsessionnodigits\", 5)"}));
}

// It shows as one of own digits. The ones that the user had are not taken for them.
void TestAddNumberPage::keepsAFormatThatCannotBeRead()
{
    Visit visit;
    visit.set(FileName, "auto", 2, 0, 4);
    visit.keep(FileName, 5, 1, 3);
    visit.host.failOn("getPrefString", visit.readOf("export/filenameaddnumberformat"));
    int result = -1;
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &dialog, GUI_WebView *view) {
        connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        QVERIFY(!shownIn(view, "auto", "checked").toBool());
        QVERIFY(chooseByKeys(view, "session", 6));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(visit.stored(),
             QStringList({"setPrefInt(\"export/filenameaddnumbersessionnodigits\", 6)",
                          "setPrefInt(\"export/filenameaddnumbermanualsessionnodigits\", 6)"}));
    QCOMPARE(visit.setting("export/filenameaddnumberformat"), QVariant("auto"));
}

void TestAddNumberPage::bringsBackOnlyWhatCouldBeRead()
{
    Visit visit;
    visit.set(FileName, "auto", 2, 2, 4);
    visit.keep(FileName, 3, 3, 3);
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(click(view, "#auto"));
        QVERIFY(chooseByKeys(view, "session", 5));
        // Once the page has no more to ask, the first question is that of OK.
        for (int before = -1; before != visit.host.callCount(); QTest::qWait(100))
            before = visit.host.callCount();
        visit.host.clearJournal();
        visit.host.failOn("getPrefString", 1); // the camera's digits before
        visit.host.failOn("setPrefString");
        QVERIFY(click(view, "#ok"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(text(view, "#state"), QString("The setting could not be stored."));
        QCOMPARE(visit.stored(),
                 QStringList({"setPrefInt(\"export/filenameaddnumbercameranodigits\", 3)",
                              "setPrefInt(\"export/filenameaddnumberheadnodigits\", 3)",
                              "setPrefInt(\"export/filenameaddnumbersessionnodigits\", 5)",
                              "setPrefInt(\"export/filenameaddnumbermanualsessionnodigits\", 5)",
                              "setPrefString(\"export/filenameaddnumberformat\", \"manual\")",
                              "errorHandler(\"setPrefString failed\")",
                              "setPrefInt(\"export/filenameaddnumbermanualsessionnodigits\", 3)",
                              "setPrefInt(\"export/filenameaddnumbersessionnodigits\", 4)",
                              "setPrefInt(\"export/filenameaddnumberheadnodigits\", 2)"}));
    }));
}

void TestAddNumberPage::goesOnWithoutScrolling_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("light") << "light";
    QTest::newRow("dark") << "dark";
}

void TestAddNumberPage::goesOnWithoutScrolling()
{
    QFETCH(QString, style);
    Visit visit;
    visit.host.settings().setValue("env/style", style);
    visit.set(FileName, "manual", 1, 0, 4);
    QVERIFY(visit.openKind(2, 12, 1, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(read(view, "document.body.classList.contains('" + style + "')").toBool());
        QVERIFY(read(view, "document.querySelector('.content').scrollHeight <= "
                           "document.querySelector('.content').clientHeight")
                    .toBool());
        QCOMPARE(cutTexts(view), QStringList());
        QCOMPARE(stops(view), QStringList({"auto", "camera", "head", "session", "cancel", "ok"}));
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(focusedStop(view), i);
            QVERIFY(view->rect().contains(focusedPlace(view)));
            QVERIFY(press(view, Qt::Key_Tab));
        }
        if (qEnvironmentVariableIsSet("PICTURES"))
            view->grab().save(qEnvironmentVariable("PICTURES") + "/number-" + style + ".png");
    }));
}

void TestAddNumberPage::keepsWhatTheUserChoseOverARefresh()
{
    Visit visit;
    visit.set(FileName, "manual", 2, 2, 4);
    QVERIFY(visit.openKind(2, 1, 1, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "session", 6));
        visit.set(FileName, "auto", 1, 1, 1);
        auto *mediator = dynamic_cast<GUI_WebViewDialog &>(dialog).mediator();
        emit mediator->update();
        QCOMPARE(sample(view), QString("C01H01S000001"));
        QVERIFY(!shownIn(view, "auto", "checked").toBool());
    }));
}

// The counts come from the page, the kind from its name.
void TestAddNumberPage::opensFromAPageThatSaves()
{
    Visit visit;
    visit.set("snap/subdir", "auto", 1, 1, 4);
    JS_Mediator_SaveFile saveFile(&visit.host, "snapshotdialog");
    saveFile.selectedDocCount(100);
    saveFile.selectedDocHeadCount(2);
    const bool visited = visit.run(
        [&](QDialog &, GUI_WebView *view) {
            QCOMPARE(sample(view), QString("C001H1S0001"));
            QVERIFY(click(view, "#ok"));
        },
        [&] { saveFile.numberSetting4SubDir(); });
    QVERIFY(visited);
    QCOMPARE(saveFile.addNumber4SubDir(), QString("C001H1S0001"));
}

int main(int argc, char **argv)
{
    TestAddNumberPage test;
    return runTest(argc, argv, test);
}

#include "test_add_number_page.moc"
