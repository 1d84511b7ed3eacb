<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="ATTACHMENT_ADD_NAME">
        <source>Add Attachments…</source>
        <translation>Add Attachments…</translation>
    </message>
    <message id="ATTACHMENT_ADD_TIP">
        <source>Attach files to this entry</source>
        <translation>Attach files to this entry</translation>
    </message>
    <message id="ATTACHMENT_CANCEL_NAME">
        <source>Cancel Downloads</source>
        <translation>Cancel Downloads</translation>
    </message>
    <message id="ATTACHMENT_CANCEL_TIP">
        <source>Stop the downloads; nothing half-loaded is kept</source>
        <translation>Stop the downloads; nothing half-loaded is kept</translation>
    </message>
    <message id="ATTACHMENT_COPY_FAILED">
        <source>“%1” could not be copied: %2</source>
        <translation>“%1” could not be copied: %2</translation>
    </message>
    <message id="ATTACHMENT_COPY_SHORT">
        <source>“%1” could not be copied completely.</source>
        <translation>“%1” could not be copied completely.</translation>
    </message>
    <message id="ATTACHMENT_DOWNLOADS_COUNT">
        <source>Downloading %1</source>
        <translation>Downloading %1</translation>
    </message>
    <message id="ATTACHMENT_DOWNLOADS_NAME">
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message id="ATTACHMENT_DOWNLOADS_TIP">
        <source>Links being downloaded into this entry</source>
        <translation>Links being downloaded into this entry</translation>
    </message>
    <message id="ATTACHMENT_DOWNLOAD_CANCELLED">
        <source>The download of %1 was cancelled.</source>
        <translation>The download of %1 was cancelled.</translation>
    </message>
    <message id="ATTACHMENT_DOWNLOAD_FAILED">
        <source>%1 could not be downloaded: %2</source>
        <translation>%1 could not be downloaded: %2</translation>
    </message>
    <message id="ATTACHMENT_FOLDER_FAILED">
        <source>The attachment folder “%1” could not be created.</source>
        <translation>The attachment folder “%1” could not be created.</translation>
    </message>
    <message id="ATTACHMENT_LIST_NAME">
        <source>Attached files</source>
        <translation>Attached files</translation>
    </message>
    <message id="ATTACHMENT_LIST_TIP">
        <source>The files attached to this entry. Drop files, pictures or links here to attach them; drag one into the entry to insert it; Space shows it.</source>
        <translation>The files attached to this entry. Drop files, pictures or links here to attach them; drag one into the entry to insert it; Space shows it.</translation>
    </message>
    <message id="ATTACHMENT_NAME_TAKEN">
        <source>“%1” is already attached to this entry; the file there was left as it is.</source>
        <translation>“%1” is already attached to this entry; the file there was left as it is.</translation>
    </message>
    <message id="ATTACHMENT_NO_ENTRY">
        <source>Choose or name an entry first: attachments belong to an entry.</source>
        <translation>Choose or name an entry first: attachments belong to an entry.</translation>
    </message>
    <message id="ATTACHMENT_OPEN_FAILED">
        <source>No application could open “%1”.</source>
        <translation>No application could open “%1”.</translation>
    </message>
    <message id="ATTACHMENT_OPEN_NAME">
        <source>Open Attachment</source>
        <translation>Open Attachment</translation>
    </message>
    <message id="ATTACHMENT_OPEN_TIP">
        <source>Open the selected attachment in its default application</source>
        <translation>Open the selected attachment in its default application</translation>
    </message>
    <message id="ATTACHMENT_PREVIEW_NAME">
        <source>Preview Attachment</source>
        <translation>Preview Attachment</translation>
    </message>
    <message id="ATTACHMENT_PREVIEW_TIP">
        <source>Show the selected attachment in the preview window (Space)</source>
        <translation>Show the selected attachment in the preview window (Space)</translation>
    </message>
    <message id="ATTACHMENT_PREVIEW_WINDOW_NAME">
        <source>Attachment preview</source>
        <translation>Attachment preview</translation>
    </message>
    <message id="ATTACHMENT_PREVIEW_WINDOW_TIP">
        <source>The selected attachment. Arrow keys show the next or previous one; Escape or Space close.</source>
        <translation>The selected attachment. Arrow keys show the next or previous one; Escape or Space close.</translation>
    </message>
    <message id="ATTACHMENT_REMOVE_NAME">
        <source>Remove Attachment</source>
        <translation>Remove Attachment</translation>
    </message>
    <message id="ATTACHMENT_REMOVE_TIP">
        <source>Delete the selected attachment at once (it does not go to the trash)</source>
        <translation>Delete the selected attachment at once (it does not go to the trash)</translation>
    </message>
    <message id="ATTACHMENT_REVEAL_FAILED">
        <source>No file manager could show “%1”.</source>
        <translation>No file manager could show “%1”.</translation>
    </message>
    <message id="ATTACHMENT_REVEAL_NAME">
        <source>Show in File Manager</source>
        <translation>Show in File Manager</translation>
    </message>
    <message id="ATTACHMENT_REVEAL_TIP">
        <source>Show the selected attachment in the file manager</source>
        <translation>Show the selected attachment in the file manager</translation>
    </message>
    <message id="ATTACHMENT_RTF_NO_READER">
        <source>Rich text cannot be shown: pandoc is not installed.</source>
        <translation>Rich text cannot be shown: pandoc is not installed.</translation>
    </message>
    <message id="ATTACHMENT_TRASH_FAILED">
        <source>“%1” could not be moved to the trash; it stays where it was.</source>
        <translation>“%1” could not be moved to the trash; it stays where it was.</translation>
    </message>
    <message id="ATTACHMENT_WRITE_FAILED">
        <source>“%1” could not be written: %2</source>
        <translation>“%1” could not be written: %2</translation>
    </message>
    <message id="SELECT_FILE_FOLDER_SHEET_MESSAGE">
        <source>Choose the files to attach to this entry.</source>
        <translation>Choose the files to attach to this entry.</translation>
    </message>
    <message id="SELECT_FILE_FOLDER_SHEET_TITLE">
        <source>Add Attachments</source>
        <translation>Add Attachments</translation>
    </message>
</context>
</TS>
