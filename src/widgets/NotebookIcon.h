#pragma once

#include <QImage>
#include <QString>

// How a notebook looks in the side bar and the pop-up: its own icon, or the desktop's
// folder icon, and the grey variant of either for rows that are not selected.
namespace NotebookIcon {
// own: the notebook's own icon, or a null image when it has none.
QImage forFolder(const QImage &own, const QString &folder, int size);
QImage grayScale(const QImage &image);
} // namespace NotebookIcon
