#pragma once

#include <QString>

class QWidget;

// The question asked when a notebook folder or an entry file is locked (immutable): keep it
// locked, or unlock it. Returns true when it stays locked.
namespace LockPrompt {
enum class Kind { Folder, File };
bool keepsLocked(QWidget *parent, const QString &path, Kind kind);
} // namespace LockPrompt
