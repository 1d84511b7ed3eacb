#include "NoteSheet.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
QLabel *label(const QString &name, const QString &tip, int pointSize)
{
    auto *l = new QLabel;
    l->setObjectName(name);
    l->setToolTip(tip);
    l->setAccessibleName(tip);
    QFont font = l->font();
    font.setPointSize(pointSize);
    l->setFont(font);
    return l;
}
} // namespace

NoteSheet::NoteSheet(Mode mode, QWidget *parent)
    : QDialog(parent)
    , m_mode(mode)
    , m_text(new QPlainTextEdit)
{
    setObjectName(mode == Add ? QStringLiteral("addNoteSheet") : QStringLiteral("editNoteSheet"));
    setWindowModality(Qt::WindowModal);
    //% "New Quick Note"
    const QString addTitle = qtTrId("NOTES_ADD_SHEET_TITLE");
    //% "Edit Quick Note"
    const QString editTitle = qtTrId("NOTES_EDIT_SHEET_TITLE");
    setWindowTitle(mode == Add ? addTitle : editTitle);
    setAccessibleName(windowTitle());

    //% "The time the note is taken at"
    m_time = label(QStringLiteral("noteTimeLabel"), qtTrId("NOTES_SHEET_TIME_TIP"), 18);
    //% "Day of the month"
    m_day = label(QStringLiteral("noteDayLabel"), qtTrId("NOTES_SHEET_DAY_TIP"), 28);
    //% "Weekday"
    m_weekday = label(QStringLiteral("noteWeekdayLabel"), qtTrId("NOTES_SHEET_WEEKDAY_TIP"), 12);
    //% "Month"
    m_month = label(QStringLiteral("noteMonthLabel"), qtTrId("NOTES_SHEET_MONTH_TIP"), 12);

    m_text->setObjectName(QStringLiteral("noteTextView"));
    //% "Note text"
    m_text->setAccessibleName(qtTrId("NOTES_SHEET_TEXT_NAME"));
    //% "The text of the quick note"
    m_text->setToolTip(qtTrId("NOTES_SHEET_TEXT_TIP"));
    m_text->setTabChangesFocus(true);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setObjectName(QStringLiteral("noteOkButton"));
    //% "Keep the note"
    m_ok->setToolTip(qtTrId("NOTES_SHEET_OK_TIP"));
    m_ok->setAccessibleName(m_ok->text());
    m_cancel = buttons->button(QDialogButtonBox::Cancel);
    m_cancel->setObjectName(QStringLiteral("noteCancelButton"));
    //% "Close without keeping the text"
    m_cancel->setToolTip(qtTrId("NOTES_SHEET_CANCEL_TIP"));
    m_cancel->setAccessibleName(m_cancel->text());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *date = new QVBoxLayout;
    date->addWidget(m_weekday);
    date->addWidget(m_month);
    auto *top = new QHBoxLayout;
    top->addWidget(m_day);
    top->addLayout(date);
    top->addStretch(1);
    top->addWidget(m_time);

    auto *layout = new QVBoxLayout(this);
    if (mode == Add)
        layout->addLayout(top);
    else
        for (QLabel *l : {m_time, m_day, m_weekday, m_month})
            l->hide();
    layout->addWidget(m_text, 1);
    layout->addWidget(buttons);
    resize(420, 280);
}

void NoteSheet::setLabels(const QString &time, const QString &day, const QString &weekday,
                          const QString &month)
{
    m_time->setText(time);
    m_day->setText(day);
    m_weekday->setText(weekday);
    m_month->setText(month);
}
