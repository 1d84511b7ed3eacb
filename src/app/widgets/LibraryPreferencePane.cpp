#include "LibraryPreferencePane.h"

#include "EditorPreferencePanes.h"
#include "PreferenceForm.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QSpinBox>
#include <QVBoxLayout>

QWidget *LibraryPreferencePane::create(UserDefaults &defaults)
{
    // The entry list reads its row settings whenever the notebook is listed again.
    auto *pane = new PreferencePane(defaults, Notifications::ReloadFilesForSelectedNoticeBlock);
    //% "Entries"
    pane->setAccessibleName(qtTrId("PREFERENCES_ENTRIES_PANE"));
    PreferenceForm *f = pane->form();
    auto *form = new QFormLayout;

    auto *extension = new QComboBox(pane);
    //% "File type of new entries"
    extension->setAccessibleName(qtTrId("PREFERENCES_EXTENSION"));
    //% "The extension new entries are saved with; “textbundle” keeps each entry with its
    // attachments in a folder"
    extension->setToolTip(qtTrId("PREFERENCES_EXTENSION_TIP"));
    extension->setEditable(true);
    extension->addItems({QStringLiteral("txt"), QStringLiteral("md"), QStringLiteral("markdown"),
                         QStringLiteral("text"), QStringLiteral("textbundle")});
    extension->setCurrentText(defaults.value(Settings::DefaultFileExtensionForEntries));
    QObject::connect(extension, &QComboBox::currentTextChanged, pane,
                     [&defaults, f](const QString &text) {
                         const QString ext = text.trimmed().remove(QLatin1Char('.'));
                         if (ext.isEmpty() || ext.contains(QLatin1Char('/')))
                             return;
                         defaults.setValue(Settings::DefaultFileExtensionForEntries, ext);
                         f->announce();
                     });
    form->addRow(qtTrId("PREFERENCES_EXTENSION"), extension);

    //% "Show dates in the list"
    form->addRow(f->check(Settings::FileBrowserDisplayDatesRows, qtTrId("PREFERENCES_LIST_DATES"),
                          //% "Each entry shows when it was created and last changed"
                          qtTrId("PREFERENCES_LIST_DATES_TIP")));
    //% "Show the beginning of the text"
    form->addRow(f->check(Settings::FileBrowserDisplayNumberRows, qtTrId("PREFERENCES_LIST_LINES"),
                          //% "Each entry shows its first lines instead of the dates"
                          qtTrId("PREFERENCES_LIST_LINES_TIP")));
    //% "Lines of text per entry"
    form->addRow(qtTrId("PREFERENCES_LIST_LINE_COUNT"),
                 f->number(Settings::FileBrowserDisplayNumberRowsCount, 1, 10,
                           qtTrId("PREFERENCES_LIST_LINE_COUNT"),
                           qtTrId("PREFERENCES_LIST_LINES_TIP")));
    //% "Title size"
    form->addRow(qtTrId("PREFERENCES_LIST_TITLE_SIZE"),
                 f->number(Settings::FileBrowserDisplayTitleFontSize, 8, 36,
                           qtTrId("PREFERENCES_LIST_TITLE_SIZE"),
                           //% "Font size of the entry titles in the list, in points"
                           qtTrId("PREFERENCES_LIST_TITLE_SIZE_TIP")));
    //% "Detail size"
    form->addRow(qtTrId("PREFERENCES_LIST_INFO_SIZE"),
                 f->number(Settings::FileBrowserDisplayInfotextFontSize, 7, 30,
                           qtTrId("PREFERENCES_LIST_INFO_SIZE"),
                           //% "Font size of the dates and lines under each title, in points"
                           qtTrId("PREFERENCES_LIST_INFO_SIZE_TIP")));

    auto *layout = new QVBoxLayout(pane);
    layout->addLayout(form);
    //% "No taskbar entry (reach the window from the tray)"
    layout->addWidget(f->check(Settings::DocklessWindowMode, qtTrId("PREFERENCES_DOCKLESS"),
                               //% "Takes effect the next time Vellox starts"
                               qtTrId("PREFERENCES_DOCKLESS_TIP")));
    layout->addStretch(1);
    return pane;
}
