#include "NotebookOrderModel.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

#include <algorithm>

const QString NotebookOrderModel::MimeType = QStringLiteral("MyPrivateTableViewDataType");

NotebookOrderModel::NotebookOrderModel(QObject *parent)
    : QAbstractListModel(parent)
{}

void NotebookOrderModel::setTitles(const QStringList &titles)
{
    beginResetModel();
    m_titles = titles;
    endResetModel();
}

int NotebookOrderModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_titles.size());
}

QVariant NotebookOrderModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_titles.size())
        return {};
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
        return m_titles.at(index.row());
    return {};
}

Qt::ItemFlags NotebookOrderModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags base = QAbstractListModel::flags(index) | Qt::ItemIsDropEnabled;
    return index.isValid() ? base | Qt::ItemIsDragEnabled : base;
}

Qt::DropActions NotebookOrderModel::supportedDropActions() const
{
    return Qt::MoveAction | Qt::CopyAction;
}

QStringList NotebookOrderModel::mimeTypes() const
{
    return {MimeType};
}

QMimeData *NotebookOrderModel::mimeDataForRows(const QList<int> &rows)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    QList<int> sorted = rows;
    std::sort(sorted.begin(), sorted.end());
    stream << sorted;
    auto *data = new QMimeData;
    data->setData(MimeType, bytes);
    return data;
}

QList<int> NotebookOrderModel::rowsFromMimeData(const QMimeData *data)
{
    QList<int> rows;
    if (!data || !data->hasFormat(MimeType))
        return rows;
    QDataStream stream(data->data(MimeType));
    stream >> rows;
    return rows;
}

QMimeData *NotebookOrderModel::mimeData(const QModelIndexList &indexes) const
{
    QList<int> rows;
    for (const QModelIndex &index : indexes)
        rows << index.row();
    return mimeDataForRows(rows);
}

bool NotebookOrderModel::canDropMimeData(const QMimeData *data, Qt::DropAction, int, int,
                                         const QModelIndex &) const
{
    return data && data->hasFormat(MimeType);
}

bool NotebookOrderModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int,
                                      const QModelIndex &parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    const QList<int> rows = rowsFromMimeData(data);
    if (rows.isEmpty())
        return false;
    // Dropped onto an item rather than between two: that item's row is the target.
    int target = row;
    if (target < 0)
        target = parent.isValid() ? parent.row() : rowCount();
    Q_EMIT rowDropped(rows.first(), target);
    // The controller has already rebuilt the list; removeRows() is not implemented, so the
    // view's clean-up after a move leaves it alone.
    return true;
}
