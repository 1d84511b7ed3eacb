#pragma once

#include "editor/StringTextBuffer.h"
#include "editor/TextEditorModel.h"

#include <QString>
#include <QVariantMap>

#include <memory>

// Texts with their selection written inline: "|" is the caret, "⟦" and "⟧" bound a
// selection. Lets each case read like what the user sees.
struct Marked
{
    QString text;
    TextRange selection;

    static Marked parse(const QString &marked)
    {
        Marked m;
        int start = -1;
        int end = -1;
        for (QChar c : marked) {
            if (c == u'|') {
                start = end = int(m.text.size());
            } else if (c == u'⟦') {
                start = int(m.text.size());
            } else if (c == u'⟧') {
                end = int(m.text.size());
            } else {
                m.text += c;
            }
        }
        if (start < 0)
            start = end = int(m.text.size());
        m.selection = {start, end - start};
        return m;
    }

    static QString render(const QString &text, TextRange selection)
    {
        QString out = text;
        if (selection.length == 0) {
            out.insert(selection.location, u'|');
        } else {
            out.insert(selection.end(), u'⟧');
            out.insert(selection.location, u'⟦');
        }
        return out;
    }
};

inline QString marked(const TextEditorModel &m)
{
    return Marked::render(m.string(), m.selectedRange());
}

// Backspace as the key does it: the selection, or the character before the caret.
inline void backspace(TextEditorModel &m)
{
    const TextRange s = m.selectedRange();
    m.userEdit(s.length ? s : TextRange{s.location - 1, 1}, QString());
}

// A model over a plain string, with counters for what it asks its view to do.
class StringEditor
{
public:
    explicit StringEditor(const QString &marked, QVariantMap tabActions = QVariantMap(),
                          TypingEngine::Options options = {})
    {
        const Marked m = Marked::parse(marked);
        model = std::make_unique<TextEditorModel>(
            std::make_unique<StringTextBuffer>(m.text, m.selection));
        model->setTabActionProvider([tabActions] { return tabActions; });
        model->engine().setOptions(options);
        QObject::connect(model.get(), &TextEditorModel::beepRequested, [this] { ++beeps; });
        QObject::connect(model.get(), &TextEditorModel::changeNoticeRequested,
                         [this] { ++notices; });
        QObject::connect(model.get(), &TextEditorModel::countUpdateRequested,
                         [this] { ++countUpdates; });
    }

    QString marked() const { return ::marked(*model); }
    bool type(const QString &text) { return model->insertText(text); }
    void typeEach(const QString &text)
    {
        for (QChar c : text)
            model->insertText(QString(c));
    }
    void backspace() { ::backspace(*model); }

    std::unique_ptr<TextEditorModel> model;
    int beeps = 0;
    int notices = 0;
    int countUpdates = 0;
};
