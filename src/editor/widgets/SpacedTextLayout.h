#pragma once

#include <QPlainTextDocumentLayout>

// The plain-text layout with paragraph spacing, line spacing and a first-line indent, which
// the stock one ignores. Blocks are first laid out by the stock rules and then redone here;
// a block whose lines do not sit where these rules put them is redone when next measured.
class SpacedTextLayout : public QPlainTextDocumentLayout
{
    Q_OBJECT
public:
    struct Spacing
    {
        qreal lineSpacing = 0;      // added below every line
        qreal firstLineIndent = 0;  // the first line of every paragraph starts this far in
        qreal paragraphSpacing = 0; // above every paragraph
        bool operator==(const Spacing &) const = default;
    };

    explicit SpacedTextLayout(QTextDocument *document);

    Spacing spacing() const { return m_spacing; }
    // Lays the whole document out again when the spacing changed.
    void setSpacing(const Spacing &spacing);

    QRectF blockBoundingRect(const QTextBlock &block) const override;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    bool isSpaced() const { return !(m_spacing == Spacing()); }
    bool laidOutHere(const QTextBlock &block) const;
    void layoutSpaced(const QTextBlock &block) const;

    Spacing m_spacing;
};
