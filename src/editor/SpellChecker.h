#pragma once

#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QStringView>

struct str_enchant_broker;
struct str_enchant_dict;

// Spelling through Enchant, in one language. Answers are remembered, so checking a word
// the entry already uses costs a hash lookup.
class SpellChecker
{
public:
    // language: a tag such as "en_US"; empty takes the user's locale. When no dictionary of
    // that language is installed the nearest one is used (the same language in another
    // country, then English); isAvailable() is false when there is none at all.
    explicit SpellChecker(const QString &language = QString());
    ~SpellChecker();
    SpellChecker(const SpellChecker &) = delete;
    SpellChecker &operator=(const SpellChecker &) = delete;

    bool isAvailable() const { return m_dict != nullptr; }
    QString language() const { return m_language; }

    bool isCorrect(const QString &word);
    QStringList suggestions(const QString &word, int maximum = 6);
    // Into the user's personal word list, kept by Enchant for every program that uses it.
    void addToDictionary(const QString &word);

    // The words of text worth checking: runs of letters (apostrophes inside count), not
    // touching digits or underscores, longer than one letter. Location and length in UTF-16.
    static QList<QPair<int, int>> words(QStringView text);
    QList<QPair<int, int>> misspelledWords(QStringView text);

private:
    str_enchant_broker *m_broker = nullptr;
    str_enchant_dict *m_dict = nullptr;
    QString m_language;
    QHash<QString, bool> m_known;
};
