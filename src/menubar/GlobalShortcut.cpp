#include "GlobalShortcut.h"

#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"

namespace {
const QString CharactersKey = QStringLiteral("characters");
const QString IgnoringKey = QStringLiteral("charactersIgnoringModifiers");
const QString KeyCodeKey = QStringLiteral("keyCode");
const QString ModifierFlagsKey = QStringLiteral("modifierFlags");

// X11's modifier bits (X.h).
constexpr quint16 ShiftMask = 1 << 0;
constexpr quint16 ControlMask = 1 << 2;
constexpr quint16 Mod1Mask = 1 << 3;
constexpr quint16 Mod4Mask = 1 << 6;

bool isFunctionKey(int qtKey)
{
    return qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F35;
}
} // namespace

QKeySequence GlobalShortcut::sequence() const
{
    if (!isSet())
        return {};
    const QKeySequence key(charactersIgnoringModifiers, QKeySequence::PortableText);
    if (key.isEmpty())
        return {};
    return QKeySequence(QKeyCombination(modifiers, key[0].key()));
}

GlobalShortcut GlobalShortcut::fromKey(int qtKey, Qt::KeyboardModifiers modifiers, int keyCode)
{
    GlobalShortcut shortcut;
    const QString name = QKeySequence(qtKey).toString(QKeySequence::PortableText);
    const bool letter = name.size() == 1 && name.at(0).isLetter();
    shortcut.charactersIgnoringModifiers = letter ? name.toLower() : name;
    shortcut.characters = letter && !(modifiers & Qt::ShiftModifier) ? name.toLower() : name;
    shortcut.keyCode = keyCode;
    shortcut.modifiers =
        modifiers & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return shortcut;
}

QVariantMap GlobalShortcut::toValue() const
{
    if (!isSet())
        return {};
    return {{CharactersKey, characters},
            {IgnoringKey, charactersIgnoringModifiers},
            {KeyCodeKey, keyCode},
            {ModifierFlagsKey, int(modifiers.toInt())}};
}

GlobalShortcut GlobalShortcut::fromValue(const QVariantMap &value)
{
    GlobalShortcut shortcut;
    shortcut.characters = value.value(CharactersKey).toString();
    shortcut.charactersIgnoringModifiers = value.value(IgnoringKey).toString();
    shortcut.keyCode = value.value(KeyCodeKey).toInt();
    shortcut.modifiers = Qt::KeyboardModifiers::fromInt(value.value(ModifierFlagsKey).toInt());
    return shortcut;
}

quint16 GlobalShortcut::x11Modifiers(Qt::KeyboardModifiers modifiers)
{
    quint16 mask = 0;
    if (modifiers & Qt::ShiftModifier)
        mask |= ShiftMask;
    if (modifiers & Qt::ControlModifier)
        mask |= ControlMask;
    if (modifiers & Qt::AltModifier)
        mask |= Mod1Mask;
    if (modifiers & Qt::MetaModifier)
        mask |= Mod4Mask;
    return mask;
}

bool GlobalShortcut::isModifierKey(int qtKey)
{
    switch (qtKey) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return true;
    default:
        return false;
    }
}

QString GlobalShortcut::problemWith(int qtKey, Qt::KeyboardModifiers modifiers)
{
    if (qtKey == 0 || qtKey == Qt::Key_unknown || isModifierKey(qtKey)) {
        //% "This key cannot be used for a global key combination."
        return qtTrId("GLOBAL_KEY_UNUSABLE_KEY");
    }
    const bool anchored = modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!anchored && !isFunctionKey(qtKey)) {
        //% "A key alone would be taken from every program: hold Ctrl, Alt or Super with it."
        return qtTrId("GLOBAL_KEY_NEEDS_MODIFIER");
    }
    return QString();
}

GlobalShortcut GlobalShortcut::load(const UserDefaults &defaults)
{
    GlobalShortcut shortcut;
    if (!defaults.hasStoredValue(Settings::PrefSCCharacters))
        return shortcut;
    shortcut.characters = defaults.value(Settings::PrefSCCharacters);
    shortcut.charactersIgnoringModifiers = defaults.value(Settings::PrefSCIgnoringModifiers);
    shortcut.keyCode = defaults.value(Settings::PrefSCKeycode);
    shortcut.modifiers = Qt::KeyboardModifiers::fromInt(defaults.value(Settings::PrefSCModflags));
    return shortcut;
}

namespace ShortcutSettings {

void saveTheShortCut(UserDefaults &defaults, const QVariantMap &value)
{
    if (!value.contains(CharactersKey)) {
        defaults.remove(Settings::PrefSCCharacters);
        defaults.remove(Settings::PrefSCIgnoringModifiers);
        defaults.remove(Settings::PrefSCKeycode);
        defaults.remove(Settings::PrefSCModflags);
        defaults.remove(Settings::PrefSCCarbonFlags);
        return;
    }
    const GlobalShortcut shortcut = GlobalShortcut::fromValue(value);
    defaults.setValue(Settings::PrefSCCharacters, shortcut.characters);
    defaults.setValue(Settings::PrefSCIgnoringModifiers, shortcut.charactersIgnoringModifiers);
    defaults.setValue(Settings::PrefSCKeycode, shortcut.keyCode);
    defaults.setValue(Settings::PrefSCModflags, int(shortcut.modifiers.toInt()));
    defaults.setValue(Settings::PrefSCCarbonFlags,
                      int(GlobalShortcut::x11Modifiers(shortcut.modifiers)));
    NotificationCenter::defaultCenter().post(Notifications::GlobalShortcutChanged);
}

} // namespace ShortcutSettings
