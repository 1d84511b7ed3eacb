#pragma once

#include "editor/EditorAppearance.h"

#include <QCursor>
#include <QFont>

class EnhancedTextView;
class QPlainTextEdit;

// Puts an EditorAppearance on the editor: font, colours, paragraph layout, margins, scroll
// bar, gutter, caret and pointer.
namespace EditorLook {
void apply(EnhancedTextView &view, const EditorAppearance &appearance);
// The font named by the settings, or the nearest installed face of the same kind.
QFont font(const QString &family, int pointSize);
// The text pointer drawn in the caret's colour.
QCursor tintedIBeam(const QColor &color);
// Typewriter scrolling: the caret's line moves to the middle of the view.
void bringCaretLineToMiddle(QPlainTextEdit &view);
} // namespace EditorLook
