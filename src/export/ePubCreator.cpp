#include "ePubCreator.h"

#include "ChildProcess.h"
#include "HtmlDocument.h"
#include "WorkingFiles.h"
#include "XhtmlCleaner.h"
#include "core/AppPaths.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QLocale>
#include <QRegularExpression>
#include <QUrl>
#include <QUuid>

namespace {

// The type a reading system is told, by what the file holds: an attachment whose extension
// claims another image type (or an image at all) would make the book invalid.
QString mediaTypeFor(const QString &path)
{
    const QByteArray format = QImageReader::imageFormat(path);
    if (format == "png")
        return QStringLiteral("image/png");
    if (format == "gif")
        return QStringLiteral("image/gif");
    if (format == "jpeg")
        return QStringLiteral("image/jpeg");
    return QString();
}

// A cover of another image type keeps the name "cover.jpg" but must then be a JPEG to be
// declared as one.
void storeCoverAsJpeg(const QString &from, const QString &to)
{
    QImageReader reader(from);
    if (reader.format() == "jpeg") {
        WorkingFiles::copy(from, to);
        return;
    }
    const QImage image = reader.read();
    if (image.isNull() || !image.convertToFormat(QImage::Format_RGB32).save(to, "JPEG", 90))
        WorkingFiles::copy(from, to);
}

// Empty metadata elements are not allowed in a package document.
QString withoutEmptyMetadata(const QString &opf)
{
    static const QRegularExpression empty(QStringLiteral("<dc:(\\w+)[^>]*>\\s*</dc:\\1>\\n?"));
    QString out = opf;
    out.remove(empty);
    return out;
}

QString defaultLanguage()
{
    const QString name = QLocale::system().bcp47Name();
    return (name.isEmpty() || name == QLatin1String("C")) ? QStringLiteral("en") : name;
}

} // namespace

ePubCreator::ePubCreator(const QString &applicationFolder, const CancelFlag &cancel)
    : ePubCreator(applicationFolder, cancel, Tools())
{}

ePubCreator::ePubCreator(const QString &applicationFolder, const CancelFlag &cancel,
                         const Tools &tools)
    : m_applicationFolder(applicationFolder)
    , m_cancel(cancel)
    , m_tools(tools)
{}

QString ePubCreator::bookFolder() const
{
    return m_applicationFolder + QStringLiteral("/temporaryFolder");
}

QString ePubCreator::bookFile() const
{
    return m_applicationFolder + QStringLiteral("/temp.epub");
}

QString ePubCreator::escapedForHTML(const QString &text)
{
    return HtmlDocument::escaped(text);
}

void ePubCreator::fill(QString &text, const QString &placeholder, const QString &value)
{
    text.replace(placeholder, value, Qt::CaseInsensitive);
}

QString ePubCreator::templateText(const QString &fileName) const
{
    const QString path = m_tools.templateFolder.isEmpty()
                             ? AppPaths::resource(QStringLiteral("export/") + fileName)
                             : m_tools.templateFolder + QLatin1Char('/') + fileName;
    return WorkingFiles::readUtf8(path);
}

QString ePubCreator::chapterBody(const QString &html, const QString &staging,
                                 const QStringList &attachments) const
{
    QString body = html;
    if (body.contains(QLatin1String("<body")) && body.contains(QLatin1String("</body>"))) {
        body.remove(0, body.indexOf(QLatin1String("<body")) + 5);
        const qsizetype end = body.indexOf(QLatin1String("</body>"));
        // Everything after the closing tag goes except the text's very last character.
        body.remove(end, body.size() - 1 - end);
        body.remove(0, body.indexOf(QLatin1Char('>')) + 1);
    }
    for (const QString &name : attachments)
        body.replace(name, QStringLiteral("images/files/%1").arg(name), Qt::CaseInsensitive);
    const QString chapters = QStringLiteral("file://%1/chapters").arg(staging);
    body.replace(QString::fromUtf8(QUrl::toPercentEncoding(chapters, "/:")),
                 QStringLiteral("images/files"), Qt::CaseInsensitive);
    body.replace(chapters, QStringLiteral("images/files"), Qt::CaseInsensitive);
    body.replace(QLatin1String("<br>"), QLatin1String("<br />"));
    static const QRegularExpression inlineStyle(QStringLiteral("\\sstyle=\"[^\"]*\""));
    body.remove(inlineStyle);
    return body;
}

bool ePubCreator::createEpubBook(const QString &staging, const QString &destination,
                                 const QMap<QString, QString> &details,
                                 const QStringList &fileOrder)
{
    Q_UNUSED(destination)
    m_problems.clear();
    m_chapters.clear();
    QMap<QString, QString> d;
    for (const char *key :
         {"title", "authorname", "authorforename", "isbn", "publishername", "publisherurl",
          "copyright", "subject", "description", "bookurl", "languagecode"}) {
        const QString name = QString::fromLatin1(key);
        d.insert(name, escapedForHTML(details.value(name)));
    }
    // A book needs an identifier and a language; the user may leave both empty.
    if (d.value(QStringLiteral("isbn")).trimmed().isEmpty())
        d[QStringLiteral("isbn")] =
            QStringLiteral("urn:uuid:") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (d.value(QStringLiteral("languagecode")).trimmed().isEmpty())
        d[QStringLiteral("languagecode")] = defaultLanguage();

    for (const QString &name : fileOrder) {
        const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
        const QString base = dot > 0 ? name.left(dot) : name;
        if (QFileInfo(staging + QLatin1Char('/') + base + QStringLiteral(".html")).isFile() &&
            !m_chapters.contains(base))
            m_chapters << base;
    }

    const QString b = bookFolder();
    QDir(b).removeRecursively();
    QDir().mkpath(b + QStringLiteral("/META-INF"));
    QDir().mkpath(b + QStringLiteral("/images/files"));
    WorkingFiles::writeUtf8(b + QStringLiteral("/mimetype"),
                            QStringLiteral("application/epub+zip"));
    WorkingFiles::writeUtf8(b + QStringLiteral("/META-INF/container.xml"),
                            templateText(QStringLiteral("containerTemplate.xml")));
    const QDir shared(staging + QStringLiteral("/completeAttachments"));
    const QStringList attachments = shared.entryList(QDir::Files, QDir::NoSort);
    for (const QString &item : attachments)
        WorkingFiles::copy(shared.filePath(item), b + QStringLiteral("/images/files/") + item);
    storeCoverAsJpeg(staging + QStringLiteral("/cover.jpg"),
                     b + QStringLiteral("/images/cover.jpg"));
    WorkingFiles::copy(staging + QStringLiteral("/css.css"), b + QStringLiteral("/styles.css"));
    WorkingFiles::writeUtf8(b + QStringLiteral("/CoverPage.html"),
                            templateText(QStringLiteral("CoverPageTemplate.html")));

    const QString tocTitle = QStringLiteral("Table of Contents");
    QString toc = templateText(QStringLiteral("tableOfConentsTemplate.html"));
    fill(toc, QStringLiteral("{*tableOfContentsTitle*}"), tocTitle);
    QString ncx = templateText(QStringLiteral("NCXFileTemplate.ncx"));
    fill(ncx, QStringLiteral("{*TitleOfBook*}"), d[QStringLiteral("title")]);
    fill(ncx, QStringLiteral("{*AuthorForename*}"), d[QStringLiteral("authorforename")]);
    fill(ncx, QStringLiteral("{*AuthorLastName*}"), d[QStringLiteral("authorname")]);
    fill(ncx, QStringLiteral("{*UUID*}"), d[QStringLiteral("isbn")]);
    fill(ncx, QStringLiteral("{*noticesNavMapReference*}"), QString());
    fill(ncx, QStringLiteral("{*tableOfContentsNavMapReference*}"),
         QStringLiteral("<navPoint id=\"tableOfContents\" playOrder=\"1\"><navLabel><text>%1"
                        "</text></navLabel><content src=\"TableOfContents.html\" /></navPoint>")
             .arg(tocTitle));
    QString opf = templateText(QStringLiteral("OPFFileTemplate.opf"));
    const QList<std::pair<const char *, const char *>> opfFields = {
        {"{*TitleOfBook*}", "title"},
        {"{*UsedLanguage*}", "languagecode"},
        {"{*UUID*}", "isbn"},
        {"{*URLOfPublisher*}", "publisherurl"},
        {"{*NameOfPublisher*}", "publishername"},
        {"{*AuthorLastName*}", "authorname"},
        {"{*AuthorForeName*}", "authorforename"},
        {"{*BookCopyRights*}", "copyright"},
        {"{*URLForBook*}", "bookurl"},
        {"{*BookDescription*}", "description"},
        {"{*BookGeneralSubject*}", "subject"}};
    for (const auto &[placeholder, key] : opfFields)
        fill(opf, QString::fromLatin1(placeholder), d[QString::fromLatin1(key)]);
    fill(opf, QStringLiteral("{*CreationTime*}"),
         QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")));
    fill(opf, QStringLiteral("{*noticesPageManifestRef*}"), QString());
    fill(opf, QStringLiteral("{*noticesPageSpineRef*}"), QString());
    fill(opf, QStringLiteral("{*tableOfContentsPageManifestRef*}"),
         QStringLiteral("<item id=\"tableOfContents\" href=\"TableOfContents.html\" "
                        "media-type=\"application/xhtml+xml\" />"));
    fill(opf, QStringLiteral("{*tableOfContentsPageSpineRef*}"),
         QStringLiteral("<itemref idref=\"tableOfContents\" />"));
    QString head = templateText(QStringLiteral("htmlHead.html"));
    if (!head.contains(QLatin1String("</title>"), Qt::CaseInsensitive)) {
        const qsizetype at = head.indexOf(QLatin1String("</head>"));
        if (at >= 0)
            head.replace(
                at, 7,
                QStringLiteral("\t\t<title>%1</title>\n\t</head>").arg(d[QStringLiteral("title")]));
    }

    QString navPoints, manifest, spine, listing;
    QStringList pages;
    int n = 2;
    for (const QString &chapter : std::as_const(m_chapters)) {
        const QString title = escapedForHTML(chapter);
        navPoints += QStringLiteral("<navPoint id=\"chapter%1\" playOrder=\"%1\">\n\t<navLabel>"
                                    "<text>%2</text></navLabel>\n\t<content src=\"%1.html\" />\n"
                                    "</navPoint>\n\n")
                         .arg(n)
                         .arg(title);
        manifest += QStringLiteral("<item id=\"chapter%1\" href=\"%1.html\" "
                                   "media-type=\"application/xhtml+xml\" />\n")
                        .arg(n);
        spine += QStringLiteral("<itemref idref=\"chapter%1\" />\n").arg(n);
        listing += QStringLiteral("\t\t<li><a href=\"%1.html\">%2</a></li>\n").arg(n).arg(title);
        const QString html =
            WorkingFiles::readUtf8(staging + QLatin1Char('/') + chapter + QStringLiteral(".html"));
        const QString page = head + QStringLiteral("\n<body>") +
                             chapterBody(html, staging, attachments) +
                             QStringLiteral("\n</body>\n</html>");
        pages << QStringLiteral("%1.html").arg(n);
        WorkingFiles::writeUtf8(b + QLatin1Char('/') + pages.last(), page);
        ++n;
    }
    fill(toc, QStringLiteral("{*tableOfContentsListing*}"), listing);
    WorkingFiles::writeUtf8(b + QStringLiteral("/TableOfContents.html"), toc);

    if (!tidyPages())
        return false;
    cleanPages(pages);

    int image = 1;
    for (const QString &item : attachments) {
        const QString type = mediaTypeFor(b + QStringLiteral("/images/files/") + item);
        if (type.isEmpty()) {
            // Only images are declared; anything else is left out of the book.
            QFile::remove(b + QStringLiteral("/images/files/") + item);
            continue;
        }
        manifest += QStringLiteral("<item id=\"image_%1\" href=\"images/files/%2\" "
                                   "media-type=\"%3\" />\n")
                        .arg(image++)
                        .arg(escapedForHTML(item), type);
    }
    fill(ncx, QStringLiteral("{*ChapterListing*}"), navPoints);
    WorkingFiles::writeUtf8(b + QStringLiteral("/book.ncx"), ncx);
    fill(opf, QStringLiteral("{*ManifestGuide*}"), manifest);
    fill(opf, QStringLiteral("{*SpineGuide*}"), spine);
    WorkingFiles::writeUtf8(b + QStringLiteral("/book.opf"), withoutEmptyMetadata(opf));

    if (!pack())
        return false;
    QFile::remove(bookFile());
    if (!QFile::rename(b + QStringLiteral("/temp.zip"), bookFile())) {
        m_problems << QStringLiteral("the book could not be written to %1").arg(bookFile());
        return false;
    }
    return true;
}

bool ePubCreator::tidyPages()
{
    if (!QFileInfo(m_tools.tidy).isExecutable()) {
        m_problems << QStringLiteral("tidy is missing (install the Debian package tidy)");
        return false;
    }
    const auto result = ChildProcess::run(
        m_tools.shell,
        {QStringLiteral("-c"),
         // tidy writes its report a character at a time, each one a wake-up for us through a
         // pipe: for a long book that took far longer than the tidying, and nobody reads it.
         QStringLiteral("%1 -asxhtml -m -w 50000 -i -utf8 *.html 2>/dev/null").arg(m_tools.tidy)},
        bookFolder(), m_cancel, 120000);
    // tidy answers 1 for warnings and 2 for errors, and leaves a page it cannot mend as it was.
    return result.outcome == ChildProcess::Finished;
}

void ePubCreator::cleanPages(const QStringList &pages)
{
    const QString b = bookFolder();
    XhtmlCleaner cleaner(
        [&](const QString &path) {
            static const QRegularExpression page(
                QStringLiteral("^(\\d+|TableOfContents|CoverPage)\\.html$"));
            return page.match(path).hasMatch() && QFileInfo::exists(b + QLatin1Char('/') + path);
        },
        [&](const QString &path) {
            const QString decoded = QUrl::fromPercentEncoding(path.toUtf8());
            return QFileInfo(b + QLatin1Char('/') + decoded).isFile() &&
                   !mediaTypeFor(b + QLatin1Char('/') + decoded).isEmpty();
        });
    for (const QString &page : pages + QStringList{QStringLiteral("TableOfContents.html"),
                                                   QStringLiteral("CoverPage.html")}) {
        const QString path = b + QLatin1Char('/') + page;
        QString problem;
        const QString cleaned = cleaner.clean(WorkingFiles::readUtf8(path), &problem);
        if (cleaned.isEmpty())
            m_problems << QStringLiteral("%1 could not be made valid XHTML: %2").arg(page, problem);
        else
            WorkingFiles::writeUtf8(path, cleaned);
    }
}

bool ePubCreator::pack()
{
    if (!QFileInfo(m_tools.zip).isExecutable()) {
        m_problems << QStringLiteral("zip is missing (install the Debian package zip)");
        return false;
    }
    const QString b = bookFolder();
    QFile::remove(b + QStringLiteral("/temp.zip"));
    const auto first = ChildProcess::run(
        m_tools.shell,
        {QStringLiteral("-c"), QStringLiteral("%1 -X0 -q temp.zip mimetype").arg(m_tools.zip)}, b,
        m_cancel, 120000);
    const auto rest = ChildProcess::run(
        m_tools.shell,
        {QStringLiteral("-c"),
         QStringLiteral("%1 -rDX9 -q temp.zip * -x .DS_Store -x mimetype").arg(m_tools.zip)},
        b, m_cancel, 600000);
    if (!first.ok() || !rest.ok()) {
        m_problems << QStringLiteral("zip could not pack the book: %1")
                          .arg(QString::fromLocal8Bit(first.errors + rest.errors).trimmed());
        return false;
    }
    return true;
}
