#pragma once

class QWidget;
class UserDefaults;

// The preferences of the entry list and of entry files: how rows show, which extension new
// entries get, and whether the window keeps a taskbar entry.
namespace LibraryPreferencePane {
QWidget *create(UserDefaults &defaults);
} // namespace LibraryPreferencePane
