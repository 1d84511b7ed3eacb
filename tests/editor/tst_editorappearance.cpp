#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/InsertionPoint.h"
#include "editor/widgets/LineNumberGutter.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "support/TestHome.h"

#include <QScrollBar>
#include <QtTest>

#include <memory>

// The editor's look on a real editor, offscreen: what the settings change on screen.
class TestEditorAppearance : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<UserDefaults> defaults;
    std::unique_ptr<Vellox_EnhancedTextView> view;

    void relayout()
    {
        NotificationCenter::defaultCenter().post(Notifications::TextViewAttributesChanged, nullptr);
    }
    QRect caretAt(int position)
    {
        view->setSelectedRange(position, 0);
        return view->cursorRect();
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        defaults = std::make_unique<UserDefaults>(TestHome::instance()->path() + "/look.conf");
        defaults->registerDefaults(UserDefaults::defaultsTable());
        view = std::make_unique<Vellox_EnhancedTextView>(*defaults);
        view->resize(400, 300);
        view->show();
        view->setFocus();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }
    void cleanup()
    {
        view.reset();
        defaults.reset();
        QFile::remove(TestHome::instance()->path() + "/look.conf");
    }

    void marginsAndSpacingMoveTheLines()
    {
        defaults->setValue(Settings::TextViewLineSpacing, 0);
        defaults->setValue(Settings::TextViewParagraphSpacing, 0);
        defaults->setValue(Settings::TextViewHeadlineIndention, 0);
        defaults->setValue(Settings::TextViewMarginSpacing, -5);
        relayout();
        view->setString("first\nsecond\nthird");
        const QRect plain0 = caretAt(0);
        const QRect plain1 = caretAt(6);
        // A negative margin is no margin: the first line starts at the viewport's edge.
        QCOMPARE(plain0.left(), 0);
        const int lineHeight = plain1.top() - plain0.top();
        QVERIFY(lineHeight > 0);

        defaults->setValue(Settings::TextViewMarginSpacing, 20);
        defaults->setValue(Settings::TextViewHeadlineIndention, 15);
        defaults->setValue(Settings::TextViewParagraphSpacing, 6);
        defaults->setValue(Settings::TextViewLineSpacing, 4);
        relayout();
        const QRect spaced0 = caretAt(0);
        const QRect spaced1 = caretAt(6);
        QCOMPARE(spaced0.left(), 20 + 15);
        // Each paragraph: 6 above, the line, 4 below it.
        QCOMPARE(spaced1.top() - spaced0.top(), lineHeight + 6 + 4);

        // A paragraph typed later is spaced the same way.
        view->setSelectedRange(int(view->string().size()), 0);
        QTest::keyClick(view.get(), Qt::Key_Return);
        QTest::keyClicks(view.get(), "fourth");
        const QRect third = caretAt(13);
        const QRect fourth = caretAt(int(view->string().size()));
        QCOMPARE(fourth.top() - third.top(), lineHeight + 6 + 4);
    }

    void caretFollowsShapeAndColourSettings()
    {
        defaults->setValue(Settings::TextViewFontColor, QColor("#ff336699"));
        defaults->setValue(Settings::TextViewCursorColorSelection, QColor("#ffcc0000"));
        defaults->setValue(Settings::TextViewCursorColorChoose, 0);
        relayout();
        QCOMPARE(view->insertionPoint()->color(), QColor("#ff336699"));
        defaults->setValue(Settings::TextViewCursorColorChoose, 1);
        relayout();
        QCOMPARE(view->insertionPoint()->color(), QColor("#ffcc0000"));

        defaults->setValue(Settings::TextViewFontSize, 12);
        view->setString("abc");
        const QRect toolkit = caretAt(1);
        const qreal h = std::min<qreal>(toolkit.height(), 14);
        QRectF plain = view->insertionPointRect();
        QCOMPARE(plain.top(), qreal(toolkit.top()));
        QCOMPARE(plain.height(), h);

        defaults->setValue(Settings::TextViewCursorWidth, 1);
        defaults->setValue(Settings::TextViewCursorHeigth, 1);
        relayout();
        const QRectF block = view->insertionPointRect();
        QCOMPARE(block.width(), h / 2);
        QCOMPARE(block.height(), h * 1.5);
        QCOMPARE(block.top(), toolkit.top() - h * 1.5 / 4);

        // Drawn, in the chosen colour, where the rectangle says.
        view->insertionPoint()->restartBlinking();
        const QImage shot = view->viewport()->grab().toImage();
        const QPoint inside = block.center().toPoint();
        QCOMPARE(QColor(shot.pixel(inside)), QColor("#cc0000"));
    }

    void gutterShowsAndDarkensWithTheSettings()
    {
        view->setString("a\nb\nc");
        QVERIFY(!view->lineGutter()->isVisible());
        const int left = caretAt(0).left();
        defaults->setValue(Settings::EditorShowLineGutters, 1);
        defaults->setValue(Settings::UseBlackDocument, true);
        relayout();
        QVERIFY(view->lineGutter()->isVisible());
        QVERIFY(view->lineGutter()->width() > 0);
        // The text moves right of the gutter rather than under it.
        QCOMPARE(view->viewport()->geometry().left(),
                 view->contentsRect().left() + view->lineGutter()->width());
        QCOMPARE(caretAt(0).left(), left);
        const QImage gutter = view->lineGutter()->grab().toImage();
        QCOMPARE(QColor(gutter.pixel(1, gutter.height() - 2)), QColor(Qt::black));
    }

    void typewriterKeepsTheCaretLineInTheMiddle()
    {
        defaults->setValue(Settings::TextViewUseTypeWriterScrolling, 1);
        relayout();
        QStringList lines;
        for (int i = 0; i < 200; ++i)
            lines << QString("line %1").arg(i);
        view->setString(lines.join('\n'));
        view->setSelectedRange(0, 0);
        for (int i = 0; i < 40; ++i)
            QTest::keyClick(view.get(), Qt::Key_Down);
        const QRect caret = view->cursorRect();
        const qreal middle = view->viewport()->height() / 2.0;
        QVERIFY2(caret.top() >= middle - 1 && caret.top() < middle + caret.height(),
                 qPrintable(QString("caret top %1, middle %2").arg(caret.top()).arg(middle)));

        // Past the length limit the view is left where it is.
        const QString longText = QString(30000 - 1, QChar('x')).replace(100, 1, "\n");
        view->setString(longText.left(29000) + "\n" + lines.join('\n').left(999));
        QCOMPARE(view->verticalScrollBar()->value(), 0);
        view->setSelectedRange(0, 0);
        const int before = view->verticalScrollBar()->value();
        QTest::keyClick(view.get(), Qt::Key_Down);
        QCOMPARE(view->verticalScrollBar()->value(), before);
    }
};

VELLOX_TEST_MAIN(TestEditorAppearance)
#include "tst_editorappearance.moc"
