#include "HtmlDocument.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QTextDocument>
#include <QUrl>

namespace HtmlDocument {

QString escaped(const QString &text)
{
    QString out;
    out.reserve(text.size() + text.size() / 8);
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '&':
            out += QLatin1String("&amp;");
            break;
        case '<':
            out += QLatin1String("&lt;");
            break;
        case '>':
            out += QLatin1String("&gt;");
            break;
        case '"':
            out += QLatin1String("&quot;");
            break;
        case '\'':
            out += QLatin1String("&apos;");
            break;
        default:
            out += c;
        }
    }
    return out;
}

QString paragraphsFromPlainText(const QString &text)
{
    QString normalised = text;
    normalised.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    static const QRegularExpression blankLines(QStringLiteral("\\n[ \\t]*\\n+"));
    QString out;
    for (const QString &paragraph : normalised.split(blankLines, Qt::SkipEmptyParts)) {
        if (paragraph.trimmed().isEmpty())
            continue;
        qsizetype start = 0, end = paragraph.size();
        while (start < end && paragraph.at(start) == QLatin1Char('\n'))
            ++start;
        while (end > start && paragraph.at(end - 1) == QLatin1Char('\n'))
            --end;
        QString body = escaped(paragraph.mid(start, end - start));
        body.replace(QLatin1Char('\n'), QLatin1String("<br />\n"));
        out += QLatin1String("<p>") + body + QLatin1String("</p>\n");
    }
    return out;
}

QString document(const QString &title, const QString &fragment)
{
    static const QRegularExpression hasHtml(QStringLiteral("<html[\\s>]"),
                                            QRegularExpression::CaseInsensitiveOption);
    if (hasHtml.match(fragment).hasMatch())
        return fragment;
    return QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\" />"
                          "<title>%1</title></head>\n<body>\n")
               .arg(escaped(title)) +
           fragment + QStringLiteral("\n</body></html>\n");
}

QString inlineImages(const QString &html, const QString &baseFolder)
{
    static const QRegularExpression image(
        QStringLiteral("(<img\\b[^>]*?\\bsrc\\s*=\\s*)([\"'])([^\"']*)\\2"),
        QRegularExpression::CaseInsensitiveOption);
    static const QMimeDatabase mimes;
    QString out;
    qsizetype from = 0;
    auto it = image.globalMatch(html);
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        const QString source = match.captured(3);
        const QUrl url(source);
        QString path;
        if (url.isLocalFile())
            path = url.toLocalFile();
        else if (url.scheme().isEmpty() && !source.isEmpty())
            path = QDir(baseFolder).filePath(QUrl::fromPercentEncoding(source.toUtf8()));
        QFile file(path);
        if (path.isEmpty() || !QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
            continue;
        const QString type = mimes.mimeTypeForFile(path).name();
        out += QStringView(html).mid(from, match.capturedStart(3) - from);
        out += QStringLiteral("data:%1;base64,").arg(type) +
               QString::fromLatin1(file.readAll().toBase64());
        from = match.capturedEnd(3);
    }
    out += QStringView(html).mid(from);
    return out;
}

QString plainText(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText();
}

} // namespace HtmlDocument
