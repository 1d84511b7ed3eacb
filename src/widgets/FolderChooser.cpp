#include "FolderChooser.h"

#include <QFileDialog>

namespace FolderChooser {

QFileDialog *open(QWidget *parent, QObject *context, std::function<void(const QString &)> chosen)
{
    auto *dialog =
        new QFileDialog(parent, qtTrId("PREFERENCES_SELECT_DIARY_SAVEDESTIONATION_TITLE"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly, true);
    dialog->setLabelText(QFileDialog::Accept, qtTrId("BUTTON_CHOOSE"));
    dialog->setToolTip(qtTrId("PREFERENCES_SELECT_DIARY_SAVEDESTIONATION_MESSAGE"));
    dialog->setAccessibleName(dialog->windowTitle());
    dialog->setWindowModality(Qt::WindowModal);
    QObject::connect(dialog, &QFileDialog::fileSelected, context, chosen);
    dialog->open();
    return dialog;
}

} // namespace FolderChooser
