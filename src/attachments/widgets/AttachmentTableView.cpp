#include "AttachmentTableView.h"

#include "AttachmentListModel.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>

AttachmentTableView::AttachmentTableView(QWidget *parent)
    : QListView(parent)
{
    setObjectName(QStringLiteral("attachmentList"));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setIconSize(QSize(AttachmentListModel::PictureSize, AttachmentListModel::PictureSize));
    setUniformItemSizes(true);
    setWordWrap(true);
    setTextElideMode(Qt::ElideMiddle);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::CopyAction);
}

bool AttachmentTableView::isDownloadable(const QUrl &link)
{
    // Only links a download can follow: dropped prose such as "note: call" is no link.
    static const QStringList schemes = {QStringLiteral("http"), QStringLiteral("https"),
                                        QStringLiteral("ftp")};
    return link.isValid() && !link.host().isEmpty() && schemes.contains(link.scheme());
}

bool AttachmentTableView::canTake(const QMimeData *mime)
{
    if (!mime || mime->hasFormat(AttachmentListModel::RowsMimeType))
        return false;
    if (mime->hasUrls() || mime->hasImage())
        return true;
    for (const QString &format : mime->formats())
        if (format.startsWith(QLatin1String("image/")))
            return true;
    return isDownloadable(QUrl(mime->text().trimmed()));
}

int AttachmentTableView::selectedRow() const
{
    const QModelIndexList rows =
        selectionModel() ? selectionModel()->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void AttachmentTableView::selectRow(int row)
{
    if (!model() || !selectionModel())
        return;
    if (row < 0 || row >= model()->rowCount()) {
        selectionModel()->clearSelection();
        return;
    }
    const QModelIndex index = model()->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
}

void AttachmentTableView::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->source() == this || !canTake(event->mimeData())) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void AttachmentTableView::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->source() == this || !canTake(event->mimeData())) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void AttachmentTableView::dropEvent(QDropEvent *event)
{
    if (event->source() == this || !canTake(event->mimeData())) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT dropped(event->mimeData());
}

void AttachmentTableView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        Q_EMIT quickLookRequested();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT quickLookCloseRequested();
        return;
    }
    QListView::keyPressEvent(event);
}

void AttachmentTableView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    Q_EMIT selectedRowChanged(current.isValid() ? current.row() : -1);
}
