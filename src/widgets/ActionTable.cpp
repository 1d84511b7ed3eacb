#include "ActionTable.h"

#include <QStringList>

namespace {

ActionEntry menu(const char *name, const char *in, const char *textId, int tag = 0)
{
    ActionEntry entry;
    entry.kind = ActionEntry::Menu;
    entry.objectName = name;
    entry.menus = in;
    entry.textId = textId;
    entry.tag = tag;
    return entry;
}

ActionEntry action(const char *name, const char *in, const char *textId, const char *tipId,
                   const char *keys = "")
{
    ActionEntry entry;
    entry.objectName = name;
    entry.menus = in;
    entry.textId = textId;
    entry.toolTipId = tipId;
    entry.keys = keys;
    return entry;
}

ActionEntry standard(const char *name, const char *in, const char *textId, const char *tipId,
                     QKeySequence::StandardKey key, bool keysShownOnly = false)
{
    ActionEntry entry = action(name, in, textId, tipId);
    entry.standardKey = key;
    entry.keysShownOnly = keysShownOnly;
    return entry;
}

ActionEntry checkable(ActionEntry entry)
{
    entry.checkable = true;
    return entry;
}

ActionEntry separator(const char *in)
{
    ActionEntry entry;
    entry.kind = ActionEntry::Separator;
    entry.menus = in;
    return entry;
}

ActionEntry language(int number)
{
    static const char *const names[] = {"actionMarkupLanguage1", "actionMarkupLanguage2",
                                        "actionMarkupLanguage3", "actionMarkupLanguage4",
                                        "actionMarkupLanguage5", "actionMarkupLanguage6",
                                        "actionMarkupLanguage7"};
    // The languages' names are proper names, supplied by the language table.
    ActionEntry entry =
        action(names[number - 1], "menuMarkupLanguage", nullptr, "MENU_MARKUP_LANGUAGE_TIP");
    entry.tag = 900 + number;
    entry.checkable = true;
    return entry;
}

QList<ActionEntry> buildTable()
{
    // The markup language items are looked up the way the launch ticks them: Format (main
    // menu item 2), its item tagged 800, that item's item tagged 900, then 900 + language.
    QList<ActionEntry> t = {
        menu("menuFile", "", "MENU_FILE"),
        standard("actionPreferences", "menuFile", "MENU_PREFERENCES", "MENU_PREFERENCES_TIP",
                 QKeySequence::Preferences),
        separator("menuFile"),
        standard("actionPrint", "menuFile", "MENU_PRINT", "MENU_PRINT_TIP", QKeySequence::Print),
        action("actionExport", "menuFile", "MENU_EXPORT", "MENU_EXPORT_TIP"),
        separator("menuFile"),
        standard("actionQuit", "menuFile", "MENU_QUIT", "MENU_QUIT_TIP", QKeySequence::Quit),

        menu("menuEdit", "", "MENU_EDIT"),
        standard("actionUndo", "menuEdit", "EDITOR_UNDO", "EDITOR_UNDO_TOOLTIP",
                 QKeySequence::Undo),
        standard("actionRedo", "menuEdit", "EDITOR_REDO", "EDITOR_REDO_TOOLTIP",
                 QKeySequence::Redo),
        separator("menuEdit"),
        standard("actionCut", "menuEdit", "MENU_CUT", "MENU_CUT_TIP", QKeySequence::Cut, true),
        standard("actionCopy", "menuEdit", "MENU_COPY", "MENU_COPY_TIP", QKeySequence::Copy, true),
        standard("actionPaste", "menuEdit", "MENU_PASTE", "MENU_PASTE_TIP", QKeySequence::Paste,
                 true),
        standard("actionSelectAll", "menuEdit", "MENU_SELECT_ALL", "MENU_SELECT_ALL_TIP",
                 QKeySequence::SelectAll, true),
        separator("menuEdit"),
        action("actionCompleteWord", "menuEdit", "MENU_COMPLETE_WORD", "MENU_COMPLETE_WORD_TIP",
               "Ctrl+Space"),
        checkable(action("actionCheckSpelling", "menuEdit", "MENU_CHECK_SPELLING",
                         "MENU_CHECK_SPELLING_TIP")),

        menu("menuFormat", "", "MENU_FORMAT"),
        menu("menuTypography", "menuFormat", "MENU_TYPOGRAPHY", 800),
        menu("menuMarkupLanguage", "menuTypography", "MENU_MARKUP_LANGUAGE", 900),
    };
    for (int number = 1; number <= 7; ++number)
        t << language(number);
    t << separator("menuFormat")
      << action("actionBold", "menuFormat", "EDITOR_CMD_BOLD", "EDITOR_CMD_BOLD_TIP", "Ctrl+B")
      << action("actionItalic", "menuFormat", "EDITOR_CMD_ITALIC", "EDITOR_CMD_ITALIC_TIP",
                "Ctrl+I")
      << action("actionStrike", "menuFormat", "EDITOR_CMD_STRIKE", "EDITOR_CMD_STRIKE_TIP",
                "Ctrl+Shift+X")
      << action("actionHeadline1", "menuFormat", "EDITOR_CMD_HEADLINE1", "EDITOR_CMD_HEADLINE_TIP",
                "Ctrl+Alt+1")
      << action("actionHeadline2", "menuFormat", "EDITOR_CMD_HEADLINE2", "EDITOR_CMD_HEADLINE_TIP",
                "Ctrl+Alt+2")
      << action("actionHeadline3", "menuFormat", "EDITOR_CMD_HEADLINE3", "EDITOR_CMD_HEADLINE_TIP",
                "Ctrl+Alt+3")
      << action("actionHeadline4", "menuFormat", "EDITOR_CMD_HEADLINE4", "EDITOR_CMD_HEADLINE_TIP",
                "Ctrl+Alt+4")
      << action("actionTagSelection", "menuFormat", "EDITOR_CMD_TAG", "EDITOR_CMD_TAG_TIP",
                "Ctrl+Shift+T")
      << separator("menuFormat")
      << action("actionRemoveMarkup", "menuFormat contextMenuEditor",
                "CONTEXT_EDIT_TEXTFIELD_REMOVE_MARKUP",
                "CONTEXT_EDIT_TEXTFIELD_REMOVE_MARKUP_TOOLTIP")
      << action("actionTrimLines", "menuFormat contextMenuEditor",
                "CONTEXT_EDIT_TEXTFIELD_TRIM_LINES", "CONTEXT_EDIT_TEXTFIELD_TRIM_LINES_TOOLTIP")
      << separator("menuFormat")
      << action("actionTabActions", "menuFormat", "MENU_TAB_ACTIONS", "MENU_TAB_ACTIONS_TIP")

      << menu("menuText", "", "MENU_TEXT")
      << action("actionIndent", "menuText", "EDITOR_CMD_INDENT", "EDITOR_CMD_INDENT_TIP", "Ctrl+]")
      << action("actionDeIndent", "menuText", "EDITOR_CMD_DEINDENT", "EDITOR_CMD_DEINDENT_TIP",
                "Ctrl+[")
      << action("actionCopyAbove", "menuText", "EDITOR_CMD_COPY_ABOVE", "EDITOR_CMD_COPY_ABOVE_TIP",
                "Alt+Shift+Up")
      << action("actionCopyBelow", "menuText", "EDITOR_CMD_COPY_BELOW", "EDITOR_CMD_COPY_BELOW_TIP",
                "Alt+Shift+Down")
      << action("actionCopyLeft", "menuText", "EDITOR_CMD_COPY_LEFT", "EDITOR_CMD_COPY_LEFT_TIP",
                "Alt+Shift+Left")
      << action("actionCopyRight", "menuText", "EDITOR_CMD_COPY_RIGHT", "EDITOR_CMD_COPY_RIGHT_TIP",
                "Alt+Shift+Right")
      << action("actionMoveUp", "menuText", "EDITOR_CMD_MOVE_UP", "EDITOR_CMD_MOVE_UP_TIP",
                "Alt+Up")
      << action("actionMoveDown", "menuText", "EDITOR_CMD_MOVE_DOWN", "EDITOR_CMD_MOVE_DOWN_TIP",
                "Alt+Down")
      << action("actionMoveLeft", "menuText", "EDITOR_CMD_MOVE_LEFT", "EDITOR_CMD_MOVE_LEFT_TIP",
                "Alt+Left")
      << action("actionMoveRight", "menuText", "EDITOR_CMD_MOVE_RIGHT", "EDITOR_CMD_MOVE_RIGHT_TIP",
                "Alt+Right")
      << action("actionParagraphEnd", "menuText", "EDITOR_CMD_PARAGRAPH_END",
                "EDITOR_CMD_PARAGRAPH_END_TIP", "Ctrl+Shift+E")
      << action("actionParagraphStart", "menuText", "EDITOR_CMD_PARAGRAPH_START",
                "EDITOR_CMD_PARAGRAPH_START_TIP", "Ctrl+Shift+A")
      << action("actionPreviousEmptyLine", "menuText", "EDITOR_CMD_PREVIOUS_EMPTY_LINE",
                "EDITOR_CMD_PREVIOUS_EMPTY_LINE_TIP", "Ctrl+Shift+Up")
      << action("actionNextEmptyLine", "menuText", "EDITOR_CMD_NEXT_EMPTY_LINE",
                "EDITOR_CMD_NEXT_EMPTY_LINE_TIP", "Ctrl+Shift+Down")
      << action("actionHardLineBreak", "menuText", "EDITOR_CMD_HARD_BREAK",
                "EDITOR_CMD_HARD_BREAK_TIP", "Ctrl+Shift+Return")

      << menu("menuView", "", "MENU_VIEW")
      << action("actionShowEditor", "menuView", "MENU_SHOW_EDITOR", "EDIT_MODE_TIP", "Ctrl+Alt+E")
      << action("actionShowPreview", "menuView", "MENU_SHOW_PREVIEW", "PREVIEW_MODE_TIP",
                "Ctrl+Alt+P");
    ActionEntry attachments = action("actionShowAttachments", "menuView", "MENU_SHOW_ATTACHMENTS",
                                     "ATTACHMENTS_BUTTON_TIP");
    attachments.checkable = true;
    t << attachments << separator("menuView")
      << action("actionCapturePanel", "menuView", "MENU_CAPTURE_PANEL", "MENU_CAPTURE_PANEL_TIP")
      << action("actionPreviewStyles", "menuView", "MENU_PREVIEW_STYLES", "STYLES_BUTTON_TIP",
                "Ctrl+Alt+S")
      << separator("menuView")
      << action("actionToggleFullScreen", "menuView", "MENU_FULL_SCREEN", "MENU_FULL_SCREEN_TIP",
                "F11")
      << action("actionDistractionFree", "menuView", "MENU_DISTRACTION_FREE",
                "MENU_DISTRACTION_FREE_TIP", "Ctrl+Shift+F11")

      << menu("menuEntry", "", "MENU_ENTRY")
      << action("actionNextEntry", "menuEntry", "MENU_NEXT_ENTRY", "MENU_NEXT_ENTRY_TIP",
                "Ctrl+Alt+Down")
      << action("actionPreviousEntry", "menuEntry", "MENU_PREVIOUS_ENTRY",
                "MENU_PREVIOUS_ENTRY_TIP", "Ctrl+Alt+Up")
      << separator("menuEntry")
      << action("actionInsertDateTime", "menuEntry", "MENU_INSERT_DATE_TIME",
                "MENU_INSERT_DATE_TIME_TIP", "Ctrl+Shift+D")

      << menu("menuNotes", "", "MENU_NOTES")
      << action("actionAddNote", "menuNotes", "MENU_ADD_NOTE", "NOTES_ADD_TIP", "Ctrl+Alt+N")
      << action("actionEditNote", "menuNotes contextMenuNotesList", "MENU_EDIT_NOTE",
                "NOTES_EDIT_TIP")
      << action("actionRemoveNote", "menuNotes contextMenuNotesList", "MENU_REMOVE_NOTE",
                "NOTES_REMOVE_TIP")
      << separator("menuNotes")
      << action("actionSendNote", "menuNotes contextMenuNotesList", "MENU_SEND_NOTE",
                "MENU_SEND_NOTE_TIP", "Ctrl+Alt+Return")
      << action("actionSendAllNotes", "menuNotes", "MENU_SEND_ALL_NOTES", "MENU_SEND_ALL_NOTES_TIP")
      << action("actionSendTodaysNotes", "menuNotes", "MENU_SEND_TODAYS_NOTES",
                "MENU_SEND_TODAYS_NOTES_TIP")
      << separator("menuNotes")
      << action("actionDeleteNotesExceptToday", "menuNotes", "MENU_DELETE_NOTES_EXCEPT_TODAY",
                "MENU_DELETE_NOTES_EXCEPT_TODAY_TIP")
      << action("actionDeleteAllNotes", "menuNotes", "MENU_DELETE_ALL_NOTES",
                "MENU_DELETE_ALL_NOTES_TIP")
      << separator("menuNotes")
      << action("actionActivateNotes", "menuNotes", "MENU_ACTIVATE_NOTES",
                "MENU_ACTIVATE_NOTES_TIP", "Ctrl+Alt+0")
      << action("actionOpenNoteLink", "contextMenuNotesList", "NOTES_LINK_NAME", "NOTES_LINK_TIP")

      << menu("menuHelp", "", "MENU_HELP")
      << action("actionCaptureLinks", "menuHelp", "MENU_CAPTURE_LINKS", "MENU_CAPTURE_LINKS_TIP")

      // The entry list's context menu, for the clicked entry (the menu key: the current one):
      // its submenus are filled with the notebooks and the applications.
      << action("actionOpenInSideEditor", "contextMenuEntryList", "MENU_OPEN_IN_SIDE_EDITOR",
                "MENU_OPEN_IN_SIDE_EDITOR_TIP")
      << action("actionRenameEntry", "contextMenuEntryList", "MENU_RENAME_ENTRY",
                "MENU_RENAME_ENTRY_TIP")
      << menu("menuOpenWith", "contextMenuEntryList", "MENU_OPEN_WITH")
      << menu("menuMoveTo", "contextMenuEntryList", "MENU_MOVE_TO")
      << menu("menuDuplicateTo", "contextMenuEntryList", "MENU_DUPLICATE_TO")
      << action("actionDeleteEntry", "contextMenuEntryList", "MENU_DELETE_ENTRY",
                "MENU_DELETE_ENTRY_TIP")
      << separator("contextMenuEntryList")
      << action("actionShowInFileBrowser", "contextMenuEntryList", "MENU_SHOW_IN_FILE_BROWSER",
                "MENU_SHOW_IN_FILE_BROWSER_TIP")
      << action("actionShowAttachmentsInFileBrowser", "contextMenuEntryList",
                "MENU_SHOW_ATTACHMENTS_IN_FILE_BROWSER",
                "MENU_SHOW_ATTACHMENTS_IN_FILE_BROWSER_TIP")

      // The attachments list's context menu.
      << action("actionAttachmentAdd", "contextMenuAttachments", "ATTACHMENT_ADD_NAME",
                "ATTACHMENT_ADD_TIP")
      << action("actionAttachmentRemove", "contextMenuAttachments", "ATTACHMENT_REMOVE_NAME",
                "ATTACHMENT_REMOVE_TIP")
      << separator("contextMenuAttachments")
      << action("actionAttachmentPreview", "contextMenuAttachments", "ATTACHMENT_PREVIEW_NAME",
                "ATTACHMENT_PREVIEW_TIP")
      << action("actionAttachmentOpen", "contextMenuAttachments", "ATTACHMENT_OPEN_NAME",
                "ATTACHMENT_OPEN_TIP")
      << action("actionAttachmentReveal", "contextMenuAttachments", "ATTACHMENT_REVEAL_NAME",
                "ATTACHMENT_REVEAL_TIP");
    return t;
}

} // namespace

QList<QKeySequence> ActionEntry::shortcuts() const
{
    if (keys && *keys)
        return {QKeySequence(QString::fromLatin1(keys), QKeySequence::PortableText)};
    if (standardKey != QKeySequence::UnknownKey) {
        QList<QKeySequence> bindings = QKeySequence::keyBindings(standardKey);
        // Desktops without a preferences key get the common one.
        if (bindings.isEmpty() && standardKey == QKeySequence::Preferences)
            bindings << QKeySequence(QStringLiteral("Ctrl+,"));
        return bindings;
    }
    return {};
}

bool ActionEntry::isIn(const QString &menuName) const
{
    if (menuName.isEmpty())
        return !menus || !*menus;
    return QString::fromLatin1(menus)
        .split(QLatin1Char(' '), Qt::SkipEmptyParts)
        .contains(menuName);
}

namespace ActionTable {

const QList<ActionEntry> &entries()
{
    static const QList<ActionEntry> table = buildTable();
    return table;
}

const ActionEntry *find(const QString &objectName)
{
    for (const ActionEntry &entry : entries()) {
        if (entry.objectName && objectName == QLatin1String(entry.objectName))
            return &entry;
    }
    return nullptr;
}

} // namespace ActionTable
