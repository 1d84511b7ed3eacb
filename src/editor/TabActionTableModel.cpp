#include "TabActionTableModel.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

#include <algorithm>

TabActionTableModel::TabActionTableModel(QObject *parent)
    : QAbstractTableModel(parent)
{}

void TabActionTableModel::setTabActions(const QStringList &names, const QVariantMap &actions)
{
    beginResetModel();
    m_names = names;
    m_actions = actions;
    endResetModel();
}

void TabActionTableModel::setExpansion(const QString &name, const QString &expansion)
{
    if (m_actions.contains(name))
        m_actions.insert(name, expansion);
}

int TabActionTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_names.size());
}

int TabActionTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant TabActionTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_names.size())
        return {};
    const QString &name = m_names.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::AccessibleTextRole:
        return name;
    case Qt::ToolTipRole: {
        // The first lines of the expansion, so the list can be browsed without selecting.
        const QString expansion = m_actions.value(name).toString();
        return expansion.size() > 300 ? expansion.left(300) + QChar(0x2026) : expansion;
    }
    default:
        return {};
    }
}

QVariant TabActionTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && section == 0 && role == Qt::DisplayRole)
        //% "Abbreviation"
        return qtTrId("TAB_ACTION_COLUMN_TITLE");
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags TabActionTableModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
}

bool TabActionTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || index.row() >= m_names.size())
        return false;
    // The window answers by rebuilding the list (or by refusing), never by editing in place.
    Q_EMIT renameRequested(index.row(), value.toString());
    return false;
}

QStringList TabActionTableModel::mimeTypes() const
{
    return {RowsMimeType, QStringLiteral("text/plain")};
}

QMimeData *TabActionTableModel::mimeData(const QModelIndexList &indexes) const
{
    QList<qint32> rows;
    for (const QModelIndex &index : indexes)
        if (index.isValid() && !rows.contains(index.row()))
            rows.append(index.row());
    if (rows.isEmpty())
        return nullptr;
    std::sort(rows.begin(), rows.end());

    auto *mime = new QMimeData;
    QByteArray encoded;
    QDataStream stream(&encoded, QIODevice::WriteOnly);
    stream << qint32(rows.size());
    for (qint32 row : rows)
        stream << row;
    mime->setData(RowsMimeType, encoded);
    if (rows.size() == 1) {
        const QString expansion = m_actions.value(m_names.at(rows.first())).toString();
        mime->setText(expansion);
        mime->setData(QStringLiteral("text/plain;charset=utf-8"), expansion.toUtf8());
    }
    return mime;
}

Qt::DropActions TabActionTableModel::supportedDragActions() const
{
    return Qt::CopyAction;
}
