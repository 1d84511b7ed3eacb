#pragma once

#include <QDialog>
#include <QListWidget>

// Offers icons of the desktop's icon theme as notebook icons. Choosing one saves it as a PNG
// in the support folder and posts "SelectedIconNotification" with that file's path.
class IconChooserDialog : public QDialog
{
    Q_OBJECT
public:
    explicit IconChooserDialog(QWidget *parent = nullptr);
    static QStringList offeredIconNames();
    // Makes sure themed icons resolve even outside a desktop session.
    static void ensureIconTheme();
    QListWidget *list() const { return m_list; }
    // Writes the chosen icon as PNG and posts the notification; returns the file's path.
    QString chooseIcon(const QString &iconName);

private:
    QListWidget *m_list;
};
