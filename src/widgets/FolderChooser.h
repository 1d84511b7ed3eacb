#pragma once

#include <QString>

#include <functional>

class QFileDialog;
class QObject;
class QWidget;

// The chooser for a notebook's folder, opened as a sheet on its window: folders only, one at
// a time, new folders allowed.
namespace FolderChooser {
QFileDialog *open(QWidget *parent, QObject *context, std::function<void(const QString &)> chosen);
} // namespace FolderChooser
