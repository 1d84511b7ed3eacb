<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="FOLDER_LOCKED">
        <source>Notebook folder is locked</source>
        <translation>Notebook folder is locked</translation>
    </message>
</context>
</TS>
