#include "QuickNotesModel.h"

#include "notes/QuickNoteStore.h"

#include <QDataStream>
#include <QFont>
#include <QIODevice>
#include <QMimeData>
#include <QTextCursor>
#include <QTextDocument>

const QString QuickNotesModel::RowsMimeType = QStringLiteral("MyPrivateTableViewDataType");

namespace {
// Helvetica where it is installed; fontconfig picks the nearest sans face elsewhere.
const QString kFontFamily = QStringLiteral("Helvetica");
} // namespace

QuickNotesModel::QuickNotesModel(QuickNoteStore &store, QObject *parent)
    : QAbstractListModel(parent)
    , m_store(store)
{
    connect(&store, &QuickNoteStore::listReset, this, [this] {
        beginResetModel();
        rebuild();
        endResetModel();
    });
    connect(&store, &QuickNoteStore::noteInserted, this, [this](int row) {
        beginInsertRows(QModelIndex(), row, row);
        m_documents.insert(m_documents.begin() + row, makeDocument(row));
        m_heights.insert(row, 0);
        endInsertRows();
    });
    connect(&store, &QuickNoteStore::noteChanged, this, [this](int row) {
        m_documents[size_t(row)] = makeDocument(row);
        m_heights[row] = 0;
        const QModelIndex changed = index(row);
        Q_EMIT dataChanged(changed, changed);
    });
    connect(&store, &QuickNoteStore::noteRemoved, this, [this](int row) {
        beginRemoveRows(QModelIndex(), row, row);
        m_documents.erase(m_documents.begin() + row);
        m_heights.removeAt(row);
        endRemoveRows();
    });
    rebuild();
}

QuickNotesModel::~QuickNotesModel() = default;

void QuickNotesModel::setAppearance(const Appearance &appearance)
{
    beginResetModel();
    m_appearance = appearance;
    rebuild();
    endResetModel();
}

void QuickNotesModel::formatNoteItem(QTextDocument &document, const QString &title,
                                     const QString &note, const Appearance &appearance)
{
    document.clear();
    document.setDocumentMargin(4);
    const QColor colour = appearance.dark ? Qt::white : Qt::black;
    QTextCharFormat titleFormat;
    QFont titleFont(kFontFamily);
    titleFont.setPointSize(appearance.dateFontSize);
    titleFont.setBold(true);
    titleFormat.setFont(titleFont);
    titleFormat.setForeground(colour);
    QTextCharFormat textFormat;
    QFont textFont(kFontFamily);
    textFont.setPointSize(appearance.textFontSize);
    textFormat.setFont(textFont);
    textFormat.setForeground(colour);

    QTextCursor cursor(&document);
    cursor.insertText(title, titleFormat);
    cursor.insertBlock(QTextBlockFormat(), textFormat);
    cursor.insertText(note, textFormat);
}

std::unique_ptr<QTextDocument> QuickNotesModel::makeDocument(int row) const
{
    auto document = std::make_unique<QTextDocument>();
    const auto note = m_store.note(row);
    formatNoteItem(*document, note.title, note.text, m_appearance);
    return document;
}

void QuickNotesModel::rebuild()
{
    m_documents.clear();
    m_heights.clear();
    for (int row = 0; row < m_store.count(); ++row) {
        m_documents.push_back(makeDocument(row));
        m_heights.append(0);
    }
}

QTextDocument *QuickNotesModel::document(int row) const
{
    return row >= 0 && size_t(row) < m_documents.size() ? m_documents[size_t(row)].get() : nullptr;
}

void QuickNotesModel::setCachedHeight(int row, qreal height)
{
    if (row >= 0 && row < m_heights.size())
        m_heights[row] = height;
}

void QuickNotesModel::clearHeights()
{
    m_heights.fill(0);
}

int QuickNotesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_store.count();
}

QVariant QuickNotesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_store.count())
        return QVariant();
    const auto note = m_store.note(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return QString(note.title + QLatin1Char('\n') + note.text);
    case Qt::ToolTipRole:
        return note.title;
    case TitleRole:
        return note.title;
    case TextRole:
        return note.text;
    default:
        return QVariant();
    }
}

Qt::ItemFlags QuickNotesModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags base = QAbstractListModel::flags(index);
    return index.isValid() ? base | Qt::ItemIsDragEnabled : base;
}

QStringList QuickNotesModel::mimeTypes() const
{
    return {RowsMimeType, QStringLiteral("text/plain")};
}

QMimeData *QuickNotesModel::mimeData(const QModelIndexList &indexes) const
{
    QList<int> rows;
    for (const QModelIndex &index : indexes) {
        if (index.isValid() && !rows.contains(index.row()))
            rows.append(index.row());
    }
    if (rows.isEmpty())
        return nullptr;
    auto *mime = new QMimeData;
    QByteArray archived;
    QDataStream stream(&archived, QIODevice::WriteOnly);
    stream << rows;
    mime->setData(RowsMimeType, archived);
    // One note dropped into the editor or another program brings its text, not its title.
    if (rows.size() == 1)
        mime->setText(m_store.note(rows.first()).text);
    return mime;
}
