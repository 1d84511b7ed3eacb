#include "render/PhpCompileCache.h"
#include "render/PhpConverterWorker.h"
#include "render/TaskController.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include "core/AppPaths.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <csignal>

namespace {

// Writes an executable shell script standing in for a converter program.
QString writeTool(const QTemporaryDir &dir, const QString &name, const QByteArray &body)
{
    const QString path = dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write("#!/bin/sh\n" + body + "\n");
    file.close();
    file.setPermissions(file.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeUser);
    return path;
}

// What a PHP filter prints when started on its own, as the app does without its worker.
QString runFilter(const QString &script, const QString &text)
{
    QProcess filter;
    filter.setProcessEnvironment(PhpCompileCache::environment());
    filter.start(QStringLiteral("/usr/bin/php"), {script});
    filter.write(text.toUtf8());
    filter.closeWriteChannel();
    if (!filter.waitForFinished(30000))
        return QStringLiteral("(the filter did not finish)");
    return QString::fromUtf8(filter.readAllStandardOutput());
}

const QString kWorld = QStringLiteral("Grüße aus Köln, 日本語, Ελληνικά, emoji 😀 and ß");

} // namespace

class TestConversion : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        // A fresh home gets a fresh converter process, as a new session of the app would.
        PhpConverterWorker::instance()->stop();
        TestHome::instance()->reset();
    }

    // The long-lived worker answers exactly what the single-text filter prints, again and
    // again: nothing of one conversion carries over to the next.
    void workerMatchesTheFilters_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("source");
        addRow("markdown", 1,
               QStringLiteral("# T\n\n| a | b |\n|---|---|\n| 1 | 2 |\n\n~~x~~ https://e.org\n\n"
                              "- [x] done\n\nNote[^1]\n\n[^1]: The note.\n\n<div>raw</div>\n"));
        addRow("markdown footnotes again", 1, QStringLiteral("A[^n] B[^m]\n\n[^m]: M\n[^n]: N\n"));
        addRow("textile", 2, QStringLiteral("h1. T\n\n*s* _e_ \"l\":http://x.org\n\n|a|b|\n"));
        addRow("wikitext", 3,
               QStringLiteral("== T ==\n'''b''' ''i''\n\n{|\n| a || b\n|}\n* 1\n** 2\n"));
        addRow("bbcode malformed", 4, QStringLiteral("[b]x [i]y[/b] z [list][*]a"));
        addRow("smark", 5, QStringLiteral("\"yes\" -- then...\n\nwww.e.com\n\n~/a b.png\n"));
        for (int language = 1; language <= 6; ++language) {
            const QByteArray number = QByteArray::number(language);
            addRow(QByteArray("world " + number).constData(), language, kWorld);
            addRow(QByteArray("empty " + number).constData(), language, QString());
        }
    }

    void workerMatchesTheFilters()
    {
        QFETCH(int, language);
        QFETCH(QString, source);
        TaskController controller;
        controller.setMarkUpLanguageScriptPathForSelection(language);
        const QString expected = runFilter(controller.phpScriptPath(), source);

        for (int round = 0; round < 2; ++round) {
            QCOMPARE(TaskController::convertStringWithMarkUpLanguage(language, source), expected);
            QVERIFY(PhpConverterWorker::instance()->processId() != 0);
        }
    }

    // Long texts are converted in runs of blocks, and runs seen before are not converted
    // again; the page must still be exactly what converting the text in one piece gives,
    // before and after an edit, whatever ties blocks together across blank lines.
    void longTextsConvertAsOnePieceDoes_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("passage");
        // Every line numbered, so that over the days each of them comes to stand where a
        // run could begin.
        addRow("loose lists and quotes", 1,
               QStringLiteral("Day %1\n=====\n\n- one %1\n\n- two %1\n\n  still two %1\n\n"
                              "> said %1\n\n> and more %1\n\n1. first %1\n\n2) other %1\n\n"
                              "After %1.\n\n"));
        addRow("fences and code", 1,
               QStringLiteral("## Day %1\n\n```\ncode %1\n\n\nnot a heading %1\n# still %1\n"
                              "```\n\n    indented %1\n\n    code %1\n\n~~~~\n```\n\n%1\n~~~~"
                              "\n\n| a | b |\n|---|---|\n| %1 | x |\n\n"));
        addRow("smark images and quotes", 5,
               QStringLiteral("\"Day\" %1 -- ok...\n\n~/pics/a %1.png\n\n* * *\n\n- [ ] t %1\n\n"
                              "+ item %1\n\n"));
        addRow("fence left open", 1, QStringLiteral("Day %1\n\n```\nopen fence %1\n\nText %1\n\n"));
    }

    void longTextsConvertAsOnePieceDoes()
    {
        QFETCH(int, language);
        QFETCH(QString, passage);
        TaskController controller;
        controller.setMarkUpLanguageScriptPathForSelection(language);
        const QString library =
            QFileInfo(controller.phpScriptPath()).absolutePath() + QStringLiteral("/lib/");
        const auto inOnePiece = [&](const QString &text) {
            QProcess php;
            php.start(QStringLiteral("/usr/bin/php"),
                      {QStringLiteral("-r"),
                       QStringLiteral("require '%1commonmark.php'; echo vellox_commonmark_convert("
                                      "stream_get_contents(STDIN), %2);")
                           .arg(library, language == 5 ? "true" : "false")});
            php.write(text.toUtf8());
            php.closeWriteChannel();
            return php.waitForFinished(60000) ? QString::fromUtf8(php.readAllStandardOutput())
                                              : QStringLiteral("(php did not finish)");
        };
        QString text;
        for (int day = 0; text.size() < 40000; ++day)
            text += passage.arg(day);
        QString edited = text;
        edited.insert(edited.size() / 2, QStringLiteral("\n\nNew paragraph\n\n- item"));

        QCOMPARE(TaskController::convertStringWithMarkUpLanguage(language, text), inOnePiece(text));
        QCOMPARE(TaskController::convertStringWithMarkUpLanguage(language, edited),
                 inOnePiece(edited));
    }

    // A worker that cannot answer costs one log line and the time limit, never the text.
    void brokenWorkerFallsBackToTheFilter_data()
    {
        QTest::addColumn<QByteArray>("worker");
        QTest::addColumn<QString>("logged");
        QTest::addColumn<int>("timeoutMs");
        addRow("hangs", QByteArray("exec sleep 60"), QString("did not answer within 2000 ms"),
               2000);
        // The other faults are seen at once; the long limit is for the filter run after them
        // on a busy machine.
        addRow("answers garbage",
               QByteArray("printf 'this is not the reply you expected'; exec sleep 60"),
               QString("not a reply"), 20000);
        addRow("announces less than it sends",
               QByteArray("head -c 14 >/dev/null; printf '0 2\\nabc'; exec sleep 60"),
               QString("more than it announced"), 20000);
        addRow("exits at once", QByteArray("exit 3"), QString("stopped before answering"), 20000);
    }

    void brokenWorkerFallsBackToTheFilter()
    {
        QFETCH(QByteArray, worker);
        QFETCH(QString, logged);
        QFETCH(int, timeoutMs);
        QTemporaryDir dir;
        TaskController::Tools tools;
        tools.php = writeTool(dir, QStringLiteral("php"),
                              "case \"$*\" in *worker.php) " + worker +
                                  ";; esac\n"
                                  "exec /usr/bin/php \"$@\"");
        tools.timeoutMs = timeoutMs;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(logged));
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(TaskController(tools).convert(1, QStringLiteral("*a*")),
                 QStringLiteral("<p><em>a</em></p>\n"));
        QVERIFY(timer.elapsed() < 10000);
        QCOMPARE(PhpConverterWorker::instance()->processId(), 0);
    }

    void killedWorkerIsReplaced()
    {
        QCOMPARE(TaskController::convertStringWithMarkUpLanguage(4, QStringLiteral("[b]a[/b]")),
                 QStringLiteral("<p><strong>a</strong></p>\n"));
        const qint64 first = PhpConverterWorker::instance()->processId();
        QVERIFY(first != 0);
        ::kill(pid_t(first), SIGKILL);
        // Whether the death is noticed before or while the next text is sent, the text arrives.
        for (int i = 0; i < 2; ++i)
            QCOMPARE(TaskController::convertStringWithMarkUpLanguage(4, kWorld),
                     QStringLiteral("<p>") + kWorld + QStringLiteral("</p>\n"));
        const qint64 second = PhpConverterWorker::instance()->processId();
        QVERIFY(second != 0 && second != first);
    }

    void workerRoundTripsFourMegabytesAndIsRenewed()
    {
        QVERIFY(!TaskController::convertStringWithMarkUpLanguage(6, QStringLiteral("x")).isEmpty());
        const qint64 first = PhpConverterWorker::instance()->processId();
        QString source;
        while (source.size() < 4 * 1024 * 1024)
            source += kWorld + QStringLiteral("\n");
        QCOMPARE(TaskController::convertStringWithMarkUpLanguage(6, source), source);
        QCOMPARE(PhpConverterWorker::instance()->processId(), first);

        for (int i = 2; i < PhpConverterWorker::kConversionsPerProcess; ++i)
            TaskController::convertStringWithMarkUpLanguage(6, QStringLiteral("x"));
        QCOMPARE(PhpConverterWorker::instance()->processId(), first);
        QCOMPARE(TaskController::convertStringWithMarkUpLanguage(6, kWorld), kWorld);
        QVERIFY(PhpConverterWorker::instance()->processId() != first);
    }

    // Our own BBCode converter: malformed markup stays visible and the page stays well formed.
    void bbcodeKeepsWhatIsNotMarkup_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("html");
        addRow("unclosed inline", "[b]never closed [i]x[/i]",
               "<p>[b]never closed <em>x</em></p>\n");
        addRow("script link refused", "[url]javascript:alert(1)[/url] [url=javascript:x]t[/url]",
               "<p>[url]javascript:alert(1)[/url] [url=javascript:x]t[/url]</p>\n");
        addRow("style injection refused",
               "[color=red;background:url(x)]c[/color] [size=9999]s[/size]",
               "<p>[color=red;background:url(x)]c[/color] [size=9999]s[/size]</p>\n");
        addRow("quote ends bold, its close tag is consumed", "[b]x[quote]q[/quote]y[/b]",
               "<p><strong>x</strong></p>\n<blockquote>\n<p>q</p>\n</blockquote>\n<p>y</p>\n");
        addRow("paragraphs and line breaks", "one\ntwo\n\n\nthree & <four>",
               "<p>one<br />\ntwo</p>\n<p>three &amp; &lt;four&gt;</p>\n");
    }

    void bbcodeKeepsWhatIsNotMarkup()
    {
        QFETCH(QString, source);
        QFETCH(QString, html);
        QCOMPARE(TaskController::convertStringWithMarkUpLanguage(4, source), html);
    }

    void everyConverterKeepsEveryWord_data()
    {
        QTest::addColumn<int>("language");
        for (int language = 1; language <= 7; ++language)
            addRow(qPrintable(QString::number(language)), language);
    }

    void everyConverterKeepsEveryWord()
    {
        QFETCH(int, language);
        QString html = TaskController::convertStringWithMarkUpLanguage(
            language, QStringLiteral("First paragraph\n\n") + kWorld + QStringLiteral("\n"));
        QVERIFY2(html.contains(kWorld), qPrintable(html));
        QVERIFY(html.contains(QStringLiteral("First paragraph")));

        // Far more than a pipe holds, so the output is read while input is still being written.
        QString source;
        int paragraphs = 0;
        while (source.size() < 300 * 1024)
            source +=
                QStringLiteral("Paragraph number %1 of a long entry with plain words in it.\n\n")
                    .arg(++paragraphs);
        source += QStringLiteral("The very last words.\n");
        html = TaskController::convertStringWithMarkUpLanguage(language, source);
        QVERIFY(html.contains(QStringLiteral("Paragraph number 1 of")));
        QVERIFY(html.contains(QStringLiteral("Paragraph number %1 of").arg(paragraphs)));
        QVERIFY(html.contains(QStringLiteral("The very last words.")));

        // An empty entry gives an empty fragment; Textile and wikitext are not held to it.
        if (language != 2 && language != 3)
            QCOMPARE(TaskController::convertStringWithMarkUpLanguage(language, QString()).trimmed(),
                     QString());
    }

    void unknownNumbersUseSmark()
    {
        for (int language : {0, 8, -3}) {
            TaskController controller;
            const QString html = controller.convert(language, QStringLiteral("\"quoted\""));
            QVERIFY(controller.phpScriptPath().endsWith(QStringLiteral("/smark.php")));
            QCOMPARE(controller.phpLaunchPath(), QStringLiteral("/usr/bin/php"));
            QVERIFY2(html.contains(QStringLiteral("“quoted”")), qPrintable(html));
        }
    }

    void multiMarkdownIsUnpackedOnFirstUseOnly()
    {
        const QString folder = TaskController::multiMarkdownFolder();
        const QString script = TaskController::multiMarkdownScriptPath();
        QCOMPARE(folder, AppPaths::supportFolder() + QStringLiteral("/mmd/"));
        QVERIFY(!QFileInfo::exists(folder));

        TaskController first;
        QVERIFY(
            first.convert(7, QStringLiteral("*hello*")).contains(QStringLiteral("<em>hello</em>")));
        QCOMPARE(first.phpLaunchPath(), QStringLiteral("/usr/bin/perl"));
        QCOMPARE(first.phpScriptPath(), script);
        QVERIFY(QFileInfo::exists(script));
        QVERIFY(QFileInfo::exists(folder + QStringLiteral("mmd.zip")));

        // Later conversions use the unpacked script as it stands, without unpacking again.
        QFile file(script);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("print \"replaced\";\n");
        file.close();
        QCOMPARE(TaskController::convertStringWithMarkUpLanguage(7, QStringLiteral("x")),
                 QStringLiteral("replaced"));
    }

    void installedMultiMarkdownToolReadsStandardInput()
    {
        QTemporaryDir dir;
        TaskController::Tools tools;
        tools.multiMarkdown =
            writeTool(dir, QStringLiteral("multimarkdown"), "echo \"arguments: $#\"; cat");
        TaskController controller(tools);
        QCOMPARE(controller.convert(7, kWorld), QStringLiteral("arguments: 0\n") + kWorld);
        QCOMPARE(controller.phpLaunchPath(), tools.multiMarkdown);
        QCOMPARE(controller.phpScriptPath(), QStringLiteral("mmd.pl"));
        QVERIFY(!QFileInfo::exists(TaskController::multiMarkdownScriptPath()));

        // The Markdown script's extension brings the launch path back to PHP.
        QVERIFY(
            controller.convert(1, QStringLiteral("*a*")).contains(QStringLiteral("<em>a</em>")));
        QCOMPARE(controller.phpLaunchPath(), QStringLiteral("/usr/bin/php"));
    }

    // A missing program, script or archive costs an empty page and a log line naming it.
    void missingPiecesGiveEmptyTextAndALogLine_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("missing");
        QTest::addColumn<QStringList>("logged");
        addRow("interpreter", 1, QString("php"), QStringList{"/nonexistent/php is missing"});
        addRow("script", 1, QString("folder"), QStringList{"\"markdown.php\" is missing"});
        addRow("unzip", 7, QString("unzip"),
               QStringList{"/nonexistent/unzip is missing", "MultiMarkdown.pl is missing"});
    }

    void missingPiecesGiveEmptyTextAndALogLine()
    {
        QFETCH(int, language);
        QFETCH(QString, missing);
        QFETCH(QStringList, logged);
        QTemporaryDir dir;
        TaskController::Tools tools;
        if (missing == QLatin1String("php"))
            tools.php = QStringLiteral("/nonexistent/php");
        else if (missing == QLatin1String("unzip"))
            tools.unzip = QStringLiteral("/nonexistent/unzip");
        else
            tools.converterFolder = dir.path();
        for (const QString &line : logged)
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QRegularExpression::escape(line)));
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(TaskController(tools).convert(language, QStringLiteral("text")), QString());
        QVERIFY(timer.elapsed() < 5000);
    }

    void converterWritingBeforeReadingDoesNotDeadlock()
    {
        QTemporaryDir dir;
        TaskController::Tools tools;
        // One megabyte of output before the first byte of input is read.
        tools.multiMarkdown = writeTool(dir, QStringLiteral("multimarkdown"),
                                        "head -c 1048576 /dev/zero | tr '\\000' x; cat");
        tools.timeoutMs = 60000;
        const QString input(4 * 1024 * 1024, QLatin1Char('y'));
        const QString html = TaskController(tools).convert(7, input);
        QCOMPARE(html.size(), 1048576 + input.size());
        QVERIFY(html.startsWith(QStringLiteral("xxx")));
        QVERIFY(html.endsWith(QStringLiteral("yyy")));
    }

    // A preview whose text was replaced stops its converter at once, without a log line and
    // without converting the text again another way.
    void cancelledConversionStopsItsConverter_data()
    {
        QTest::addColumn<bool>("throughWorker");
        addRow("filter", false);
        addRow("PHP worker", true);
    }

    void cancelledConversionStopsItsConverter()
    {
        QFETCH(bool, throughWorker);
        QTemporaryDir dir;
        const QString started = dir.filePath(QStringLiteral("started"));
        const QByteArray hang = "touch '" + started.toUtf8() + "'; exec sleep 60";
        TaskController::Tools tools;
        if (throughWorker)
            tools.php = writeTool(dir, QStringLiteral("php"),
                                  "case \"$*\" in *worker.php) " + hang +
                                      ";; esac\nexec /usr/bin/php \"$@\"");
        else
            tools.multiMarkdown = writeTool(dir, QStringLiteral("multimarkdown"), hang);
        tools.cancelled = [&] { return QFileInfo::exists(started); };
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(TaskController(tools).convert(throughWorker ? 1 : 7, QStringLiteral("*x*")),
                 QString());
        QVERIFY(timer.elapsed() < 5000);
        QCOMPARE(PhpConverterWorker::instance()->processId(), 0);
    }

    // The worker's process belongs to one thread: a conversion thread gets its own, which
    // ends with the thread.
    void everyThreadConvertsWithItsOwnWorker()
    {
        QCOMPARE(TaskController::convertStringWithMarkUpLanguage(4, QStringLiteral("[b]a[/b]")),
                 QStringLiteral("<p><strong>a</strong></p>\n"));
        const qint64 mainWorker = PhpConverterWorker::instance()->processId();
        qint64 threadWorker = 0;
        QString html;
        QThread *thread = QThread::create([&] {
            html = TaskController::convertStringWithMarkUpLanguage(4, QStringLiteral("[i]b[/i]"));
            threadWorker = PhpConverterWorker::instance()->processId();
        });
        thread->start();
        QVERIFY(thread->wait(30000));
        delete thread;
        QCOMPARE(html, QStringLiteral("<p><em>b</em></p>\n"));
        QVERIFY(threadWorker != 0 && threadWorker != mainWorker);
        QCOMPARE(PhpConverterWorker::instance()->processId(), mainWorker);
        // Gone with its thread: no PHP process is left behind.
        QTRY_VERIFY(!QFileInfo::exists(QStringLiteral("/proc/%1").arg(threadWorker)) ||
                    readBytes(QStringLiteral("/proc/%1/stat").arg(threadWorker)).contains(") Z"));
    }

    void brokenConvertersAreReported_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<int>("timeoutMs");
        QTest::addColumn<QString>("logged");
        QTest::addColumn<QString>("result");
        addRow("hanging is stopped", QByteArray("exec sleep 60"), 300, QString("did not finish"),
               QString());
        addRow("failing keeps its output", QByteArray("cat >/dev/null; printf partial; exit 3"),
               30000, QString("failed with status 3"), QString("partial"));
        addRow("output that is not UTF-8 gives no text",
               QByteArray("cat >/dev/null; printf 'ok \\377'"), 30000, QString("not UTF-8"),
               QString());
    }

    void brokenConvertersAreReported()
    {
        QFETCH(QByteArray, script);
        QFETCH(int, timeoutMs);
        QFETCH(QString, logged);
        QFETCH(QString, result);
        QTemporaryDir dir;
        TaskController::Tools tools;
        tools.multiMarkdown = writeTool(dir, QStringLiteral("multimarkdown"), script);
        tools.timeoutMs = timeoutMs;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(logged));
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(TaskController(tools).convert(7, QStringLiteral("x")), result);
        QVERIFY(timer.elapsed() < 10000);
    }
};

VELLOX_TEST_MAIN(TestConversion)
#include "tst_conversion.moc"
