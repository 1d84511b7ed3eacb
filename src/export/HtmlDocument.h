#pragma once

#include <QString>

// Turns staged texts into complete HTML documents for the converters and for HTML output.
namespace HtmlDocument {

// Plain text as HTML paragraphs: blank lines part paragraphs, single line feeds become line
// breaks, markup-sensitive characters are escaped. (Fed to a document converter as it is,
// plain text would come out in a typewriter font.)
QString paragraphsFromPlainText(const QString &text);

// A UTF-8 HTML document around a body fragment; a fragment that already is a document (it has
// an <html> element) is returned unchanged.
QString document(const QString &title, const QString &fragment);

// Every <img src="..."> that names a local file (relative to baseFolder, or a file: URL) is
// replaced by a data: URI of the file's bytes, so the document carries its images with it.
// Sources that are remote or name no existing file stay as written.
QString inlineImages(const QString &html, const QString &baseFolder);

// The text a reader sees in an HTML document, paragraphs kept apart by blank lines.
QString plainText(const QString &html);

// Escapes &, <, >, " and ' as named entities and leaves everything else as it is.
QString escaped(const QString &text);

} // namespace HtmlDocument
