#pragma once

#include "TextBuffer.h"

#include <QPair>
#include <QString>

class TextEditorModel;

// The editor's change filter. Every user edit is offered to shouldChangeTextInRange(),
// which either lets it through or makes an edit of its own (list continuation, indentation,
// tab-action expansion, bracket pairing, typographic quotes) and refuses the user's edit.
// It only reads the caret's line and the characters next to the selection.
class TypingEngine
{
public:
    // What the user chose in the preferences ("TypographyAutoPairBraces",
    // "TypographyUseQuoteStyle"); the editor hands them over whenever they change.
    struct Options
    {
        bool autoPairBraces = false;
        int quoteStyle = 0; // 1..10 pick a typographic pair, anything else the plain mark
    };

    // The marker of a list line: the marker the next item gets and the one this line has.
    struct ListMarker
    {
        bool isList = false;
        QString next;    // M
        QString current; // K
    };

    // Returns true to let the edit through, false when an edit of its own was made instead.
    bool shouldChangeTextInRange(TextEditorModel &model, TextRange affected,
                                 const QString &replacement);

    // The list a line (the part before the caret) belongs to: bullets "*", "+", "-", then
    // upper and lower roman, decimal, upper and lower letters, tested in that order.
    static ListMarker listMarkerForLine(const QString &line);

    Options options() const { return m_options; }
    void setOptions(const Options &options);
    QString openTag() const { return m_openTag; }
    QString closeTag() const { return m_closeTag; }
    void setQuoteTags(const QString &openTag, const QString &closeTag);
    static QPair<QString, QString> quoteTagsForStyle(int style);

private:
    bool handleNewline(TextEditorModel &model, TextRange affected);
    bool handleTab(TextEditorModel &model, TextRange affected);
    bool handlePairing(TextEditorModel &model, TextRange affected, const QString &replacement);
    bool handleQuote(TextEditorModel &model);

    Options m_options;
    QString m_openTag = QStringLiteral("\"");
    QString m_closeTag = QStringLiteral("\"");
};
