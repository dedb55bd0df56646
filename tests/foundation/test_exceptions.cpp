#include "foundation/exceptions/APP_ConcurrentException.h"
#include "foundation/exceptions/APP_Exception.h"
#include "foundation/exceptions/DOC_Exception.h"
#include "foundation/exceptions/DOC_FileException.h"
#include "foundation/exceptions/DOC_ReadFileException.h"
#include "foundation/exceptions/UTL_Exception.h"
#include "tests/support/TestLog.h"

#include <QThread>

#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <type_traits>

using Throw = std::function<void()>;
Q_DECLARE_METATYPE(Throw)

namespace {

QThread *threadOfLastLine = nullptr;

void noteThread(QtMsgType, const QMessageLogContext &, const QString &)
{
    threadOfLastLine = QThread::currentThread();
}

// Place of a virtual operation in its class's table.
template <class Member> int tablePlace(Member member)
{
    std::uintptr_t word[2];
    static_assert(sizeof member == sizeof word);
    std::memcpy(word, &member, sizeof word);
    return (word[0] & 1) && word[1] == 0 ? int(word[0] / 8) : -1;
}

}

class TestExceptions : public TestBase
{
    Q_OBJECT

private slots:
    void logAtConstruction_data();
    void logAtConstruction();
    void formOneTree();
    void keepTheBytesOfTheText_data();
    void keepTheBytesOfTheText();
    void copyWithoutLogging();
    void sliceToTheRootWhenCopiedThroughIt();
    void logOnTheThreadThatConstructs();
    void wrapperHoldsACopy();
    void wrapperRaisesACopyOfItself();
    void wrapperClones();
    void wrapperKeepsTheOrderOfItsOperations();
};

void TestExceptions::logAtConstruction_data()
{
    QTest::addColumn<Throw>("fail");
    QTest::addColumn<QString>("text");
    QTest::addColumn<uint>("code");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("APP_Exception")
        << Throw([] { throw APP_Exception("Failed to save support file.", 0); })
        << "Failed to save support file." << 0u
        << QStringList{R"("APP_Exception:[message:Failed to save support file.] [errorCode:0] ")"};
    QTest::newRow("UTL_Exception")
        << Throw([] { throw UTL_Exception("Invalid filename.", 0); }) << "Invalid filename." << 0u
        << QStringList{R"("APP_Exception:[message:Invalid filename.] [errorCode:0] ")"};
    QTest::newRow("DOC_Exception")
        << Throw([] { throw DOC_Exception("The drive is locked.", 407); }) << "The drive is locked."
        << 407u
        << QStringList{R"("APP_Exception:[message:The drive is locked.] [errorCode:407] ")"};
    QTest::newRow("DOC_FileException")
        << Throw([] { throw DOC_FileException("Disk full.", "D:/data/Shot.avi", 12); })
        << "Disk full." << 12u
        << QStringList{R"("APP_Exception:[message:Disk full.] [errorCode:12] ")",
                       R"("DOC_FileException:[message:Disk full.] [path:D:/data/Shot.avi] )"
                       R"([errorCode:12] ")"};
    QTest::newRow("DOC_ReadFileException")
        << Throw([] { throw DOC_ReadFileException("D:/info.xml"); }) << "File read failed." << 1u
        << QStringList{R"("APP_Exception:[message:File read failed.] [errorCode:1] ")",
                       R"("DOC_FileException:[message:File read failed.] [path:D:/info.xml] )"
                       R"([errorCode:1] ")"};
    QTest::newRow("largest code") << Throw([] { throw APP_Exception("x", 0xffffffffu); }) << "x"
                                  << 4294967295u
                                  << QStringList{
                                         R"("APP_Exception:[message:x] [errorCode:4294967295] ")"};
    QTest::newRow("text that looks like a place to fill")
        << Throw([] { throw DOC_FileException("%1 %2", "C:\\100%1", 3); }) << "%1 %2" << 3u
        << QStringList{R"("APP_Exception:[message:%1 %2] [errorCode:3] ")",
                       R"("DOC_FileException:[message:%1 %2] [path:C:\\100%1] [errorCode:3] ")"};
    QTest::newRow("quotes are escaped")
        << Throw([] { throw APP_Exception("no \"A\"", 0); }) << "no \"A\"" << 0u
        << QStringList{R"("APP_Exception:[message:no \"A\"] [errorCode:0] ")"};
    QTest::newRow("empty text") << Throw([] { throw APP_Exception(QString(), 0); }) << "" << 0u
                                << QStringList{R"("APP_Exception:[message:] [errorCode:0] ")"};
}

void TestExceptions::logAtConstruction()
{
    QFETCH(Throw, fail);
    QFETCH(QString, text);
    QFETCH(uint, code);
    QFETCH(QStringList, lines);

    LogCapture log;
    bool caught = false;
    try {
        fail();
    } catch (const APP_Exception &failure) {
        caught = true;
        QCOMPARE(QString::fromUtf8(failure.what()), text);
        QCOMPARE(failure.errorCode(), code);
    }
    QVERIFY(caught);
    QCOMPARE(log.texts(QtCriticalMsg), lines);
    QCOMPARE(log.lines().size(), lines.size());
}

void TestExceptions::formOneTree()
{
    static_assert(std::is_base_of_v<std::runtime_error, APP_Exception>);
    static_assert(std::is_base_of_v<APP_Exception, UTL_Exception>);
    static_assert(std::is_base_of_v<APP_Exception, DOC_Exception>);
    static_assert(std::is_base_of_v<DOC_Exception, DOC_FileException>);
    static_assert(std::is_base_of_v<DOC_FileException, DOC_ReadFileException>);
    static_assert(std::is_base_of_v<QException, APP_ConcurrentException>);
    static_assert(!std::is_base_of_v<DOC_Exception, UTL_Exception>);
    static_assert(!std::is_base_of_v<APP_Exception, APP_ConcurrentException>);

    LogCapture log;
    QVERIFY_EXCEPTION_THROWN(throw DOC_ReadFileException("x"), DOC_ReadFileException);
    QVERIFY_EXCEPTION_THROWN(throw DOC_ReadFileException("x"), DOC_FileException);
    QVERIFY_EXCEPTION_THROWN(throw DOC_ReadFileException("x"), DOC_Exception);
    QVERIFY_EXCEPTION_THROWN(throw DOC_ReadFileException("x"), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(throw UTL_Exception("x", 0), UTL_Exception);
}

void TestExceptions::keepTheBytesOfTheText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("umlaut") << QString(QChar(0xe9)) << QByteArray("\xc3\xa9");
    QTest::newRow("kana") << QString(QChar(0x3042)) << QByteArray("\xe3\x81\x82");
    QTest::newRow("beyond the first plane")
        << QString::fromUtf8("\xf0\x9f\x93\xb7") << QByteArray("\xf0\x9f\x93\xb7");
}

void TestExceptions::keepTheBytesOfTheText()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    LogCapture log;
    QCOMPARE(QByteArray(APP_Exception(text, 0).what()), bytes);
    QCOMPARE(text.toStdString(), bytes.toStdString());
}

void TestExceptions::copyWithoutLogging()
{
    LogCapture log;
    const DOC_FileException original("Disk full.", "D:/", 5);
    log.clear();
    const DOC_FileException copy(original);
    DOC_FileException assigned("other", "C:/", 6);
    log.clear();
    assigned = original;
    QCOMPARE(QString(copy.what()), QString("Disk full."));
    QCOMPARE(copy.errorCode(), 5u);
    QCOMPARE(QString(assigned.what()), QString("Disk full."));
    QCOMPARE(assigned.errorCode(), 5u);
    QCOMPARE(log.texts(), QStringList());
}

void TestExceptions::sliceToTheRootWhenCopiedThroughIt()
{
    LogCapture log;
    const DOC_ReadFileException original("D:/info.xml");
    const APP_Exception &root = original;
    try {
        throw APP_Exception(root);
    } catch (const DOC_Exception &) {
        QFAIL("the copy is still a document's exception");
    } catch (const APP_Exception &copy) {
        QCOMPARE(QString(copy.what()), QString("File read failed."));
        QCOMPARE(copy.errorCode(), 1u);
    }
}

void TestExceptions::logOnTheThreadThatConstructs()
{
    QtMessageHandler previous = qInstallMessageHandler(noteThread);
    std::unique_ptr<QThread> thread(QThread::create([] { APP_Exception failure("x", 0); }));
    thread->start();
    thread->wait();
    qInstallMessageHandler(previous);
    QCOMPARE(threadOfLastLine, thread.get());
}

void TestExceptions::wrapperHoldsACopy()
{
    LogCapture log;
    std::unique_ptr<APP_ConcurrentException> wrapper;
    {
        const DOC_FileException failure("Disk full.", "D:/", 5);
        log.clear();
        wrapper = std::make_unique<APP_ConcurrentException>(failure);
    }
    QCOMPARE(QString(wrapper->inner().what()), QString("Disk full."));
    QCOMPARE(wrapper->inner().errorCode(), 5u);
    QVERIFY(!dynamic_cast<const DOC_Exception *>(&wrapper->inner()));
    QCOMPARE(QString(wrapper->what()), QString("Disk full."));
    QCOMPARE(log.texts(), QStringList());
}

void TestExceptions::wrapperRaisesACopyOfItself()
{
    LogCapture log;
    const APP_ConcurrentException wrapper(APP_Exception("Disk full.", 5));
    log.clear();
    const QException &base = wrapper;
    bool caught = false;
    try {
        base.raise();
    } catch (const APP_ConcurrentException &raised) {
        caught = true;
        QVERIFY(&raised != &wrapper);
        QCOMPARE(QString(raised.inner().what()), QString("Disk full."));
        QCOMPARE(raised.inner().errorCode(), 5u);
    }
    QVERIFY(caught);
    QCOMPARE(log.texts(), QStringList());
}

void TestExceptions::wrapperClones()
{
    LogCapture log;
    std::unique_ptr<QException> copy;
    {
        const APP_ConcurrentException wrapper(APP_Exception("Disk full.", 5));
        log.clear();
        copy.reset(static_cast<const QException &>(wrapper).clone());
    }
    auto *clone = dynamic_cast<APP_ConcurrentException *>(copy.get());
    QVERIFY(clone);
    QCOMPARE(QString(clone->inner().what()), QString("Disk full."));
    QCOMPARE(clone->inner().errorCode(), 5u);
    QCOMPARE(log.texts(), QStringList());
}

void TestExceptions::wrapperKeepsTheOrderOfItsOperations()
{
    // Two places of the destructor, what(), then these.
    QCOMPARE(tablePlace(&APP_ConcurrentException::raise), 3);
    QCOMPARE(tablePlace(&APP_ConcurrentException::clone), 4);
}

int main(int argc, char **argv)
{
    TestExceptions test;
    return runTest(argc, argv, test);
}

#include "test_exceptions.moc"
