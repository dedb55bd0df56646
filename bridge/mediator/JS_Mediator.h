#pragma once

#include "bridge/data/SkipRange.h"
#include "bridge/page/PageObject.h"
#include "contract/HostTypes.h"
#include "contract/HostValues.h"

#include <QList>
#include <QMap>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <exception>

class DOC_Interface;
class GUI_WebView;
class HostServices;

/// What a page sees of the application: the base of every object that script calls.
///
/// It holds no state of the application but a few cached values and forwards to the host. A failure
/// of the host goes to its errorHandler(), and the slot answers with a neutral value: false, 0, an
/// empty text or list. The creator owns a mediator; there is no parent, and a page cannot delete
/// it. The creator may do so inside any call of the host, as when a tool closes: what a slot still
/// has to do then, it does with the host alone. Its object name is the page name, under which the
/// host shows it to the page. GUI thread.
class JS_Mediator : public PageObject
{
    Q_OBJECT

public:
    /// `host` outlives the mediator and is not owned. `name` is the page name, such as "savefile".
    JS_Mediator(HostServices *host, const QString &name);
    ~JS_Mediator() override;

    /// Chooses frames (0) or milliseconds (1) for skip values. Default: nothing.
    virtual void setSkipMode(int mode);
    /// Stores a skip value that was moved into the range. Default: nothing.
    virtual void applySkipFrames(double value);

    HostServices *host() const { return m_host; }
    QString pageName() const { return m_name; }

    /// The view that shows the page, null before the host has attached one and after it has gone.
    GUI_WebView *webView() const;

    /// For the host's attachMediator(), before it shows the mediator to the page: from here on the
    /// page's handlers cannot harm the process.
    void setWebView(GUI_WebView *view);

    /// Flags for the host's updateUI() behind an operation.
    int updateFlags() const { return m_updateFlags; }
    void setUpdateFlags(int flags) { m_updateFlags = flags; }

signals:
    void open();
    void update();
    void close();
    void enterQtWidget();

public slots:
    virtual int getSkipMode();
    virtual void setSkipFrames(double val);
    virtual double getSkipFrames();
    double getSkipMinFrames();
    double getSkipMaxFrames();
    /// Stores "light" or "dark"; pages restyle themselves on the refresh.
    void setStyle(const QString &style);
    QString getStyle();
    void openPlugin(const QString &name);
    void closePlugin();
    void closePlugin(const QString &name);
    void errorHandler(std::exception &e); ///< for native code
    void info(const QString &message);
    void warn(const QString &message);
    void warn(const QString &message, const QStringList &messages);
    void alert(const QString &message);
    void alert(const QString &message, const QStringList &messages);
    bool confirm(const QString &message);
    QString translate(const QString &string);
    /// The translated `arg` in place of "%1" of the translated `string`.
    QString translate(const QString &string, const QString &arg);
    bool isReady();
    bool isLiveMode();
    bool isMemoryMode();
    virtual bool isFileMode();
    bool isPlaying();
    bool isConnected();
    /// Text of a resource; a missing one leaves a warning.
    QString load(const QString &fileName);
    void updateUI();
    void deterUpdateUI(bool deter);
    /// Shows the mediator to its page a second time, as "prefs".
    virtual void addPrefsJSObject();
    int getPrefInt(const QString &name, const QVariant &defaultValue = QVariant());
    bool getPrefBool(const QString &name, const QVariant &defaultValue = QVariant());
    double getPrefFloat(const QString &name, const QVariant &defaultValue = QVariant());
    QString getPrefString(const QString &name, const QVariant &defaultValue = QVariant());
    void setPrefInt(const QString &name, int value, bool update = true);
    void setPrefBool(const QString &name, bool value, bool update = true);
    void setPrefFloat(const QString &name, double value, bool update = true);
    void setPrefString(const QString &name, const QString &value, bool update = true);
    /// Through the generic store.
    void setPrefDQString(const QString &name, const QString &value, bool update = true);
    int openPrefsDialog(const QString &page = QString());
    void openPrefsEthernetSettings();
    void openExportSupportFileDialog();
    void openAbouOrvixDialog();   ///< pages call it by exactly this name
    void log(const QString &msg); ///< script messages at this level are dropped
    void infoLog(const QString &msg);
    void debugLog(const QString &msg); ///< script messages at this level are dropped
    void errorLog(const QString &msg);
    /// The flags of the document, or of the current one, as JSON text.
    QString getControlStatus(DOC_Interface *pDoc);
    QString getControlStatus();
    /// One JSON text per device.
    virtual QVariantList getDeviceInfoList(bool isMinilist);
    QVariantList getSelectedDockey(); ///< decimal texts
    void setSelectDoc(const QString &docKey);
    void selectAllDocs();
    void copySelectAreaToClipboard();
    bool isWaveDataAcquisition();
    QString getCalibrationUnits(); ///< JSON array
    int getRangeMax();             ///< greatest pixel value of the current document
    bool isUpdateIgnore();
    void setDisableAllQuickTool();
    void userOperationLogWebView(const QString &url, const QString &operation,
                                 const QString &control, const QString &id,
                                 const QString &className, const QVariant &value);
    void userOperationErrorLog(const QString &message);
    void setConnectedCameraShowing(bool check);
    bool getConnectedCameraShowing();
    int countMdiWindow(bool visible = true);
    bool isTrelvikRunning();
    void checkRestoredPrefs();
    void hideSelectBox();
    bool isShownDropBox();
    void showDropDownBox(const QString &key, int x, int y, int width, int height);
    void hideDropDownBox(const QString &key);
    void hideDropDownBox(const QString &key, int x, int y);
    bool isMVersion();
    QString getFlip();   ///< 0 none, 1 horizontal, 2 vertical, 3 both, as decimal text
    QString getRotate(); ///< whole degrees, as decimal text

protected:
    uint rangeMax() const { return m_rangeMax; }
    uint skipRateDivisor() const { return m_skipRange.rateDivisor; }
    const QList<double> &skipFrameValues() const { return m_skipRange.values; }

    /// Works out the range of skip values for the selected partitions of each document, and moves
    /// the skip value into it. Throws what the host throws.
    void refreshSkipRange(const QMap<DOC_Interface *, QList<PARTITIONNUMBER>> &targets);

private:
    template <typename Body> void store(const char *scope, bool update, Body body);

    HostServices *m_host;
    QPointer<QObject> m_webView;
    QPointer<QObject> m_prefsFrame; ///< shows the mediator as "prefs" too
    QString m_name;
    uint m_rangeMax = 0;
    int m_updateFlags = UpdateFlag::Operation;
    SkipRange m_skipRange;
};
