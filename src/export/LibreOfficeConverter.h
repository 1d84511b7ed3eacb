#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class CancelFlag;

// Converts HTML files to Word, RTF or OpenDocument text with LibreOffice, as many files as it
// takes in one call (its start-up costs more than converting a page), on a profile of
// its own so it never meets a LibreOffice the user has open, nor two conversions one profile.
class LibreOfficeConverter
{
public:
    explicit LibreOfficeConverter(const QString &profileFolder,
                                  const QString &program = QStringLiteral("/usr/bin/soffice"));

    bool isInstalled() const;
    // "doc", "rtf" or "odt" (or "txt" to read a document back) for each input into
    // outputFolder, named after the input with the new extension. LibreOffice exits with 0
    // even when it fails, so the answer is the list of inputs whose output is missing.
    // tick(finished) is called while it runs.
    QStringList convert(const QStringList &inputs, const QString &extension,
                        const QString &outputFolder, const CancelFlag &cancel,
                        const std::function<void(int finished)> &tick = {}, bool htmlInput = true);

    static QString filterFor(const QString &extension);
    // The office program itself beside the launcher, or "" when there is none.
    QString officeBinary() const;

    // The launcher (soffice, which starts oosplash) passes on only the first 253 or so
    // arguments and silently drops the rest, so through it a long list goes in batches. The
    // office program takes any number; its batches only keep the command line short.
    static constexpr qsizetype kLauncherBatchSize = 200;
    static constexpr qsizetype kOfficeBatchSize = 2000;
    // What the office program answers on the first start on a new profile: start it again.
    static constexpr int kRestartExitCode = 81;

private:
    void run(const QString &program, const QStringList &arguments, const QStringList &inputs,
             const QString &workingFolder, const CancelFlag &cancel,
             const std::function<void()> &tick, const QStringList &environment);

    QString m_profileFolder;
    QString m_program;
};
