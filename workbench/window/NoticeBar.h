#pragma once

#include <QFrame>

class QLabel;

/// One unobtrusive line over the views that says what went wrong, until it is dismissed.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget *parent = nullptr);

    /// Shows the text; several texts share the line as "latest (and 2 more, see the log)". One that
    /// is among them already changes nothing.
    void tell(const QString &text);

    /// What is shown, empty when the bar is hidden.
    QString text() const;

    /// Hides the bar and forgets its texts.
    void dismiss();

signals:
    /// The user wants to see the log.
    void logRequested();

private:
    QLabel *m_label;
    QStringList m_texts;
};
