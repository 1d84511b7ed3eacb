#include "MarkupLanguage.h"

#include "core/UserDefaults.h"

namespace MarkupLanguage {

namespace {
int clamped(int number)
{
    return (number >= 1 && number <= Count) ? number : 1;
}
} // namespace

const QStringList &displayNames()
{
    static const QStringList names = {QString(),
                                      QStringLiteral("Markdown"),
                                      QStringLiteral("Textile"),
                                      QStringLiteral("Wikitext"),
                                      QStringLiteral("BBCode"),
                                      QStringLiteral("Smark"),
                                      QStringLiteral("HTML"),
                                      QStringLiteral("MultiMarkdown")};
    return names;
}

const QStringList &textBundleExtensions()
{
    static const QStringList list = {QStringLiteral("markdown"), QStringLiteral("tex"),
                                     QStringLiteral("wiki"),     QStringLiteral("bbc"),
                                     QStringLiteral("txt"),      QStringLiteral("html"),
                                     QStringLiteral("mmd")};
    return list;
}

const QStringList &typeIdentifiers()
{
    static const QStringList list = {
        QStringLiteral("net.daringfireball.markdown"), QStringLiteral("com.tessaly.textile"),
        QStringLiteral("com.tessaly.wikitext"),        QStringLiteral("com.tessaly.bbcode"),
        QStringLiteral("com.tessaly.smark"),           QStringLiteral("public.html"),
        QStringLiteral("net.multimarkdown.text")};
    return list;
}

const QStringList &keyWords()
{
    static const QStringList list = {QStringLiteral("markdown"),     QStringLiteral("textile"),
                                     QStringLiteral("wikitext"),     QStringLiteral("bbcode"),
                                     QStringLiteral("smark"),        QStringLiteral("html"),
                                     QStringLiteral("multimarkdown")};
    return list;
}

const QStringList &selectionKeys()
{
    static const QStringList list = [] {
        QStringList names;
        for (const Setting<bool> &flag : Settings::MarkupIsSelected)
            names << flag.name();
        return names;
    }();
    return list;
}

QString displayName(int number)
{
    return (number >= 0 && number <= Count) ? displayNames().at(number) : QString();
}

QString textBundleExtension(int number)
{
    return textBundleExtensions().at(clamped(number) - 1);
}

QString typeIdentifier(int number)
{
    return typeIdentifiers().at(clamped(number) - 1);
}

QString converterKeyWord(int number)
{
    if (number >= 1 && number <= Count)
        return keyWords().at(number - 1);
    return QStringLiteral("smark");
}

QString boldTitle(int number, const QString &title)
{
    static const QStringList patterns = {
        QStringLiteral("**%@**"),   QStringLiteral("*%@*"),
        QStringLiteral("'''%@'''"), QStringLiteral("[b]%@[/b]"),
        QStringLiteral("**%@**"),   QStringLiteral("<strong>%@</strong>"),
        QStringLiteral("**%@**")};
    if (number == 0)
        return title;
    if (number < 1 || number > Count)
        return QString();
    QString text = patterns.at(number - 1);
    return text.replace(QLatin1String("%@"), title);
}

int menuTag(int number)
{
    return MenuTagBase + number;
}

int languageForTextBundleType(const QString &type)
{
    // "html" first ("public.html"), and "multimarkdown" before the Markdown fall-back.
    if (type.contains(QLatin1String("html")))
        return HTML;
    if (type.contains(QLatin1String("textile")))
        return Textile;
    if (type.contains(QLatin1String("wikitext")))
        return Wikitext;
    if (type.contains(QLatin1String("bbcode")))
        return BBCode;
    if (type.contains(QLatin1String("smark")))
        return Smark;
    if (type.contains(QLatin1String("multimarkdown")))
        return MultiMarkdown;
    return Markdown;
}

int current(const UserDefaults &defaults)
{
    return defaults.value(Settings::TypographyUseMarkupLanguage);
}

void select(UserDefaults &defaults, int tag)
{
    for (const Setting<bool> &flag : Settings::MarkupIsSelected)
        defaults.setValue(flag, false);
    const int number = tag - MenuTagBase;
    defaults.setValue(Settings::TypographyUseMarkupLanguage, number);
    const Setting<bool> &chosen = (number >= 1 && number <= Count)
                                      ? Settings::MarkupIsSelected[number - 1]
                                      : Settings::MarkupIsSelected[0];
    // Stored as the word "selected", not as true, the way the menu always has.
    defaults.setString(chosen.name(), QStringLiteral("selected"));
}

} // namespace MarkupLanguage
