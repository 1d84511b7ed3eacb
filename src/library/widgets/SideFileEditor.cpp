#include "SideFileEditor.h"

#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "editor/widgets/EnhancedTextView.h"
#include "library/EntryLoader.h"
#include "library/EntrySaver.h"

#include <QCloseEvent>
#include <QEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QVBoxLayout>

SideFileEditor::SideFileEditor(UserDefaults &defaults, QWidget *mainWindow)
    : QWidget(mainWindow, Qt::Window)
    , m_view(new EnhancedTextView(defaults, this))
    , m_problem(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("sideFileEditor"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_problem->setObjectName(QStringLiteral("sideFileEditorProblem"));
    m_problem->setWordWrap(true);
    m_problem->setMargin(6);
    //% "Why this file is not being saved"
    m_problem->setAccessibleName(qtTrId("SIDE_EDITOR_PROBLEM_NAME"));
    m_problem->setToolTip(m_problem->accessibleName());
    m_problem->hide();
    layout->addWidget(m_problem);
    //% "Entry text"
    m_view->setAccessibleName(qtTrId("SIDE_EDITOR_TEXT_NAME"));
    //% "The entry's text; it is saved when you switch away or close the window"
    m_view->setToolTip(qtTrId("SIDE_EDITOR_TEXT_TIP"));
    layout->addWidget(m_view);
    resize(480, 560);

    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(1000);
    connect(&m_saveTimer, &QTimer::timeout, this, &SideFileEditor::saveChanges);
    // Each change is announced as the side editors' own; this window saves a second after
    // the last change it made.
    connect(m_view, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_settingText && !m_readOnly)
            NotificationCenter::defaultCenter().post(
                Notifications::MiniEditorTextChangedShouldBeSaved, this);
    });
    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::MiniEditorTextChangedShouldBeSaved, [this](const Notification &n) {
            if (n.sender() == this)
                m_saveTimer.start();
        });
    if (mainWindow) {
        // Each new one a little further down, so several stay visible.
        static int placed = 0;
        const int step = 30 * (placed++ % 8);
        move(mainWindow->geometry().topLeft() + QPoint(60 + step, 60 + step));
    }
}

void SideFileEditor::loadFrameWithContentsOfPath(const QString &path, const QString &shownName)
{
    m_path = path;
    setWindowTitle(QStringLiteral("MINI-EDITOR: %1").arg(shownName));
    setAccessibleName(windowTitle());
    const EntryLoader::Result loaded = EntryLoader::load(path);
    m_readOnly = !loaded.readable;
    m_view->setEditable(loaded.readable);
    if (loaded.readable) {
        m_format = loaded.format;
        m_stamp = loaded.stamp;
        setProblem(QString());
        showText(loaded.text);
    } else {
        //% "“%1” could not be read (%2). It is shown read-only so nothing is written over it."
        setProblem(qtTrId("SIDE_EDITOR_UNREADABLE").arg(shownName, loaded.error));
        showText(QString());
    }
    show();
    raise();
    activateWindow();
}

void SideFileEditor::showText(const QString &text)
{
    const QScopedValueRollback guard(m_settingText, true);
    const auto range = m_view->selectedRange();
    m_view->setString(text);
    m_view->setSelectedRange(qMin(range.first, int(text.size())), 0);
    m_savedText = text;
}

void SideFileEditor::setProblem(const QString &text)
{
    m_problem->setText(text);
    m_problem->setVisible(!text.isEmpty());
}

QString SideFileEditor::problem() const
{
    return m_problem->text();
}

bool SideFileEditor::isDirty() const
{
    return !m_readOnly && m_view->string() != m_savedText;
}

bool SideFileEditor::saveChanges()
{
    m_saveTimer.stop();
    if (m_path.isEmpty() || m_readOnly)
        return false;
    if (!isDirty())
        return true;
    const QString text = m_view->string();
    const EntrySaver::Result result = EntrySaver::save(m_path, text, m_format, m_stamp);
    if (result.status == EntrySaver::Result::Saved) {
        m_stamp = result.stamp;
        m_format = result.format;
        m_savedText = text;
        setProblem(QString());
        Q_EMIT saved(m_path);
        return true;
    }
    if (result.status == EntrySaver::Result::ChangedOnDisk)
        //% "The file was changed elsewhere meanwhile, so it was not written over. Copy your
        // words, close this window and open the entry again."
        setProblem(qtTrId("SIDE_EDITOR_CHANGED_ON_DISK"));
    else
        //% "Could not save (%1). Your words stay here."
        setProblem(qtTrId("SIDE_EDITOR_SAVE_FAILED").arg(result.error));
    return false;
}

void SideFileEditor::reread()
{
    if (m_path.isEmpty() || isDirty())
        return;
    const EntryLoader::Result loaded =
        m_readOnly ? EntryLoader::load(m_path) : EntryLoader::reload(m_path, m_format);
    if (!loaded.readable)
        return;
    if (m_readOnly) {
        m_readOnly = false;
        m_view->setEditable(true);
        setProblem(QString());
    }
    m_format = loaded.format;
    m_stamp = loaded.stamp;
    if (loaded.text != m_savedText)
        showText(loaded.text);
}

void SideFileEditor::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange) {
        if (isActiveWindow())
            reread();
        else
            saveChanges();
    }
    QWidget::changeEvent(event);
}

void SideFileEditor::closeEvent(QCloseEvent *event)
{
    // Words that could not be saved keep the window open once, with the reason shown; closing
    // again after reading it lets them go.
    const bool told = !problem().isEmpty();
    if (!saveChanges() && isDirty() && !told) {
        event->ignore();
        return;
    }
    QWidget::closeEvent(event);
}
