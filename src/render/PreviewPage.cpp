#include "PreviewPage.h"

#include "core/UserDefaults.h"

#include <QFile>

namespace {

const QString kTextBundleExtension = QStringLiteral("textbundle");

// Everything that could end the attribute, start a query or fragment, or be read as a
// character reference is escaped; the path separators stay.
const QByteArray kKeptInBase = QByteArrayLiteral("/-._~!$'()*+,;=:@");

QString stripTrailingSlashes(const QString &path)
{
    QString result = path;
    while (result.size() > 1 && result.endsWith(QLatin1Char('/')))
        result.chop(1);
    return result;
}

} // namespace

const QString &PreviewPage::pageTemplate()
{
    static const QString page = QStringLiteral(
        "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\" />"
        "<base href=\"file://%@/\"><style type=\"text/css\"><!--%@--></style></head>%@</html>");
    return page;
}

QString PreviewPage::pageHtml(const QString &escapedBasePath, const QString &cssText,
                              const QString &bodyFragment)
{
    const QString &page = pageTemplate();
    const QString fields[] = {escapedBasePath, cssText, bodyFragment};
    QString result;
    result.reserve(page.size() + escapedBasePath.size() + cssText.size() + bodyFragment.size());
    qsizetype from = 0;
    for (const QString &field : fields) {
        const qsizetype at = page.indexOf(QLatin1String("%@"), from);
        result += QStringView(page).mid(from, at - from);
        result += field;
        from = at + 2;
    }
    result += QStringView(page).mid(from);
    return result;
}

QString PreviewPage::deletingLastPathComponent(const QString &path)
{
    const QString trimmed = stripTrailingSlashes(path);
    const qsizetype slash = trimmed.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return QString();
    if (slash == 0)
        return QStringLiteral("/");
    return trimmed.left(slash);
}

QString PreviewPage::deletingPathExtension(const QString &path)
{
    const QString trimmed = stripTrailingSlashes(path);
    const qsizetype slash = trimmed.lastIndexOf(QLatin1Char('/'));
    const qsizetype dot = trimmed.lastIndexOf(QLatin1Char('.'));
    // A leading dot names a hidden file, not an extension.
    if (dot <= slash + 1)
        return trimmed;
    return trimmed.left(dot);
}

QString PreviewPage::basePath(const QString &entryPath, const QString &entryExtension)
{
    QString base;
    if (entryExtension == kTextBundleExtension)
        base = deletingLastPathComponent(entryPath) + QLatin1Char('/');
    else
        base = deletingPathExtension(entryPath);
    return QString::fromLatin1(base.toUtf8().toPercentEncoding(kKeptInBase));
}

QUrl PreviewPage::baseUrl(const QString &escapedBasePath)
{
    return QUrl::fromEncoded(QByteArrayLiteral("file://") + escapedBasePath.toLatin1() + '/',
                             QUrl::TolerantMode);
}

QString PreviewPage::returnCSSStyleString(const UserDefaults &defaults, const QString &styleFolder)
{
    const QString name = defaults.value(Settings::SelectedCSSStyle);
    if (name.isEmpty())
        return QString();
    QFile file(styleFolder + name);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

QString PreviewPage::buildPage(const QString &convertedFragment, const QString &entryPath,
                               const UserDefaults &defaults, const QString &styleFolder)
{
    const QString base =
        basePath(entryPath, defaults.value(Settings::DefaultFileExtensionForEntries));
    return pageHtml(base, returnCSSStyleString(defaults, styleFolder), convertedFragment);
}

QUrl PreviewPage::baseUrlForEntry(const QString &entryPath, const UserDefaults &defaults)
{
    return baseUrl(basePath(entryPath, defaults.value(Settings::DefaultFileExtensionForEntries)));
}
