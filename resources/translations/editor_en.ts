<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="UNDO_TEXT_ACTION">
        <source>Text Action</source>
        <translation>Text Action</translation>
    </message>
    <message id="UNDO_INDENTION_CHANGE">
        <source>Indentation Change</source>
        <translation>Indentation Change</translation>
    </message>
    <message id="UNDO_TAB_ACTION">
        <source>Tab Action</source>
        <translation>Tab Action</translation>
    </message>
    <message id="UNDO_MOVE_UP">
        <source>Move Up</source>
        <translation>Move Up</translation>
    </message>
    <message id="UNDO_MOVE_DOWN">
        <source>Move Down</source>
        <translation>Move Down</translation>
    </message>
    <message id="UNDO_COPYPAST_LEFT">
        <source>Copy to the Left</source>
        <translation>Copy to the Left</translation>
    </message>
    <message id="UNDO_COPYPAST_RIGHT">
        <source>Copy to the Right</source>
        <translation>Copy to the Right</translation>
    </message>
    <message id="UNDO_SET_BOLD">
        <source>Insert Markup</source>
        <translation>Insert Markup</translation>
    </message>
    <message id="UNDO_TYPING">
        <source>Typing</source>
        <translation>Typing</translation>
    </message>
    <message id="UNDO_PASTE">
        <source>Paste</source>
        <translation>Paste</translation>
    </message>
    <message id="UNDO_CUT">
        <source>Cut</source>
        <translation>Cut</translation>
    </message>
    <message id="UNDO_DELETE">
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message id="UNDO_DRAG">
        <source>Drag</source>
        <translation>Drag</translation>
    </message>
    <message id="EDITOR_UNDO">
        <source>Undo</source>
        <translation>Undo</translation>
    </message>
    <message id="EDITOR_UNDO_NAMED">
        <source>Undo %1</source>
        <translation>Undo %1</translation>
    </message>
    <message id="EDITOR_REDO">
        <source>Redo</source>
        <translation>Redo</translation>
    </message>
    <message id="EDITOR_REDO_NAMED">
        <source>Redo %1</source>
        <translation>Redo %1</translation>
    </message>
    <message id="EDITOR_UNDO_TOOLTIP">
        <source>Undo the last change to the entry</source>
        <translation>Undo the last change to the entry</translation>
    </message>
    <message id="EDITOR_REDO_TOOLTIP">
        <source>Redo the last undone change</source>
        <translation>Redo the last undone change</translation>
    </message>
    <message id="EDITOR_ACCESSIBLE_NAME">
        <source>Entry text</source>
        <translation>Entry text</translation>
    </message>
    <message id="EDITOR_TOOLTIP">
        <source>The text of the selected entry</source>
        <translation>The text of the selected entry</translation>
    </message>
    <message id="CONTEXT_EDIT_TEXTFIELD_REMOVE_MARKUP">
        <source>Remove Markup</source>
        <translation>Remove Markup</translation>
    </message>
    <message id="CONTEXT_EDIT_TEXTFIELD_REMOVE_MARKUP_TOOLTIP">
        <source>Replace the selection by its plain text, without markup</source>
        <translation>Replace the selection by its plain text, without markup</translation>
    </message>
    <message id="CONTEXT_EDIT_TEXTFIELD_TRIM_LINES">
        <source>Trim Lines</source>
        <translation>Trim Lines</translation>
    </message>
    <message id="CONTEXT_EDIT_TEXTFIELD_TRIM_LINES_TOOLTIP">
        <source>Remove spaces and tabs at both ends of each selected line</source>
        <translation>Remove spaces and tabs at both ends of each selected line</translation>
    </message>
    <message id="EDITOR_CMD_INDENT">
        <source>Indent</source>
        <translation>Indent</translation>
    </message>
    <message id="EDITOR_CMD_INDENT_TIP">
        <source>Put a tab in front of each selected line</source>
        <translation>Put a tab in front of each selected line</translation>
    </message>
    <message id="EDITOR_CMD_DEINDENT">
        <source>Outdent</source>
        <translation>Outdent</translation>
    </message>
    <message id="EDITOR_CMD_DEINDENT_TIP">
        <source>Remove one leading tab from each selected line</source>
        <translation>Remove one leading tab from each selected line</translation>
    </message>
    <message id="EDITOR_CMD_COPY_ABOVE">
        <source>Duplicate Above</source>
        <translation>Duplicate Above</translation>
    </message>
    <message id="EDITOR_CMD_COPY_ABOVE_TIP">
        <source>Insert a copy of the selection on a line before it</source>
        <translation>Insert a copy of the selection on a line before it</translation>
    </message>
    <message id="EDITOR_CMD_COPY_BELOW">
        <source>Duplicate Below</source>
        <translation>Duplicate Below</translation>
    </message>
    <message id="EDITOR_CMD_COPY_BELOW_TIP">
        <source>Insert a copy of the selection on a line after it</source>
        <translation>Insert a copy of the selection on a line after it</translation>
    </message>
    <message id="EDITOR_CMD_COPY_LEFT">
        <source>Duplicate to the Left</source>
        <translation>Duplicate to the Left</translation>
    </message>
    <message id="EDITOR_CMD_COPY_LEFT_TIP">
        <source>Insert a copy of the selection before it, separated by a space</source>
        <translation>Insert a copy of the selection before it, separated by a space</translation>
    </message>
    <message id="EDITOR_CMD_COPY_RIGHT">
        <source>Duplicate to the Right</source>
        <translation>Duplicate to the Right</translation>
    </message>
    <message id="EDITOR_CMD_COPY_RIGHT_TIP">
        <source>Insert a copy of the selection after it, separated by a space</source>
        <translation>Insert a copy of the selection after it, separated by a space</translation>
    </message>
    <message id="EDITOR_CMD_MOVE_UP">
        <source>Move Selection Up</source>
        <translation>Move Selection Up</translation>
    </message>
    <message id="EDITOR_CMD_MOVE_UP_TIP">
        <source>Move the selected text to the end of the line above</source>
        <translation>Move the selected text to the end of the line above</translation>
    </message>
    <message id="EDITOR_CMD_MOVE_DOWN">
        <source>Move Selection Down</source>
        <translation>Move Selection Down</translation>
    </message>
    <message id="EDITOR_CMD_MOVE_DOWN_TIP">
        <source>Move the selected text to the start of the line below</source>
        <translation>Move the selected text to the start of the line below</translation>
    </message>
    <message id="EDITOR_CMD_MOVE_LEFT">
        <source>Move Selection Left</source>
        <translation>Move Selection Left</translation>
    </message>
    <message id="EDITOR_CMD_MOVE_LEFT_TIP">
        <source>Move the selected text one word to the left</source>
        <translation>Move the selected text one word to the left</translation>
    </message>
    <message id="EDITOR_CMD_MOVE_RIGHT">
        <source>Move Selection Right</source>
        <translation>Move Selection Right</translation>
    </message>
    <message id="EDITOR_CMD_MOVE_RIGHT_TIP">
        <source>Move the selected text one word to the right</source>
        <translation>Move the selected text one word to the right</translation>
    </message>
    <message id="EDITOR_CMD_PARAGRAPH_END">
        <source>Go to End of Paragraph</source>
        <translation>Go to End of Paragraph</translation>
    </message>
    <message id="EDITOR_CMD_PARAGRAPH_END_TIP">
        <source>Move the caret to the end of the current line</source>
        <translation>Move the caret to the end of the current line</translation>
    </message>
    <message id="EDITOR_CMD_PARAGRAPH_START">
        <source>Go to Previous Line End</source>
        <translation>Go to Previous Line End</translation>
    </message>
    <message id="EDITOR_CMD_PARAGRAPH_START_TIP">
        <source>Move the caret back to the end of the previous line</source>
        <translation>Move the caret back to the end of the previous line</translation>
    </message>
    <message id="EDITOR_CMD_PREVIOUS_EMPTY_LINE">
        <source>Go to Previous Empty Line</source>
        <translation>Go to Previous Empty Line</translation>
    </message>
    <message id="EDITOR_CMD_PREVIOUS_EMPTY_LINE_TIP">
        <source>Move the caret to the nearest empty line above</source>
        <translation>Move the caret to the nearest empty line above</translation>
    </message>
    <message id="EDITOR_CMD_NEXT_EMPTY_LINE">
        <source>Go to Next Empty Line</source>
        <translation>Go to Next Empty Line</translation>
    </message>
    <message id="EDITOR_CMD_NEXT_EMPTY_LINE_TIP">
        <source>Move the caret to the nearest empty line below</source>
        <translation>Move the caret to the nearest empty line below</translation>
    </message>
    <message id="EDITOR_CMD_HARD_BREAK">
        <source>Hard Line Break at End of Paragraph</source>
        <translation>Hard Line Break at End of Paragraph</translation>
    </message>
    <message id="EDITOR_CMD_HARD_BREAK_TIP">
        <source>Go to the end of the line and insert a markup line break</source>
        <translation>Go to the end of the line and insert a markup line break</translation>
    </message>
    <message id="EDITOR_CMD_BOLD">
        <source>Bold</source>
        <translation>Bold</translation>
    </message>
    <message id="EDITOR_CMD_BOLD_TIP">
        <source>Make the selection bold in the current markup language</source>
        <translation>Make the selection bold in the current markup language</translation>
    </message>
    <message id="EDITOR_CMD_ITALIC">
        <source>Italic</source>
        <translation>Italic</translation>
    </message>
    <message id="EDITOR_CMD_ITALIC_TIP">
        <source>Make the selection italic in the current markup language</source>
        <translation>Make the selection italic in the current markup language</translation>
    </message>
    <message id="EDITOR_CMD_STRIKE">
        <source>Strikethrough</source>
        <translation>Strikethrough</translation>
    </message>
    <message id="EDITOR_CMD_STRIKE_TIP">
        <source>Strike-through markup (the template table has none, so the selection is removed)</source>
        <translation>Strike-through markup (the template table has none, so the selection is removed)</translation>
    </message>
    <message id="EDITOR_CMD_HEADLINE1">
        <source>Headline 1</source>
        <translation>Headline 1</translation>
    </message>
    <message id="EDITOR_CMD_HEADLINE2">
        <source>Headline 2</source>
        <translation>Headline 2</translation>
    </message>
    <message id="EDITOR_CMD_HEADLINE3">
        <source>Headline 3</source>
        <translation>Headline 3</translation>
    </message>
    <message id="EDITOR_CMD_HEADLINE4">
        <source>Headline 4</source>
        <translation>Headline 4</translation>
    </message>
    <message id="EDITOR_CMD_HEADLINE_TIP">
        <source>Make the selection a headline in the current markup language</source>
        <translation>Make the selection a headline in the current markup language</translation>
    </message>
    <message id="EDITOR_CMD_TAG">
        <source>Wrap in Tag</source>
        <translation>Wrap in Tag</translation>
    </message>
    <message id="EDITOR_CMD_TAG_TIP">
        <source>Turn the selected word into an opening and closing tag pair</source>
        <translation>Turn the selected word into an opening and closing tag pair</translation>
    </message>
    <message id="EDITOR_LINE_GUTTER">
        <source>Line numbers</source>
        <translation>Line numbers</translation>
    </message>
    <message id="EDITOR_LINE_GUTTER_TIP">
        <source>The number of each paragraph of the entry</source>
        <translation>The number of each paragraph of the entry</translation>
    </message>
    <message id="EDITOR_SPELLING_LEARN">
        <source>Add to Dictionary</source>
        <translation>Add to Dictionary</translation>
    </message>
    <message id="EDITOR_SPELLING_LEARN_TIP">
        <source>Accept this word as correct from now on</source>
        <translation>Accept this word as correct from now on</translation>
    </message>
    <message id="EDITOR_SPELLING_NO_GUESSES">
        <source>No Guesses Found</source>
        <translation>No Guesses Found</translation>
    </message>
    <message id="EDITOR_SPELLING_SUGGESTION_TIP">
        <source>Replace the misspelled word with this one</source>
        <translation>Replace the misspelled word with this one</translation>
    </message>
    <message id="EDITOR_COMPLETIONS">
        <source>Completions</source>
        <translation>Completions</translation>
    </message>
    <message id="EDITOR_COMPLETIONS_TIP">
        <source>Abbreviations of your tab actions that begin with the word being typed</source>
        <translation>Abbreviations of your tab actions that begin with the word being typed</translation>
    </message>
</context>
</TS>
