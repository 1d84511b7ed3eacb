#include "StatusBarNotePane.h"

#include "NotesTableController.h"
#include "library/NotebookRegistry.h"
#include "notes/NoteTitles.h"
#include "widgets/NotebookIcon.h"

#include <QComboBox>
#include <QDateTime>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel *makeLabel(const QString &name, const QString &accessibleName, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setToolTip(accessibleName);
    return label;
}

} // namespace

StatusBarNotePane::StatusBarNotePane(NotesTableController &notes, NotebookRegistry &registry,
                                     QWidget *parent)
    : QWidget(parent)
    , m_notes(notes)
    , m_registry(registry)
{
    setObjectName(QStringLiteral("statusBarNotePane"));
    //% "Quick note"
    setAccessibleName(qtTrId("STATUSBAR_NOTE_PANE"));
    //% "Take a quick note into any notebook"
    setToolTip(qtTrId("STATUSBAR_NOTE_PANE_TIP"));

    //% "Time the note was begun"
    m_time = makeLabel(QStringLiteral("statusBarNoteTime"), qtTrId("STATUSBAR_NOTE_TIME"), this);
    //% "Day of the month"
    m_day = makeLabel(QStringLiteral("statusBarNoteDay"), qtTrId("STATUSBAR_NOTE_DAY"), this);
    //% "Weekday"
    m_weekday =
        makeLabel(QStringLiteral("statusBarNoteWeekday"), qtTrId("STATUSBAR_NOTE_WEEKDAY"), this);
    //% "Month"
    m_month = makeLabel(QStringLiteral("statusBarNoteMonth"), qtTrId("STATUSBAR_NOTE_MONTH"), this);
    QFont big = m_day->font();
    big.setPointSizeF(big.pointSizeF() * 2.2);
    big.setBold(true);
    m_day->setFont(big);

    m_notebooks = new QComboBox(this);
    m_notebooks->setObjectName(QStringLiteral("statusBarNoteNotebook"));
    //% "Notebook"
    m_notebooks->setAccessibleName(qtTrId("STATUSBAR_NOTE_NOTEBOOK"));
    //% "The notebook the note goes into"
    m_notebooks->setToolTip(qtTrId("STATUSBAR_NOTE_NOTEBOOK_TIP"));
    m_notebooks->setIconSize(QSize(15, 15));

    m_text = new QPlainTextEdit(this);
    m_text->setObjectName(QStringLiteral("statusBarNoteText"));
    //% "Note"
    m_text->setAccessibleName(qtTrId("STATUSBAR_NOTE_TEXT"));
    //% "The text of the note"
    m_text->setToolTip(qtTrId("STATUSBAR_NOTE_TEXT_TIP"));
    m_text->setTabChangesFocus(true);
    setFocusProxy(m_text);

    //% "Cancel"
    m_cancel = new QPushButton(qtTrId("STATUSBAR_NOTE_CANCEL"), this);
    m_cancel->setObjectName(QStringLiteral("statusBarNoteCancel"));
    m_cancel->setAccessibleName(m_cancel->text());
    //% "Close the panel without keeping the note"
    m_cancel->setToolTip(qtTrId("STATUSBAR_NOTE_CANCEL_TIP"));
    //% "Add Note"
    m_ok = new QPushButton(qtTrId("STATUSBAR_NOTE_OK"), this);
    m_ok->setObjectName(QStringLiteral("statusBarNoteOk"));
    m_ok->setAccessibleName(m_ok->text());
    //% "Add the note to the chosen notebook"
    m_ok->setToolTip(qtTrId("STATUSBAR_NOTE_OK_TIP"));
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, &StatusBarNotePane::accept);
    connect(m_cancel, &QPushButton::clicked, this, &StatusBarNotePane::cancel);

    auto *moment = new QGridLayout;
    moment->addWidget(m_day, 0, 0, 2, 1);
    moment->addWidget(m_weekday, 0, 1);
    moment->addWidget(m_month, 1, 1);
    moment->addWidget(m_time, 0, 2, 2, 1, Qt::AlignRight | Qt::AlignVCenter);
    moment->setColumnStretch(1, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_ok);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(moment);
    layout->addWidget(m_notebooks);
    layout->addWidget(m_text, 1);
    layout->addLayout(buttons);
}

void StatusBarNotePane::prepare()
{
    const NoteTitles::SheetLabels labels =
        NoteTitles::sheetLabels(QDateTime::currentDateTime(), QLocale::system());
    m_time->setText(labels.time);
    m_day->setText(labels.day);
    m_weekday->setText(labels.weekday);
    m_month->setText(labels.month);
    fillNotebooks();
}

void StatusBarNotePane::fillNotebooks()
{
    // Filled again each time, so a notebook made since the last capture is offered too.
    const int chosen = m_notebooks->currentIndex();
    m_notebooks->clear();
    for (const QVariantMap &record : m_registry.records()) {
        const QString name = record.value(NotebookRegistry::NameKey).toString();
        const QString folder = record.value(NotebookRegistry::PathKey).toString();
        const QImage icon =
            NotebookIcon::forFolder(NotebookRegistry::iconForFolder(folder), folder, 30);
        m_notebooks->addItem(QIcon(QPixmap::fromImage(icon)), name);
    }
    if (chosen >= 0 && chosen < m_notebooks->count())
        m_notebooks->setCurrentIndex(chosen);
}

void StatusBarNotePane::accept()
{
    // The text goes only once it is kept; otherwise it stays here to try again or copy.
    if (m_notes.addNotesFromStatusBar(m_notebooks->currentIndex(), m_time->text(),
                                      m_text->toPlainText()))
        m_text->clear();
}

void StatusBarNotePane::cancel()
{
    m_notes.cancelAddNotesFromStatusBar();
    m_text->clear();
}
