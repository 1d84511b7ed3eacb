<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="EDITOR_HINT_ENTER_TITLE">
        <source>Enter a title to write a note</source>
        <translation>Enter a title to write a note</translation>
    </message>
    <message id="ENTRY_LIST_ACCESSIBLE_NAME">
        <source>Entries</source>
        <translation>Entries</translation>
    </message>
    <message id="ENTRY_LIST_TOOLTIP">
        <source>The entries of this notebook</source>
        <translation>The entries of this notebook</translation>
    </message>
    <message id="WORD_COUNTER_ACCESSIBLE_NAME">
        <source>Words and characters</source>
        <translation>Words and characters</translation>
    </message>
    <message id="FILE_LISTING_CREATED">
        <source>Created</source>
        <translation>Created</translation>
    </message>
    <message id="FILE_LISTING_MODIFIED">
        <source>Modified</source>
        <translation>Modified</translation>
    </message>
    <message id="FILE_HAS_BEEN_DELETED">
        <source>This file has been deleted</source>
        <translation>This file has been deleted</translation>
    </message>
    <message id="CRIT_NOTEBOOK_DOESNT_EXIST_TITLE">
        <source>Notebook not found</source>
        <translation>Notebook not found</translation>
    </message>
    <message id="CRIT_NOTEBOOK_DOESNT_EXIST_MESSAGE">
        <source>The folder of this notebook does not exist anymore. It may have been moved, renamed or be on a disk that is not connected.</source>
        <translation>The folder of this notebook does not exist anymore. It may have been moved, renamed or be on a disk that is not connected.</translation>
    </message>
    <message id="FOLDER_LOCKED_MESSAGE">
        <source>The folder of this notebook is locked: no entry can be added, renamed or deleted in it. Unlock it?</source>
        <translation>The folder of this notebook is locked: no entry can be added, renamed or deleted in it. Unlock it?</translation>
    </message>
    <message id="FOLDER_LOCKED_KEEP_LOCKED">
        <source>Keep Locked</source>
        <translation>Keep Locked</translation>
    </message>
    <message id="FOLDER_LOCKED_UNLOCK">
        <source>Unlock</source>
        <translation>Unlock</translation>
    </message>
    <message id="UNLOCK_FOLDER_FAILED">
        <source>The folder could not be unlocked</source>
        <translation>The folder could not be unlocked</translation>
    </message>
    <message id="FILE_LOCKED">
        <source>Entry is locked</source>
        <translation>Entry is locked</translation>
    </message>
    <message id="FILE_LOCKED_MESSAGE">
        <source>This entry is locked, so your changes to it cannot be saved. Unlock it?</source>
        <translation>This entry is locked, so your changes to it cannot be saved. Unlock it?</translation>
    </message>
    <message id="FILE_LOCKED_KEEP_LOCKED">
        <source>Keep Locked</source>
        <translation>Keep Locked</translation>
    </message>
    <message id="FILE_LOCKED_UNLOCK">
        <source>Unlock</source>
        <translation>Unlock</translation>
    </message>
    <message id="UNLOCK_FILE_FAILED">
        <source>The entry could not be unlocked</source>
        <translation>The entry could not be unlocked</translation>
    </message>
    <message id="TEXTBUNDLE_MIXED_MARKUPS_TITLE">
        <source>Different markup languages</source>
        <translation>Different markup languages</translation>
    </message>
    <message id="TEXTBUNDLE_MIXED_MARKUPS_MESSAGE">
        <source>This entry is written in %1, but %2 is selected. It is shown with %2.</source>
        <translation>This entry is written in %1, but %2 is selected. It is shown with %2.</translation>
    </message>
    <message id="ENTRY_TITLE_EMPTY">
        <source>An entry needs a title before it can be saved.</source>
        <translation>An entry needs a title before it can be saved.</translation>
    </message>
    <message id="ENTRY_TITLE_HAS_SLASH">
        <source>A title cannot contain “/”: it would name a folder.</source>
        <translation>A title cannot contain “/”: it would name a folder.</translation>
    </message>
    <message id="ENTRY_TITLE_HAS_NUL">
        <source>A title cannot contain a null character.</source>
        <translation>A title cannot contain a null character.</translation>
    </message>
    <message id="ENTRY_TITLE_TOO_LONG">
        <source>This title is too long for a file name: %1 bytes with the extension, at most %2.</source>
        <translation>This title is too long for a file name: %1 bytes with the extension, at most %2.</translation>
    </message>
    <message id="ENTRY_CHANGED_ELSEWHERE_SUFFIX">
        <source>changed elsewhere</source>
        <translation>changed elsewhere</translation>
    </message>
    <message id="ENTRY_CHANGED_ON_DISK">
        <source>“%1” was changed by another program while you were editing it here. Nothing has been written over.</source>
        <translation>“%1” was changed by another program while you were editing it here. Nothing has been written over.</translation>
    </message>
    <message id="ENTRY_COPY_SAVED_AS">
        <source>A copy of your text is saved as “%1”.</source>
        <translation>A copy of your text is saved as “%1”.</translation>
    </message>
    <message id="ENTRY_KEEP_MINE">
        <source>Keep Mine</source>
        <translation>Keep Mine</translation>
    </message>
    <message id="ENTRY_KEEP_MINE_TIP">
        <source>Save your text; the other version is kept beside the entry</source>
        <translation>Save your text; the other version is kept beside the entry</translation>
    </message>
    <message id="ENTRY_NOTEBOOK_FOLDER_MISSING">
        <source>The notebook folder does not exist.</source>
        <translation>The notebook folder does not exist.</translation>
    </message>
    <message id="ENTRY_NOT_A_FILE">
        <source>It is a folder, not a text file.</source>
        <translation>It is a folder, not a text file.</translation>
    </message>
    <message id="ENTRY_RELOAD_THEIRS">
        <source>Reload Theirs</source>
        <translation>Reload Theirs</translation>
    </message>
    <message id="ENTRY_RELOAD_THEIRS_TIP">
        <source>Show the text as the other program left it; your changes here are dropped</source>
        <translation>Show the text as the other program left it; your changes here are dropped</translation>
    </message>
    <message id="ENTRY_SAVE_AS">
        <source>Save As…</source>
        <translation>Save As…</translation>
    </message>
    <message id="ENTRY_SAVE_AS_DIALOG_TITLE">
        <source>Save Your Text As</source>
        <translation>Save Your Text As</translation>
    </message>
    <message id="ENTRY_SAVE_AS_TIP">
        <source>Save this text into a file of your choice</source>
        <translation>Save this text into a file of your choice</translation>
    </message>
    <message id="ENTRY_SAVE_FAILED">
        <source>“%1” could not be saved: %2. Your text is still here; it is saved as soon as that works again.</source>
        <translation>“%1” could not be saved: %2. Your text is still here; it is saved as soon as that works again.</translation>
    </message>
    <message id="ENTRY_SAVE_RETRY">
        <source>Retry</source>
        <translation>Retry</translation>
    </message>
    <message id="ENTRY_SAVE_RETRY_TIP">
        <source>Try to save the entry again</source>
        <translation>Try to save the entry again</translation>
    </message>
    <message id="ENTRY_THEIRS_KEPT_AS">
        <source>The other version is kept as “%1”.</source>
        <translation>The other version is kept as “%1”.</translation>
    </message>
    <message id="ENTRY_THEIRS_NOT_KEPT">
        <source>Their version could not be kept aside.</source>
        <translation>Their version could not be kept aside.</translation>
    </message>
    <message id="ENTRY_UNREADABLE">
        <source>“%1” could not be read (%2). It is shown read-only so nothing is written over it.</source>
        <translation>“%1” could not be read (%2). It is shown read-only so nothing is written over it.</translation>
    </message>
    <message id="UNSAVED_CHANGES_CANCEL">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="UNSAVED_CHANGES_DISCARD">
        <source>Discard Changes</source>
        <translation>Discard Changes</translation>
    </message>
    <message id="UNSAVED_CHANGES_MESSAGE">
        <source>The last changes to “%1” could not be saved. Save them somewhere else, discard them, or stay with the entry?</source>
        <translation>The last changes to “%1” could not be saved. Save them somewhere else, discard them, or stay with the entry?</translation>
    </message>
    <message id="UNSAVED_CHANGES_SAVE_AS">
        <source>Save As…</source>
        <translation>Save As…</translation>
    </message>
    <message id="UNSAVED_CHANGES_TITLE">
        <source>Your changes are not saved</source>
        <translation>Your changes are not saved</translation>
    </message>
    <message id="ENTRY_COPY_FAILED">
        <source>“%1” could not be copied to the other notebook (%2). It stays where it is.</source>
        <translation>“%1” could not be copied to the other notebook (%2). It stays where it is.</translation>
    </message>
    <message id="ENTRY_MOVE_SOURCE_KEPT">
        <source>“%1” was copied to the other notebook, but could not be removed from this one (%2).</source>
        <translation>“%1” was copied to the other notebook, but could not be removed from this one (%2).</translation>
    </message>
    <message id="ENTRY_OPERATION_UNSAVED">
        <source>“%1” was left as it is: its latest changes could not be saved first.</source>
        <translation>“%1” was left as it is: its latest changes could not be saved first.</translation>
    </message>
    <message id="ENTRY_RENAME_FAILED">
        <source>“%1” could not be renamed (%2). It keeps its name.</source>
        <translation>“%1” could not be renamed (%2). It keeps its name.</translation>
    </message>
    <message id="ENTRY_TRASH_FAILED">
        <source>“%1” could not be moved to the trash (%2). It is still in the notebook.</source>
        <translation>“%1” could not be moved to the trash (%2). It is still in the notebook.</translation>
    </message>
    <message id="RENAME_NAME_EXISTS">
        <source>Name already exists</source>
        <translation>Name already exists</translation>
    </message>
    <message id="RENAME_SHEET_CANCEL_TIP">
        <source>Leave the name as it is</source>
        <translation>Leave the name as it is</translation>
    </message>
    <message id="RENAME_SHEET_FIELD">
        <source>New title</source>
        <translation>New title</translation>
    </message>
    <message id="RENAME_SHEET_FIELD_TIP">
        <source>The entry's new title; its attachments folder is renamed with it</source>
        <translation>The entry's new title; its attachments folder is renamed with it</translation>
    </message>
    <message id="RENAME_SHEET_OK_TIP">
        <source>Rename the entry</source>
        <translation>Rename the entry</translation>
    </message>
    <message id="RENAME_SHEET_PROMPT">
        <source>New name of “%1”:</source>
        <translation>New name of “%1”:</translation>
    </message>
    <message id="RENAME_SHEET_TITLE">
        <source>Rename Entry</source>
        <translation>Rename Entry</translation>
    </message>
    <message id="PRINT_DIALOG_TITLE">
        <source>Print Entry</source>
        <translation>Print Entry</translation>
    </message>
    <message id="SIDE_EDITOR_CHANGED_ON_DISK">
        <source>The file was changed elsewhere meanwhile, so it was not written over. Copy your words, close this window and open the entry again.</source>
        <translation>The file was changed elsewhere meanwhile, so it was not written over. Copy your words, close this window and open the entry again.</translation>
    </message>
    <message id="SIDE_EDITOR_PROBLEM_NAME">
        <source>Why this file is not being saved</source>
        <translation>Why this file is not being saved</translation>
    </message>
    <message id="SIDE_EDITOR_SAVE_FAILED">
        <source>Could not save (%1). Your words stay here.</source>
        <translation>Could not save (%1). Your words stay here.</translation>
    </message>
    <message id="SIDE_EDITOR_TEXT_NAME">
        <source>Entry text</source>
        <translation>Entry text</translation>
    </message>
    <message id="SIDE_EDITOR_TEXT_TIP">
        <source>The entry's text; it is saved when you switch away or close the window</source>
        <translation>The entry's text; it is saved when you switch away or close the window</translation>
    </message>
    <message id="SIDE_EDITOR_UNREADABLE">
        <source>“%1” could not be read (%2). It is shown read-only so nothing is written over it.</source>
        <translation>“%1” could not be read (%2). It is shown read-only so nothing is written over it.</translation>
    </message>
    <message id="ENTRY_OPEN_WITH_FAILED">
        <source>“%1” could not be opened in the other application (%2).</source>
        <translation>“%1” could not be opened in the other application (%2).</translation>
    </message>
</context>
</TS>
