#pragma once

#include <QWidget>

class AttachmentTableView;
class QLabel;
class QProgressBar;
class QToolButton;

// The attachments pane: the list, the add and remove buttons under it with preview, open
// and reveal beside them, and a progress row while links are being downloaded.
class AttachmentPanel : public QWidget
{
    Q_OBJECT
public:
    explicit AttachmentPanel(QWidget *parent = nullptr);

    AttachmentTableView *list() const { return m_list; }
    QToolButton *addButton() const { return m_add; }
    QToolButton *removeButton() const { return m_remove; }
    QToolButton *previewButton() const { return m_preview; }
    QToolButton *openButton() const { return m_open; }
    QToolButton *revealButton() const { return m_reveal; }
    QProgressBar *progressBar() const { return m_progress; }
    QToolButton *cancelDownloadButton() const { return m_cancel; }

    // total < 0: size unknown. running 0 hides the row.
    void showDownloadProgress(int running, qint64 received, qint64 total);
    // Buttons that act on a selected row follow whether there is one and a folder at all.
    void setState(bool hasFolder, bool hasSelection);

private:
    QToolButton *makeButton(const QString &objectName, const QString &icon, const QString &name,
                            const QString &tip);

    AttachmentTableView *m_list;
    QToolButton *m_add;
    QToolButton *m_remove;
    QToolButton *m_preview;
    QToolButton *m_open;
    QToolButton *m_reveal;
    QWidget *m_progressRow;
    QLabel *m_progressLabel;
    QProgressBar *m_progress;
    QToolButton *m_cancel;
};
