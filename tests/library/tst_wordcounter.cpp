#include "core/UserDefaults.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "library/WordCounter.h"
#include "library/widgets/EntryController.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

// The "words:characters" counter: its separators, and a long entry counted beside the window.
class TestWordCounter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Alert::setResponder([](const AlertRequest &) { return 0; });
    }

    void cleanupTestCase() { Alert::setResponder({}); }

    // Whitespace and line breaks of every script separate words, whether or not the
    // character is ASCII; nothing else does.
    void separatorsAreExactlyTheWhitespace()
    {
        for (int u = 1; u <= 0xFFFF; ++u) {
            const QChar c{char16_t(u)};
            if (c.isSurrogate())
                continue;
            const QString text = QStringLiteral("a") + c + QStringLiteral("b");
            QVERIFY2(WordCounter::words(text) == (c.isSpace() ? 2 : 1),
                     qPrintable(QString::number(u, 16)));
        }
        QCOMPARE(WordCounter::counterText(QStringLiteral("two  blanks\n")), QString("4:12"));
    }

    void longEntryIsCountedAndTheNewestCountWins()
    {
        TestHome::instance()->reset();
        QTemporaryDir dir;
        const QString notebook = dir.path() + "/";
        // "Tag, ä" and nine more words a line: nine blanks and a line break each.
        const QByteArray line = "Ein langer Tag, und noch ein Satz dazu \xC3\xA4 ok\n";
        const int lines = 20000;
        writeBytes(notebook + "Long.txt", line.repeated(lines));
        writeBytes(notebook + "Short.txt", "Only three words");
        const int lineChars = int(QString::fromUtf8(line).size());

        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *editor = new Vellox_EnhancedTextView(UserDefaults::standard());
        auto *title = new QLineEdit;
        auto *list = new QListView;
        auto *counter = new QLabel;
        layout->addWidget(title);
        layout->addWidget(list);
        layout->addWidget(editor);
        layout->addWidget(counter);
        EntryController controller(editor, title, list, counter, UserDefaults::standard());
        window.show();
        controller.setNotebookPath(notebook);
        auto select = [&](const QString &name) {
            const int row = int(controller.listofFiles().indexOf(name));
            list->selectionModel()->setCurrentIndex(list->model()->index(row, 0),
                                                    QItemSelectionModel::ClearAndSelect);
            QCOMPARE(controller.selectedFileName(), name);
        };

        const QString longCount =
            QStringLiteral("%1:%2").arg(1 + 10 * lines).arg(lineChars * lines);
        select("Long.txt");
        QTRY_COMPARE(counter->text(), longCount);

        // Typing in it is counted again, by the same way.
        editor->setFocus();
        QTest::keyClick(editor, Qt::Key_Space);
        QTRY_COMPARE(counter->text(),
                     QStringLiteral("%1:%2").arg(2 + 10 * lines).arg(lineChars * lines + 1));
        QVERIFY(controller.flushPendingSave());

        // Left before its count is done: the short entry's count stays.
        select("Short.txt");
        select("Long.txt");
        select("Short.txt");
        QCOMPARE(counter->text(), QString("3:16"));
        QTest::qWait(400);
        QCOMPARE(counter->text(), QString("3:16"));
    }
};

VELLOX_TEST_MAIN(TestWordCounter)
#include "tst_wordcounter.moc"
