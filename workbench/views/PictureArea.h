#pragma once

#include <QImage>
#include <QWidget>

class StandInDocument;

/// The picture of a document, turned, flipped and scaled as the document says, or a text where
/// there is none. Of a camera that shows its whole sensor, what is not read is darker. It tells the
/// document how large its view is, and the wheel scrolls a picture that is larger, with Shift
/// sideways. Where the host shows it, the information of the document stands over the picture,
/// upright however the picture is turned, in what is seen of it.
class PictureArea : public QWidget
{
    Q_OBJECT

public:
    /// The document outlives the area.
    explicit PictureArea(StandInDocument &document, QWidget *parent = nullptr);

    /// The picture of this frame, from 0.
    void setPicture(const QImage &picture, quint64 frame);
    QImage picture() const { return m_picture; }

    /// Shown in place of a picture that is null.
    void setEmptyText(const QString &text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    StandInDocument &m_document;
    QImage m_picture;
    quint64 m_frame = 0;
    QString m_emptyText;
};
