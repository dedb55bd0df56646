#include "record/display/GUI_EditInfoDialog.h"

#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/Clock.h"

#include <QCloseEvent>
#include <QPointer>

using namespace InfoFontSettings;

namespace {

constexpr int ConvertedFile = 6; // the format whose files are converted by parameters

QStringList textsOf(const QVector<int> &numbers)
{
    QStringList texts;
    for (int number : numbers)
        texts.append(QString::number(number));
    return texts;
}

}

class GUI_EditInfoDialog::Transition
{
public:
    explicit Transition(GUI_EditInfoDialog *dialog) : m_dialog(dialog) { ++dialog->m_transitions; }
    ~Transition()
    {
        if (m_dialog && --m_dialog->m_transitions == 0 && m_dialog->isVisible())
            m_dialog->m_isDecided = false; // it begins anew
    }

    Transition(const Transition &) = delete;
    Transition &operator=(const Transition &) = delete;

    bool isDialogGone() const { return !m_dialog; }

private:
    QPointer<GUI_EditInfoDialog> m_dialog;
};

GUI_EditInfoDialog::GUI_EditInfoDialog(HostServices *host)
    : GUI_EditInfoDialog(host, 1, false, nullptr, 0, {}, Clock::now())
{
}

GUI_EditInfoDialog::GUI_EditInfoDialog(HostServices *host, int fileType, bool saveForm,
                                       DOC_Interface *document, int partition,
                                       const QList<DOC_Interface *> &documents,
                                       const QDateTime &timeStamp)
    : GUI_PageDialog(host, QLatin1String("edit information"), host->mainWidget()),
      m_settings(host, saveForm ? Form::Save : Form::Editor), m_fileType(fileType),
      m_fontSizeList(
          textsOf({7, 8, 9, 10, 11, 12, 13, 14, 16, 18, 20, 22, 24, 26, 28, 32, 36, 40, 44})),
      m_columnList(textsOf({2, 3, 4, 5, 6, 7, 8, 9, 10})), m_timeStamp(timeStamp),
      m_partition(partition)
{
    DOC_Interface *shown = document ? document : host->currentDocument();
    m_document = hold(host, shown);
    if (m_partition == 0 && shown)
        m_partition = shown->currentPartition();
    for (DOC_Interface *each : documents)
        m_documents.append(hold(host, each));
    for (Property property : order(Pass::Backup, m_settings.form()))
        m_backup.append({property, InfoFontSettings::value(property, QVariant())});
    readInitial();

    setFixedSize(saveForm ? 850 : 340, 680);
    loadPage(QLatin1String(saveForm ? "qrc:/saveinfoview.html" : "qrc:/editinfo.html"));
}

GUI_EditInfoDialog::~GUI_EditInfoDialog()
{
    if (isVisible())
        decideOnce(false);
}

GUI_EditInfoDialog::HeldDocument GUI_EditInfoDialog::hold(HostServices *host,
                                                          DOC_Interface *document)
{
    return {document, document ? host->documentKeyOf(document) : NoDocKey};
}

// Another document may lie where the one that has gone was.
DOC_Interface *GUI_EditInfoDialog::present(HostServices *host, const HeldDocument &held)
{
    const bool isPresent = held.key != NoDocKey && host->documentKeyOf(held.document) == held.key;
    return isPresent ? held.document : nullptr;
}

void GUI_EditInfoDialog::populateJavaScriptWindowObject()
{
    showToPage(QLatin1String("editInfo"));
}

bool GUI_EditInfoDialog::confirm(const QString &message)
{
    return guarded(host(), false, [&] { return host()->confirm(message, nullptr, QVariantMap()); });
}

QString GUI_EditInfoDialog::getStyle()
{
    return style();
}

QString GUI_EditInfoDialog::translate(const QString &string)
{
    return translated(string);
}

bool GUI_EditInfoDialog::onConvertParameterEditDialog()
{
    const bool isConverted = m_fileType == ConvertedFile;
    return guarded(host(), false, [&] { return !host()->isFileMode() && isConverted; });
}

void GUI_EditInfoDialog::ok()
{
    const Transition transition(this);
    acceptAndClose();
}

void GUI_EditInfoDialog::cancel()
{
    const Transition transition(this);
    rejectAndClose();
}

// The ways out lead through one another: closing rejects, rejecting hides.
void GUI_EditInfoDialog::decideOnce(bool isKept)
{
    if (m_isDecided)
        return;
    m_isDecided = true;
    if (!isKept)
        writeBack();
}

void GUI_EditInfoDialog::done(int result)
{
    const Transition transition(this);
    decideOnce(result == Accepted);
    if (!transition.isDialogGone())
        GUI_PageDialog::done(result);
}

void GUI_EditInfoDialog::setVisible(bool visible)
{
    const Transition transition(this);
    if (!visible && isVisible() && !isChangingFlags())
        decideOnce(false);
    if (!transition.isDialogGone())
        GUI_PageDialog::setVisible(visible);
}

void GUI_EditInfoDialog::closeEvent(QCloseEvent *event)
{
    const OperationLogScope trace(QLatin1String("GUI_EditInfoDialog::closeEvent"));
    const Transition transition(this);
    event->accept();
    if (!m_isDecided)
        reject(); // done() writes back first
}
