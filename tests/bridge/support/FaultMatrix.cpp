#include "tests/bridge/support/FaultMatrix.h"

#include "bridge/dialog/GUI_PageDialog.h"
#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator.h"
#include "tests/support/TestLog.h"

#include <QApplication>
#include <QDialog>
#include <QThread>
#include <QTimer>
#include <QUndoCommand>

#include <exception>

namespace {

// What the meta-object system does not know: native code alone passes them.
const QByteArray ExceptionType("std::exception");
const QByteArray DocumentType("DOC_Interface*");

QVariant plainValue(int type)
{
    switch (type) {
    case QMetaType::QString:
        return QStringLiteral("2");
    case QMetaType::Int:
        return 1;
    case QMetaType::UInt:
        return 1u;
    case QMetaType::ULongLong:
        return quint64(1);
    case QMetaType::Double:
        return 2.5;
    case QMetaType::Bool:
        return true;
    case QMetaType::QVariant:
        return QVariant(3);
    case QMetaType::QStringList:
        return QStringList({QStringLiteral("a"), QStringLiteral("b")});
    case QMetaType::QVariantList:
        return QVariantList({1, QStringLiteral("b")});
    case QMetaType::QVariantMap:
        return QVariantMap({{QStringLiteral("a"), 1}});
    case QMetaType::QPoint:
        return QPoint(3, 4);
    case QMetaType::QSize:
        return QSize(3, 4);
    case QMetaType::QObjectStar:
        return QVariant::fromValue<QObject *>(nullptr);
    default:
        break;
    }
    if (type == qMetaTypeId<QList<int>>())
        return QVariant::fromValue(QList<int>{1, 2});
    return QVariant();
}

QByteArray bare(QByteArray type)
{
    return type.endsWith('&') ? type.left(type.size() - 1) : type;
}

QString operationOf(const QString &line)
{
    const QString call = line.section(QLatin1Char('('), 0, 0);
    return call.section(QLatin1Char('.'), -1);
}

// Whether the host may have reasons of its own against such a call, as an address that is taken.
bool mayBeRefused(const QString &line)
{
    const QStringList operations = {QStringLiteral("connectDevices"),
                                    QStringLiteral("setNetworkSetting"),
                                    QStringLiteral("setNetworkSettings")};
    return operations.contains(operationOf(line));
}

// Each reason stands in the log too, where it was thrown, with its quotation marks escaped.
QStringList withoutRefusals(QStringList handled, const QStringList &critical)
{
    for (QString line : critical) {
        line.remove(QLatin1Char('\\'));
        const auto reason = std::find_if(handled.begin(), handled.end(), [&](const QString &text) {
            return line.contains(QLatin1String("[message:") +
                                 text.section(QLatin1Char('\n'), 0, 0));
        });
        if (reason != handled.end())
            handled.erase(reason);
    }
    return handled;
}

QStringList withoutErrorHandler(QStringList lines)
{
    for (int i = lines.size() - 1; i >= 0; --i) {
        if (lines.at(i).startsWith(QLatin1String("errorHandler(")))
            lines.removeAt(i);
    }
    return lines;
}

// A task's failure arrives as a toolkit exception, and goes unheard behind another failure.
bool isTask(const QString &operation)
{
    return operation == QLatin1String("writeSupportFile") ||
           operation == QLatin1String("saveCameraSettings");
}

// A document is given by its key, since it comes with the scene; native callers get its address.
QVariantList withDocuments(QVariantList arguments, const QMetaMethod &slot, StandInHost &host)
{
    const QList<QByteArray> types = slot.parameterTypes();
    for (int i = 0; i < slot.parameterCount(); ++i) {
        if (types.at(i) != DocumentType || !arguments.at(i).isValid())
            continue;
        DOC_Interface *document = host.camera(arguments.at(i).toULongLong());
        arguments[i] = QVariant::fromValue(static_cast<void *>(document));
    }
    return arguments;
}

bool areBalanced(const QStringList &lines)
{
    QStringList open;
    for (const QString &line : lines) {
        const QString name = line.section(QLatin1Char('"'), 1, 1);
        if (line.startsWith(QLatin1String("[ENTER]")))
            open.append(name);
        else if (line.startsWith(QLatin1String("[LEAVE]")) &&
                 (open.isEmpty() || open.takeLast() != name))
            return false;
    }
    return open.isEmpty();
}

// The traces of these have a name of their own, or of the base that a slot goes on with.
QString traceNameOf(const QMetaMethod &slot)
{
    const QString name = QString::fromLatin1(slot.enclosingMetaObject()->className()) +
                         QLatin1String("::") + QString::fromLatin1(slot.name());
    if (name == QLatin1String("JS_Mediator::setSelectDoc") ||
        name == QLatin1String("JS_Mediator::selectAllDocs"))
        return name + QLatin1String("Sub");
    if (name == QLatin1String("JS_Mediator_ConvertParameterEditDialog::getExportPath"))
        return QLatin1String("JS_Mediator_FileDialog::getExportPath");
    return name;
}

bool hasMethod(const QMetaObject &meta, const QByteArray &name)
{
    for (int i = 0; i < meta.methodCount(); ++i) {
        if (meta.method(i).name() == name)
            return true;
    }
    return false;
}

bool isOfQt(const QMetaObject &level)
{
    return &level == &QObject::staticMetaObject || &level == &QWidget::staticMetaObject ||
           &level == &QDialog::staticMetaObject;
}

// What a page that sees the object can reach beside the slots of our own classes.
bool isInheritedFromQt(const QMetaObject &meta, const QMetaObject &level)
{
    return isOfQt(level) &&
           (&level == &QObject::staticMetaObject || meta.inherits(&GUI_Dialog::staticMetaObject));
}

bool knowsAHost(const QObject *dialog)
{
    return qobject_cast<const GUI_WebViewDialog *>(dialog) ||
           qobject_cast<const GUI_PageDialog *>(dialog);
}

class NativeCaller : public FaultMatrix::Caller
{
public:
    explicit NativeCaller(const PageClass &pageClass) : m_class(pageClass) {}

    void begin(StandInHost &host) override
    {
        m_host = &host;
        m_object.reset(m_class.make(host));
    }
    void call(const QMetaMethod &method, const QVariantList &arguments) override
    {
        auto *dialog = qobject_cast<GUI_Dialog *>(m_object.get());
        if (dialog && method.methodType() == QMetaMethod::Slot &&
            isInheritedFromQt(*dialog->metaObject(), *method.enclosingMetaObject()))
            prepare(dialog, method);
        callSlot(m_object.get(), method, arguments);
    }
    void end() override { m_object.reset(); }

    // Who owns the others deletes them when nothing of theirs runs.
    bool canGo() const override
    {
        return qobject_cast<JS_Mediator *>(m_object.get()) ||
               qobject_cast<GUI_Dialog *>(m_object.get());
    }
    void go() override { m_object.reset(); }

private:
    void prepare(GUI_Dialog *dialog, const QMetaMethod &slot)
    {
        if (knowsAHost(dialog)) {
            QObject::connect(dialog, &QDialog::finished, [host = m_host] { host->isReady(); });
            QObject::connect(dialog, &QDialog::accepted, [host = m_host] { host->isReady(); });
            QObject::connect(dialog, &QDialog::rejected, [host = m_host] { host->isReady(); });
        }
        if (slot.name() == "exec")
            QTimer::singleShot(0, dialog, [dialog] { dialog->done(QDialog::Accepted); });
        else if (slot.name() != "open" && slot.name() != "show")
            dialog->show();
    }

    const PageClass &m_class;
    StandInHost *m_host = nullptr;
    std::unique_ptr<QObject> m_object;
};

}

FaultScene::FaultScene() = default;
FaultScene::~FaultScene() = default;

void FaultScene::furnish()
{
    mainWidget = std::make_unique<QWidget>();
    auto *dialog = new QDialog(mainWidget.get());
    dialog->setObjectName(QStringLiteral("GUI_MobileDialog"));
    host.state().mainWidget = mainWidget.get();
    host.state().isTrelvikRunning = true;
    host.state().isTrelvikWindowShown = true;
    host.state().hasRestoredPrefs = true;
    host.state().needsDialogEnterNotice = true;
    host.answerConfirm(true);
    for (const char *setting :
         {"display/DisplayWithRealBitDepth", "devicemanager/connectedCameraOnlyShowing"})
        host.settings().setValue(QLatin1String(setting), true);
    for (int i = 0; i < 2; ++i) {
        StandInCamera *camera = host.addCamera();
        camera->setLockedTogether(true);
        camera->state().capabilities = {112, 117, 158, 176};
        camera->state().fallbackName = QStringLiteral("Fallback");
        host.select(camera->key(), true);
    }
    host.undoSteps()->push(new QUndoCommand);
}

QVariantList plainArguments(const QMetaMethod &slot, bool *ok)
{
    QVariantList arguments;
    *ok = true;
    const QList<QByteArray> types = slot.parameterTypes();
    for (int i = 0; i < slot.parameterCount(); ++i) {
        if (bare(types.at(i)) == ExceptionType || types.at(i) == DocumentType) {
            arguments.append(QVariant());
            continue;
        }
        arguments.append(plainValue(slot.parameterType(i)));
        *ok = *ok && arguments.last().isValid();
    }
    return arguments;
}

void callSlot(QObject *object, const QMetaMethod &slot, const QVariantList &arguments)
{
    std::exception exception;
    void *documents[10] = {};
    QVariantList values = arguments;
    void *data[11] = {};
    QVariant result(slot.returnType(), nullptr);
    if (slot.returnType() != QMetaType::Void)
        data[0] = result.data();
    const QList<QByteArray> types = slot.parameterTypes();
    for (int i = 0; i < slot.parameterCount(); ++i) {
        if (bare(types.at(i)) == ExceptionType) {
            data[i + 1] = &exception;
        } else if (types.at(i) == DocumentType) {
            documents[i] = values.at(i).value<void *>(); // null where there is none
            data[i + 1] = &documents[i];
        } else if (slot.parameterType(i) == QMetaType::QVariant) {
            data[i + 1] = &values[i];
        } else {
            values[i].convert(slot.parameterType(i));
            data[i + 1] = values[i].data();
        }
    }
    QMetaObject::metacall(object, QMetaObject::InvokeMetaMethod, slot.methodIndex(), data);
}

void FaultMatrix::walkNatively(const PageClass &pageClass, const QVector<PageClass> &classes)
{
    NativeCaller caller(pageClass);
    walk(*pageClass.meta, classes, caller);
}

void FaultMatrix::walk(const QMetaObject &meta, const QVector<PageClass> &classes, Caller &caller)
{
    m_meta = &meta;
    m_classes = classes;
    QStringList done; // a slot that a subclass declares again
    for (const QMetaObject *level = &meta; level; level = level->superClass()) {
        // By name: a module brings a copy of its own.
        const auto known =
            std::find_if(classes.cbegin(), classes.cend(), [&](const PageClass &each) {
                return qstrcmp(each.meta->className(), level->className()) == 0;
            });
        const bool ours = known != classes.cend();
        if (!ours && !isInheritedFromQt(meta, *level))
            continue;
        for (int i = level->methodOffset(); i < level->methodCount(); ++i) {
            const QMetaMethod slot = level->method(i);
            const QString signature = QString::fromLatin1(slot.methodSignature());
            const bool emits = slot.methodType() == QMetaMethod::Signal;
            if ((slot.methodType() != QMetaMethod::Slot && !emits) || done.contains(signature) ||
                m_leftOut.contains(slot.methodSignature()))
                continue;
            bool plainOk = false;
            plainArguments(slot, &plainOk);
            if (!ours && (!plainOk || slot.access() == QMetaMethod::Private))
                continue; // no page can
            done.append(signature);
            ++(emits ? m_signals : m_slots);
            int calls = 0;
            bool called = false;
            bool ok = false;
            const QVariantList plain = plainArguments(slot, &ok);
            if (ok) {
                calls += walkWay({slot, plain, {}, false}, caller);
                calls += walkWay({slot, plain, {}, true}, caller);
                called = true;
            }
            for (const SlotCase &each : ours ? known->cases : QVector<SlotCase>()) {
                if (each.slot != slot.methodSignature())
                    continue;
                calls += walkWay({slot, each.arguments, each.setup, true}, caller);
                called = true;
            }
            const QString name =
                QString::fromLatin1(level->className()) + QLatin1String("::") + signature;
            if (!called)
                m_problems.append(name + QLatin1String(": no arguments are known for it"));
            else if (calls == 0 && ours && !emits)
                m_withoutHostCall.append(name);
        }
    }
}

int FaultMatrix::walkWay(const Way &way, Caller &caller)
{
    const QStringList calls = run(way, caller, Form::NoFault, 0, QString());
    for (int nth = 1; nth <= calls.size(); ++nth) {
        run(way, caller, Form::Once, nth, QString());
        run(way, caller, Form::FromThereOn, nth, QString());
        if (m_canGo && !isOfQt(*way.slot.enclosingMetaObject())) // Qt itself goes on by the dialog
            run(way, caller, Form::Gone, nth, QString());
    }
    QStringList operations;
    for (const QString &line : calls)
        operations.append(operationOf(line));
    operations.removeDuplicates();
    for (const QString &operation : operations) {
        run(way, caller, Form::Null, 0, operation);
        run(way, caller, Form::Empty, 0, operation);
    }
    m_callSites += calls.size();
    return calls.size();
}

QStringList FaultMatrix::run(const Way &way, Caller &caller, Form form, int nth,
                             const QString &operation)
{
    ++m_runs;
    LogCapture log;
    FaultScene scene;
    if (way.furnished)
        scene.furnish();
    if (way.setup)
        way.setup(scene);
    StandInHost &host = scene.host;
    caller.begin(host);
    m_canGo = caller.canGo();
    host.clearJournal();
    host.clearHandledErrors();
    log.clear();
    switch (form) {
    case Form::NoFault:
        break;
    case Form::Once:
        host.failAtCall(nth);
        break;
    case Form::FromThereOn:
        host.failFromCall(nth);
        break;
    case Form::Null:
        host.answerNullOn(operation, 0);
        break;
    case Form::Empty:
        host.answerEmptyOn(operation, 0);
        break;
    case Form::Gone:
        QObject::connect(host.events(), &StandInEvents::callJournalled,
                         [&caller, nth, n = 0]() mutable {
                             if (++n == nth && QThread::currentThread() == qApp->thread())
                                 caller.go();
                         });
        break;
    }
    QString escaped;
    try {
        caller.call(way.slot, withDocuments(way.arguments, way.slot, host));
    } catch (const std::exception &failure) {
        escaped = QString::fromUtf8(failure.what());
    } catch (...) {
        escaped = QStringLiteral("something that is no exception");
    }
    host.clearFaults();
    const QStringList calls = withoutErrorHandler(host.journal());
    QStringList handled = host.handledErrors();
    if (way.slot.parameterTypes().contains("std::exception&"))
        handled.removeOne(QLatin1String("std::exception")); // what it is there for

    if (std::any_of(calls.cbegin(), calls.cend(), mayBeRefused))
        handled = withoutRefusals(handled, log.texts(QtCriticalMsg));

    QString when = QStringLiteral("without a fault");
    if (form == Form::Once || form == Form::FromThereOn || form == Form::Gone)
        when = QStringLiteral("%1 call %2, %3")
                   .arg(QLatin1String(form == Form::Once   ? "at"
                                      : form == Form::Gone ? "gone at"
                                                           : "from"))
                   .arg(nth)
                   .arg(calls.value(nth - 1));
    else if (form == Form::Null || form == Form::Empty)
        when = operation + QLatin1String(form == Form::Null ? " answers null" : " answers empty");
    if (!escaped.isEmpty())
        report(way, when, QLatin1String("escaped: ") + escaped);
    if (!areBalanced(log.texts()))
        report(way, when, QLatin1String("trace: ") + log.texts().join(QLatin1String(" | ")));
    checkTrace(way, when, log.texts());

    if (form == Form::Once && calls.size() >= nth) {
        const QString failing = operationOf(calls.at(nth - 1));
        const bool told =
            handled.size() == 1 && (isTask(failing) || handled.first() == failing + " failed");
        if (!told)
            report(way, when, QLatin1String("handled: ") + handled.join(QLatin1String(" | ")));
    } else if (form == Form::FromThereOn) {
        QStringList expected;
        for (const QString &line : calls.mid(nth - 1))
            expected.append(operationOf(line) + QLatin1String(" failed"));
        QStringList others = handled;
        const int withTasks = expected.size();
        expected.erase(std::remove_if(expected.begin(), expected.end(),
                                      [](const QString &line) {
                                          return isTask(line.section(QLatin1Char(' '), 0, 0));
                                      }),
                       expected.end());
        const bool task = expected.size() < withTasks;
        if (task && !expected.contains(QLatin1String("runWithProgress failed"))) {
            const auto own = std::find_if(others.begin(), others.end(), [&](const QString &line) {
                return !expected.contains(line);
            });
            if (own != others.end())
                others.erase(own); // the task's, as the toolkit words it
        }
        // A scope inside a body reports before the body does.
        expected.sort();
        others.sort();
        if (others != expected)
            report(way, when, QLatin1String("handled: ") + handled.join(QLatin1String(" | ")));
    } else if (!handled.isEmpty()) { // nothing is no failure
        report(way, when, QLatin1String("handled: ") + handled.join(QLatin1String(" | ")));
    }
    caller.end();
    return calls;
}

// Whether a trace is of another object than the one that is called: a dialog that a slot opens has
// traces of its own.
bool FaultMatrix::isOfAnother(const QStringList &trace) const
{
    for (const QMetaObject *level = m_meta; level; level = level->superClass()) {
        if (trace.first() == QLatin1String(level->className()))
            return false;
    }
    return std::any_of(m_classes.cbegin(), m_classes.cend(), [&](const PageClass &each) {
        return trace.first() == QLatin1String(each.meta->className());
    });
}

void FaultMatrix::checkTrace(const Way &way, const QString &when, const QStringList &lines)
{
    // A body of its own for a slot of its base is traced as that of its class.
    const QString traceNameHere = QLatin1String(m_meta->className()) + QLatin1String("::") +
                                  QString::fromLatin1(way.slot.name());
    bool first = true;
    for (const QString &line : lines) {
        if (!line.startsWith(QLatin1String("[ENTER]")))
            continue;
        const QString name = line.section(QLatin1Char('"'), 1, 1);
        const QStringList parts = name.split(QLatin1String("::"));
        bool fits = parts.size() == 2 && !parts.contains(QString());
        for (const PageClass &each : qAsConst(m_classes)) {
            if (fits && parts.first() == QLatin1String(each.meta->className()))
                fits = hasMethod(*each.meta, parts.last().toLatin1()) ||
                       name == traceNameOf(way.slot) || parts.last() == QLatin1String("closeEvent");
        }
        const bool own =
            std::any_of(m_classes.cbegin(), m_classes.cend(), [&](const PageClass &each) {
                return qstrcmp(each.meta->className(),
                               way.slot.enclosingMetaObject()->className()) == 0;
            });
        if (first && own && way.slot.methodType() == QMetaMethod::Slot && !isOfAnother(parts))
            fits = fits && (name == traceNameOf(way.slot) || name == traceNameHere ||
                            parts.last() == QLatin1String("closeEvent")); // it ends a dialog alone
        if (!fits)
            report(way, when, QLatin1String("name: ") + line);
        first = false;
    }
}

void FaultMatrix::report(const Way &way, const QString &when, const QString &what)
{
    m_problems.append(QString::fromLatin1(way.slot.enclosingMetaObject()->className()) +
                      QLatin1String("::") + QString::fromLatin1(way.slot.methodSignature()) +
                      QLatin1String(way.furnished ? " (furnished) " : " (empty) ") + when +
                      QLatin1String(": ") + what);
}

QVector<PageClass> allPageClasses()
{
    return bridgePageClasses() + recordPageClasses() + devicePageClasses() +
           discoveryPageClasses() + fileDialogPageClasses() + saveFilePageClasses();
}
