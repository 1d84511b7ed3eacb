#include "AttachmentMarkup.h"

namespace AttachmentMarkup {

QString forAttachment(int language, const QString &prefix, const QString &name)
{
    switch (language) {
    case 1:
    case 7:
        // "altText" stays as written: the user replaces it with the picture's description.
        return QStringLiteral("![altText](%1%2 \"%3\")").arg(prefix, name, name);
    case 2:
        return QStringLiteral("!%1%2!").arg(prefix, name);
    case 3:
    case 6:
        return QStringLiteral("<img src=\"%1%2\" />").arg(prefix, name);
    case 4:
        return QStringLiteral("[img]%1%2[/img]").arg(prefix, name);
    case 5:
        return prefix + name;
    default:
        return name;
    }
}

} // namespace AttachmentMarkup
