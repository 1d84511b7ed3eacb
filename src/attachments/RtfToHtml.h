#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class QProcess;

// Reads an RTF file (or the text of an RTFD package) as HTML for a rich text view, through
// pandoc's RTF reader in a child process, without blocking. A newer request replaces the one
// still running.
class RtfToHtml : public QObject
{
    Q_OBJECT
public:
    explicit RtfToHtml(QObject *parent = nullptr);
    ~RtfToHtml() override;

    static QString program();
    // The RTF inside an RTFD package ("TXT.rtf"), or the path itself for an RTF file.
    static QString rtfFileOf(const QString &path);
    void convert(const QString &path);

Q_SIGNALS:
    // ok false: pandoc is missing or could not read the file; error says why.
    void converted(const QString &path, bool ok, const QString &html, const QString &error);

private:
    void stop();
    QPointer<QProcess> m_process;
};
