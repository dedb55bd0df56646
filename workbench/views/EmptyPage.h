#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/// What stands in place of the views when there are none: what is missing, and a button that mends
/// it.
class EmptyPage : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyPage(QWidget *parent = nullptr);

    /// An empty `button` shows no button.
    void say(const QString &title, const QString &text, const QString &button);

    QString title() const;

signals:
    void pressed();

private:
    QLabel *m_title;
    QLabel *m_text;
    QPushButton *m_button;
};
