<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="TAB_ACTIONS_WINDOW_TITLE">
        <source>Tab Actions</source>
        <translation>Tab Actions</translation>
    </message>
    <message id="TAB_ACTION_ADD">
        <source>Add Tab Action</source>
        <translation>Add Tab Action</translation>
    </message>
    <message id="TAB_ACTION_CARET_HINT">
        <source>{*} marks where the cursor goes after the expansion.</source>
        <translation>{*} marks where the cursor goes after the expansion.</translation>
    </message>
    <message id="TAB_ACTION_CHOOSE_FILE">
        <source>Choose File…</source>
        <translation>Choose File…</translation>
    </message>
    <message id="TAB_ACTION_CHOOSE_FILE_DIALOG">
        <source>Choose Tab-Action File</source>
        <translation>Choose Tab-Action File</translation>
    </message>
    <message id="TAB_ACTION_CHOOSE_FILE_TIP">
        <source>Use an existing tab-action file</source>
        <translation>Use an existing tab-action file</translation>
    </message>
    <message id="TAB_ACTION_COLUMN_TIP">
        <source>Tab actions are listed alphabetically, ignoring case</source>
        <translation>Tab actions are listed alphabetically, ignoring case</translation>
    </message>
    <message id="TAB_ACTION_COLUMN_TITLE">
        <source>Abbreviation</source>
        <translation>Abbreviation</translation>
    </message>
    <message id="TAB_ACTION_DUPLICATE_MESSAGE">
        <source>Every abbreviation must be unique, and this one is already in the list. Please choose another name.</source>
        <translation>Every abbreviation must be unique, and this one is already in the list. Please choose another name.</translation>
    </message>
    <message id="TAB_ACTION_DUPLICATE_TITLE">
        <source>This name is already taken</source>
        <translation>This name is already taken</translation>
    </message>
    <message id="TAB_ACTION_EXPANSION_NAME">
        <source>Expansion</source>
        <translation>Expansion</translation>
    </message>
    <message id="TAB_ACTION_EXPANSION_TIP">
        <source>The text that replaces the selected abbreviation. Write {*} where the cursor should stand afterwards.</source>
        <translation>The text that replaces the selected abbreviation. Write {*} where the cursor should stand afterwards.</translation>
    </message>
    <message id="TAB_ACTION_FILE_FILTER">
        <source>Tab actions (*.tabActions)</source>
        <translation>Tab actions (*.tabActions)</translation>
    </message>
    <message id="TAB_ACTION_FILE_MISSING">
        <source>%1 does not exist. The list is empty; adding a tab action creates the file again.</source>
        <translation>%1 does not exist. The list is empty; adding a tab action creates the file again.</translation>
    </message>
    <message id="TAB_ACTION_FILE_NOT_SAVED">
        <source>Your changes could not be saved to %1: %2</source>
        <translation>Your changes could not be saved to %1: %2</translation>
    </message>
    <message id="TAB_ACTION_FILE_UNREADABLE">
        <source>%1 could not be read (%2). The list is empty; the file stays as it is until you change the list.</source>
        <translation>%1 could not be read (%2). The list is empty; the file stays as it is until you change the list.</translation>
    </message>
    <message id="TAB_ACTION_NEW_FILE">
        <source>New File…</source>
        <translation>New File…</translation>
    </message>
    <message id="TAB_ACTION_NEW_FILE_DIALOG">
        <source>New Tab-Action File</source>
        <translation>New Tab-Action File</translation>
    </message>
    <message id="TAB_ACTION_NEW_FILE_TIP">
        <source>Start a new, empty tab-action file and use it</source>
        <translation>Start a new, empty tab-action file and use it</translation>
    </message>
    <message id="TAB_ACTION_PATH_NAME">
        <source>The file that holds the tab actions</source>
        <translation>The file that holds the tab actions</translation>
    </message>
    <message id="TAB_ACTION_PROBLEM_NAME">
        <source>Problem with the tab-action file</source>
        <translation>Problem with the tab-action file</translation>
    </message>
    <message id="TAB_ACTION_REMOVE">
        <source>Remove Tab Action</source>
        <translation>Remove Tab Action</translation>
    </message>
    <message id="TAB_ACTION_TABLE_NAME">
        <source>Abbreviations</source>
        <translation>Abbreviations</translation>
    </message>
    <message id="TAB_ACTION_TABLE_TIP">
        <source>Type an abbreviation in the editor and press Tab to replace it with its text. Double-click a name to rename it; drag a row out to use its text elsewhere.</source>
        <translation>Type an abbreviation in the editor and press Tab to replace it with its text. Double-click a name to rename it; drag a row out to use its text elsewhere.</translation>
    </message>
    <message id="TAB_ACTION_USE_EXTERNAL">
        <source>Use a file of my own</source>
        <translation>Use a file of my own</translation>
    </message>
    <message id="TAB_ACTION_USE_EXTERNAL_TIP">
        <source>Keep the tab actions in a .tabActions file you choose, for example in a synchronised folder</source>
        <translation>Keep the tab actions in a .tabActions file you choose, for example in a synchronised folder</translation>
    </message>
    <message id="TAB_ACTION_WHITE_MESSAGE">
        <source>An abbreviation is one word: typing a space or tab ends it. Please choose a name without blanks.</source>
        <translation>An abbreviation is one word: typing a space or tab ends it. Please choose a name without blanks.</translation>
    </message>
    <message id="TAB_ACTION_WHITHE_TITLE">
        <source>Blanks are not allowed</source>
        <translation>Blanks are not allowed</translation>
    </message>
</context>
</TS>
