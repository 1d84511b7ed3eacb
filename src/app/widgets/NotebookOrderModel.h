#pragma once

#include <QAbstractListModel>
#include <QStringList>

#include <functional>

// The preferences' order table: one row per notebook name. Rows are dragged as the set of
// their indexes under a private type; a drop hands the first index and the target row on.
class NotebookOrderModel : public QAbstractListModel
{
    Q_OBJECT
public:
    static const QString MimeType;

    explicit NotebookOrderModel(QObject *parent = nullptr);
    void setTitles(const QStringList &titles);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

    static QMimeData *mimeDataForRows(const QList<int> &rows);
    static QList<int> rowsFromMimeData(const QMimeData *data);

Q_SIGNALS:
    void rowDropped(int firstDraggedRow, int targetRow);

private:
    QStringList m_titles;
};
