#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

// The target formats, numbered by the tags of the export window's format pop-up.
enum class ExportFormat {
    PlainText = 0,
    Word = 1,
    Rtf = 2,
    Rtfd = 3,
    Html = 4,
    Pdf = 5,
    Epub = 6,
    OpenDocument = 7
};

namespace ExportFormats {
// The extension of the files a format writes: "txt", "doc", ... Pdf and Epub answer "TXT",
// the placeholder nothing reads.
QString outputExtension(int tag);
// The label shown beside the joined file's name: ".txt", ".pdf", ".epub", ...; ".txt" for
// tags the table does not know.
QString joinedFileLabel(int tag);
} // namespace ExportFormats

// What the user chose in the export window, read once when the export starts.
struct ExportOptions
{
    // The notebook folder, with or without a trailing "/".
    QString notebookFolder;
    QString notebookName;
    // Entry file names in the order to export them.
    QStringList files;
    // The notebook's entry extension ("txt", "md", "textbundle", ...).
    QString entryExtension = QStringLiteral("txt");
    int format = int(ExportFormat::PlainText);
    // 0: the entries are plain text; 1 to 7: the markup language that converts them.
    int markup = 0;
    bool titles = false;
    bool joined = false;
    QString joinedName = QStringLiteral("Export");
    // The style sheet to embed in HTML output; empty for none.
    QString cssFile;
    // "title", "authorname", ... for the book; missing keys are empty.
    QMap<QString, QString> bookDetails;
    QString coverImage;
    QString destination;
    // Where the staging and book folders are made; the user's "Vellox" support folder when
    // empty.
    QString supportFolder;
};
