#include "bridge/dialog/GUI_Dialog.h"
#include "bridge/dialog/GUI_EmbeddedWidget.h"
#include "bridge/dialog/GUI_MarqueeProgressDialog.h"
#include "bridge/dialog/GUI_QFileDialog.h"
#include "bridge/dialog/GUI_SyncProgress.h"
#include "tests/support/TestLog.h"

#include <QPushButton>
#include <QTimer>
#include <QWindow>

// What all dialogs share, and the named classes that the host makes.

Q_DECLARE_METATYPE(const QMetaObject *)

class TestGuiDialog : public TestBase
{
    Q_OBJECT

private slots:
    void escapeIsSwallowedWhereAsked();
    void otherKeysGoOn();
    void closingTheFrameIsLogged();
    void closingByTheProgramIsNoFrame();
    void eventsOfOtherObjectsAreNotLogged();
    void pagesLogWhatTheUserDid_data();
    void pagesLogWhatTheUserDid();
    void pagesLogErrors();
    void closeButtonCanBeTakenAway();
    void windowIsMadeAnewWithItsFlags();
    void disablingTwiceShowsOnce();
    void enablingWhatIsEnabledDoesNothing();
    void signalsReachTheSlots();
    void runningDialogGoesOnWithoutItsCloseButton();
    void classesAreNamed_data();
    void classesAreNamed();
    void syncProgressEndsWithItsResult_data();
    void syncProgressEndsWithItsResult();
};

namespace {

constexpr Qt::WindowFlags Framed =
    Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint | Qt::WindowTitleHint;

class GUI_ProbeDialog : public GUI_Dialog
{
    Q_OBJECT

public:
    explicit GUI_ProbeDialog(bool ignoreEscape = true) : GUI_Dialog(nullptr, Framed, ignoreEscape)
    {
    }

    void setVisible(bool visible) override
    {
        if (visible)
            ++shows;
        GUI_Dialog::setVisible(visible);
    }

    int shows = 0; ///< calls of show(), whether or not the dialog was visible
};

bool hasCloseButton(const QWidget &window)
{
    return window.windowFlags() & Qt::WindowCloseButtonHint;
}

}

void TestGuiDialog::escapeIsSwallowedWhereAsked()
{
    GUI_ProbeDialog stays(true);
    stays.show();
    QTest::keyClick(&stays, Qt::Key_Escape);
    QVERIFY(stays.isVisible());

    GUI_ProbeDialog goes(false);
    QSignalSpy rejected(&goes, &QDialog::rejected);
    goes.show();
    QTest::keyClick(&goes, Qt::Key_Escape);
    QVERIFY(!goes.isVisible());
    QCOMPARE(rejected.count(), 1);
}

void TestGuiDialog::otherKeysGoOn()
{
    GUI_ProbeDialog dialog(true);
    QPushButton button(&dialog);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    button.setDefault(true);
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(clicked.count(), 1);
}

void TestGuiDialog::closingTheFrameIsLogged()
{
    GUI_ProbeDialog dialog;
    dialog.show();
    LogCapture log;
    QVERIFY(dialog.close());
    QCOMPARE(log.texts(), QStringList({"[USER] \"[URL:GUI_ProbeDialog] [ID:close] [Control:Button] "
                                       "[Operation:clicked] [Value:] \""}));
    QCOMPARE(log.lines().first().type, QtInfoMsg);
}

void TestGuiDialog::closingByTheProgramIsNoFrame()
{
    GUI_ProbeDialog dialog;
    dialog.show();
    LogCapture log;
    dialog.reject();
    dialog.show();
    dialog.accept();
    QCOMPARE(log.texts(), QStringList());
}

void TestGuiDialog::eventsOfOtherObjectsAreNotLogged()
{
    GUI_ProbeDialog dialog;
    QWidget other;
    other.installEventFilter(&dialog);
    other.show();
    LogCapture log;
    QVERIFY(other.close());
    QCOMPARE(log.texts(), QStringList());
}

void TestGuiDialog::pagesLogWhatTheUserDid_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("line");
    QTest::newRow("by id") << "ok"
                           << "c" << QVariant(3)
                           << "[USER] \"[URL:page] [ID:ok] [Control:Button] [Operation:clicked] "
                              "[Value:3] \"";
    QTest::newRow("by class") << ""
                              << "c" << QVariant("x")
                              << "[USER] \"[URL:page] [Class:c] [Control:Button] "
                                 "[Operation:clicked] [Value:x] \"";
    QTest::newRow("neither") << ""
                             << "" << QVariant(QVariantList({1}))
                             << "[USER] \"[URL:page] [ID:] [Control:Button] [Operation:clicked] "
                                "[Value:] \"";
}

void TestGuiDialog::pagesLogWhatTheUserDid()
{
    QFETCH(QString, id);
    QFETCH(QString, className);
    QFETCH(QVariant, value);
    QFETCH(QString, line);
    GUI_ProbeDialog dialog;
    LogCapture log;
    dialog.userOperationLogWebView(QStringLiteral("page"), QStringLiteral("clicked"),
                                   QStringLiteral("Button"), id, className, value);
    QCOMPARE(log.texts(), QStringList({line}));
}

void TestGuiDialog::pagesLogErrors()
{
    GUI_ProbeDialog dialog;
    LogCapture log;
    dialog.userOperationErrorLog(QStringLiteral("no disk"));
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({"[USER][ERROR] \"no disk\""}));
}

void TestGuiDialog::closeButtonCanBeTakenAway()
{
    GUI_ProbeDialog dialog;
    const Qt::WindowFlags before = dialog.windowFlags();
    dialog.show();
    dialog.slotDisableCloseButton();
    QVERIFY(!hasCloseButton(dialog));
    QVERIFY(dialog.isVisible());
    dialog.slotEnableCloseButton();
    QVERIFY(hasCloseButton(dialog));
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.windowFlags(), before);
}

// A window that stands takes no other frame: it hides and shows once more.
void TestGuiDialog::windowIsMadeAnewWithItsFlags()
{
    class Seen : public GUI_Dialog
    {
    public:
        Seen() : GUI_Dialog(nullptr, Framed, true) {}
        QStringList story;

    protected:
        void showEvent(QShowEvent *event) override
        {
            GUI_Dialog::showEvent(event);
            story.append(hasCloseButton(*this) ? "shown with" : "shown without");
        }
        void hideEvent(QHideEvent *event) override
        {
            GUI_Dialog::hideEvent(event);
            story.append("hidden");
        }
    };
    Seen dialog;
    dialog.show();
    dialog.slotDisableCloseButton();
    dialog.slotEnableCloseButton();
    QCOMPARE(dialog.story,
             QStringList({"shown with", "hidden", "shown without", "hidden", "shown with"}));
    QVERIFY(dialog.windowHandle()->isVisible());
    QVERIFY(dialog.windowHandle()->flags() & Qt::WindowCloseButtonHint);
}

void TestGuiDialog::disablingTwiceShowsOnce()
{
    GUI_ProbeDialog dialog;
    dialog.slotDisableCloseButton();
    dialog.slotDisableCloseButton();
    QCOMPARE(dialog.shows, 1);
}

void TestGuiDialog::enablingWhatIsEnabledDoesNothing()
{
    GUI_ProbeDialog dialog;
    dialog.slotEnableCloseButton();
    QCOMPARE(dialog.shows, 0);
    QVERIFY(!dialog.isVisible());
    dialog.slotDisableCloseButton();
    dialog.slotEnableCloseButton();
    dialog.slotEnableCloseButton();
    QCOMPARE(dialog.shows, 2);
}

void TestGuiDialog::signalsReachTheSlots()
{
    GUI_ProbeDialog dialog;
    emit dialog.signalDisableCloseButton();
    QVERIFY(!hasCloseButton(dialog));
    emit dialog.signalEnableCloseButton();
    QVERIFY(hasCloseButton(dialog));
}

void TestGuiDialog::runningDialogGoesOnWithoutItsCloseButton()
{
    GUI_Dialog dialog(nullptr, Framed, true);
    bool wentOn = false;
    QTimer::singleShot(0, &dialog, [&] {
        dialog.slotDisableCloseButton();
        dialog.slotEnableCloseButton();
        dialog.slotDisableCloseButton();
        QTimer::singleShot(0, &dialog, [&] {
            wentOn = dialog.isVisible() && dialog.isModal();
            dialog.done(7);
        });
    });
    QCOMPARE(dialog.exec(), 7);
    QVERIFY(wentOn);
}

void TestGuiDialog::classesAreNamed_data()
{
    QTest::addColumn<const QMetaObject *>("meta");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");
    QTest::newRow("file dialog") << &GUI_QFileDialog::staticMetaObject << "GUI_QFileDialog"
                                 << "QFileDialog";
    QTest::newRow("embedded widget")
        << &GUI_EmbeddedWidget::staticMetaObject << "GUI_EmbeddedWidget"
        << "QWidget";
    QTest::newRow("progress") << &GUI_ProgressDialog::staticMetaObject << "GUI_ProgressDialog"
                              << "GUI_Dialog";
    QTest::newRow("marquee progress")
        << &GUI_MarqueeProgressDialog::staticMetaObject << "GUI_MarqueeProgressDialog"
        << "GUI_ProgressDialog";
    QTest::newRow("progress that is waited for")
        << &GUI_SyncProgress::staticMetaObject << "GUI_SyncProgress"
        << "GUI_ProgressDialog";
}

void TestGuiDialog::classesAreNamed()
{
    QFETCH(const QMetaObject *, meta);
    QFETCH(QString, name);
    QFETCH(QString, base);
    QCOMPARE(QString::fromLatin1(meta->className()), name);
    QCOMPARE(QString::fromLatin1(meta->superClass()->className()), base);
}

void TestGuiDialog::syncProgressEndsWithItsResult_data()
{
    QTest::addColumn<bool>("result");
    QTest::addColumn<int>("code");
    QTest::newRow("done") << true << int(QDialog::Accepted);
    QTest::newRow("failed") << false << int(QDialog::Rejected);
}

void TestGuiDialog::syncProgressEndsWithItsResult()
{
    QFETCH(bool, result);
    GUI_SyncProgress progress(nullptr, Framed, true);
    QTimer::singleShot(0, &progress, [&] {
        QVERIFY(QMetaObject::invokeMethod(&progress, "complete", Q_ARG(bool, result)));
    });
    QTEST(progress.exec(), "code");
}

int main(int argc, char **argv)
{
    TestGuiDialog test;
    return runTest(argc, argv, test);
}

#include "test_gui_dialog.moc"
