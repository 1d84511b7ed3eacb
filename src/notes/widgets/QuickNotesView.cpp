#include "QuickNotesView.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>

QuickNotesView::QuickNotesView(QWidget *parent)
    : QWidget(parent)
    , m_list(new QListView)
{
    setObjectName(QStringLiteral("quickNotesView"));
    //% "Quick notes"
    setAccessibleName(qtTrId("NOTES_VIEW_NAME"));

    m_list->setObjectName(QStringLiteral("notesList"));
    //% "Quick notes of this notebook"
    m_list->setAccessibleName(qtTrId("NOTES_LIST_NAME"));
    //% "Quick notes of this notebook. Double-click one to insert its text into the entry;
    // drag it into the entry or another program."
    m_list->setToolTip(qtTrId("NOTES_LIST_TIP"));
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setWordWrap(true);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setDragEnabled(true);
    m_list->setDragDropMode(QAbstractItemView::DragOnly);
    m_list->setAcceptDrops(false);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_list, &QListView::doubleClicked, this,
            [this](const QModelIndex &index) { Q_EMIT rowDoubleClicked(index.row()); });

    //% "Quick Notes"
    auto *heading = new QLabel(qtTrId("NOTES_HEADING"));
    heading->setAccessibleName(heading->text());
    heading->setToolTip(qtTrId("NOTES_LIST_NAME"));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);

    //% "Add Note"
    const QString addName = qtTrId("NOTES_ADD_NAME");
    //% "Write a new quick note"
    m_add = makeButton(QStringLiteral("notesAddButton"), addName, qtTrId("NOTES_ADD_TIP"));
    m_add->setText(QStringLiteral("+"));
    //% "Edit Note"
    const QString editName = qtTrId("NOTES_EDIT_NAME");
    //% "Edit the text of the selected quick note"
    m_edit = makeButton(QStringLiteral("notesEditButton"), editName, qtTrId("NOTES_EDIT_TIP"));
    m_edit->setText(QStringLiteral("✎"));
    //% "Remove Note"
    const QString removeName = qtTrId("NOTES_REMOVE_NAME");
    //% "Remove the selected quick note"
    m_remove =
        makeButton(QStringLiteral("notesRemoveButton"), removeName, qtTrId("NOTES_REMOVE_TIP"));
    m_remove->setText(QStringLiteral("−"));
    //% "Open Link"
    const QString linkName = qtTrId("NOTES_LINK_NAME");
    //% "Open the web page this note was captured from"
    m_link = makeButton(QStringLiteral("notesLinkButton"), linkName, qtTrId("NOTES_LINK_TIP"));
    m_link->setText(linkName);
    m_link->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_link->hide();

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(0);
    buttons->addWidget(m_add);
    buttons->addWidget(m_edit);
    buttons->addWidget(m_remove);
    buttons->addStretch(1);
    buttons->addWidget(m_link);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(heading);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
}

QToolButton *QuickNotesView::makeButton(const QString &name, const QString &text,
                                        const QString &tip)
{
    auto *button = new QToolButton;
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setToolTip(tip);
    return button;
}

int QuickNotesView::selectedRow() const
{
    if (!m_list->selectionModel())
        return -1;
    const QModelIndexList rows = m_list->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void QuickNotesView::selectRow(int row)
{
    if (!m_list->model() || !m_list->selectionModel())
        return;
    if (row < 0 || row >= m_list->model()->rowCount()) {
        m_list->clearSelection();
        return;
    }
    const QModelIndex index = m_list->model()->index(row, 0);
    m_list->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void QuickNotesView::setDark(bool dark)
{
    m_list->setStyleSheet(dark ? QStringLiteral("QListView#notesList { background: #000000; }")
                               : QString());
}
