#include "PropertyList.h"
#include "PropertyListXml.h"

#include <QDateTime>
#include <QSaveFile>

#include <cmath>
#include <limits>

// Writing property lists; reading is in PropertyList.cpp.
namespace {

const char kHeader[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                       "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                       "<plist version=\"1.0\">\n";
const char kFooter[] = "</plist>\n";

constexpr int kBase64LineLength = 68;

// ---------------------------------------------------------------------------------------------
// Writing

void appendEscaped(QString &out, QStringView text)
{
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t u = text[i].unicode();
        switch (u) {
        case u'&':
            out += QLatin1String("&amp;");
            continue;
        case u'<':
            out += QLatin1String("&lt;");
            continue;
        case u'>':
            out += QLatin1String("&gt;");
            continue;
        case u'\r':
            // A literal CR would be folded into the following LF by any XML parser.
            out += QLatin1String("&#13;");
            continue;
        default:
            break;
        }
        if (QChar::isHighSurrogate(u) && i + 1 < n &&
            QChar::isLowSurrogate(text[i + 1].unicode())) {
            out += text[i];
            out += text[i + 1];
            ++i;
            continue;
        }
        if (PropertyListXml::isForbidden(u)) {
            out += QLatin1String("&#") + QString::number(u) + QLatin1Char(';');
            continue;
        }
        out += text[i];
    }
}

void appendIndent(QString &out, int depth)
{
    out += QString(depth, QLatin1Char('\t'));
}

void appendSimple(QString &out, int depth, QLatin1String tag, QStringView content)
{
    appendIndent(out, depth);
    out += QLatin1Char('<') + tag + QLatin1Char('>');
    appendEscaped(out, content);
    out += QLatin1String("</") + tag + QLatin1String(">\n");
}

QString realText(double value)
{
    if (std::isnan(value))
        return QStringLiteral("nan");
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("+infinity") : QStringLiteral("-infinity");
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

void appendValue(QString &out, const QVariant &value, int depth);

void appendDict(QString &out, const QVariantMap &map, int depth)
{
    appendIndent(out, depth);
    if (map.isEmpty()) {
        out += QLatin1String("<dict/>\n");
        return;
    }
    out += QLatin1String("<dict>\n");
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        appendSimple(out, depth + 1, QLatin1String("key"), it.key());
        appendValue(out, it.value(), depth + 1);
    }
    appendIndent(out, depth);
    out += QLatin1String("</dict>\n");
}

void appendArray(QString &out, const QVariantList &list, int depth)
{
    appendIndent(out, depth);
    if (list.isEmpty()) {
        out += QLatin1String("<array/>\n");
        return;
    }
    out += QLatin1String("<array>\n");
    for (const QVariant &item : list)
        appendValue(out, item, depth + 1);
    appendIndent(out, depth);
    out += QLatin1String("</array>\n");
}

void appendData(QString &out, const QByteArray &bytes, int depth)
{
    appendIndent(out, depth);
    out += QLatin1String("<data>\n");
    const QByteArray encoded = bytes.toBase64();
    for (qsizetype at = 0; at < encoded.size(); at += kBase64LineLength) {
        appendIndent(out, depth);
        out += QLatin1String(encoded.mid(at, kBase64LineLength)) + QLatin1Char('\n');
    }
    appendIndent(out, depth);
    out += QLatin1String("</data>\n");
}

void appendDate(QString &out, QDateTime when, int depth)
{
    const QString text =
        when.toUTC().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) + QLatin1Char('Z');
    appendSimple(out, depth, QLatin1String("date"), text);
}

void appendValue(QString &out, const QVariant &value, int depth)
{
    switch (value.typeId()) {
    case QMetaType::QVariantMap:
        appendDict(out, value.toMap(), depth);
        return;
    case QMetaType::QVariantHash: {
        const QVariantHash hash = value.toHash();
        QVariantMap sorted;
        for (auto it = hash.cbegin(); it != hash.cend(); ++it)
            sorted.insert(it.key(), it.value());
        appendDict(out, sorted, depth);
        return;
    }
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        appendArray(out, value.toList(), depth);
        return;
    case QMetaType::QByteArray:
        appendData(out, value.toByteArray(), depth);
        return;
    case QMetaType::Bool:
        appendIndent(out, depth);
        out += value.toBool() ? QLatin1String("<true/>\n") : QLatin1String("<false/>\n");
        return;
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::SChar:
    case QMetaType::Char:
        appendSimple(out, depth, QLatin1String("integer"), QString::number(value.toLongLong()));
        return;
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
    case QMetaType::UShort:
    case QMetaType::UChar:
        appendSimple(out, depth, QLatin1String("integer"), QString::number(value.toULongLong()));
        return;
    case QMetaType::Double:
    case QMetaType::Float:
        appendSimple(out, depth, QLatin1String("real"), realText(value.toDouble()));
        return;
    case QMetaType::QDateTime:
        appendDate(out, value.toDateTime(), depth);
        return;
    case QMetaType::QDate:
        appendDate(out, QDateTime(value.toDate(), QTime(0, 0), Qt::UTC), depth);
        return;
    default:
        appendSimple(out, depth, QLatin1String("string"), value.toString());
        return;
    }
}

} // namespace

namespace PropertyList {

QByteArray toXml(const QVariant &value)
{
    QString body;
    appendValue(body, value, 0);
    return QByteArray(kHeader) + body.toUtf8() + QByteArray(kFooter);
}

bool write(const QString &path, const QVariant &value, QString *error)
{
    QSaveFile file(path);
    const QByteArray document = toXml(value);
    if (!file.open(QIODevice::WriteOnly) || file.write(document) != document.size() ||
        !file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    if (error)
        error->clear();
    return true;
}

} // namespace PropertyList
