#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class UserDefaults;

// The editor's look as the settings describe it, read in one go so that applying it never
// mixes values from before and after a change.
struct EditorAppearance
{
    QColor textColor;
    QColor backgroundColor;
    QColor selectionColor;
    bool useSelectionColor = false;
    QString fontFamily;
    int fontSize = 12;
    int alignmentCode = 0;
    int lineSpacing = 0;
    int headIndent = 0;
    int paragraphSpacing = 0;
    int margin = 0;
    bool blockCaret = false;
    bool tallCaret = false;
    bool caretColorChosen = false;
    QColor chosenCaretColor;
    bool showScrollbars = false;
    bool darkDocument = false;
    bool showGutter = false;
    bool gutterUsesTextFont = false;
    bool thickGutter = false;
    bool typewriterScrolling = false;

    static EditorAppearance from(const UserDefaults &defaults);

    // Left and right padding of the text lines; a negative setting counts as none.
    int padding() const { return margin < 0 ? 0 : margin; }
    // The chosen caret colour only when asked for; otherwise the caret wears the text colour.
    QColor caretColor() const { return caretColorChosen ? chosenCaretColor : textColor; }
    // Alignment codes count left, right, centre, justified, natural; unknown codes are natural.
    Qt::Alignment alignment() const;

    // The caret as drawn: the toolkit's caret rectangle with its height capped at the font
    // size plus two points, then widened to a block (half the height) and lengthened by half,
    // reaching up by a quarter of the new height, as the settings ask.
    static QRectF insertionPointRect(const QRectF &caret, int fontSize, bool block, bool tall);
};
