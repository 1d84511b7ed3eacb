#pragma once

class AppController;
class MenubarController;
class PreferencesController;
class UserDefaults;

// The tray icon, the capture panel with its search pane and the global key, connected to the
// main window: its Capture Panel menu item, the tray menu's items and the message bar.
void wireMenubar(AppController &app);
// The controller wireMenubar() made, or null. Further panes go in through its panel().
MenubarController *menubarController(const AppController &app);
// The global key's pane in the preferences window.
void addMenubarPreferencesPane(PreferencesController &preferences, UserDefaults &defaults);
