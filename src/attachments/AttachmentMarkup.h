#pragma once

#include <QString>

// The text an attachment dragged into an entry becomes, in the entry's markup language
// (1 Markdown, 2 Textile, 3 Wikitext, 4 BBCode, 5 Smark, 6 HTML, 7 MultiMarkdown). The
// prefix is the path from the entry's text to its attachments ("assets/" in a bundle).
namespace AttachmentMarkup {
QString forAttachment(int language, const QString &prefix, const QString &name);
} // namespace AttachmentMarkup
