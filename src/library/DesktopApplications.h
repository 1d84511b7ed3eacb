#pragma once

#include <QList>
#include <QString>

// The desktop's applications that open a kind of file, as GIO knows them from the installed
// desktop entries and the user's choices (never read by hand here).
struct DesktopApplication
{
    QString id;       // "org.gnome.gedit.desktop"
    QString name;     // as the desktop shows it
    QString iconName; // a theme icon name or an icon file path; "" when it has none
};

namespace DesktopApplications {
// The MIME type of a file or folder ("text/plain", "inode/directory").
QString mimeTypeOf(const QString &path);
// The applications for that type, the default one first.
QList<DesktopApplication> forMimeType(const QString &mimeType);
// Opens path with the application of that id; false with the reason when it could not.
bool launch(const QString &applicationId, const QString &path, QString *error);
} // namespace DesktopApplications
