#include "EnhancedTextView.h"

#include "ViewTextBuffer.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/LineCommands.h"
#include "editor/ListNumbering.h"
#include "editor/MarkupInsertion.h"
#include "editor/TextEditorModel.h"
#include "render/MarkupLanguage.h"
#include "widgets/MenuBuilder.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QTextBlock>
#include <QTimer>

namespace {
const QString kTyping = QStringLiteral("UNDO_TYPING");

TextRange toRange(QPair<int, int> range)
{
    return {range.first, range.second};
}

// Printable text a key press would type (control characters and shortcuts excluded).
bool isTypedText(const QKeyEvent *e)
{
    const QString text = e->text();
    if (text.isEmpty())
        return false;
    const Qt::KeyboardModifiers mods = e->modifiers();
    const bool altGr = (mods & Qt::ControlModifier) && (mods & Qt::AltModifier);
    if ((mods & (Qt::ControlModifier | Qt::MetaModifier)) && !altGr)
        return false;
    for (QChar c : text)
        if (c.unicode() < 0x20 || c.unicode() == 0x7f)
            return false;
    return true;
}
} // namespace

EnhancedTextView::EnhancedTextView(UserDefaults &defaults, QWidget *parent)
    : QPlainTextEdit(parent)
    , m_defaults(defaults)
    , m_model(new TextEditorModel(std::make_unique<ViewTextBuffer>(this), this))
    , m_changeTimer(new QTimer(this))
    , m_countTimer(new QTimer(this))
{
    setAccessibleName(qtTrId("EDITOR_ACCESSIBLE_NAME"));
    setToolTip(qtTrId("EDITOR_TOOLTIP"));
    document()->setUndoRedoEnabled(false);
    setUndoRedoEnabled(false);

    m_changeTimer->setSingleShot(true);
    m_changeTimer->setInterval(100);
    m_countTimer->setSingleShot(true);
    m_countTimer->setInterval(100);
    connect(m_changeTimer, &QTimer::timeout, this,
            &EnhancedTextView::sendNotifactionUpdatesTextHasChanged);
    connect(m_countTimer, &QTimer::timeout, this,
            &EnhancedTextView::sendNotifactionUpdatesTextCountUpdate);

    connect(m_model, &TextEditorModel::changeNoticeRequested, m_changeTimer,
            qOverload<>(&QTimer::start));
    connect(m_model, &TextEditorModel::countUpdateRequested, m_countTimer,
            qOverload<>(&QTimer::start));
    connect(m_model, &TextEditorModel::beepRequested, this, [] { QApplication::beep(); });
    connect(m_model, &TextEditorModel::scrollRequested, this,
            &EnhancedTextView::ensureCursorVisible);
    connect(m_model, &TextEditorModel::undoStateChanged, this, &EnhancedTextView::undoStateChanged);
    connect(document(), &QTextDocument::contentsChange, this, &EnhancedTextView::documentChanged);
    m_model->setTabActionProvider([this] { return availableTabActions(); });
    connect(&m_defaults, &UserDefaults::valueChanged, this, &EnhancedTextView::settingChanged);

    setTextViewLayout();
    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::TextViewAttributesChanged,
        [this](const Notification &) { setTextViewLayout(); });
}

EnhancedTextView::~EnhancedTextView() = default;

void EnhancedTextView::setString(const QString &text)
{
    m_model->setString(text);
    // The notice of an edit made before the load belongs to the previous text.
    m_changeTimer->stop();
    m_countTimer->stop();
}

QString EnhancedTextView::string() const
{
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

void EnhancedTextView::setEditable(bool editable)
{
    const bool changed = editable != m_model->isEditable();
    setReadOnly(!editable);
    m_model->setEditable(editable);
    if (changed) {
        Q_EMIT editableChanged(editable);
        Q_EMIT undoStateChanged();
    }
}

QPair<int, int> EnhancedTextView::selectedRange() const
{
    const TextRange r = m_model->selectedRange();
    return {r.location, r.length};
}

void EnhancedTextView::setSelectedRange(int location, int length)
{
    m_model->breakTyping();
    m_model->setSelectedRange({location, length});
}

bool EnhancedTextView::shouldChangeTextInRange(int location, int length, const QString &replacement)
{
    // Whatever the engine does here is one undo step, as for a typed key.
    TextEditorModel::Step step(*m_model);
    return m_model->engine().shouldChangeTextInRange(*m_model, {location, length}, replacement);
}

bool EnhancedTextView::insertUserText(const QString &text)
{
    const bool accepted = m_model->insertText(text);
    ensureCursorVisible();
    return accepted;
}

void EnhancedTextView::undoCustomInsertionInRange(QPair<int, int> range, const QString &string)
{
    m_model->undoCustomInsertionInRange(toRange(range), string);
}

void EnhancedTextView::undoCustomInsertionInRange(QPair<int, int> range, const QString &string,
                                                  QPair<int, int> selectRange)
{
    m_model->undoCustomInsertionInRange(toRange(range), string, toRange(selectRange));
}

void EnhancedTextView::setTextViewLayout()
{
    m_model->engine().setOptions({m_defaults.value(Settings::TypographyAutoPairBraces) != 0,
                                  m_defaults.value(Settings::TypographyUseQuoteStyle)});
}

// Pairing follows the preference from the next key on; the quote marks wait for the layout.
void EnhancedTextView::settingChanged(const QString &key)
{
    if (key != Settings::TypographyAutoPairBraces.name())
        return;
    TypingEngine::Options options = m_model->engine().options();
    options.autoPairBraces = m_defaults.value(Settings::TypographyAutoPairBraces) != 0;
    m_model->engine().setOptions(options);
}

QVariantMap EnhancedTextView::availableTabActions() const
{
    return QVariantMap();
}

QString EnhancedTextView::markupTemplateForType(const QString &type) const
{
    return MarkupInsertion::markupTemplateForType(type, MarkupLanguage::current(m_defaults));
}

// --- undo ---------------------------------------------------------------------------------

QString EnhancedTextView::undoActionName() const
{
    const QString key = m_model->undoActionKey();
    return key.isEmpty() ? QString() : qtTrId(key.toLatin1().constData());
}

QString EnhancedTextView::redoActionName() const
{
    const QString key = m_model->redoActionKey();
    return key.isEmpty() ? QString() : qtTrId(key.toLatin1().constData());
}

QAction *EnhancedTextView::createUndoAction(QObject *parent)
{
    auto *action = new QAction(parent);
    action->setShortcuts(QKeySequence::Undo);
    action->setToolTip(qtTrId("EDITOR_UNDO_TOOLTIP"));
    auto update = [this, action] {
        const QString name = undoActionName();
        action->setText(name.isEmpty() ? qtTrId("EDITOR_UNDO")
                                       : qtTrId("EDITOR_UNDO_NAMED").arg(name));
        action->setEnabled(canUndo() && isEditable());
    };
    connect(this, &EnhancedTextView::undoStateChanged, action, update);
    connect(action, &QAction::triggered, this, &EnhancedTextView::undo);
    update();
    return action;
}

QAction *EnhancedTextView::createRedoAction(QObject *parent)
{
    auto *action = new QAction(parent);
    action->setShortcuts(QKeySequence::Redo);
    action->setToolTip(qtTrId("EDITOR_REDO_TOOLTIP"));
    auto update = [this, action] {
        const QString name = redoActionName();
        action->setText(name.isEmpty() ? qtTrId("EDITOR_REDO")
                                       : qtTrId("EDITOR_REDO_NAMED").arg(name));
        action->setEnabled(canRedo() && isEditable());
    };
    connect(this, &EnhancedTextView::undoStateChanged, action, update);
    connect(action, &QAction::triggered, this, &EnhancedTextView::redo);
    update();
    return action;
}

void EnhancedTextView::undo()
{
    m_model->undo();
}

void EnhancedTextView::redo()
{
    m_model->redo();
}

void EnhancedTextView::cut()
{
    const TextRange s = m_model->selectedRange();
    if (s.length == 0 || !isEditable())
        return;
    copy();
    userEdit(s, QString(), QStringLiteral("UNDO_CUT"));
}

// --- events -------------------------------------------------------------------------------

bool EnhancedTextView::event(QEvent *e)
{
    // Keep undo and redo for this view even when a window action has the same shortcut.
    if (e->type() == QEvent::ShortcutOverride) {
        auto *key = static_cast<QKeyEvent *>(e);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            e->accept();
            return true;
        }
    }
    return QPlainTextEdit::event(e);
}

void EnhancedTextView::userEdit(TextRange range, const QString &text, const QString &actionKey)
{
    m_model->userEdit(range, text, actionKey);
    ensureCursorVisible();
}

bool EnhancedTextView::handleDeletionKey(QKeyEvent *e)
{
    const TextRange s = m_model->selectedRange();
    QTextCursor cursor = textCursor();
    const bool backward = e->matches(QKeySequence::DeleteStartOfWord) ||
                          (e->key() == Qt::Key_Backspace && !(e->modifiers() & ~Qt::ShiftModifier));
    const bool forward = e->matches(QKeySequence::DeleteEndOfWord) ||
                         e->matches(QKeySequence::DeleteEndOfLine) ||
                         e->matches(QKeySequence::Delete);
    if (!backward && !forward)
        return false;
    TextRange range = s;
    if (s.length == 0) {
        cursor.clearSelection();
        if (e->matches(QKeySequence::DeleteStartOfWord)) {
            cursor.movePosition(QTextCursor::PreviousWord, QTextCursor::KeepAnchor);
        } else if (e->key() == Qt::Key_Backspace) {
            // One code point back: a surrogate pair goes as a whole, a combining mark alone.
            const int pos = s.location;
            int from = pos - 1;
            if (from > 0 && m_model->buffer().at(from).isLowSurrogate() &&
                m_model->buffer().at(from - 1).isHighSurrogate())
                --from;
            cursor.setPosition(std::max(from, 0), QTextCursor::KeepAnchor);
        } else if (e->matches(QKeySequence::DeleteEndOfWord)) {
            cursor.movePosition(QTextCursor::NextWord, QTextCursor::KeepAnchor);
        } else if (e->matches(QKeySequence::DeleteEndOfLine)) {
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            if (cursor.position() == s.location)
                cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        } else {
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        }
        range = {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
    }
    if (range.length > 0)
        userEdit(range, QString(), kTyping);
    e->accept();
    return true;
}

void EnhancedTextView::keyPressEvent(QKeyEvent *e)
{
    if (isReadOnly() || !isEditable()) {
        QPlainTextEdit::keyPressEvent(e);
        return;
    }
    if (e->matches(QKeySequence::Undo)) {
        undo();
        e->accept();
        return;
    }
    if (e->matches(QKeySequence::Redo)) {
        redo();
        e->accept();
        return;
    }
    if (e->matches(QKeySequence::Cut)) {
        cut();
        e->accept();
        return;
    }
    if (handleDeletionKey(e))
        return;
    const Qt::KeyboardModifiers mods = e->modifiers();
    if ((e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) &&
        !(mods & (Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier))) {
        userEdit(m_model->selectedRange(), QStringLiteral("\n"), kTyping);
        e->accept();
        return;
    }
    if (e->key() == Qt::Key_Tab && !(mods & (Qt::ControlModifier | Qt::MetaModifier))) {
        userEdit(m_model->selectedRange(), QStringLiteral("\t"), kTyping);
        e->accept();
        return;
    }
    if (e->key() == Qt::Key_Backtab) {
        deIndentSelectedText();
        e->accept();
        return;
    }
    if (isTypedText(e)) {
        userEdit(m_model->selectedRange(), e->text(), kTyping);
        e->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(e);
}

void EnhancedTextView::inputMethodEvent(QInputMethodEvent *e)
{
    if (isReadOnly() || (e->commitString().isEmpty() && e->replacementLength() == 0)) {
        QPlainTextEdit::inputMethodEvent(e);
        return;
    }
    TextRange range = m_model->selectedRange();
    if (e->replacementLength() > 0 && range.length == 0)
        range = {range.location + e->replacementStart(), e->replacementLength()};
    userEdit(range, e->commitString(), kTyping);
    // The composition still in progress is shown by the base class, which no longer commits
    // anything itself.
    QInputMethodEvent rest(e->preeditString(), e->attributes());
    QPlainTextEdit::inputMethodEvent(&rest);
    e->accept();
}

void EnhancedTextView::insertFromMimeData(const QMimeData *source)
{
    if (!source || !source->hasText() || isReadOnly())
        return;
    const QString text = DocumentTextBuffer::normalisedLineBreaks(source->text());
    if (text.isEmpty())
        return;
    userEdit(m_model->selectedRange(), text, QStringLiteral("UNDO_PASTE"));
}

void EnhancedTextView::dropEvent(QDropEvent *e)
{
    const TextRange dragged = m_model->selectedRange();
    // Drags started here name the viewport as their source.
    const bool fromHere = e->source() == this || e->source() == viewport();
    if (!fromHere || e->dropAction() != Qt::MoveAction || isReadOnly() || dragged.length == 0 ||
        !e->mimeData()->hasText()) {
        QPlainTextEdit::dropEvent(e);
        return;
    }
    // A move inside the editor: one undo step instead of the base class's unrecorded
    // removal of the dragged text.
    QDragLeaveEvent leave;
    QPlainTextEdit::dragLeaveEvent(&leave);
    e->acceptProposedAction();
    const int target = cursorForPosition(e->position().toPoint()).position();
    if (target >= dragged.location && target <= dragged.end())
        return;
    const QString text = m_model->buffer().mid(dragged.location, dragged.length);
    TextEditorModel::Step step(*m_model);
    if (target > dragged.end()) {
        m_model->performEdit({target, 0}, text, QStringLiteral("UNDO_DRAG"));
        m_model->performEdit(dragged, QString(), QStringLiteral("UNDO_DRAG"),
                             TextRange{target - dragged.length, dragged.length});
    } else {
        m_model->performEdit(dragged, QString(), QStringLiteral("UNDO_DRAG"));
        m_model->performEdit({target, 0}, text, QStringLiteral("UNDO_DRAG"),
                             TextRange{target, dragged.length});
    }
}

void EnhancedTextView::documentChanged(int, int removed, int added)
{
    if (m_model->isApplyingEdit() || removed == added)
        return;
    // A change that bypassed the history: its steps no longer fit the text, so they go.
    m_model->history().clear();
    m_model->scheduleChangeNotice();
    Q_EMIT undoStateChanged();
}

// --- context menu -------------------------------------------------------------------------

void EnhancedTextView::contextMenuEvent(QContextMenuEvent *e)
{
    QMenu *menu = createStandardContextMenu(e->pos());
    contextMenuTextViewSetup(menu);
    menu->exec(e->globalPos());
    delete menu;
}

void EnhancedTextView::contextMenuTextViewSetup(QMenu *menu)
{
    // The standard entries that change text go through this view's history.
    for (QAction *action : menu->actions()) {
        const QString name = action->objectName();
        if (name == u"edit-undo") {
            action->disconnect();
            action->setEnabled(canUndo() && isEditable());
            connect(action, &QAction::triggered, this, &EnhancedTextView::undo);
        } else if (name == u"edit-redo") {
            action->disconnect();
            action->setEnabled(canRedo() && isEditable());
            connect(action, &QAction::triggered, this, &EnhancedTextView::redo);
        } else if (name == u"edit-cut") {
            action->disconnect();
            connect(action, &QAction::triggered, this, &EnhancedTextView::cut);
        } else if (name == u"edit-delete") {
            action->disconnect();
            connect(action, &QAction::triggered, this, [this] {
                const TextRange s = m_model->selectedRange();
                if (s.length > 0 && isEditable())
                    userEdit(s, QString(), QStringLiteral("UNDO_DELETE"));
            });
        }
    }
    // The clean-up items come from the action table, made afresh for each menu.
    if (menu->findChild<QAction *>(QStringLiteral("actionRemoveMarkup")))
        return;
    QAction *first = menu->actions().value(0);
    const QList<QAction *> cleanUp =
        MenuBuilder::createContextActions(QStringLiteral("contextMenuEditor"), menu);
    for (QAction *action : cleanUp) {
        const QString name = action->objectName();
        if (name == u"actionRemoveMarkup")
            connect(action, &QAction::triggered, this,
                    &EnhancedTextView::contextActionRemoveMarkup);
        else if (name == u"actionTrimLines")
            connect(action, &QAction::triggered, this, &EnhancedTextView::contextActionTrimLines);
        action->setEnabled(isEditable());
        menu->insertAction(first, action);
    }
    menu->insertSeparator(first);
}

// --- commands -----------------------------------------------------------------------------

void EnhancedTextView::insertSelectedTextBeforeSelection()
{
    LineCommands::insertSelectedTextBeforeSelection(*m_model);
}

void EnhancedTextView::insertSelectedTextAfterSelection()
{
    LineCommands::insertSelectedTextAfterSelection(*m_model);
}

void EnhancedTextView::insertSelectedTextLeftToSelection()
{
    LineCommands::insertSelectedTextLeftToSelection(*m_model);
}

void EnhancedTextView::insertSelectedTextRightToSelection()
{
    LineCommands::insertSelectedTextRightToSelection(*m_model);
}

void EnhancedTextView::moveSelectionLeft()
{
    LineCommands::moveSelectionLeft(*m_model);
}

void EnhancedTextView::moveSelectionRight()
{
    LineCommands::moveSelectionRight(*m_model);
}

void EnhancedTextView::moveCursorToTheEndOfParagraph()
{
    LineCommands::moveCursorToTheEndOfParagraph(*m_model);
}

void EnhancedTextView::moveCursorToTheBeginningOfParagraph()
{
    LineCommands::moveCursorToTheBeginningOfParagraph(*m_model);
}

void EnhancedTextView::moveCursorToPreviousEmptyLine()
{
    LineCommands::moveCursorToPreviousEmptyLine(*m_model);
}

void EnhancedTextView::moveCursorToNextEmptyLine()
{
    LineCommands::moveCursorToNextEmptyLine(*m_model);
}

void EnhancedTextView::moveCursorToTheEndOfParagraphAndPerformHardLineBreak()
{
    if (isEditable())
        LineCommands::moveCursorToTheEndOfParagraphAndPerformHardLineBreak(*m_model);
    ensureCursorVisible();
}

void EnhancedTextView::performMarkupInsertion(const QString &templateText)
{
    MarkupInsertion::performMarkupInsertion(*m_model, templateText);
}

void EnhancedTextView::insertBoldTypeStyle()
{
    MarkupInsertion::insertBoldTypeStyle(*m_model, MarkupLanguage::current(m_defaults));
}

void EnhancedTextView::insertItalicTypeStyle()
{
    MarkupInsertion::insertItalicTypeStyle(*m_model, MarkupLanguage::current(m_defaults));
}

void EnhancedTextView::insertStrikeTypeStyle()
{
    MarkupInsertion::insertStrikeTypeStyle(*m_model, MarkupLanguage::current(m_defaults));
}

void EnhancedTextView::insertHeadlineStyleType(int level)
{
    MarkupInsertion::insertHeadlineStyleType(*m_model, MarkupLanguage::current(m_defaults), level);
}

void EnhancedTextView::transformSelectedTextToTag()
{
    MarkupInsertion::transformSelectedTextToTag(*m_model);
}

void EnhancedTextView::contextActionRemoveMarkup()
{
    MarkupInsertion::removeMarkup(*m_model, MarkupLanguage::current(m_defaults));
}

void EnhancedTextView::contextActionTrimLines()
{
    MarkupInsertion::trimLines(*m_model);
}

void EnhancedTextView::sendNotifactionUpdatesTextHasChanged()
{
    NotificationCenter::defaultCenter().post(Notifications::TextChangedShouldBeSaved,
                                             static_cast<QObject *>(this));
}

void EnhancedTextView::sendNotifactionUpdatesTextCountUpdate() {}
