#pragma once

class EnhancedTextView;
class QMenu;

// The editor's context menu: the standard entries routed through the editor's history and
// the clean-up items of the action table in front.
namespace EditorContextMenu {
void setUp(EnhancedTextView &view, QMenu *menu);
} // namespace EditorContextMenu
