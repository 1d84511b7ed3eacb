#pragma once

#include <QString>
#include <QStringList>

#include <functional>

// Turns the text of an entry into an HTML body fragment by piping it through the converter of
// a markup language. The languages done in PHP go to one long-lived converter process shared by
// the application, or, when that cannot answer, to their filter run as a child process of its
// own like the other languages. Conversion is synchronous on the calling thread: it returns with
// the HTML. The preview converts on a thread of its own with a fresh controller per conversion;
// an export run keeps one for all its entries (the launch path carries over between calls, as
// documented on setMarkUpLanguageScriptPathForSelection).
class TaskController
{
public:
    // The programs and files a conversion may use. The defaults are the real ones; tests
    // point them at stand-ins.
    struct Tools
    {
        QString php = QStringLiteral("/usr/bin/php");
        QString perl = QStringLiteral("/usr/bin/perl");
        QString multiMarkdown = QStringLiteral("/usr/local/bin/multimarkdown");
        QString unzip = QStringLiteral("/usr/bin/unzip");
        // Where the converter scripts and "mmd.zip" live; empty means the shipped resources.
        QString converterFolder;
        // A converter still running after this long is stopped and yields "".
        int timeoutMs = 30000;
        // Asked while a converter runs; once it answers true the converter is stopped and
        // the conversion yields "" (a preview whose text was replaced meanwhile).
        std::function<bool()> cancelled;
    };

    TaskController();
    explicit TaskController(const Tools &tools);

    // Converts with a fresh controller: what the preview does for every rebuild.
    static QString convertStringWithMarkUpLanguage(int language, const QString &text);
    // Converts with this controller, keeping its launch path for the next call.
    QString convert(int language, const QString &text);
    // The HTML of a long text's first screens, which its whole HTML starts with; *whole
    // turns true when that is the whole HTML (a short text, or one that cannot be cut). A
    // null string for languages that cannot convert a part, and on failure.
    QString convertHead(int language, const QString &text, bool *whole);

    // Chooses the script and the program to start for a language number. Unknown numbers use
    // the Smark script. A missing script leaves the script path empty and the launch path as
    // it was; for MultiMarkdown the script is unpacked into the support folder on first use.
    void setMarkUpLanguageScriptPathForSelection(int language);

    QString phpScriptPath() const { return m_phpScriptPath; }
    QString phpLaunchPath() const { return m_phpLaunchPath; }

    // "~/.local/share/Vellox/mmd/" and the script unpacked there.
    static QString multiMarkdownFolder();
    static QString multiMarkdownScriptPath();

private:
    QString converterResource(const QString &fileName) const;
    void installMultiMarkdownScript();
    // Converts through the application's long-lived PHP worker when the language is done in
    // PHP; false when the text must be converted by launching its filter instead.
    bool convertWithWorker(const QString &text, QString *html,
                           const QString &keyWordSuffix = QString()) const;
    bool isCancelled() const { return m_tools.cancelled && m_tools.cancelled(); }
    static QString decodeOutput(const QByteArray &output, const QString &program);
    QString run(const QString &program, const QStringList &arguments, const QString &text,
                int language) const;

    Tools m_tools;
    QString m_phpScriptPath;
    QString m_phpLaunchPath;
};
