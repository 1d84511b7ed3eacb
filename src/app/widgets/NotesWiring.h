#pragma once

#include <QStringList>

class AppController;
class NotesTableController;

// Makes the quick-notes controller, puts its list under the entries and connects its menu
// items. One call from AppController::wireSubsystems().
void wireNotes(AppController &app);
// The controller wireNotes() made, or null before it ran.
NotesTableController *notesController(AppController &app);
// Bookmarklet links among a start's arguments become quick notes of the notebook on display.
void openNotesLinks(AppController &app, const QStringList &arguments);
