#include "tests/support/TestLog.h"
#include "workbench/log/LogFilter.h"
#include "workbench/log/LogModel.h"
#include "workbench/log/LogPanel.h"
#include "workbench/log/LogRecorder.h"
#include "workbench/window/NoticeBar.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTreeView>

#include <thread>
#include <vector>

namespace {

LogEntry entry(QtMsgType type, const QString &text)
{
    return {QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9, 10)), type, text};
}

QStringList texts(const QList<LogEntry> &entries)
{
    QStringList result;
    for (const LogEntry &line : entries)
        result.append(line.text);
    return result;
}

QStringList texts(const QAbstractItemModel &model)
{
    QStringList result;
    for (int row = 0; row < model.rowCount(); ++row)
        result.append(model.index(row, LogModel::Text).data().toString());
    return result;
}

const QList<LogEntry> oneOfEach = {entry(QtDebugMsg, "step"), entry(QtInfoMsg, "[ENTER] \"open\""),
                                   entry(QtWarningMsg, "no page"),
                                   entry(QtCriticalMsg, "disk full")};

}

class TestLogDock : public TestBase
{
    Q_OBJECT

private slots:
    void recordsEachLineAndPassesItOn();
    void announcesWaitingLinesOnceUntilTheyAreTaken();
    void keepsOnlyTheLatestLines();
    void recordsLinesOfManyThreads();
    void recordsNothingOnceItHasGone();
    void showsTimeLevelAndText();
    void dropsTheOldestLinesAboveItsLimit();
    void filtersByLevel_data();
    void filtersByLevel();
    void filtersByText();
    void filtersInThePanel();
    void followsTheEndUntilTheUserScrollsUp();
    void copiesSelectedLines();
    void tellsTheLatestNoticeAndCountsTheOthers();
};

void TestLogDock::recordsEachLineAndPassesItOn()
{
    LogCapture capture;
    LogRecorder recorder(10);
    const QDateTime before = QDateTime::currentDateTime();
    qInfo("first");
    qCritical("second");
    const QList<LogEntry> lines = recorder.take();
    QCOMPARE(texts(lines), QStringList({"first", "second"}));
    QCOMPARE(lines.at(0).type, QtInfoMsg);
    QCOMPARE(lines.at(1).type, QtCriticalMsg);
    QVERIFY(lines.at(0).time >= before && lines.at(1).time <= QDateTime::currentDateTime());
    QCOMPARE(capture.texts(), QStringList({"first", "second"}));
    QVERIFY(recorder.take().isEmpty());
}

void TestLogDock::announcesWaitingLinesOnceUntilTheyAreTaken()
{
    LogCapture capture;
    LogRecorder recorder(10);
    QSignalSpy spy(&recorder, &LogRecorder::recorded);
    qInfo("first");
    qInfo("second");
    QCOMPARE(spy.size(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(spy.size(), 1);
    qInfo("third");
    QCoreApplication::processEvents();
    QCOMPARE(spy.size(), 1);
    recorder.take();
    qInfo("fourth");
    QCoreApplication::processEvents();
    QCOMPARE(spy.size(), 2);
}

void TestLogDock::keepsOnlyTheLatestLines()
{
    LogCapture capture;
    LogRecorder recorder(2);
    qInfo("first");
    qInfo("second");
    qInfo("third");
    QCOMPARE(texts(recorder.take()), QStringList({"second", "third"}));
}

void TestLogDock::recordsLinesOfManyThreads()
{
    LogCapture capture;
    LogRecorder recorder(10000);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([] {
            for (int n = 0; n < 500; ++n)
                qInfo("line");
        });
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(recorder.take().size(), 2000);
}

void TestLogDock::recordsNothingOnceItHasGone()
{
    LogCapture capture;
    {
        LogRecorder recorder(10);
        qInfo("waits");
    }
    qInfo("between");
    LogRecorder recorder(10);
    qInfo("now");
    QCOMPARE(texts(recorder.take()), QStringList("now"));
    QCOMPARE(capture.texts(), QStringList({"waits", "between", "now"}));
}

void TestLogDock::showsTimeLevelAndText()
{
    LogModel model(10);
    model.append({entry(QtWarningMsg, "no\n  page")});
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(model.index(0, LogModel::Time).data().toString(), QString("07:08:09.010"));
    QCOMPARE(model.index(0, LogModel::Level).data().toString(), QString("Warning"));
    QCOMPARE(model.index(0, LogModel::Text).data().toString(), QString("no page"));
    QCOMPARE(model.index(0, LogModel::Text).data(Qt::ToolTipRole).toString(),
             QString("no\n  page"));
    QCOMPARE(model.headerData(LogModel::Level, Qt::Horizontal).toString(), QString("Level"));
}

void TestLogDock::dropsTheOldestLinesAboveItsLimit()
{
    LogModel model(3);
    model.append({entry(QtInfoMsg, "1"), entry(QtInfoMsg, "2")});
    model.append({entry(QtInfoMsg, "3"), entry(QtInfoMsg, "4")});
    QCOMPARE(texts(model), QStringList({"2", "3", "4"}));
    model.append({entry(QtInfoMsg, "5"), entry(QtInfoMsg, "6"), entry(QtInfoMsg, "7"),
                  entry(QtInfoMsg, "8")});
    QCOMPARE(texts(model), QStringList({"6", "7", "8"}));
    model.clear();
    QCOMPARE(model.rowCount(), 0);
}

void TestLogDock::filtersByLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("debug") << 0 << QStringList{"step", "[ENTER] \"open\"", "no page", "disk full"};
    QTest::newRow("info") << 1 << QStringList{"[ENTER] \"open\"", "no page", "disk full"};
    QTest::newRow("warning") << 2 << QStringList{"no page", "disk full"};
    QTest::newRow("critical") << 3 << QStringList{"disk full"};
}

void TestLogDock::filtersByLevel()
{
    QFETCH(int, level);
    QFETCH(QStringList, shown);
    LogModel model(10);
    model.append(oneOfEach);
    LogFilter filter;
    filter.setSourceModel(&model);
    filter.setLevel(level);
    QCOMPARE(texts(filter), shown);
}

void TestLogDock::filtersByText()
{
    LogModel model(10);
    model.append(oneOfEach);
    LogFilter filter;
    filter.setSourceModel(&model);
    filter.setText("enter] \"");
    QCOMPARE(texts(filter), QStringList("[ENTER] \"open\""));
    filter.setText("[");
    QCOMPARE(texts(filter), QStringList("[ENTER] \"open\""));
    filter.setText(QString());
    QCOMPARE(filter.rowCount(), 4);
}

void TestLogDock::filtersInThePanel()
{
    LogModel model(10);
    model.append(oneOfEach);
    LogPanel panel(&model);
    panel.show();
    panel.findChild<QComboBox *>("logLevel")->setCurrentIndex(2);
    QCOMPARE(panel.visibleLines(),
             QStringList({"07:08:09.010 Warning no page", "07:08:09.010 Critical disk full"}));
    QTest::keyClicks(panel.findChild<QLineEdit *>("logText"), "disk");
    QCOMPARE(panel.visibleLines(), QStringList("07:08:09.010 Critical disk full"));
    QTest::mouseClick(panel.findChild<QPushButton *>("logClear"), Qt::LeftButton);
    QCOMPARE(model.rowCount(), 0);
}

void TestLogDock::followsTheEndUntilTheUserScrollsUp()
{
    LogModel model(1000);
    LogPanel panel(&model);
    panel.resize(500, 200);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    QScrollBar *bar = panel.findChild<QTreeView *>("logLines")->verticalScrollBar();
    for (int i = 0; i < 100; ++i)
        model.append({entry(QtInfoMsg, QString::number(i))});
    QTRY_VERIFY(bar->maximum() > 0);
    QTRY_COMPARE(bar->value(), bar->maximum());
    model.append({entry(QtInfoMsg, "one more")});
    QTRY_COMPARE(bar->value(), bar->maximum());
    bar->setValue(3);
    model.append({entry(QtInfoMsg, "and one")});
    QTest::qWait(20);
    QCOMPARE(bar->value(), 3);
}

void TestLogDock::copiesSelectedLines()
{
    LogModel model(10);
    model.append(oneOfEach);
    LogPanel panel(&model);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    auto *view = panel.findChild<QTreeView *>("logLines");
    view->setFocus();
    view->setCurrentIndex(view->model()->index(3, 0));
    view->selectionModel()->select(view->model()->index(2, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             QString("07:08:09.010 Warning no page\n07:08:09.010 Critical disk full"));
}

void TestLogDock::tellsTheLatestNoticeAndCountsTheOthers()
{
    NoticeBar bar;
    QVERIFY(bar.isHidden());
    QCOMPARE(bar.text(), QString());
    bar.tell("t_zoom.orvix: it has no makeButtonPlugin");
    QVERIFY(!bar.isHidden());
    QCOMPARE(bar.text(), QString("t_zoom.orvix: it has no makeButtonPlugin"));
    bar.tell("<b>second</b>");
    bar.tell("third");
    QCOMPARE(bar.text(), QString("third (and 2 more, see the log)"));
    bar.tell("<b>second</b>"); // again and again
    QCOMPARE(bar.text(), QString("third (and 2 more, see the log)"));

    QSignalSpy wanted(&bar, &NoticeBar::logRequested);
    QTest::mouseClick(bar.findChild<QPushButton *>("noticeLog"), Qt::LeftButton);
    QCOMPARE(wanted.size(), 1);
    QTest::mouseClick(bar.findChild<QPushButton *>("noticeDismiss"), Qt::LeftButton);
    QVERIFY(bar.isHidden());
    bar.tell("<b>plain</b>");
    QCOMPARE(bar.text(), QString("<b>plain</b>"));
    QCOMPARE(bar.findChild<QLabel *>("noticeText")->textFormat(), Qt::PlainText);
}

int main(int argc, char **argv)
{
    TestLogDock test;
    return runTest(argc, argv, test);
}

#include "test_log.moc"
