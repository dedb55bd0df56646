#pragma once

#include "bridge/page/PageProof.h"

#include <QPointer>
#include <QString>
#include <QVector>
#include <QWebFrame>

/// Catches what a page's handlers of an object's signals throw.
///
/// The engine loses such a failure, and ends the process when no script is on the stack. It also
/// keeps the handlers of a page that has been left. So each signal's connect(), as the page sees
/// it, is exchanged for one that puts a catch around the handler: a failure is logged by "[SCRIPT]"
/// at critical level, the page goes on, and handlers end with their page, the engine's connections
/// too. A page connects and disconnects as ever. Owned by the object; goes with the frame. GUI
/// thread.
class PageHandlers : public PageProof<QObject>
{
    Q_OBJECT
    Q_PROPERTY(QObject *frame READ frame CONSTANT)
    Q_PROPERTY(int pageNumber READ pageNumber)

public:
    /// Guards the handlers of all signals of `object`, in the page that `frame` shows now and in
    /// each that it will load. Comes before the page connects; the object need not be shown to the
    /// page yet. A second call for the same frame changes nothing.
    static void guard(QWebFrame *frame, QObject *object);

    /// The frame that guard() was called with for the object, the last that is still there; null
    /// when there is none.
    static QWebFrame *frameOf(const QObject *object);

    QObject *frame() const { return m_frame; }

    /// Counts the pages; handlers of an earlier one hear nothing.
    int pageNumber() const { return m_pageNumber; }

public slots:
    void failed(const QString &error);

    /// The page has just connected a handler. Without one it changes nothing.
    void connected();

private:
    PageHandlers(QWebFrame *frame, QObject *object);

    void install();
    void disconnectPage();
    void leave();

    QPointer<QWebFrame> m_frame;
    QVector<QPointer<QObject>> m_connections; ///< the engine's, children of the object
    QString m_script;                         ///< without the page's number
    int m_pageNumber = 0;
};
