#pragma once

#include "bridge/page/PageProof.h"

#include <QString>

class StandInHost;

/// What pages about the information over the pictures show beside the settings: the numbers that a
/// setting can have, and examples as the pictures would have them.
///
/// Each page that the host shows a mediator to sees it as `informationSamples`. It asks the host
/// for nothing and never throws. GUI thread.
class InformationSamples : public PageProof<QObject>
{
    Q_OBJECT

public:
    /// Comes before the pages; the host outlives it.
    explicit InformationSamples(StandInHost &host, QObject *parent = nullptr);

    /// The family that texts of this family are drawn in when it is not installed; empty when it
    /// is, and for an empty name.
    Q_INVOKABLE QString substituteFont(const QString &family) const;

    /// The choices of a setting as JSON text: [{"number":0,"label":"Automatic"}], in the order in
    /// which a page offers them, the first one standing for all numbers that are not listed. The
    /// labels are English source texts.
    Q_INVOKABLE QString shutterSpeedChoices() const;
    Q_INVOKABLE QString shutterSpeedUnitChoices() const;
    Q_INVOKABLE QString recordingTimeChoices() const;

    /// Examples under these settings, each long enough to show what they do.
    Q_INVOKABLE QString shutterSpeed(int format, int unit, bool insertDelimiter) const;
    Q_INVOKABLE QString recordRate(bool insertDelimiter) const;
    Q_INVOKABLE QString frame(bool insertDelimiter) const;
    Q_INVOKABLE QString recordingTime(int unit) const;
};
