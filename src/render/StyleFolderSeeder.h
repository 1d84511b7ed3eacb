#pragma once

#include <QString>
#include <QStringList>

// Puts the four shipped style sheets into the user's style folder the first time the app
// runs. An existing folder is left alone, even an empty one: the user may have removed them.
class StyleFolderSeeder
{
public:
    static QStringList builtInStyleNames();
    // Returns true when the folder was created on this call.
    static bool seed(const QString &styleFolder, const QString &resourceFolder);
};
