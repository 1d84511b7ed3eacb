// Typing a word in the middle of a 1 MB entry with spelling checked against the same entry
// without: checking follows the screen, so a key must cost about the same (goal < 2 ms).
#include "core/UserDefaults.h"
#include "editor/SpellChecker.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {
QString prose(qsizetype bytes)
{
    const QString paragraph = QStringLiteral(
        "Yesterday we walked along the river until the light faded, talking about the "
        "garden, the neighbours and a recipe for plum cake that nobody remembered.\n");
    QString text;
    text.reserve(bytes + paragraph.size());
    while (text.size() < bytes)
        text += paragraph;
    return text;
}

// Median milliseconds of one typed key, keys sent to the widget as a user types them.
double medianKey(UserDefaults &defaults, bool spelling, const QString &text, int rounds,
                 double *loadMs)
{
    defaults.setValue(Settings::TextViewCheckSpelling, spelling ? 1 : 0);
    Vellox_EnhancedTextView view(defaults);
    view.resize(700, 500);
    view.show();
    QElapsedTimer timer;
    timer.start();
    view.setString(text);
    QCoreApplication::processEvents();
    *loadMs = double(timer.nsecsElapsed()) / 1e6;
    view.setSelectedRange(int(text.size() / 2), 0);
    view.centerCursor();
    QCoreApplication::processEvents();
    const QString keys = QStringLiteral("thoughtful wrods ");
    std::vector<double> samples;
    for (int i = 0; i < rounds; ++i) {
        const QChar key = keys.at(i % keys.size());
        timer.start();
        QTest::keyClick(&view, key.toLatin1());
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
    defaults.registerDefaults(UserDefaults::defaultsTable());
    SpellChecker probe;
    out << "dictionary: " << (probe.isAvailable() ? probe.language() : QStringLiteral("none"))
        << "\n";
    const QString text = prose(1'000'000);
    const int rounds = 300;
    double loadOff = 0;
    double loadOn = 0;
    const double off = medianKey(defaults, false, text, rounds, &loadOff);
    const double on = medianKey(defaults, true, text, rounds, &loadOn);
    out << QStringLiteral("1 MB entry, median key of %1: spelling off %2 ms, on %3 ms "
                          "(goal < 2 ms); load %4 ms off, %5 ms on\n")
               .arg(rounds)
               .arg(off, 0, 'f', 3)
               .arg(on, 0, 'f', 3)
               .arg(loadOff, 0, 'f', 1)
               .arg(loadOn, 0, 'f', 1);
    return 0;
}
