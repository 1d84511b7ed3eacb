#pragma once

#include <QString>

// A TextBundle entry: a folder "<title>.textbundle" holding "text.<ext>", "assets" and
// "info.json".
class TextBundle
{
public:
    static QString bundleExtension() { return QStringLiteral("textbundle"); }

    // The "info.json" text for a type identifier, byte for byte as it is written.
    static QString infoJson(const QString &typeIdentifier);

    // The bundle's text file: of its items, the last one (in name order) whose name without
    // extension is "text"; empty when there is none.
    static QString textFileName(const QString &bundlePath);
    // The text file a save goes to: the existing one, else "text.<ext of language>".
    static QString textFileNameForSaving(const QString &bundlePath, int language);

    // Creates "assets" and writes "info.json" for the language.
    static bool createLayout(const QString &bundlePath, int language, QString *error);

    // The "type" of "info.json"; empty when the file is missing, has no such key or does not
    // parse (then *parseError says why).
    static QString readType(const QString &bundlePath, QString *parseError);
    // The language the bundle's type names (1 when it has none).
    static int language(const QString &bundlePath, QString *parseError);
};
