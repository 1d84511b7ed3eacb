#include "AttachmentListModel.h"

#include <QDataStream>
#include <QFile>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QMimeData>
#include <QMimeDatabase>
#include <QPixmap>
#include <QUrl>

#include <algorithm>

namespace {
// Bigger files are left off the drag as bytes; their path still travels.
constexpr qint64 kMaxDraggedBytes = 32 * 1024 * 1024;
} // namespace

AttachmentListModel::AttachmentListModel(QObject *parent)
    : QAbstractListModel(parent)
{}

void AttachmentListModel::setFolder(const QString &folder, const QStringList &names)
{
    beginResetModel();
    m_folder = folder;
    if (!m_folder.isEmpty() && !m_folder.endsWith(QLatin1Char('/')))
        m_folder += QLatin1Char('/');
    m_names = names;
    m_icons.clear();
    m_thumbnails.clear();
    static const QFileIconProvider provider;
    for (const QString &name : names) {
        m_icons << provider.icon(QFileInfo(m_folder + name));
        m_thumbnails << QPixmap();
    }
    endResetModel();
}

QString AttachmentListModel::pathAt(int row) const
{
    if (row < 0 || row >= m_names.size())
        return QString();
    return m_folder + m_names.at(row);
}

void AttachmentListModel::setThumbnail(const QString &path, const QImage &image)
{
    if (image.isNull() || !path.startsWith(m_folder))
        return;
    const int row = m_names.indexOf(path.mid(m_folder.size()));
    if (row < 0)
        return;
    // Converted once here rather than at every repaint of the row.
    m_thumbnails[row] = QPixmap::fromImage(
        image.width() > PictureSize || image.height() > PictureSize
            ? image.scaled(PictureSize, PictureSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)
            : image);
    const QModelIndex changed = index(row);
    Q_EMIT dataChanged(changed, changed, {Qt::DecorationRole, HasThumbnailRole});
}

int AttachmentListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_names.size());
}

QVariant AttachmentListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_names.size())
        return QVariant();
    const int row = index.row();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return m_names.at(row);
    case Qt::DecorationRole:
        if (!m_thumbnails.at(row).isNull())
            return m_thumbnails.at(row);
        return m_icons.at(row);
    case PathRole:
        return pathAt(row);
    case HasThumbnailRole:
        return !m_thumbnails.at(row).isNull();
    default:
        return QVariant();
    }
}

Qt::ItemFlags AttachmentListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
}

QStringList AttachmentListModel::mimeTypes() const
{
    return {RowsMimeType, QStringLiteral("text/uri-list"), QStringLiteral("text/plain")};
}

QMimeData *AttachmentListModel::mimeData(const QModelIndexList &indexes) const
{
    QList<int> rows;
    for (const QModelIndex &index : indexes)
        if (index.isValid() && !rows.contains(index.row()))
            rows << index.row();
    std::sort(rows.begin(), rows.end());
    if (rows.isEmpty())
        return nullptr;
    auto *mime = new QMimeData;
    QByteArray archived;
    QDataStream stream(&archived, QIODevice::WriteOnly);
    stream << rows;
    mime->setData(RowsMimeType, archived);
    if (rows.size() != 1)
        return mime;

    const QString name = m_names.at(rows.first());
    const QString path = pathAt(rows.first());
    mime->setText(m_markup ? m_markup(name) : name);
    mime->setUrls({QUrl::fromLocalFile(path)});
    static const QMimeDatabase database;
    const QMimeType type = database.mimeTypeForFile(path);
    if (type.name().startsWith(QLatin1String("image/")) &&
        QFileInfo(path).size() <= kMaxDraggedBytes) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            mime->setData(type.name(), file.readAll());
    }
    return mime;
}

Qt::DropActions AttachmentListModel::supportedDragActions() const
{
    return Qt::CopyAction;
}

Qt::DropActions AttachmentListModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
}
