#include "AttachmentPanel.h"

#include "AttachmentTableView.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>
#include <QVBoxLayout>

AttachmentPanel::AttachmentPanel(QWidget *parent)
    : QWidget(parent)
    , m_list(new AttachmentTableView)
{
    setObjectName(QStringLiteral("attachmentPanel"));
    //% "Attached files"
    m_list->setAccessibleName(qtTrId("ATTACHMENT_LIST_NAME"));
    //% "The files attached to this entry. Drop files, pictures or links here to attach them; drag
    // one into the entry to insert it; Space shows it."
    m_list->setToolTip(qtTrId("ATTACHMENT_LIST_TIP"));

    //% "Add Attachments…"
    const QString addName = qtTrId("ATTACHMENT_ADD_NAME");
    //% "Attach files to this entry"
    const QString addTip = qtTrId("ATTACHMENT_ADD_TIP");
    m_add = makeButton(QStringLiteral("attachmentAddButton"), QStringLiteral("list-add"), addName,
                       addTip);
    //% "Remove Attachment"
    const QString removeName = qtTrId("ATTACHMENT_REMOVE_NAME");
    //% "Delete the selected attachment at once (it does not go to the trash)"
    const QString removeTip = qtTrId("ATTACHMENT_REMOVE_TIP");
    m_remove = makeButton(QStringLiteral("attachmentRemoveButton"), QStringLiteral("list-remove"),
                          removeName, removeTip);
    //% "Preview Attachment"
    const QString previewName = qtTrId("ATTACHMENT_PREVIEW_NAME");
    //% "Show the selected attachment in the preview window (Space)"
    const QString previewTip = qtTrId("ATTACHMENT_PREVIEW_TIP");
    m_preview = makeButton(QStringLiteral("attachmentPreviewButton"),
                           QStringLiteral("document-print-preview"), previewName, previewTip);
    //% "Open Attachment"
    const QString openName = qtTrId("ATTACHMENT_OPEN_NAME");
    //% "Open the selected attachment in its default application"
    const QString openTip = qtTrId("ATTACHMENT_OPEN_TIP");
    m_open = makeButton(QStringLiteral("attachmentOpenButton"), QStringLiteral("document-open"),
                        openName, openTip);
    //% "Show in File Manager"
    const QString revealName = qtTrId("ATTACHMENT_REVEAL_NAME");
    //% "Show the selected attachment in the file manager"
    const QString revealTip = qtTrId("ATTACHMENT_REVEAL_TIP");
    m_reveal = makeButton(QStringLiteral("attachmentRevealButton"), QStringLiteral("folder"),
                          revealName, revealTip);

    m_progressRow = new QWidget;
    m_progressLabel = new QLabel;
    //% "Downloads"
    m_progressLabel->setAccessibleName(qtTrId("ATTACHMENT_DOWNLOADS_NAME"));
    //% "Links being downloaded into this entry"
    m_progressLabel->setToolTip(qtTrId("ATTACHMENT_DOWNLOADS_TIP"));
    m_progress = new QProgressBar;
    m_progress->setObjectName(QStringLiteral("attachmentDownloadProgress"));
    m_progress->setAccessibleName(qtTrId("ATTACHMENT_DOWNLOADS_NAME"));
    m_progress->setToolTip(qtTrId("ATTACHMENT_DOWNLOADS_TIP"));
    m_progress->setTextVisible(false);
    m_progress->setMaximumHeight(10);
    //% "Cancel Downloads"
    const QString cancelName = qtTrId("ATTACHMENT_CANCEL_NAME");
    //% "Stop the downloads; nothing half-loaded is kept"
    const QString cancelTip = qtTrId("ATTACHMENT_CANCEL_TIP");
    m_cancel = makeButton(QStringLiteral("attachmentCancelDownloadButton"),
                          QStringLiteral("process-stop"), cancelName, cancelTip);
    auto *progressLayout = new QHBoxLayout(m_progressRow);
    progressLayout->setContentsMargins(0, 0, 0, 0);
    progressLayout->addWidget(m_progressLabel);
    progressLayout->addWidget(m_progress, 1);
    progressLayout->addWidget(m_cancel);
    m_progressRow->hide();

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(2);
    buttons->addWidget(m_add);
    buttons->addWidget(m_remove);
    buttons->addStretch(1);
    buttons->addWidget(m_preview);
    buttons->addWidget(m_open);
    buttons->addWidget(m_reveal);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_progressRow);
    layout->addLayout(buttons);
    setState(false, false);
}

QToolButton *AttachmentPanel::makeButton(const QString &objectName, const QString &icon,
                                         const QString &name, const QString &tip)
{
    auto *button = new QToolButton;
    button->setObjectName(objectName);
    // Themes that only carry the symbolic variants still give a picture.
    button->setIcon(QIcon::fromTheme(icon, QIcon::fromTheme(icon + QStringLiteral("-symbolic"))));
    if (button->icon().isNull())
        button->setText(name);
    button->setAccessibleName(name);
    button->setToolTip(tip);
    button->setAutoRaise(true);
    return button;
}

void AttachmentPanel::showDownloadProgress(int running, qint64 received, qint64 total)
{
    m_progressRow->setVisible(running > 0);
    if (running <= 0)
        return;
    //% "Downloading %1"
    m_progressLabel->setText(qtTrId("ATTACHMENT_DOWNLOADS_COUNT").arg(running));
    if (total > 0) {
        // Kept in kilobytes so files over 2 GB fit the bar's int range.
        m_progress->setRange(0, int(qMax<qint64>(1, total / 1024)));
        m_progress->setValue(int(received / 1024));
    } else {
        m_progress->setRange(0, 0);
    }
}

void AttachmentPanel::setState(bool hasFolder, bool hasSelection)
{
    // Hidden rather than greyed: a control that cannot act is not shown.
    m_add->setVisible(hasFolder);
    m_remove->setVisible(hasSelection);
    m_preview->setVisible(hasSelection);
    m_open->setVisible(hasSelection);
    m_reveal->setVisible(hasSelection);
}
