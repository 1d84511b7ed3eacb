#pragma once

class AppController;

// File → Export… opens the export window on the current notebook.
void wireExport(AppController &app);
