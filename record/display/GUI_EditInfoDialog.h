#pragma once

#include "bridge/data/PrefSnapshot.h"
#include "bridge/dialog/GUI_PageDialog.h"
#include "contract/HostTypes.h"
#include "record/display/InfoItemList.h"
#include "record/display/InfoSettings.h"

#include <QDateTime>
#include <QPair>
#include <QSize>
#include <QStringList>
#include <QVector>

class DOC_Interface;

/// The dialog that decides which facts of a recording are written over the picture, in which order
/// and typeface.
///
/// It has two forms. The editor form works on the picture on the screen, whose settings are there
/// once, and shows every change in the views at once. The save form works on what is written into
/// saved pictures, whose settings are there for each of seven groups. A setting that a form does
/// not have reads empty, false or 0, and is not written.
///
/// The page, which finds the dialog as "editInfo", stores every change at once. Every end but ok()
/// and accept() writes back what was there when the dialog opened, once, as far as the host lets
/// it. Documents that have gone since then are left alone. GUI thread.
class GUI_EditInfoDialog : public GUI_PageDialog
{
    Q_OBJECT

public:
    /// The editor form, for the current document. `host` outlives the dialog; its main widget
    /// becomes the parent. Throws what the host throws.
    explicit GUI_EditInfoDialog(HostServices *host);

    /// `fileType` is the format that is saved, `document` and `partition` what the preview shows;
    /// without a document it is the current one, and 0 is the document's current partition. A logo
    /// goes to `documents` too. `timeStamp` is the time that the preview shows.
    GUI_EditInfoDialog(HostServices *host, int fileType, bool saveForm, DOC_Interface *document,
                       int partition, const QList<DOC_Interface *> &documents,
                       const QDateTime &timeStamp);

    /// Writes back too when it is still on the screen.
    ~GUI_EditInfoDialog() override;

    void setVisible(bool visible) override;
    void done(int result) override;

public slots:
    void populateJavaScriptWindowObject() override;

    /// The markup of a group's items, read anew, with what was built so far when the host fails.
    /// Empty without a document. A page begins with it: what was kept so far can be written back.
    QString getInfoSettingsHtml(int offset = 0);

    /// Ticks an item of a group, and stores the group's items.
    void changeDisp(const QString &id, bool check, int offset = 0);

    /// Stores a group's items in another order: ids with "," between them, "HR" for a line.
    void changeOrder(const QString &idList, int offset = 0);

    /// Keeps what restoreFontSettings() writes into the group that is current then.
    void backupFontSettings(int offset);
    void restoreFontSettings();

    /// Families of the host's fonts; empty when it fails.
    QStringList getFontNameList();

    /// What can be chosen as size of the text, and as number of columns, as decimal text.
    QStringList getFontSizeList();
    QStringList getToColumnList();

    /// Whether groups 1 to 6 are set together, by writeFontOK(). The editor form, which has one
    /// group, knows nothing of it.
    bool isCollectiveSetting();
    void setCollectiveSetting(bool value, bool update = true);

    // Reading makes the group the current one, which the setters write. Neutral when the host
    // fails; a base resolution is -1 by -1 then. A page reads that as empty text, and can set none.
    QString getFontName(int offset = 0);
    QString getFontSize(int offset = 0);
    bool getBold(int offset = 0);
    bool getItalic(int offset = 0);
    QString getForegroundColor(int offset = 0);
    bool isFixedFontSizeRatio(int offset = 0);
    QSize getFixedFontSizeRatioBaseResolution(int offset = 0);
    int getAlignment(int offset = 0);
    bool getUseBackgroundColor(int offset = 0);
    QString getBackgroundColor(int offset = 0);
    int getWidth(int offset = 0);
    int getIconSize(int offset = 0);
    bool getToColumn(int offset = 0);
    QString getColumnNum(int offset = 0);
    int getColumnSpacing(int offset = 0);

    // The views of the editor form follow where they are asked to.
    void setFontName(const QString &value, bool update = true);
    void setFontSize(const QString &value, bool update = true);
    void setBold(bool value, bool update = true);
    void setItalic(bool value, bool update = true);
    void setForegroundColor(const QString &value, bool update = true);
    void setFixedFontSizeRatio(bool value, bool update = true);
    void setFixedFontSizeRatioBaseResolution(const QSize &value, bool update = true);
    void setAlignment(int value, bool update = true);
    void setUseBackgroundColor(bool value, bool update = true);
    void setBackgroundColor(const QString &value, bool update = true);
    void setWidth(int value, bool update = true);
    void setIconSize(int value, bool update = true);
    void setToColumn(bool value, bool update = true);
    void setColumnNum(const QString &value, bool update = true);
    void setColumnSpacing(int value, bool update = true);

    /// Whether what is saved stands inside the picture, in all groups.
    bool getWithinImage();
    void setWithinImage(bool value, bool update = true);

    /// Whether a line between items takes the room of one; the same in both forms.
    bool getDisplayBlankLine();
    void setDisplayBlankLine(bool display);

    /// Opens the dialog of the comments, of the document's own where it is still there.
    void editComment();

    /// Asks for a logo, stores its path and gives it to the documents where they are files.
    void setLogoPath();

    // Each opens a dialog, which keeps what it stored whatever way this one ends.
    void execTimeCodeSettingDialog();
    void editCustom();
    void editShutterDispFormat();
    void editRectimeDispFormat();
    void editRecordRateDispFormat();
    void editFrameDispFormat();

    /// The picture as it would be saved, as PNG in base64; in the size of what is saved when
    /// `width` is 0. Empty without a document, and when the host fails.
    QString getThumbnail(int width = 0, int height = 0);

    /// Width and height of the last picture, -1 and -1 before the first.
    QList<int> getThumbnailResolution();

    /// The size of what is saved, as a labelled text; empty without a document.
    QString getResolutionStr();

    /// The language of what is saved, as a labelled text.
    QString getExportLanguage();

    /// Ends the editing of the current group's typeface: takes over the document's size where the
    /// size of the text is tied to it, and gives everything to the other groups, but not to group
    /// 0, where they are set together.
    void writeFontOK();

    /// Writes back the typefaces that were there when the dialog opened, but not that of the save
    /// form's group 0.
    void writeFontCancel();

    /// Puts items and order back to how the application was shipped. The page reads them again.
    void reset();

    /// The user's answer to a question; false when the host fails.
    bool confirm(const QString &message);

    /// Ends the dialog, and keeps what is stored.
    void ok();

    /// Writes back what was there when the dialog opened, and ends it.
    void cancel();

    QString getStyle();
    QString translate(const QString &string);

    /// Whether what is saved is converted by parameters of its own: in one format, not of files.
    bool onConvertParameterEditDialog();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    using Property = InfoFontSettings::Property;

    /// A document that may go while the dialog is open.
    struct HeldDocument
    {
        DOC_Interface *document = nullptr;
        DOCKEY key = NoDocKey;
    };

    /// While the dialog is shown or ends, by whatever way.
    class Transition;

    static HeldDocument hold(HostServices *host, DOC_Interface *document);
    static DOC_Interface *present(HostServices *host, const HeldDocument &held);

    void decideOnce(bool isKept);
    void readInitial();
    void writeBack();

    QVariant value(Property property, int group = 0);
    QVariant groupValue(Property property, int group);
    void setValue(Property property, const QVariant &value, bool update);
    bool readItems(int offset);
    template <typename Change> void changeItems(int offset, Change &&change);
    template <typename Make> void runDialog(Make &&make);

    InfoSettings m_settings;
    int m_fileType;
    QStringList m_fontSizeList;
    QStringList m_columnList;
    QDateTime m_timeStamp;
    int m_currentGroup = 0;
    InfoItemList m_items;
    QVector<QPair<Property, QVariant>> m_backup;
    PrefSnapshot m_initial;
    bool m_isDecided = false; ///< what was there has been written back, or what is there is kept
    int m_transitions = 0;
    QSize m_thumbnailSize{-1, -1};
    HeldDocument m_document;
    int m_partition;
    QVector<HeldDocument> m_documents;
};
