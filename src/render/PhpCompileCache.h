#pragma once

#include <QProcessEnvironment>
#include <QString>

// PHP on the command line compiles every script it loads on each start, which for the
// Markdown library costs more than the conversion of a typical entry. This turns on the
// opcode cache's file store for the converters we start, kept in the user's cache folder.
class PhpCompileCache
{
public:
    // ~/.cache/Vellox/php
    static QString folder();
    // The environment for a PHP child: ours, with the cache's settings file added to the
    // folders PHP scans for settings. Ours unchanged if the cache cannot be prepared.
    static QProcessEnvironment environment();
};
