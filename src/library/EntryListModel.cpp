#include "EntryListModel.h"

#include <QSize>

EntryListModel::EntryListModel(QObject *parent)
    : QAbstractListModel(parent)
{}

int EntryListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_list.rows.size());
}

QVariant EntryListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_list.rows.size())
        return QVariant();
    const EntryDisplayRow &row = m_list.rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return row.text();
    case Qt::ToolTipRole:
        return row.text().trimmed();
    case Qt::SizeHintRole:
        return QSize(-1, m_list.heightOfFileTableRow);
    case FileNameRole:
        return row.fileName;
    case TitleLineRole:
        return row.titleLine;
    case InfoTextRole:
        return row.infoText;
    case ExcerptRole:
        return row.excerpt;
    case DeletedRole:
        return row.deleted;
    case WhiteTextRole:
        return row.whiteText;
    case TitleSizeRole:
        return row.titleSize;
    case InfoSizeRole:
        return row.infoSize;
    default:
        return QVariant();
    }
}

void EntryListModel::setRows(const EntryDisplayList &list)
{
    beginResetModel();
    m_list = list;
    endResetModel();
}

void EntryListModel::updateRows(const EntryDisplayList &list)
{
    bool sameNames = list.rows.size() == m_list.rows.size();
    for (qsizetype i = 0; sameNames && i < list.rows.size(); ++i)
        sameNames = list.rows.at(i).fileName == m_list.rows.at(i).fileName;
    if (!sameNames) {
        setRows(list);
        return;
    }
    const bool heightChanged = list.heightOfFileTableRow != m_list.heightOfFileTableRow;
    // The rows keep their places, so persistent indexes (the selection) stay valid; a new
    // height only needs the view to lay the rows out again.
    if (heightChanged)
        Q_EMIT layoutAboutToBeChanged();
    m_list = list;
    if (!m_list.rows.isEmpty())
        Q_EMIT dataChanged(index(0), index(int(m_list.rows.size()) - 1));
    if (heightChanged)
        Q_EMIT layoutChanged();
}
