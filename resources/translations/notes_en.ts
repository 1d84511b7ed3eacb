<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="NOTES_ADD_NAME">
        <source>Add Note</source>
        <translation>Add Note</translation>
    </message>
    <message id="NOTES_ADD_SHEET_TITLE">
        <source>New Quick Note</source>
        <translation>New Quick Note</translation>
    </message>
    <message id="NOTES_ADD_TIP">
        <source>Write a new quick note</source>
        <translation>Write a new quick note</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_CLOSE_TIP">
        <source>Close this window</source>
        <translation>Close this window</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_CODE_NAME">
        <source>Bookmarklet code</source>
        <translation>Bookmarklet code</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_CODE_TIP">
        <source>The bookmark's address: a small script that sends the page to Vellox</source>
        <translation>The bookmark's address: a small script that sends the page to Vellox</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_COPY">
        <source>Copy Code</source>
        <translation>Copy Code</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_COPY_TIP">
        <source>Copy the bookmarklet to the clipboard</source>
        <translation>Copy the bookmarklet to the clipboard</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_EXPLANATION">
        <source>Drag the link below onto your browser's bookmarks bar, or make a new bookmark and paste the code below as its address. Select some text on a web page and click the bookmark: the page's address and the selected text become a quick note in the notebook open in Vellox.</source>
        <translation>Drag the link below onto your browser's bookmarks bar, or make a new bookmark and paste the code below as its address. Select some text on a web page and click the bookmark: the page's address and the selected text become a quick note in the notebook open in Vellox.</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_LINK">
        <source>Send to Vellox</source>
        <translation>Send to Vellox</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_LINK_TIP">
        <source>Drag this onto your bookmarks bar</source>
        <translation>Drag this onto your bookmarks bar</translation>
    </message>
    <message id="NOTES_BOOKMARKLET_TITLE">
        <source>Capture Links from Your Browser</source>
        <translation>Capture Links from Your Browser</translation>
    </message>
    <message id="NOTES_CANNOT_ADD">
        <source>No note can be added to this notebook.</source>
        <translation>No note can be added to this notebook.</translation>
    </message>
    <message id="NOTES_COPY_NOTE">
        <source>Copy Note</source>
        <translation>Copy Note</translation>
    </message>
    <message id="NOTES_COPY_NOTE_TIP">
        <source>Copy the note's text to the clipboard</source>
        <translation>Copy the note's text to the clipboard</translation>
    </message>
    <message id="NOTES_DAMAGED_COPIED">
        <source>The quick notes file “%1” could not be read. It was copied to “%2”, and a new one holds the note just taken.</source>
        <translation>The quick notes file “%1” could not be read. It was copied to “%2”, and a new one holds the note just taken.</translation>
    </message>
    <message id="NOTES_DETACHED">
        <source>%1 The quick notes in “%2” could not be read, and the file is left as it is.</source>
        <translation>%1 The quick notes in “%2” could not be read, and the file is left as it is.</translation>
    </message>
    <message id="NOTES_EDIT_NAME">
        <source>Edit Note</source>
        <translation>Edit Note</translation>
    </message>
    <message id="NOTES_EDIT_SHEET_TITLE">
        <source>Edit Quick Note</source>
        <translation>Edit Quick Note</translation>
    </message>
    <message id="NOTES_EDIT_TIP">
        <source>Edit the text of the selected quick note</source>
        <translation>Edit the text of the selected quick note</translation>
    </message>
    <message id="NOTES_FILE_DAMAGED">
        <source>The quick notes in “%1” could not be read. The file is left as it is, and notes of this notebook cannot be added or changed until it can be read.</source>
        <translation>The quick notes in “%1” could not be read. The file is left as it is, and notes of this notebook cannot be added or changed until it can be read.</translation>
    </message>
    <message id="NOTES_HEADING">
        <source>Quick Notes</source>
        <translation>Quick Notes</translation>
    </message>
    <message id="NOTES_LINK_INCOMPLETE">
        <source>A link from the browser held no note: it lacks the page's address or text. Make the bookmarklet again from Help › Capture Links from Your Browser.</source>
        <translation>A link from the browser held no note: it lacks the page's address or text. Make the bookmarklet again from Help › Capture Links from Your Browser.</translation>
    </message>
    <message id="NOTES_LINK_NAME">
        <source>Open Link</source>
        <translation>Open Link</translation>
    </message>
    <message id="NOTES_LINK_NOT_ADDED">
        <source>The note from the browser was not added.</source>
        <translation>The note from the browser was not added.</translation>
    </message>
    <message id="NOTES_LINK_TIP">
        <source>Open the web page this note was captured from</source>
        <translation>Open the web page this note was captured from</translation>
    </message>
    <message id="NOTES_LIST_NAME">
        <source>Quick notes of this notebook</source>
        <translation>Quick notes of this notebook</translation>
    </message>
    <message id="NOTES_LIST_TIP">
        <source>Quick notes of this notebook. Double-click one to insert its text into the entry; drag it into the entry or another program.</source>
        <translation>Quick notes of this notebook. Double-click one to insert its text into the entry; drag it into the entry or another program.</translation>
    </message>
    <message id="NOTES_NOT_ADDED">
        <source>The note was not added.</source>
        <translation>The note was not added.</translation>
    </message>
    <message id="NOTES_NOT_CHANGED">
        <source>The note was not changed.</source>
        <translation>The note was not changed.</translation>
    </message>
    <message id="NOTES_REMOVE_NAME">
        <source>Remove Note</source>
        <translation>Remove Note</translation>
    </message>
    <message id="NOTES_REMOVE_TIP">
        <source>Remove the selected quick note</source>
        <translation>Remove the selected quick note</translation>
    </message>
    <message id="NOTES_SAVE_FAILED">
        <source>The quick notes could not be saved to “%1”: %2. They are kept while Vellox runs; the next change tries again.</source>
        <translation>The quick notes could not be saved to “%1”: %2. They are kept while Vellox runs; the next change tries again.</translation>
    </message>
    <message id="NOTES_SHEET_CANCEL_TIP">
        <source>Close without keeping the text</source>
        <translation>Close without keeping the text</translation>
    </message>
    <message id="NOTES_SHEET_DAY_TIP">
        <source>Day of the month</source>
        <translation>Day of the month</translation>
    </message>
    <message id="NOTES_SHEET_MONTH_TIP">
        <source>Month</source>
        <translation>Month</translation>
    </message>
    <message id="NOTES_SHEET_OK_TIP">
        <source>Keep the note</source>
        <translation>Keep the note</translation>
    </message>
    <message id="NOTES_SHEET_TEXT_NAME">
        <source>Note text</source>
        <translation>Note text</translation>
    </message>
    <message id="NOTES_SHEET_TEXT_TIP">
        <source>The text of the quick note</source>
        <translation>The text of the quick note</translation>
    </message>
    <message id="NOTES_SHEET_TIME_TIP">
        <source>The time the note is taken at</source>
        <translation>The time the note is taken at</translation>
    </message>
    <message id="NOTES_SHEET_WEEKDAY_TIP">
        <source>Weekday</source>
        <translation>Weekday</translation>
    </message>
    <message id="NOTES_VIEW_NAME">
        <source>Quick notes</source>
        <translation>Quick notes</translation>
    </message>
    <message id="NOTES_WRITE_FAILED">
        <source>The note could not be written to “%1”: %2</source>
        <translation>The note could not be written to “%1”: %2</translation>
    </message>
    <message id="STATUSBAR_NOTE_CANCEL">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="STATUSBAR_NOTE_CANCEL_TIP">
        <source>Close the panel without keeping the note</source>
        <translation>Close the panel without keeping the note</translation>
    </message>
    <message id="STATUSBAR_NOTE_DAY">
        <source>Day of the month</source>
        <translation>Day of the month</translation>
    </message>
    <message id="STATUSBAR_NOTE_MONTH">
        <source>Month</source>
        <translation>Month</translation>
    </message>
    <message id="STATUSBAR_NOTE_NOTEBOOK">
        <source>Notebook</source>
        <translation>Notebook</translation>
    </message>
    <message id="STATUSBAR_NOTE_NOTEBOOK_TIP">
        <source>The notebook the note goes into</source>
        <translation>The notebook the note goes into</translation>
    </message>
    <message id="STATUSBAR_NOTE_OK">
        <source>Add Note</source>
        <translation>Add Note</translation>
    </message>
    <message id="STATUSBAR_NOTE_OK_TIP">
        <source>Add the note to the chosen notebook</source>
        <translation>Add the note to the chosen notebook</translation>
    </message>
    <message id="STATUSBAR_NOTE_PANE">
        <source>Quick note</source>
        <translation>Quick note</translation>
    </message>
    <message id="STATUSBAR_NOTE_PANE_TIP">
        <source>Take a quick note into any notebook</source>
        <translation>Take a quick note into any notebook</translation>
    </message>
    <message id="STATUSBAR_NOTE_TEXT">
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message id="STATUSBAR_NOTE_TEXT_TIP">
        <source>The text of the note</source>
        <translation>The text of the note</translation>
    </message>
    <message id="STATUSBAR_NOTE_TIME">
        <source>Time the note was begun</source>
        <translation>Time the note was begun</translation>
    </message>
    <message id="STATUSBAR_NOTE_WEEKDAY">
        <source>Weekday</source>
        <translation>Weekday</translation>
    </message>
</context>
</TS>
