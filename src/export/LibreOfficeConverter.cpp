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
    auto finished = [&] {
        int count = 0;
        for (const QString &input : inputs)
            count += QFileInfo::exists(outputOf(input)) ? 1 : 0;
        return count;
    };
    auto ticking = [&] {
        if (tick)
            tick(finished());
    };
    const QString office = officeBinary();
    if (office.isEmpty()) {
        run(m_program, arguments, inputs, outputFolder, cancel, ticking, {});
    } else {
        // What the launcher would set before starting the office.
        const QStringList environment = {
            QStringLiteral("LO_SAVE_LC_ALL=") + qEnvironmentVariable("LC_ALL"),
            QStringLiteral("LC_ALL=C"), QStringLiteral("SAL_ENABLE_FILE_LOCKING=1")};
        run(office, arguments, inputs, outputFolder, cancel, ticking, environment);
    }
    QStringList failed;
    for (const QString &input : inputs) {
        if (!QFileInfo(outputOf(input)).isFile())
            failed << input;
    }
    return failed;
}

QString LibreOfficeConverter::officeBinary() const
{
    const QString launcher = QFileInfo(m_program).canonicalFilePath();
    if (launcher.isEmpty())
        return QString();
    const QString office = QFileInfo(launcher).absolutePath() + QStringLiteral("/soffice.bin");
    return QFileInfo(office).isExecutable() ? office : QString();
}

void LibreOfficeConverter::run(const QString &program, const QStringList &arguments,
                               const QStringList &inputs, const QString &workingFolder,
                               const CancelFlag &cancel, const std::function<void()> &tick,
                               const QStringList &environment)
{
    const bool direct = !environment.isEmpty();
    const qsizetype batch = direct ? kOfficeBatchSize : kLauncherBatchSize;
    for (qsizetype first = 0; first < inputs.size() && !cancel.isRaised(); first += batch) {
        const QStringList part = inputs.mid(first, batch);
        auto result = ChildProcess::run(program, arguments + part, workingFolder, cancel,
                                        30 * 60 * 1000, tick, environment);
        // The launcher does this itself; the office program asks for it once after it has
        // set up a new profile, before converting anything.
        if (direct && result.outcome == ChildProcess::Finished &&
            result.exitCode == kRestartExitCode)
            ChildProcess::run(program, arguments + part, workingFolder, cancel, 30 * 60 * 1000,
                              tick, environment);
    }
}
