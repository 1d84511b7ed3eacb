// Enter on a list line at the end of entries of growing size: the typing engine's work must
// follow the caret's line, not the text. Prints one line per size and path.
#include "core/UserDefaults.h"
#include "editor/DocumentTextBuffer.h"
#include "editor/StringTextBuffer.h"
#include "editor/TextEditorModel.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {
QString entryOfSize(qsizetype bytes)
{
    const QString line = QStringLiteral("- an item of a long list, with some words in it\n");
    QString text;
    text.reserve(bytes + line.size());
    while (text.size() < bytes)
        text += line;
    return text + QStringLiteral("- last");
}

// Median milliseconds of one Enter, typed after a letter at the end of the text.
double medianEnter(TextEditorModel &model, int rounds)
{
    std::vector<double> samples;
    QElapsedTimer timer;
    for (int i = 0; i < rounds; ++i) {
        model.setSelectedRange({model.length(), 0});
        model.insertText(QStringLiteral("x"));
        timer.start();
        model.insertText(QStringLiteral("\n"));
        samples.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(samples.begin(), samples.end());
    return samples[samples.size() / 2];
}
} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTextStream out(stdout);
    QTemporaryDir settingsDir;
    UserDefaults defaults(settingsDir.filePath(QStringLiteral("bench.conf")));
    const int rounds = 200;
    out << "Enter on a list line at the end of the entry, median of " << rounds
        << " (goal < 0.5 ms,"
        << " flat from 10 KB to 10 MB)\n";
    for (qsizetype size :
         {qsizetype(10'000), qsizetype(100'000), qsizetype(1'000'000), qsizetype(10'000'000)}) {
        const QString text = entryOfSize(size);

        TextEditorModel onString(std::make_unique<StringTextBuffer>(text));
        const double stringMs = medianEnter(onString, rounds);

        QTextDocument document;
        document.setPlainText(text);
        TextEditorModel onDocument(std::make_unique<DocumentTextBuffer>(&document));
        const double documentMs = medianEnter(onDocument, rounds);

        Vellox_EnhancedTextView view(defaults);
        view.resize(600, 400);
        view.show();
        view.setString(text);
        const double viewMs = medianEnter(view.model(), rounds);

        out << QStringLiteral("%1 KB: string %2 ms, document %3 ms, editor widget %4 ms\n")
                   .arg(size / 1000, 6)
                   .arg(stringMs, 0, 'f', 4)
                   .arg(documentMs, 0, 'f', 4)
                   .arg(viewMs, 0, 'f', 4);
        out.flush();
    }
    return 0;
}
