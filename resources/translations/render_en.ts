<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="PREVIEW_ACCESSIBLE_NAME">
        <source>Preview</source>
        <translation>Preview</translation>
    </message>
    <message id="PREVIEW_TOOLTIP">
        <source>The current entry as it looks when converted, in the chosen style</source>
        <translation>The current entry as it looks when converted, in the chosen style</translation>
    </message>
    <message id="CSSSTYLE_PANEL_TITLE">
        <source>Preview Styles</source>
        <translation>Preview Styles</translation>
    </message>
    <message id="CSSSTYLE_PANEL_ACCESSIBLE_NAME">
        <source>Preview styles</source>
        <translation>Preview styles</translation>
    </message>
    <message id="CSSSTYLE_LIST_ACCESSIBLE_NAME">
        <source>Styles</source>
        <translation>Styles</translation>
    </message>
    <message id="CSSSTYLE_LIST_TOOLTIP">
        <source>The style sheets in your styles folder; the selected one styles the preview</source>
        <translation>The style sheets in your styles folder; the selected one styles the preview</translation>
    </message>
    <message id="CSSSTYLE_ADD_ACCESSIBLE_NAME">
        <source>Add Style</source>
        <translation>Add Style</translation>
    </message>
    <message id="CSSSTYLE_ADD_TOOLTIP">
        <source>Copy style sheets (.css) into your styles folder</source>
        <translation>Copy style sheets (.css) into your styles folder</translation>
    </message>
    <message id="CSSSTYLE_REMOVE_ACCESSIBLE_NAME">
        <source>Remove Style</source>
        <translation>Remove Style</translation>
    </message>
    <message id="CSSSTYLE_REMOVE_TOOLTIP">
        <source>Move the selected style sheet from your styles folder to the trash</source>
        <translation>Move the selected style sheet from your styles folder to the trash</translation>
    </message>
    <message id="CSSSTYLE_FOLDER_ACCESSIBLE_NAME">
        <source>Open Styles Folder</source>
        <translation>Open Styles Folder</translation>
    </message>
    <message id="CSSSTYLE_FOLDER_TOOLTIP">
        <source>Show the styles folder in the file manager, to edit or add style sheets</source>
        <translation>Show the styles folder in the file manager, to edit or add style sheets</translation>
    </message>
    <message id="CSSSTYLE_COPY_TITLE">
        <source>Add Styles</source>
        <translation>Add Styles</translation>
    </message>
    <message id="CSSSTYLE_COPY_MESSAGE">
        <source>Choose style sheets to copy into your styles folder.</source>
        <translation>Choose style sheets to copy into your styles folder.</translation>
    </message>
    <message id="CSSSTYLE_COPY_FILTER">
        <source>Style sheets (*.css)</source>
        <translation>Style sheets (*.css)</translation>
    </message>
</context>
</TS>
