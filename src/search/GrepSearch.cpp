#include "GrepSearch.h"

#include "core/AppPaths.h"
#include "library/EntryDirectory.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSaveFile>
#include <QStringDecoder>
#include <QTimer>

#include <csignal>
#include <sys/types.h>
#include <unistd.h>

namespace {
const QString kNotesFile = QStringLiteral("_notes.stfn");
}

GrepSearch::GrepSearch(QObject *parent)
    : QObject(parent)
{}

GrepSearch::~GrepSearch()
{
    endProcess();
}

QString GrepSearch::scriptPath()
{
    return AppPaths::supportFolder() + QStringLiteral("/searchShellScript.sh");
}

QString GrepSearch::escapedTerm(const QString &term)
{
    if (term.startsWith(QLatin1Char('-')))
        return QStringLiteral("\\-") + term.mid(1);
    return term;
}

QString GrepSearch::scriptText(const QString &term, const QString &extension)
{
    return QStringLiteral("#!/bin/bash\ngrep -i -l -I -s -r \"%1\" %2 [^-]*.%3")
        .arg(escapedTerm(term), QStringLiteral("*"), extension);
}

QStringList GrepSearch::contentMatches(const QByteArray &output, const QString &notebookFolder,
                                       const QString &extension)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(output);
    if (decoder.hasError())
        return {};
    const bool bundles = extension == QLatin1String("textbundle");
    QString folder = AppPaths::expandTilde(notebookFolder);
    QStringList matches;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        QString name;
        const qsizetype slash = line.lastIndexOf(QLatin1Char('/'));
        const QString parent = slash < 0 ? QString() : line.left(slash);
        if (!bundles) {
            if (parent.isEmpty() && EntryDirectory::pathExtension(line) == extension)
                name = line;
        } else if (EntryDirectory::pathExtension(parent) == QLatin1String("textbundle")) {
            name = parent;
        }
        if (name.isEmpty() || name == kNotesFile)
            continue;
        if (!folder.isEmpty())
            name.remove(folder);
        if (!name.isEmpty() && !matches.contains(name))
            matches << name;
    }
    return matches;
}

QStringList GrepSearch::nameMatches(const QString &notebookFolder, const QString &term,
                                    const QString &extension)
{
    QStringList matches;
    const QStringList names =
        QDir(AppPaths::expandTilde(notebookFolder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        if (name.contains(term, Qt::CaseInsensitive) &&
            EntryDirectory::pathExtension(name) == extension)
            matches << name;
    }
    return matches;
}

QStringList GrepSearch::resultList(const QStringList &content, const QStringList &names)
{
    QStringList result = content + names;
    result.removeDuplicates();
    result.sort(Qt::CaseSensitive);
    return result;
}

int GrepSearch::rowToSelect(const QStringList &result, const QString &term)
{
    int row = -1;
    const QString wanted = term.toUpper();
    for (int i = 0; i < result.size(); ++i) {
        if (EntryDirectory::deletingPathExtension(result.at(i)).toUpper() == wanted)
            row = i;
    }
    return row;
}

bool GrepSearch::isRunning() const
{
    return m_process != nullptr;
}

void GrepSearch::cancel()
{
    ++m_generation;
    endProcess();
}

void GrepSearch::endProcess()
{
    if (!m_process)
        return;
    QProcess *process = m_process;
    m_process = nullptr;
    process->disconnect(this);
    // grep runs as the shell's child: the whole group goes, or it would search on unseen.
    if (process->processId() > 0)
        ::kill(-pid_t(process->processId()), SIGKILL);
    process->kill();
    process->waitForFinished(1000);
    process->deleteLater();
}

void GrepSearch::start(const QString &notebookFolder, const QString &term, const QString &extension)
{
    cancel();
    const quint64 generation = m_generation;
    m_term = term;
    m_folder = AppPaths::expandTilde(notebookFolder);
    m_extension = extension;

    const QString script = scriptPath();
    QSaveFile file(script);
    bool written = file.open(QIODevice::WriteOnly);
    written = written && file.write(scriptText(term, extension).toUtf8()) >= 0 && file.commit();
    if (!written) {
        // Only name matches then; the result still arrives the way every result does.
        QTimer::singleShot(0, this, [this, generation] { finish(generation, {}); });
        return;
    }
    QFile::setPermissions(script, QFileDevice::Permissions(0x7777));

    auto *process = new QProcess(this);
    m_process = process;
    process->setWorkingDirectory(m_folder);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->setChildProcessModifier([] { ::setpgid(0, 0); });
    connect(process, &QProcess::finished, this, [this, process, generation] {
        const QByteArray output = process->readAllStandardOutput();
        m_process = nullptr;
        process->deleteLater();
        finish(generation, contentMatches(output, m_folder, m_extension));
    });
    connect(process, &QProcess::errorOccurred, this, [this, process, generation](auto error) {
        if (error != QProcess::FailedToStart)
            return;
        m_process = nullptr;
        process->deleteLater();
        finish(generation, {});
    });
    process->start(QStringLiteral("/bin/sh"), {script});
    process->closeWriteChannel();
}

void GrepSearch::finish(quint64 generation, const QStringList &matches)
{
    if (generation != m_generation)
        return;
    QFile::remove(scriptPath());
    Q_EMIT finished(m_term, matches);
}
