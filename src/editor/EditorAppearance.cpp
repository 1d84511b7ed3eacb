#include "EditorAppearance.h"

#include "core/UserDefaults.h"

EditorAppearance EditorAppearance::from(const UserDefaults &d)
{
    EditorAppearance a;
    a.textColor = d.value(Settings::TextViewFontColor);
    a.backgroundColor = d.value(Settings::TextViewBackgroundColor);
    a.selectionColor = d.value(Settings::TextViewSelectedColor);
    a.useSelectionColor = d.value(Settings::EditorSelectedTextColorActive) != 0;
    a.fontFamily = d.value(Settings::TextViewFontStyle);
    a.fontSize = d.value(Settings::TextViewFontSize);
    if (a.fontSize <= 0)
        a.fontSize = 12;
    a.alignmentCode = d.value(Settings::TextViewTextAlignment);
    a.lineSpacing = d.value(Settings::TextViewLineSpacing);
    a.headIndent = d.value(Settings::TextViewHeadlineIndention);
    a.paragraphSpacing = d.value(Settings::TextViewParagraphSpacing);
    a.margin = d.value(Settings::TextViewMarginSpacing);
    a.blockCaret = d.value(Settings::TextViewCursorWidth) != 0;
    a.tallCaret = d.value(Settings::TextViewCursorHeigth) != 0;
    a.caretColorChosen = d.value(Settings::TextViewCursorColorChoose) == 1;
    a.chosenCaretColor = d.value(Settings::TextViewCursorColorSelection);
    a.showScrollbars = d.value(Settings::TextViewShowScrollbars) != 0;
    a.darkDocument = d.value(Settings::UseBlackDocument);
    a.showGutter = d.value(Settings::EditorShowLineGutters) != 0;
    a.gutterUsesTextFont = d.value(Settings::EditorLineGutterColorFontSameAsText) != 0;
    a.thickGutter = d.value(Settings::PrefsThinThickLineGutters);
    a.typewriterScrolling = d.value(Settings::TextViewUseTypeWriterScrolling) != 0;
    return a;
}

Qt::Alignment EditorAppearance::alignment() const
{
    switch (alignmentCode) {
    case 0:
        return Qt::AlignLeft;
    case 1:
        return Qt::AlignRight;
    case 2:
        return Qt::AlignHCenter;
    case 3:
        return Qt::AlignJustify;
    default:
        // Natural: follows the writing direction of each paragraph.
        return Qt::AlignLeading;
    }
}

QRectF EditorAppearance::insertionPointRect(const QRectF &caret, int fontSize, bool block,
                                            bool tall)
{
    QRectF r = caret;
    const qreal h = std::min<qreal>(r.height(), fontSize + 2);
    r.setHeight(h);
    if (block)
        r.setWidth(0.5 * h);
    if (tall) {
        const qreal longer = 1.5 * h;
        r.setHeight(longer);
        r.moveTop(r.top() - longer / 4);
    }
    return r;
}
