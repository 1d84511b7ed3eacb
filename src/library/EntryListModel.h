#pragma once

#include "EntryDirectory.h"

#include <QAbstractListModel>

// The entry list's rows: one per entry file, drawn by EntryListDelegate.
class EntryListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role {
        FileNameRole = Qt::UserRole + 1,
        TitleLineRole,
        InfoTextRole,
        ExcerptRole,
        DeletedRole,
        WhiteTextRole,
        TitleSizeRole,
        InfoSizeRole,
    };

    explicit EntryListModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    // Replaces every row (a model reset).
    void setRows(const EntryDisplayList &list);
    // Same file names as before: rows change in place, the selection stays.
    void updateRows(const EntryDisplayList &list);

    const QList<EntryDisplayRow> &rows() const { return m_list.rows; }
    int rowHeight() const { return m_list.heightOfFileTableRow; }

private:
    EntryDisplayList m_list;
};
