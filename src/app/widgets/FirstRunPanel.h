#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// The modal panel of the very first launch: a name and a folder for the first notebook.
class FirstRunPanel : public QDialog
{
    Q_OBJECT
public:
    explicit FirstRunPanel(QWidget *parent = nullptr);

    QLineEdit *nameField() const { return m_nameField; }
    QLineEdit *folderField() const { return m_folderField; }
    QPushButton *chooseButton() const { return m_chooseButton; }
    QPushButton *okButton() const { return m_okButton; }
    QPushButton *cancelButton() const { return m_cancelButton; }

protected:
    void reject() override;

Q_SIGNALS:
    void cancelRequested();

private:
    QLineEdit *m_nameField;
    QLineEdit *m_folderField;
    QPushButton *m_chooseButton;
    QPushButton *m_okButton;
    QPushButton *m_cancelButton;
};
