#include "QuickNoteDelegate.h"

#include "QuickNotesModel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QTextDocument>
#include <QtMath>

QuickNoteDelegate::QuickNoteDelegate(QuickNotesModel &model, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
{}

void QuickNoteDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    QTextDocument *document = m_model.document(index.row());
    if (!document) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    item.text.clear();
    const QWidget *widget = option.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);
    painter->save();
    painter->translate(option.rect.topLeft());
    document->setTextWidth(option.rect.width());
    document->drawContents(painter, QRectF(0, 0, option.rect.width(), option.rect.height()));
    painter->restore();
}

QSize QuickNoteDelegate::sizeHint(const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    QTextDocument *document = m_model.document(index.row());
    if (!document)
        return QStyledItemDelegate::sizeHint(option, index);
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    const int width = view ? view->viewport()->width() : option.rect.width();
    if (width != m_measuredWidth) {
        // Rows measured at another width would be cut off or gape.
        m_model.clearHeights();
        m_measuredWidth = width;
    }
    qreal height = m_model.cachedHeight(index.row());
    if (height == 0) {
        document->setTextWidth(width);
        height = document->size().height();
        m_model.setCachedHeight(index.row(), height);
    }
    return QSize(width, qCeil(height));
}
