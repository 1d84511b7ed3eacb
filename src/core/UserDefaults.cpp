#include "UserDefaults.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPalette>
#include <QStandardPaths>
#include <QtDebug>

namespace {
std::unique_ptr<UserDefaults> g_standard;

// Keys whose value is a list of records, stored as QSettings arrays.
const QStringList kRecordListKeys = {QStringLiteral("DiarySaveDestinations")};

// Defaults as the INI file would hold them: text for strings and "#AARRGGBB" colours.
QVariant defaultValue(const char *text)
{
    return QString::fromUtf8(text);
}
QVariant defaultValue(const QString &text)
{
    return text;
}
QVariant defaultValue(int number)
{
    return number;
}
QVariant defaultValue(bool flag)
{
    return flag;
}

QString selectedTextBackground()
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return UserDefaults::colorToString(QGuiApplication::palette().color(QPalette::Highlight));
    return QStringLiteral("#ffb3d7ff");
}
} // namespace

UserDefaults::UserDefaults(const QString &filePath, QObject *parent)
    : QObject(parent)
    , m_settings(std::make_unique<QSettings>(filePath, QSettings::IniFormat))
    , m_arrayKeys(kRecordListKeys)
{
    checkReadable();
}

UserDefaults::~UserDefaults()
{
    m_settings->sync();
}

QString UserDefaults::standardFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Vellox/Vellox.conf");
}

UserDefaults &UserDefaults::standard()
{
    if (!g_standard) {
        g_standard = std::make_unique<UserDefaults>(standardFilePath());
        g_standard->registerDefaults(defaultsTable());
    }
    return *g_standard;
}

void UserDefaults::resetStandard()
{
    g_standard.reset();
}

// A settings file that is damaged is copied aside before anything is written back, so the
// notebook list in it can still be recovered by hand; the app starts with what QSettings
// could read. QSettings skips lines it cannot parse without saying so, hence our own look.
void UserDefaults::checkReadable()
{
    const QString path = m_settings->fileName();
    QFile file(path);
    if (!file.exists())
        return;
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning().noquote() << "ERROR: settings file" << path
                             << "cannot be read; starting with the defaults:" << file.errorString();
        return;
    }
    const QByteArray content = file.readAll();
    int damagedLines = 0;
    for (QByteArray line : content.split('\n')) {
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith(';') || line.startsWith('#') ||
            (line.startsWith('[') && line.endsWith(']')))
            continue;
        if (!line.contains('='))
            ++damagedLines;
    }
    const bool nothingRead = !content.trimmed().isEmpty() && m_settings->allKeys().isEmpty();
    if (m_settings->status() != QSettings::FormatError && damagedLines == 0 && !nothingRead)
        return;
    const QString backup = path + QStringLiteral(".damaged-") +
                           QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    if (QFile::copy(path, backup))
        m_damagedBackup = backup;
    qWarning().noquote() << "ERROR: settings file" << path << "is damaged (" << damagedLines
                         << "unreadable lines); using what could be read, the original is kept at"
                         << backup;
}

QList<QPair<QString, QVariant>> UserDefaults::defaultsTable()
{
    const QString PlatformSelectionColor = selectedTextBackground();
    QList<QPair<QString, QVariant>> table;
#define VELLOX_DEFAULT_ENTRY(name, key, type, value)                                               \
    table.append({QStringLiteral(key), defaultValue(value)});
    VELLOX_REGISTERED_SETTINGS(VELLOX_DEFAULT_ENTRY)
#undef VELLOX_DEFAULT_ENTRY
    return table;
}

void UserDefaults::registerDefaults(const QList<QPair<QString, QVariant>> &table)
{
    for (const auto &entry : table)
        m_defaults.insert(entry.first, entry.second);
}

bool UserDefaults::hasStoredValue(const QString &key) const
{
    if (m_arrayKeys.contains(key))
        return m_settings->childGroups().contains(key);
    return m_settings->contains(key);
}

QVariant UserDefaults::objectForKey(const QString &key) const
{
    if (m_arrayKeys.contains(key)) {
        if (!hasStoredValue(key))
            return {};
        QVariantList list;
        for (const QVariantMap &record : recordsForKey(key))
            list.append(record);
        return list;
    }
    if (m_settings->contains(key))
        return m_settings->value(key);
    return m_defaults.value(key);
}

bool UserDefaults::boolForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    if (!value.isValid())
        return false;
    // INI files give every value back as a string: "true"/"false" as well as numbers.
    const QString text = value.toString().trimmed().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("yes") ||
        text == QLatin1String("selected"))
        return true;
    if (text == QLatin1String("false") || text == QLatin1String("no") || text.isEmpty())
        return false;
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok && number != 0.0;
}

int UserDefaults::integerForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    if (!value.isValid())
        return 0;
    const QString text = value.toString().trimmed().toLower();
    if (text == QLatin1String("true"))
        return 1;
    bool ok = false;
    const int number = text.toInt(&ok);
    if (ok)
        return number;
    const double real = text.toDouble(&ok);
    return ok ? static_cast<int>(real) : 0;
}

QString UserDefaults::stringForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    return value.isValid() ? value.toString() : QString();
}

QColor UserDefaults::colorForKey(const QString &key) const
{
    return colorFromString(stringForKey(key));
}

QList<QVariantMap> UserDefaults::recordsForKey(const QString &key) const
{
    QList<QVariantMap> records;
    const int size = m_settings->beginReadArray(key);
    for (int i = 0; i < size; ++i) {
        m_settings->setArrayIndex(i);
        QVariantMap record;
        const QStringList fields = m_settings->childKeys();
        for (const QString &field : fields)
            record.insert(field, m_settings->value(field));
        records.append(record);
    }
    m_settings->endArray();
    return records;
}

void UserDefaults::setBool(const QString &key, bool value)
{
    setObject(key, value);
}

void UserDefaults::setInteger(const QString &key, int value)
{
    setObject(key, value);
}

void UserDefaults::setString(const QString &key, const QString &value)
{
    setObject(key, value);
}

void UserDefaults::setObject(const QString &key, const QVariant &value)
{
    if (m_arrayKeys.contains(key)) {
        QList<QVariantMap> records;
        for (const QVariant &item : value.toList())
            records.append(item.toMap());
        setRecords(key, records);
        return;
    }
    if (value.typeId() == QMetaType::QColor) {
        setColor(key, value.value<QColor>());
        return;
    }
    m_settings->setValue(key, value);
    m_settings->sync();
    Q_EMIT valueChanged(key);
}

void UserDefaults::setColor(const QString &key, const QColor &color)
{
    m_settings->setValue(key, colorToString(color));
    m_settings->sync();
    Q_EMIT valueChanged(key);
}

void UserDefaults::setRecords(const QString &key, const QList<QVariantMap> &records)
{
    m_settings->remove(key);
    m_settings->beginWriteArray(key, int(records.size()));
    for (int i = 0; i < records.size(); ++i) {
        m_settings->setArrayIndex(i);
        for (auto it = records[i].cbegin(); it != records[i].cend(); ++it)
            m_settings->setValue(it.key(), it.value());
    }
    m_settings->endArray();
    m_settings->sync();
    Q_EMIT valueChanged(key);
}

void UserDefaults::removeObjectForKey(const QString &key)
{
    m_settings->remove(key);
    m_settings->sync();
    Q_EMIT valueChanged(key);
}

void UserDefaults::sync()
{
    m_settings->sync();
}

QString UserDefaults::filePath() const
{
    return m_settings->fileName();
}

QString UserDefaults::colorToString(const QColor &color)
{
    return color.name(QColor::HexArgb);
}

QColor UserDefaults::colorFromString(const QString &text)
{
    QColor color(text.trimmed());
    return color.isValid() ? color : QColor(Qt::black);
}
