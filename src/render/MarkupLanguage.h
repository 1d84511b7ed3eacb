#pragma once

#include <QString>
#include <QStringList>

class UserDefaults;

// The one table of the seven markup languages. Numbers are 1-based as stored under
// "TypographyUseMarkupLanguage"; numbers outside 1..7 are kept as stored and every lookup
// copes with them.
namespace MarkupLanguage {

enum Number { Markdown = 1, Textile, Wikitext, BBCode, Smark, HTML, MultiMarkdown };

constexpr int Count = 7;
constexpr int MenuTagBase = 900;

// Element 0 is "" so the stored number indexes it directly.
const QStringList &displayNames();
// 0-based lists, indexed with number - 1.
const QStringList &textBundleExtensions();
const QStringList &typeIdentifiers();
const QStringList &keyWords();
const QStringList &selectionKeys();

QString displayName(int number);
// Out-of-range numbers are clamped to 1 for the 0-based lists.
QString textBundleExtension(int number);
QString typeIdentifier(int number);
// The converter script's name; numbers the table does not list use Smark's.
QString converterKeyWord(int number);
// "**%@**" etc. with %@ replaced by title; 0 gives the bare title, other unknowns "".
QString boldTitle(int number, const QString &title);
int menuTag(int number);

// The language a TextBundle's "type" names.
int languageForTextBundleType(const QString &type);

// The stored language (not validated).
int current(const UserDefaults &defaults);
// Stores the choice of the menu item with this tag: every selection flag false, the number
// as tag - 900 (unchecked), and the chosen flag as the string "selected".
void select(UserDefaults &defaults, int tag);

} // namespace MarkupLanguage
