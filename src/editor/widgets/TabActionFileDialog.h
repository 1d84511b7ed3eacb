#pragma once

#include <QString>

class QWidget;

// The file choosers of the Tab Actions window: a new tab-action file, or an existing one.
// Both return the chosen path, or "" when the user cancelled.
namespace TabActionFileDialog {
QString chooseNewFile(QWidget *parent, const QString &suffix);
QString chooseExistingFile(QWidget *parent);
} // namespace TabActionFileDialog
