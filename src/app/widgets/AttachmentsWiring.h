#pragma once

class AppController;
class AttachmentFileController;

// Puts the attachments panel into the main window's attachment area and connects it: the
// current entry, the notebook, the message bar, the context menu and the pane opening and
// closing by itself.
AttachmentFileController *wireAttachments(AppController &app);
