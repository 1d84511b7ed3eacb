#pragma once

class AppController;

// The entry operations, the title field's search and the side editors, connected to the
// main window's menus, entry list and buttons.
void wireEntryOperations(AppController &app);
