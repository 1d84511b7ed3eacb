#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

// The sheet over the main window in which a quick note is written (with the moment it was
// opened shown above) or an existing note's text is edited.
class NoteSheet : public QDialog
{
    Q_OBJECT
public:
    enum Mode { Add, Edit };

    explicit NoteSheet(Mode mode, QWidget *parent = nullptr);

    Mode mode() const { return m_mode; }
    QPlainTextEdit *textView() const { return m_text; }
    QPushButton *okButton() const { return m_ok; }
    QPushButton *cancelButton() const { return m_cancel; }
    QLabel *timeLabel() const { return m_time; }
    void setLabels(const QString &time, const QString &day, const QString &weekday,
                   const QString &month);

private:
    Mode m_mode;
    QLabel *m_time;
    QLabel *m_day;
    QLabel *m_weekday;
    QLabel *m_month;
    QPlainTextEdit *m_text;
    QPushButton *m_ok;
    QPushButton *m_cancel;
};
