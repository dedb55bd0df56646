#include "bridge/operation/FileChoice.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <atomic>

// The support file: question, chooser, snapshot, worker task, and what the user hears.

class TestSupportFile : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void questionListsWhatGoesIn_data();
    void questionListsWhatGoesIn();
    void questionIsTranslated();
    void capabilitiesAreAskedUntilOneHolds();
    void documentThatHasGoneIsPassedOver();
    void noEndsIt();
    void chooserIsAskedAsTold();
    void cancelLeavesTheFolder();
    void fileIsWritten();
    void snapshotIsTakenHereAndWrittenByATask();
    void failedWriteRemembersTheFolder();
    void failureOnTheWayRemembersTheFolder_data();
    void failureOnTheWayRemembersTheFolder();
    void otherFailureOfTheTaskIsHandled();
    void failedFolderIsHandledToo();
    void failureBeforeTheChoiceChangesNothing_data();
    void failureBeforeTheChoiceChangesNothing();
    void existingFileIsReplacedWithoutAQuestion();
    void mediatorMayGoWhileTheUserIsAsked();
    void chooserCanBeAnsweredInAllKinds_data();
    void chooserCanBeAnsweredInAllKinds();
    void realChoosersAnswer_data();
    void realChoosersAnswer();
};

namespace {

const QString Question = QStringLiteral(
    "The information below will be output in ZIP file format. Do you want to proceed?<br>");

/// A host that says yes, and a chooser that gives this path.
struct Support
{
    explicit Support(const QString &path = QStringLiteral("/out/support/file.zip"))
    {
        host.answerConfirm(true);
        FileChoice::setAnswer([this, path](const FileChoice::Question &asked) {
            question = asked;
            ++questions;
            return path.isEmpty() ? QStringList() : QStringList(path);
        });
    }

    void run() { mediator.openExportSupportFileDialog(); }

    QString text() const
    {
        for (const StandInHost::Message &message : host.messages()) {
            if (message.kind == QLatin1String("confirm"))
                return message.text;
        }
        return QString();
    }

    QString folder() { return host.settings().value("support/dir", QVariant()).toString(); }

    QStringList behind(const QString &call)
    {
        const QStringList calls = host.commands();
        return calls.mid(calls.indexOf(call) + 1);
    }

    StandInHost host;
    JS_Mediator mediator{&host, QStringLiteral("page")};
    FileChoice::Question question;
    int questions = 0;
};

const QString Written = QStringLiteral(
    "writeSupportFile(\"/out/support/file.zip\", {screen: 0x0, trelvikWindow: 0x0, frame: 0x0, "
    "texts: []})");
const QString MailText = QStringLiteral("Please attach preserved file to a mail.");

}

void TestSupportFile::cleanup()
{
    FileChoice::setAnswer(FileChoice::Answer());
    TestBase::cleanup();
}

void TestSupportFile::questionListsWhatGoesIn_data()
{
    QTest::addColumn<QSet<int>>("capabilities");
    QTest::addColumn<bool>("windowShown");
    QTest::addColumn<QStringList>("lines");
    const QStringList first = {"- Camera setting values", "- Orvix setting values",
                               "- Orvix operation log", "- SDK operation log"};
    const QStringList log = {"- Camera log"};
    const QStringList middle = {"- PC environment", "- Orvix version",
                                "- Orvix full screen capture"};
    const QStringList window = {"- Trelvik window screen capture"};
    const QStringList last = {"- Currently displayed image data (1 frame)"};
    QTest::newRow("neither") << QSet<int>({1, 112}) << false << first + middle + last;
    QTest::newRow("camera log") << QSet<int>({176}) << false << first + log + middle + last;
    QTest::newRow("camera log of the other kind")
        << QSet<int>({158}) << false << first + log + middle + last;
    QTest::newRow("multi-camera window") << QSet<int>() << true << first + middle + window + last;
    QTest::newRow("both") << QSet<int>({158, 176}) << true << first + log + middle + window + last;
}

void TestSupportFile::questionListsWhatGoesIn()
{
    QFETCH(QSet<int>, capabilities);
    QFETCH(bool, windowShown);
    QFETCH(QStringList, lines);
    Support support;
    support.host.answerConfirm(false);
    support.host.addCamera();
    support.host.addCamera()->state().capabilities = capabilities;
    support.host.state().isTrelvikWindowShown = windowShown;
    support.run();
    QCOMPARE(support.text(), Question + "<br>" + lines.join("<br>"));
}

void TestSupportFile::questionIsTranslated()
{
    Support support;
    support.host.answerConfirm(false);
    support.host.state().translations.insert("- PC environment", "- Rechner");
    support.run();
    QVERIFY(support.text().contains("<br>- Rechner<br>"));
    QVERIFY(!support.text().contains("PC environment"));
}

void TestSupportFile::capabilitiesAreAskedUntilOneHolds()
{
    Support support;
    support.host.answerConfirm(false);
    for (int i = 0; i < 3; ++i)
        support.host.addCamera();
    support.host.camera(2)->state().capabilities = {158};
    support.run();
    QCOMPARE(
        support.host.journal().mid(0, 7),
        QStringList({"documentKeys(true, false)", "deviceByKey(1, true)", "[1].hasCapability(176)",
                     "[1].hasCapability(158)", "deviceByKey(2, true)", "[2].hasCapability(176)",
                     "[2].hasCapability(158)"}));
    QVERIFY(!support.host.journal().contains("deviceByKey(3, true)"));
}

void TestSupportFile::documentThatHasGoneIsPassedOver()
{
    Support support;
    support.host.answerConfirm(false);
    support.host.addCamera();
    support.host.addCamera()->state().capabilities = {176};
    support.host.answerNullOn(QStringLiteral("deviceByKey"), 1);
    support.run();
    QVERIFY(support.text().contains("- Camera log"));
}

void TestSupportFile::noEndsIt()
{
    Support support;
    support.host.answerConfirm(false);
    LogCapture log;
    support.run();
    QCOMPARE(support.questions, 0);
    QVERIFY(support.host.commands().last().startsWith("confirm("));
    QCOMPARE(log.texts(), QStringList({"[ENTER] \"JS_Mediator::openExportSupportFileDialog\" \"\"",
                                       "[LEAVE] \"JS_Mediator::openExportSupportFileDialog\""}));
}

void TestSupportFile::chooserIsAskedAsTold()
{
    Support support;
    QWidget main;
    support.host.state().mainWidget = &main;
    support.host.state().translations.insert("Export support file", "Ausgabe");
    support.host.settings().setValue("support/dir", "/in/folder");
    support.run();
    QCOMPARE(support.questions, 1);
    QCOMPARE(support.question.kind, FileChoice::Kind::SaveFile);
    QCOMPARE(support.question.parent, &main);
    QCOMPARE(support.question.caption, QStringLiteral("Ausgabe"));
    QCOMPARE(support.question.start, QStringLiteral("/in/folder"));
    QCOMPARE(support.question.filter, QStringLiteral("zip (*.zip)"));
    QCOMPARE(int(support.question.options), 4); // no question when the file exists
    const QStringList calls = support.host.journal();
    const int asked = calls.indexOf("getPref(\"support/dir\", invalid)");
    QVERIFY(asked >= 0);
    QCOMPARE(calls.mid(asked, 3), QStringList({"getPref(\"support/dir\", invalid)", "mainWidget()",
                                               "translate(\"Export support file\")"}));
    QVERIFY(support.host.commands().filter("confirm(").first().endsWith(", QWidget, {})"));
}

void TestSupportFile::cancelLeavesTheFolder()
{
    Support support{QString()};
    support.host.settings().setValue("support/dir", "/in/folder");
    support.run();
    QCOMPARE(support.questions, 1);
    QCOMPARE(support.folder(), QStringLiteral("/in/folder"));
    QVERIFY(support.host.commands().last().startsWith("confirm("));
    QVERIFY(!support.host.journal().contains("exportSupportSnapshot()"));
}

void TestSupportFile::fileIsWritten()
{
    Support support;
    support.host.state().translations.insert(MailText, "An eine Mail.");
    support.run();
    QVERIFY(support.host.journal().contains("exportSupportSnapshot()"));
    QStringList calls = support.host.commands().mid(1);
    // The task runs on its own: it comes somewhere before the thanks.
    QVERIFY(calls.removeOne(Written));
    QCOMPARE(calls, QStringList({"runWithProgress(\"Saving...\")", "info(\"An eine Mail.\", null)",
                                 "setPref(\"support/dir\", \"/out/support\")"}));
    QCOMPARE(support.host.handledErrors(), QStringList());
}

// A snapshot touches widgets; writing takes its time.
void TestSupportFile::snapshotIsTakenHereAndWrittenByATask()
{
    Support support;
    QThread *taking = nullptr;
    QThread *writing = nullptr;
    QByteArray text;
    std::atomic<bool> written{false};
    bool thankedTooEarly = false;
    support.host.frontEnd().takeSupportSnapshot = [&] {
        taking = QThread::currentThread();
        SupportSnapshot snapshot;
        snapshot.texts = {{"a.txt", "content"}};
        return snapshot;
    };
    support.host.frontEnd().writeSupportFile = [&](const QString &,
                                                   const SupportSnapshot &snapshot) {
        writing = QThread::currentThread();
        QThread::msleep(50);
        text = snapshot.texts.value("a.txt");
        written = true;
        return true;
    };
    connect(support.host.events(), &StandInEvents::messageShown, this,
            [&](const QString &kind) { thankedTooEarly = kind == "info" && !written; });
    support.run();
    QCOMPARE(taking, QThread::currentThread());
    QVERIFY(writing && writing != QThread::currentThread());
    QCOMPARE(text, QByteArray("content"));
    QVERIFY(!thankedTooEarly);
    QCOMPARE(support.host.messages().last().text, MailText);
}

void TestSupportFile::failedWriteRemembersTheFolder()
{
    Support support;
    support.host.state().supportFileSucceeds = false;
    LogCapture log;
    support.run();
    QCOMPARE(support.host.handledErrors(), QStringList({"Failed to save support file."}));
    QCOMPARE(support.folder(), QStringLiteral("/out/support"));
    QVERIFY(!support.host.journal().contains("translate(\"" + MailText + "\")"));
    QCOMPARE(support.behind("errorHandler(\"Failed to save support file.\")"),
             QStringList({"setPref(\"support/dir\", \"/out/support\")"}));
    QCOMPARE(log.texts(QtCriticalMsg),
             QStringList({"\"APP_Exception:[message:Failed to save support file.] "
                          "[errorCode:0] \""})); // once
}

void TestSupportFile::failureOnTheWayRemembersTheFolder_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("snapshot") << "exportSupportSnapshot";
    QTest::newRow("progress") << "runWithProgress";
    QTest::newRow("thanks") << "info";
}

void TestSupportFile::failureOnTheWayRemembersTheFolder()
{
    QFETCH(QString, operation);
    Support support;
    support.host.failOn(operation);
    support.run();
    QCOMPARE(support.host.handledErrors(), QStringList({operation + " failed"}));
    QCOMPARE(support.folder(), QStringLiteral("/out/support"));
}

void TestSupportFile::otherFailureOfTheTaskIsHandled()
{
    Support support;
    support.host.failOn(QStringLiteral("writeSupportFile"));
    support.run();
    QCOMPARE(support.host.handledErrors().size(), 1); // as a failure whose text is the toolkit's
    QVERIFY(support.host.messages().size() == 1);     // the question alone
    QCOMPARE(support.folder(), QStringLiteral("/out/support"));
}

void TestSupportFile::failedFolderIsHandledToo()
{
    Support support;
    support.host.failOn(QStringLiteral("setPref"));
    support.run();
    QCOMPARE(support.host.handledErrors(), QStringList({"setPref failed"}));
}

void TestSupportFile::failureBeforeTheChoiceChangesNothing_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *operation : {"documentKeys", "deviceByKey", "hasCapability", "translate",
                                  "isTrelvikWindowShown", "mainWidget", "confirm", "getPref"})
        QTest::newRow(operation) << QString::fromLatin1(operation);
}

void TestSupportFile::failureBeforeTheChoiceChangesNothing()
{
    QFETCH(QString, operation);
    Support support;
    support.host.addCamera();
    support.host.settings().setValue("support/dir", "/in/folder");
    support.host.failOn(operation);
    support.run();
    QCOMPARE(support.host.handledErrors(), QStringList({operation + " failed"}));
    QCOMPARE(support.questions, 0);
    QCOMPARE(support.folder(), QStringLiteral("/in/folder"));
}

void TestSupportFile::existingFileIsReplacedWithoutAQuestion()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("old.zip"));
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.close();
    Support support;
    FileChoice::setAnswer(FileChoice::Answer());
    support.host.settings().setValue("support/dir", folder.path());
    int boxes = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        QWidget *modal = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QMessageBox *>(modal)) {
            ++boxes;
            box->reject();
        } else if (auto *chooser = qobject_cast<QFileDialog *>(modal)) {
            if (boxes > 0) {
                chooser->reject(); // it asked, and would again
                return;
            }
            chooser->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
            QMetaObject::invokeMethod(chooser, "accept", Qt::QueuedConnection);
        }
    });
    timer.start(20);
    support.run();
    QCOMPARE(boxes, 0);
    QVERIFY(support.host.commands().join(' ').contains("writeSupportFile(\"" + path + '"'));
    QCOMPARE(support.folder(), QDir(folder.path()).absolutePath());
}

void TestSupportFile::mediatorMayGoWhileTheUserIsAsked()
{
    StandInHost host;
    host.answerConfirm(true);
    auto *mediator = new JS_Mediator(&host, QStringLiteral("page"));
    FileChoice::setAnswer([&](const FileChoice::Question &) {
        delete mediator;
        return QStringList(QStringLiteral("/out/support/file.zip"));
    });
    mediator->openExportSupportFileDialog();
    QCOMPARE(host.settings().value("support/dir", QVariant()).toString(),
             QStringLiteral("/out/support"));
}

void TestSupportFile::chooserCanBeAnsweredInAllKinds_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("save") << int(FileChoice::Kind::SaveFile);
    QTest::newRow("open") << int(FileChoice::Kind::OpenFile);
    QTest::newRow("open several") << int(FileChoice::Kind::OpenFiles);
    QTest::newRow("folder") << int(FileChoice::Kind::Folder);
}

void TestSupportFile::chooserCanBeAnsweredInAllKinds()
{
    QFETCH(int, kind);
    FileChoice::Question question;
    question.kind = FileChoice::Kind(kind);
    FileChoice::setAnswer([](const FileChoice::Question &) {
        return QStringList({QStringLiteral("/a"), QStringLiteral("/b")});
    });
    QCOMPARE(FileChoice::ask(question), QStringList({"/a", "/b"}));
    QCOMPARE(FileChoice::askOne(question), QStringLiteral("/a"));
    FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList(); });
    QCOMPARE(FileChoice::askOne(question), QString());
}

void TestSupportFile::realChoosersAnswer_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("chosen");
    QTest::addColumn<int>("mode");
    QTest::newRow("save") << int(FileChoice::Kind::SaveFile) << "new.zip"
                          << QStringList({"new.zip"}) << int(QFileDialog::AnyFile);
    QTest::newRow("open") << int(FileChoice::Kind::OpenFile) << "a.zip" << QStringList({"a.zip"})
                          << int(QFileDialog::ExistingFile);
    QTest::newRow("open several") << int(FileChoice::Kind::OpenFiles) << "\"a.zip\" \"b.zip\""
                                  << QStringList({"a.zip", "b.zip"})
                                  << int(QFileDialog::ExistingFiles);
    QTest::newRow("folder") << int(FileChoice::Kind::Folder) << "sub" << QStringList({"sub"})
                            << int(QFileDialog::Directory);
    QTest::newRow("cancelled") << int(FileChoice::Kind::SaveFile) << "" << QStringList()
                               << int(QFileDialog::AnyFile);
}

void TestSupportFile::realChoosersAnswer()
{
    QFETCH(int, kind);
    QFETCH(QString, typed);
    QFETCH(QStringList, chosen);
    QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkdir(QStringLiteral("sub")));
    for (const char *name : {"a.zip", "b.zip"}) {
        QFile file(dir.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    FileChoice::Question question;
    question.kind = FileChoice::Kind(kind);
    question.caption = QStringLiteral("Choose");
    question.start = folder.path();
    QString caption;
    int mode = -1;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        auto *chooser = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!chooser)
            return;
        caption = chooser->windowTitle();
        mode = chooser->fileMode();
        if (typed.isEmpty()) {
            chooser->reject();
            return;
        }
        chooser->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(typed);
        QMetaObject::invokeMethod(chooser, "accept", Qt::QueuedConnection);
    });
    timer.start(20);
    QStringList expected;
    for (const QString &name : chosen)
        expected.append(dir.filePath(name));
    QCOMPARE(FileChoice::ask(question), expected);
    QCOMPARE(caption, QStringLiteral("Choose"));
    QTEST(mode, "mode");
}

int main(int argc, char **argv)
{
    TestSupportFile test;
    return runTest(argc, argv, test);
}

#include "test_support_file.moc"
