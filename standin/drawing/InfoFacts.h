#pragma once

#include <QDateTime>
#include <QHash>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QVector>

/// What is known of a document, a partition and a frame: what its information is made of. What is
/// not known is empty or 0.
struct InfoFacts
{
    struct Custom
    {
        QString name;
        QString value;
        QString unit;
    };

    QString cameraState;
    QString cameraName;
    QString fileName; ///< without extension
    QString deviceName;
    int headNumber = 0;      ///< from 1
    int partitionNumber = 0; ///< from 1
    uint recordRate = 0;     ///< frames per second
    uint shutterSpeed = 0;   ///< exposure in parts of a second
    QSize resolution;        ///< pixels
    quint64 frame = 0;       ///< from 0
    quint64 frameCount = 0;  ///< 0: a live picture, without an end
    QDateTime time;          ///< of what is saved
    QString recordDate;      ///< "yyyy/M/d"
    QString recordTime;      ///< "HH:mm:ss" or "HH:mm"
    double zoomRate = 0.0;   ///< screen pixels per image pixel
    bool usesLut = false;
    bool showsCrossCursor = false;
    QPoint crossCursor; ///< image pixels
    QString comment;
    QVector<Custom> customs; ///< those that are to be shown

    /// What the device tells by itself, by item id.
    QHash<QString, QString> readings;
};
