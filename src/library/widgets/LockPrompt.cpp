#include "LockPrompt.h"

#include "library/FileLock.h"
#include "widgets/Alert.h"

namespace LockPrompt {

bool keepsLocked(QWidget *parent, const QString &path, Kind kind)
{
    const bool folder = kind == Kind::Folder;
    //% "Notebook is locked"
    const QString title = folder ? qtTrId("FOLDER_LOCKED")
                                 //% "Entry is locked"
                                 : qtTrId("FILE_LOCKED");
    //% "The folder of this notebook is locked: its entries can be read, but nothing in it can
    // be changed, added, renamed or deleted. Unlock it?"
    const QString message = folder ? qtTrId("FOLDER_LOCKED_MESSAGE")
                                   //% "This entry is locked, so it cannot be changed. Unlock it?"
                                   : qtTrId("FILE_LOCKED_MESSAGE");
    //% "Keep Locked"
    const QString keep = folder ? qtTrId("FOLDER_LOCKED_KEEP_LOCKED")
                                //% "Keep Locked"
                                : qtTrId("FILE_LOCKED_KEEP_LOCKED");
    //% "Unlock"
    const QString unlock = folder ? qtTrId("FOLDER_LOCKED_UNLOCK")
                                  //% "Unlock"
                                  : qtTrId("FILE_LOCKED_UNLOCK");
    const int answer =
        Alert::show(parent, AlertRequest{QMessageBox::Warning, title, message, {keep, unlock}});
    if (answer != 1)
        return true;
    QString error;
    if (FileLock::setImmutable(path, false, &error))
        return false;
    //% "The folder could not be unlocked"
    const QString failed = folder ? qtTrId("UNLOCK_FOLDER_FAILED")
                                  //% "The entry could not be unlocked"
                                  : qtTrId("UNLOCK_FILE_FAILED");
    Alert::show(parent, AlertRequest{QMessageBox::Warning, failed, error, {QStringLiteral("OK")}});
    return true;
}

} // namespace LockPrompt
