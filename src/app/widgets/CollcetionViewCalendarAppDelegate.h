#pragma once

#include <QObject>
#include <QPointer>

class AppController;
class PreferencesController;
class UserDefaults;

// The application delegate: registers the defaults and seeds the style folder before any
// window exists, and owns the auxiliary windows.
class CollcetionViewCalendarAppDelegate : public QObject
{
    Q_OBJECT
public:
    explicit CollcetionViewCalendarAppDelegate(UserDefaults &defaults, QObject *parent = nullptr);
    ~CollcetionViewCalendarAppDelegate() override;

    // Runs once before any instance exists.
    static void initialize(UserDefaults &defaults);

    void awakeFromNib();
    void setAppController(AppController *controller);
    void applicationDidFinishLaunching();
    void applicationDidBecomeActive();
    void showPreferences();
    PreferencesController *preferences();

private:
    UserDefaults &m_defaults;
    QPointer<AppController> m_controller;
    PreferencesController *m_preferences = nullptr;
    bool m_statusBarPaneSelectionPref = false;
};
