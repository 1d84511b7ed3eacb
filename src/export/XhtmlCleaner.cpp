#include "XhtmlCleaner.h"

#include <QHash>
#include <QList>
#include <QRegularExpression>
#include <QUrl>
#include <QXmlStreamReader>

namespace {

const QSet<QString> &blockElements()
{
    static const QSet<QString> set = {
        QStringLiteral("address"), QStringLiteral("blockquote"), QStringLiteral("div"),
        QStringLiteral("dl"),      QStringLiteral("h1"),         QStringLiteral("h2"),
        QStringLiteral("h3"),      QStringLiteral("h4"),         QStringLiteral("h5"),
        QStringLiteral("h6"),      QStringLiteral("hr"),         QStringLiteral("ol"),
        QStringLiteral("p"),       QStringLiteral("pre"),        QStringLiteral("table"),
        QStringLiteral("ul")};
    return set;
}

// Elements kept as they are apart from their attributes.
const QSet<QString> &keptElements()
{
    static const QSet<QString> set = [] {
        QSet<QString> s = blockElements();
        for (const char *name :
             {"dd",   "dt",   "li",       "caption", "thead",  "tbody",   "tfoot", "tr",  "td",
              "th",   "col",  "colgroup", "a",       "abbr",   "acronym", "b",     "big", "br",
              "cite", "code", "del",      "dfn",     "em",     "i",       "img",   "ins", "kbd",
              "q",    "samp", "small",    "span",    "strong", "sub",     "sup",   "tt",  "var"})
            s.insert(QString::fromLatin1(name));
        return s;
    }();
    return set;
}

QString renamed(const QString &name)
{
    static const QHash<QString, QString> map = {
        {QStringLiteral("section"), QStringLiteral("div")},
        {QStringLiteral("article"), QStringLiteral("div")},
        {QStringLiteral("aside"), QStringLiteral("div")},
        {QStringLiteral("nav"), QStringLiteral("div")},
        {QStringLiteral("header"), QStringLiteral("div")},
        {QStringLiteral("footer"), QStringLiteral("div")},
        {QStringLiteral("main"), QStringLiteral("div")},
        {QStringLiteral("figure"), QStringLiteral("div")},
        {QStringLiteral("figcaption"), QStringLiteral("div")},
        {QStringLiteral("details"), QStringLiteral("div")},
        {QStringLiteral("summary"), QStringLiteral("div")},
        {QStringLiteral("center"), QStringLiteral("div")},
        {QStringLiteral("dir"), QStringLiteral("ul")},
        {QStringLiteral("menu"), QStringLiteral("ul")},
        {QStringLiteral("u"), QStringLiteral("span")},
        {QStringLiteral("mark"), QStringLiteral("span")},
        {QStringLiteral("time"), QStringLiteral("span")},
        {QStringLiteral("font"), QStringLiteral("span")},
        {QStringLiteral("label"), QStringLiteral("span")},
        {QStringLiteral("s"), QStringLiteral("del")},
        {QStringLiteral("strike"), QStringLiteral("del")}};
    if (keptElements().contains(name))
        return name;
    return map.value(name);
}

bool dropsSubtree(const QString &name)
{
    static const QSet<QString> set = {
        QStringLiteral("script"),   QStringLiteral("iframe"),   QStringLiteral("object"),
        QStringLiteral("embed"),    QStringLiteral("video"),    QStringLiteral("audio"),
        QStringLiteral("canvas"),   QStringLiteral("svg"),      QStringLiteral("math"),
        QStringLiteral("noscript"), QStringLiteral("button"),   QStringLiteral("select"),
        QStringLiteral("textarea"), QStringLiteral("template"), QStringLiteral("head")};
    return set.contains(name);
}

bool allowedAttribute(const QString &element, const QString &attribute)
{
    static const QSet<QString> common = {QStringLiteral("id"), QStringLiteral("class"),
                                         QStringLiteral("title"), QStringLiteral("dir")};
    static const QHash<QString, QSet<QString>> specific = {
        {QStringLiteral("a"), {QStringLiteral("href"), QStringLiteral("rel")}},
        {QStringLiteral("img"),
         {QStringLiteral("src"), QStringLiteral("alt"), QStringLiteral("width"),
          QStringLiteral("height")}},
        {QStringLiteral("td"),
         {QStringLiteral("colspan"), QStringLiteral("rowspan"), QStringLiteral("align"),
          QStringLiteral("valign")}},
        {QStringLiteral("th"),
         {QStringLiteral("colspan"), QStringLiteral("rowspan"), QStringLiteral("align"),
          QStringLiteral("valign"), QStringLiteral("scope")}},
        {QStringLiteral("tr"), {QStringLiteral("align"), QStringLiteral("valign")}},
        {QStringLiteral("table"), {QStringLiteral("summary"), QStringLiteral("border")}},
        {QStringLiteral("col"), {QStringLiteral("span"), QStringLiteral("width")}},
        {QStringLiteral("colgroup"), {QStringLiteral("span"), QStringLiteral("width")}},
        {QStringLiteral("blockquote"), {QStringLiteral("cite")}},
        {QStringLiteral("q"), {QStringLiteral("cite")}}};
    return common.contains(attribute) || specific.value(element).contains(attribute);
}

// Parts of lists and tables: neither blocks nor inline content.
const QSet<QString> &structuralElements()
{
    static const QSet<QString> set = {
        QStringLiteral("li"),      QStringLiteral("dd"),    QStringLiteral("dt"),
        QStringLiteral("thead"),   QStringLiteral("tbody"), QStringLiteral("tfoot"),
        QStringLiteral("tr"),      QStringLiteral("td"),    QStringLiteral("th"),
        QStringLiteral("caption"), QStringLiteral("col"),   QStringLiteral("colgroup")};
    return set;
}

// Body and blockquote take block content only.
bool takesBlocksOnly(const QString &element)
{
    return element == QLatin1String("body") || element == QLatin1String("blockquote");
}

QString escapeText(QStringView text, bool attribute)
{
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        if (c == QLatin1Char('&'))
            out += QLatin1String("&amp;");
        else if (c == QLatin1Char('<'))
            out += QLatin1String("&lt;");
        else if (c == QLatin1Char('>'))
            out += QLatin1String("&gt;");
        else if (attribute && c == QLatin1Char('"'))
            out += QLatin1String("&quot;");
        else
            out += c;
    }
    return out;
}

bool isRelative(const QString &address)
{
    return !address.isEmpty() && !address.startsWith(QLatin1Char('#')) &&
           QUrl(address).scheme().isEmpty() && !address.startsWith(QLatin1Char('/'));
}

struct Open
{
    // What was written for the element; empty when its tag was left out.
    QString written;
    bool wrapper = false;
};

} // namespace

XhtmlCleaner::XhtmlCleaner(Exists pageExists, Exists imageExists)
    : m_pageExists(std::move(pageExists))
    , m_imageExists(std::move(imageExists))
{}

QString XhtmlCleaner::xmlName(const QString &id)
{
    QString name;
    for (const QChar c : id) {
        const bool ok = c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('-') ||
                        c == QLatin1Char('.');
        name += ok ? c : QLatin1Char('-');
    }
    if (name.isEmpty() || !(name.at(0).isLetter() || name.at(0) == QLatin1Char('_')))
        name.prepend(QLatin1String("id-"));
    return name;
}

QString XhtmlCleaner::resolveNamedEntities(const QString &text)
{
    static const QHash<QString, QChar> table = {
        {QStringLiteral("nbsp"), QChar(0x00A0)},   {QStringLiteral("copy"), QChar(0x00A9)},
        {QStringLiteral("reg"), QChar(0x00AE)},    {QStringLiteral("trade"), QChar(0x2122)},
        {QStringLiteral("hellip"), QChar(0x2026)}, {QStringLiteral("mdash"), QChar(0x2014)},
        {QStringLiteral("ndash"), QChar(0x2013)},  {QStringLiteral("lsquo"), QChar(0x2018)},
        {QStringLiteral("rsquo"), QChar(0x2019)},  {QStringLiteral("ldquo"), QChar(0x201C)},
        {QStringLiteral("rdquo"), QChar(0x201D)},  {QStringLiteral("laquo"), QChar(0x00AB)},
        {QStringLiteral("raquo"), QChar(0x00BB)},  {QStringLiteral("shy"), QChar(0x00AD)},
        {QStringLiteral("middot"), QChar(0x00B7)}, {QStringLiteral("deg"), QChar(0x00B0)},
        {QStringLiteral("euro"), QChar(0x20AC)},   {QStringLiteral("times"), QChar(0x00D7)},
        {QStringLiteral("bull"), QChar(0x2022)},   {QStringLiteral("sect"), QChar(0x00A7)}};
    static const QRegularExpression entity(QStringLiteral("&([A-Za-z][A-Za-z0-9]*);"));
    QString out;
    qsizetype from = 0;
    auto it = entity.globalMatch(text);
    while (it.hasNext()) {
        const auto match = it.next();
        const QString name = match.captured(1);
        static const QSet<QString> xml = {QStringLiteral("amp"), QStringLiteral("lt"),
                                          QStringLiteral("gt"), QStringLiteral("quot"),
                                          QStringLiteral("apos")};
        if (xml.contains(name))
            continue;
        out += QStringView(text).mid(from, match.capturedStart() - from);
        out += table.contains(name) ? QString(table.value(name))
                                    : QLatin1String("&amp;") + name + QLatin1Char(';');
        from = match.capturedEnd();
    }
    out += QStringView(text).mid(from);
    return out;
}

QString XhtmlCleaner::clean(const QString &page, QString *problem)
{
    QXmlStreamReader reader(resolveNamedEntities(page));
    QString title;
    QStringList headLinks;
    QString body;
    QList<Open> stack;
    QSet<QString> ids;
    int skipDepth = 0;
    bool inHead = false;
    bool inTitle = false;
    bool inBody = false;

    auto parentTakesBlocksOnly = [&] {
        for (auto it = stack.crbegin(); it != stack.crend(); ++it) {
            if (!it->written.isEmpty())
                return takesBlocksOnly(it->written) && !it->wrapper;
        }
        return false;
    };
    auto closeWrapper = [&] {
        if (!stack.isEmpty() && stack.last().wrapper) {
            body += QLatin1String("</p>");
            stack.removeLast();
        }
    };
    auto beginInline = [&] {
        if (parentTakesBlocksOnly()) {
            body += QLatin1String("<p>");
            stack.append({QStringLiteral("p"), true});
        }
    };
    auto insideLink = [&] {
        for (const Open &open : stack) {
            if (open.written == QLatin1String("a"))
                return true;
        }
        return false;
    };

    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (skipDepth > 0) {
            if (token == QXmlStreamReader::StartElement)
                ++skipDepth;
            else if (token == QXmlStreamReader::EndElement)
                --skipDepth;
            continue;
        }
        const QString name = reader.name().toString().toLower();
        if (token == QXmlStreamReader::StartElement) {
            if (name == QLatin1String("head")) {
                inHead = true;
                continue;
            }
            if (inHead) {
                if (name == QLatin1String("title")) {
                    inTitle = true;
                } else if (name == QLatin1String("link")) {
                    const auto a = reader.attributes();
                    headLinks << QStringLiteral("<link rel=\"%1\" type=\"%2\" href=\"%3\" />")
                                     .arg(escapeText(a.value(QLatin1String("rel")), true),
                                          escapeText(a.value(QLatin1String("type")), true),
                                          escapeText(a.value(QLatin1String("href")), true));
                }
                continue;
            }
            if (name == QLatin1String("body")) {
                inBody = true;
                stack.append({QStringLiteral("body"), false});
                continue;
            }
            if (!inBody || name == QLatin1String("html"))
                continue;
            if (dropsSubtree(name)) {
                skipDepth = 1;
                continue;
            }
            const auto attributes = reader.attributes();
            if (name == QLatin1String("input")) {
                if (attributes.value(QLatin1String("type")) == QLatin1String("checkbox")) {
                    beginInline();
                    body += attributes.hasAttribute(QLatin1String("checked"))
                                ? QStringLiteral("\u2611")
                                : QStringLiteral("\u2610");
                }
                stack.append({QString(), false});
                continue;
            }
            QString element = renamed(name);
            QString src;
            if (element == QLatin1String("a")) {
                const QString href = attributes.value(QLatin1String("href")).toString();
                const QString path = href.section(QLatin1Char('#'), 0, 0);
                if (insideLink() || (isRelative(href) && !m_pageExists(path)))
                    element.clear();
            } else if (element == QLatin1String("img")) {
                src = attributes.value(QLatin1String("src")).toString();
                if (!isRelative(src) || !m_imageExists(src)) {
                    // An image the book does not hold is told by its alternative text.
                    beginInline();
                    body += escapeText(attributes.value(QLatin1String("alt")), false);
                    stack.append({QString(), false});
                    continue;
                }
            }
            if (element.isEmpty()) {
                stack.append({QString(), false});
                continue;
            }
            if (blockElements().contains(element))
                closeWrapper();
            else if (!structuralElements().contains(element))
                beginInline();
            body += QLatin1Char('<') + element;
            bool hasAlt = false;
            for (const QXmlStreamAttribute &attribute : attributes) {
                QString key = attribute.qualifiedName().toString().toLower();
                QString value = attribute.value().toString();
                if (key == QLatin1String("lang") || key == QLatin1String("xml:lang")) {
                    key = QStringLiteral("xml:lang");
                } else if (!allowedAttribute(element, key)) {
                    continue;
                }
                if (key == QLatin1String("id")) {
                    value = xmlName(value);
                    if (ids.contains(value))
                        continue;
                    ids.insert(value);
                } else if (key == QLatin1String("href") && value.contains(QLatin1Char('#'))) {
                    value = value.section(QLatin1Char('#'), 0, 0) + QLatin1Char('#') +
                            xmlName(value.section(QLatin1Char('#'), 1));
                }
                hasAlt = hasAlt || key == QLatin1String("alt");
                body += QLatin1Char(' ') + key + QLatin1String("=\"") + escapeText(value, true) +
                        QLatin1Char('"');
            }
            if (element == QLatin1String("img") && !hasAlt)
                body += QLatin1String(" alt=\"\"");
            body += QLatin1Char('>');
            stack.append({element, false});
        } else if (token == QXmlStreamReader::EndElement) {
            if (name == QLatin1String("head")) {
                inHead = false;
                continue;
            }
            if (inHead) {
                if (name == QLatin1String("title"))
                    inTitle = false;
                continue;
            }
            if (!inBody || name == QLatin1String("html"))
                continue;
            closeWrapper();
            if (stack.isEmpty())
                continue;
            const Open open = stack.takeLast();
            if (open.written == QLatin1String("body")) {
                inBody = false;
            } else if (!open.written.isEmpty()) {
                static const QSet<QString> empty = {QStringLiteral("br"), QStringLiteral("hr"),
                                                    QStringLiteral("img"), QStringLiteral("col")};
                if (empty.contains(open.written))
                    body.insert(body.size() - 1, QLatin1String(" /"));
                else
                    body += QLatin1String("</") + open.written + QLatin1Char('>');
            }
        } else if (token == QXmlStreamReader::Characters) {
            if (inTitle) {
                title += reader.text();
            } else if (inBody && skipDepth == 0) {
                if (reader.isWhitespace()) {
                    body += reader.text();
                } else {
                    beginInline();
                    body += escapeText(reader.text(), false);
                }
            }
        }
    }
    if (reader.hasError()) {
        if (problem)
            *problem = reader.errorString();
        return QString();
    }
    QString out = QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.1//EN\" "
        "\"http://www.w3.org/TR/xhtml11/DTD/xhtml11.dtd\">\n"
        "<html xmlns=\"http://www.w3.org/1999/xhtml\">\n<head>\n"
        "<meta http-equiv=\"Content-Type\" content=\"application/xhtml+xml; charset=utf-8\" />\n");
    out +=
        QLatin1String("<title>") + escapeText(title.trimmed(), false) + QLatin1String("</title>\n");
    for (const QString &link : headLinks)
        out += link + QLatin1Char('\n');
    out += QLatin1String("</head>\n<body>") + body + QLatin1String("</body>\n</html>\n");
    return out;
}
