#pragma once

#include <QWidget>

class QListView;
class QToolButton;

// The notes list under the entries, with its add, edit and remove buttons and the button
// that opens a captured note's web page. It shows and routes; the controller decides.
class QuickNotesView : public QWidget
{
    Q_OBJECT
public:
    explicit QuickNotesView(QWidget *parent = nullptr);

    QListView *list() const { return m_list; }
    QToolButton *addButton() const { return m_add; }
    QToolButton *editButton() const { return m_edit; }
    QToolButton *removeButton() const { return m_remove; }
    QToolButton *linkButton() const { return m_link; }
    // The selected row, or -1.
    int selectedRow() const;
    void selectRow(int row);
    void setDark(bool dark);

Q_SIGNALS:
    void rowDoubleClicked(int row);

private:
    QToolButton *makeButton(const QString &name, const QString &text, const QString &tip);

    QListView *m_list;
    QToolButton *m_add;
    QToolButton *m_edit;
    QToolButton *m_remove;
    QToolButton *m_link;
};
