#include "EditInfoScene.h"
#include "foundation/Clock.h"
#include "tests/support/TestLog.h"

#include <QCloseEvent>
#include <QMetaMethod>
#include <QTimer>

Q_DECLARE_METATYPE(StandInHost::Mode)

// The dialog of the information display: its window, its slots, how it is opened and left.

class TestEditInfoDialog : public TestBase
{
    Q_OBJECT

private slots:
    void windowIsAsTold_data();
    void windowIsAsTold();
    void slotsStandInOrder();
    void objectsComeBackWithEachPage();
    void shortFormIsTheEditorOfTheCurrentDocument();
    void failureWhileConstructedReachesTheCaller();
    void wayOutWritesBackOrKeeps_data();
    void wayOutWritesBackOrKeeps();
    void groupZeroOfTheSaveFormKeepsItsTypeface();
    void whatOtherDialogsEditedStays();
    void secondWayOutDoesNothing_data();
    void secondWayOutDoesNothing();
    void reloadedPageStartsOver();
    void pageThatAsksAtItsEndUndoesNoOk_data();
    void pageThatAsksAtItsEndUndoesNoOk();
    void dialogThatIsShownAgainStartsOver_data();
    void dialogThatIsShownAgainStartsOver();
    void changedFlagsAreNoWayOut();
    void showingWhatIsShownIsNoWayOut();
    void hidingWhatIsHiddenIsNoWayOut();
    void dialogThatWasNeverShownWritesNothingBackWhereItGoes();
    void shownDialogWritesBackWhereItGoes_data();
    void shownDialogWritesBackWhereItGoes();
    void failureLeavesTheOthersWrittenBack_data();
    void failureLeavesTheOthersWrittenBack();
    void hostThatFailsThroughoutLetsItClose_data();
    void hostThatFailsThroughoutLetsItClose();
    void closingIsNeverRefused();
    void escapeIsIgnored();
    void pageCannotDeleteIt();
    void questionIsTheHosts();
    void convertParametersAreOfOneFormat_data();
    void convertParametersAreOfOneFormat();
    void styleAndTranslationAreTheHosts();
    void dialogMayGoWhileItsHostIsAsked_data();
    void dialogMayGoWhileItsHostIsAsked();
};

namespace {

// A way out as a page or the user takes it.
void leave(EditInfoScene &scene, const QString &way)
{
    if (way == "title bar")
        scene.dialog->close();
    else
        scene.page->evaluate("editInfo." + way);
}

// Everything that the dialog can change has other values.
void changeEverything(StandInHost &host)
{
    for (bool saveForm : {false, true}) {
        for (int group = 0; group < 7; ++group) {
            for (const StoredSetting &each : EditInfoScene::typeface(saveForm, group))
                host.settings().setValue(each.key, "9");
            for (const StoredSetting &each : EditInfoScene::items(saveForm, group))
                host.settings().setValue(each.key, "Custom:true");
        }
    }
    host.settings().setValue("info/BlankLine", true);
    host.settings().setValue("info/IconSize", "48");
    host.settings().setValue("saveinfo/collectiveSetting", false);
    host.settings().setValue("saveinfo/WithinImage", true);
}

}

void TestEditInfoDialog::windowIsAsTold_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("url");
    QTest::newRow("editor form") << false << QSize(340, 680) << "qrc:/editinfo.html";
    QTest::newRow("save form") << true << QSize(850, 680) << "qrc:/saveinfoview.html";
}

void TestEditInfoDialog::windowIsAsTold()
{
    QFETCH(bool, saveForm);
    QFETCH(QSize, size);
    EditInfoScene scene;
    scene.host.state().translations.insert("edit information", "Einblendung");
    scene.open(saveForm);
    GUI_EditInfoDialog *dialog = scene.dialog;
    QCOMPARE(dialog->parentWidget(), &scene.mainWidget);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Einblendung"));
    QCOMPARE(dialog->minimumSize(), size);
    QCOMPARE(dialog->maximumSize(), size);
    QVERIFY(!(dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(dialog->webView()->parentWidget(), static_cast<QWidget *>(dialog));
    QVERIFY(scene.show());
    QTEST(dialog->webView()->url().toString(), "url");
}

void TestEditInfoDialog::slotsStandInOrder()
{
    const QStringList properties = {"QString getFontName",
                                    "QString getFontSize",
                                    "bool getBold",
                                    "bool getItalic",
                                    "QString getForegroundColor",
                                    "bool isFixedFontSizeRatio",
                                    "QSize getFixedFontSizeRatioBaseResolution",
                                    "int getAlignment",
                                    "bool getUseBackgroundColor",
                                    "QString getBackgroundColor",
                                    "int getWidth",
                                    "int getIconSize",
                                    "bool getToColumn",
                                    "QString getColumnNum",
                                    "int getColumnSpacing"};
    QStringList expected = {"void populateJavaScriptWindowObject()",
                            "QString getInfoSettingsHtml(int)",
                            "QString getInfoSettingsHtml()",
                            "void changeDisp(QString,bool,int)",
                            "void changeDisp(QString,bool)",
                            "void changeOrder(QString,int)",
                            "void changeOrder(QString)",
                            "void backupFontSettings(int)",
                            "void restoreFontSettings()",
                            "QStringList getFontNameList()",
                            "QStringList getFontSizeList()",
                            "QStringList getToColumnList()",
                            "bool isCollectiveSetting()",
                            "void setCollectiveSetting(bool,bool)",
                            "void setCollectiveSetting(bool)"};
    for (const QString &getter : properties)
        expected += QStringList({getter + "(int)", getter + "()"});
    for (const QString &getter : properties) {
        QString name = getter.section(' ', 1);
        name =
            "void set" + name.mid(name.startsWith("is") ? 2 : 3) + "(" + getter.section(' ', 0, 0);
        expected += QStringList({name + ",bool)", name + ")"});
    }
    expected += QStringList({"bool getWithinImage()",
                             "void setWithinImage(bool,bool)",
                             "void setWithinImage(bool)",
                             "bool getDisplayBlankLine()",
                             "void setDisplayBlankLine(bool)",
                             "void editComment()",
                             "void setLogoPath()",
                             "void execTimeCodeSettingDialog()",
                             "void editCustom()",
                             "void editShutterDispFormat()",
                             "void editRectimeDispFormat()",
                             "void editRecordRateDispFormat()",
                             "void editFrameDispFormat()",
                             "QString getThumbnail(int,int)",
                             "QString getThumbnail(int)",
                             "QString getThumbnail()",
                             "QList<int> getThumbnailResolution()",
                             "QString getResolutionStr()",
                             "QString getExportLanguage()",
                             "void writeFontOK()",
                             "void writeFontCancel()",
                             "void reset()",
                             "bool confirm(QString)",
                             "void ok()",
                             "void cancel()",
                             "QString getStyle()",
                             "QString translate(QString)",
                             "bool onConvertParameterEditDialog()"});
    QCOMPARE(expected.size(), 103);

    const QMetaObject &meta = GUI_EditInfoDialog::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).access(), QMetaMethod::Public);
        methods.append(QString::fromLatin1(meta.method(i).typeName()) + " " +
                       QString::fromLatin1(meta.method(i).methodSignature()));
    }
    QCOMPARE(methods, expected);
}

void TestEditInfoDialog::objectsComeBackWithEachPage()
{
    for (bool saveForm : {false, true}) {
        EditInfoScene scene(saveForm);
        QVERIFY(scene.show());
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(scene.page->call("typeof editInfo + app.objectName"),
                     QStringLiteral("\"objectapp\""));
            scene.dialog->webView()->reload();
            QVERIFY(scene.page->waitLoaded());
            QCOMPARE(scene.journal(), QStringList({"appScriptObject()"}));
        }
    }
}

void TestEditInfoDialog::shortFormIsTheEditorOfTheCurrentDocument()
{
    const QDateTime noon(QDate(2024, 5, 6), QTime(12, 0));
    const Clock::Fixed clock(noon);
    EditInfoScene scene;
    scene.dialog = new GUI_EditInfoDialog(&scene.host);
    QCOMPARE(scene.dialog->width(), 340);
    scene.journal();
    const QSize size = scene.document(1)->documentResolution(1, 1, false);
    scene.journal();
    QVERIFY(!scene.dialog->getThumbnail().isEmpty());
    QCOMPARE(scene.journal(),
             QStringList({"documentKeyOf([1])", "[1].documentResolution(1, 1, false)",
                          QStringLiteral("[1].documentThumbnail(10, %1, %2, 1, 0, "
                                         "\"2024-05-06T12:00:00\")")
                              .arg(size.width())
                              .arg(size.height())}));
}

void TestEditInfoDialog::failureWhileConstructedReachesTheCaller()
{
    for (const char *operation :
         {"mainWidget", "translate", "currentDocument", "documentKeyOf", "currentPartition"}) {
        EditInfoScene scene;
        scene.host.failOn(QString::fromLatin1(operation));
        QVERIFY_EXCEPTION_THROWN(GUI_EditInfoDialog dialog(&scene.host), StandInFault);
        QCOMPARE(scene.host.handledErrors(), QStringList());
    }
}

void TestEditInfoDialog::wayOutWritesBackOrKeeps_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("isKept");
    QTest::addColumn<bool>("isClosed"); // leaves the lines of a closed dialog
    for (bool saveForm : {false, true}) {
        const auto row = [saveForm](const char *way, int result, bool isKept, bool isClosed) {
            QTest::addRow("%s, %s form", way, saveForm ? "save" : "editor")
                << saveForm << QString::fromLatin1(way) << result << isKept << isClosed;
        };
        row("ok()", QDialog::Accepted, true, true);
        row("accept()", QDialog::Accepted, true, false);
        row("done(1)", QDialog::Accepted, true, false);
        row("cancel()", QDialog::Rejected, false, true);
        row("reject()", QDialog::Rejected, false, false);
        row("done(0)", QDialog::Rejected, false, false);
        row("done(7)", 7, false, false);
        row("hide()", QDialog::Rejected, false, false);
        row("setVisible(false)", QDialog::Rejected, false, false);
        row("close()", QDialog::Rejected, false, true);
        row("title bar", QDialog::Rejected, false, true);
    }
}

// The whole story, from the call of exec() to its return.
void TestEditInfoDialog::wayOutWritesBackOrKeeps()
{
    QFETCH(bool, saveForm);
    QFETCH(QString, way);
    QFETCH(bool, isKept);
    QFETCH(bool, isClosed);
    EditInfoScene scene(saveForm);
    QSignalSpy finished(scene.dialog, &QDialog::finished);
    LogCapture log;
    scene.page = std::make_unique<PageProbe>(scene.dialog->webView());
    connect(scene.dialog->webView(), &QWebView::loadFinished, scene.dialog, [&] {
        QTimer::singleShot(0, scene.dialog, [&] {
            changeEverything(scene.host);
            leave(scene, way);
        });
    });
    QTEST(scene.dialog->exec(), "result");
    QVERIFY(!scene.dialog->isVisible());
    QCOMPARE(finished.count(), way == "hide()" || way == "setVisible(false)" ? 0 : 1);
    QStringList expected("appScriptObject()");
    if (!isKept)
        expected += EditInfoScene::allBack(saveForm);
    QCOMPARE(scene.host.journal(), expected);
    QStringList lines;
    if (isClosed)
        lines = QStringList({"[USER] \"[URL:GUI_EditInfoDialog] [ID:close] [Control:Button] "
                             "[Operation:clicked] [Value:] \"",
                             "[ENTER] \"GUI_EditInfoDialog::closeEvent\" \"\"",
                             "[LEAVE] \"GUI_EditInfoDialog::closeEvent\""});
    QCOMPARE(log.texts(), lines);

    for (int group = 0; group < 7; ++group) {
        const QVariant changed("Custom:true");
        for (const StoredSetting &each : EditInfoScene::items(saveForm, group))
            QCOMPARE(scene.setting(each.key), isKept ? changed : each.value);
        const bool isBack = !isKept && (!saveForm || group != 0);
        for (const StoredSetting &each : EditInfoScene::typeface(saveForm, group))
            QCOMPARE(scene.setting(each.key), isBack ? each.value : QVariant("9"));
        for (const StoredSetting &each : EditInfoScene::typeface(!saveForm, group))
            QCOMPARE(scene.setting(each.key), QVariant("9"));
    }
    QCOMPARE(scene.setting("info/BlankLine"), QVariant(isKept || saveForm));
    QCOMPARE(scene.setting("saveinfo/WithinImage"), QVariant(isKept || !saveForm));
    QCOMPARE(scene.setting("saveinfo/collectiveSetting"), QVariant(!isKept && saveForm));
    QCOMPARE(scene.setting("info/IconSize"), QVariant("48"));
}

void TestEditInfoDialog::groupZeroOfTheSaveFormKeepsItsTypeface()
{
    EditInfoScene scene(true);
    scene.dialog->getFontSize(0);
    scene.dialog->setFontSize("44");
    scene.dialog->changeDisp("Date", false, 0);
    LogCapture log;
    scene.dialog->cancel();
    QCOMPARE(scene.setting("saveinfo/FontSize0"), QVariant("44"));
    QCOMPARE(scene.setting("saveinfo/display0"), QVariant("Date:true,<hr>,Item0:false"));
    scene.dialog->setFontSize("28"); // the last group that was written is the current one
    QCOMPARE(scene.setting("saveinfo/FontSize6"), QVariant("28"));
}

void TestEditInfoDialog::whatOtherDialogsEditedStays()
{
    EditInfoScene scene(false);
    scene.dialog->setIconSize(48);
    scene.host.settings().setValue("info/LogoPath", "/logos/new.png");
    scene.host.settings().setValue("info/RecTimeUnit", 3);
    LogCapture log;
    scene.dialog->cancel();
    QCOMPARE(scene.setting("info/IconSize"), QVariant("48"));
    QCOMPARE(scene.setting("info/LogoPath"), QVariant("/logos/new.png"));
    QCOMPARE(scene.setting("info/RecTimeUnit"), QVariant(3));
}

void TestEditInfoDialog::secondWayOutDoesNothing_data()
{
    QTest::addColumn<QString>("first");
    for (const char *way : {"ok()", "accept()", "cancel()", "hide()", "done(0)", "close()"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestEditInfoDialog::secondWayOutDoesNothing()
{
    QFETCH(QString, first);
    for (const char *second : {"close()", "cancel()", "reject()", "hide()", "done(0)", "ok()"}) {
        EditInfoScene scene(false);
        QVERIFY(scene.show());
        LogCapture log;
        leave(scene, first);
        scene.journal();
        leave(scene, QString::fromLatin1(second));
        QCOMPARE(scene.journal(), QStringList());
    }
}

// Its list is read before anything else.
void TestEditInfoDialog::reloadedPageStartsOver()
{
    EditInfoScene scene(false);
    LogCapture log;
    scene.dialog->ok();
    QCOMPARE(scene.journal(), QStringList());
    scene.dialog->getInfoSettingsHtml();
    scene.journal();
    scene.dialog->close();
    QCOMPARE(scene.journal(), EditInfoScene::allBack(false));
    QCOMPARE(scene.dialog->result(), int(QDialog::Rejected));
}

void TestEditInfoDialog::pageThatAsksAtItsEndUndoesNoOk_data()
{
    QTest::addColumn<QString>("signal");
    for (const char *signal : {"accepted", "finished"})
        QTest::newRow(signal) << QString::fromLatin1(signal);
}

void TestEditInfoDialog::pageThatAsksAtItsEndUndoesNoOk()
{
    QFETCH(QString, signal);
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    LogCapture log;
    scene.page->evaluate("editInfo." + signal +
                         ".connect(function () { editInfo.getInfoSettingsHtml(9); })");
    scene.page->evaluate("editInfo.ok()");
    QVERIFY(!scene.dialog->isVisible());
    QCOMPARE(scene.host.commands(), QStringList());
}

void TestEditInfoDialog::dialogThatIsShownAgainStartsOver_data()
{
    secondWayOutDoesNothing_data();
}

void TestEditInfoDialog::dialogThatIsShownAgainStartsOver()
{
    QFETCH(QString, first);
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    LogCapture log;
    leave(scene, first);
    scene.dialog->show();
    scene.journal();
    scene.dialog->close();
    QCOMPARE(scene.journal(), EditInfoScene::allBack(false));
}

void TestEditInfoDialog::changedFlagsAreNoWayOut()
{
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    emit scene.dialog->signalDisableCloseButton();
    emit scene.dialog->signalEnableCloseButton();
    QVERIFY(scene.dialog->isVisible());
    QCOMPARE(scene.host.commands(), QStringList());
    scene.dialog->hide();
    QCOMPARE(scene.journal(), EditInfoScene::allBack(false));
}

void TestEditInfoDialog::showingWhatIsShownIsNoWayOut()
{
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    scene.page->evaluate("editInfo.show(); editInfo.setVisible(true)");
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoDialog::hidingWhatIsHiddenIsNoWayOut()
{
    EditInfoScene scene(false);
    scene.dialog->hide();
    scene.dialog->setVisible(false);
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoDialog::dialogThatWasNeverShownWritesNothingBackWhereItGoes()
{
    EditInfoScene scene(false);
    delete scene.dialog;
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoDialog::shownDialogWritesBackWhereItGoes_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"deleted", "with its parent", "application ends"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestEditInfoDialog::shownDialogWritesBackWhereItGoes()
{
    QFETCH(QString, way);
    EditInfoScene scene;
    auto mainWidget = std::make_unique<QWidget>();
    scene.host.state().mainWidget = mainWidget.get();
    scene.open(false);
    QVERIFY(scene.show());
    scene.page.reset();
    if (way == "deleted") {
        delete scene.dialog;
    } else if (way == "with its parent") {
        mainWidget.reset();
    } else {
        scene.dialog->hide();
        scene.journal();
        QTimer::singleShot(0, scene.dialog, [] { QCoreApplication::quit(); });
        scene.dialog->exec();
        delete scene.dialog;
    }
    QVERIFY(!scene.dialog);
    QCOMPARE(scene.journal(), EditInfoScene::allBack(false));
}

void TestEditInfoDialog::failureLeavesTheOthersWrittenBack_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QString>("way");
    for (bool saveForm : {false, true}) {
        for (const char *way : {"cancel()", "title bar", "hide()", "done(0)"})
            QTest::addRow("%s, %s form", way, saveForm ? "save" : "editor")
                << saveForm << QString::fromLatin1(way);
    }
}

// Each call of the way out fails once: all others are made, and the dialog closes.
void TestEditInfoDialog::failureLeavesTheOthersWrittenBack()
{
    QFETCH(bool, saveForm);
    QFETCH(QString, way);
    const QStringList whole = EditInfoScene::allBack(saveForm);
    const QList<int> failing = saveForm ? QList<int>({1, 8, 9, 10, 11, 50, whole.size()})
                                        : QList<int>({1, 2, 3, 4, 9, whole.size()});
    for (int nth : failing) {
        EditInfoScene scene(saveForm);
        QVERIFY(scene.show());
        LogCapture log;
        scene.host.failAtCall(nth);
        leave(scene, way);
        QVERIFY(!scene.dialog->isVisible());
        QCOMPARE(scene.host.handledErrors().size(), 1);
        QStringList made = scene.journal();
        QCOMPARE(made.removeAll(made.filter("errorHandler(").value(0)), 1);
        QStringList expected = whole;
        // A font that could not be stored is not told to the output, nor one of unknown language.
        const QString failed = whole.at(nth - 1);
        if (failed.startsWith("setPref(\"saveinfo/FontName"))
            expected.erase(expected.begin() + nth, expected.begin() + nth + 2);
        else if (failed.startsWith("getPrefString"))
            expected.removeAt(nth);
        QCOMPARE(made, expected);
    }
}

void TestEditInfoDialog::hostThatFailsThroughoutLetsItClose_data()
{
    failureLeavesTheOthersWrittenBack_data();
}

void TestEditInfoDialog::hostThatFailsThroughoutLetsItClose()
{
    QFETCH(bool, saveForm);
    QFETCH(QString, way);
    EditInfoScene scene(saveForm);
    QVERIFY(scene.show());
    LogCapture log;
    scene.host.failFromCall(1);
    leave(scene, way);
    QVERIFY(!scene.dialog->isVisible());
    QVERIFY(!scene.host.handledErrors().isEmpty());
    scene.host.clearFaults();
    scene.host.clearHandledErrors();
    scene.journal();
    scene.dialog->close();
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoDialog::closingIsNeverRefused()
{
    EditInfoScene scene(false);
    LogCapture log;
    for (int i = 0; i < 2; ++i) {
        QCloseEvent event;
        event.ignore();
        QCoreApplication::sendEvent(scene.dialog, &event);
        QVERIFY(event.isAccepted());
        QCOMPARE(scene.journal(), i == 0 ? EditInfoScene::allBack(false) : QStringList());
    }
}

void TestEditInfoDialog::escapeIsIgnored()
{
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    QTest::keyClick(scene.dialog, Qt::Key_Escape);
    QTest::keyClick(scene.dialog->webView(), Qt::Key_Escape);
    QVERIFY(scene.dialog->isVisible());
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoDialog::pageCannotDeleteIt()
{
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    scene.page->evaluate("editInfo.deleteLater()");
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(scene.dialog);
    QCOMPARE(scene.journal(), QStringList());
}

void TestEditInfoDialog::questionIsTheHosts()
{
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    for (bool yes : {true, false}) {
        scene.host.answerConfirm(yes);
        QCOMPARE(scene.call("confirm('Really?')"), yes ? QString("true") : QString("false"));
        QCOMPARE(scene.journal(), QStringList("confirm(\"Really?\", null, {})"));
    }
    scene.host.answerConfirm(true);
    scene.host.failOn("confirm");
    QCOMPARE(scene.call("confirm('Really?')"), QStringLiteral("false"));
    QCOMPARE(scene.host.handledErrors(), QStringList("confirm failed"));
}

void TestEditInfoDialog::convertParametersAreOfOneFormat_data()
{
    QTest::addColumn<int>("fileType");
    QTest::addColumn<StandInHost::Mode>("mode");
    QTest::addColumn<bool>("has");
    using Mode = StandInHost::Mode;
    QTest::newRow("live") << 6 << Mode::Live << true;
    QTest::newRow("memory") << 6 << Mode::Memory << true;
    QTest::newRow("file") << 6 << Mode::File << false;
    QTest::newRow("format before") << 5 << Mode::Live << false;
    QTest::newRow("format behind") << 7 << Mode::Live << false;
}

void TestEditInfoDialog::convertParametersAreOfOneFormat()
{
    QFETCH(int, fileType);
    QFETCH(StandInHost::Mode, mode);
    EditInfoScene scene;
    scene.open(true, fileType, scene.document(1));
    scene.host.setMode(mode);
    scene.journal();
    QTEST(scene.dialog->onConvertParameterEditDialog(), "has");
    QCOMPARE(scene.journal(), QStringList("isFileMode()"));
    scene.host.failOn("isFileMode");
    QCOMPARE(scene.dialog->onConvertParameterEditDialog(), false);
}

void TestEditInfoDialog::styleAndTranslationAreTheHosts()
{
    EditInfoScene scene(true);
    QVERIFY(scene.show());
    scene.host.settings().setValue("env/style", "dark");
    scene.host.state().translations.insert("Font", "Schrift");
    QCOMPARE(scene.call("getStyle()"), QStringLiteral("\"dark\""));
    QCOMPARE(scene.call("translate('Font')"), QStringLiteral("\"Schrift\""));
    QCOMPARE(scene.journal(),
             QStringList({"getPrefString(\"env/style\", \"light\")", "translate(\"Font\")"}));
}

void TestEditInfoDialog::dialogMayGoWhileItsHostIsAsked_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QString>("call");
    for (bool saveForm : {false, true}) {
        for (const char *call :
             {"getInfoSettingsHtml", "restoreFontSettings", "writeFontCancel", "reset", "cancel",
              "reject", "hide", "close", "getThumbnail", "getResolutionStr"})
            QTest::addRow("%s, %s form", call, saveForm ? "save" : "editor")
                << saveForm << QString::fromLatin1(call);
    }
    QTest::newRow("writeFontOK, save form") << true << "writeFontOK";
}

// At its first call, while it is on the screen. Everything is written back all the same.
void TestEditInfoDialog::dialogMayGoWhileItsHostIsAsked()
{
    QFETCH(bool, saveForm);
    QFETCH(QString, call);
    EditInfoScene scene(saveForm);
    QVERIFY(scene.show());
    scene.page.reset();
    LogCapture log;
    connect(scene.host.events(), &StandInEvents::callJournalled, scene.dialog,
            [&, isGoing = false]() mutable {
                if (!isGoing) {
                    isGoing = true;
                    delete scene.dialog;
                }
            });
    QMetaObject::invokeMethod(scene.dialog, call.toLatin1());
    QVERIFY(!scene.dialog);
    QCOMPARE(scene.host.handledErrors(), QStringList());
    for (const QString &line : EditInfoScene::allBack(saveForm))
        QVERIFY2(scene.host.journal().contains(line), qPrintable(line));
}

int main(int argc, char **argv)
{
    TestEditInfoDialog test;
    return runTest(argc, argv, test);
}

#include "test_edit_info_dialog.moc"
