<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="MENU_CAPTURE_PANEL">
        <source>Capture Panel</source>
        <translation>Capture Panel</translation>
    </message>
    <message id="MENU_CAPTURE_PANEL_TIP">
        <source>Open or close the panel for quick notes and entry search</source>
        <translation>Open or close the panel for quick notes and entry search</translation>
    </message>
    <message id="CAPTURE_PANEL_PANES">
        <source>Panes</source>
        <translation>Panes</translation>
    </message>
    <message id="CAPTURE_PANEL_PANES_TIP">
        <source>Switch between the panel's panes</source>
        <translation>Switch between the panel's panes</translation>
    </message>
    <message id="CAPTURE_PANEL_TIP">
        <source>Take a quick note or look up an entry without the main window</source>
        <translation>Take a quick note or look up an entry without the main window</translation>
    </message>
    <message id="CAPTURE_PANEL_TITLE">
        <source>Capture Panel</source>
        <translation>Capture Panel</translation>
    </message>
    <message id="GLOBAL_KEY_ACTIVE">
        <source>%1 opens and closes the capture panel from any program.</source>
        <translation>%1 opens and closes the capture panel from any program.</translation>
    </message>
    <message id="GLOBAL_KEY_CLEARED">
        <source>The combination is removed. The one you had keeps working until Vellox is restarted.</source>
        <translation>The combination is removed. The one you had keeps working until Vellox is restarted.</translation>
    </message>
    <message id="GLOBAL_KEY_NEEDS_MODIFIER">
        <source>A key alone would be taken from every program: hold Ctrl, Alt or Super with it.</source>
        <translation>A key alone would be taken from every program: hold Ctrl, Alt or Super with it.</translation>
    </message>
    <message id="GLOBAL_KEY_NO_KEYCODE">
        <source>This keyboard has no key for %1.</source>
        <translation>This keyboard has no key for %1.</translation>
    </message>
    <message id="GLOBAL_KEY_STATUS">
        <source>Global key status</source>
        <translation>Global key status</translation>
    </message>
    <message id="GLOBAL_KEY_STATUS_TIP">
        <source>Whether the global key combination works</source>
        <translation>Whether the global key combination works</translation>
    </message>
    <message id="GLOBAL_KEY_TAKEN">
        <source>Another program already uses %1, so it cannot open the capture panel. Choose another combination.</source>
        <translation>Another program already uses %1, so it cannot open the capture panel. Choose another combination.</translation>
    </message>
    <message id="GLOBAL_KEY_UNUSABLE_KEY">
        <source>This key cannot be used for a global key combination.</source>
        <translation>This key cannot be used for a global key combination.</translation>
    </message>
    <message id="MENUBAR_ITEM_MAINWINDOW">
        <source>Show Main Window</source>
        <translation>Show Main Window</translation>
    </message>
    <message id="MENUBAR_ITEM_Preferences">
        <source>Preferences…</source>
        <translation>Preferences…</translation>
    </message>
    <message id="MENUBAR_ITEM_QUITAPP">
        <source>Quit Vellox</source>
        <translation>Quit Vellox</translation>
    </message>
    <message id="PREFERENCES_CAPTURE_INTRO">
        <source>The tray icon opens the capture panel; so does a key combination that works in every program.</source>
        <translation>The tray icon opens the capture panel; so does a key combination that works in every program.</translation>
    </message>
    <message id="PREFERENCES_CAPTURE_KEY_LABEL">
        <source>Open and close the panel:</source>
        <translation>Open and close the panel:</translation>
    </message>
    <message id="PREFERENCES_CAPTURE_PANE">
        <source>Capture Panel</source>
        <translation>Capture Panel</translation>
    </message>
    <message id="SHORTCUT_RECORDER">
        <source>Global key combination</source>
        <translation>Global key combination</translation>
    </message>
    <message id="SHORTCUT_RECORDER_CLEAR">
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
    <message id="SHORTCUT_RECORDER_CLEAR_TIP">
        <source>Remove the global key combination</source>
        <translation>Remove the global key combination</translation>
    </message>
    <message id="SHORTCUT_RECORDER_PLACEHOLDER">
        <source>Click and press a key combination</source>
        <translation>Click and press a key combination</translation>
    </message>
    <message id="SHORTCUT_RECORDER_TIP">
        <source>Press the combination that should open and close the capture panel from any program</source>
        <translation>Press the combination that should open and close the capture panel from any program</translation>
    </message>
    <message id="STATUSBAR_ITEM_TIP">
        <source>Vellox: click for the capture panel</source>
        <translation>Vellox: click for the capture panel</translation>
    </message>
    <message id="STATUSBAR_SEARCH_CONTENT">
        <source>Entry text</source>
        <translation>Entry text</translation>
    </message>
    <message id="STATUSBAR_SEARCH_CONTENT_TIP">
        <source>The selected entry's text, read-only</source>
        <translation>The selected entry's text, read-only</translation>
    </message>
    <message id="STATUSBAR_SEARCH_ENTRIES">
        <source>Entries</source>
        <translation>Entries</translation>
    </message>
    <message id="STATUSBAR_SEARCH_ENTRIES_TIP">
        <source>Select an entry to read it</source>
        <translation>Select an entry to read it</translation>
    </message>
    <message id="STATUSBAR_SEARCH_FIELD">
        <source>Search entry names</source>
        <translation>Search entry names</translation>
    </message>
    <message id="STATUSBAR_SEARCH_FIELD_TIP">
        <source>Shows the entries whose names contain this text</source>
        <translation>Shows the entries whose names contain this text</translation>
    </message>
    <message id="STATUSBAR_SEARCH_NOTEBOOK">
        <source>Notebook to search</source>
        <translation>Notebook to search</translation>
    </message>
    <message id="STATUSBAR_SEARCH_NOTEBOOK_TIP">
        <source>The notebook whose entries are listed</source>
        <translation>The notebook whose entries are listed</translation>
    </message>
    <message id="STATUSBAR_SEARCH_PANE">
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message id="GLOBAL_KEY_NEEDS_X11_OR_PORTAL">
        <source>The global key needs an X11 session or a desktop that offers the global-shortcuts portal (KDE Plasma 6, GNOME 48 and later). The tray icon and View → Capture Panel open the panel meanwhile.</source>
        <translation>The global key needs an X11 session or a desktop that offers the global-shortcuts portal (KDE Plasma 6, GNOME 48 and later). The tray icon and View → Capture Panel open the panel meanwhile.</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_BOUND">
        <source>The desktop bound %1 to open and close the capture panel from any program.</source>
        <translation>The desktop bound %1 to open and close the capture panel from any program.</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_BOUND_NO_KEYS">
        <source>The desktop keeps the capture panel's shortcut but names no keys for it: set them in the desktop's keyboard settings.</source>
        <translation>The desktop keeps the capture panel's shortcut but names no keys for it: set them in the desktop's keyboard settings.</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_CANCELLED">
        <source>The desktop's shortcut dialog was cancelled.</source>
        <translation>The desktop's shortcut dialog was cancelled.</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_DESCRIPTION">
        <source>Open and close Vellox's capture panel</source>
        <translation>Open and close Vellox's capture panel</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_ENDED">
        <source>The desktop's shortcut service ended the request.</source>
        <translation>The desktop's shortcut service ended the request.</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_NOT_ACTIVE">
        <source>%1 does not open the capture panel: %2 Choose the combination again to ask the desktop once more.</source>
        <translation>%1 does not open the capture panel: %2 Choose the combination again to ask the desktop once more.</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_NOT_BOUND">
        <source>The desktop did not bind a key to the capture panel.</source>
        <translation>The desktop did not bind a key to the capture panel.</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_NO_BUS">
        <source>There is no session bus to reach the desktop's shortcut service.</source>
        <translation>There is no session bus to reach the desktop's shortcut service.</translation>
    </message>
    <message id="GLOBAL_KEY_PORTAL_NO_SESSION">
        <source>The desktop's shortcut service opened no session.</source>
        <translation>The desktop's shortcut service opened no session.</translation>
    </message>
</context>
</TS>
