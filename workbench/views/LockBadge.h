#pragma once

#include <QWidget>

/// A closed padlock with the word "Locked".
class LockBadge : public QWidget
{
    Q_OBJECT

public:
    explicit LockBadge(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
};
