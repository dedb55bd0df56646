#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWebFrame>

/// Catches what a page's handlers of an object's signals throw.
///
/// The engine loses such a failure, and ends the process when no script is on the stack. It also
/// keeps the handlers of a page that has been left. So each signal's connect(), as the page sees
/// it, is exchanged for one that puts a catch around the handler: a failure is logged by "[SCRIPT]"
/// at critical level, the page goes on, and handlers end with their page. A page connects and
/// disconnects as ever. Owned by the object. GUI thread.
class PageHandlers : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *object READ object CONSTANT)
    Q_PROPERTY(QObject *frame READ frame CONSTANT)
    Q_PROPERTY(QStringList names READ names CONSTANT)
    Q_PROPERTY(int pageNumber READ pageNumber)

public:
    /// Guards the handlers of all signals of `object`, in the page that `frame` shows now and in
    /// each that it will load. Comes before the page connects; the object need not be shown to the
    /// page yet. A second call for the same frame changes nothing.
    static void guard(QWebFrame *frame, QObject *object);

    // For the script in the page.

    QObject *object() const { return parent(); }
    QObject *frame() const { return m_frame; }
    QStringList names() const { return m_names; } ///< of signals, by name and by signature
    int pageNumber() const { return m_pageNumber; }

public slots:
    int beginPage(); ///< handlers of an earlier page hear nothing from here on
    void failed(const QString &error);

private:
    PageHandlers(QWebFrame *frame, QObject *object);

    void install();

    QPointer<QWebFrame> m_frame;
    QStringList m_names;
    int m_pageNumber = 0;
};
