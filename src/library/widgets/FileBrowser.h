#pragma once

#include <QString>

// The desktop's file browser.
namespace FileBrowser {
// Opens the folder holding path with path selected (org.freedesktop.FileManager1), or just
// the folder where no file manager answers on the session bus.
void showItem(const QString &path);
void openFolder(const QString &folder);
} // namespace FileBrowser
