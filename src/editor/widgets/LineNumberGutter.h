#pragma once

#include <QColor>
#include <QFont>
#include <QWidget>

class EnhancedTextView;

// The line-number gutter at the editor's left edge: one number per paragraph, drawn beside
// the paragraph's first line.
class LineNumberGutter : public QWidget
{
    Q_OBJECT
public:
    explicit LineNumberGutter(EnhancedTextView *view);

    struct Look
    {
        QColor background;
        QColor numbers;
        QFont font;
        bool thick = false;
    };
    void setLook(const Look &look);
    int preferredWidth() const;
    QSize sizeHint() const override { return QSize(preferredWidth(), 0); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    EnhancedTextView *m_view;
    Look m_look;
};
