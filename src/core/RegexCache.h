#pragma once

#include <QString>
#include <QStringView>

#include <memory>

#include <unicode/uversion.h>

U_NAMESPACE_BEGIN
class RegexPattern;
U_NAMESPACE_END

// Compiled ICU regular expressions, kept by pattern text so the editor compiles each of its
// patterns once. Every position is a UTF-16 unit index into the QString passed in, and the
// subject is never copied: ICU reads the QString's own buffer.
class RegexCache
{
public:
    static RegexCache &shared();

    // The compiled pattern, or nullptr when the pattern does not compile.
    const icu::RegexPattern *pattern(const QString &pattern);

    // True when a match of pattern begins at the very first unit of text.
    bool matchesAtStart(const QString &pattern, QStringView text);
    // Position of the first match at or after from, or -1; length receives its length.
    int indexIn(const QString &pattern, QStringView text, int from = 0, int *length = nullptr);
    // Every match replaced by the literal replacement (no group references).
    QString replaceAll(const QString &pattern, const QString &text, const QString &replacement);

    int size() const;
    void clear();

    // Patterns beyond this count push out the least recently used one.
    static constexpr int Capacity = 64;

    RegexCache();
    ~RegexCache();
    RegexCache(const RegexCache &) = delete;
    RegexCache &operator=(const RegexCache &) = delete;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
