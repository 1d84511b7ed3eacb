#pragma once

#include <QAbstractListModel>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QStringList>

#include <functional>

// The rows of the attachments panel: one per file, its picture (the thumbnail once made,
// the icon of its type until then and when none can be made) and its name. Dragging rows
// out carries the row numbers; a single row also carries its markup as text, for a drop
// into the editor, and the file itself, for a drop on the desktop or a file manager.
class AttachmentListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    static constexpr int PictureSize = 100;
    // The dragged row numbers, archived as a QList<int>.
    static inline const QString RowsMimeType = QStringLiteral("MyPrivateTableViewDataType");
    static constexpr int PathRole = Qt::UserRole + 1;
    static constexpr int HasThumbnailRole = Qt::UserRole + 2;

    using MarkupProvider = std::function<QString(const QString &name)>;

    explicit AttachmentListModel(QObject *parent = nullptr);

    void setFolder(const QString &folder, const QStringList &names);
    void setMarkupProvider(MarkupProvider provider) { m_markup = std::move(provider); }
    // Puts the picture on the row showing path (rows may have changed meanwhile).
    void setThumbnail(const QString &path, const QImage &image);

    QString folder() const { return m_folder; }
    QStringList names() const { return m_names; }
    QString pathAt(int row) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override;
    Qt::DropActions supportedDropActions() const override;

private:
    QString m_folder;
    QStringList m_names;
    QList<QIcon> m_icons;
    QList<QPixmap> m_thumbnails;
    MarkupProvider m_markup;
};
