#pragma once

#include "core/Settings.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QSettings>
#include <QVariant>
#include <QVariantMap>

#include <memory>

// The per-user settings store. Registered defaults are answered for every key the user has
// not set and are never written to disk; everything else lives in an INI file a user can
// read and edit. Colours are "#AARRGGBB" strings, lists of records are QSettings arrays.
class UserDefaults : public QObject
{
    Q_OBJECT
public:
    explicit UserDefaults(const QString &filePath, QObject *parent = nullptr);
    ~UserDefaults() override;

    // The application's store at ~/.config/Vellox/Vellox.conf (XDG_CONFIG_HOME respected).
    static UserDefaults &standard();
    // Drops the shared store so the next standard() reopens it (tests change HOME).
    static void resetStandard();
    static QString standardFilePath();

    // The registered defaults table, in registration order.
    static QList<QPair<QString, QVariant>> defaultsTable();
    void registerDefaults(const QList<QPair<QString, QVariant>> &table);
    QVariantMap registeredDefaults() const { return m_defaults; }

    QVariant objectForKey(const QString &key) const;
    bool boolForKey(const QString &key) const;
    int integerForKey(const QString &key) const;
    QString stringForKey(const QString &key) const;
    QColor colorForKey(const QString &key) const;
    QList<QVariantMap> recordsForKey(const QString &key) const;
    // True only for values the user's file holds, never for registered defaults.
    bool hasStoredValue(const QString &key) const;

    void setBool(const QString &key, bool value);
    void setInteger(const QString &key, int value);
    void setString(const QString &key, const QString &value);
    void setObject(const QString &key, const QVariant &value);
    void setColor(const QString &key, const QColor &color);
    void setRecords(const QString &key, const QList<QVariantMap> &records);
    void removeObjectForKey(const QString &key);

    // Typed access through the settings table; the way code outside core/ reads and writes.
    bool value(const Setting<bool> &s) const { return boolForKey(s.name()); }
    int value(const Setting<int> &s) const { return integerForKey(s.name()); }
    QString value(const Setting<QString> &s) const { return stringForKey(s.name()); }
    QColor value(const Setting<QColor> &s) const { return colorForKey(s.name()); }
    RecordList value(const Setting<RecordList> &s) const { return recordsForKey(s.name()); }
    QByteArray value(const Setting<QByteArray> &s) const
    {
        return objectForKey(s.name()).toByteArray();
    }
    void setValue(const Setting<bool> &s, bool v) { setBool(s.name(), v); }
    void setValue(const Setting<int> &s, int v) { setInteger(s.name(), v); }
    void setValue(const Setting<QString> &s, const QString &v) { setString(s.name(), v); }
    void setValue(const Setting<QColor> &s, const QColor &v) { setColor(s.name(), v); }
    void setValue(const Setting<RecordList> &s, const RecordList &v) { setRecords(s.name(), v); }
    void setValue(const Setting<QByteArray> &s, const QByteArray &v) { setObject(s.name(), v); }
    template <typename T> bool hasStoredValue(const Setting<T> &s) const
    {
        return hasStoredValue(s.name());
    }
    template <typename T> void remove(const Setting<T> &s) { removeObjectForKey(s.name()); }

    void sync();
    QString filePath() const;
    // Where a damaged settings file was copied aside when this store opened it, or "".
    QString damagedFileBackup() const { return m_damagedBackup; }

    static QString colorToString(const QColor &color);
    static QColor colorFromString(const QString &text);

Q_SIGNALS:
    void valueChanged(const QString &key);

private:
    void checkReadable();

    std::unique_ptr<QSettings> m_settings;
    QVariantMap m_defaults;
    QStringList m_arrayKeys;
    QString m_damagedBackup;
};
