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

    // Inputs per LibreOffice call.
    static constexpr qsizetype kBatchSize = 200;

private:
    QString m_profileFolder;
    QString m_program;
};
