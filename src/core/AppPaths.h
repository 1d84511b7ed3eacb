#pragma once

#include <QString>
#include <QStringList>

// Where Vellox keeps its own files: the per-user support folder and the shipped resources.
namespace AppPaths {
// ~/.local/share/Vellox (created on first use).
QString supportFolder();
// ~/.local/share/Vellox/CSSStyles/ (with the trailing slash).
QString cssStyleFolder();
// A shipped resource by relative name ("styles/Standard.css", "converters/markdown.php"):
// under the install prefix when installed, else the build tree, then the source tree.
QString resource(const QString &relativePath);
// Where resources are looked for, in order.
QStringList resourceRoots();
// Expands a leading "~" to the home folder.
QString expandTilde(const QString &path);
} // namespace AppPaths
