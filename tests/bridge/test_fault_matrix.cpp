#include "bridge/dialog/GUI_Dialog.h"
#include "bridge/mediator/JS_Mediator.h"
#include "bridge/operation/DialogRun.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "tests/bridge/support/FaultMatrix.h"
#include "tests/support/TestLog.h"

#include <QDirIterator>
#include <QRegularExpression>

#include <malloc.h>

#include <cstdio>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

// Every slot that a page can call, while each host call of it fails in turn; and what the engine
// must know of each class.

Q_DECLARE_METATYPE(PageClass)

class TestFaultMatrix : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanupTestCase();
    void nothingEscapes_data();
    void nothingEscapes();
    void engineKnowsTheTypes_data();
    void engineKnowsTheTypes();
    void signaturesAreNormalised_data();
    void signaturesAreNormalised();
    void noSignalIsHidden_data();
    void noSignalIsHidden();
    void everyClassIsRegistered();
    void declarationsAreFound_data();
    void declarationsAreFound();
    void matrixNoticesAnEscape();
    void matrixNoticesASwallowedFailure();
    void matrixNoticesAMissingLeave();
    void matrixNoticesATraceOfAnotherName();
    void matrixNoticesAListenerThatLetsGo();
    void matrixNoticesADialogThatLetsGo_data();
    void matrixNoticesADialogThatLetsGo();
    void matrixGivesTheDocumentOfACase();

private:
    int m_slots = 0;
    int m_signals = 0;
    int m_callSites = 0;
    int m_runs = 0;
    int m_escapes = 0;
    QStringList m_withoutHostCall;
};

namespace {

void addClasses()
{
    QTest::addColumn<PageClass>("pageClass");
    for (const PageClass &each : allPageClasses())
        QTest::newRow(each.meta->className()) << each;
}

/// A class as nobody should write it.
class CarelessMediator : public JS_Mediator
{
    Q_OBJECT

public:
    explicit CarelessMediator(HostServices *host) : JS_Mediator(host, QStringLiteral("page"))
    {
        connect(this, &CarelessMediator::heard, this, [host] { host->isReady(); });
    }

signals:
    void heard();

public slots:
    void lets() { host()->isReady(); }
    void swallows()
    {
        try {
            host()->isReady();
        } catch (const std::exception &) {
        }
    }
    void forgets()
    {
        qInfo() << "[ENTER]" << QStringLiteral("CarelessMediator::forgets") << QString();
        isReady();
    }
    void renames()
    {
        OperationLogScope trace(QStringLiteral("CarelessMediator::rename"));
        isReady();
    }
    void looks(DOC_Interface *doc)
    {
        if (doc)
            doc->isFound();
    }
};

/// A dialog that asks the host where a page ends or shows it, and has nobody to tell of a failure.
class GUI_CarelessDialog : public GUI_Dialog
{
    Q_OBJECT

public:
    explicit GUI_CarelessDialog(HostServices *host)
        : GUI_Dialog(nullptr, Qt::WindowCloseButtonHint, true), m_host(host)
    {
    }

    void done(int result) override
    {
        m_host->isReady();
        GUI_Dialog::done(result);
    }

private:
    HostServices *m_host;
};

QStringList problemsOf(const QByteArray &slot)
{
    const QVector<PageClass> classes = {
        {&CarelessMediator::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new CarelessMediator(&host); },
         {{"looks(DOC_Interface*)", {2}, {}}}}};
    FaultMatrix matrix;
    matrix.walkNatively(classes.first(), classes);
    return matrix.problems().filter(QString::fromLatin1(slot));
}

/// Names of the classes in a header that pages, or the engine, can call.
QStringList declaredPageClasses(const QString &header)
{
    static const QRegularExpression declaration(
        QStringLiteral("^class ((?:GUI|JS_Mediator)\\w*)(?:\\s+final)?\\s*:\\s*public"),
        QRegularExpression::MultilineOption);
    QStringList names;
    auto match = declaration.globalMatch(header);
    while (match.hasNext())
        names.append(match.next().captured(1));
    return names;
}

}

// Anew for each class: a case may have set another answer.
void TestFaultMatrix::init()
{
    TestBase::init();
    FileChoice::setAnswer(
        [](const FileChoice::Question &) { return QStringList(QStringLiteral("/o/s.zip")); });
    DialogRun::setAnswer([](QDialog &) { return int(QDialog::Accepted); });
}

void TestFaultMatrix::cleanupTestCase()
{
    FileChoice::setAnswer(FileChoice::Answer());
    DialogRun::setAnswer(DialogRun::Answer());
    m_withoutHostCall.removeDuplicates();
    std::printf("fault matrix: %d slots, %d signals, %d call sites, %d runs, %d escapes\n", m_slots,
                m_signals, m_callSites, m_runs, m_escapes);
    std::printf("slots without a host call: %s\n",
                qPrintable(m_withoutHostCall.join(QLatin1String(", "))));
}

void TestFaultMatrix::nothingEscapes_data()
{
    addClasses();
}

void TestFaultMatrix::nothingEscapes()
{
    QFETCH(PageClass, pageClass);
    FaultMatrix matrix;
    matrix.walkNatively(pageClass, allPageClasses());
    m_slots += matrix.slotCount();
    m_signals += matrix.signalCount();
    m_callSites += matrix.callSites();
    m_runs += matrix.runs();
    m_withoutHostCall += matrix.slotsWithoutHostCall();
    m_escapes += matrix.problems().filter(QStringLiteral("escaped: ")).size();
    QVERIFY2(matrix.problems().isEmpty(),
             qPrintable(matrix.problems().mid(0, 10).join(QLatin1Char('\n'))));
}

void TestFaultMatrix::engineKnowsTheTypes_data()
{
    addClasses();
}

void TestFaultMatrix::engineKnowsTheTypes()
{
    QFETCH(PageClass, pageClass);
    const QList<QByteArray> nativeAlone = {"std::exception&", "DOC_Interface*"};
    const QMetaObject &meta = *pageClass.meta;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        QVERIFY2(method.returnType() != QMetaType::UnknownType, method.methodSignature());
        const QList<QByteArray> types = method.parameterTypes();
        for (int j = 0; j < method.parameterCount(); ++j) {
            if (nativeAlone.contains(types.at(j)))
                QCOMPARE(method.parameterType(j), int(QMetaType::UnknownType));
            else
                QVERIFY2(method.parameterType(j) != QMetaType::UnknownType,
                         method.methodSignature());
        }
    }
}

void TestFaultMatrix::signaturesAreNormalised_data()
{
    addClasses();
}

void TestFaultMatrix::signaturesAreNormalised()
{
    QFETCH(PageClass, pageClass);
    const QMetaObject &meta = *pageClass.meta;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QByteArray signature = meta.method(i).methodSignature();
        QCOMPARE(QMetaObject::normalizedSignature(signature), signature);
    }
}

void TestFaultMatrix::noSignalIsHidden_data()
{
    addClasses();
}

void TestFaultMatrix::noSignalIsHidden()
{
    QFETCH(PageClass, pageClass);
    const QMetaObject &meta = *pageClass.meta;
    for (int i = 0; i < meta.methodCount(); ++i) {
        const QMetaMethod lower = meta.method(i);
        for (int j = qMax(i + 1, meta.methodOffset()); j < meta.methodCount(); ++j) {
            const QMetaMethod upper = meta.method(j);
            const bool oneIsASignal = lower.methodType() == QMetaMethod::Signal ||
                                      upper.methodType() == QMetaMethod::Signal;
            QVERIFY2(!oneIsASignal || lower.methodSignature() != upper.methodSignature(),
                     upper.methodSignature());
        }
    }
}

// A class that is missing from the lists would be missing from all of these tests.
void TestFaultMatrix::everyClassIsRegistered()
{
    QStringList known;
    for (const PageClass &each : allPageClasses())
        known.append(QString::fromLatin1(each.meta->className()));
    QStringList missing;
    int found = 0;
    for (const char *folder : {"bridge", "record", "device", "save", "plugin"}) {
        QDirIterator files(QStringLiteral(SOURCE_ROOT "/") + QLatin1String(folder), {"*.h"},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            for (const QString &name : declaredPageClasses(QString::fromUtf8(file.readAll()))) {
                ++found;
                if (!known.contains(name))
                    missing.append(name);
            }
        }
    }
    QVERIFY(found >= 17);
    QCOMPARE(missing, QStringList());
}

void TestFaultMatrix::declarationsAreFound_data()
{
    QTest::addColumn<QString>("header");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("plain") << "class GUI_Dialog : public QDialog\n{\n" << QStringList("GUI_Dialog");
    QTest::newRow("final") << "class JS_Mediator_Page final : public JS_Mediator\n{\n"
                           << QStringList("JS_Mediator_Page");
    QTest::newRow("base on the next line") << "class GUI_SelectBox final\n    : public QWidget\n"
                                           << QStringList("GUI_SelectBox");
    QTest::newRow("two") << "class GUI_A : public QDialog\n{\n};\nclass GUI_B : public GUI_A\n"
                         << QStringList({"GUI_A", "GUI_B"});
    QTest::newRow("forward") << "class GUI_Dialog;\n" << QStringList();
    QTest::newRow("other") << "class PageSignalFrame : public QObject\n" << QStringList();
}

void TestFaultMatrix::declarationsAreFound()
{
    QFETCH(QString, header);
    QTEST(declaredPageClasses(header), "names");
}

void TestFaultMatrix::matrixNoticesAnEscape()
{
    const QStringList problems = problemsOf("lets()");
    QVERIFY(!problems.isEmpty());
    QVERIFY(problems.first().contains("escaped: isReady failed"));
}

void TestFaultMatrix::matrixNoticesASwallowedFailure()
{
    const QStringList problems = problemsOf("swallows()");
    QVERIFY(!problems.isEmpty());
    QVERIFY(problems.first().contains("handled: "));
}

void TestFaultMatrix::matrixNoticesAMissingLeave()
{
    const QStringList problems = problemsOf("forgets()");
    QVERIFY(!problems.isEmpty());
    QVERIFY(problems.first().contains("trace: "));
}

void TestFaultMatrix::matrixNoticesATraceOfAnotherName()
{
    const QStringList problems = problemsOf("renames()");
    QVERIFY(!problems.isEmpty());
    QVERIFY(problems.first().contains("name: [ENTER] \"CarelessMediator::rename\""));
}

void TestFaultMatrix::matrixNoticesAListenerThatLetsGo()
{
    const QStringList problems = problemsOf("heard()");
    QVERIFY(!problems.isEmpty());
    QVERIFY(problems.first().contains("escaped: isReady failed"));
}

void TestFaultMatrix::matrixNoticesADialogThatLetsGo_data()
{
    QTest::addColumn<QString>("slot");
    for (const char *slot : {"done(int)", "accept()", "reject()", "close()"})
        QTest::newRow(slot) << QString::fromLatin1(slot);
}

void TestFaultMatrix::matrixNoticesADialogThatLetsGo()
{
#ifdef __SANITIZE_ADDRESS__
    // What escapes from the dialog passes through Qt, which keeps references to it.
    __lsan::ScopedDisabler leftInQt;
#endif
    QFETCH(QString, slot);
    const QVector<PageClass> classes = {
        {&GUI_CarelessDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new GUI_CarelessDialog(&host); },
         {}}};
    FaultMatrix matrix;
    matrix.leaveOut("exec()"); // a failure in its event loop is nobody's to catch
    matrix.walkNatively(classes.first(), classes);
    const QStringList problems = matrix.problems().filter("::" + slot);
    QVERIFY(!problems.isEmpty());
    QVERIFY(problems.first().contains("escaped: isReady failed"));
}

void TestFaultMatrix::matrixGivesTheDocumentOfACase()
{
    const QStringList problems = problemsOf("looks(DOC_Interface*)");
    QVERIFY(!problems.isEmpty());
    QVERIFY(problems.first().contains("[2].isFound()"));
    QVERIFY(problems.first().contains("escaped: isFound failed"));
}

int main(int argc, char **argv)
{
    mallopt(M_PERTURB, 0xa5); // what has gone reads as nonsense
    TestFaultMatrix test;
    return runTest(argc, argv, test);
}

#include "test_fault_matrix.moc"
