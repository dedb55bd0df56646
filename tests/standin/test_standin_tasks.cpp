#include "foundation/exceptions/APP_ConcurrentException.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QFontDatabase>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QtConcurrent>

class TestStandInTasks : public TestBase
{
    Q_OBJECT

private slots:
    void runWithProgressWaitsForTheTask();
    void runWithProgressKeepsTheEventLoopAlive();
    void runWithProgressRethrows();
    void runWithProgressOfAFinishedTaskReturns();
    void runWithProgressWithoutATaskReturns();
    void runWithProgressCanFailEarly();
    void poolThreadsMayCall();
    void messagesAreKept();
    void messagesAreShownWhenInteractive_data();
    void messagesAreShownWhenInteractive();
    void confirmIsAnsweredAhead();
    void confirmAsksWhenInteractive();
    void confirmMeansNoUnlessToldOtherwise_data();
    void confirmMeansNoUnlessToldOtherwise();
    void errorHandlerKeepsTheText();
    void errorHandlerAlertsWhenInteractive();
    void progressIsShownWhenInteractive();
    void progressCannotBeDismissed();
    void translatesKnownTexts();
    void dialogsAreCounted();
    void documentsMutexCanBeTried();
    void supportFile();
    void plainAnswersOfTheHost();
    void drives();
    void featuresPerDocument();
};

namespace {

// Looks at the modal window that opens next, and presses a button of it.
template <class Look> void answerNextMessageBox(QMessageBox::StandardButton button, Look look)
{
    QTimer::singleShot(0, qApp, [button, look] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        look(box);
        box->button(button)->click();
    });
}

}

void TestStandInTasks::runWithProgressWaitsForTheTask()
{
    StandInHost host;
    QAtomicInt done;
    QFutureWatcher<void> watcher;
    watcher.setFuture(QtConcurrent::run([&] {
        QThread::msleep(30);
        done = 1;
    }));
    host.runWithProgress("Saving", watcher);
    QCOMPARE(done.loadAcquire(), 1);
    QVERIFY(watcher.isFinished());
    QCOMPARE(host.journal(), QStringList({"runWithProgress(\"Saving\")"}));
}

void TestStandInTasks::runWithProgressKeepsTheEventLoopAlive()
{
    StandInHost host;
    QSemaphore release;
    QTimer::singleShot(0, &host.undoSteps()[0], [&] { release.release(); });
    QFutureWatcher<void> watcher;
    watcher.setFuture(QtConcurrent::run([&] { release.acquire(); }));
    host.runWithProgress("Saving", watcher); // ends only when the timer has run
    QCOMPARE(release.available(), 0);
}

void TestStandInTasks::runWithProgressRethrows()
{
    StandInHost host;
    LogCapture log;
    QFutureWatcher<void> watcher;
    watcher.setFuture(QtConcurrent::run(
        [] { throw APP_ConcurrentException(APP_Exception(QStringLiteral("full"), 3)); }));
    QVERIFY_EXCEPTION_THROWN(host.runWithProgress("Saving", watcher), APP_ConcurrentException);

    QFutureWatcher<void> other;
    other.setFuture(QtConcurrent::run([] { throw std::runtime_error("else"); }));
    QVERIFY_EXCEPTION_THROWN(host.runWithProgress("Saving", other), QUnhandledException);
}

void TestStandInTasks::runWithProgressOfAFinishedTaskReturns()
{
    StandInHost host;
    QFutureWatcher<void> watcher;
    QFuture<void> task = QtConcurrent::run([] {});
    task.waitForFinished();
    watcher.setFuture(task);
    host.runWithProgress("Saving", watcher);
    host.runWithProgress("Saving", watcher);
    QVERIFY(watcher.isFinished());
}

void TestStandInTasks::runWithProgressWithoutATaskReturns()
{
    StandInHost host;
    QFutureWatcher<void> watcher;
    host.runWithProgress("Saving", watcher);
    QCOMPARE(host.callCount(), 1);
}

void TestStandInTasks::runWithProgressCanFailEarly()
{
    StandInHost host;
    host.failOn("runWithProgress");
    QSemaphore release;
    QFutureWatcher<void> watcher;
    watcher.setFuture(QtConcurrent::run([&] { release.acquire(); }));
    QVERIFY_EXCEPTION_THROWN(host.runWithProgress("Saving", watcher), StandInFault);
    QVERIFY(!watcher.future().isFinished());
    release.release();
    watcher.waitForFinished();
}

void TestStandInTasks::poolThreadsMayCall()
{
    StandInHost host;
    host.failOn("writeSupportFile");
    QFuture<bool> failed = QtConcurrent::run([&] {
        try {
            host.writeSupportFile("a.zip", SupportSnapshot());
        } catch (const StandInFault &) {
            return true;
        }
        return false;
    });
    QVERIFY(failed.result());
    QtConcurrent::run([&] { host.saveCameraSettings("a.qcfg", {1}); }).waitForFinished();
    QCOMPARE(host.commands().size(), 2);
    QCOMPARE(host.commands().last(), QString("saveCameraSettings(\"a.qcfg\", [1])"));
}

void TestStandInTasks::messagesAreKept()
{
    StandInHost host;
    QSignalSpy spy(host.events(), &StandInEvents::messageShown);
    host.info("one", nullptr);
    host.warn("two", nullptr);
    host.warn("three", QStringList({"a", "b"}), nullptr);
    host.alert("four", nullptr);
    host.alert("five", QStringList({"c"}), nullptr);
    host.confirm("six", nullptr, {});
    QStringList kept;
    for (const StandInHost::Message &message : host.messages())
        kept.append(message.kind + ' ' + message.text + ' ' + message.items.join('+'));
    QCOMPARE(kept, QStringList({"info one ", "warn two ", "warn three a+b", "alert four ",
                                "alert five c", "confirm six "}));
    QCOMPARE(spy.count(), 6);
    QCOMPARE(spy.at(2).at(1).toString(), QString("three\na\nb"));
    host.clearMessages();
    QCOMPARE(host.messages().size(), 0);
}

void TestStandInTasks::messagesAreShownWhenInteractive_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("icon");
    QTest::newRow("info") << "info" << int(QMessageBox::Information);
    QTest::newRow("warn") << "warn" << int(QMessageBox::Warning);
    QTest::newRow("alert") << "alert" << int(QMessageBox::Critical);
}

void TestStandInTasks::messagesAreShownWhenInteractive()
{
    QFETCH(QString, kind);
    QFETCH(int, icon);
    StandInHost host;
    QWidget window;
    host.state().mainWidget = &window;
    host.setInteractive(true);
    bool shown = false;
    answerNextMessageBox(QMessageBox::Ok, [&](QMessageBox *box) {
        shown = true;
        QCOMPARE(int(box->icon()), icon);
        QCOMPARE(box->text(), QString("text\na"));
        QCOMPARE(box->parentWidget(), &window);
    });
    if (kind == "info")
        host.info("text\na", nullptr);
    else if (kind == "warn")
        host.warn("text", QStringList("a"), nullptr);
    else
        host.alert("text", QStringList("a"), nullptr);
    QVERIFY(shown);
}

void TestStandInTasks::confirmIsAnsweredAhead()
{
    StandInHost host;
    QVERIFY(!host.confirm("Sure?", nullptr, {}));
    host.answerConfirm(true);
    QVERIFY(host.confirm("Sure?", nullptr, {}));
    QVERIFY(host.confirm("Sure?", nullptr, {}));
    host.answerConfirm(false);
    QVERIFY(!host.confirm("Sure?", nullptr, {}));
}

void TestStandInTasks::confirmAsksWhenInteractive()
{
    StandInHost host;
    host.setInteractive(true);
    answerNextMessageBox(QMessageBox::Yes,
                         [](QMessageBox *box) { QCOMPARE(box->text(), QString("Sure?")); });
    QVERIFY(host.confirm("Sure?", nullptr, {}));
    answerNextMessageBox(QMessageBox::No, [](QMessageBox *) {});
    QVERIFY(!host.confirm("Sure?", nullptr, {}));
}

void TestStandInTasks::confirmMeansNoUnlessToldOtherwise_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void TestStandInTasks::confirmMeansNoUnlessToldOtherwise()
{
    QFETCH(int, key);
    StandInHost host;
    host.setInteractive(true);
    host.answerConfirm(true); // what is asked ahead does not count
    QTimer::singleShot(0, qApp, [key] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
        QTest::keyClick(box, Qt::Key(key));
    });
    QVERIFY(!host.confirm("Delete all?", nullptr, {}));
}

void TestStandInTasks::errorHandlerKeepsTheText()
{
    StandInHost host;
    QSignalSpy spy(host.events(), &StandInEvents::errorHandled);
    std::runtime_error error("\xc3\xa4 broken");
    host.errorHandler(error);
    QCOMPARE(host.handledErrors(), QStringList({QString::fromUtf8("ä broken")}));
    QCOMPARE(host.journal(), QStringList({QString::fromUtf8("errorHandler(\"ä broken\")")}));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(host.messages().size(), 0);
    host.clearHandledErrors();
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestStandInTasks::errorHandlerAlertsWhenInteractive()
{
    StandInHost host;
    host.setInteractive(true);
    bool shown = false;
    answerNextMessageBox(QMessageBox::Ok, [&](QMessageBox *box) {
        shown = true;
        QCOMPARE(box->text(), QString("broken"));
        QCOMPARE(int(box->icon()), int(QMessageBox::Critical));
    });
    std::runtime_error error("broken");
    host.errorHandler(error);
    QVERIFY(shown);
}

void TestStandInTasks::progressIsShownWhenInteractive()
{
    StandInHost host;
    host.setInteractive(true);
    QSemaphore release;
    QString label;
    QTimer::singleShot(0, qApp, [&] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *progress = qobject_cast<QProgressDialog *>(widget))
                label = progress->labelText();
        }
        release.release();
    });
    QFutureWatcher<void> watcher;
    watcher.setFuture(QtConcurrent::run([&] { release.acquire(); }));
    host.runWithProgress("Saving", watcher);
    QCOMPARE(label, QString("Saving"));
}

void TestStandInTasks::progressCannotBeDismissed()
{
    StandInHost host;
    host.setInteractive(true);
    QSemaphore release;
    int dismissals = 0;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (!progress)
            return;
        watch.stop();
        QVERIFY(progress->findChildren<QPushButton *>().isEmpty());
        QVERIFY(!(progress->windowFlags() & Qt::WindowCloseButtonHint));
        QTest::keyClick(progress, Qt::Key_Escape);
        dismissals += progress->isVisible() ? 0 : 1;
        QVERIFY(!progress->close());
        dismissals += progress->isVisible() ? 0 : 1;
        QVERIFY(!progress->wasCanceled());
        release.release();
    });
    watch.start(10);
    QFutureWatcher<void> watcher;
    watcher.setFuture(QtConcurrent::run([&] { release.tryAcquire(1, 10000); }));
    host.runWithProgress("Saving", watcher);
    QVERIFY(!watch.isActive()); // it was seen
    QCOMPARE(dismissals, 0);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestStandInTasks::translatesKnownTexts()
{
    StandInHost host;
    QCOMPARE(host.translate("Add Device"), QString("Add Device"));
    host.state().translations.insert("Add Device", QString::fromUtf8("Gerät"));
    QCOMPARE(host.translate("Add Device"), QString::fromUtf8("Gerät"));
    QCOMPARE(host.translate(QString::fromUtf8("größer")), QString::fromUtf8("größer"));
    QCOMPARE(host.translate(QString()), QString());
}

void TestStandInTasks::dialogsAreCounted()
{
    StandInHost host;
    host.notifyDialogEntered();
    host.notifyDialogEntered();
    host.notifyDialogLeft();
    QCOMPARE(host.state().openDialogs, 1);
    QVERIFY(!host.needsDialogEnterNotice());
    host.state().needsDialogEnterNotice = true;
    QVERIFY(host.needsDialogEnterNotice());
    QVERIFY(!host.textBoxFocusState());
    host.setTextBoxFocusState(true);
    QVERIFY(host.textBoxFocusState());
    QVERIFY(!host.isShownDropBox());
    host.showDropDownBox("partition", QRect(1, 2, 3, 4));
    QVERIFY(host.isShownDropBox());
    host.hideDropDownBox("partition");
    QVERIFY(!host.isShownDropBox());
    host.state().hasRestoredPrefs = true;
    QVERIFY(host.hasRestoredPrefs());
    host.acknowledgeRestoredPrefs(true);
    QVERIFY(!host.hasRestoredPrefs());
    host.state().prefsDialogResult = 4;
    QCOMPARE(host.prefsDialog()->exec(), 4);
}

void TestStandInTasks::documentsMutexCanBeTried()
{
    StandInHost host;
    QMutex *mutex = host.documentsMutex();
    QVERIFY(mutex);
    QCOMPARE(host.documentsMutex(), mutex);
    QVERIFY(mutex->tryLock(1));
    QVERIFY(!QtConcurrent::run([&] { return mutex->tryLock(1); }).result());
    host.addCamera();
    host.removeDocument(1); // the host's own work on the list does not wait for it
    mutex->unlock();
}

void TestStandInTasks::supportFile()
{
    StandInHost host;
    host.state().supportSnapshot.texts.insert("log.txt", "line");
    SupportSnapshot snapshot;
    host.exportSupportSnapshot(snapshot);
    QCOMPARE(snapshot.texts.value("log.txt"), QByteArray("line"));
    QVERIFY(host.writeSupportFile("a.zip", snapshot));
    host.state().supportFileSucceeds = false;
    QVERIFY(!host.writeSupportFile("a.zip", snapshot));
}

void TestStandInTasks::plainAnswersOfTheHost()
{
    StandInHost host;
    StandInState &state = host.state();
    QVERIFY(host.isReady());
    state.isReady = false;
    QVERIFY(!host.isReady());

    // A field, the question that it answers, and that it answers no other.
    const QVector<QPair<bool HostMainState::*, std::function<bool()>>> mainFields{
        {&HostMainState::isDialogExitSuppressed, [&] { return host.isDialogExitSuppressed(); }},
        {&HostMainState::isAutoCameraNameEnabled, [&] { return host.isAutoCameraNameEnabled(); }},
        {&HostMainState::isTrelvikWindowShown, [&] { return host.isTrelvikWindowShown(); }},
        {&HostMainState::isConverting, [&] { return host.isConverting(); }},
        {&HostMainState::isPartitionSelectionAuto, [&] { return host.isPartitionSelectionAuto(); }},
        {&HostMainState::isCycleView, [&] { return host.isCycleView(); }},
        {&HostMainState::isNotLivePage, [&] { return host.isNotLivePage(false); }},
        {&HostMainState::isNotLiveOrDeviceSettingsPage, [&] { return host.isNotLivePage(true); }},
        {&HostMainState::isPrefsDialogOpen, [&] { return host.isPrefsDialogOpen(); }},
        {&HostMainState::isModalDialogOpen, [&] { return host.isModalDialogOpen(); }},
    };
    for (const auto &set : mainFields) {
        state.*set.first = true;
        for (const auto &asked : mainFields)
            QCOMPARE(asked.second(), asked.first == set.first);
        state.*set.first = false;
    }
    const QVector<QPair<bool HostPluginsState::*, std::function<bool()>>> pluginFields{
        {&HostPluginsState::isMVersion, [&] { return host.isMVersion(); }},
        {&HostPluginsState::isAutoExposureSettingOpen,
         [&] { return host.isAutoExposureSettingOpen(); }},
        {&HostPluginsState::isHwTriggerSettingOpen, [&] { return host.isHwTriggerSettingOpen(); }},
        {&HostPluginsState::isVariableSettingOpen, [&] { return host.isVariableSettingOpen(); }},
        {&HostPluginsState::isTracking, [&] { return host.isTracking(); }},
        {&HostPluginsState::isSendingNodeCommand, [&] { return host.isSendingNodeCommand(); }},
        {&HostPluginsState::isAdjustingImage, [&] { return host.isAdjustingImage(); }},
        {&HostPluginsState::isDetectingPixelDefect, [&] { return host.isDetectingPixelDefect(); }},
        {&HostPluginsState::isImageTriggerCapturing,
         [&] { return host.isImageTriggerCapturing(); }},
        {&HostPluginsState::isImageTriggerDetecting,
         [&] { return host.isImageTriggerDetecting(); }},
        {&HostPluginsState::isOtherPluginOpen, [&] { return host.isOtherPluginOpen(); }},
    };
    for (const auto &set : pluginFields) {
        state.*set.first = true;
        for (const auto &asked : pluginFields)
            QCOMPARE(asked.second(), asked.first == set.first);
        state.*set.first = false;
    }
    const QVector<QPair<bool HostCameraLinkState::*, std::function<bool()>>> linkFields{
        {&HostCameraLinkState::isLowlightOn, [&] { return host.isLowlightOn(); }},
        {&HostCameraLinkState::hasLowlightDevice, [&] { return host.hasLowlightDevice(); }},
        {&HostCameraLinkState::areAllLowlightOn, [&] { return host.areAllLowlight(true); }},
        {&HostCameraLinkState::areAllLowlightOff, [&] { return host.areAllLowlight(false); }},
        {&HostCameraLinkState::isLensCalibrationRunning,
         [&] { return host.isLensCalibrationRunning(); }},
        {&HostCameraLinkState::isAutoFocusing, [&] { return host.isAutoFocusing(); }},
        {&HostCameraLinkState::isPhaseAdjusting, [&] { return host.isPhaseAdjusting(); }},
        {&HostCameraLinkState::isShading, [&] { return host.isShading(); }},
        {&HostCameraLinkState::isCurrentOtherThanAutoFocus,
         [&] { return host.isCurrentOtherThanAutoFocus(true); }},
    };
    for (const auto &set : linkFields) {
        state.*set.first = true;
        for (const auto &asked : linkFields)
            QCOMPARE(asked.second(), asked.first == set.first);
        state.*set.first = false;
    }
    const QVector<QPair<bool HostFileExportState::*, std::function<bool()>>> exportFields{
        {&HostFileExportState::isBackgroundSaving, [&] { return host.isBackgroundSaving(); }},
        {&HostFileExportState::isBackgroundConverting,
         [&] { return host.isBackgroundConverting(); }},
        {&HostFileExportState::isDirectSaving, [&] { return host.isDirectSaving(true); }},
        {&HostFileExportState::isAutoExporting, [&] { return host.isAutoExporting(); }},
    };
    for (const auto &set : exportFields) {
        state.*set.first = true;
        for (const auto &asked : exportFields)
            QCOMPARE(asked.second(), asked.first == set.first);
        state.*set.first = false;
    }

    state.isRecording = true;
    state.recordingState = 4;
    QVERIFY(host.isRecording());
    QVERIFY(!host.hasPartitionConflict(true));
    QCOMPARE(host.recordingState(), 4);
    state.hasPartitionConflict = true;
    QVERIFY(host.hasPartitionConflict(true));
    state.isWaveDataAcquisition = true;
    QVERIFY(host.isWaveDataAcquisition() && !host.hasWaveformData());
    state.hasWaveformData = true;
    QVERIFY(host.hasWaveformData());
    state.isFullScreen = true;
    QVERIFY(host.isFullScreen() && !host.isActiveOnTrelvik());
    state.isActiveOnTrelvik = true;
    QVERIFY(host.isActiveOnTrelvik());
    state.isTrelvikRunning = true;
    QVERIFY(host.isTrelvikRunning());
    state.features.insert("binning");
    QVERIFY(host.isFeatureOn("binning", nullptr, false));
    QVERIFY(!host.isFeatureOn("lut", nullptr, false));
    state.infoItemLabels.insert("Date", "Datum");
    QCOMPARE(host.infoItemLabel("Date"), QString("Datum"));
    QCOMPARE(host.infoItemLabel("RecDateTime"), QString("Recording date and time"));
    state.translations.insert("Recording date and time", "Aufnahmezeit");
    state.translations.insert("Date", "Tag");
    host.clearJournal();
    QCOMPARE(host.infoItemLabel("RecDateTime"), QString("Aufnahmezeit"));
    QCOMPARE(host.infoItemLabel("Date"), QString("Datum")); // its own goes first
    QCOMPARE(host.journal(),
             QStringList({"infoItemLabel(\"RecDateTime\")", "infoItemLabel(\"Date\")"}));
    QCOMPARE(host.infoItemLabel("Custom_7"), QString("Custom_7")); // unknown
    QCOMPARE(host.infoItemLabel("<hr>"), QString("<hr>"));
    QCOMPARE(host.infoItemLabel(QString()), QString());
    QCOMPARE(host.fontFamilyList(), QFontDatabase().families());
    state.fontFamilies = QStringList{"Own"};
    QCOMPARE(host.fontFamilyList(), QStringList({"Own"}));
    host.applyOutputFontName("Mono", 2);
    QCOMPARE(state.outputFontNames.value(2), QString("Mono"));
    QCOMPARE(host.hostVersionText(), QString("1.0.0"));
    QCOMPARE(host.companionInstallDir(), QString());
    state.companionInstallDir = "C:/q";
    QCOMPARE(host.companionInstallDir(), QString("C:/q"));
    QCOMPARE(host.appScriptObject()->objectName(), QString("app"));
    QCOMPARE(host.mainScriptObject()->objectName(), QString("main"));
    QCOMPARE(host.webPageEmbeddedMdi(), nullptr);
    QCOMPARE(host.mainWidget(), nullptr);
    host.selectVariable(3);
    QCOMPARE(state.selectedVariable, 3u);
    state.defaultCameraName = "Cam";
    QCOMPARE(host.defaultCameraName(), QString("Cam"));
    state.temporaryKeys = {4};
    state.targetKeys = QList<DOCKEY>{5};
    QList<DOCKEY> keys;
    host.temporaryDocumentKeys(keys);
    QCOMPARE(keys, QList<DOCKEY>({4}));
    host.targetDocKeys(keys, true, 0);
    QCOMPARE(keys, QList<DOCKEY>({5}));
    state.savedRecords = {{"s", "2"}};
    QCOMPARE(host.findSavedRecords("D:/", {{"s", "1"}, {"s", "2"}}),
             QList<SavedRecord>({{"s", "2"}}));
}

void TestStandInTasks::drives()
{
    StandInHost host;
    StandInState &state = host.state();
    state.kelvaultDrives = {{1, 0, 2, "K0", "", false, 12.5, 1000, false},
                            {1, 1, 3, "K1", "word", true, 250.0, 7, true}};
    state.cfCardDrives = {{4, 5, 0, "C", "", false, 50.0, 0, false}};
    QCOMPARE(host.kelvaultDrives().size(), 2);
    QCOMPARE(host.kelvaultDrives().at(1),
             QVariantMap({{"driveno", 1}, {"slotno", 3}, {"drivetype", 1}, {"drivename", "K1"}}));
    QCOMPARE(host.cfCardDrives().at(0).value("drivename").toString(), QString("C"));

    host.openKelvaultDrive(1, 0, 2, "K0");
    QCOMPARE(state.kelvaultDrives.openDrive(), &state.kelvaultDrives.at(0));
    {
        LogCapture log;
        try {
            host.openKelvaultDrive(1, 1, 3, "K1");
            QFAIL("it is locked");
        } catch (const APP_Exception &failure) {
            QCOMPARE(failure.errorCode(), 407u);
        }
    }
    QVERIFY(!host.unlockKelvaultDrive(1, 1, "wrong"));
    QVERIFY(host.unlockKelvaultDrive(1, 1, "word"));
    host.openKelvaultDrive(1, 1, 3, "K1");
    QCOMPARE(state.kelvaultDrives.openDrive(), &state.kelvaultDrives.at(1));
    QVERIFY(!host.changeDrivePassword(1, 1, "wrong", "new"));
    QVERIFY(host.changeDrivePassword(1, 1, "word", "new"));
    QVERIFY(host.unlockKelvaultDrive(1, 1, "new"));
    host.forgetDrivePassword(1, 1, 3, QString());
    QVERIFY(state.kelvaultDrives.at(1).isLocked);
    QCOMPARE(host.driveUseRatio(1, 0, 2), 12.5);
    QCOMPARE(host.driveUseRatio(1, 1, 3), 100.0);
    QCOMPARE(host.totalWrittenBytes(1, 0, 2), 1000ULL);
    QVERIFY(host.formatKelvaultDrive(1, 0, 2));
    QCOMPARE(host.driveUseRatio(1, 0, 2), 0.0);
    QVERIFY(!host.formatKelvaultDrive(1, 1, 3));

    int type = 77;
    int driveNo = 78;
    QVERIFY(!host.openCFCardDrive(&type, &driveNo));
    QCOMPARE(type, 77);
    QCOMPARE(driveNo, 78);
    host.openCFCardDrive(4, 5, 0, "C");
    QVERIFY(host.openCFCardDrive(&type, &driveNo));
    QCOMPARE(type, 4);
    QCOMPARE(driveNo, 5);
    QCOMPARE(host.cfastUseRatio(4, 5, 0), 50.0);
    QVERIFY(host.formatCFCardDrive(4, 5, 0));
    host.closeCFastData(false);
    QVERIFY(!host.openCFCardDrive(&type, &driveNo));

    state.cardReaderDriveMask = 8;
    QCOMPARE(host.cardReaderDriveMask(), 8u);
    QCOMPARE(host.openCardReaderDrive(), 0u);
    host.openCardReaderDrive(8);
    QCOMPARE(host.openCardReaderDrive(), 8u);
    host.closeCardReaderData();
    QCOMPARE(host.openCardReaderDrive(), 0u);
}

void TestStandInTasks::featuresPerDocument()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    first->state().features.insert("binning");
    QVERIFY(host.isFeatureOn("binning", first, false));
    QVERIFY(!host.isFeatureOn("binning", second, false));
    QVERIFY(!host.isFeatureOn("binning", nullptr, false));
    QVERIFY(!host.isFeatureOn("zoom", first, false));
    host.state().features.insert("zoom"); // on for all
    QVERIFY(host.isFeatureOn("zoom", first, false));
    QVERIFY(host.isFeatureOn("zoom", second, false));
    QVERIFY(host.isFeatureOn("zoom", nullptr, false));
    host.closeDocument(first->key());
    QVERIFY(!host.isFeatureOn("binning", first, false));
}

int main(int argc, char **argv)
{
    TestStandInTasks test;
    return runTest(argc, argv, test);
}

#include "test_standin_tasks.moc"
