#pragma once

#include "PortalGlobalShortcuts.h"
#include "X11HotKey.h"

#include <QKeySequence>
#include <QObject>

// The outcome of the last attempt to register the global key, for whoever shows it (the
// preferences pane, the main window's message bar). One per process, like the key itself.
class GlobalKeyStatus : public QObject
{
    Q_OBJECT
public:
    static GlobalKeyStatus &instance();

    void report(X11HotKey::Result result, const QKeySequence &combination);
    bool hasReport() const { return m_hasReport; }
    X11HotKey::Result lastResult() const { return m_result; }
    QKeySequence lastCombination() const { return m_combination; }

    // A sentence for the user about the result; "" for one that needs no words.
    static QString describe(X11HotKey::Result result, const QKeySequence &combination);
    // Where no key can be grabbed at all (Wayland without X11, no display): why, or "".
    static QString sessionProblem();

    // Without X11 the desktop portal binds the key: whether one answered, and the outcome
    // of the last binding.
    void reportPortalOffered(bool offered);
    void reportPortal(PortalGlobalShortcuts::Result result, const QKeySequence &combination,
                      const QString &detail);
    bool portalOffered() const { return m_portalOffered; }
    bool hasPortalReport() const { return m_hasPortalReport; }
    PortalGlobalShortcuts::Result lastPortalResult() const { return m_portalResult; }
    static QString describePortal(PortalGlobalShortcuts::Result result,
                                  const QKeySequence &combination, const QString &detail);
    // The last portal outcome in words, "" without one.
    QString lastPortalText() const;

Q_SIGNALS:
    void reported(X11HotKey::Result result, const QKeySequence &combination);
    void portalReported(PortalGlobalShortcuts::Result result, const QKeySequence &combination,
                        const QString &detail);

private:
    bool m_portalOffered = false;
    bool m_hasPortalReport = false;
    PortalGlobalShortcuts::Result m_portalResult = PortalGlobalShortcuts::Result::Failed;
    QKeySequence m_portalCombination;
    QString m_portalDetail;
    bool m_hasReport = false;
    X11HotKey::Result m_result = X11HotKey::Result::NoX11;
    QKeySequence m_combination;
};
