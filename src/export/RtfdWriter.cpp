#include "RtfdWriter.h"

#include "HtmlDocument.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>
#include <QUrl>

RtfdWriter::RtfdWriter(const QString &workFolder)
    : m_workFolder(workFolder)
{
    QDir().mkpath(m_workFolder + QStringLiteral("/html"));
    QDir().mkpath(rtfFolder());
}

QString RtfdWriter::rtfFolder() const
{
    return m_workFolder + QStringLiteral("/rtf");
}

QString RtfdWriter::attachment(const QString &fileName, int widthTwips, int heightTwips)
{
    QString escaped = fileName;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('{'), QLatin1String("\\{"))
        .replace(QLatin1Char('}'), QLatin1String("\\}"));
    return QStringLiteral("{{\\NeXTGraphic %1 \\width%2 \\height%3 \\noorient}\\'ac}")
        .arg(escaped)
        .arg(widthTwips)
        .arg(heightTwips);
}

QString RtfdWriter::addDocument(const QString &name, const QString &htmlFragment,
                                const QString &attachmentFolder)
{
    static const QRegularExpression image(
        QStringLiteral("<img\\b[^>]*?\\bsrc\\s*=\\s*([\"'])([^\"']*)\\1[^>]*>"),
        QRegularExpression::CaseInsensitiveOption);
    Document document;
    document.name = name;
    QString html;
    qsizetype from = 0;
    auto it = image.globalMatch(htmlFragment);
    while (it.hasNext()) {
        const auto match = it.next();
        const QString source = match.captured(2);
        const QUrl url(source);
        const QString path =
            url.isLocalFile()
                ? url.toLocalFile()
                : QDir(attachmentFolder).filePath(QUrl::fromPercentEncoding(source.toUtf8()));
        if (!url.scheme().isEmpty() && !url.isLocalFile())
            continue;
        if (!QFileInfo(path).isFile())
            continue;
        const QString marker = QStringLiteral("VELLOXRTFDIMAGE%1X").arg(document.images.size() + 1);
        document.images.append({marker, path});
        html += QStringView(htmlFragment).mid(from, match.capturedStart() - from);
        html += marker;
        from = match.capturedEnd();
    }
    html += QStringView(htmlFragment).mid(from);
    const QString input = m_workFolder + QStringLiteral("/html/") + name + QStringLiteral(".html");
    QFile file(input);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(HtmlDocument::document(name, html).toUtf8());
    }
    m_documents.append(document);
    return input;
}

void RtfdWriter::writePackages(const QString &outputFolder) const
{
    for (const Document &document : m_documents) {
        QFile rtf(rtfFolder() + QLatin1Char('/') + document.name + QStringLiteral(".rtf"));
        if (!rtf.open(QIODevice::ReadOnly))
            continue;
        QString text = QString::fromLatin1(rtf.readAll());
        const QString package =
            outputFolder + QLatin1Char('/') + document.name + QStringLiteral(".rtfd");
        QDir(package).removeRecursively();
        QDir().mkpath(package);
        QStringList used;
        for (const Image &image : document.images) {
            QString fileName = QFileInfo(image.path).fileName();
            // Two images of one name from different entries must not overwrite each other.
            for (int n = 2; used.contains(fileName); ++n)
                fileName = QStringLiteral("%1_%2.%3")
                               .arg(QFileInfo(image.path).completeBaseName())
                               .arg(n)
                               .arg(QFileInfo(image.path).suffix());
            used << fileName;
            QFile::copy(image.path, package + QLatin1Char('/') + fileName);
            const QSize size = QImageReader(image.path).size();
            // Points of 72 per inch, 20 twips each.
            text.replace(image.marker, attachment(fileName, qMax(1, size.width()) * 20,
                                                  qMax(1, size.height()) * 20));
        }
        QFile out(package + QStringLiteral("/TXT.rtf"));
        if (out.open(QIODevice::WriteOnly)) {
            out.write(text.toLatin1());
        }
    }
}
