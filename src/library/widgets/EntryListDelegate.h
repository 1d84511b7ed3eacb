#pragma once

#include <QStyledItemDelegate>

// Draws an entry row: the title line bold, the date and excerpt lines smaller, in white on
// the dark theme.
class EntryListDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    static QFont titleFont(int pointSize);
    static QFont infoFont(int pointSize, bool bold);
};
