#include "NotebookSideBar.h"

#include <QIcon>
#include <QPixmap>

NotebookSideBar::NotebookSideBar(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
{
    setAccessibleName(tr("Notebooks"));
    setToolTip(tr("Your notebooks"));
    setObjectName(QStringLiteral("notebookSideBar"));
    m_layout->setContentsMargins(6, 8, 6, 8);
    m_layout->setSpacing(6);
    m_layout->addStretch(1);
    m_group.setExclusive(false);
    connect(&m_group, &QButtonGroup::idClicked, this, [this](int row) {
        selectRow(row);
        Q_EMIT didSelectButton(row);
    });
    setFixedWidth(80);
    setAttribute(Qt::WA_StyledBackground, true);
    setStyleSheet(lightStyle());
}

void NotebookSideBar::addRow(const QString &title, const QImage &image,
                             const QImage &alternateImage)
{
    auto *button = new QToolButton(this);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setIconSize(QSize(36, 36));
    button->setFixedSize(68, 60);
    QFont small = button->font();
    small.setPointSizeF(small.pointSizeF() * 0.8);
    button->setFont(small);
    const int row = int(m_buttons.size());
    button->setObjectName(QStringLiteral("notebookSideBarRow%1").arg(row));
    m_group.addButton(button, row);
    m_layout->insertWidget(row, button, 0, Qt::AlignHCenter);
    m_buttons.append(button);
    m_rows.append(Row{});
    setRow(row, title, image, alternateImage);
}

void NotebookSideBar::setRow(int row, const QString &title, const QImage &image,
                             const QImage &alternateImage)
{
    if (row < 0 || row >= m_buttons.size())
        return;
    m_rows[row] = Row{title, image, alternateImage};
    QToolButton *button = m_buttons.at(row);
    button->setToolTip(title);
    button->setAccessibleName(title);
    button->setText(button->fontMetrics().elidedText(title, Qt::ElideRight, 64));
    refreshIcons();
}

void NotebookSideBar::removeLastRow()
{
    if (m_buttons.isEmpty())
        return;
    QToolButton *button = m_buttons.takeLast();
    m_rows.removeLast();
    m_group.removeButton(button);
    delete button;
}

QString NotebookSideBar::rowTitle(int row) const
{
    return (row >= 0 && row < m_rows.size()) ? m_rows.at(row).title : QString();
}

QString NotebookSideBar::rowToolTip(int row) const
{
    return (row >= 0 && row < m_buttons.size()) ? m_buttons.at(row)->toolTip() : QString();
}

QToolButton *NotebookSideBar::button(int row) const
{
    return (row >= 0 && row < m_buttons.size()) ? m_buttons.at(row) : nullptr;
}

int NotebookSideBar::selectedRow() const
{
    for (int i = 0; i < m_buttons.size(); ++i) {
        if (m_buttons.at(i)->isChecked())
            return i;
    }
    return -1;
}

void NotebookSideBar::selectRow(int row)
{
    for (int i = 0; i < m_buttons.size(); ++i)
        m_buttons.at(i)->setChecked(i == row);
    refreshIcons();
}

void NotebookSideBar::clearSelection()
{
    selectRow(-1);
}

void NotebookSideBar::setDarkAppearance(bool dark)
{
    m_dark = dark;
    setStyleSheet(dark ? darkStyle() : lightStyle());
}

QString NotebookSideBar::lightStyle()
{
    return QStringLiteral("NotebookSideBar { background: #e9ecef; }"
                          "QToolButton { border: none; border-radius: 6px; color: #333333; }"
                          "QToolButton:hover { background: rgba(0, 0, 0, 0.07); }"
                          "QToolButton:checked { background: #c9d6e6; color: #000000; }");
}

QString NotebookSideBar::darkStyle()
{
    return QStringLiteral("NotebookSideBar { background: #1b1b1b; }"
                          "QToolButton { border: none; border-radius: 6px; color: #dddddd; }"
                          "QToolButton:hover { background: rgba(255, 255, 255, 0.08); }"
                          "QToolButton:checked { background: #3a4a5c; color: #ffffff; }");
}

void NotebookSideBar::refreshIcons()
{
    for (int i = 0; i < m_buttons.size(); ++i) {
        const Row &row = m_rows.at(i);
        const QImage &shown =
            m_buttons.at(i)->isChecked() && !row.alternate.isNull() ? row.alternate : row.image;
        m_buttons.at(i)->setIcon(QIcon(QPixmap::fromImage(shown)));
        m_buttons.at(i)->setToolButtonStyle(shown.isNull() ? Qt::ToolButtonTextOnly
                                                           : Qt::ToolButtonTextUnderIcon);
    }
}
