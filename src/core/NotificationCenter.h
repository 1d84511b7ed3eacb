#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <functional>
#include <vector>

struct Notification
{
    QString name;
    QVariant object; // the sender, or a value such as a file path
    QVariantMap userInfo;

    QObject *sender() const { return object.value<QObject *>(); }
};

// The process's notification centre: controllers post by name and observe by name, with an
// object and a userInfo record. Delivery is synchronous on the posting (main) thread, in the
// order the observers registered. An observer is dropped when its owning QObject dies.
class NotificationCenter : public QObject
{
    Q_OBJECT
public:
    using Handler = std::function<void(const Notification &)>;

    static NotificationCenter &defaultCenter();

    void addObserver(QObject *owner, const QString &name, Handler handler);
    void removeObserver(QObject *owner, const QString &name = QString());

    void post(const QString &name, const QVariant &object = QVariant(),
              const QVariantMap &userInfo = QVariantMap());
    void post(const QString &name, QObject *sender, const QVariantMap &userInfo = QVariantMap());

    int observerCount(const QString &name) const;

private:
    struct Observer
    {
        QPointer<QObject> owner;
        Handler handler;
        quint64 id;
    };
    QHash<QString, std::vector<Observer>> m_observers;
    QSet<QObject *> m_watchedOwners;
    quint64 m_nextId = 1;
};
