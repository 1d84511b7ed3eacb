#include "EnhancedTextView.h"

#include "BackgroundDocumentLoad.h"
#include "EditorContextMenu.h"
#include "EditorLook.h"
#include "InsertionPoint.h"
#include "LineNumberGutter.h"
#include "SpacedTextLayout.h"
#include "TextServices.h"
#include "ViewTextBuffer.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/LineCommands.h"
#include "editor/ListNumbering.h"
#include "editor/MarkupInsertion.h"
#include "editor/TextEditorModel.h"
#include "render/MarkupLanguage.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
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

// The stock plain-text layout ignores paragraph spacing; the editor's document gets one that
// does before anything else holds on to the document.
QPlainTextEdit *withSpacedLayout(QPlainTextEdit *view)
{
    auto *document = new QTextDocument(view);
    document->setDocumentLayout(new SpacedTextLayout(document));
    view->setDocument(document);
    return view;
}
} // namespace

EnhancedTextView::EnhancedTextView(UserDefaults &defaults, QWidget *parent)
    : QPlainTextEdit(parent)
    , m_defaults(defaults)
    , m_model(new TextEditorModel(std::make_unique<ViewTextBuffer>(withSpacedLayout(this)), this))
    , m_changeTimer(new QTimer(this))
    , m_countTimer(new QTimer(this))
    , m_caret(new InsertionPoint(this))
    , m_gutter(new LineNumberGutter(this))
    , m_services(new TextServices(this))
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
    connect(&buffer().load(), &BackgroundDocumentLoad::documentReplaced, this,
            &EnhancedTextView::documentReplaced);
    m_model->setTabActionProvider([this] { return availableTabActions(); });
    connect(&m_defaults, &UserDefaults::valueChanged, this, &EnhancedTextView::settingChanged);
    // The caret is drawn here, so the toolkit's own stays invisible.
    setCursorWidth(0);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &EnhancedTextView::caretMoved);
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect &rect, int dy) {
        if (dy)
            m_gutter->scroll(0, dy);
        else
            m_gutter->update(0, rect.y(), m_gutter->width(), rect.height());
    });
    connect(this, &QPlainTextEdit::blockCountChanged, this, &EnhancedTextView::layoutGutter);
    m_gutter->hide();

    setTextViewLayout();
    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::TextViewAttributesChanged,
        [this](const Notification &) { setTextViewLayout(); });
}

EnhancedTextView::~EnhancedTextView() = default;

ViewTextBuffer &EnhancedTextView::buffer() const
{
    return static_cast<ViewTextBuffer &>(m_model->buffer());
}

SpacedTextLayout *EnhancedTextView::spacedLayout() const
{
    return static_cast<SpacedTextLayout *>(document()->documentLayout());
}

bool EnhancedTextView::isLoading() const
{
    return buffer().isLoading();
}

void EnhancedTextView::finishLoading()
{
    buffer().finishLoading();
}

void EnhancedTextView::documentReplaced()
{
    document()->setUndoRedoEnabled(false);
    connect(document(), &QTextDocument::contentsChange, this, &EnhancedTextView::documentChanged);
    setReadOnly(!isEditable());
    m_services->attachDocument();
    layoutGutter();
    viewport()->update();
}

void EnhancedTextView::setString(const QString &text)
{
    m_model->setString(text);
    if (isLoading())
        setReadOnly(true); // nothing may be typed into the empty stand-in
    // The notice of an edit made before the load belongs to the previous text.
    m_changeTimer->stop();
    m_countTimer->stop();
}

QString EnhancedTextView::string() const
{
    if (buffer().isLoading())
        return buffer().load().text();
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

void EnhancedTextView::setEditable(bool editable)
{
    const bool changed = editable != m_model->isEditable();
    setReadOnly(!editable || isLoading());
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
    m_appearance = EditorAppearance::from(m_defaults);
    EditorLook::apply(*this, m_appearance);
    m_services->setOptions({m_defaults.value(Settings::TextViewCheckSpelling) != 0,
                            m_defaults.value(Settings::TextViewLinkDetection) != 0,
                            m_defaults.value(Settings::TextViewDashSubstitution) != 0});
    m_typewriter.reset();
}

void EnhancedTextView::setLineGutterVisible(bool visible)
{
    m_gutter->setVisible(visible);
    layoutGutter();
}

void EnhancedTextView::layoutGutter()
{
    const int width = m_gutter->isHidden() ? 0 : m_gutter->preferredWidth();
    setViewportMargins(width, 0, 0, 0);
    const QRect area = contentsRect();
    m_gutter->setGeometry(area.left(), area.top(), width, area.height());
}

QRectF EnhancedTextView::insertionPointRect() const
{
    return m_caret->rect();
}

void EnhancedTextView::paintEvent(QPaintEvent *e)
{
    QPlainTextEdit::paintEvent(e);
    QPainter painter(viewport());
    m_caret->paint(painter);
}

void EnhancedTextView::resizeEvent(QResizeEvent *e)
{
    QPlainTextEdit::resizeEvent(e);
    layoutGutter();
}

void EnhancedTextView::focusInEvent(QFocusEvent *e)
{
    QPlainTextEdit::focusInEvent(e);
    m_caret->restartBlinking();
}

void EnhancedTextView::focusOutEvent(QFocusEvent *e)
{
    QPlainTextEdit::focusOutEvent(e);
    m_caret->stopBlinking();
}

void EnhancedTextView::caretMoved()
{
    if (hasFocus())
        m_caret->restartBlinking();
    // A click places the caret where the user looks; only typing and keys move the view.
    if (!m_appearance.typewriterScrolling || QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    const QTextCursor cursor = textCursor();
    if (m_typewriter.shouldAdjust(cursor.position(), document()->characterCount() - 1,
                                  !cursor.hasSelection()))
        EditorLook::bringCaretLineToMiddle(*this);
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

// Undo and redo items that name the step they act on.
static QAction *historyAction(EnhancedTextView *view, QObject *parent, bool redo)
{
    auto *action = new QAction(parent);
    action->setShortcuts(redo ? QKeySequence::Redo : QKeySequence::Undo);
    action->setToolTip(qtTrId(redo ? "EDITOR_REDO_TOOLTIP" : "EDITOR_UNDO_TOOLTIP"));
    auto update = [view, action, redo] {
        const QString name = redo ? view->redoActionName() : view->undoActionName();
        if (name.isEmpty())
            action->setText(qtTrId(redo ? "EDITOR_REDO" : "EDITOR_UNDO"));
        else
            action->setText(qtTrId(redo ? "EDITOR_REDO_NAMED" : "EDITOR_UNDO_NAMED").arg(name));
        action->setEnabled((redo ? view->canRedo() : view->canUndo()) && view->isEditable());
    };
    QObject::connect(view, &EnhancedTextView::undoStateChanged, action, update);
    QObject::connect(action, &QAction::triggered, view,
                     redo ? &EnhancedTextView::redo : &EnhancedTextView::undo);
    update();
    return action;
}

QAction *EnhancedTextView::createUndoAction(QObject *parent)
{
    return historyAction(this, parent, false);
}

QAction *EnhancedTextView::createRedoAction(QObject *parent)
{
    return historyAction(this, parent, true);
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
    finishLoading();
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
        m_services->textTyped(e->text());
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
    m_services->addSpellingActions(menu, cursorForPosition(e->pos()).position());
    menu->exec(e->globalPos());
    delete menu;
}

void EnhancedTextView::contextMenuTextViewSetup(QMenu *menu)
{
    EditorContextMenu::setUp(*this, menu);
}

void EnhancedTextView::replaceAsTyped(QPair<int, int> range, const QString &text,
                                      const QString &actionKey)
{
    if (isEditable())
        userEdit(toRange(range), text, actionKey);
}

void EnhancedTextView::sendNotifactionUpdatesTextHasChanged()
{
    NotificationCenter::defaultCenter().post(Notifications::TextChangedShouldBeSaved,
                                             static_cast<QObject *>(this));
}

void EnhancedTextView::sendNotifactionUpdatesTextCountUpdate() {}
