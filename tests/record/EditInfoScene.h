#pragma once

#include "bridge/page/GUI_WebView.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"

#include <QSize>
#include <QWidget>

#include <memory>

/// A setting as it is stored: its key and its value.
struct StoredSetting
{
    QString key;
    QVariant value;
};

/// A host with three cameras of which the first is current, and a dialog of the information display
/// in one of its forms; nothing of its opening stands in the journal. Every setting has a value of
/// its own, "1" and the group for a size.
struct EditInfoScene
{
    EditInfoScene()
    {
        host.state().mainWidget = &mainWidget;
        for (int i = 1; i <= 3; ++i)
            host.addCamera();
        host.makeCurrent(1);
        for (bool saveForm : {false, true}) {
            for (int group = 0; group < 7; ++group) {
                for (const StoredSetting &each : typeface(saveForm, group) + items(saveForm, group))
                    host.settings().setValue(each.key, each.value);
            }
        }
        host.settings().setValue("info/IconSize", "24");
        host.settings().setValue("info/BlankLine", false);
        host.settings().setValue("saveinfo/collectiveSetting", true);
        host.settings().setValue("saveinfo/WithinImage", false);
        host.clearJournal();
    }
    explicit EditInfoScene(bool saveForm) : EditInfoScene() { open(saveForm); }
    ~EditInfoScene()
    {
        page.reset();
        delete dialog;
    }

    void open(bool saveForm, int fileType = 1, DOC_Interface *document = nullptr, int partition = 1,
              const QList<DOC_Interface *> &documents = {})
    {
        page.reset();
        delete dialog;
        dialog = new GUI_EditInfoDialog(&host, fileType, saveForm, document, partition, documents,
                                        QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9)));
        host.clearJournal();
    }

    /// Puts the dialog on the screen with its page; false when the page did not come.
    bool show()
    {
        page = std::make_unique<PageProbe>(dialog->webView());
        dialog->show();
        const bool isLoaded = page->waitLoaded() && page->isFound();
        host.clearJournal();
        return isLoaded;
    }

    DOC_Interface *document(DOCKEY key) { return host.camera(key)->contract(); }
    QString call(const QString &slot) { return page->call(QStringLiteral("editInfo.") + slot); }
    QVariant setting(const QString &key) { return host.settings().value(key, QVariant()); }

    /// What the host was asked and told since the last time.
    QStringList journal()
    {
        const QStringList lines = host.journal();
        host.clearJournal();
        return lines;
    }

    /// The page's last order of `keys` is written back here, in the order in which a cancelled
    /// dialog writes a group's typeface.
    static QList<StoredSetting> typeface(bool saveForm, int group)
    {
        const bool odd = group % 2 != 0;
        const QString number = QString::number(group);
        const auto shared = [&](const char *name, const QVariant &value) -> StoredSetting {
            return {saveForm ? "saveinfo/" + QString::fromLatin1(name) + number
                             : "info/" + QString::fromLatin1(name),
                    value};
        };
        QList<StoredSetting> settings = {shared("FontName", "Font " + number),
                                         shared("FontSize", "1" + number),
                                         shared("Bold", odd),
                                         shared("Italic", !odd),
                                         shared("Alignment", QString::number(group % 3)),
                                         shared("Width", "10" + number)};
        if (saveForm)
            settings += {shared("ToColumn", odd), shared("ColumnNum", QString::number(group + 2))};
        settings += shared("ForegroundColor", "#00000" + number);
        if (saveForm)
            settings +=
                {shared("BackgroundColor", "#f0000" + number), shared("UseBackgroundColor", !odd),
                 shared("ColumnSpacing", 20 + group), shared("FixedFontSizeRatio", odd),
                 shared("FixedFontSizeRatioBaseResolution", QSize(100 + group, 50))};
        if (!saveForm && group != 0)
            settings.clear();
        return settings;
    }

    static QList<StoredSetting> items(bool saveForm, int group)
    {
        const QString text = QStringLiteral("Date:true,<hr>,Item%1:false").arg(group);
        if (saveForm)
            return {{"saveinfo/display" + QString::number(group), text}};
        return group == 0 ? QList<StoredSetting>{{"info/display", text}} : QList<StoredSetting>();
    }

    /// A value as the journal shows it.
    static QString shown(const QVariant &value)
    {
        if (value.type() == QVariant::Size)
            return QString::number(value.toSize().width()) + "x" +
                   QString::number(value.toSize().height());
        return value.type() == QVariant::String ? '"' + value.toString() + '"' : value.toString();
    }

    static QString written(const QString &key, const QVariant &value)
    {
        return "setPref(\"" + key + "\", " + shown(value) + ")";
    }

    static QString asked(const QString &key) { return "getPref(\"" + key + "\", invalid)"; }

    static QString refreshed() { return QStringLiteral("updateUI(4294967295, true)"); }

    /// What follows a font name in the save form.
    static QStringList fontGoesOut(int group, const QString &name)
    {
        QStringList lines(QStringLiteral("getPrefString(\"display/language\", invalid)"));
        if (group != 0)
            lines.append("applyOutputFontName(\"" + name + "\", " + QString::number(group - 1) +
                         ")");
        return lines;
    }

    /// A group's typeface is written back to what the scene began with.
    static QStringList typefaceBack(bool saveForm, int group)
    {
        QStringList lines;
        if (saveForm)
            lines.append(written("saveinfo/collectiveSetting", true));
        for (const StoredSetting &each : typeface(saveForm, group)) {
            if (each.key.startsWith("saveinfo/ColumnSpacing"))
                lines.append(written("saveinfo/WithinImage", false));
            lines.append(written(each.key, each.value));
            if (each.key.startsWith("saveinfo/FontName"))
                lines += fontGoesOut(group, each.value.toString());
        }
        return lines;
    }

    /// Everything is, as a cancelled dialog does it.
    static QStringList allBack(bool saveForm)
    {
        QStringList lines;
        for (int group = 0; group < 7; ++group) {
            for (const StoredSetting &each : items(saveForm, group))
                lines.append(written(each.key, each.value));
        }
        if (!saveForm)
            return lines + QStringList(written("info/BlankLine", false)) + typefaceBack(false, 0) +
                   QStringList(refreshed());
        for (int group = 1; group < 7; ++group)
            lines += typefaceBack(true, group);
        return lines;
    }

    QWidget mainWidget;
    StandInHost host;
    QPointer<GUI_EditInfoDialog> dialog;
    std::unique_ptr<PageProbe> page;
};
