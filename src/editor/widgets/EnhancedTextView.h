#pragma once

#include "editor/EditorAppearance.h"
#include "editor/LineCommands.h"
#include "editor/ListNumbering.h"
#include "editor/MarkupInsertion.h"
#include "editor/TextEditorModel.h"
#include "editor/TypewriterScroll.h"

#include <QPair>
#include <QPlainTextEdit>
#include <QString>
#include <QStringList>
#include <QTextBlock>
#include <QVariantMap>

class InsertionPoint;
class LineNumberGutter;
class QAction;
class QMenu;
class QMimeData;
class QTimer;
class SpacedTextLayout;
class TextServices;
class ViewTextBuffer;
class UserDefaults;

// The entry editor. Every user edit (keys, input-method commits, paste, drop, deletions) is
// offered to the typing engine first, and every change, typed or made by a command, goes
// through one named undo history (the document's own undo is off).
class EnhancedTextView : public QPlainTextEdit
{
    Q_OBJECT
public:
    // defaults: where the typing options, quote style and markup language are read.
    explicit EnhancedTextView(UserDefaults &defaults, QWidget *parent = nullptr);
    ~EnhancedTextView() override;

    // Loading an entry: replaces the text without undo and without a change notice.
    void setString(const QString &text);
    QString string() const;
    void setEditable(bool editable);
    bool isEditable() const { return m_model->isEditable(); }
    // UTF-16 units.
    QPair<int, int> selectedRange() const;
    void setSelectedRange(int location, int length);

    TextEditorModel &model() const { return *m_model; }
    UserDefaults &defaults() const { return m_defaults; }

    // The change filter: true lets the edit through, false when the engine made its own.
    bool shouldChangeTextInRange(int location, int length, const QString &replacement);
    // Offers an edit to the filter and applies it as typing when let through.
    bool insertUserText(const QString &text);
    void undoCustomInsertionInRange(QPair<int, int> range, const QString &string);
    void undoCustomInsertionInRange(QPair<int, int> range, const QString &string,
                                    QPair<int, int> selectRange);

    QString openTag() const { return m_model->engine().openTag(); }
    QString closeTag() const { return m_model->engine().closeTag(); }
    // Applies the settings the editor depends on; run at creation and on every
    // "TextViewAttributesChangedNotification".
    virtual void setTextViewLayout();
    // Abbreviation -> expansion for Tab; read afresh on every call.
    virtual QVariantMap availableTabActions() const;

    // The look last applied by setTextViewLayout, and the parts that carry it.
    const EditorAppearance &appearance() const { return m_appearance; }
    SpacedTextLayout *spacedLayout() const;
    // A long text is still being loaded into the view (it reads whole all the same).
    bool isLoading() const;
    // Waits for a long text's load, so the view shows all of it.
    void finishLoading();
    InsertionPoint *insertionPoint() const { return m_caret; }
    LineNumberGutter *lineGutter() const { return m_gutter; }
    TextServices *textServices() const { return m_services; }
    void setLineGutterVisible(bool visible);
    // Where the caret is drawn, in viewport coordinates.
    QRectF insertionPointRect() const;
    // For the gutter: the visible paragraphs and where they are.
    QTextBlock firstVisibleTextBlock() const { return firstVisibleBlock(); }
    QRectF textBlockGeometry(const QTextBlock &block) const { return blockBoundingGeometry(block); }
    QPointF visibleContentOffset() const { return contentOffset(); }

    static int convertToNormal(const QString &roman)
    {
        return ListNumbering::convertToNormal(roman);
    }
    static QString convertToRoman(int value) { return ListNumbering::convertToRoman(value); }
    static int convertAlphaCountToNormal(const QString &letters)
    {
        return ListNumbering::convertAlphaCountToNormal(letters);
    }
    static QString convertIntValueToAlphaCount(int value)
    {
        return ListNumbering::convertIntValueToAlphaCount(value);
    }

    QStringList availableMarkupLanguages() const
    {
        return MarkupInsertion::availableMarkupLanguages();
    }
    QString markupTemplateForType(const QString &type) const;

    // Edit-menu actions whose text names the step: "Undo Move Up", "Redo Tab Action".
    QAction *createUndoAction(QObject *parent);
    QAction *createRedoAction(QObject *parent);
    bool canUndo() const { return m_model->canUndo(); }
    bool canRedo() const { return m_model->canRedo(); }
    QString undoActionName() const;
    QString redoActionName() const;

    // The editor's context menu: the standard one with the two clean-ups in front.
    void contextMenuTextViewSetup(QMenu *menu);
    // An edit as if the user made it: through the change filter's history, named actionKey.
    void replaceAsTyped(QPair<int, int> range, const QString &text, const QString &actionKey);

public Q_SLOTS:
    void undo();
    void redo();
    void cut();

    void indentSelectedText() { LineCommands::indentSelectedText(*m_model); }
    void deIndentSelectedText() { LineCommands::deIndentSelectedText(*m_model); }
    void insertSelectedTextBeforeSelection()
    {
        LineCommands::insertSelectedTextBeforeSelection(*m_model);
    }
    void insertSelectedTextAfterSelection()
    {
        LineCommands::insertSelectedTextAfterSelection(*m_model);
    }
    void insertSelectedTextLeftToSelection()
    {
        LineCommands::insertSelectedTextLeftToSelection(*m_model);
    }
    void insertSelectedTextRightToSelection()
    {
        LineCommands::insertSelectedTextRightToSelection(*m_model);
    }
    void moveSelectionUp() { LineCommands::moveSelectionUp(*m_model); }
    void moveSelectionDown() { LineCommands::moveSelectionDown(*m_model); }
    void moveSelectionLeft() { LineCommands::moveSelectionLeft(*m_model); }
    void moveSelectionRight() { LineCommands::moveSelectionRight(*m_model); }
    void moveCursorToTheEndOfParagraph() { LineCommands::moveCursorToTheEndOfParagraph(*m_model); }
    void moveCursorToTheBeginningOfParagraph()
    {
        LineCommands::moveCursorToTheBeginningOfParagraph(*m_model);
    }
    void moveCursorToPreviousEmptyLine() { LineCommands::moveCursorToPreviousEmptyLine(*m_model); }
    void moveCursorToNextEmptyLine() { LineCommands::moveCursorToNextEmptyLine(*m_model); }
    void moveCursorToTheEndOfParagraphAndPerformHardLineBreak();

    void performMarkupInsertion(const QString &templateText);
    void insertBoldTypeStyle();
    void insertItalicTypeStyle();
    void insertStrikeTypeStyle();
    void insertHeadlineStyleType(int level);
    void transformSelectedTextToTag();
    void contextActionRemoveMarkup();
    void contextActionTrimLines();

    // Posts "TextChangedShouldBeSavedNotification" with this view as sender.
    void sendNotifactionUpdatesTextHasChanged();
    virtual void sendNotifactionUpdatesTextCountUpdate();

Q_SIGNALS:
    void undoStateChanged();
    void editableChanged(bool editable);

protected:
    bool event(QEvent *e) override;
    void keyPressEvent(QKeyEvent *e) override;
    void inputMethodEvent(QInputMethodEvent *e) override;
    void insertFromMimeData(const QMimeData *source) override;
    void dropEvent(QDropEvent *e) override;
    void contextMenuEvent(QContextMenuEvent *e) override;
    void paintEvent(QPaintEvent *e) override;
    void resizeEvent(QResizeEvent *e) override;
    void focusInEvent(QFocusEvent *e) override;
    void focusOutEvent(QFocusEvent *e) override;

private:
    bool handleDeletionKey(QKeyEvent *e);
    void userEdit(TextRange range, const QString &text, const QString &actionKey);
    void documentChanged(int position, int removed, int added);
    void documentReplaced();
    ViewTextBuffer &buffer() const;
    void settingChanged(const QString &key);
    void caretMoved();
    void layoutGutter();

    UserDefaults &m_defaults;
    TextEditorModel *m_model;
    QTimer *m_changeTimer;
    QTimer *m_countTimer;
    InsertionPoint *m_caret = nullptr;
    LineNumberGutter *m_gutter = nullptr;
    TextServices *m_services = nullptr;
    EditorAppearance m_appearance;
    TypewriterScroll m_typewriter;
};
