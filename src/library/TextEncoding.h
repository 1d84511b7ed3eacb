#pragma once

#include <QByteArray>
#include <QString>

// Entries remember the encoding they were read in as a string-encoding number, so a file
// is written back exactly as another program left it. The numbers:
//
//   1 US-ASCII          11 windows-1251        21 ISO-2022-JP
//   2 (NeXTSTEP, none)  12 windows-1252        22 KOI8-R
//   3 EUC-JP            13 windows-1253        23 EUC-KR
//   4 UTF-8             14 windows-1254        24 Big5
//   5 ISO-8859-1        15 windows-1250        25 GB18030
//   6 (Symbol, none)    16 ISO-8859-5          26 windows-1255
//   7 (non-lossy, none) 17 ISO-8859-6          27 windows-1256
//   8 Shift_JIS         18 ISO-8859-7          28 ISO-2022-KR
//   9 ISO-8859-2        19 ISO-8859-8          29 ISO-2022-CN
//  10 UTF-16 with byte-order mark (written little-endian)
//  20 ISO-8859-9        30 Mac OS Roman (accepts every byte sequence)
//
//  0x90000100 UTF-16BE, 0x94000100 UTF-16LE, 0x8C000100 UTF-32 with byte-order mark
//  (written little-endian), 0x98000100 UTF-32BE, 0x9C000100 UTF-32LE.
//
// The numbers 1-15, 21 and 30 and the UTF-16/32 ones are the classic Cocoa numbers; the gaps
// 16-20 and 22-29 hold the other charsets ICU's detector reports. Numbers marked "none" have
// no converter: decoding and encoding with them fail.
namespace TextEncoding {

constexpr int UTF8 = 4;
constexpr int UTF16WithBOM = 10;
constexpr int MacOSRoman = 30;
constexpr int UTF16BE = static_cast<int>(0x90000100u);
constexpr int UTF16LE = static_cast<int>(0x94000100u);
constexpr int UTF32WithBOM = static_cast<int>(0x8C000100u);
constexpr int UTF32BE = static_cast<int>(0x98000100u);
constexpr int UTF32LE = static_cast<int>(0x9C000100u);

// UTF-8, UTF-16 or UTF-32: the encodings a byte-order mark belongs to.
bool isUnicode(int number);
// The mark that starts a file in this encoding; the numbers 10 and 0x8C000100 are written
// little-endian. Empty for encodings without one.
QByteArray byteOrderMark(int number);

// The ICU converter name of a number, or nullptr.
const char *icuName(int number);
// The number of a charset name as ICU's detector reports it, or 0 when it has none.
int numberForCharset(const QByteArray &charsetName);

// Strict conversions: any byte sequence (or character) the encoding cannot represent makes
// them fail rather than substitute.
bool decode(const QByteArray &bytes, int number, QString *text);
bool encode(const QString &text, int number, QByteArray *bytes);

// UTF-8 without substitutions; a leading byte-order mark is dropped.
bool decodeUtf8(const QByteArray &bytes, QString *text);

// Charset candidates of ICU's detector, most confident first.
QList<QByteArray> detectCharsets(const QByteArray &bytes);

} // namespace TextEncoding
