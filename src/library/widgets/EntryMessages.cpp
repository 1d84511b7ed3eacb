#include "EntryMessages.h"

#include "library/widgets/EntryController.h"
#include "widgets/MessageBar.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QToolTip>

namespace {
const QString kSaveTopic = QStringLiteral("save");
const QString kConflictTopic = QStringLiteral("conflict");
const QString kCopyTopic = QStringLiteral("copy");
const QString kLockTopic = QStringLiteral("readonly");
const QString kTitleTopic = QStringLiteral("title");
} // namespace

EntryMessages::EntryMessages(EntryController *entries, MessageBar *bar, QLineEdit *titleField,
                             QObject *parent)
    : QObject(parent)
    , m_entries(entries)
    , m_bar(bar)
    , m_titleField(titleField)
{
    EntrySession *session = entries->session();
    session->setSaveAsPathChooser([this](const QString &name) { return chooseSaveAsPath(name); });
    connect(session, &EntrySession::saveFailed, this, &EntryMessages::showSaveFailed);
    connect(session, &EntrySession::changedOnDisk, this, &EntryMessages::showChangedOnDisk);
    connect(session, &EntrySession::saveSucceeded, this, [this] {
        m_bar->removeMessage(kSaveTopic);
        m_bar->removeMessage(kConflictTopic);
    });
    connect(session, &EntrySession::theirsKeptAs, this, [this](const QString &path) {
        //% "The other version is kept as “%1”."
        m_bar->showMessage(kCopyTopic, MessageBar::Information,
                           qtTrId("ENTRY_THEIRS_KEPT_AS").arg(QFileInfo(path).fileName()));
    });
    connect(session, &EntrySession::copySavedAs, this, [this](const QString &path) {
        //% "A copy of your text is saved as “%1”."
        m_bar->showMessage(kCopyTopic, MessageBar::Information,
                           qtTrId("ENTRY_COPY_SAVED_AS").arg(QDir::toNativeSeparators(path)));
    });
    connect(entries, &EntryController::readOnlyChanged, this,
            [this](const QString &, const QString &reason) {
                if (reason.isEmpty())
                    m_bar->removeMessage(kLockTopic);
                else
                    m_bar->showMessage(kLockTopic, MessageBar::Information, reason);
            });
    connect(entries, &EntryController::titleProblemChanged, this, [this](const QString &problem) {
        if (problem.isEmpty()) {
            m_bar->removeMessage(kTitleTopic);
            return;
        }
        m_bar->showMessage(kTitleTopic, MessageBar::Warning, problem);
        if (m_titleField)
            QToolTip::showText(m_titleField->mapToGlobal(QPoint(0, m_titleField->height())),
                               problem, m_titleField);
    });
}

void EntryMessages::showSaveFailed(const QString &title, const QString &reason)
{
    //% "“%1” could not be saved: %2. Your text is still here; it is saved as soon as that works
    // again."
    const QString text = qtTrId("ENTRY_SAVE_FAILED").arg(title, reason);
    //% "Retry"
    const QString retry = qtTrId("ENTRY_SAVE_RETRY");
    //% "Save As…"
    const QString saveAs = qtTrId("ENTRY_SAVE_AS");
    m_bar->showMessage(kSaveTopic, MessageBar::Error, text,
                       {{retry,
                         //% "Try to save the entry again"
                         qtTrId("ENTRY_SAVE_RETRY_TIP"), [this] { m_entries->saveEditedString(); },
                         QStringLiteral("messageBarRetry")},
                        {saveAs,
                         //% "Save this text into a file of your choice"
                         qtTrId("ENTRY_SAVE_AS_TIP"),
                         [this] {
                             const QString path =
                                 chooseSaveAsPath(m_entries->document().fileName());
                             if (!path.isEmpty())
                                 m_entries->session()->saveCopyTo(path);
                         },
                         QStringLiteral("messageBarSaveAs")}});
}

void EntryMessages::showChangedOnDisk(const QString &title)
{
    //% "“%1” was changed by another program while you were editing it here. Nothing has been
    // written over."
    const QString text = qtTrId("ENTRY_CHANGED_ON_DISK").arg(title);
    m_bar->showMessage(
        kConflictTopic, MessageBar::Warning, text,
        {{
             //% "Reload Theirs"
             qtTrId("ENTRY_RELOAD_THEIRS"),
             //% "Show the text as the other program left it; your changes here are dropped"
             qtTrId("ENTRY_RELOAD_THEIRS_TIP"),
             [this] { m_entries->session()->reloadTheirs(); },
             QStringLiteral("messageBarReloadTheirs"),
         },
         {
             //% "Keep Mine"
             qtTrId("ENTRY_KEEP_MINE"),
             //% "Save your text; the other version is kept beside the entry"
             qtTrId("ENTRY_KEEP_MINE_TIP"),
             [this] { m_entries->session()->keepMine(); },
             QStringLiteral("messageBarKeepMine"),
         }});
}

QString EntryMessages::chooseSaveAsPath(const QString &suggestedName)
{
    QFileDialog dialog(m_bar ? m_bar->window() : nullptr);
    dialog.setObjectName(QStringLiteral("saveAsDialog"));
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    //% "Save Your Text As"
    dialog.setWindowTitle(qtTrId("ENTRY_SAVE_AS_DIALOG_TITLE"));
    dialog.setDirectory(QDir::homePath());
    dialog.selectFile(suggestedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}
