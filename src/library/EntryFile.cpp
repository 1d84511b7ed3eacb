#include "EntryFile.h"

#include "ExtendedAttributes.h"
#include "TextEncoding.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {
bool hasByteOrderMark(const QByteArray &bytes)
{
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") ||
           bytes.startsWith(QByteArray("\x00\x00\xFE\xFF", 4));
}

bool looksLikeText(const QByteArray &bytes)
{
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b < 0x20 && b != '\t' && b != '\n' && b != '\r' && b != '\f')
            return false;
    }
    return true;
}

// ICU's candidates, most confident first. Its UTF-16 and UTF-32 guesses are only believed
// with a byte-order mark (without one they turn Latin text into CJK). On short texts ICU
// often names no 8-bit charset at all, so text without control bytes is finally tried as
// Latin-1 / windows-1252, the legacy encodings a Linux diary most likely holds.
QList<int> detectedEncodings(const QByteArray &bytes)
{
    QList<int> numbers;
    const bool bom = hasByteOrderMark(bytes);
    for (const QByteArray &charset : TextEncoding::detectCharsets(bytes)) {
        const int number = TextEncoding::numberForCharset(charset);
        const bool wide = charset.startsWith("UTF-16") || charset.startsWith("UTF-32");
        if (number == 0 || number == TextEncoding::UTF8 || (wide && !bom) ||
            numbers.contains(number))
            continue;
        numbers << number;
    }
    if (!bom && looksLikeText(bytes)) {
        bool c1 = false;
        for (const char c : bytes)
            c1 |= static_cast<unsigned char>(c) >= 0x80 && static_cast<unsigned char>(c) < 0xA0;
        const int legacy = c1 ? 12 : 5;
        if (!numbers.contains(legacy))
            numbers << legacy;
    }
    return numbers;
}
} // namespace

EntryFile::Loaded EntryFile::read(const QString &path)
{
    Loaded loaded;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        loaded.readable = false;
        return loaded;
    }
    const QByteArray bytes = file.readAll();
    file.close();

    QString text;
    if (TextEncoding::decodeUtf8(bytes, &text)) {
        loaded.text = text;
        loaded.encoding = TextEncoding::UTF8;
        return loaded;
    }

    for (const int number : detectedEncodings(bytes)) {
        if (TextEncoding::decode(bytes, number, &text) && !text.isEmpty()) {
            loaded.text = text;
            loaded.encoding = number;
            return loaded;
        }
    }

    // Every one of the thirty attempts runs, whatever the earlier ones gave: the last one,
    // Mac OS Roman, takes any byte sequence, and the text then saves back as UTF-8.
    for (int number = 1; number <= TextEncoding::MacOSRoman; ++number) {
        QString attempt;
        if (TextEncoding::decode(bytes, number, &attempt))
            text = attempt;
        else
            text.clear();
    }
    loaded.text = text;
    loaded.encoding = TextEncoding::UTF8;
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
    QByteArray bytes;
    int used = encoding;
    if (!TextEncoding::encode(text, encoding, &bytes)) {
        used = TextEncoding::UTF8;
        bytes = text.toUtf8();
    }
    const auto attributes = ExtendedAttributes::readAll(path);

    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly)) {
        if (error)
            *error = path + QStringLiteral(": ") + file.errorString();
        return false;
    }
    if (file.write(bytes) != bytes.size() || !file.commit()) {
        if (error)
            *error = path + QStringLiteral(": ") + file.errorString();
        file.cancelWriting();
        return false;
    }
    // The rename replaced the inode, and with it the attributes the old file carried.
    ExtendedAttributes::writeAll(path, attributes);
    if (usedEncoding)
        *usedEncoding = used;
    return true;
}

QDateTime EntryFile::modificationDate(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() ? info.lastModified() : QDateTime();
}

QDateTime EntryFile::creationDate(const QString &path)
{
    const QFileInfo info(path);
    const QDateTime birth = info.birthTime();
    return birth.isValid() ? birth : info.lastModified();
}

bool EntryFile::setModificationDate(const QString &path, const QDateTime &date)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return false;
    return file.setFileTime(date, QFileDevice::FileModificationTime);
}
