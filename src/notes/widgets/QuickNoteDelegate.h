#pragma once

#include <QStyledItemDelegate>

class QuickNotesModel;

// Draws a note's styled text and measures its row once, wrapped at the list's width; the
// height stays cached in the model until the note or the width changes.
class QuickNoteDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit QuickNoteDelegate(QuickNotesModel &model, QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    QuickNotesModel &m_model;
    mutable int m_measuredWidth = -1;
};
