#include "TabActionFileDialog.h"

#include <QFileDialog>

namespace TabActionFileDialog {

QString chooseNewFile(QWidget *parent, const QString &suffix)
{
    QFileDialog dialog(parent);
    //% "New Tab-Action File"
    dialog.setWindowTitle(qtTrId("TAB_ACTION_NEW_FILE_DIALOG"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    //% "Tab actions (*.tabActions)"
    dialog.setNameFilter(qtTrId("TAB_ACTION_FILE_FILTER"));
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(QStringLiteral("Vellox.tabActions"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}

QString chooseExistingFile(QWidget *parent)
{
    QFileDialog dialog(parent);
    //% "Choose Tab-Action File"
    dialog.setWindowTitle(qtTrId("TAB_ACTION_CHOOSE_FILE_DIALOG"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(qtTrId("TAB_ACTION_FILE_FILTER"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}

} // namespace TabActionFileDialog
