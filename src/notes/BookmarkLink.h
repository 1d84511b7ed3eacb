#pragma once

#include <QString>

// A link that the browser bookmarklet opens to hand a page over as a quick note:
//
//   x-velloxBookmarkNote:<encoding>VelloxImportSeperator<unused>VelloxImportSeperator
//       <page address, percent-encoded>VelloxImportSeperator<selected text, percent-encoded>
//
// The separator's spelling is part of the format that existing bookmarklets produce.
class BookmarkLink
{
public:
    enum class Status {
        Ok,
        NotOurScheme,  // not an "x-velloxBookmarkNote:" link at all
        MissingFields, // fewer than four fields, or a first field too short to hold a name
        Undecodable,   // the text's escapes decode in neither encoding
    };

    static const QString Scheme;
    static const QString Separator;

    // Any case of the scheme: scheme names are case-insensitive.
    static bool hasScheme(const QString &link);
    static BookmarkLink parse(const QString &link);

    Status status() const { return m_status; }
    bool isValid() const { return m_status == Status::Ok; }
    QString address() const { return m_address; }
    QString text() const { return m_text; }

private:
    Status m_status = Status::NotOurScheme;
    QString m_address;
    QString m_text;
};
