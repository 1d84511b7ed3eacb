#include "X11HotKey.h"

#include <QGuiApplication>

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

#include <cstdlib>

namespace {
constexpr quint16 LockMask = XCB_MOD_MASK_LOCK;
constexpr quint16 NumLockMask = XCB_MOD_MASK_2;
constexpr quint8 BadAccess = 10;

xcb_connection_t *connection()
{
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

// The X keysym of a Qt key, for the keys a global combination is made of.
xcb_keysym_t keysymForQtKey(int key)
{
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return xcb_keysym_t('a' + (key - Qt::Key_A));
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return xcb_keysym_t(0xffbe + (key - Qt::Key_F1));
    // Latin-1 keys share their codes with the keysyms.
    if (key >= 0x20 && key <= 0xff)
        return xcb_keysym_t(key);
    switch (key) {
    case Qt::Key_Backspace:
        return 0xff08;
    case Qt::Key_Tab:
        return 0xff09;
    case Qt::Key_Return:
        return 0xff0d;
    case Qt::Key_Enter:
        return 0xff8d;
    case Qt::Key_Pause:
        return 0xff13;
    case Qt::Key_Escape:
        return 0xff1b;
    case Qt::Key_Home:
        return 0xff50;
    case Qt::Key_Left:
        return 0xff51;
    case Qt::Key_Up:
        return 0xff52;
    case Qt::Key_Right:
        return 0xff53;
    case Qt::Key_Down:
        return 0xff54;
    case Qt::Key_PageUp:
        return 0xff55;
    case Qt::Key_PageDown:
        return 0xff56;
    case Qt::Key_End:
        return 0xff57;
    case Qt::Key_Print:
        return 0xff61;
    case Qt::Key_Insert:
        return 0xff63;
    case Qt::Key_Delete:
        return 0xffff;
    default:
        return 0;
    }
}
} // namespace

X11HotKey::X11HotKey(QObject *parent)
    : QObject(parent)
{}

X11HotKey::~X11HotKey()
{
    if (m_filtering && qGuiApp)
        qGuiApp->removeNativeEventFilter(this);
}

bool X11HotKey::isAvailable()
{
    return connection() != nullptr;
}

int X11HotKey::keyCodeForQtKey(int qtKey)
{
    xcb_connection_t *c = connection();
    const xcb_keysym_t keysym = keysymForQtKey(qtKey);
    if (!c || !keysym)
        return 0;
    xcb_key_symbols_t *symbols = xcb_key_symbols_alloc(c);
    if (!symbols)
        return 0;
    int code = 0;
    if (xcb_keycode_t *codes = xcb_key_symbols_get_keycode(symbols, keysym)) {
        code = codes[0] == XCB_NO_SYMBOL ? 0 : codes[0];
        std::free(codes);
    }
    xcb_key_symbols_free(symbols);
    return code;
}

X11HotKey::Result X11HotKey::registerKey(int keyCode, quint16 x11Modifiers)
{
    xcb_connection_t *c = connection();
    if (!c)
        return Result::NoX11;
    if (keyCode <= 0 || keyCode > 255)
        return Result::NoKeyCode;
    const QPair<int, quint16> key(keyCode, x11Modifiers);
    if (m_keys.contains(key))
        return Result::AlreadyRegistered;

    bool taken = false;
    const quint16 variants[] = {0, LockMask, NumLockMask, LockMask | NumLockMask};
    for (xcb_screen_iterator_t it = xcb_setup_roots_iterator(xcb_get_setup(c)); it.rem;
         xcb_screen_next(&it)) {
        for (quint16 lock : variants) {
            const xcb_void_cookie_t cookie = xcb_grab_key_checked(
                c, 1, it.data->root, x11Modifiers | lock, xcb_keycode_t(keyCode),
                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
            if (xcb_generic_error_t *error = xcb_request_check(c, cookie)) {
                taken = taken || error->error_code == BadAccess;
                std::free(error);
            }
        }
    }
    if (taken)
        return Result::Taken;
    m_keys << key;
    if (!m_filtering) {
        qGuiApp->installNativeEventFilter(this);
        m_filtering = true;
    }
    return Result::Registered;
}

bool X11HotKey::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    auto *event = static_cast<xcb_generic_event_t *>(message);
    const quint8 type = event->response_type & 0x7f;

    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return false;
    const auto *key = reinterpret_cast<xcb_key_press_event_t *>(event);
    if (type == XCB_KEY_PRESS) {
        // A press reaches the root window only through one of our grabs.
        bool ours = false;
        for (const auto &registered : std::as_const(m_keys))
            ours = ours || registered.first == key->detail;
        if (!ours || key->event != key->root)
            return false;
        m_pressedKeyCode = key->detail;
        return true;
    }
    // The release may already go to a window of ours that took the focus meanwhile; the key
    // code alone says it ends the grabbed press.
    if (m_pressedKeyCode == 0 || key->detail != m_pressedKeyCode)
        return false;
    m_pressedKeyCode = 0;
    Q_EMIT released();
    return true;
}
