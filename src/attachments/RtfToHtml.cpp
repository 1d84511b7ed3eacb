#include "RtfToHtml.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

RtfToHtml::RtfToHtml(QObject *parent)
    : QObject(parent)
{}

RtfToHtml::~RtfToHtml()
{
    stop();
}

QString RtfToHtml::program()
{
    return QStandardPaths::findExecutable(QStringLiteral("pandoc"));
}

QString RtfToHtml::rtfFileOf(const QString &path)
{
    if (QFileInfo(path).isDir())
        return path + QStringLiteral("/TXT.rtf");
    return path;
}

void RtfToHtml::stop()
{
    if (!m_process)
        return;
    m_process->disconnect(this);
    m_process->kill();
    m_process->waitForFinished(1000);
    m_process->deleteLater();
    m_process = nullptr;
}

void RtfToHtml::convert(const QString &path)
{
    stop();
    const QString pandoc = program();
    if (pandoc.isEmpty()) {
        //% "Rich text cannot be shown: pandoc is not installed."
        Q_EMIT converted(path, false, QString(), qtTrId("ATTACHMENT_RTF_NO_READER"));
        return;
    }
    auto *process = new QProcess(this);
    m_process = process;
    connect(process, &QProcess::finished, this, [this, process, path](int code) {
        const QByteArray html = process->readAllStandardOutput();
        const QString error = QString::fromUtf8(process->readAllStandardError()).trimmed();
        if (m_process == process)
            m_process = nullptr;
        process->deleteLater();
        Q_EMIT converted(path, code == 0, QString::fromUtf8(html), error);
    });
    connect(process, &QProcess::errorOccurred, this,
            [this, process, path](QProcess::ProcessError e) {
                if (e != QProcess::FailedToStart)
                    return;
                if (m_process == process)
                    m_process = nullptr;
                process->deleteLater();
                Q_EMIT converted(path, false, QString(), process->errorString());
            });
    process->start(pandoc,
                   {QStringLiteral("--from=rtf"), QStringLiteral("--to=html"), rtfFileOf(path)});
}
