#pragma once

#include "EnhancedTextView.h"

class WordCompleter;

// The editor the main window uses: tab actions come from the tab-action file in use, and
// their abbreviations complete the word being typed.
class Vellox_EnhancedTextView : public EnhancedTextView
{
    Q_OBJECT
public:
    explicit Vellox_EnhancedTextView(UserDefaults &defaults, QWidget *parent = nullptr);

    QVariantMap availableTabActions() const override;
    void sendNotifactionUpdatesTextCountUpdate() override;

    // The abbreviations that complete the text in range, in the locale's case-blind order;
    // the tab-action file is read afresh each time.
    QStringList completionsForPartialWordRange(QPair<int, int> range) const;
    WordCompleter *wordCompleter() const { return m_completer; }

public Q_SLOTS:
    // The completion key: a pop-up of completions for the word before the caret.
    void complete();

protected:
    void keyPressEvent(QKeyEvent *e) override;

private:
    WordCompleter *m_completer;
};
