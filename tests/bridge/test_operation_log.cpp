#include "bridge/mediator/JS_Mediator.h"
#include "bridge/mediator/OperationEventHandler.h"
#include "bridge/operation/OperationLog.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <memory>
#include <stdexcept>

namespace {

/// Writes the host's calls into the log, so that a test sees their order among the lines.
void logCalls(StandInHost &host)
{
    QObject::connect(host.events(), &StandInEvents::callJournalled, host.events(),
                     [](const QString &line) { qInfo("host: %s", qPrintable(line)); });
}

QString enter(const QString &name)
{
    return "[ENTER] \"" + name + "\" \"\"";
}

QString leave(const QString &name)
{
    return "[LEAVE] \"" + name + "\"";
}

}

class TestOperationLog : public TestBase
{
    Q_OBJECT

private slots:
    void scopesWriteEnterAndLeave_data();
    void scopesWriteEnterAndLeave();
    void linesAreInformation();
    void scopesEncloseWhatHappensInThem();
    void refreshComesBeforeLeave();
    void refreshTakesTheFlagsOfTheMoment_data();
    void refreshTakesTheFlagsOfTheMoment();
    void logScopeRefreshesNothing();
    void refreshesNothingWithoutAMediator();
    void refreshesNothingWhenTheMediatorHasGone();
    void exceptionStillLeaves();
    void refreshThatFailsGoesToTheErrorHandler();
    void refreshThatFailsWhileAnExceptionPasses();
    void errorHandlerThatFailsToo();
    void scopeMadeOnOneBranch_data();
    void scopeMadeOnOneBranch();
    void userLines_data();
    void userLines();
    void userLinesMaskPasswords_data();
    void userLinesMaskPasswords();
    void messages();
    void pagesReachTheLinesThroughTheMediator();
};

void TestOperationLog::scopesWriteEnterAndLeave_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("enterOfScope");
    QTest::addColumn<QString>("enterOfHandler");
    QTest::addColumn<QString>("leave");
    const auto row = [](const char *label, const char *name, const char *arguments,
                        const char *enterOfScope, const char *enterOfHandler, const char *leave) {
        QTest::newRow(label) << QString(name) << QString(arguments) << QString(enterOfScope)
                             << QString(enterOfHandler) << QString(leave);
    };
    row("no arguments", "JS_Mediator::setStyle", "", R"([ENTER] "JS_Mediator::setStyle" "")",
        R"([ENTER] "JS_Mediator::setStyle" "")", R"([LEAVE] "JS_Mediator::setStyle")");
    row("a group without its last blank", "JS_Mediator::openPrefsDialog", "[page:]",
        R"([ENTER] "JS_Mediator::openPrefsDialog" "[page:]")",
        R"([ENTER] "JS_Mediator::openPrefsDialog" "[page:]")",
        R"([LEAVE] "JS_Mediator::openPrefsDialog")");
    row("groups are trimmed at the end", "A::b", "[x:1] [y:2] ", R"([ENTER] "A::b" "[x:1] [y:2]")",
        R"([ENTER] "A::b" "[x:1] [y:2]")", R"([LEAVE] "A::b")");
    row("trimmed at both ends", "A::b", "\t [x:1]\n", R"([ENTER] "A::b" "[x:1]")",
        R"([ENTER] "A::b" "[x:1]")", R"([LEAVE] "A::b")");
    row("white space only", "A::b", " \t\n ", R"([ENTER] "A::b" "")", R"([ENTER] "A::b" "")",
        R"([LEAVE] "A::b")");
    row("name stays as it is", " A::b ", "", R"([ENTER] " A::b " "")", R"([ENTER] " A::b " "")",
        R"([LEAVE] " A::b ")");
    row("no document", "A::b", "docKey:Invalid", R"([ENTER] "A::b" "docKey:-1")",
        R"([ENTER] "A::b" "docKey:Invalid")", R"([LEAVE] "A::b")");
    row("no document in a group, twice", "A::b", "[docKey:Invalid] [docKey:Invalid] ",
        R"([ENTER] "A::b" "[docKey:-1] [docKey:-1]")",
        R"([ENTER] "A::b" "[docKey:Invalid] [docKey:Invalid]")", R"([LEAVE] "A::b")");
    row("other case is another word", "A::b", "[dockey:Invalid] [docKey:invalid]",
        R"([ENTER] "A::b" "[dockey:Invalid] [docKey:invalid]")",
        R"([ENTER] "A::b" "[dockey:Invalid] [docKey:invalid]")", R"([LEAVE] "A::b")");
    row("the name is not touched", "docKey:Invalid", "", R"([ENTER] "docKey:Invalid" "")",
        R"([ENTER] "docKey:Invalid" "")", R"([LEAVE] "docKey:Invalid")");
    row("inner quotes are escaped", "A::b", "[x:\"1\"]", R"([ENTER] "A::b" "[x:\"1\"]")",
        R"([ENTER] "A::b" "[x:\"1\"]")", R"([LEAVE] "A::b")");
    row("places to fill", "A::b%1", "[x:%2]", R"([ENTER] "A::b%1" "[x:%2]")",
        R"([ENTER] "A::b%1" "[x:%2]")", R"([LEAVE] "A::b%1")");
}

void TestOperationLog::scopesWriteEnterAndLeave()
{
    QFETCH(QString, name);
    QFETCH(QString, arguments);
    QFETCH(QString, enterOfScope);
    QFETCH(QString, enterOfHandler);
    QFETCH(QString, leave);
    LogCapture log;
    {
        const OperationLogScope scope(name, arguments);
        QCOMPARE(log.texts(), QStringList({enterOfScope}));
    }
    QCOMPARE(log.texts(), QStringList({enterOfScope, leave}));

    log.clear();
    {
        const OperationEventHandler operation(nullptr, name, arguments);
        QCOMPARE(log.texts(), QStringList({enterOfHandler}));
    }
    QCOMPARE(log.texts(), QStringList({enterOfHandler, leave}));
}

void TestOperationLog::linesAreInformation()
{
    LogCapture log;
    {
        const OperationLogScope scope("A::b");
        const OperationEventHandler operation(nullptr, "A::c");
    }
    QCOMPARE(log.texts(QtInfoMsg).size(), 4);
    QCOMPARE(log.lines().size(), 4);
}

void TestOperationLog::scopesEncloseWhatHappensInThem()
{
    LogCapture log;
    {
        const OperationLogScope outer("A::outer");
        {
            const OperationLogScope inner("A::inner");
        }
        qInfo("between");
    }
    QCOMPARE(log.texts(), QStringList({enter("A::outer"), enter("A::inner"), leave("A::inner"),
                                       "between", leave("A::outer")}));
}

void TestOperationLog::refreshComesBeforeLeave()
{
    StandInHost host;
    JS_Mediator mediator(&host, "main");
    logCalls(host);
    LogCapture log;
    {
        const OperationEventHandler operation(&mediator, "JS_Mediator::setStyle", "[style:dark] ");
        host.hideSelectBox();
    }
    QCOMPARE(log.texts(), QStringList({"[ENTER] \"JS_Mediator::setStyle\" \"[style:dark]\"",
                                       "host: hideSelectBox()", "host: updateUI(63, true)",
                                       leave("JS_Mediator::setStyle")}));
}

void TestOperationLog::refreshTakesTheFlagsOfTheMoment_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("call");
    QTest::newRow("display only") << 4 << "updateUI(4, true)";
    QTest::newRow("none") << 0 << "updateUI(0, true)";
    QTest::newRow("everything") << -1 << "updateUI(4294967295, true)";
}

void TestOperationLog::refreshTakesTheFlagsOfTheMoment()
{
    QFETCH(int, flags);
    StandInHost host;
    JS_Mediator mediator(&host, "main");
    LogCapture log;
    {
        const OperationEventHandler operation(&mediator, "A::b");
        mediator.setUpdateFlags(flags);
    }
    QTEST(host.journal().join(" "), "call");
}

void TestOperationLog::logScopeRefreshesNothing()
{
    StandInHost host;
    LogCapture log;
    {
        const OperationLogScope scope("A::b");
    }
    QCOMPARE(host.journal(), QStringList());
}

void TestOperationLog::refreshesNothingWithoutAMediator()
{
    LogCapture log;
    {
        const OperationEventHandler operation(nullptr, "A::b");
    }
    QCOMPARE(log.texts(), QStringList({enter("A::b"), leave("A::b")}));
}

void TestOperationLog::refreshesNothingWhenTheMediatorHasGone()
{
    StandInHost host;
    auto mediator = std::make_unique<JS_Mediator>(&host, "main");
    LogCapture log;
    {
        const OperationEventHandler operation(mediator.get(), "A::b");
        mediator.reset();
    }
    QCOMPARE(log.texts(), QStringList({enter("A::b"), leave("A::b")}));
    QCOMPARE(host.journal(), QStringList());
}

void TestOperationLog::exceptionStillLeaves()
{
    StandInHost host;
    JS_Mediator mediator(&host, "main");
    logCalls(host);
    LogCapture log;
    QString caught;
    try {
        const OperationEventHandler operation(&mediator, "A::b");
        const OperationLogScope scope("A::c");
        throw std::runtime_error("the slot failed");
    } catch (const std::runtime_error &failure) {
        caught = failure.what();
    }
    QCOMPARE(caught, QString("the slot failed"));
    QCOMPARE(log.texts(), QStringList({enter("A::b"), enter("A::c"), leave("A::c"),
                                       "host: updateUI(63, true)", leave("A::b")}));
}

void TestOperationLog::refreshThatFailsGoesToTheErrorHandler()
{
    StandInHost host;
    JS_Mediator mediator(&host, "main");
    host.failOn("updateUI");
    LogCapture log;
    {
        const OperationEventHandler operation(&mediator, "A::b");
    }
    QCOMPARE(host.handledErrors(), QStringList({"updateUI failed"}));
    QCOMPARE(log.texts(), QStringList({enter("A::b"), leave("A::b")}));
}

void TestOperationLog::refreshThatFailsWhileAnExceptionPasses()
{
    StandInHost host;
    JS_Mediator mediator(&host, "main");
    host.failOn("updateUI");
    LogCapture log;
    QString caught;
    try {
        const OperationEventHandler operation(&mediator, "A::b");
        throw std::runtime_error("the slot failed");
    } catch (const std::runtime_error &failure) {
        caught = failure.what();
    }
    QCOMPARE(caught, QString("the slot failed"));
    QCOMPARE(host.handledErrors(), QStringList({"updateUI failed"}));
    QCOMPARE(log.texts(), QStringList({enter("A::b"), leave("A::b")}));
}

void TestOperationLog::errorHandlerThatFailsToo()
{
    StandInHost host;
    JS_Mediator mediator(&host, "main");
    host.failOn("updateUI");
    host.failOn("errorHandler");
    LogCapture log;
    {
        const OperationEventHandler operation(&mediator, "A::b");
    }
    QCOMPARE(log.texts(QtCriticalMsg),
             QStringList({"The error handler failed: errorHandler failed"}));
    QCOMPARE(log.texts(QtInfoMsg), QStringList({enter("A::b"), leave("A::b")}));
}

void TestOperationLog::scopeMadeOnOneBranch_data()
{
    QTest::addColumn<bool>("update");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("with") << true
                          << QStringList({enter("A::b"), "host: setPrefInt(\"a/b\", 1)",
                                          "host: updateUI(63, true)", leave("A::b")});
    QTest::newRow("without") << false << QStringList({"host: setPrefInt(\"a/b\", 1)"});
}

void TestOperationLog::scopeMadeOnOneBranch()
{
    QFETCH(bool, update);
    StandInHost host;
    host.settings().declare({"a/b"});
    JS_Mediator mediator(&host, "main");
    logCalls(host);
    LogCapture log;
    {
        std::shared_ptr<OperationEventHandler> operation;
        if (update)
            operation = std::make_shared<OperationEventHandler>(&mediator, "A::b");
        host.setPrefInt("a/b", 1);
    }
    QTEST(log.texts(), "lines");
}

void TestOperationLog::userLines_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("line");

    QTest::newRow("id")
        << "close"
        << "" << QVariant()
        << R"([USER] "[URL:page] [ID:close] [Control:Button] [Operation:clicked] [Value:] ")";
    QTest::newRow("id goes before class")
        << "close"
        << "wide" << QVariant()
        << R"([USER] "[URL:page] [ID:close] [Control:Button] [Operation:clicked] [Value:] ")";
    QTest::newRow("class")
        << ""
        << "wide" << QVariant()
        << R"([USER] "[URL:page] [Class:wide] [Control:Button] [Operation:clicked] [Value:] ")";
    QTest::newRow("neither")
        << ""
        << "" << QVariant()
        << R"([USER] "[URL:page] [ID:] [Control:Button] [Operation:clicked] [Value:] ")";
    QTest::newRow("text") << "a"
                          << "" << QVariant("on \"it\"")
                          << R"([USER] "[URL:page] [ID:a] [Control:Button] [Operation:clicked] )"
                             R"([Value:on \"it\"] ")";
    QTest::newRow("number")
        << "a"
        << "" << QVariant(12)
        << R"([USER] "[URL:page] [ID:a] [Control:Button] [Operation:clicked] [Value:12] ")";
    QTest::newRow("decimals")
        << "a"
        << "" << QVariant(0.5)
        << R"([USER] "[URL:page] [ID:a] [Control:Button] [Operation:clicked] [Value:0.5] ")";
    QTest::newRow("bool")
        << "a"
        << "" << QVariant(true)
        << R"([USER] "[URL:page] [ID:a] [Control:Button] [Operation:clicked] [Value:true] ")";
    QTest::newRow("list has no text")
        << "a"
        << "" << QVariant(QVariantList{1, 2})
        << R"([USER] "[URL:page] [ID:a] [Control:Button] [Operation:clicked] [Value:] ")";
    QTest::newRow("map has no text")
        << "a"
        << "" << QVariant(QVariantMap{{"x", 1}})
        << R"([USER] "[URL:page] [ID:a] [Control:Button] [Operation:clicked] [Value:] ")";
}

void TestOperationLog::userLines()
{
    QFETCH(QString, id);
    QFETCH(QString, className);
    QFETCH(QVariant, value);
    QFETCH(QString, line);
    LogCapture log;
    OperationLog::userOperation("page", "clicked", "Button", id, className, value);
    QCOMPARE(log.texts(QtInfoMsg), QStringList({line}));
    QCOMPARE(log.lines().size(), 1);
}

void TestOperationLog::userLinesMaskPasswords_data()
{
    QTest::addColumn<QStringList>("where"); // url, control, id, class
    QTest::addColumn<QString>("group");
    QTest::newRow("page") << QStringList({"qrc:/input_password_dialog.html", "Text", "a", ""})
                          << "[Value:***] ";
    QTest::newRow("control") << QStringList({"page", "Password", "a", ""}) << "[Value:***] ";
    QTest::newRow("id") << QStringList({"page", "Text", "newPass1", ""}) << "[Value:***] ";
    QTest::newRow("class") << QStringList({"page", "Text", "", "old-password"}) << "[Value:***] ";
    QTest::newRow("class beside an id")
        << QStringList({"page", "Text", "a", "old-password"}) << "[Value:***] ";
    QTest::newRow("none of them") << QStringList({"page", "Text", "a", "wide"})
                                  << "[Value:swordfish] ";
}

void TestOperationLog::userLinesMaskPasswords()
{
    QFETCH(QStringList, where);
    QFETCH(QString, group);
    LogCapture log;
    OperationLog::userOperation(where.at(0), "changed", where.at(1), where.at(2), where.at(3),
                                "swordfish");
    const QString line = log.texts().join(" ");
    QVERIFY2(line.contains(group), qPrintable(line));
    QCOMPARE(line.contains("swordfish"), group.contains("swordfish"));

    log.clear();
    OperationLog::userOperation(where.at(0), "clicked", where.at(1), where.at(2), where.at(3),
                                QVariant());
    QVERIFY(log.texts().join(" ").contains("[Value:] "));
}

void TestOperationLog::messages()
{
    LogCapture log;
    OperationLog::info("a \"b\"");
    QCOMPARE(log.texts(QtInfoMsg), QStringList({"\"a \\\"b\\\"\""}));
    OperationLog::error("c");
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({"\"c\""}));
    log.clear();
    OperationLog::userOperationError("no \"drive\"");
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({"[USER][ERROR] \"no \\\"drive\\\"\""}));
    QCOMPARE(log.lines().size(), 1);
}

void TestOperationLog::pagesReachTheLinesThroughTheMediator()
{
    StandInHost host;
    JS_Mediator mediator(&host, "main");
    LogCapture log;
    mediator.infoLog("a");
    mediator.userOperationLogWebView("GUI_CustomInfoDialog", "clicked", "Button", "close", "", "");
    const QString user = R"([USER] "[URL:GUI_CustomInfoDialog] [ID:close] )"
                         R"([Control:Button] [Operation:clicked] [Value:] ")";
    QCOMPARE(log.texts(QtInfoMsg), QStringList({"\"a\"", user}));
    log.clear();
    mediator.errorLog("b");
    mediator.userOperationErrorLog("c");
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({"\"b\"", "[USER][ERROR] \"c\""}));
    log.clear();
    mediator.log("d");
    mediator.debugLog("e");
    QCOMPARE(log.texts(), QStringList());
    QCOMPARE(host.journal(), QStringList());
}

int main(int argc, char **argv)
{
    TestOperationLog test;
    return runTest(argc, argv, test);
}

#include "test_operation_log.moc"
