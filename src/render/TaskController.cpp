#include "TaskController.h"

#include "PhpCompileCache.h"
#include "PhpConverterWorker.h"
#include "core/AppPaths.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QProcess>
#include <QStringDecoder>

Q_LOGGING_CATEGORY(lcConversion, "vellox.conversion")

namespace {

QString scriptNameForLanguage(int language)
{
    switch (language) {
    case 1:
        return QStringLiteral("markdown.php");
    case 2:
        return QStringLiteral("textile.php");
    case 3:
        return QStringLiteral("wikitext.php");
    case 4:
        return QStringLiteral("bbcode.php");
    case 6:
        return QStringLiteral("html.php");
    default:
        // Smark is the fall-back for numbers the settings should never hold.
        return QStringLiteral("smark.php");
    }
}

// Names the Debian package that brings a missing program, for the log.
QString packageHint(const QString &program)
{
    const QString name = QFileInfo(program).fileName();
    if (name == QLatin1String("php"))
        return QStringLiteral(" (Debian package php-cli)");
    if (name == QLatin1String("perl"))
        return QStringLiteral(" (Debian package perl)");
    if (name == QLatin1String("unzip"))
        return QStringLiteral(" (Debian package unzip)");
    return QString();
}

bool isExecutableFile(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isExecutable();
}

} // namespace

TaskController::TaskController()
    : TaskController(Tools())
{}

TaskController::TaskController(const Tools &tools)
    : m_tools(tools)
    , m_phpLaunchPath(tools.php)
{}

QString TaskController::convertStringWithMarkUpLanguage(int language, const QString &text)
{
    return TaskController().convert(language, text);
}

QString TaskController::multiMarkdownFolder()
{
    return AppPaths::supportFolder() + QStringLiteral("/mmd/");
}

QString TaskController::multiMarkdownScriptPath()
{
    return multiMarkdownFolder() + QStringLiteral("MultiMarkdown.pl");
}

QString TaskController::converterResource(const QString &fileName) const
{
    if (m_tools.converterFolder.isEmpty())
        return AppPaths::resource(QStringLiteral("converters/") + fileName);
    const QString path = QDir(m_tools.converterFolder).filePath(fileName);
    return QFileInfo::exists(path) ? path : QString();
}

void TaskController::setMarkUpLanguageScriptPathForSelection(int language)
{
    if (language == 7) {
        m_phpScriptPath = QStringLiteral("mmd.pl");
    } else {
        const QString name = scriptNameForLanguage(language);
        m_phpScriptPath = converterResource(name);
        if (m_phpScriptPath.isEmpty())
            qCWarning(lcConversion, "Conversion: the converter script \"%s\" is missing",
                      qPrintable(name));
    }

    const QString extension = QFileInfo(m_phpScriptPath).suffix();
    if (extension == QLatin1String("php"))
        m_phpLaunchPath = m_tools.php;
    else if (extension == QLatin1String("pl"))
        m_phpLaunchPath = m_tools.perl;

    if (language != 7)
        return;
    if (isExecutableFile(m_tools.multiMarkdown)) {
        m_phpLaunchPath = m_tools.multiMarkdown;
        return;
    }
    m_phpScriptPath = multiMarkdownScriptPath();
    if (!QFileInfo::exists(m_phpScriptPath))
        installMultiMarkdownScript();
}

void TaskController::installMultiMarkdownScript()
{
    // Each step's failure is left to show up as a missing script when converting.
    const QString folder = multiMarkdownFolder();
    QDir().mkpath(folder);
    const QString archive = folder + QStringLiteral("mmd.zip");
    const QString shipped = converterResource(QStringLiteral("mmd.zip"));
    if (shipped.isEmpty())
        qCWarning(lcConversion, "Conversion: the MultiMarkdown archive \"mmd.zip\" is missing");
    else
        QFile::copy(shipped, archive);

    if (!isExecutableFile(m_tools.unzip)) {
        qCWarning(lcConversion, "Conversion: cannot unpack MultiMarkdown, %s is missing%s",
                  qPrintable(m_tools.unzip), qPrintable(packageHint(m_tools.unzip)));
        return;
    }
    QProcess unzip;
    unzip.setProcessChannelMode(QProcess::ForwardedChannels);
    unzip.start(m_tools.unzip, {QStringLiteral("-qq"), archive, QStringLiteral("-d"), folder});
    // unzip asks on its standard input before overwriting; an immediate end of input
    // answers it instead of leaving it waiting.
    unzip.closeWriteChannel();
    if (!unzip.waitForFinished(m_tools.timeoutMs)) {
        unzip.kill();
        unzip.waitForFinished(1000);
    }
}

QString TaskController::convert(int language, const QString &text)
{
    setMarkUpLanguageScriptPathForSelection(language);

    QStringList arguments;
    if (m_phpLaunchPath != m_tools.multiMarkdown) {
        if (m_phpScriptPath.isEmpty())
            return QString();
        if (!QFileInfo::exists(m_phpScriptPath)) {
            qCWarning(lcConversion, "Conversion: the converter script %s is missing",
                      qPrintable(m_phpScriptPath));
            return QString();
        }
        arguments << m_phpScriptPath;
    }
    QString html;
    if (convertWithWorker(text, &html))
        return html;
    if (isCancelled())
        return QString();
    return run(m_phpLaunchPath, arguments, text, language);
}

QString TaskController::convertHead(int language, const QString &text, bool *whole)
{
    *whole = false;
    setMarkUpLanguageScriptPathForSelection(language);
    const QString keyWord = QFileInfo(m_phpScriptPath).completeBaseName();
    if (keyWord != QLatin1String("markdown") && keyWord != QLatin1String("smark"))
        return QString();
    QString reply;
    if (!convertWithWorker(text, &reply, QStringLiteral("head")) || reply.isEmpty() ||
        (reply.at(0) != u'W' && reply.at(0) != u'P'))
        return QString();
    *whole = reply.at(0) == u'W';
    return reply.mid(1);
}

bool TaskController::convertWithWorker(const QString &text, QString *html,
                                       const QString &keyWordSuffix) const
{
    if (m_phpLaunchPath != m_tools.php ||
        QFileInfo(m_phpScriptPath).suffix() != QLatin1String("php") ||
        !isExecutableFile(m_tools.php))
        return false;
    const QString script = converterResource(QStringLiteral("worker.php"));
    PhpConverterWorker *worker = PhpConverterWorker::instance();
    if (script.isEmpty() || !worker)
        return false;
    // The worker knows each language by the name of its single-text filter.
    const QString keyWord = QFileInfo(m_phpScriptPath).completeBaseName() + keyWordSuffix;
    PhpConverterWorker::Reply reply;
    if (!worker->convert(m_tools.php, script, keyWord, text.toUtf8(), m_tools.timeoutMs, &reply,
                         m_tools.cancelled))
        return false;
    if (reply.status != 0)
        qCWarning(lcConversion, "Conversion: %s %s failed with status %d", qPrintable(m_tools.php),
                  qPrintable(m_phpScriptPath), reply.status);
    *html = decodeOutput(reply.html, m_tools.php);
    return true;
}

QString TaskController::decodeOutput(const QByteArray &output, const QString &program)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString html = decoder.decode(output);
    if (decoder.hasError()) {
        qCWarning(lcConversion, "Conversion: %s wrote text that is not UTF-8", qPrintable(program));
        return QString();
    }
    return html;
}

QString TaskController::run(const QString &program, const QStringList &arguments,
                            const QString &text, int language) const
{
    if (!isExecutableFile(program)) {
        qCWarning(lcConversion, "Conversion: %s is missing%s, so language %d cannot be converted",
                  qPrintable(program), qPrintable(packageHint(program)), language);
        return QString();
    }

    QProcess process;
    // The converters' complaints belong in the same log as ours.
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    if (program == m_tools.php)
        process.setProcessEnvironment(PhpCompileCache::environment());
    process.start(program, arguments);
    if (!process.waitForStarted(m_tools.timeoutMs)) {
        qCWarning(lcConversion, "Conversion: cannot start %s: %s", qPrintable(program),
                  qPrintable(process.errorString()));
        return QString();
    }
    // QProcess feeds the input while it drains the output in the same wait, so a converter
    // that starts writing before it has read everything cannot block the two of us.
    process.write(text.toUtf8());
    process.closeWriteChannel();
    const QDeadlineTimer deadline(m_tools.timeoutMs);
    bool finished = false;
    while (!finished && !deadline.hasExpired() && !isCancelled())
        finished =
            process.waitForFinished(m_tools.cancelled ? qMin<qint64>(40, deadline.remainingTime())
                                                      : deadline.remainingTime()) ||
            process.state() == QProcess::NotRunning;
    if (!finished && isCancelled()) {
        process.kill();
        process.waitForFinished(1000);
        return QString();
    }
    if (!finished) {
        qCWarning(lcConversion, "Conversion: %s %s did not finish within %d ms and was stopped",
                  qPrintable(program), qPrintable(arguments.join(QLatin1Char(' '))),
                  m_tools.timeoutMs);
        process.kill();
        process.waitForFinished(1000);
        return QString();
    }
    // What a failing converter printed is still the best there is to show.
    if (process.exitStatus() != QProcess::NormalExit)
        qCWarning(lcConversion, "Conversion: %s %s crashed", qPrintable(program),
                  qPrintable(arguments.join(QLatin1Char(' '))));
    else if (process.exitCode() != 0)
        qCWarning(lcConversion, "Conversion: %s %s failed with status %d", qPrintable(program),
                  qPrintable(arguments.join(QLatin1Char(' '))), process.exitCode());

    return decodeOutput(process.readAllStandardOutput(), program);
}
