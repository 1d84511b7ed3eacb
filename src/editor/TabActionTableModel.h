#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QVariantMap>

// The one-column table of abbreviations in the tab-action window. It only presents the list:
// an edited name is handed to the window as renameRequested() (which decides whether the
// rename is allowed and rebuilds the list), and dragged rows carry their expansion as text.
class TabActionTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    // The column's identifier, also used as the header's object name.
    static inline const QString ColumnIdentifier = QStringLiteral("styleName");
    // Dragged rows, as a stream of their row numbers (qint32 count, then each row).
    static inline const QString RowsMimeType = QStringLiteral("MyPrivateTableViewDataType");

    explicit TabActionTableModel(QObject *parent = nullptr);

    // Shows names in the given order; expansions are what a drag carries.
    void setTabActions(const QStringList &names, const QVariantMap &actions);
    // Keeps a row's drag text current while its expansion is being edited.
    void setExpansion(const QString &name, const QString &expansion);
    QStringList names() const { return m_names; }
    int rowOfName(const QString &name) const { return int(m_names.indexOf(name)); }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override;

Q_SIGNALS:
    void renameRequested(int row, const QString &newName);

private:
    QStringList m_names;
    QVariantMap m_actions;
};
