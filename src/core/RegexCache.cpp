#include "RegexCache.h"

#include <QHash>
#include <QList>
#include <QtDebug>

#include <unicode/regex.h>
#include <unicode/unistr.h>

namespace {
// A read-only ICU view of UTF-16 text that shares the caller's buffer.
icu::UnicodeString aliasOf(QStringView text)
{
    return icu::UnicodeString(false, reinterpret_cast<const char16_t *>(text.utf16()),
                              int32_t(text.size()));
}
} // namespace

struct RegexCache::Private
{
    QHash<QString, std::shared_ptr<icu::RegexPattern>> patterns;
    QList<QString> recency; // most recent last
    QHash<QString, bool> failed;
};

RegexCache::RegexCache()
    : d(std::make_unique<Private>())
{}

RegexCache::~RegexCache() = default;

RegexCache &RegexCache::shared()
{
    static RegexCache cache;
    return cache;
}

const icu::RegexPattern *RegexCache::pattern(const QString &text)
{
    auto found = d->patterns.constFind(text);
    if (found != d->patterns.constEnd()) {
        if (d->recency.last() != text) {
            d->recency.removeOne(text);
            d->recency.append(text);
        }
        return found->get();
    }
    if (d->failed.contains(text))
        return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    UParseError parseError;
    std::shared_ptr<icu::RegexPattern> compiled(
        icu::RegexPattern::compile(aliasOf(text), 0, parseError, status));
    if (U_FAILURE(status) || !compiled) {
        qWarning().noquote() << "ERROR: regular expression does not compile:" << text
                             << u_errorName(status);
        d->failed.insert(text, true);
        return nullptr;
    }
    if (d->recency.size() >= Capacity)
        d->patterns.remove(d->recency.takeFirst());
    d->patterns.insert(text, compiled);
    d->recency.append(text);
    return compiled.get();
}

bool RegexCache::matchesAtStart(const QString &patternText, QStringView text)
{
    const icu::RegexPattern *compiled = pattern(patternText);
    if (!compiled)
        return false;
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString subject = aliasOf(text);
    std::unique_ptr<icu::RegexMatcher> matcher(compiled->matcher(subject, status));
    if (U_FAILURE(status))
        return false;
    const bool found = matcher->lookingAt(status);
    return U_SUCCESS(status) && found;
}

int RegexCache::indexIn(const QString &patternText, QStringView text, int from, int *length)
{
    if (length)
        *length = 0;
    const icu::RegexPattern *compiled = pattern(patternText);
    if (!compiled || from < 0 || from > text.size())
        return -1;
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString subject = aliasOf(text);
    std::unique_ptr<icu::RegexMatcher> matcher(compiled->matcher(subject, status));
    if (U_FAILURE(status) || !matcher->find(from, status) || U_FAILURE(status))
        return -1;
    const int start = matcher->start(status);
    if (length)
        *length = matcher->end(status) - start;
    return U_SUCCESS(status) ? start : -1;
}

QString RegexCache::replaceAll(const QString &patternText, const QString &text,
                               const QString &replacement)
{
    const icu::RegexPattern *compiled = pattern(patternText);
    if (!compiled)
        return text;
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString subject = aliasOf(text);
    std::unique_ptr<icu::RegexMatcher> matcher(compiled->matcher(subject, status));
    if (U_FAILURE(status))
        return text;
    // Walk the matches ourselves so the replacement is taken literally ("$" and "\" too).
    QString result;
    result.reserve(text.size());
    int copied = 0;
    while (matcher->find(status) && U_SUCCESS(status)) {
        const int start = matcher->start(status);
        const int end = matcher->end(status);
        result += QStringView(text).mid(copied, start - copied);
        result += replacement;
        copied = end;
    }
    if (U_FAILURE(status))
        return text;
    result += QStringView(text).mid(copied);
    return result;
}

int RegexCache::size() const
{
    return int(d->patterns.size());
}

void RegexCache::clear()
{
    d->patterns.clear();
    d->recency.clear();
    d->failed.clear();
}
