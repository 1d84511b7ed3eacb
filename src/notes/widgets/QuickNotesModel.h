#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QPointer>

#include <memory>
#include <vector>

class QTextDocument;
class QuickNoteStore;

// The notes list's rows: the store's notes, each with its styled display form and a cached
// row height (0 = not measured), kept at the same index as the note through every change.
class QuickNotesModel : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role { TitleRole = Qt::UserRole + 1, TextRole };
    // The drag type that carries the dragged row numbers.
    static const QString RowsMimeType;

    struct Appearance
    {
        int dateFontSize = 12;
        int textFontSize = 11;
        bool dark = false;
    };

    explicit QuickNotesModel(QuickNoteStore &store, QObject *parent = nullptr);
    ~QuickNotesModel() override;

    // Restyles every row.
    void setAppearance(const Appearance &appearance);
    Appearance appearance() const { return m_appearance; }

    // The title in bold at the date size and a line feed, then the text at the text size,
    // black, or white on the dark appearance.
    static void formatNoteItem(QTextDocument &document, const QString &title, const QString &note,
                               const Appearance &appearance);

    QTextDocument *document(int row) const;
    qreal cachedHeight(int row) const { return m_heights.value(row); }
    void setCachedHeight(int row, qreal height);
    void clearHeights();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }
    Qt::DropActions supportedDropActions() const override { return Qt::IgnoreAction; }

private:
    std::unique_ptr<QTextDocument> makeDocument(int row) const;
    void rebuild();

    QuickNoteStore &m_store;
    Appearance m_appearance;
    std::vector<std::unique_ptr<QTextDocument>> m_documents;
    QList<qreal> m_heights;
};
