#include "TextEncoding.h"

#include <QList>
#include <QStringDecoder>

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>

#include <array>
#include <memory>

namespace {

struct Entry
{
    int number;
    const char *icu;
    bool byteOrderMark;
};

constexpr std::array<Entry, 33> kTable{{
    {1, "US-ASCII", false},
    {2, nullptr, false},
    {3, "EUC-JP", false},
    {4, "UTF-8", false},
    {5, "ISO-8859-1", false},
    {6, nullptr, false},
    {7, nullptr, false},
    {8, "Shift_JIS", false},
    {9, "ISO-8859-2", false},
    {10, "UTF-16LE", true},
    {11, "windows-1251", false},
    {12, "windows-1252", false},
    {13, "windows-1253", false},
    {14, "windows-1254", false},
    {15, "windows-1250", false},
    {16, "ISO-8859-5", false},
    {17, "ISO-8859-6", false},
    {18, "ISO-8859-7", false},
    {19, "ISO-8859-8", false},
    {20, "ISO-8859-9", false},
    {21, "ISO-2022-JP", false},
    {22, "KOI8-R", false},
    {23, "EUC-KR", false},
    {24, "Big5", false},
    {25, "GB18030", false},
    {26, "windows-1255", false},
    {27, "windows-1256", false},
    {28, "ISO-2022-KR", false},
    {29, "ISO-2022-CN", false},
    {30, "macintosh", false},
    {int(0x90000100), "UTF-16BE", false},
    {int(0x94000100), "UTF-16LE", false},
    {int(0x8C000100), "UTF-32LE", true},
}};

constexpr std::array<Entry, 2> kMoreTable{{
    {int(0x98000100), "UTF-32BE", false},
    {int(0x9C000100), "UTF-32LE", false},
}};

const Entry *find(int number)
{
    for (const Entry &e : kTable)
        if (e.number == number)
            return &e;
    for (const Entry &e : kMoreTable)
        if (e.number == number)
            return &e;
    return nullptr;
}

struct ConverterCloser
{
    void operator()(UConverter *c) const { ucnv_close(c); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

Converter openStrict(const char *name)
{
    UErrorCode status = U_ZERO_ERROR;
    Converter conv(ucnv_open(name, &status));
    if (U_FAILURE(status))
        return nullptr;
    ucnv_setToUCallBack(conv.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(conv.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &status);
    return U_SUCCESS(status) ? std::move(conv) : nullptr;
}

// Drops a byte-order mark that matches the byte order the converter expects; a file whose
// mark says the other order is read in that order instead.
const char *adjustForByteOrderMark(QByteArray *bytes, const char *name)
{
    const QByteArray n(name);
    if (n.startsWith("UTF-16")) {
        if (bytes->startsWith("\xFF\xFE")) {
            bytes->remove(0, 2);
            return "UTF-16LE";
        }
        if (bytes->startsWith("\xFE\xFF")) {
            bytes->remove(0, 2);
            return "UTF-16BE";
        }
    } else if (n.startsWith("UTF-32")) {
        if (bytes->startsWith(QByteArray("\xFF\xFE\x00\x00", 4))) {
            bytes->remove(0, 4);
            return "UTF-32LE";
        }
        if (bytes->startsWith(QByteArray("\x00\x00\xFE\xFF", 4))) {
            bytes->remove(0, 4);
            return "UTF-32BE";
        }
    }
    return name;
}

} // namespace

namespace TextEncoding {

bool isUnicode(int number)
{
    return number == UTF8 || number == UTF16WithBOM || number == UTF16BE || number == UTF16LE ||
           number == UTF32WithBOM || number == UTF32BE || number == UTF32LE;
}

QByteArray byteOrderMark(int number)
{
    if (number == UTF8)
        return QByteArrayLiteral("\xEF\xBB\xBF");
    if (number == UTF16WithBOM || number == UTF16LE)
        return QByteArrayLiteral("\xFF\xFE");
    if (number == UTF16BE)
        return QByteArrayLiteral("\xFE\xFF");
    if (number == UTF32WithBOM || number == UTF32LE)
        return QByteArray("\xFF\xFE\x00\x00", 4);
    if (number == UTF32BE)
        return QByteArray("\x00\x00\xFE\xFF", 4);
    return QByteArray();
}

const char *icuName(int number)
{
    const Entry *e = find(number);
    return e ? e->icu : nullptr;
}

int numberForCharset(const QByteArray &charsetName)
{
    const QByteArray name = charsetName.toUpper();
    if (name == "ISO-8859-8-I")
        return 19;
    if (name == "UTF-16LE" || name == "UTF-16BE")
        return UTF16WithBOM; // the detector names UTF-16 only when it sees the mark
    if (name == "UTF-32LE" || name == "UTF-32BE")
        return int(0x8C000100);
    for (const Entry &e : kTable)
        if (e.icu && QByteArray(e.icu).toUpper() == name)
            return e.number;
    return 0;
}

bool decodeUtf8(const QByteArray &bytes, QString *text)
{
    // Stateless, so a sequence cut off at the end counts as an error too.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    QString result = decoder.decode(bytes);
    if (decoder.hasError())
        return false;
    *text = result;
    return true;
}

bool decode(const QByteArray &input, int number, QString *text)
{
    if (number == UTF8)
        return decodeUtf8(input, text);
    const Entry *e = find(number);
    if (!e || !e->icu)
        return false;
    QByteArray bytes = input;
    const char *name = adjustForByteOrderMark(&bytes, e->icu);
    Converter conv = openStrict(name);
    if (!conv)
        return false;
    if (bytes.isEmpty()) {
        text->clear();
        return true;
    }
    QString result;
    result.resize(bytes.size() * 2 + 16);
    UErrorCode status = U_ZERO_ERROR;
    int32_t length =
        ucnv_toUChars(conv.get(), reinterpret_cast<UChar *>(result.data()), int32_t(result.size()),
                      bytes.constData(), int32_t(bytes.size()), &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        status = U_ZERO_ERROR;
        result.resize(length + 1);
        ucnv_resetToUnicode(conv.get());
        length = ucnv_toUChars(conv.get(), reinterpret_cast<UChar *>(result.data()),
                               int32_t(result.size()), bytes.constData(), int32_t(bytes.size()),
                               &status);
    }
    if (U_FAILURE(status))
        return false;
    result.resize(length);
    *text = result;
    return true;
}

bool encode(const QString &text, int number, QByteArray *bytes)
{
    if (number == UTF8) {
        *bytes = text.toUtf8();
        return true;
    }
    const Entry *e = find(number);
    if (!e || !e->icu)
        return false;
    Converter conv = openStrict(e->icu);
    if (!conv)
        return false;
    QByteArray result;
    if (e->byteOrderMark)
        result = QByteArray(e->icu).startsWith("UTF-32") ? QByteArray("\xFF\xFE\x00\x00", 4)
                                                         : QByteArray("\xFF\xFE");
    if (text.isEmpty()) {
        *bytes = result;
        return true;
    }
    QByteArray out;
    out.resize(text.size() * int(ucnv_getMaxCharSize(conv.get())) + 16);
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = ucnv_fromUChars(conv.get(), out.data(), int32_t(out.size()),
                                           reinterpret_cast<const UChar *>(text.constData()),
                                           int32_t(text.size()), &status);
    if (U_FAILURE(status))
        return false;
    out.resize(length);
    *bytes = result + out;
    return true;
}

QList<QByteArray> detectCharsets(const QByteArray &input)
{
    QList<QByteArray> names;
    if (input.isEmpty())
        return names;
    // The detector's statistics settle long before a megabyte; the full text is still
    // checked by the strict decode that follows.
    const QByteArray bytes = input.left(1 << 20);
    UErrorCode status = U_ZERO_ERROR;
    UCharsetDetector *detector = ucsdet_open(&status);
    if (U_FAILURE(status))
        return names;
    ucsdet_setText(detector, bytes.constData(), int32_t(bytes.size()), &status);
    int32_t count = 0;
    const UCharsetMatch **matches = ucsdet_detectAll(detector, &count, &status);
    if (U_SUCCESS(status)) {
        for (int32_t i = 0; i < count; ++i) {
            UErrorCode nameStatus = U_ZERO_ERROR;
            const char *name = ucsdet_getName(matches[i], &nameStatus);
            if (U_SUCCESS(nameStatus) && name)
                names << QByteArray(name);
        }
    }
    ucsdet_close(detector);
    return names;
}

} // namespace TextEncoding
