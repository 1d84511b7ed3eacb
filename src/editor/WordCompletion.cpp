#include "WordCompletion.h"

#include "TabActionStore.h"

QStringList WordCompletion::completionsForPartialWord(const QString &partial,
                                                      const QVariantMap &tabActions)
{
    if (partial.isEmpty())
        return {};
    QStringList result;
    for (const QString &name : TabActionStore::sortedAbbreviations(tabActions)) {
        if (name.startsWith(partial, Qt::CaseSensitive))
            result << name;
    }
    return result;
}
