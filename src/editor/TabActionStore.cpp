#include "TabActionStore.h"

#include "core/AppPaths.h"
#include "core/PropertyList.h"
#include "core/UserDefaults.h"

#include <QCollator>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>

#include <algorithm>

namespace {
const QString kInternalFileName = QStringLiteral("tabactions.plist");

// A sandboxed build resolves the bookmark and starts accessing the file here; on this
// platform the path alone grants access.
void startAccessingExternalFile(const QString &path, const QByteArray &bookmark)
{
    Q_UNUSED(path);
    Q_UNUSED(bookmark);
}

QString describeRoot(const QVariant &root)
{
    switch (root.typeId()) {
    case QMetaType::QVariantList:
        return QStringLiteral("an array");
    case QMetaType::QString:
        return QStringLiteral("a string");
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return QStringLiteral("an integer");
    case QMetaType::Double:
        return QStringLiteral("a real number");
    case QMetaType::Bool:
        return QStringLiteral("a boolean");
    case QMetaType::QByteArray:
        return QStringLiteral("data");
    case QMetaType::QDateTime:
        return QStringLiteral("a date");
    default:
        return QStringLiteral("not a dictionary");
    }
}

bool hasBlank(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSpace(); });
}

QString g_lastLoggedProblem;
} // namespace

QString TabActionStore::internalPath()
{
    return AppPaths::supportFolder() + QLatin1Char('/') + kInternalFileName;
}

TabActionStore::FileSettings TabActionStore::FileSettings::from(const UserDefaults &defaults)
{
    return {defaults.value(Settings::TabActionUseExternalFile),
            defaults.value(Settings::TabActionExternFilePath),
            defaults.value(Settings::TabActionExternFilePathSecScope)};
}

QString TabActionStore::pathInUse(const FileSettings &settings)
{
    if (settings.useExternalFile) {
        const QString external = AppPaths::expandTilde(settings.externalPath);
        // Switching to an external file before choosing one keeps the internal list working.
        if (!external.isEmpty()) {
            startAccessingExternalFile(external, settings.bookmark);
            return external;
        }
    }
    return internalPath();
}

QVariantMap TabActionStore::availableTabActions(const FileSettings &settings)
{
    const QString path = pathInUse(settings);
    QString problem;
    const QVariantMap all = load(path, &problem);
    if (!problem.isEmpty()) {
        logProblemOnce(path, problem);
        return {};
    }
    g_lastLoggedProblem.clear();
    // An empty key would fire on every Tab typed after a blank, and a key with a blank can
    // never be typed as one word: neither is offered for expansion, but both stay in the file.
    QVariantMap usable;
    for (auto it = all.cbegin(); it != all.cend(); ++it) {
        if (it.key().isEmpty() || hasBlank(it.key()) || it.value().typeId() != QMetaType::QString)
            continue;
        usable.insert(it.key(), it.value());
    }
    return usable;
}

QVariantMap TabActionStore::load(const QString &path, QString *problem)
{
    QString error;
    const QVariant root = PropertyList::read(path, &error);
    if (!root.isValid()) {
        if (problem)
            *problem = error;
        return {};
    }
    if (root.typeId() != QMetaType::QVariantMap) {
        if (problem)
            *problem = QStringLiteral("its root is %1, not a dictionary").arg(describeRoot(root));
        return {};
    }
    if (problem)
        problem->clear();
    return root.toMap();
}

bool TabActionStore::save(const QString &path, const QVariantMap &actions, QString *error)
{
    const QFileInfo existing(path);
    if (existing.isFile() && existing.size() > 0) {
        QString problem;
        load(path, &problem);
        if (!problem.isEmpty()) {
            const QString keep =
                path + QStringLiteral(".unreadable-") +
                QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
            if (QFile::copy(path, keep))
                qWarning().noquote() << QStringLiteral("ERROR: tab-action file %1 could not be "
                                                       "read (%2); a copy was kept at %3")
                                            .arg(path, problem, keep);
        }
    }
    QString writeError;
    if (!PropertyList::write(path, actions, &writeError)) {
        qWarning().noquote() << QStringLiteral("FILEWRITING-ERROR: %1: %2").arg(path, writeError);
        if (error)
            *error = writeError;
        return false;
    }
    if (error)
        error->clear();
    return true;
}

QStringList TabActionStore::sortedAbbreviations(const QVariantMap &actions)
{
    QStringList names = actions.keys();
    QCollator collator{QLocale()};
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(names.begin(), names.end(), [&collator](const QString &a, const QString &b) {
        return collator.compare(a, b) < 0;
    });
    return names;
}

TabActionStore::NameCheck TabActionStore::checkNewName(const QString &name,
                                                       const QStringList &listedNames)
{
    if (name.isEmpty())
        return NameCheck::Empty;
    if (hasBlank(name))
        return NameCheck::ContainsBlank;
    if (listedNames.contains(name))
        return NameCheck::Duplicate;
    return NameCheck::Acceptable;
}

// The typing engine asks on every Tab; a broken file is reported once, not once per key.
void TabActionStore::logProblemOnce(const QString &path, const QString &problem)
{
    const QString key = path + QLatin1Char('\n') + problem;
    if (key == g_lastLoggedProblem)
        return;
    g_lastLoggedProblem = key;
    qWarning().noquote()
        << QStringLiteral("ERROR: tab actions in \"%1\" ignored: %2").arg(path, problem);
}
