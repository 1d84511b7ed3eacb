#include "LibreOfficeConverter.h"

#include "ChildProcess.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

LibreOfficeConverter::LibreOfficeConverter(const QString &profileFolder, const QString &program)
    : m_profileFolder(profileFolder)
    , m_program(program)
{}

bool LibreOfficeConverter::isInstalled() const
{
    return QFileInfo(m_program).isExecutable();
}

QString LibreOfficeConverter::filterFor(const QString &extension)
{
    if (extension == QLatin1String("doc"))
        return QStringLiteral("doc:MS Word 97");
    if (extension == QLatin1String("rtf"))
        return QStringLiteral("rtf:Rich Text Format");
    if (extension == QLatin1String("odt"))
        return QStringLiteral("odt:writer8");
    if (extension == QLatin1String("txt"))
        return QStringLiteral("txt:Text (encoded):UTF8");
    return extension;
}

QStringList LibreOfficeConverter::convert(const QStringList &inputs, const QString &extension,
                                          const QString &outputFolder, const CancelFlag &cancel,
                                          const std::function<void(int)> &tick, bool htmlInput)
{
    if (inputs.isEmpty())
        return {};
    QDir().mkpath(m_profileFolder);
    QDir().mkpath(outputFolder);
    auto outputOf = [&](const QString &input) -> QString {
        return outputFolder + QLatin1Char('/') + QFileInfo(input).completeBaseName() +
               QLatin1Char('.') + extension;
    };
    QStringList arguments = {QStringLiteral("-env:UserInstallation=") +
                                 QUrl::fromLocalFile(m_profileFolder).toString(QUrl::FullyEncoded),
                             QStringLiteral("--headless"), QStringLiteral("--norestore"),
                             QStringLiteral("--nolockcheck")};
    if (htmlInput)
        arguments << QStringLiteral("--infilter=HTML (StarWriter)");
    arguments << QStringLiteral("--convert-to") << filterFor(extension)
              << QStringLiteral("--outdir") << outputFolder;
    // LibreOffice reads only about 250 arguments of a command line and silently drops the
    // rest, so a long list goes in batches, one after the other on the same profile.
    for (qsizetype first = 0; first < inputs.size() && !cancel.isRaised(); first += kBatchSize) {
        ChildProcess::run(m_program, arguments + inputs.mid(first, kBatchSize), outputFolder,
                          cancel, 30 * 60 * 1000, [&] {
                              if (!tick)
                                  return;
                              int finished = 0;
                              for (const QString &input : inputs)
                                  finished += QFileInfo::exists(outputOf(input)) ? 1 : 0;
                              tick(finished);
                          });
    }
    QStringList failed;
    for (const QString &input : inputs) {
        if (!QFileInfo(outputOf(input)).isFile())
            failed << input;
    }
    return failed;
}
