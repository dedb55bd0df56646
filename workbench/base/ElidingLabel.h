#pragma once

#include <QLabel>

/// A label for plain text that may become narrower than its text: what does not fit ends in dots,
/// and the whole text shows under the pointer.
class ElidingLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidingLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool isCut() const;
};
