#include "EditorLook.h"

#include "EnhancedTextView.h"
#include "InsertionPoint.h"
#include "LineNumberGutter.h"
#include "SpacedTextLayout.h"

#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QStyle>
#include <QTextDocument>
#include <QTextOption>
#include <cmath>

namespace {
QFont::StyleHint hintFor(const QString &family)
{
    // Names common in notebooks written elsewhere; fontconfig fills in the rest.
    static const QStringList mono = {QStringLiteral("menlo"),   QStringLiteral("monaco"),
                                     QStringLiteral("courier"), QStringLiteral("andale mono"),
                                     QStringLiteral("sf mono"), QStringLiteral("consolas")};
    static const QStringList serif = {QStringLiteral("times"),        QStringLiteral("georgia"),
                                      QStringLiteral("palatino"),     QStringLiteral("baskerville"),
                                      QStringLiteral("hoefler text"), QStringLiteral("cochin")};
    const QString name = family.toLower();
    for (const QString &m : mono)
        if (name.startsWith(m))
            return QFont::TypeWriter;
    for (const QString &s : serif)
        if (name.startsWith(s))
            return QFont::Serif;
    return QFont::SansSerif;
}
} // namespace

QFont EditorLook::font(const QString &family, int pointSize)
{
    QFont font(family);
    font.setStyleHint(hintFor(family));
    font.setPointSize(pointSize > 0 ? pointSize : 12);
    return font;
}

QCursor EditorLook::tintedIBeam(const QColor &color)
{
    const int w = 9;
    const int h = 18;
    QPixmap pixmap(w, h);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    const QColor halo =
        color.lightnessF() < 0.5 ? QColor(255, 255, 255, 200) : QColor(0, 0, 0, 160);
    const auto draw = [&p](const QColor &c, int width) {
        p.setPen(QPen(c, width, Qt::SolidLine, Qt::FlatCap));
        p.drawLine(QPointF(4.5, 2), QPointF(4.5, h - 2));
        p.drawLine(QPointF(1, 1.5), QPointF(8, 1.5));
        p.drawLine(QPointF(1, h - 1.5), QPointF(8, h - 1.5));
    };
    draw(halo, 3);
    draw(color, 1);
    p.end();
    return QCursor(pixmap, w / 2, h / 2);
}

void EditorLook::apply(EnhancedTextView &view, const EditorAppearance &a)
{
    const QFont textFont = font(a.fontFamily, a.fontSize);
    view.setFont(textFont);
    view.document()->setDefaultFont(textFont);

    QPalette palette = view.palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Text, a.textColor);
        palette.setColor(group, QPalette::Base, a.backgroundColor);
        palette.setColor(group, QPalette::Window, a.backgroundColor);
        const QPalette system = view.style()->standardPalette();
        palette.setColor(group, QPalette::Highlight,
                         a.useSelectionColor ? a.selectionColor
                                             : system.color(group, QPalette::Highlight));
        palette.setColor(group, QPalette::HighlightedText,
                         a.useSelectionColor ? a.textColor
                                             : system.color(group, QPalette::HighlightedText));
    }
    view.setPalette(palette);

    QTextOption option = view.document()->defaultTextOption();
    option.setAlignment(a.alignment());
    view.document()->setDefaultTextOption(option);
    view.document()->setDocumentMargin(a.padding());
    view.spacedLayout()->setSpacing({qreal(std::max(0, a.lineSpacing)), qreal(a.headIndent),
                                     qreal(std::max(0, a.paragraphSpacing))});

    view.setVerticalScrollBarPolicy(a.showScrollbars ? Qt::ScrollBarAsNeeded
                                                     : Qt::ScrollBarAlwaysOff);

    LineNumberGutter::Look gutter;
    gutter.background = a.darkDocument ? QColor(Qt::black) : a.backgroundColor.darker(106);
    gutter.numbers = a.gutterUsesTextFont
                         ? a.textColor
                         : (a.darkDocument ? QColor(0xa0, 0xa0, 0xa0) : QColor(0x80, 0x80, 0x80));
    gutter.font = a.gutterUsesTextFont ? textFont : font(a.fontFamily, std::max(8, a.fontSize - 2));
    gutter.thick = a.thickGutter;
    view.lineGutter()->setLook(gutter);
    view.setLineGutterVisible(a.showGutter);

    view.insertionPoint()->setShape(a.fontSize, a.blockCaret, a.tallCaret);
    view.insertionPoint()->setColor(a.caretColor());
    view.viewport()->setCursor(tintedIBeam(a.caretColor()));
    view.setCenterOnScroll(a.typewriterScrolling);
    view.viewport()->update();
}

// By whole lines until the caret line's top is at, or just below, the middle.
void EditorLook::bringCaretLineToMiddle(QPlainTextEdit &view)
{
    QScrollBar *bar = view.verticalScrollBar();
    const qreal middle = view.viewport()->height() / 2.0;
    for (int attempt = 0; attempt < 4; ++attempt) {
        const QRect caret = view.cursorRect();
        const qreal lineHeight = std::max(1, caret.height());
        const int lines = int(std::floor((caret.top() - middle) / lineHeight));
        if (lines == 0)
            break;
        const int before = bar->value();
        bar->setValue(before + lines);
        if (bar->value() == before)
            break;
    }
}
