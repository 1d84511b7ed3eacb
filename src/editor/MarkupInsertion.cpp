#include "MarkupInsertion.h"

#include "TextClasses.h"
#include "TextEditorModel.h"
#include "core/AppPaths.h"
#include "core/PropertyList.h"
#include "core/RegexCache.h"

#if __has_include("render/TaskController.h")
#include "render/TaskController.h"
#define VELLOX_HAS_CONVERTER 1
#endif

#include <QVariantMap>

namespace {
const QString kPlaceholder = QStringLiteral("{*}");
}

QStringList MarkupInsertion::availableMarkupLanguages()
{
    return {QStringLiteral("markdown"),     QStringLiteral("textile"), QStringLiteral("wikitext"),
            QStringLiteral("bbcode"),       QStringLiteral("smark"),   QStringLiteral("html"),
            QStringLiteral("multimarkdown")};
}

QString MarkupInsertion::templateTablePath()
{
    return AppPaths::resource(QStringLiteral("markup/markupLanguage.plist"));
}

QString MarkupInsertion::markupTemplateForType(const QString &type, int language)
{
    return markupTemplateForType(type, language, templateTablePath());
}

QString MarkupInsertion::markupTemplateForType(const QString &type, int language,
                                               const QString &tablePath)
{
    const QStringList names = availableMarkupLanguages();
    if (language < 1 || language > names.size() || tablePath.isEmpty())
        return QString();
    const QVariantMap entry =
        PropertyList::read(tablePath).toMap().value(names.at(language - 1)).toMap();
    if (type == u"bold" || type == u"italic")
        return entry.value(type).toString();
    static const QStringList headlines = {QStringLiteral("headline1"), QStringLiteral("headline2"),
                                          QStringLiteral("headline3"), QStringLiteral("headline4")};
    const qsizetype level = headlines.indexOf(type);
    if (level >= 0)
        return entry.value(QStringLiteral("headline")).toList().value(level).toString();
    return QString();
}

void MarkupInsertion::performMarkupInsertion(TextEditorModel &model, const QString &templateText)
{
    if (!model.isEditable())
        return;
    const TextRange s = model.selectedRange();
    const QString selected = model.buffer().mid(s.location, s.length);
    QString result = templateText;
    result.replace(kPlaceholder, selected);
    const qsizetype placeholderAt = templateText.indexOf(kPlaceholder);
    const int caret = selected.isEmpty() && placeholderAt >= 0 ? s.location + int(placeholderAt)
                                                               : s.location + int(result.size());
    model.performEdit(s, result, QStringLiteral("UNDO_SET_BOLD"), TextRange{caret, 0});
    model.scrollSelectionToVisible();
}

void MarkupInsertion::insertBoldTypeStyle(TextEditorModel &model, int language)
{
    performMarkupInsertion(model, markupTemplateForType(QStringLiteral("bold"), language));
}

void MarkupInsertion::insertItalicTypeStyle(TextEditorModel &model, int language)
{
    performMarkupInsertion(model, markupTemplateForType(QStringLiteral("italic"), language));
}

void MarkupInsertion::insertStrikeTypeStyle(TextEditorModel &model, int language)
{
    performMarkupInsertion(model, markupTemplateForType(QStringLiteral("strike"), language));
}

void MarkupInsertion::insertHeadlineStyleType(TextEditorModel &model, int language, int level)
{
    const QString type =
        level >= 1 && level <= 4 ? QStringLiteral("headline%1").arg(level) : QString();
    performMarkupInsertion(model, markupTemplateForType(type, language));
}

bool MarkupInsertion::transformSelectedTextToTag(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length == 0 || !model.isEditable())
        return false;
    const QString tag = model.buffer().mid(s.location, s.length);
    const QString result = u'<' + tag + QStringLiteral("></") + tag + u'>';
    const int caret = s.location + int(result.size()) - 3 - int(tag.size());
    // Registered like every other edit so the history stays in step with the text.
    model.performEdit(s, result, QStringLiteral("UNDO_TEXT_ACTION"), TextRange{caret, 0});
    return true;
}

QString MarkupInsertion::strippedTags(const QString &html)
{
    QString text = RegexCache::shared().replaceAll(QStringLiteral("<[^>]*>"), html, QString());
    text.replace(QStringLiteral("&lt;"), QStringLiteral("<"));
    text.replace(QStringLiteral("&gt;"), QStringLiteral(">"));
    return text;
}

bool MarkupInsertion::removeMarkup(TextEditorModel &model, int language, const Converter &converter)
{
    const TextRange s = model.selectedRange();
    if (s.length <= 1 || !model.isEditable()) {
        model.beep();
        return false;
    }
    const QString selected = model.buffer().mid(s.location, s.length);
    QString html;
    if (converter)
        html = converter(language, selected);
#ifdef VELLOX_HAS_CONVERTER
    else
        html = TaskController::convertStringWithMarkUpLanguage(language, selected);
#endif
    // A converter that failed answers "": keep the user's text rather than erase it.
    if (html.isEmpty() && !TextClasses::trimmedBlanks(selected).isEmpty()) {
        model.beep();
        return false;
    }
    const QString result = strippedTags(html);
    model.undoCustomInsertionInRange(s, result, TextRange{s.location, int(result.size())});
    return true;
}

QString MarkupInsertion::trimmedLines(const QString &text)
{
    QStringList lines = text.split(u'\n');
    for (QString &line : lines)
        line = TextClasses::trimmedWhitespace(line);
    return lines.join(u'\n');
}

bool MarkupInsertion::trimLines(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length <= 1 || !model.isEditable()) {
        model.beep();
        return false;
    }
    const QString result = trimmedLines(model.buffer().mid(s.location, s.length));
    model.undoCustomInsertionInRange(s, result, TextRange{s.location, int(result.size())});
    return true;
}
