<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="CHOOSE_DIR_TO_SAVE_EXPORT">
        <source>Choose the folder to export to</source>
        <translation>Choose the folder to export to</translation>
    </message>
    <message id="EXPORT_CANCEL">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="EXPORT_CANCEL_TIP">
        <source>Stop the export; nothing is written to the folder</source>
        <translation>Stop the export; nothing is written to the folder</translation>
    </message>
    <message id="EXPORT_CHOOSE_CSS">
        <source>Choose…</source>
        <translation>Choose…</translation>
    </message>
    <message id="EXPORT_CHOOSE_CSS_TIP">
        <source>Choose the style sheet to embed</source>
        <translation>Choose the style sheet to embed</translation>
    </message>
    <message id="EXPORT_CLOSE">
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message id="EXPORT_CLOSE_TIP">
        <source>Close the export window</source>
        <translation>Close the export window</translation>
    </message>
    <message id="EXPORT_EBOOK_AUTHOR_FORENAME">
        <source>Author's first name</source>
        <translation>Author's first name</translation>
    </message>
    <message id="EXPORT_EBOOK_AUTHOR_FORENAME_TIP">
        <source>The author's first name</source>
        <translation>The author's first name</translation>
    </message>
    <message id="EXPORT_EBOOK_AUTHOR_NAME">
        <source>Author's last name</source>
        <translation>Author's last name</translation>
    </message>
    <message id="EXPORT_EBOOK_AUTHOR_NAME_TIP">
        <source>The author's last name</source>
        <translation>The author's last name</translation>
    </message>
    <message id="EXPORT_EBOOK_BOOK_URL">
        <source>Book's web address</source>
        <translation>Book's web address</translation>
    </message>
    <message id="EXPORT_EBOOK_BOOK_URL_TIP">
        <source>Where the book can be found on the web</source>
        <translation>Where the book can be found on the web</translation>
    </message>
    <message id="EXPORT_EBOOK_COPYRIGHT">
        <source>Copyright</source>
        <translation>Copyright</translation>
    </message>
    <message id="EXPORT_EBOOK_COPYRIGHT_TIP">
        <source>The book's copyright notice</source>
        <translation>The book's copyright notice</translation>
    </message>
    <message id="EXPORT_EBOOK_COVER">
        <source>Cover Image…</source>
        <translation>Cover Image…</translation>
    </message>
    <message id="EXPORT_EBOOK_COVER_TIP">
        <source>Choose a JPEG, PNG or GIF picture for the book's cover</source>
        <translation>Choose a JPEG, PNG or GIF picture for the book's cover</translation>
    </message>
    <message id="EXPORT_EBOOK_DESCRIPTION">
        <source>Description</source>
        <translation>Description</translation>
    </message>
    <message id="EXPORT_EBOOK_DESCRIPTION_TIP">
        <source>A short description of the book</source>
        <translation>A short description of the book</translation>
    </message>
    <message id="EXPORT_EBOOK_ISBN">
        <source>ISBN</source>
        <translation>ISBN</translation>
    </message>
    <message id="EXPORT_EBOOK_ISBN_TIP">
        <source>The book's ISBN; a unique identifier is made when left empty</source>
        <translation>The book's ISBN; a unique identifier is made when left empty</translation>
    </message>
    <message id="EXPORT_EBOOK_LANGUAGE">
        <source>Language code</source>
        <translation>Language code</translation>
    </message>
    <message id="EXPORT_EBOOK_LANGUAGE_TIP">
        <source>The book's language, such as en or de; the system's when left empty</source>
        <translation>The book's language, such as en or de; the system's when left empty</translation>
    </message>
    <message id="EXPORT_EBOOK_PUBLISHER">
        <source>Publisher</source>
        <translation>Publisher</translation>
    </message>
    <message id="EXPORT_EBOOK_PUBLISHER_TIP">
        <source>The publisher's name</source>
        <translation>The publisher's name</translation>
    </message>
    <message id="EXPORT_EBOOK_PUBLISHER_URL">
        <source>Publisher's web address</source>
        <translation>Publisher's web address</translation>
    </message>
    <message id="EXPORT_EBOOK_PUBLISHER_URL_TIP">
        <source>The publisher's web address</source>
        <translation>The publisher's web address</translation>
    </message>
    <message id="EXPORT_EBOOK_SUBJECT">
        <source>Subject</source>
        <translation>Subject</translation>
    </message>
    <message id="EXPORT_EBOOK_SUBJECT_TIP">
        <source>What the book is about, in a few words</source>
        <translation>What the book is about, in a few words</translation>
    </message>
    <message id="EXPORT_EBOOK_TITLE">
        <source>Title</source>
        <translation>Title</translation>
    </message>
    <message id="EXPORT_EBOOK_TITLE_TIP">
        <source>The book's title; the notebook's name when left empty</source>
        <translation>The book's title; the notebook's name when left empty</translation>
    </message>
    <message id="EXPORT_FAILURE_CONVERSION">
        <source>%1: LibreOffice could not convert it</source>
        <translation>%1: LibreOffice could not convert it</translation>
    </message>
    <message id="EXPORT_FAILURE_DESTINATION">
        <source>%1 cannot be written to</source>
        <translation>%1 cannot be written to</translation>
    </message>
    <message id="EXPORT_FAILURE_NOT_FOUND">
        <source>%1: not found</source>
        <translation>%1: not found</translation>
    </message>
    <message id="EXPORT_FAILURE_NO_LIBREOFFICE">
        <source>LibreOffice is missing (install the Debian package libreoffice-writer-nogui)</source>
        <translation>LibreOffice is missing (install the Debian package libreoffice-writer-nogui)</translation>
    </message>
    <message id="EXPORT_FAILURE_PRINT">
        <source>%1: could not be printed</source>
        <translation>%1: could not be printed</translation>
    </message>
    <message id="EXPORT_FAILURE_STAGING">
        <source>%1 cannot be created</source>
        <translation>%1 cannot be created</translation>
    </message>
    <message id="EXPORT_FAILURE_WRITE">
        <source>%1 could not be written</source>
        <translation>%1 could not be written</translation>
    </message>
    <message id="EXPORT_FILES">
        <source>Entries</source>
        <translation>Entries</translation>
    </message>
    <message id="EXPORT_FILES_TIP">
        <source>The entries to export, in this order; drag them to reorder</source>
        <translation>The entries to export, in this order; drag them to reorder</translation>
    </message>
    <message id="EXPORT_FORMAT">
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message id="EXPORT_FORMAT_DOC">
        <source>Word</source>
        <translation>Word</translation>
    </message>
    <message id="EXPORT_FORMAT_EPUB">
        <source>E-book (EPUB)</source>
        <translation>E-book (EPUB)</translation>
    </message>
    <message id="EXPORT_FORMAT_HTML">
        <source>Web page (HTML)</source>
        <translation>Web page (HTML)</translation>
    </message>
    <message id="EXPORT_FORMAT_ODT">
        <source>OpenDocument text</source>
        <translation>OpenDocument text</translation>
    </message>
    <message id="EXPORT_FORMAT_PDF">
        <source>PDF</source>
        <translation>PDF</translation>
    </message>
    <message id="EXPORT_FORMAT_RTF">
        <source>Rich Text (RTF)</source>
        <translation>Rich Text (RTF)</translation>
    </message>
    <message id="EXPORT_FORMAT_RTFD">
        <source>Rich Text with pictures (RTFD)</source>
        <translation>Rich Text with pictures (RTFD)</translation>
    </message>
    <message id="EXPORT_FORMAT_TIP">
        <source>The kind of file to write</source>
        <translation>The kind of file to write</translation>
    </message>
    <message id="EXPORT_FORMAT_TXT">
        <source>Plain text</source>
        <translation>Plain text</translation>
    </message>
    <message id="EXPORT_JOINED_NAME">
        <source>File name</source>
        <translation>File name</translation>
    </message>
    <message id="EXPORT_JOINED_NAME_TIP">
        <source>The name of the joined file or of the book</source>
        <translation>The name of the joined file or of the book</translation>
    </message>
    <message id="EXPORT_MANY_FILES">
        <source>One file per entry</source>
        <translation>One file per entry</translation>
    </message>
    <message id="EXPORT_MANY_FILES_TIP">
        <source>Write every entry to a file of its own</source>
        <translation>Write every entry to a file of its own</translation>
    </message>
    <message id="EXPORT_MARKUP">
        <source>Markup</source>
        <translation>Markup</translation>
    </message>
    <message id="EXPORT_MARKUP_NONE">
        <source>Plain text (no conversion)</source>
        <translation>Plain text (no conversion)</translation>
    </message>
    <message id="EXPORT_MARKUP_TIP">
        <source>The language the entries are written in, or plain text to keep them as they are</source>
        <translation>The language the entries are written in, or plain text to keep them as they are</translation>
    </message>
    <message id="EXPORT_NOTEBOOK">
        <source>Notebook</source>
        <translation>Notebook</translation>
    </message>
    <message id="EXPORT_NOTEBOOK_TIP">
        <source>The notebook whose entries are exported</source>
        <translation>The notebook whose entries are exported</translation>
    </message>
    <message id="EXPORT_OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="EXPORT_OK_TIP">
        <source>Close this sheet</source>
        <translation>Close this sheet</translation>
    </message>
    <message id="EXPORT_ONE_FILE">
        <source>All entries in one file</source>
        <translation>All entries in one file</translation>
    </message>
    <message id="EXPORT_ONE_FILE_TIP">
        <source>Join all entries into one file</source>
        <translation>Join all entries into one file</translation>
    </message>
    <message id="EXPORT_PERFORM">
        <source>Export…</source>
        <translation>Export…</translation>
    </message>
    <message id="EXPORT_PERFORM_TIP">
        <source>Choose a folder and export the listed entries to it</source>
        <translation>Choose a folder and export the listed entries to it</translation>
    </message>
    <message id="EXPORT_PROGRESS_BAR_TIP">
        <source>How far the export has come</source>
        <translation>How far the export has come</translation>
    </message>
    <message id="EXPORT_PROGRESS_COUNT">
        <source>%1: %2 of %3</source>
        <translation>%1: %2 of %3</translation>
    </message>
    <message id="EXPORT_PROGRESS_TITLE">
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message id="EXPORT_RELOAD">
        <source>Reload</source>
        <translation>Reload</translation>
    </message>
    <message id="EXPORT_RELOAD_TIP">
        <source>List every entry of the notebook again</source>
        <translation>List every entry of the notebook again</translation>
    </message>
    <message id="EXPORT_REMOVE">
        <source>Remove</source>
        <translation>Remove</translation>
    </message>
    <message id="EXPORT_REMOVE_TIP">
        <source>Leave the selected entries out of the export (not from disk)</source>
        <translation>Leave the selected entries out of the export (not from disk)</translation>
    </message>
    <message id="EXPORT_REPORT_CANCELLED">
        <source>Export cancelled; nothing was written.</source>
        <translation>Export cancelled; nothing was written.</translation>
    </message>
    <message id="EXPORT_REPORT_DONE">
        <source>Exported %1 of %2.</source>
        <translation>Exported %1 of %2.</translation>
    </message>
    <message id="EXPORT_REPORT_FAILED">
        <source>Exported %1 of %2; %3 failed: %4</source>
        <translation>Exported %1 of %2; %3 failed: %4</translation>
    </message>
    <message id="EXPORT_STEP_BOOK">
        <source>Building the book</source>
        <translation>Building the book</translation>
    </message>
    <message id="EXPORT_STEP_CONVERTING">
        <source>Converting</source>
        <translation>Converting</translation>
    </message>
    <message id="EXPORT_STEP_COPYING">
        <source>Copying entries</source>
        <translation>Copying entries</translation>
    </message>
    <message id="EXPORT_STEP_PRINTING">
        <source>Printing</source>
        <translation>Printing</translation>
    </message>
    <message id="EXPORT_STEP_WRITING">
        <source>Writing</source>
        <translation>Writing</translation>
    </message>
    <message id="EXPORT_TITLES">
        <source>Put each entry's name on top as a title</source>
        <translation>Put each entry's name on top as a title</translation>
    </message>
    <message id="EXPORT_TITLES_TIP">
        <source>Each entry starts with its name in bold</source>
        <translation>Each entry starts with its name in bold</translation>
    </message>
    <message id="EXPORT_USE_CSS">
        <source>Embed a style sheet</source>
        <translation>Embed a style sheet</translation>
    </message>
    <message id="EXPORT_USE_CSS_TIP">
        <source>Give HTML output the look of a CSS style sheet</source>
        <translation>Give HTML output the look of a CSS style sheet</translation>
    </message>
    <message id="EXPORT_WINDOW_TITLE">
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message id="MESSAGE_EXPORT_CREATION_FINISHED">
        <source>The export is finished.</source>
        <translation>The export is finished.</translation>
    </message>
    <message id="MESSAGE_EXPORT_CREATION_STARTED">
        <source>Creating the export…</source>
        <translation>Creating the export…</translation>
    </message>
    <message id="EXPORT_STEP_OFFICE">
        <source>Converting with LibreOffice</source>
        <translation>Converting with LibreOffice</translation>
    </message>
</context>
</TS>
