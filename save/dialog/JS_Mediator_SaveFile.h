#pragma once

#include "bridge/mediator/JS_Mediator.h"
#include "foundation/SaveModes.h"
#include "foundation/UTL_QLN2_Integration.h"

#include <QString>
#include <QStringList>

/// The settings' side of every page that saves: in which mode the page runs, lists of formats,
/// destinations, free space, samples of numbers and times, and the dialogs for numbers and custom
/// information.
///
/// Pages find it as "savefile". Which settings it reads follows from the name of the page. It
/// writes none: the page does. GUI thread.
class JS_Mediator_SaveFile : public JS_Mediator
{
    Q_OBJECT

public:
    /// `host` outlives the mediator. `pageName` is "snapshotdialog", "batchconverter",
    /// "convertparametereditdialog", "reportExportDialog" or "layoutsavedialog"; every other page
    /// exports.
    JS_Mediator_SaveFile(HostServices *host, const QString &pageName);

signals:
    void accepted();
    void rejected();
    void refreshed();
    void decision(); ///< the page's buttons, for the dialog that shows it
    void cancel();
    void apply();

public slots:
    void accept();
    void reject();
    void refresh();

    /// The folder that the user chooses, with a trailing "/"; `dir` is offered first. Empty when
    /// the user cancels or the host fails.
    QString selectFolder(const QString &dir);

    /// Let the user set the digits of a number, of the pages' own levels but for a report: that one
    /// sets the digits of an export.
    void numberSetting4GroupDir();
    void numberSetting4SubDir();
    void numberSetting4FileName();

    /// The first number of a level as its digits write it; empty when the host fails. A layout,
    /// which has no group directory, shows that of an export.
    QString addNumber4GroupDir();
    QString addNumber4SubDir();
    QString addNumber4FileName();

    /// Formats in capitals; `fromDevice` adds the one that only a camera can write.
    QStringList getFileFormats(bool fromDevice);
    QStringList getSnapFileFormats();
    QStringList getLayoutFileFormats();
    QStringList getCodecFilters();

    /// Free space of the volume that the path begins with, as "1.50GB".
    QString getFreeSpace(const QString &path);

    bool isSnapMode();
    bool isConvertMode();
    bool isReportMode();
    bool isLayoutMode();

    /// The name of the page.
    QString getParentWidgetName();

    /// The present time in a format of QDateTime.
    QString addDateTime(const QString &format);

    /// How many documents and heads are selected on the page, for the dialogs of numbers.
    void selectedDocCount(int count);
    void selectedDocHeadCount(int count);

    /// Whether a format is one of moving pictures, the raw ones included.
    bool isMovieFormat(const QString &format);

    /// Whether a file of this format holds what the sensor gave, as the settings have it; false for
    /// formats that cannot, and when the host fails.
    bool isRawFormat(const QString &format);

    /// Lets the user edit the custom information that goes into file names; `forTemporary`: of the
    /// documents of a temporary save.
    void editCustom(bool forTemporary);

    /// The destinations: [{"recid":1,"name":"","path":""}]. Empty when the host fails.
    QString getMultiPaths();

    /// The devices, each name once, with the destination that each has and all that it may have:
    /// [{"recid":1,"device":"","paths":[{"key":"","val":""}],"pathselector":"","path":""}]. Empty
    /// when the host fails.
    QString getMultiPathDevices();

    /// Whether the information in saved pictures shows the file name, so that a preview follows it.
    /// False when the host fails.
    bool isNeedRefreshPreview();

    /// Whether nothing can be handed to the companion application now, and whether that is
    /// installed. False when the host fails.
    bool isQln2OptionDisabled();
    bool isQLN2AppInstalled();

private:
    enum class Level { GroupDir, SubDir, FileName };

    static int targetKind(Level level, SaveModes::Family family);

    SaveModes::Family family() const;
    QString numberSample(const QString &slot, Level level);
    void setNumber(const QString &slot, Level level);

    bool m_snapMode;
    bool m_convertMode;
    bool m_reportMode;
    bool m_layoutMode;
    QString m_parentWidgetName;
    int m_selectedDocs = 0;
    int m_selectedDocHeads = 0;
    UTL_QLN2_Integration m_integration;
};
