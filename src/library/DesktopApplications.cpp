#include "DesktopApplications.h"

#include <QFile>
#include <QMimeDatabase>

// GLib names a struct member "signals", which Qt defines as a keyword.
#pragma push_macro("signals")
#undef signals
#include <gio/gio.h>
#pragma pop_macro("signals")

namespace DesktopApplications {

namespace {
QString fromUtf8(const char *text)
{
    return text ? QString::fromUtf8(text) : QString();
}

// Calls visit for each application of the type until it returns true.
template <typename Visit> void eachApplication(const QString &mimeType, Visit visit)
{
    gchar *contentType = g_content_type_from_mime_type(mimeType.toUtf8().constData());
    GList *all =
        g_app_info_get_all_for_type(contentType ? contentType : mimeType.toUtf8().constData());
    g_free(contentType);
    for (GList *item = all; item; item = item->next) {
        if (visit(G_APP_INFO(item->data)))
            break;
    }
    g_list_free_full(all, g_object_unref);
}
} // namespace

QString mimeTypeOf(const QString &path)
{
    return QMimeDatabase().mimeTypeForFile(path).name();
}

QList<DesktopApplication> forMimeType(const QString &mimeType)
{
    QList<DesktopApplication> applications;
    eachApplication(mimeType, [&applications](GAppInfo *info) {
        if (!g_app_info_should_show(info))
            return false;
        DesktopApplication application;
        application.id = fromUtf8(g_app_info_get_id(info));
        application.name = fromUtf8(g_app_info_get_display_name(info));
        if (GIcon *icon = g_app_info_get_icon(info)) {
            gchar *name = g_icon_to_string(icon);
            application.iconName = fromUtf8(name);
            g_free(name);
        }
        applications << application;
        return false;
    });
    return applications;
}

bool launch(const QString &applicationId, const QString &path, QString *error)
{
    bool launched = false;
    bool found = false;
    const QString type = mimeTypeOf(path);
    eachApplication(type, [&](GAppInfo *info) {
        if (fromUtf8(g_app_info_get_id(info)) != applicationId)
            return false;
        found = true;
        GFile *file = g_file_new_for_path(QFile::encodeName(path).constData());
        GList *files = g_list_append(nullptr, file);
        GError *failure = nullptr;
        launched = g_app_info_launch(info, files, nullptr, &failure);
        if (failure) {
            *error = fromUtf8(failure->message);
            g_error_free(failure);
        }
        g_list_free(files);
        g_object_unref(file);
        return true;
    });
    if (!found)
        *error = QStringLiteral("%1 does not open files of the type %2").arg(applicationId, type);
    return launched;
}

} // namespace DesktopApplications
