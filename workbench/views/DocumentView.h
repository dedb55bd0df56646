#pragma once

#include "contract/HostTypes.h"

#include <QFrame>

class LockBadge;
class PictureArea;
class QLabel;
class StandInDocument;

/// One camera or recording: its name, whether it is locked, its picture, the number of the frame
/// that is shown, and its settings. A click, Space or Enter makes it the current one.
class DocumentView : public QFrame
{
    Q_OBJECT

public:
    /// The document outlives the view.
    explicit DocumentView(StandInDocument &document, QWidget *parent = nullptr);

    StandInDocument &document() const { return m_document; }
    DOCKEY key() const;

    /// Whether the view bears the mark of the current document.
    bool isCurrent() const { return m_current; }
    void setCurrent(bool current);

    /// Frames of a recording, from 0 to the last; 0 for a live picture, which has no end. The frame
    /// that is shown is moved inside.
    void setFrameCount(quint64 count);
    quint64 frameCount() const { return m_frameCount; }

    /// The frame that is shown, from 0.
    quint64 frameNumber() const { return m_frame; }
    void showFrame(quint64 number);

    /// Shows this text in place of the picture; empty: the picture.
    void setEmptyText(const QString &text);

    /// All three at once, and everything anew: the picture is drawn once.
    void showAll(const QString &emptyText, quint64 count, quint64 number);

    /// Shows name, lock, settings and picture anew.
    void refresh();

    /// What stands over and under the picture.
    QString title() const;
    QString frameText() const;
    QString settingsText() const;
    bool showsLock() const;

    /// The picture that is shown, null when there is none.
    QImage picture() const;

signals:
    /// The user chose this view.
    void chosen(DOCKEY key);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void refreshPicture();
    void refreshTexts();

    StandInDocument &m_document;
    QLabel *m_title;
    LockBadge *m_lock;
    PictureArea *m_picture;
    QLabel *m_frameLabel;
    QLabel *m_settings;
    QString m_emptyText;
    bool m_current = false;
    quint64 m_frameCount = 0;
    quint64 m_frame = 0;
};
