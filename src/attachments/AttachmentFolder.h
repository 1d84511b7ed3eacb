#pragma once

#include <QString>

// Where an entry keeps its attached files. The one rule, shared by the attachments panel and
// by whatever moves, renames or copies an entry:
//   - with the entry extension "textbundle": the bundle's own "assets" folder,
//   - with any other extension: a folder beside the entry, named like it without extension.
// The rule follows the extension setting, not the form of the entry on disk.
namespace AttachmentFolder {
inline const QString BundleExtension = QStringLiteral("textbundle");
inline const QString AssetsFolder = QStringLiteral("assets");

// "<notebook>/<entry name>.textbundle/assets/" or "<notebook>/<entry name>/", with a trailing
// slash and a leading "~" expanded. Empty when the entry name is empty.
QString forEntry(const QString &notebookFolder, const QString &entryName,
                 const QString &entryExtension);

// The same from an entry's path on disk ("/n/2014-05-12.md", "/n/x.textbundle"): the bundle's
// "assets" for a bundle, else the path without its extension; with a trailing slash.
QString forEntryPath(const QString &entryPath);

// What travels with an entry when it is renamed, moved or copied: the bundle itself carries
// its assets, so only a plain entry has a separate folder to carry ("" for a bundle).
QString companionFolder(const QString &entryPath);

// The prefix an attachment's markup uses from inside the entry's text: "assets/" for bundles.
QString markupPrefix(const QString &entryExtension);
} // namespace AttachmentFolder
