#include "PropertyList.h"
#include "PropertyListXml.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QXmlStreamReader>

#include <cmath>
#include <limits>

namespace {

// Deeper nesting than this is taken for a damaged or hostile file rather than recursed into.
constexpr int kMaxDepth = 512;

// ---------------------------------------------------------------------------------------------
// Reading

// QXmlStreamReader refuses references to characters XML 1.0 forbids (&#11; and the like),
// which our own writer emits to keep such characters. Before parsing, each of those
// references is swapped for a marker built from a private-use character that occurs nowhere
// in the document (neither literally nor as a reference): marker, decimal value, marker.
// Strings and keys are then restored from the markers after parsing.
struct ForbiddenReferences
{
    QByteArray data;
    QString marker; // empty when the document had no such reference
};

bool startsWithAt(const QByteArray &data, qsizetype at, const char *what)
{
    return QByteArrayView(data).sliced(at).startsWith(QByteArrayView(what));
}

ForbiddenReferences protectForbiddenReferences(const QByteArray &data)
{
    struct Found
    {
        qsizetype begin;
        qsizetype end;
        char32_t value;
    };
    QList<Found> forbidden;
    QSet<char32_t> referenced;
    const qsizetype n = data.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (data[i] != '<' && data[i] != '&')
            continue;
        if (startsWithAt(data, i, "<!--")) {
            const qsizetype close = data.indexOf("-->", i + 4);
            i = close < 0 ? n : close + 2;
            continue;
        }
        if (startsWithAt(data, i, "<![CDATA[")) {
            const qsizetype close = data.indexOf("]]>", i + 9);
            i = close < 0 ? n : close + 2;
            continue;
        }
        if (data[i] != '&' || i + 2 >= n || data[i + 1] != '#')
            continue;
        const bool hex = data[i + 2] == 'x';
        const qsizetype digitsBegin = i + (hex ? 3 : 2);
        const qsizetype semicolon = data.indexOf(';', digitsBegin);
        if (semicolon < 0 || semicolon - digitsBegin > 8 || semicolon == digitsBegin)
            continue;
        bool ok = false;
        const uint value =
            data.mid(digitsBegin, semicolon - digitsBegin).toUInt(&ok, hex ? 16 : 10);
        if (!ok)
            continue;
        referenced.insert(value);
        if (PropertyListXml::isForbidden(value) && value <= 0xFFFF)
            forbidden.append({i, semicolon + 1, value});
        i = semicolon;
    }
    if (forbidden.isEmpty())
        return {data, QString()};

    char32_t candidate = 0xF0000;
    QString marker;
    for (; candidate <= 0xFFFFD; ++candidate) {
        marker = QString::fromUcs4(&candidate, 1);
        if (!referenced.contains(candidate) && !data.contains(marker.toUtf8()))
            break;
    }
    QByteArray protectedData;
    protectedData.reserve(data.size() + forbidden.size() * 16);
    const QByteArray markerUtf8 = marker.toUtf8();
    qsizetype copied = 0;
    for (const Found &f : forbidden) {
        protectedData += QByteArrayView(data).sliced(copied, f.begin - copied);
        protectedData += markerUtf8 + QByteArray::number(uint(f.value)) + markerUtf8;
        copied = f.end;
    }
    protectedData += QByteArrayView(data).sliced(copied);
    return {protectedData, marker};
}

QString restoreForbidden(const QString &text, const QString &marker)
{
    if (marker.isEmpty() || !text.contains(marker))
        return text;
    QString out;
    out.reserve(text.size());
    qsizetype at = 0;
    while (true) {
        const qsizetype open = text.indexOf(marker, at);
        const qsizetype close = open < 0 ? -1 : text.indexOf(marker, open + marker.size());
        if (close < 0) {
            out += QStringView(text).sliced(at);
            return out;
        }
        out += QStringView(text).sliced(at, open - at);
        const qsizetype digits = open + marker.size();
        out += QChar(char16_t(QStringView(text).sliced(digits, close - digits).toUInt()));
        at = close + marker.size();
    }
}

class Reader
{
public:
    Reader(const QByteArray &data, const QString &marker)
        : m_xml(data)
        , m_marker(marker)
    {}

    QVariant parseDocument()
    {
        if (!nextElement())
            return fail(m_xml.hasError() ? QString() : QStringLiteral("no property list found"));
        QVariant result;
        if (m_xml.name() == QLatin1String("plist")) {
            if (!nextElement())
                return fail(m_error.isEmpty() && !m_xml.hasError()
                                ? QStringLiteral("the property list holds no value")
                                : QString());
            result = parseValue(0);
            if (!result.isValid())
                return {};
            if (nextElement())
                return fail(QStringLiteral("more than one value inside <plist>"));
            if (!m_error.isEmpty())
                return {};
        } else {
            result = parseValue(0);
            if (!result.isValid())
                return {};
        }
        while (!m_xml.atEnd()) {
            const auto token = m_xml.readNext();
            if (token == QXmlStreamReader::StartElement ||
                (token == QXmlStreamReader::Characters && !m_xml.isWhitespace()))
                return fail(QStringLiteral("content after the property list"));
        }
        if (m_xml.hasError())
            return fail(QString());
        return result;
    }

    QString error() const { return m_error; }

private:
    QVariant fail(const QString &message)
    {
        if (m_error.isEmpty()) {
            const QString what = message.isEmpty() ? m_xml.errorString() : message;
            m_error = QStringLiteral("line %1, column %2: %3")
                          .arg(m_xml.lineNumber())
                          .arg(m_xml.columnNumber())
                          .arg(what);
        }
        return {};
    }

    // Moves to the next start element of the current level; false at the enclosing end
    // element, at the end of the document or on an error (then m_error is set).
    bool nextElement()
    {
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement:
                return true;
            case QXmlStreamReader::EndElement:
                return false;
            case QXmlStreamReader::Characters:
                if (!m_xml.isWhitespace()) {
                    fail(QStringLiteral("unexpected text \"%1\"")
                             .arg(m_xml.text().left(40).toString()));
                    return false;
                }
                break;
            case QXmlStreamReader::EntityReference:
                fail(QStringLiteral("unknown entity &%1;").arg(m_xml.name().toString()));
                return false;
            case QXmlStreamReader::Invalid:
                fail(QString());
                return false;
            default:
                break;
            }
        }
        if (m_xml.hasError())
            fail(QString());
        return false;
    }

    // The text of a leaf element, up to and including its end tag.
    bool readText(QString *text)
    {
        const QString element = m_xml.name().toString();
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::Characters:
                *text += m_xml.text();
                break;
            case QXmlStreamReader::EndElement:
                *text = restoreForbidden(*text, m_marker);
                return true;
            case QXmlStreamReader::StartElement:
                fail(QStringLiteral("<%1> inside <%2>").arg(m_xml.name().toString(), element));
                return false;
            case QXmlStreamReader::EntityReference:
                fail(QStringLiteral("unknown entity &%1;").arg(m_xml.name().toString()));
                return false;
            case QXmlStreamReader::Invalid:
                fail(QString());
                return false;
            default:
                break;
            }
        }
        fail(QString());
        return false;
    }

    QVariant parseValue(int depth)
    {
        if (depth > kMaxDepth)
            return fail(QStringLiteral("nested too deeply"));
        const QString name = m_xml.name().toString();
        if (name == QLatin1String("dict"))
            return parseDict(depth);
        if (name == QLatin1String("array"))
            return parseArray(depth);
        if (name == QLatin1String("true") || name == QLatin1String("false")) {
            QString text;
            if (!readText(&text))
                return {};
            if (!text.trimmed().isEmpty())
                return fail(QStringLiteral("<%1> must be empty").arg(name));
            return QVariant(name == QLatin1String("true"));
        }
        QString text;
        if (!readText(&text))
            return {};
        if (name == QLatin1String("string"))
            return QVariant(text);
        if (name == QLatin1String("integer"))
            return parseInteger(text.trimmed());
        if (name == QLatin1String("real"))
            return parseReal(text.trimmed());
        if (name == QLatin1String("data"))
            return parseData(text);
        if (name == QLatin1String("date"))
            return parseDate(text.trimmed());
        if (name == QLatin1String("key"))
            return fail(QStringLiteral("<key> outside a dictionary"));
        return fail(QStringLiteral("unknown element <%1>").arg(name));
    }

    QVariant parseDict(int depth)
    {
        QVariantMap map;
        while (nextElement()) {
            if (m_xml.name() != QLatin1String("key"))
                return fail(
                    QStringLiteral("<%1> where a <key> was expected").arg(m_xml.name().toString()));
            QString key;
            if (!readText(&key))
                return {};
            if (!nextElement())
                return fail(m_error.isEmpty() && !m_xml.hasError()
                                ? QStringLiteral("the key \"%1\" has no value").arg(key)
                                : QString());
            const QVariant value = parseValue(depth + 1);
            if (!value.isValid())
                return {};
            map.insert(key, value);
        }
        if (!m_error.isEmpty())
            return {};
        return map;
    }

    QVariant parseArray(int depth)
    {
        QVariantList list;
        while (nextElement()) {
            const QVariant value = parseValue(depth + 1);
            if (!value.isValid())
                return {};
            list.append(value);
        }
        if (!m_error.isEmpty())
            return {};
        return list;
    }

    QVariant parseInteger(const QString &text)
    {
        QStringView digits(text);
        bool negative = false;
        if (digits.startsWith(QLatin1Char('-')) || digits.startsWith(QLatin1Char('+'))) {
            negative = digits.front() == QLatin1Char('-');
            digits = digits.sliced(1);
        }
        int base = 10;
        if (digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) {
            base = 16;
            digits = digits.sliced(2);
        }
        bool ok = false;
        const qulonglong magnitude = digits.isEmpty() || !digits.front().isLetterOrNumber()
                                         ? 0
                                         : digits.toULongLong(&ok, base);
        if (!ok)
            return fail(QStringLiteral("\"%1\" is not an integer").arg(text));
        const qulonglong limit = qulonglong(std::numeric_limits<qlonglong>::max());
        if (!negative && magnitude > limit)
            return QVariant(magnitude);
        if (negative && magnitude > limit + 1)
            return fail(QStringLiteral("\"%1\" is out of range").arg(text));
        return QVariant(negative ? qlonglong(0 - magnitude) : qlonglong(magnitude));
    }

    QVariant parseReal(const QString &text)
    {
        const QString lower = text.toLower();
        if (lower == QLatin1String("nan"))
            return QVariant(std::numeric_limits<double>::quiet_NaN());
        if (lower == QLatin1String("inf") || lower == QLatin1String("+inf") ||
            lower == QLatin1String("infinity") || lower == QLatin1String("+infinity"))
            return QVariant(std::numeric_limits<double>::infinity());
        if (lower == QLatin1String("-inf") || lower == QLatin1String("-infinity"))
            return QVariant(-std::numeric_limits<double>::infinity());
        bool ok = false;
        const double value = text.toDouble(&ok);
        if (!ok)
            return fail(QStringLiteral("\"%1\" is not a number").arg(text));
        return QVariant(value);
    }

    QVariant parseData(const QString &text)
    {
        QByteArray compact;
        compact.reserve(text.size());
        for (QChar c : text)
            if (!c.isSpace())
                compact += char(c.unicode() < 0x80 ? c.unicode() : '!');
        const auto decoded =
            QByteArray::fromBase64Encoding(compact, QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded)
            return fail(QStringLiteral("<data> is not valid base64"));
        return QVariant(decoded.decoded);
    }

    QVariant parseDate(const QString &text)
    {
        QDateTime when = QDateTime::fromString(text, Qt::ISODateWithMs);
        if (!when.isValid())
            return fail(QStringLiteral("\"%1\" is not a date").arg(text));
        return QVariant(when.toUTC());
    }

    QXmlStreamReader m_xml;
    QString m_marker;
    QString m_error;
};

} // namespace

namespace PropertyList {

QVariant fromXml(const QByteArray &data, QString *error)
{
    auto report = [error](const QString &message) {
        if (error)
            *error = message;
        return QVariant();
    };
    if (data.trimmed().isEmpty())
        return report(QStringLiteral("the document is empty"));
    if (data.startsWith("bplist"))
        return report(QStringLiteral("binary property lists are not supported"));
    const ForbiddenReferences prepared = protectForbiddenReferences(data);
    Reader reader(prepared.data, prepared.marker);
    const QVariant value = reader.parseDocument();
    if (!value.isValid())
        return report(reader.error().isEmpty() ? QStringLiteral("not a property list")
                                               : reader.error());
    if (error)
        error->clear();
    return value;
}

QVariant read(const QString &path, QString *error)
{
    auto report = [error](const QString &message) {
        if (error)
            *error = message;
        return QVariant();
    };
    const QFileInfo info(path);
    if (!info.exists())
        return report(QStringLiteral("the file does not exist"));
    if (info.isDir())
        return report(QStringLiteral("it is a folder, not a file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return report(QStringLiteral("the file cannot be read: %1").arg(file.errorString()));
    const QByteArray data = file.readAll();
    if (data.trimmed().isEmpty())
        return report(QStringLiteral("the file is empty"));
    return fromXml(data, error);
}

} // namespace PropertyList
