#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariantMap>

// The file of tab actions: abbreviation -> expansion, kept as an XML property list whose root
// is a dictionary. Where it lives is decided by the settings each time it is needed, and the
// file is read afresh on every request so that a change saved by the editor window is seen
// by the very next Tab.
class UserDefaults;

class TabActionStore
{
public:
    // Which file is in use, as the preferences say.
    struct FileSettings
    {
        bool useExternalFile = false; // "TabActionUseExternalFile"
        QString externalPath;         // "TabActionExternFilePath"
        QByteArray bookmark;          // "TabActionExternFilePathSecScope"

        static FileSettings from(const UserDefaults &defaults);
    };

    // Why a proposed abbreviation is refused.
    enum class NameCheck { Acceptable, Empty, ContainsBlank, Duplicate };

    // "<support folder>/tabactions.plist".
    static QString internalPath();
    // The external file when it is switched on (and a file has been chosen), otherwise the
    // internal file.
    static QString pathInUse(const FileSettings &settings);

    // For the typing engine: the actions in the file in use right now, limited to those Tab
    // can expand (a non-empty abbreviation without blanks and a text expansion). A missing,
    // empty or unreadable file, or one whose root is not a dictionary, gives an empty map
    // and a log line naming the file and the problem. Never writes anything.
    static QVariantMap availableTabActions(const FileSettings &settings);

    // The whole dictionary at path, untouched entries included, for the editor window. On
    // failure returns an empty map and describes the problem in *problem.
    static QVariantMap load(const QString &path, QString *problem = nullptr);
    // Writes the whole list atomically. A file there that cannot be read as a tab-action
    // list is first copied aside ("<name>.unreadable-<date>"), so that replacing it never
    // destroys what the user may still want from it. Failures are logged and reported in
    // *error.
    static bool save(const QString &path, const QVariantMap &actions, QString *error = nullptr);

    // The abbreviations sorted case-insensitively in the user's locale (names differing only
    // in case keep a stable order).
    static QStringList sortedAbbreviations(const QVariantMap &actions);
    // Whether name may become an abbreviation next to the names already listed. The list's
    // own copy of a name counts: confirming an unchanged name is refused as a duplicate.
    static NameCheck checkNewName(const QString &name, const QStringList &listedNames);

private:
    static void logProblemOnce(const QString &path, const QString &problem);
};
