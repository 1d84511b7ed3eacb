#pragma once

#include <QString>

class EnhancedTextView;
class QPlainTextEdit;

// The few editor calls the entry controller makes. The entry editor (EnhancedTextView and
// its subclass Vellox_EnhancedTextView) is driven through its own API, which keeps its undo
// history and typing engine in step; any other QPlainTextEdit through Qt's.
class EntryEditorAdapter
{
public:
    explicit EntryEditorAdapter(QPlainTextEdit *editor);

    QPlainTextEdit *view() const { return m_editor; }

    // The text exactly as typed: no-break spaces and line separators stay what they are.
    QString string() const;
    // In UTF-16 code units, without copying the text.
    int length() const;
    // Replaces the text without announcing a change (no save is scheduled by it).
    void setString(const QString &text);
    // True while setString runs, so change signals of the load are not taken for typing.
    bool isSettingString() const { return m_settingString; }
    // Whether the editor holds exactly this text; a different length answers without copying
    // the editor's text out (a keystroke in a big entry must not cost a copy of it).
    bool holds(const QString &text) const;
    void setEditable(bool editable);
    bool isEditable() const;
    // Location and length in UTF-16 code units.
    int selectedLocation() const;
    int selectedLength() const;
    // Clamped to the text, so a stale position never fails.
    void setSelectedRange(int location, int length);

private:
    QPlainTextEdit *m_editor;
    EnhancedTextView *m_entryEditor;
    bool m_settingString = false;
};
