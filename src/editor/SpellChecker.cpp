#include "SpellChecker.h"

#include <QLocale>

#include <enchant.h>

namespace {
bool isWordChar(QChar c)
{
    return c.isLetter() || c.isMark();
}
bool isApostrophe(QChar c)
{
    return c == u'\'' || c == u'\u2019';
}
} // namespace

SpellChecker::SpellChecker(const QString &language)
    : m_broker(enchant_broker_init())
{
    if (!m_broker)
        return;
    const QString wanted = language.isEmpty() ? QLocale().name() : language;
    QStringList tags{wanted, wanted.section(u'_', 0, 0), QStringLiteral("en_US"),
                     QStringLiteral("en_GB"), QStringLiteral("en")};
    for (const QString &tag : tags) {
        const QByteArray utf8 = tag.toUtf8();
        if (tag.isEmpty() || tag == u"C" || !enchant_broker_dict_exists(m_broker, utf8))
            continue;
        m_dict = enchant_broker_request_dict(m_broker, utf8);
        if (m_dict) {
            m_language = tag;
            break;
        }
    }
}

SpellChecker::~SpellChecker()
{
    if (m_dict)
        enchant_broker_free_dict(m_broker, m_dict);
    if (m_broker)
        enchant_broker_free(m_broker);
}

bool SpellChecker::isCorrect(const QString &word)
{
    if (!m_dict)
        return true;
    const auto known = m_known.constFind(word);
    if (known != m_known.constEnd())
        return known.value();
    const QByteArray utf8 = word.toUtf8();
    const bool correct = enchant_dict_check(m_dict, utf8.constData(), utf8.size()) == 0;
    m_known.insert(word, correct);
    return correct;
}

QStringList SpellChecker::suggestions(const QString &word, int maximum)
{
    QStringList result;
    if (!m_dict)
        return result;
    const QByteArray utf8 = word.toUtf8();
    size_t count = 0;
    char **list = enchant_dict_suggest(m_dict, utf8.constData(), utf8.size(), &count);
    for (size_t i = 0; i < count && int(result.size()) < maximum; ++i)
        result << QString::fromUtf8(list[i]);
    if (list)
        enchant_dict_free_string_list(m_dict, list);
    return result;
}

void SpellChecker::addToDictionary(const QString &word)
{
    if (!m_dict)
        return;
    const QByteArray utf8 = word.toUtf8();
    enchant_dict_add(m_dict, utf8.constData(), utf8.size());
    m_known.insert(word, true);
}

QList<QPair<int, int>> SpellChecker::words(QStringView text)
{
    QList<QPair<int, int>> result;
    const int n = int(text.size());
    int i = 0;
    while (i < n) {
        if (!isWordChar(text[i])) {
            ++i;
            continue;
        }
        const int start = i;
        while (i < n && (isWordChar(text[i]) ||
                         (isApostrophe(text[i]) && i + 1 < n && isWordChar(text[i + 1]))))
            ++i;
        const auto glued = [&text, n](int at) {
            return at >= 0 && at < n && (text[at].isDigit() || text[at] == u'_');
        };
        if (i - start > 1 && !glued(start - 1) && !glued(i))
            result.append({start, i - start});
    }
    return result;
}

QList<QPair<int, int>> SpellChecker::misspelledWords(QStringView text)
{
    QList<QPair<int, int>> result;
    if (!m_dict)
        return result;
    for (const auto &word : words(text)) {
        if (!isCorrect(text.mid(word.first, word.second).toString()))
            result.append(word);
    }
    return result;
}
