#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class TextEditorModel;

// Markup for the current language around the selection, from the shipped template table
// ("markup/markupLanguage.plist": language name -> {"bold", "italic", "headline": [4]}), and
// the two clean-ups of the editor's context menu.
class MarkupInsertion
{
public:
    // "markdown", "textile", "wikitext", "bbcode", "smark", "html", "multimarkdown": the
    // stored language number k names element k - 1.
    static QStringList availableMarkupLanguages();
    static QString templateTablePath();

    // The template of language (1-based, "TypographyUseMarkupLanguage") for "bold",
    // "italic", "headline1".."headline4"; "" for anything else (including "strike") and
    // whenever the table or entry is missing.
    static QString markupTemplateForType(const QString &type, int language);
    static QString markupTemplateForType(const QString &type, int language,
                                         const QString &tablePath);

    // Puts the template around the selection ("{*}" stands for the selected text). With
    // nothing selected the caret lands where the text goes; otherwise after the markup.
    static void performMarkupInsertion(TextEditorModel &model, const QString &templateText);
    static void insertBoldTypeStyle(TextEditorModel &model, int language);
    static void insertItalicTypeStyle(TextEditorModel &model, int language);
    // The table has no strike template: the command inserts the empty template.
    static void insertStrikeTypeStyle(TextEditorModel &model, int language);
    static void insertHeadlineStyleType(TextEditorModel &model, int language, int level);
    // "<X></X>" for the selection X, caret between the tags.
    static bool transformSelectedTextToTag(TextEditorModel &model);

    using Converter = std::function<QString(int language, const QString &text)>;
    // The selection converted to HTML with language and its tags stripped. A selection of
    // one unit or less, or a conversion that yields nothing, beeps.
    static bool removeMarkup(TextEditorModel &model, int language,
                             const Converter &converter = Converter());
    // Each line of the selection trimmed of spaces and tabs; beeps on one unit or less.
    static bool trimLines(TextEditorModel &model);

    // Tags removed with "<[^>]*>", then "&lt;" and "&gt;" decoded (nothing else).
    static QString strippedTags(const QString &html);
    static QString trimmedLines(const QString &text);
};
