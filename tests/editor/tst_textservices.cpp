#include "core/PropertyList.h"
#include "core/UserDefaults.h"
#include "editor/SpellChecker.h"
#include "editor/TabActionStore.h"
#include "editor/widgets/TextServices.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "editor/widgets/WordCompleter.h"
#include "support/TestHome.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>
#include <QMenu>
#include <QTextBlock>
#include <QThreadPool>
#include <QtTest>

#include <memory>

// Spelling, dashes and links on a real editor, offscreen, with the installed dictionaries.
class TestTextServices : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<UserDefaults> defaults;
    std::unique_ptr<Vellox_EnhancedTextView> view;

    QStringList underlined(int blockNumber)
    {
        const QTextBlock block = view->document()->findBlockByNumber(blockNumber);
        QStringList words;
        for (const auto &range : block.layout()->formats())
            if (range.format.underlineStyle() == QTextCharFormat::SpellCheckUnderline)
                words << block.text().mid(range.start, range.length);
        return words;
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        defaults = std::make_unique<UserDefaults>(TestHome::instance()->path() + "/ts.conf");
        defaults->registerDefaults(UserDefaults::defaultsTable());
        defaults->setValue(Settings::TextViewDashSubstitution, 1);
        view = std::make_unique<Vellox_EnhancedTextView>(*defaults);
        view->resize(500, 300);
        view->show();
        view->setFocus();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }
    void cleanup()
    {
        view.reset();
        defaults.reset();
    }

    void wordsSkipNumbersIdentifiersAndSingleLetters()
    {
        const QString text = "It's don’t a x_y abc123 Zürich 'quoted'";
        QStringList found;
        for (const auto &w : SpellChecker::words(text))
            found << text.mid(w.first, w.second);
        QCOMPARE(found, (QStringList{"It's", "don’t", "Zürich", "quoted"}));
    }

    void misspellingIsMarkedAndFixedFromTheMenu()
    {
        if (!SpellChecker(QStringLiteral("en_US")).isAvailable())
            QSKIP("No English dictionary installed (Debian: hunspell-en-us); spelling untested");
        QTest::keyClicks(view.get(), "Thiss line has a wrod");
        QCOMPARE(underlined(0), (QStringList{"Thiss", "wrod"}));

        const int at = int(view->string().indexOf("wrod")) + 1;
        QMenu menu;
        menu.addAction("placeholder");
        view->textServices()->addSpellingActions(&menu, at);
        QAction *word = nullptr;
        for (QAction *a : menu.actions())
            if (a->text() == "word")
                word = a;
        QVERIFY2(word, "\"word\" is among the suggestions for \"wrod\"");
        word->trigger();
        QCOMPARE(view->string(), QString("Thiss line has a word"));
        QCOMPARE(underlined(0), QStringList{"Thiss"});

        QMenu again;
        view->textServices()->addSpellingActions(&again, 2);
        QAction *learn = again.findChild<QAction *>("spellingLearn");
        QVERIFY(learn);
        learn->trigger();
        QCOMPARE(underlined(0), QStringList());

        // Switched off, nothing is marked.
        QTest::keyClicks(view.get(), " zzxq");
        QCOMPARE(underlined(0), QStringList{"zzxq"});
        defaults->setValue(Settings::TextViewCheckSpelling, 0);
        view->setTextViewLayout();
        QCOMPARE(underlined(0), QStringList());
    }

    void doubleHyphensBecomeDashesBetweenWords()
    {
        QTest::keyClicks(view.get(), "a -- b, x--y, --flag ---");
        QCOMPARE(view->string(), QString("a \u2014 b, x\u2014y, --flag ---"));
        view->setString(QString());
        QTest::keyClicks(view.get(), "a -- ");
        view->undo();
        QCOMPARE(view->string(), QString("a -- "));
    }

    void abbreviationsCompleteTheWordBeforeTheCaret()
    {
        QVERIFY(PropertyList::write(
            TabActionStore::internalPath(),
            QVariantMap{{"signature", "x"}, {"Sig", "y"}, {"sign", "z"}, {"other", "w"}}));
        QTest::keyClicks(view.get(), "to sig");
        WordCompleter *completer = view->wordCompleter();
        QCOMPARE(view->completionsForPartialWordRange(completer->rangeForUserCompletion()),
                 (QStringList{"sign", "signature"}));

        view->complete();
        QAbstractItemView *popup = completer->completer()->popup();
        QVERIFY(popup->isVisible());
        QCOMPARE(popup->model()->rowCount(), 2);
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(view->string(), QString("to signature"));

        // Typing on narrows the list, and closes it when nothing fits.
        QTest::keyClicks(view.get(), " S");
        view->complete();
        QVERIFY(popup->isVisible());
        QTest::keyClicks(view.get(), "x");
        QVERIFY(!popup->isVisible());
        QCOMPARE(view->string(), QString("to signature Sx"));
    }

    void linksAreFoundWhereTheyAre()
    {
        defaults->setValue(Settings::TextViewLinkDetection, 1);
        view->setTextViewLayout();
        view->setString("see https://example.org/a_b. or www.debian.org");
        TextServices *services = view->textServices();
        QCOMPARE(services->linkAt(8), QString("https://example.org/a_b"));
        QCOMPARE(services->linkAt(40), QString("www.debian.org"));
        QCOMPARE(services->linkAt(1), QString());
    }

    // A long text arrives after the window went on; only what is on screen gets marks, the
    // rest when it is scrolled to; and a text replaced while still loading never comes back.
    void longTextsAreMarkedWhereTheyAreSeen()
    {
        if (!SpellChecker(QStringLiteral("en_US")).isAvailable())
            QSKIP("No English dictionary installed (Debian: hunspell-en-us); spelling untested");
        QString text;
        for (int i = 0; text.size() < 700 * 1024; ++i)
            text += QStringLiteral("Line %1 has a wrod in it\n").arg(i);
        text += QStringLiteral("Last line with a mistaek");
        const int lastBlock = int(text.count(u'\n'));
        defaults->setValue(Settings::TextViewCheckSpelling, 1);
        view->setTextViewLayout();

        view->setString(text);
        QVERIFY(view->isLoading());
        QCOMPARE(view->string(), text);
        QVERIFY(QTest::qWaitFor([this] { return !view->isLoading(); }, 20000));
        QCOMPARE(view->document()->toPlainText(), text);
        QVERIFY(QTest::qWaitFor([this] { return underlined(0) == QStringList{"wrod"}; }));
        QCOMPARE(underlined(lastBlock), QStringList());

        QTest::keyClick(view.get(), Qt::Key_End, Qt::ControlModifier);
        QVERIFY(QTest::qWaitFor([&] { return underlined(lastBlock) == QStringList{"mistaek"}; }));

        view->setString(text + "x");
        view->setString("short");
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        QCOMPARE(view->string(), QString("short"));
        QCOMPARE(view->document()->toPlainText(), QString("short"));
    }
};

VELLOX_TEST_MAIN(TestTextServices)
#include "tst_textservices.moc"
