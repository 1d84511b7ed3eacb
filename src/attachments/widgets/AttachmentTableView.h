#pragma once

#include <QListView>
#include <QUrl>

class QMimeData;

// The list of the attachments panel: takes drops of files, pictures and links from other
// windows (its own rows dropped back on it are ignored), drags rows out, and opens the
// preview on Space.
class AttachmentTableView : public QListView
{
    Q_OBJECT
public:
    explicit AttachmentTableView(QWidget *parent = nullptr);

    static bool canTake(const QMimeData *mime);
    static bool isDownloadable(const QUrl &link);
    int selectedRow() const;
    void selectRow(int row);

Q_SIGNALS:
    // Handled while the drop lasts: the data is gone afterwards.
    void dropped(const QMimeData *mime);
    void quickLookRequested();
    void quickLookCloseRequested();
    void selectedRowChanged(int row);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
};
