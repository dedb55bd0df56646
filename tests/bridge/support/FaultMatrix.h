#pragma once

#include "standin/host/StandInHost.h"

#include <QByteArray>
#include <QMetaMethod>
#include <QStringList>
#include <QVariantList>
#include <QVector>

#include <functional>
#include <memory>

/// A host furnished for one call of a slot, and what it points to.
struct FaultScene
{
    FaultScene();
    ~FaultScene();

    /// Two locked cameras that can do everything and are selected, a main widget with a dialog that
    /// follows the style, settings that switch things on, a user who says yes.
    void furnish();

    std::unique_ptr<QWidget> mainWidget;
    StandInHost host;
};

/// One way in which a slot is called, to reach a branch that the plain calls do not.
struct SlotCase
{
    QByteArray slot;        ///< signature
    QVariantList arguments; ///< a document by its key
    std::function<void(FaultScene &)> setup;
};

/// A class whose slots pages, or the engine, can call.
struct PageClass
{
    const QMetaObject *meta;
    std::function<QObject *(StandInHost &)> make; ///< owned by the caller
    QVector<SlotCase> cases;                      ///< of the slots that the class declares
};

// The classes of each layer. A new class is added to the list of its layer.

QVector<PageClass> bridgePageClasses();
QVector<PageClass> recordPageClasses();
QVector<PageClass> devicePageClasses();
QVector<PageClass> discoveryPageClasses();
QVector<PageClass> fileDialogPageClasses();
QVector<PageClass> saveFilePageClasses();

/// All of them.
QVector<PageClass> allPageClasses();

/// Calls slots, and emits signals as a page can, while host calls fail.
///
/// Of a dialog it also calls what is inherited from QDialog and QWidget, while somebody who asks
/// the host listens to the dialog's end. A trace that a slot begins bears its name, "Class::slot".
///
/// Each slot is called with an empty host and with a furnished one, with arguments made from their
/// types, and in the ways of its cases. A run without faults counts the host calls; then each of
/// them fails once, then each and all that follow. Nothing may escape; errorHandler() gets every
/// failure once, a refusal of the host too; every "[ENTER]" has its "[LEAVE]". Where the caller
/// can, it also deletes the object inside each of the calls; freed memory must not be read behind
/// it, which is only seen when something fills it (a sanitizer, or mallopt() with M_PERTURB).
class FaultMatrix
{
public:
    /// Makes the objects whose slots are called, and calls them.
    class Caller
    {
    public:
        virtual ~Caller() = default;

        /// Begins a run: an object that works with `host`, which stays valid until end().
        virtual void begin(StandInHost &host) = 0;
        virtual void call(const QMetaMethod &slot, const QVariantList &arguments) = 0;
        virtual void end() = 0;

        /// Whether the object may go inside a host call, and lets it go.
        virtual bool canGo() const { return false; }
        virtual void go() {}
    };

    /// Walks the slots of `meta` and of those of its bases that are in `classes`.
    void walk(const QMetaObject &meta, const QVector<PageClass> &classes, Caller &caller);

    /// walk() with native calls on the objects that the class makes.
    void walkNatively(const PageClass &pageClass, const QVector<PageClass> &classes);

    /// A slot that is not called.
    void leaveOut(const QByteArray &signature) { m_leftOut.append(signature); }

    int slotCount() const { return m_slots; }     ///< slots that were called
    int signalCount() const { return m_signals; } ///< signals that were emitted
    int callSites() const { return m_callSites; } ///< host calls that failed in turn
    int runs() const { return m_runs; }
    QStringList slotsWithoutHostCall() const { return m_withoutHostCall; }
    QStringList problems() const { return m_problems; } ///< what must not have been

private:
    enum class Form { NoFault, Once, FromThereOn, Null, Empty, Gone };

    struct Way
    {
        QMetaMethod slot;
        QVariantList arguments;
        std::function<void(FaultScene &)> setup;
        bool furnished;
    };

    int walkWay(const Way &way, Caller &caller);
    QStringList run(const Way &way, Caller &caller, Form form, int nth, const QString &operation);
    bool isOfAnother(const QStringList &trace) const;
    void checkTrace(const Way &way, const QString &when, const QStringList &lines);
    void report(const Way &way, const QString &when, const QString &what);

    QList<QByteArray> m_leftOut;
    const QMetaObject *m_meta = nullptr; ///< of the object whose slots are walked
    QVector<PageClass> m_classes;        ///< those of the walk
    bool m_canGo = false;
    int m_slots = 0;
    int m_signals = 0;
    int m_callSites = 0;
    int m_runs = 0;
    QStringList m_withoutHostCall;
    QStringList m_problems;
};

/// Arguments of plain values for the slot's types; empty when one of the types has none.
QVariantList plainArguments(const QMetaMethod &slot, bool *ok);

/// Calls a slot with these arguments, converted to its types; a document is given as `void *`, of
/// its DOC_Interface. Lets failures pass.
void callSlot(QObject *object, const QMetaMethod &slot, const QVariantList &arguments);
