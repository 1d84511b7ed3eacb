#pragma once

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

Q_SIGNALS:
    void reported(X11HotKey::Result result, const QKeySequence &combination);

private:
    bool m_hasReport = false;
    X11HotKey::Result m_result = X11HotKey::Result::NoX11;
    QKeySequence m_combination;
};
