<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="ADD_ENTRY_NAME">
        <source>New entry</source>
        <translation>New entry</translation>
    </message>
    <message id="ADD_ENTRY_TIP">
        <source>Start a new entry</source>
        <translation>Start a new entry</translation>
    </message>
    <message id="ATTACHMENTS_BUTTON_NAME">
        <source>Attachments</source>
        <translation>Attachments</translation>
    </message>
    <message id="ATTACHMENTS_BUTTON_TIP">
        <source>Show or hide the entry's attachments</source>
        <translation>Show or hide the entry's attachments</translation>
    </message>
    <message id="ATTACHMENT_AREA_EMPTY">
        <source>No attachments</source>
        <translation>No attachments</translation>
    </message>
    <message id="ATTACHMENT_AREA_NAME">
        <source>Attachments</source>
        <translation>Attachments</translation>
    </message>
    <message id="ATTACHMENT_AREA_TIP">
        <source>Files attached to this entry</source>
        <translation>Files attached to this entry</translation>
    </message>
    <message id="BUTTON_CANCEL">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="BUTTON_CHOOSE">
        <source>Choose</source>
        <translation>Choose</translation>
    </message>
    <message id="BUTTON_OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="EDITOR_HINT_NO_ENTRY">
        <source>Enter a title to write a note</source>
        <translation>Enter a title to write a note</translation>
    </message>
    <message id="EDITOR_NAME">
        <source>Entry text</source>
        <translation>Entry text</translation>
    </message>
    <message id="EDITOR_TIP">
        <source>Write your entry here</source>
        <translation>Write your entry here</translation>
    </message>
    <message id="EDIT_MODE_NAME">
        <source>Edit</source>
        <translation>Edit</translation>
    </message>
    <message id="EDIT_MODE_TIP">
        <source>Show the editor</source>
        <translation>Show the editor</translation>
    </message>
    <message id="ENTRY_LIST_NAME">
        <source>Entries</source>
        <translation>Entries</translation>
    </message>
    <message id="ENTRY_LIST_TIP">
        <source>The entries of this notebook</source>
        <translation>The entries of this notebook</translation>
    </message>
    <message id="FIRSTRUN_CANCEL_AND_QUIT">
        <source>Cancel and Quit</source>
        <translation>Cancel and Quit</translation>
    </message>
    <message id="FIRSTRUN_CANCEL_TIP">
        <source>Quit Vellox without creating a notebook</source>
        <translation>Quit Vellox without creating a notebook</translation>
    </message>
    <message id="FIRSTRUN_CHOOSE_FOLDER">
        <source>Choose…</source>
        <translation>Choose…</translation>
    </message>
    <message id="FIRSTRUN_CHOOSE_FOLDER_TIP">
        <source>Choose the folder that will hold the notebook's entries</source>
        <translation>Choose the folder that will hold the notebook's entries</translation>
    </message>
    <message id="FIRSTRUN_FOLDER">
        <source>Notebook folder</source>
        <translation>Notebook folder</translation>
    </message>
    <message id="FIRSTRUN_FOLDER_LABEL">
        <source>Folder:</source>
        <translation>Folder:</translation>
    </message>
    <message id="FIRSTRUN_FOLDER_PLACEHOLDER">
        <source>No folder chosen yet</source>
        <translation>No folder chosen yet</translation>
    </message>
    <message id="FIRSTRUN_FOLDER_TIP">
        <source>The folder where every entry of this notebook is kept as a plain-text file</source>
        <translation>The folder where every entry of this notebook is kept as a plain-text file</translation>
    </message>
    <message id="FIRSTRUN_NAME">
        <source>Notebook name</source>
        <translation>Notebook name</translation>
    </message>
    <message id="FIRSTRUN_NAME_LABEL">
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message id="FIRSTRUN_NAME_PLACEHOLDER">
        <source>My Diary</source>
        <translation>My Diary</translation>
    </message>
    <message id="FIRSTRUN_NAME_TIP">
        <source>The name shown for this notebook</source>
        <translation>The name shown for this notebook</translation>
    </message>
    <message id="FIRSTRUN_OK_TIP">
        <source>Create the notebook and start writing</source>
        <translation>Create the notebook and start writing</translation>
    </message>
    <message id="FIRSTRUN_TITLE">
        <source>Welcome to Vellox</source>
        <translation>Welcome to Vellox</translation>
    </message>
    <message id="FIRSTRUN_WELCOME">
        <source>Vellox keeps your diary and notes as plain-text files in folders you choose. Give your first notebook a name and pick the folder it lives in.</source>
        <translation>Vellox keeps your diary and notes as plain-text files in folders you choose. Give your first notebook a name and pick the folder it lives in.</translation>
    </message>
    <message id="LAST_NOTEBOOK_CANT_BE_DELETED_MESSAGE">
        <source>Vellox needs at least one notebook. Create another notebook before removing this one.</source>
        <translation>Vellox needs at least one notebook. Create another notebook before removing this one.</translation>
    </message>
    <message id="LAST_NOTEBOOK_CANT_BE_DELETED_OKBUTTON">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="LAST_NOTEBOOK_CANT_BE_DELETED_TITLE">
        <source>This notebook can't be removed</source>
        <translation>This notebook can't be removed</translation>
    </message>
    <message id="MAIN_WINDOW_NAME">
        <source>Vellox</source>
        <translation>Vellox</translation>
    </message>
    <message id="MENU_DUPLICATE_TO">
        <source>Duplicate to</source>
        <translation>Duplicate to</translation>
    </message>
    <message id="MENU_EDIT">
        <source>&amp;Edit</source>
        <translation>&amp;Edit</translation>
    </message>
    <message id="MENU_EXPORT">
        <source>Export…</source>
        <translation>Export…</translation>
    </message>
    <message id="MENU_EXPORT_TIP">
        <source>Write a notebook's entries to files or an e-book</source>
        <translation>Write a notebook's entries to files or an e-book</translation>
    </message>
    <message id="MENU_FILE">
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message id="MENU_FORMAT">
        <source>F&amp;ormat</source>
        <translation>F&amp;ormat</translation>
    </message>
    <message id="MENU_MARKUP_LANGUAGE">
        <source>Markup Language</source>
        <translation>Markup Language</translation>
    </message>
    <message id="MENU_MARKUP_LANGUAGE_TIP">
        <source>The markup language your entries are written in</source>
        <translation>The markup language your entries are written in</translation>
    </message>
    <message id="MENU_MOVE_TO">
        <source>Move to</source>
        <translation>Move to</translation>
    </message>
    <message id="MENU_PREFERENCES">
        <source>Preferences…</source>
        <translation>Preferences…</translation>
    </message>
    <message id="MENU_PREFERENCES_TIP">
        <source>Manage notebooks and settings</source>
        <translation>Manage notebooks and settings</translation>
    </message>
    <message id="MENU_QUIT">
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
    <message id="MENU_QUIT_TIP">
        <source>Save and quit Vellox</source>
        <translation>Save and quit Vellox</translation>
    </message>
    <message id="MENU_TYPOGRAPHY">
        <source>Typography</source>
        <translation>Typography</translation>
    </message>
    <message id="MENU_VIEW">
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message id="NOTEBOOK_POPUP_NAME">
        <source>Current notebook</source>
        <translation>Current notebook</translation>
    </message>
    <message id="NOTEBOOK_POPUP_TIP">
        <source>Switch to another notebook</source>
        <translation>Switch to another notebook</translation>
    </message>
    <message id="PREFERENCES_CHANGE_ICON">
        <source>Choose Image…</source>
        <translation>Choose Image…</translation>
    </message>
    <message id="PREFERENCES_CHANGE_ICON_TIP">
        <source>Use an image file as the notebook's icon</source>
        <translation>Use an image file as the notebook's icon</translation>
    </message>
    <message id="PREFERENCES_CHANGE_LOCATION">
        <source>Change…</source>
        <translation>Change…</translation>
    </message>
    <message id="PREFERENCES_CHANGE_LOCATION_TIP">
        <source>Choose another folder for this notebook</source>
        <translation>Choose another folder for this notebook</translation>
    </message>
    <message id="PREFERENCES_DELETE_NOTEBOOK">
        <source>Remove</source>
        <translation>Remove</translation>
    </message>
    <message id="PREFERENCES_DELETE_NOTEBOOK_TIP">
        <source>Remove the notebook from Vellox; its folder and files stay on disk</source>
        <translation>Remove the notebook from Vellox; its folder and files stay on disk</translation>
    </message>
    <message id="PREFERENCES_ICON_CHOOSER_LIST">
        <source>Icons</source>
        <translation>Icons</translation>
    </message>
    <message id="PREFERENCES_ICON_CHOOSER_OK_TIP">
        <source>Use the selected icon for the notebook</source>
        <translation>Use the selected icon for the notebook</translation>
    </message>
    <message id="PREFERENCES_ICON_CHOOSER_TITLE">
        <source>Choose a Notebook Icon</source>
        <translation>Choose a Notebook Icon</translation>
    </message>
    <message id="PREFERENCES_ICON_CHOOSER_TOOLTIP">
        <source>Icons of your desktop's icon theme</source>
        <translation>Icons of your desktop's icon theme</translation>
    </message>
    <message id="PREFERENCES_ICON_FROM_THEME">
        <source>Choose Icon…</source>
        <translation>Choose Icon…</translation>
    </message>
    <message id="PREFERENCES_ICON_FROM_THEME_TIP">
        <source>Pick an icon from your desktop's icon theme</source>
        <translation>Pick an icon from your desktop's icon theme</translation>
    </message>
    <message id="PREFERENCES_ICON_LABEL">
        <source>Icon:</source>
        <translation>Icon:</translation>
    </message>
    <message id="PREFERENCES_IMAGE_FILES">
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message id="PREFERENCES_LOCATION_LABEL">
        <source>Location:</source>
        <translation>Location:</translation>
    </message>
    <message id="PREFERENCES_NAME_LABEL">
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message id="PREFERENCES_NEW_NOTEBOOK">
        <source>New</source>
        <translation>New</translation>
    </message>
    <message id="PREFERENCES_NEW_NOTEBOOK_TIP">
        <source>Add a new notebook</source>
        <translation>Add a new notebook</translation>
    </message>
    <message id="PREFERENCES_NEW_UNNAMED_NOTEBOOK">
        <source>New Notebook</source>
        <translation>New Notebook</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOKS_PANE">
        <source>Notebooks</source>
        <translation>Notebooks</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_ICON">
        <source>Notebook icon</source>
        <translation>Notebook icon</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_ICON_TIP">
        <source>The icon shown in the side bar and notebook menu</source>
        <translation>The icon shown in the side bar and notebook menu</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_LABEL">
        <source>Notebook:</source>
        <translation>Notebook:</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_LOCATION">
        <source>Notebook location</source>
        <translation>Notebook location</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_LOCATION_TIP">
        <source>The folder that holds this notebook's entries</source>
        <translation>The folder that holds this notebook's entries</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_NAME">
        <source>Notebook name</source>
        <translation>Notebook name</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_NAME_TIP">
        <source>The notebook's name; every notebook needs its own</source>
        <translation>The notebook's name; every notebook needs its own</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_ORDER">
        <source>Notebook order</source>
        <translation>Notebook order</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_ORDER_TIP">
        <source>Drag a notebook to change its place in the side bar and menu</source>
        <translation>Drag a notebook to change its place in the side bar and menu</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_SELECTOR">
        <source>Notebook to edit</source>
        <translation>Notebook to edit</translation>
    </message>
    <message id="PREFERENCES_NOTEBOOK_SELECTOR_TIP">
        <source>Choose the notebook whose settings you want to change</source>
        <translation>Choose the notebook whose settings you want to change</translation>
    </message>
    <message id="PREFERENCES_ORDER_LABEL">
        <source>Order</source>
        <translation>Order</translation>
    </message>
    <message id="PREFERENCES_PANES">
        <source>Preference panes</source>
        <translation>Preference panes</translation>
    </message>
    <message id="PREFERENCES_SAVE_NOTEBOOK">
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message id="PREFERENCES_SAVE_NOTEBOOK_TIP">
        <source>Save the changes to this notebook</source>
        <translation>Save the changes to this notebook</translation>
    </message>
    <message id="PREFERENCES_SELECT_DIARY_SAVEDESTIONATION_MESSAGE">
        <source>Choose the folder where this notebook keeps its entries.</source>
        <translation>Choose the folder where this notebook keeps its entries.</translation>
    </message>
    <message id="PREFERENCES_SELECT_DIARY_SAVEDESTIONATION_TITLE">
        <source>Choose Notebook Folder</source>
        <translation>Choose Notebook Folder</translation>
    </message>
    <message id="PREFERENCES_WINDOW_TITLE">
        <source>Preferences</source>
        <translation>Preferences</translation>
    </message>
    <message id="PREVIEW_MODE_NAME">
        <source>Preview</source>
        <translation>Preview</translation>
    </message>
    <message id="PREVIEW_MODE_TIP">
        <source>Show the formatted preview</source>
        <translation>Show the formatted preview</translation>
    </message>
    <message id="PREVIEW_NAME">
        <source>Preview</source>
        <translation>Preview</translation>
    </message>
    <message id="PREVIEW_TIP">
        <source>The entry as formatted text</source>
        <translation>The entry as formatted text</translation>
    </message>
    <message id="REMOVE_ENTRY_NAME">
        <source>Delete entry</source>
        <translation>Delete entry</translation>
    </message>
    <message id="REMOVE_ENTRY_TIP">
        <source>Move the selected entry to the trash</source>
        <translation>Move the selected entry to the trash</translation>
    </message>
    <message id="SETTINGS_BUTTON_NAME">
        <source>Preferences</source>
        <translation>Preferences</translation>
    </message>
    <message id="SETTINGS_BUTTON_TIP">
        <source>Manage notebooks and settings</source>
        <translation>Manage notebooks and settings</translation>
    </message>
    <message id="STYLES_BUTTON_NAME">
        <source>Preview styles</source>
        <translation>Preview styles</translation>
    </message>
    <message id="STYLES_BUTTON_TIP">
        <source>Choose the style of the preview</source>
        <translation>Choose the style of the preview</translation>
    </message>
    <message id="THE_CURRENT_FILENAME_PLACEHOLDER">
        <source>Title or search</source>
        <translation>Title or search</translation>
    </message>
    <message id="TITLE_FIELD_NAME">
        <source>Entry title</source>
        <translation>Entry title</translation>
    </message>
    <message id="TITLE_FIELD_TIP">
        <source>The title of the entry; type to search the notebook</source>
        <translation>The title of the entry; type to search the notebook</translation>
    </message>
    <message id="WORD_COUNTER_NAME">
        <source>Words and characters</source>
        <translation>Words and characters</translation>
    </message>
    <message id="WORD_COUNTER_TIP">
        <source>Words : characters of this entry</source>
        <translation>Words : characters of this entry</translation>
    </message>
    <message id="FOLDER_LOCKED">
        <source>This notebook folder is locked</source>
        <translation>This notebook folder is locked</translation>
    </message>
    <message id="MENU_COPY">
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message id="MENU_COPY_TIP">
        <source>Copy the selected text</source>
        <translation>Copy the selected text</translation>
    </message>
    <message id="MENU_CUT">
        <source>Cut</source>
        <translation>Cut</translation>
    </message>
    <message id="MENU_CUT_TIP">
        <source>Cut the selected text</source>
        <translation>Cut the selected text</translation>
    </message>
    <message id="MENU_PASTE">
        <source>Paste</source>
        <translation>Paste</translation>
    </message>
    <message id="MENU_PASTE_TIP">
        <source>Paste at the cursor</source>
        <translation>Paste at the cursor</translation>
    </message>
    <message id="MENU_PREVIEW_STYLES">
        <source>Preview Styles…</source>
        <translation>Preview Styles…</translation>
    </message>
    <message id="MENU_SELECT_ALL">
        <source>Select All</source>
        <translation>Select All</translation>
    </message>
    <message id="MENU_SELECT_ALL_TIP">
        <source>Select the whole entry</source>
        <translation>Select the whole entry</translation>
    </message>
    <message id="MENU_SHOW_ATTACHMENTS">
        <source>Attachments</source>
        <translation>Attachments</translation>
    </message>
    <message id="MENU_SHOW_EDITOR">
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message id="MENU_SHOW_PREVIEW">
        <source>Preview</source>
        <translation>Preview</translation>
    </message>
    <message id="MENU_TAB_ACTIONS">
        <source>Tab Actions…</source>
        <translation>Tab Actions…</translation>
    </message>
    <message id="MENU_TAB_ACTIONS_TIP">
        <source>Edit the abbreviations Tab expands</source>
        <translation>Edit the abbreviations Tab expands</translation>
    </message>
    <message id="MENU_TEXT">
        <source>&amp;Text</source>
        <translation>&amp;Text</translation>
    </message>
    <message id="MESSAGE_BAR_DISMISS">
        <source>Dismiss</source>
        <translation>Dismiss</translation>
    </message>
    <message id="MESSAGE_BAR_DISMISS_TIP">
        <source>Hide this message</source>
        <translation>Hide this message</translation>
    </message>
    <message id="MESSAGE_BAR_NAME">
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message id="MESSAGE_BAR_TIP">
        <source>What did not work, and what you can do about it</source>
        <translation>What did not work, and what you can do about it</translation>
    </message>
    <message id="SETTINGS_DAMAGED">
        <source>Your settings file was damaged. Vellox uses what it could read; the original is kept as “%1”.</source>
        <translation>Your settings file was damaged. Vellox uses what it could read; the original is kept as “%1”.</translation>
    </message>
    <message id="MENU_NOTES">
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message id="MENU_ADD_NOTE">
        <source>New Quick Note…</source>
        <translation>New Quick Note…</translation>
    </message>
    <message id="MENU_EDIT_NOTE">
        <source>Edit Quick Note…</source>
        <translation>Edit Quick Note…</translation>
    </message>
    <message id="MENU_REMOVE_NOTE">
        <source>Remove Quick Note</source>
        <translation>Remove Quick Note</translation>
    </message>
    <message id="MENU_SEND_NOTE">
        <source>Insert Selected Note</source>
        <translation>Insert Selected Note</translation>
    </message>
    <message id="MENU_SEND_NOTE_TIP">
        <source>Insert the selected quick note's text into the entry at the cursor</source>
        <translation>Insert the selected quick note's text into the entry at the cursor</translation>
    </message>
    <message id="MENU_SEND_ALL_NOTES">
        <source>Insert All Notes</source>
        <translation>Insert All Notes</translation>
    </message>
    <message id="MENU_SEND_ALL_NOTES_TIP">
        <source>Insert the text of every quick note into the entry, each followed by an empty line</source>
        <translation>Insert the text of every quick note into the entry, each followed by an empty line</translation>
    </message>
    <message id="MENU_SEND_TODAYS_NOTES">
        <source>Insert Today's Notes</source>
        <translation>Insert Today's Notes</translation>
    </message>
    <message id="MENU_SEND_TODAYS_NOTES_TIP">
        <source>Insert the text of the quick notes taken today into the entry</source>
        <translation>Insert the text of the quick notes taken today into the entry</translation>
    </message>
    <message id="MENU_DELETE_NOTES_EXCEPT_TODAY">
        <source>Delete Older Notes</source>
        <translation>Delete Older Notes</translation>
    </message>
    <message id="MENU_DELETE_NOTES_EXCEPT_TODAY_TIP">
        <source>Delete quick notes not taken today (every second one of a run of older notes each time)</source>
        <translation>Delete quick notes not taken today (every second one of a run of older notes each time)</translation>
    </message>
    <message id="MENU_DELETE_ALL_NOTES">
        <source>Delete All Notes</source>
        <translation>Delete All Notes</translation>
    </message>
    <message id="MENU_DELETE_ALL_NOTES_TIP">
        <source>Delete every quick note of this notebook</source>
        <translation>Delete every quick note of this notebook</translation>
    </message>
    <message id="MENU_ACTIVATE_NOTES">
        <source>Go to Quick Notes</source>
        <translation>Go to Quick Notes</translation>
    </message>
    <message id="MENU_ACTIVATE_NOTES_TIP">
        <source>Move the keyboard focus to the quick notes list</source>
        <translation>Move the keyboard focus to the quick notes list</translation>
    </message>
    <message id="MENU_HELP">
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message id="MENU_CAPTURE_LINKS">
        <source>Capture Links from Your Browser…</source>
        <translation>Capture Links from Your Browser…</translation>
    </message>
    <message id="MENU_CAPTURE_LINKS_TIP">
        <source>Show the bookmarklet that sends a web page and its selected text to Vellox as a quick note</source>
        <translation>Show the bookmarklet that sends a web page and its selected text to Vellox as a quick note</translation>
    </message>
    <message id="OPEN_WITH_ITEM_TIP">
        <source>Open the entry with %1</source>
        <translation>Open the entry with %1</translation>
    </message>
    <message id="MENU_ENTRY">
        <source>Entry</source>
        <translation>Entry</translation>
    </message>
    <message id="MENU_NEXT_ENTRY">
        <source>Next Entry</source>
        <translation>Next Entry</translation>
    </message>
    <message id="MENU_NEXT_ENTRY_TIP">
        <source>Open the entry below the selected one</source>
        <translation>Open the entry below the selected one</translation>
    </message>
    <message id="MENU_PREVIOUS_ENTRY">
        <source>Previous Entry</source>
        <translation>Previous Entry</translation>
    </message>
    <message id="MENU_PREVIOUS_ENTRY_TIP">
        <source>Open the entry above the selected one</source>
        <translation>Open the entry above the selected one</translation>
    </message>
    <message id="MENU_INSERT_DATE_TIME">
        <source>Insert Date and Time</source>
        <translation>Insert Date and Time</translation>
    </message>
    <message id="MENU_INSERT_DATE_TIME_TIP">
        <source>Put today’s date and the time where the cursor is</source>
        <translation>Put today’s date and the time where the cursor is</translation>
    </message>
    <message id="MENU_RENAME_ENTRY">
        <source>Rename…</source>
        <translation>Rename…</translation>
    </message>
    <message id="MENU_RENAME_ENTRY_TIP">
        <source>Give the entry a new title; its attachments folder follows</source>
        <translation>Give the entry a new title; its attachments folder follows</translation>
    </message>
    <message id="MENU_DELETE_ENTRY">
        <source>Move to Trash</source>
        <translation>Move to Trash</translation>
    </message>
    <message id="MENU_DELETE_ENTRY_TIP">
        <source>Move the entry and its attachments to the desktop’s trash</source>
        <translation>Move the entry and its attachments to the desktop’s trash</translation>
    </message>
    <message id="MENU_SHOW_IN_FILE_BROWSER">
        <source>Show in File Browser</source>
        <translation>Show in File Browser</translation>
    </message>
    <message id="MENU_SHOW_IN_FILE_BROWSER_TIP">
        <source>Show the entry’s file in the file browser</source>
        <translation>Show the entry’s file in the file browser</translation>
    </message>
    <message id="MENU_SHOW_ATTACHMENTS_IN_FILE_BROWSER">
        <source>Show Attachments in File Browser</source>
        <translation>Show Attachments in File Browser</translation>
    </message>
    <message id="MENU_SHOW_ATTACHMENTS_IN_FILE_BROWSER_TIP">
        <source>Open the entry’s attachments folder in the file browser</source>
        <translation>Open the entry’s attachments folder in the file browser</translation>
    </message>
    <message id="MENU_PRINT">
        <source>Print…</source>
        <translation>Print…</translation>
    </message>
    <message id="MENU_PRINT_TIP">
        <source>Print the entry’s text, or save it as a PDF file</source>
        <translation>Print the entry’s text, or save it as a PDF file</translation>
    </message>
    <message id="MENU_OPEN_IN_SIDE_EDITOR">
        <source>Open in Separate Window</source>
        <translation>Open in Separate Window</translation>
    </message>
    <message id="MENU_OPEN_IN_SIDE_EDITOR_TIP">
        <source>Edit the entry in a small window of its own beside this one</source>
        <translation>Edit the entry in a small window of its own beside this one</translation>
    </message>
    <message id="MENU_OPEN_WITH">
        <source>Open With</source>
        <translation>Open With</translation>
    </message>
    <message id="CAPTURE_PANEL_SEARCH">
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message id="MENU_COMPLETE_WORD">
        <source>Complete Word</source>
        <translation>Complete Word</translation>
    </message>
    <message id="MENU_COMPLETE_WORD_TIP">
        <source>Offer the tab-action abbreviations that begin with the word before the caret</source>
        <translation>Offer the tab-action abbreviations that begin with the word before the caret</translation>
    </message>
    <message id="MENU_CHECK_SPELLING">
        <source>Check Spelling While Typing</source>
        <translation>Check Spelling While Typing</translation>
    </message>
    <message id="MENU_CHECK_SPELLING_TIP">
        <source>Underline misspelled words in red as you write</source>
        <translation>Underline misspelled words in red as you write</translation>
    </message>
    <message id="MENU_FULL_SCREEN">
        <source>Full Screen</source>
        <translation>Full Screen</translation>
    </message>
    <message id="MENU_FULL_SCREEN_TIP">
        <source>Show only the text, centred on the full-screen background</source>
        <translation>Show only the text, centred on the full-screen background</translation>
    </message>
    <message id="MENU_DISTRACTION_FREE">
        <source>Distraction-Free Writing</source>
        <translation>Distraction-Free Writing</translation>
    </message>
    <message id="MENU_DISTRACTION_FREE_TIP">
        <source>Write in a window of its own that covers the screen; Escape leaves</source>
        <translation>Write in a window of its own that covers the screen; Escape leaves</translation>
    </message>
    <message id="PREFERENCES_ALIGNMENT">
        <source>Alignment</source>
        <translation>Alignment</translation>
    </message>
    <message id="PREFERENCES_ALIGNMENT_TIP">
        <source>How the lines of a paragraph line up</source>
        <translation>How the lines of a paragraph line up</translation>
    </message>
    <message id="PREFERENCES_ALIGN_CENTRE">
        <source>Centred</source>
        <translation>Centred</translation>
    </message>
    <message id="PREFERENCES_ALIGN_JUSTIFIED">
        <source>Justified</source>
        <translation>Justified</translation>
    </message>
    <message id="PREFERENCES_ALIGN_LEFT">
        <source>Left</source>
        <translation>Left</translation>
    </message>
    <message id="PREFERENCES_ALIGN_NATURAL">
        <source>Natural (by writing direction)</source>
        <translation>Natural (by writing direction)</translation>
    </message>
    <message id="PREFERENCES_ALIGN_RIGHT">
        <source>Right</source>
        <translation>Right</translation>
    </message>
    <message id="PREFERENCES_APPEARANCE_PANE">
        <source>Appearance</source>
        <translation>Appearance</translation>
    </message>
    <message id="PREFERENCES_BACKGROUND_COLOUR">
        <source>Background colour</source>
        <translation>Background colour</translation>
    </message>
    <message id="PREFERENCES_BACKGROUND_COLOUR_TIP">
        <source>The colour behind the text</source>
        <translation>The colour behind the text</translation>
    </message>
    <message id="PREFERENCES_CARET_COLOUR">
        <source>Caret colour</source>
        <translation>Caret colour</translation>
    </message>
    <message id="PREFERENCES_CARET_COLOUR_OWN">
        <source>Own caret colour</source>
        <translation>Own caret colour</translation>
    </message>
    <message id="PREFERENCES_CARET_COLOUR_OWN_TIP">
        <source>Without it the caret has the text colour</source>
        <translation>Without it the caret has the text colour</translation>
    </message>
    <message id="PREFERENCES_CARET_TALL">
        <source>Tall caret</source>
        <translation>Tall caret</translation>
    </message>
    <message id="PREFERENCES_CARET_TALL_TIP">
        <source>A caret half again as tall as the line</source>
        <translation>A caret half again as tall as the line</translation>
    </message>
    <message id="PREFERENCES_CARET_WIDE">
        <source>Block caret</source>
        <translation>Block caret</translation>
    </message>
    <message id="PREFERENCES_CARET_WIDE_TIP">
        <source>A caret half as wide as it is tall</source>
        <translation>A caret half as wide as it is tall</translation>
    </message>
    <message id="PREFERENCES_COLOURS">
        <source>Colours</source>
        <translation>Colours</translation>
    </message>
    <message id="PREFERENCES_DARK">
        <source>Dark style</source>
        <translation>Dark style</translation>
    </message>
    <message id="PREFERENCES_DARK_TIP">
        <source>Light text and icons on dark backgrounds in the main window</source>
        <translation>Light text and icons on dark backgrounds in the main window</translation>
    </message>
    <message id="PREFERENCES_DASHES">
        <source>Replace double hyphens with dashes</source>
        <translation>Replace double hyphens with dashes</translation>
    </message>
    <message id="PREFERENCES_DASHES_TIP">
        <source>Two hyphens between words become an em dash</source>
        <translation>Two hyphens between words become an em dash</translation>
    </message>
    <message id="PREFERENCES_FONT">
        <source>Font</source>
        <translation>Font</translation>
    </message>
    <message id="PREFERENCES_FONT_SIZE">
        <source>Font size</source>
        <translation>Font size</translation>
    </message>
    <message id="PREFERENCES_FONT_SIZE_TIP">
        <source>The size of the entry text, in points</source>
        <translation>The size of the entry text, in points</translation>
    </message>
    <message id="PREFERENCES_FONT_TIP">
        <source>The typeface of the entry text</source>
        <translation>The typeface of the entry text</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_COLOUR">
        <source>Background colour</source>
        <translation>Background colour</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_COLOUR_TIP">
        <source>The colour around the text in full screen</source>
        <translation>The colour around the text in full screen</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_HEIGHT">
        <source>Text height</source>
        <translation>Text height</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_IMAGE">
        <source>Background image</source>
        <translation>Background image</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_IMAGE_CHOOSE">
        <source>Choose…</source>
        <translation>Choose…</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_IMAGE_TIP">
        <source>The picture around the text in full screen, when switched on</source>
        <translation>The picture around the text in full screen, when switched on</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_PANE">
        <source>Full Screen</source>
        <translation>Full Screen</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_USE_IMAGE">
        <source>Use a background image</source>
        <translation>Use a background image</translation>
    </message>
    <message id="PREFERENCES_FULLSCREEN_WIDTH">
        <source>Text width</source>
        <translation>Text width</translation>
    </message>
    <message id="PREFERENCES_GUTTER">
        <source>Show line numbers</source>
        <translation>Show line numbers</translation>
    </message>
    <message id="PREFERENCES_GUTTER_TEXT_FONT">
        <source>Line numbers in the text font and colour</source>
        <translation>Line numbers in the text font and colour</translation>
    </message>
    <message id="PREFERENCES_GUTTER_THICK">
        <source>Wide line-number gutter</source>
        <translation>Wide line-number gutter</translation>
    </message>
    <message id="PREFERENCES_GUTTER_TIP">
        <source>A gutter with the number of each paragraph</source>
        <translation>A gutter with the number of each paragraph</translation>
    </message>
    <message id="PREFERENCES_HEAD_INDENT">
        <source>First-line indent</source>
        <translation>First-line indent</translation>
    </message>
    <message id="PREFERENCES_LINE_SPACING">
        <source>Line spacing</source>
        <translation>Line spacing</translation>
    </message>
    <message id="PREFERENCES_LINKS">
        <source>Detect links</source>
        <translation>Detect links</translation>
    </message>
    <message id="PREFERENCES_LINKS_TIP">
        <source>Web addresses are underlined and open with Ctrl+click</source>
        <translation>Web addresses are underlined and open with Ctrl+click</translation>
    </message>
    <message id="PREFERENCES_MARGIN">
        <source>Margin</source>
        <translation>Margin</translation>
    </message>
    <message id="PREFERENCES_MARGIN_TIP">
        <source>Space left and right of the text lines, in points</source>
        <translation>Space left and right of the text lines, in points</translation>
    </message>
    <message id="PREFERENCES_PAIRING">
        <source>Close brackets and quotes</source>
        <translation>Close brackets and quotes</translation>
    </message>
    <message id="PREFERENCES_PAIRING_TIP">
        <source>Typing an opening bracket or quote adds its closing partner</source>
        <translation>Typing an opening bracket or quote adds its closing partner</translation>
    </message>
    <message id="PREFERENCES_PARAGRAPH_SPACING">
        <source>Paragraph spacing</source>
        <translation>Paragraph spacing</translation>
    </message>
    <message id="PREFERENCES_PERCENT_TIP">
        <source>Percent of the screen</source>
        <translation>Percent of the screen</translation>
    </message>
    <message id="PREFERENCES_POINTS_TIP">
        <source>In points</source>
        <translation>In points</translation>
    </message>
    <message id="PREFERENCES_QUOTES">
        <source>Quotation marks</source>
        <translation>Quotation marks</translation>
    </message>
    <message id="PREFERENCES_QUOTES_STRAIGHT">
        <source>Straight quotes</source>
        <translation>Straight quotes</translation>
    </message>
    <message id="PREFERENCES_QUOTES_TIP">
        <source>The marks a typed quote becomes</source>
        <translation>The marks a typed quote becomes</translation>
    </message>
    <message id="PREFERENCES_SCROLLBAR">
        <source>Show the scroll bar</source>
        <translation>Show the scroll bar</translation>
    </message>
    <message id="PREFERENCES_SCROLLBAR_TIP">
        <source>A vertical scroll bar beside the text</source>
        <translation>A vertical scroll bar beside the text</translation>
    </message>
    <message id="PREFERENCES_SELECTION">
        <source>Own selection colour</source>
        <translation>Own selection colour</translation>
    </message>
    <message id="PREFERENCES_SELECTION_COLOUR">
        <source>Selection colour</source>
        <translation>Selection colour</translation>
    </message>
    <message id="PREFERENCES_SELECTION_TIP">
        <source>Selected text is marked in the colour beside, not the desktop's</source>
        <translation>Selected text is marked in the colour beside, not the desktop's</translation>
    </message>
    <message id="PREFERENCES_SPELLING">
        <source>Check spelling while typing</source>
        <translation>Check spelling while typing</translation>
    </message>
    <message id="PREFERENCES_SPELLING_TIP">
        <source>Misspelled words are underlined in red</source>
        <translation>Misspelled words are underlined in red</translation>
    </message>
    <message id="PREFERENCES_TEXT_COLOUR">
        <source>Text colour</source>
        <translation>Text colour</translation>
    </message>
    <message id="PREFERENCES_TEXT_COLOUR_TIP">
        <source>The colour of the text and of the line numbers</source>
        <translation>The colour of the text and of the line numbers</translation>
    </message>
    <message id="PREFERENCES_TEXT_GROUP">
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message id="PREFERENCES_TYPEWRITER">
        <source>Typewriter scrolling</source>
        <translation>Typewriter scrolling</translation>
    </message>
    <message id="PREFERENCES_TYPEWRITER_TIP">
        <source>Keeps the line being written in the middle of the view</source>
        <translation>Keeps the line being written in the middle of the view</translation>
    </message>
    <message id="PREFERENCES_TYPING_PANE">
        <source>Typing</source>
        <translation>Typing</translation>
    </message>
    <message id="PREFERENCES_VIEW_GROUP">
        <source>Caret and view</source>
        <translation>Caret and view</translation>
    </message>
    <message id="FULLSCREEN_BACKGROUND">
        <source>Full-screen background</source>
        <translation>Full-screen background</translation>
    </message>
    <message id="FULLSCREEN_BACKGROUND_TIP">
        <source>Press Escape to leave</source>
        <translation>Press Escape to leave</translation>
    </message>
    <message id="FULLSCREEN_DISTRACTION_FREE">
        <source>Distraction-Free Writing</source>
        <translation>Distraction-Free Writing</translation>
    </message>
    <message id="PREFERENCES_DOCKLESS">
        <source>No taskbar entry (reach the window from the tray)</source>
        <translation>No taskbar entry (reach the window from the tray)</translation>
    </message>
    <message id="PREFERENCES_DOCKLESS_TIP">
        <source>Takes effect the next time Vellox starts</source>
        <translation>Takes effect the next time Vellox starts</translation>
    </message>
    <message id="PREFERENCES_ENTRIES_PANE">
        <source>Entries</source>
        <translation>Entries</translation>
    </message>
    <message id="PREFERENCES_EXTENSION">
        <source>File type of new entries</source>
        <translation>File type of new entries</translation>
    </message>
    <message id="PREFERENCES_LIST_DATES">
        <source>Show dates in the list</source>
        <translation>Show dates in the list</translation>
    </message>
    <message id="PREFERENCES_LIST_DATES_TIP">
        <source>Each entry shows when it was created and last changed</source>
        <translation>Each entry shows when it was created and last changed</translation>
    </message>
    <message id="PREFERENCES_LIST_INFO_SIZE">
        <source>Detail size</source>
        <translation>Detail size</translation>
    </message>
    <message id="PREFERENCES_LIST_INFO_SIZE_TIP">
        <source>Font size of the dates and lines under each title, in points</source>
        <translation>Font size of the dates and lines under each title, in points</translation>
    </message>
    <message id="PREFERENCES_LIST_LINES">
        <source>Show the beginning of the text</source>
        <translation>Show the beginning of the text</translation>
    </message>
    <message id="PREFERENCES_LIST_LINES_TIP">
        <source>Each entry shows its first lines instead of the dates</source>
        <translation>Each entry shows its first lines instead of the dates</translation>
    </message>
    <message id="PREFERENCES_LIST_LINE_COUNT">
        <source>Lines of text per entry</source>
        <translation>Lines of text per entry</translation>
    </message>
    <message id="PREFERENCES_LIST_TITLE_SIZE">
        <source>Title size</source>
        <translation>Title size</translation>
    </message>
    <message id="PREFERENCES_LIST_TITLE_SIZE_TIP">
        <source>Font size of the entry titles in the list, in points</source>
        <translation>Font size of the entry titles in the list, in points</translation>
    </message>
    <message id="PREFERENCES_EXTENSION_TIP">
        <source>The extension new entries are saved with; “textbundle” keeps each entry with its attachments in a folder</source>
        <translation>The extension new entries are saved with; “textbundle” keeps each entry with its attachments in a folder</translation>
    </message>
    <message id="CAPTURE_PANEL_NOTE">
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message id="PREFERENCES_ATTACHMENTS_AUTO">
        <source>Open the attachment pane by itself</source>
        <translation>Open the attachment pane by itself</translation>
    </message>
    <message id="PREFERENCES_ATTACHMENTS_AUTO_TIP">
        <source>The pane opens for an entry with attachments and closes for one without</source>
        <translation>The pane opens for an entry with attachments and closes for one without</translation>
    </message>
    <message id="PREFERENCES_ATTACHMENTS_GROUP">
        <source>Attachments</source>
        <translation>Attachments</translation>
    </message>
    <message id="PREFERENCES_ATTACHMENTS_TRASH_SOURCE">
        <source>Move dropped files to the trash once copied</source>
        <translation>Move dropped files to the trash once copied</translation>
    </message>
    <message id="PREFERENCES_ATTACHMENTS_TRASH_SOURCE_TIP">
        <source>A file dropped on the pane goes to the trash after its copy is complete</source>
        <translation>A file dropped on the pane goes to the trash after its copy is complete</translation>
    </message>
    <message id="PREFERENCES_NOTES_DATE_SIZE">
        <source>Title size</source>
        <translation>Title size</translation>
    </message>
    <message id="PREFERENCES_NOTES_DATE_SIZE_TIP">
        <source>Font size of each note's time and date, in points</source>
        <translation>Font size of each note's time and date, in points</translation>
    </message>
    <message id="PREFERENCES_NOTES_GROUP">
        <source>Quick notes</source>
        <translation>Quick notes</translation>
    </message>
    <message id="PREFERENCES_NOTES_PRINTING_PANE">
        <source>Notes &amp; Printing</source>
        <translation>Notes &amp; Printing</translation>
    </message>
    <message id="PREFERENCES_NOTES_TEXT_SIZE">
        <source>Text size</source>
        <translation>Text size</translation>
    </message>
    <message id="PREFERENCES_NOTES_TEXT_SIZE_TIP">
        <source>Font size of the notes' text, in points</source>
        <translation>Font size of the notes' text, in points</translation>
    </message>
    <message id="PREFERENCES_PRINTING_GROUP">
        <source>Printing</source>
        <translation>Printing</translation>
    </message>
    <message id="PREFERENCES_PRINT_COLOR">
        <source>Colour</source>
        <translation>Colour</translation>
    </message>
    <message id="PREFERENCES_PRINT_COLOR_TIP">
        <source>Colour of the printed text</source>
        <translation>Colour of the printed text</translation>
    </message>
    <message id="PREFERENCES_PRINT_FONT">
        <source>Font</source>
        <translation>Font</translation>
    </message>
    <message id="PREFERENCES_PRINT_FONT_TIP">
        <source>The typeface printed entries are set in</source>
        <translation>The typeface printed entries are set in</translation>
    </message>
    <message id="PREFERENCES_PRINT_SIZE">
        <source>Size</source>
        <translation>Size</translation>
    </message>
    <message id="PREFERENCES_PRINT_SIZE_TIP">
        <source>Font size of printed entries, in points</source>
        <translation>Font size of printed entries, in points</translation>
    </message>
</context>
</TS>
