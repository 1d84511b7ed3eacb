#include "GlobalShortcutPane.h"

#include "ShortcutRecorder.h"
#include "core/UserDefaults.h"
#include "menubar/GlobalKeyStatus.h"
#include "menubar/GlobalShortcut.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

GlobalShortcutPane::GlobalShortcutPane(UserDefaults &defaults, QWidget *parent)
    : QWidget(parent)
    , m_defaults(defaults)
    , m_recorder(new ShortcutRecorder(this))
    , m_status(new QLabel(this))
{
    setObjectName(QStringLiteral("globalShortcutPane"));
    //% "Capture Panel"
    setAccessibleName(qtTrId("PREFERENCES_CAPTURE_PANE"));
    m_status->setObjectName(QStringLiteral("globalShortcutStatus"));
    m_status->setWordWrap(true);
    //% "Global key status"
    m_status->setAccessibleName(qtTrId("GLOBAL_KEY_STATUS"));
    //% "Whether the global key combination works"
    m_status->setToolTip(qtTrId("GLOBAL_KEY_STATUS_TIP"));
    //% "The tray icon opens the capture panel; so does a key combination that works in every
    // program."
    auto *intro = new QLabel(qtTrId("PREFERENCES_CAPTURE_INTRO"), this);
    intro->setWordWrap(true);
    auto *form = new QFormLayout;
    //% "Open and close the panel:"
    form->addRow(qtTrId("PREFERENCES_CAPTURE_KEY_LABEL"), m_recorder);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(form);
    layout->addWidget(m_status);
    layout->addStretch(1);

    m_recorder->setShortcut(GlobalShortcut::load(defaults));
    connect(m_recorder, &ShortcutRecorder::shortcutChanged, this,
            &GlobalShortcutPane::saveTheShortCut);
    connect(m_recorder, &ShortcutRecorder::refused, this,
            [this](const QString &reason) { showStatus(reason, true); });
    connect(&GlobalKeyStatus::instance(), &GlobalKeyStatus::reported, this,
            &GlobalShortcutPane::showLastReport);
    connect(&GlobalKeyStatus::instance(), &GlobalKeyStatus::portalReported, this,
            &GlobalShortcutPane::showLastReport);
    showLastReport();
}

void GlobalShortcutPane::saveTheShortCut()
{
    const bool wasSet = GlobalShortcut::load(m_defaults).isSet();
    ShortcutSettings::saveTheShortCut(m_defaults, m_recorder->value());
    if (!m_recorder->shortcut().isSet() && wasSet) {
        // A key once grabbed stays until the application ends.
        //% "The combination is removed. The one you had keeps working until Vellox is restarted."
        showStatus(qtTrId("GLOBAL_KEY_CLEARED"), false);
    }
}

void GlobalShortcutPane::showLastReport()
{
    const QString session = GlobalKeyStatus::sessionProblem();
    if (!session.isEmpty()) {
        showStatus(session, true);
        return;
    }
    const GlobalKeyStatus &status = GlobalKeyStatus::instance();
    if (!X11HotKey::isAvailable()) {
        // The desktop portal's answer, with the keys it bound.
        const bool shown = status.hasPortalReport() && m_recorder->shortcut().isSet();
        showStatus(shown ? status.lastPortalText() : QString(),
                   status.lastPortalResult() != PortalGlobalShortcuts::Result::Bound);
        return;
    }
    if (!status.hasReport() || !m_recorder->shortcut().isSet()) {
        showStatus(QString(), false);
        return;
    }
    const X11HotKey::Result result = status.lastResult();
    showStatus(GlobalKeyStatus::describe(result, status.lastCombination()),
               result == X11HotKey::Result::Taken || result == X11HotKey::Result::NoKeyCode);
}

void GlobalShortcutPane::showStatus(const QString &text, bool problem)
{
    m_status->setText(text);
    m_status->setForegroundRole(problem ? QPalette::Highlight : QPalette::WindowText);
    m_status->setVisible(!text.isEmpty());
}
