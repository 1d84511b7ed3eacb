#include "ExportOptions.h"

namespace ExportFormats {

QString outputExtension(int tag)
{
    switch (ExportFormat(tag)) {
    case ExportFormat::Word:
        return QStringLiteral("doc");
    case ExportFormat::Rtf:
        return QStringLiteral("rtf");
    case ExportFormat::Rtfd:
        return QStringLiteral("rtfd");
    case ExportFormat::Html:
        return QStringLiteral("html");
    case ExportFormat::OpenDocument:
        return QStringLiteral("odt");
    case ExportFormat::Pdf:
    case ExportFormat::Epub:
        return QStringLiteral("TXT");
    case ExportFormat::PlainText:
        break;
    }
    return QStringLiteral("txt");
}

QString joinedFileLabel(int tag)
{
    switch (ExportFormat(tag)) {
    case ExportFormat::Pdf:
        return QStringLiteral(".pdf");
    case ExportFormat::Epub:
        return QStringLiteral(".epub");
    default:
        break;
    }
    return QLatin1Char('.') + outputExtension(tag);
}

} // namespace ExportFormats
