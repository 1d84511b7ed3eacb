#include "AppearanceWiring.h"

#include "AppController.h"
#include "FullScreenController.h"
#include "MainWindow.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"

#include "editor/widgets/Vellox_EnhancedTextView.h"
#include <QAction>
#include <QSignalBlocker>

#include <QAction>
#include <QSignalBlocker>

#include <QGuiApplication>
#include <QStyleHints>

namespace {
// A first launch on a dark desktop starts in the dark style; afterwards the setting rules.
void followDesktopScheme(AppController &app)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    UserDefaults &defaults = app.defaults();
    if (defaults.hasStoredValue(Settings::UseBlackDocument))
        return;
    if (QGuiApplication::styleHints()->colorScheme() == Qt::ColorScheme::Dark) {
        defaults.setValue(Settings::UseBlackDocument, true);
        app.window()->applyDarkAppearance(true);
        NotificationCenter::defaultCenter().post(Notifications::TextViewAttributesChanged, &app);
    }
#else
    Q_UNUSED(app);
#endif
}
} // namespace

void wireAppearance(AppController &app)
{
    followDesktopScheme(app);
    MainWindow *window = app.window();
    QObject::connect(
        &app.defaults(), &UserDefaults::valueChanged, window, [&app, window](const QString &key) {
            if (key == Settings::UseBlackDocument.name())
                window->applyDarkAppearance(app.defaults().value(Settings::UseBlackDocument));
        });

    Vellox_EnhancedTextView *editor = app.editor();
    QObject::connect(window->action(QStringLiteral("actionCompleteWord")), &QAction::triggered,
                     editor, &Vellox_EnhancedTextView::complete);

    // The Edit menu's switch and the preference are one setting.
    QAction *spelling = window->action(QStringLiteral("actionCheckSpelling"));
    const auto showSpelling = [&app, spelling] {
        const QSignalBlocker block(spelling);
        spelling->setChecked(app.defaults().value(Settings::TextViewCheckSpelling) != 0);
    };
    showSpelling();
    QObject::connect(spelling, &QAction::toggled, &app, [&app](bool on) {
        app.defaults().setValue(Settings::TextViewCheckSpelling, on ? 1 : 0);
        NotificationCenter::defaultCenter().post(Notifications::TextViewAttributesChanged, &app);
    });
    NotificationCenter::defaultCenter().addObserver(
        spelling, Notifications::TextViewAttributesChanged,
        [showSpelling](const Notification &) { showSpelling(); });

    auto *fullScreen = new FullScreenController(window, editor, app.defaults(), &app);
    fullScreen->setObjectName(QStringLiteral("fullScreenController"));
    QObject::connect(window->action(QStringLiteral("actionToggleFullScreen")), &QAction::triggered,
                     fullScreen, &FullScreenController::toggleFullscreen);
    QObject::connect(window->action(QStringLiteral("actionDistractionFree")), &QAction::triggered,
                     fullScreen, &FullScreenController::distractionFreeModus);
}
