#include "TypewriterScroll.h"

bool TypewriterScroll::shouldAdjust(int caret, int textLength, bool selectionEmpty)
{
    if (!selectionEmpty)
        return false;
    if (m_lastCaret == -1)
        m_lastCaret = caret >= textLength ? textLength : caret;
    if (caret == m_lastCaret || textLength >= LengthLimit)
        return false;
    m_lastCaret = caret;
    return true;
}
