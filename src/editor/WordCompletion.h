#pragma once

#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace WordCompletion {
// The abbreviations of the tab actions that begin with the partial word (case-sensitive), in
// the case-insensitive order of the user's locale. Nothing for an empty partial word.
QStringList completionsForPartialWord(const QString &partial, const QVariantMap &tabActions);
} // namespace WordCompletion
