#pragma once

class QWidget;
class UserDefaults;

// The preferences of what sits beside the editor: the quick notes' type sizes, what the
// attachment pane does by itself, and how entries print.
namespace NotesPrintingPreferencePane {
QWidget *create(UserDefaults &defaults);
}
