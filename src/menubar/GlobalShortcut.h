#pragma once

#include <QKeySequence>
#include <QString>
#include <QVariantMap>

class UserDefaults;

// The user's global key combination as the settings keep it. Stand-ins for the desktop this
// was first written for: "PrefSCKeycode" holds the X11 key code (the hardware key, as the X
// server numbers it), "PrefSCModflags" Qt's modifier flags (Qt::KeyboardModifiers) and
// "PrefSCCarbonFlags" the X11 modifier mask the key is grabbed with (ShiftMask, ControlMask,
// Mod1Mask for Alt, Mod4Mask for Super).
struct GlobalShortcut
{
    QString characters;                  // the key as typed with the modifiers: "j", "J", "F5"
    QString charactersIgnoringModifiers; // the key alone: "j", "F5"
    int keyCode = 0;                     // X11 key code; 0 when unknown
    Qt::KeyboardModifiers modifiers;

    bool isSet() const { return !characters.isEmpty(); }
    // The combination as a key sequence, for showing it.
    QKeySequence sequence() const;

    // From a key press: qtKey is Qt::Key, keyCode the X11 key code.
    static GlobalShortcut fromKey(int qtKey, Qt::KeyboardModifiers modifiers, int keyCode);

    // The recorder's value record: "characters", "charactersIgnoringModifiers", "keyCode",
    // "modifierFlags"; an empty record for a cleared recorder.
    QVariantMap toValue() const;
    static GlobalShortcut fromValue(const QVariantMap &value);

    // Shift, Ctrl, Alt and Meta (Super) as an X11 modifier mask.
    static quint16 x11Modifiers(Qt::KeyboardModifiers modifiers);

    // Why a key cannot be a global key ("" when it can): a key without Ctrl, Alt or Super
    // would be taken from every program, so only the function keys may stand alone.
    static QString problemWith(int qtKey, Qt::KeyboardModifiers modifiers);
    // Keys that are only modifiers: a recorder keeps waiting for the real key.
    static bool isModifierKey(int qtKey);

    // The stored combination; unset when "PrefSCCharacters" is absent.
    static GlobalShortcut load(const UserDefaults &defaults);
};

namespace ShortcutSettings {
// Stores the recorder's value: with "characters", the five keys, then
// "GlobalShortcutChangedNotification"; without, the five keys are removed and nothing is
// announced (the old key then keeps working until the next launch).
void saveTheShortCut(UserDefaults &defaults, const QVariantMap &value);
} // namespace ShortcutSettings
