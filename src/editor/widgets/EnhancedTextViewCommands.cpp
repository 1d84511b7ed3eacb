// The editor's markup and line commands, as the menus and shortcuts call them: each is one
// step of the model's history.
#include "EnhancedTextView.h"

#include "core/UserDefaults.h"
#include "editor/LineCommands.h"
#include "editor/MarkupInsertion.h"
#include "render/MarkupLanguage.h"

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
