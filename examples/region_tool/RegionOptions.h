#pragma once

#include <QPoint>
#include <QSize>
#include <QVariantMap>

/// What the user chose for the region, in the words of the options page.
struct RegionOptions
{
    bool fixAspect = false;
    bool originalAspect = false; ///< the aspect was taken from the picture
    double aspect = 0.75;        ///< height divided by width, 0.01 to 100
    bool symmetricX = false;
    bool symmetricY = false;
    bool applyToAll = true;    ///< while cameras are locked, all of them get the region
    QPoint positionStep{1, 1}; ///< sensor pixels, 1 to 1024
    QSize sizeStep{1, 1};      ///< sensor pixels, 1 to 1024
    QSize minimum{16, 16};     ///< 1 to 65535
    QSize maximum{-1, -1};     ///< 0 and below: no limit

    /// The values by their names: "fixAspect", "positionStepX", "maxWidth" and so on; no maximum
    /// shows as 0.
    QVariantMap toMap() const;

    /// Sets one of them, moved into its range; false for an unknown name, or a text where a number
    /// belongs. Nothing changes then.
    bool set(const QString &name, const QVariant &value);
};
