#pragma once

#include <QString>
#include <QUrl>

class UserDefaults;

// The preview page: the converted entry wrapped in a fixed page that carries the base for
// relative links (the entry's attachment folder) and the text of the chosen CSS style.
class PreviewPage
{
public:
    // The page with its three "%@" fields: base path, style text, converted body.
    static const QString &pageTemplate();

    // Fills the template in order. The fields are spliced in verbatim, so a "%@" or "%1"
    // inside the style or the body stays as written.
    static QString pageHtml(const QString &escapedBasePath, const QString &cssText,
                            const QString &bodyFragment);

    // The folder relative links resolve against, percent-escaped as UTF-8. For TextBundles
    // (entry extension "textbundle") the entry path minus its last component plus "/", for
    // bare files the entry path minus its extension. An empty entry path gives "".
    static QString basePath(const QString &entryPath, const QString &entryExtension);

    // The same base as the web view needs it: "file://" + base + "/".
    static QUrl baseUrl(const QString &escapedBasePath);

    // The text of the chosen style (setting "SelectedCSSStyle" inside the style folder),
    // read as UTF-8; empty when the file cannot be read.
    static QString returnCSSStyleString(const UserDefaults &defaults, const QString &styleFolder);

    // The base a page for this entry gets, as a URL, under the current entry format.
    static QUrl baseUrlForEntry(const QString &entryPath, const UserDefaults &defaults);

    // Builds the whole page for an entry the way every rebuild does.
    static QString buildPage(const QString &convertedFragment, const QString &entryPath,
                             const UserDefaults &defaults, const QString &styleFolder);

    // Path helpers with the semantics of the path strings used throughout the notebook code:
    // trailing slashes are ignored, "/" stays "/".
    static QString deletingLastPathComponent(const QString &path);
    static QString deletingPathExtension(const QString &path);
};
