#include "EntryListDelegate.h"

#include <QWidget>

#include "library/EntryListModel.h"

#include <QApplication>
#include <QPainter>

QFont EntryListDelegate::titleFont(int pointSize)
{
    QFont font(QStringLiteral("Helvetica"));
    font.setPointSize(qMax(1, pointSize));
    font.setBold(true);
    return font;
}

QFont EntryListDelegate::infoFont(int pointSize, bool bold)
{
    QFont font(QStringLiteral("Helvetica"));
    font.setPointSize(qMax(1, pointSize));
    font.setBold(bold);
    return font;
}

void EntryListDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    QStyleOptionViewItem background = option;
    initStyleOption(&background, index);
    background.text.clear();
    const QWidget *widget = option.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &background, painter, widget);

    const bool selected = option.state & QStyle::State_Selected;
    QColor color =
        index.data(EntryListModel::WhiteTextRole).toBool() ? QColor(Qt::white) : QColor(Qt::black);
    if (selected)
        color = option.palette.color(QPalette::HighlightedText);
    const bool deleted = index.data(EntryListModel::DeletedRole).toBool();

    painter->save();
    painter->setPen(color);
    painter->setClipRect(option.rect);
    QRect rect = option.rect.adjusted(2, 1, -2, 0);

    const QFont title = titleFont(index.data(EntryListModel::TitleSizeRole).toInt());
    painter->setFont(title);
    const QString titleLine = index.data(EntryListModel::TitleLineRole).toString();
    const int titleHeight = QFontMetrics(title).lineSpacing();
    painter->drawText(rect, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                      QFontMetrics(title).elidedText(titleLine, Qt::ElideRight, rect.width()));
    rect.setTop(rect.top() + titleHeight);

    // The info lines and the excerpt each start with their own line feed.
    QString rest = index.data(EntryListModel::InfoTextRole).toString() +
                   index.data(EntryListModel::ExcerptRole).toString();
    if (rest.startsWith(QLatin1Char('\n')))
        rest.remove(0, 1);
    const QFont info = infoFont(index.data(EntryListModel::InfoSizeRole).toInt(), deleted);
    painter->setFont(info);
    const QFontMetrics metrics(info);
    for (const QString &line : rest.split(QLatin1Char('\n'))) {
        if (rect.top() >= option.rect.bottom())
            break;
        painter->drawText(rect, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                          metrics.elidedText(line, Qt::ElideRight, rect.width()));
        rect.setTop(rect.top() + metrics.lineSpacing());
    }
    painter->restore();
}

QSize EntryListDelegate::sizeHint(const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    // The row height is reckoned in points, like the fonts; the screen counts pixels.
    const QSize hint = index.data(Qt::SizeHintRole).toSize();
    const qreal dpi = option.widget ? option.widget->logicalDpiY() : 96.0;
    const int height = qRound(hint.height() * dpi / 72.0);
    const int minimum = QFontMetrics(titleFont(12)).lineSpacing() + 4;
    return QSize(option.rect.width() > 0 ? option.rect.width() : 200, qMax(minimum, height));
}
