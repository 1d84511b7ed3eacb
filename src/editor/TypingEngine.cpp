#include "TypingEngine.h"

#include "ListNumbering.h"
#include "TextClasses.h"
#include "TextEditorModel.h"
#include "core/RegexCache.h"

#include <QStringList>

using namespace TextClasses;

namespace {
const QString kQuote = QStringLiteral("\"");
const QString kMarkPoint = QStringLiteral("{* MarkPoint *}");
const QString kCaretMark = QStringLiteral("{*}");

QString firstWord(const QString &text)
{
    return splitAtWhitespace(text).constFirst();
}

QString numberPart(const QString &word)
{
    QString part = word;
    part.remove(u'.');
    return part;
}

// The leading digits as a 32-bit integer (0 if none), saturating like a C library read.
int leadingInteger(const QString &text)
{
    qint64 value = 0;
    for (QChar c : text) {
        if (c < u'0' || c > u'9')
            break;
        value = std::min<qint64>(value * 10 + (c.unicode() - u'0'), 2147483647);
    }
    return int(value);
}

int plusOne(int value)
{
    return int(quint32(value) + 1u);
}
} // namespace

void TypingEngine::setQuoteTags(const QString &openTag, const QString &closeTag)
{
    m_openTag = openTag;
    m_closeTag = closeTag;
}

QPair<QString, QString> TypingEngine::quoteTagsForStyle(int style)
{
    switch (style) {
    case 1:
        return {QStringLiteral("\u201E"), QStringLiteral("\u201D")};
    case 2:
        return {QStringLiteral("\u201E"), QStringLiteral("\u201C")};
    case 3:
        return {QStringLiteral("\u201C"), QStringLiteral("\u201D")};
    case 4:
        return {QStringLiteral("\u201D"), QStringLiteral("\u201D")};
    case 5:
        return {QStringLiteral("\u201D"), QStringLiteral("\u201C")};
    case 6:
        return {QStringLiteral("\u2018"), QStringLiteral("\u2019")};
    case 7:
        return {QStringLiteral("\u00AB"), QStringLiteral("\u00BB")};
    case 8:
        return {QStringLiteral("\u00BB"), QStringLiteral("\u00AB")};
    case 9:
        return {QStringLiteral("\u00AB\u2005"), QStringLiteral("\u2005\u00BB")};
    case 10:
        return {QStringLiteral("\u300C"), QStringLiteral("\u300D")};
    default:
        return {kQuote, kQuote};
    }
}

void TypingEngine::setOptions(const Options &options)
{
    m_options = options;
    const auto tags = quoteTagsForStyle(options.quoteStyle);
    setQuoteTags(tags.first, tags.second);
}

TypingEngine::ListMarker TypingEngine::listMarkerForLine(const QString &line)
{
    ListMarker marker;
    const QString bullet = trimmedWhitespace(firstWord(trimmedWhitespace(line)));
    if (bullet == u"*" || bullet == u"+" || bullet == u"-") {
        marker.isList = true;
        marker.current = marker.next = bullet + u' ';
        return marker;
    }

    RegexCache &regex = RegexCache::shared();
    const QString word = firstWord(line);
    marker.current = word + u' ';
    if (regex.matchesAtStart(QStringLiteral("[MCDXILV]{1,} "), line)) {
        marker.next =
            ListNumbering::convertToRoman(plusOne(ListNumbering::convertToNormal(word + u' '))) +
            u' ';
    } else if (regex.matchesAtStart(QStringLiteral("[mcdxilv]{1,} "), line)) {
        marker.next = ListNumbering::convertToRoman(
                          plusOne(ListNumbering::convertToNormal(word.toUpper() + u' ')))
                          .toLower() +
                      u' ';
    } else if (regex.matchesAtStart(QStringLiteral("[0-9]{1,}\\. "), line)) {
        marker.next = QString::number(plusOne(leadingInteger(numberPart(word)))) + u". ";
    } else if (regex.matchesAtStart(QStringLiteral("[A-Z]{1,}\\. "), line)) {
        marker.next = ListNumbering::convertIntValueToAlphaCount(
                          plusOne(ListNumbering::convertAlphaCountToNormal(numberPart(word)))) +
                      u". ";
    } else if (regex.matchesAtStart(QStringLiteral("[a-z]{1,}\\. "), line)) {
        marker.next =
            ListNumbering::convertIntValueToAlphaCount(
                plusOne(ListNumbering::convertAlphaCountToNormal(numberPart(word).toUpper())))
                .toLower() +
            u". ";
    } else {
        marker.current.clear();
        return marker;
    }
    marker.isList = true;
    return marker;
}

bool TypingEngine::shouldChangeTextInRange(TextEditorModel &model, TextRange affected,
                                           const QString &replacement)
{
    model.scheduleChangeNotice();

    if (replacement.size() >= 2 || containsLetter(replacement))
        return true;

    if (containsNewline(replacement)) {
        if (!handleNewline(model, affected))
            return false;
    } else if (replacement == u"\t") {
        if (!handleTab(model, affected))
            return false;
    }
    if (!handlePairing(model, affected, replacement))
        return false;
    if (replacement == kQuote && m_openTag != kQuote)
        return handleQuote(model);

    if (containsBlank(replacement))
        model.scheduleCountUpdate();
    return true;
}

bool TypingEngine::handleNewline(TextEditorModel &model, TextRange affected)
{
    TextBuffer &buffer = model.buffer();
    const int L = affected.location;
    const int N = affected.length;
    const int start = buffer.lineStart(L);
    const QString line = buffer.mid(start, L - start);
    const ListMarker marker = listMarkerForLine(line);

    if (marker.isList && trimmedBlanks(line) == trimmedWhitespace(marker.current)) {
        // The item holds nothing but its marker: the list ends here. The marker always lies
        // on this line; a bullet that lost its trailing space is removed on its own.
        QString removed = marker.current;
        qsizetype found = line.lastIndexOf(removed);
        if (found < 0) {
            removed = trimmedWhitespace(marker.current);
            found = line.lastIndexOf(removed);
        }
        const int location = start + int(found);
        TextEditorModel::Step step(model);
        model.setUndoActionName(QStringLiteral("UNDO_TEXT_ACTION"));
        model.replaceCharactersInRange({location, int(removed.size())}, QStringLiteral("\n"));
        model.scrollSelectionToVisible();
        return false;
    }

    qsizetype tabs = 0;
    while (tabs < line.size() && line.at(tabs) == u'\t')
        ++tabs;
    const QString continuation = line.left(tabs) + marker.next;
    if (continuation.isEmpty())
        return true;

    const QString inserted = u'\n' + continuation;
    // The step records the replaced selection exactly, so Undo brings all of it back.
    TextEditorModel::Step step(model);
    model.setUndoActionName(QStringLiteral("UNDO_TEXT_ACTION"));
    model.replaceCharactersInRange({L, N}, inserted);
    model.scrollSelectionToVisible();
    return false;
}

bool TypingEngine::handleTab(TextEditorModel &model, TextRange affected)
{
    TextBuffer &buffer = model.buffer();
    const TextRange selection = model.selectedRange();
    if (selection.length > 0) {
        const QString old = buffer.mid(selection.location, selection.length);
        const QStringList pieces = splitAtNewlines(old);
        QString indented;
        for (qsizetype i = 0; i + 1 < pieces.size(); ++i)
            indented += u'\t' + pieces.at(i) + u'\n';
        if (!pieces.constLast().isEmpty())
            indented += u'\t' + pieces.constLast();
        TextEditorModel::Step step(model);
        model.setUndoActionName(QStringLiteral("UNDO_INDENTION_CHANGE"));
        model.replaceCharactersInRange(selection, indented);
        model.setSelectedRange({affected.location, int(indented.size())});
        return false;
    }

    const int L = affected.location;
    int from = L;
    while (from > 0 && !isBlank(buffer.at(from - 1)))
        --from;
    const QString abbreviation = buffer.mid(from, L - from);
    if (abbreviation.isEmpty())
        return true;
    const QVariantMap actions = model.availableTabActions();
    const auto entry = actions.constFind(abbreviation);
    if (entry == actions.constEnd())
        return true;

    QString expansion = entry->toString();
    const int start = selection.location - int(abbreviation.size());
    const qsizetype markAt = expansion.indexOf(kCaretMark);
    if (markAt >= 0)
        expansion.replace(markAt, kCaretMark.size(), kMarkPoint);
    TextEditorModel::Step step(model);
    model.setUndoActionName(QStringLiteral("UNDO_TAB_ACTION"));
    model.replaceCharactersInRange({start, int(abbreviation.size())}, expansion);
    if (markAt >= 0)
        model.setSelectedRange({start + int(markAt), int(kMarkPoint.size())});
    return false;
}

bool TypingEngine::handlePairing(TextEditorModel &model, TextRange affected,
                                 const QString &replacement)
{
    if (!m_options.autoPairBraces)
        return true;
    TextBuffer &buffer = model.buffer();
    const TextRange selection = model.selectedRange();
    const bool beforeEnd = selection.location < buffer.length();

    if (beforeEnd && !isBlank(buffer.at(selection.location))) {
        if (affected.length == 0)
            return true;
        QString wrapped;
        const QString old = buffer.mid(affected.location, affected.length);
        if (replacement == u"<")
            wrapped = u'<' + old + u'>';
        else if (replacement == u"(")
            wrapped = u'(' + old + u')';
        else if (replacement == u"{")
            wrapped = u'{' + old + u'}';
        else if (replacement == u"[")
            wrapped = u'[' + old + u']';
        else if (replacement == kQuote)
            wrapped = m_openTag + old + m_closeTag;
        else
            return true;
        // Recorded as replaced, so the two-unit marks of quote style 9 undo cleanly too.
        TextEditorModel::Step step(model);
        model.setUndoActionName(QStringLiteral("UNDO_TEXT_ACTION"));
        model.replaceCharactersInRange(affected, wrapped);
        return false;
    }

    QString pair;
    if (replacement == u"<")
        pair = QStringLiteral("<>");
    else if (replacement == u"(")
        pair = QStringLiteral("()");
    else if (replacement == u"{")
        pair = QStringLiteral("{}");
    else if (replacement == u"[")
        pair = QStringLiteral("[]");
    else if (replacement == kQuote &&
             (selection.location == 0 || isBlank(buffer.at(selection.location - 1))))
        pair = m_openTag + m_closeTag;
    else
        return true;
    model.insertText(pair);
    const TextRange after = model.selectedRange();
    model.setSelectedRange({after.location - 1, 0});
    return false;
}

bool TypingEngine::handleQuote(TextEditorModel &model)
{
    TextBuffer &buffer = model.buffer();
    const int location = model.selectedRange().location;
    QString mark = m_openTag;
    if (buffer.length() > 0) {
        const QChar before = buffer.at(location > 0 ? location - 1 : 0);
        if (!isBlank(before) && before != m_closeTag.at(0) && location != 0)
            mark = m_closeTag;
    }
    model.insertText(mark);
    return false;
}
