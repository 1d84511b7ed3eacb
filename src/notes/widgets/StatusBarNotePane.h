#pragma once

#include <QWidget>

class NotebookRegistry;
class NotesTableController;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

// The tray panel's note pane: a quick note, with the moment it was begun, into any notebook.
class StatusBarNotePane : public QWidget
{
    Q_OBJECT
public:
    StatusBarNotePane(NotesTableController &notes, NotebookRegistry &registry,
                      QWidget *parent = nullptr);

    // Fills the moment's labels and the notebook list; the panel calls it as it opens.
    void prepare();

    QComboBox *notebookPopUp() const { return m_notebooks; }
    QPlainTextEdit *textView() const { return m_text; }
    QPushButton *okButton() const { return m_ok; }
    QPushButton *cancelButton() const { return m_cancel; }

private:
    void fillNotebooks();
    void accept();
    void cancel();

    NotesTableController &m_notes;
    NotebookRegistry &m_registry;
    QLabel *m_time;
    QLabel *m_day;
    QLabel *m_weekday;
    QLabel *m_month;
    QComboBox *m_notebooks;
    QPlainTextEdit *m_text;
    QPushButton *m_ok;
    QPushButton *m_cancel;
};
