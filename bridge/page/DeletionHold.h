#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>
#include <QWidget>

class QWebView;

/// Holds back deleteLater() of a view, and of every widget that it stands in, while script is on
/// the stack or the engine tells of a load: it takes effect when they have returned. Otherwise an
/// event loop that a slot runs would delete the view under the slot. Child of the view. GUI thread.
class DeletionHold : public QObject
{
    Q_OBJECT

public:
    explicit DeletionHold(QWebView *view);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watch();

    QWebView *m_view;
    QVector<QPointer<QWidget>> m_watched; ///< the view and what it stands in
};
