#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QLineEdit;
class QPushButton;

// The sheet that renames an entry: a field with the new title, a note when that name is
// taken, OK and Cancel. It does not rename; accepting hands the title to its owner.
class RenameSheet : public QDialog
{
    Q_OBJECT
public:
    // fileName: the entry's file name; taken: the entry list's names; folder: the notebook.
    RenameSheet(const QString &fileName, const QStringList &taken, const QString &extension,
                const QString &folder, QWidget *parent = nullptr);

    QString fileName() const { return m_fileName; }
    QString contextRenameFileName() const;
    void setContextRenameFileName(const QString &text);
    QLineEdit *titleField() const { return m_field; }
    QPushButton *okButton() const { return m_ok; }
    QLabel *messageLabel() const { return m_message; }

Q_SIGNALS:
    void renameRequested(const QString &fileName, const QString &newTitle);

private:
    void validate();

    QString m_fileName;
    QStringList m_taken;
    QString m_extension;
    QString m_folder;
    QLineEdit *m_field;
    QLabel *m_message;
    QPushButton *m_ok;
};
