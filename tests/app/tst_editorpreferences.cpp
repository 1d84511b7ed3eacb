#include "app/widgets/EditorPreferencePanes.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/LineNumberGutter.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "support/TestHome.h"

#include <QCheckBox>
#include <QSpinBox>
#include <QtTest>

#include <memory>

// Changing a preference shows in an open editor at once, and is kept in the settings file.
class TestEditorPreferences : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void appearanceChangesReachTheEditorAtOnce()
    {
        const QString file = TestHome::instance()->path() + "/prefs.conf";
        UserDefaults defaults(file);
        defaults.registerDefaults(UserDefaults::defaultsTable());
        Vellox_EnhancedTextView editor(defaults);
        editor.show();
        std::unique_ptr<QWidget> pane(EditorPreferencePanes::appearance(defaults));
        pane->show();

        QSpinBox *fontSize = nullptr;
        for (QSpinBox *spin : pane->findChildren<QSpinBox *>())
            if (spin->accessibleName() == "Font size")
                fontSize = spin;
        QVERIFY(fontSize);
        QCOMPARE(fontSize->value(), 12);
        fontSize->setValue(19);
        QCOMPARE(editor.font().pointSize(), 19);

        QCheckBox *gutter = nullptr;
        for (QCheckBox *box : pane->findChildren<QCheckBox *>())
            if (box->accessibleName() == "Show line numbers")
                gutter = box;
        QVERIFY(gutter);
        gutter->click();
        QVERIFY(editor.lineGutter()->isVisible());

        int fullScreenNotices = 0;
        NotificationCenter::defaultCenter().addObserver(
            pane.get(), Notifications::FullscreenAttributesChanged,
            [&](const Notification &) { ++fullScreenNotices; });
        std::unique_ptr<QWidget> full(EditorPreferencePanes::fullScreen(defaults));
        for (QSpinBox *spin : full->findChildren<QSpinBox *>())
            if (spin->accessibleName() == "Text width")
                spin->setValue(70);
        QCOMPARE(fullScreenNotices, 1);

        defaults.sync();
        UserDefaults reread(file);
        QCOMPARE(reread.value(Settings::TextViewFontSize), 19);
        QCOMPARE(reread.value(Settings::EditorShowLineGutters), 1);
        QCOMPARE(reread.value(Settings::FullscreenTextviewWidth), 70);
    }
};

VELLOX_TEST_MAIN(TestEditorPreferences)
#include "tst_editorpreferences.moc"
