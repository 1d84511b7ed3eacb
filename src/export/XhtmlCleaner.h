#pragma once

#include <QSet>
#include <QString>

#include <functional>

// Rewrites a tidied page into the XHTML 1.1 an EPUB 2 reading system (and epubcheck) accepts:
// HTML5 sectioning elements become div, u and mark become span, task-list check boxes become
// the ballot-box characters, inline content directly inside body or blockquote is put in a
// paragraph, ids become XML names, attributes outside XHTML 1.1 go, and links or images that
// point at nothing inside the book are unwrapped or replaced by their alternative text.
class XhtmlCleaner
{
public:
    // Answers whether a relative address names a file of the book that may be linked
    // (pages) or shown (images).
    using Exists = std::function<bool(const QString &relativePath)>;

    XhtmlCleaner(Exists pageExists, Exists imageExists);

    // The cleaned page, or an empty text when the input is not well-formed XML.
    QString clean(const QString &page, QString *problem = nullptr);

    // An id or fragment made into an XML name without colons.
    static QString xmlName(const QString &id);
    // Named HTML entities other than XML's five become the characters they stand for.
    static QString resolveNamedEntities(const QString &text);

private:
    Exists m_pageExists;
    Exists m_imageExists;
};
