#include "EntryFile.h"

#include "CreationDate.h"
#include "EntryLoader.h"
#include "EntrySaver.h"

#include <QFile>

namespace {
// The single number that writes the same bytes back, marks included.
int encodingNumber(const TextFormat &format)
{
    if (format.byteOrderMark && format.encoding == TextEncoding::UTF16LE)
        return TextEncoding::UTF16WithBOM;
    if (format.byteOrderMark && format.encoding == TextEncoding::UTF32LE)
        return TextEncoding::UTF32WithBOM;
    return format.encoding;
}
} // namespace

EntryFile::Loaded EntryFile::read(const QString &path)
{
    const EntryLoader::Result result = EntryLoader::load(path);
    Loaded loaded;
    loaded.readable = result.readable;
    loaded.text = result.text;
    loaded.encoding = encodingNumber(result.format);
    return loaded;
}

bool EntryFile::readWithEncoding(const QString &path, int encoding, QString *text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return TextEncoding::decode(file.readAll(), encoding, text);
}

bool EntryFile::write(const QString &path, const QString &text, int encoding, int *usedEncoding,
                      QString *error)
{
    TextFormat format;
    format.encoding = encoding;
    const EntrySaver::Result result = EntrySaver::saveCopy(path, text, format);
    if (result.status != EntrySaver::Result::Saved) {
        if (error)
            *error = path + QStringLiteral(": ") + result.error;
        return false;
    }
    if (usedEncoding)
        *usedEncoding = encodingNumber(result.format);
    return true;
}

QDateTime EntryFile::modificationDate(const QString &path)
{
    return FileStamp::of(path).modified;
}

QDateTime EntryFile::creationDate(const QString &path)
{
    return CreationDate::of(path);
}

bool EntryFile::setModificationDate(const QString &path, const QDateTime &date)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return false;
    return file.setFileTime(date, QFileDevice::FileModificationTime);
}
