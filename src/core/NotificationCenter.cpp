#include "NotificationCenter.h"

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

void NotificationCenter::addObserver(QObject *owner, const QString &name, Handler handler)
{
    m_observers[name].push_back(Observer{owner, std::move(handler), m_nextId++});
    if (owner && !m_watchedOwners.contains(owner)) {
        m_watchedOwners.insert(owner);
        connect(owner, &QObject::destroyed, this, [this, owner] {
            m_watchedOwners.remove(owner);
            removeObserver(owner);
        });
    }
}

void NotificationCenter::removeObserver(QObject *owner, const QString &name)
{
    for (auto it = m_observers.begin(); it != m_observers.end(); ++it) {
        if (!name.isEmpty() && it.key() != name)
            continue;
        auto &list = it.value();
        list.erase(std::remove_if(list.begin(), list.end(),
                                  [owner](const Observer &o) {
                                      return o.owner.isNull() || o.owner.data() == owner;
                                  }),
                   list.end());
    }
}

void NotificationCenter::post(const QString &name, const QVariant &object,
                              const QVariantMap &userInfo)
{
    const auto found = m_observers.constFind(name);
    if (found == m_observers.constEnd())
        return;
    // Handlers may add or remove observers while we deliver: work on a snapshot and skip
    // the ones whose owner has gone meanwhile.
    const std::vector<Observer> snapshot = found.value();
    const Notification note{name, object, userInfo};
    for (const Observer &observer : snapshot) {
        if (observer.owner.isNull())
            continue;
        observer.handler(note);
    }
}

void NotificationCenter::post(const QString &name, QObject *sender, const QVariantMap &userInfo)
{
    post(name, QVariant::fromValue(sender), userInfo);
}

int NotificationCenter::observerCount(const QString &name) const
{
    const auto found = m_observers.constFind(name);
    if (found == m_observers.constEnd())
        return 0;
    int count = 0;
    for (const Observer &o : found.value())
        count += o.owner.isNull() ? 0 : 1;
    return count;
}
