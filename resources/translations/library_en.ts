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
</context>
</TS>
