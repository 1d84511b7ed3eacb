#pragma once

class AppController;

// Connects the editor's look, its text services and full-screen writing to the main window:
// the dark style follows its setting, and the View and Edit items for full screen,
// distraction-free writing and word completion act on the editor.
void wireAppearance(AppController &app);
