#include "NotesPrintingPreferencePane.h"

#include "ColorWell.h"
#include "EditorPreferencePanes.h"
#include "PreferenceForm.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"

#include <QCheckBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QSpinBox>
#include <QVBoxLayout>

QWidget *NotesPrintingPreferencePane::create(UserDefaults &defaults)
{
    // The notes list follows the editor's notice; the attachment pane and printing read their
    // settings when they act.
    auto *pane = new PreferencePane(defaults, Notifications::TextViewAttributesChanged);
    //% "Notes & Printing"
    pane->setAccessibleName(qtTrId("PREFERENCES_NOTES_PRINTING_PANE"));
    PreferenceForm *f = pane->form();

    //% "Quick notes"
    auto *notes = new QGroupBox(qtTrId("PREFERENCES_NOTES_GROUP"), pane);
    auto *notesForm = new QFormLayout(notes);
    //% "Title size"
    notesForm->addRow(qtTrId("PREFERENCES_NOTES_DATE_SIZE"),
                      f->number(Settings::NotesDisplayDateFontSize, 7, 36,
                                qtTrId("PREFERENCES_NOTES_DATE_SIZE"),
                                //% "Font size of each note's time and date, in points"
                                qtTrId("PREFERENCES_NOTES_DATE_SIZE_TIP")));
    //% "Text size"
    notesForm->addRow(qtTrId("PREFERENCES_NOTES_TEXT_SIZE"),
                      f->number(Settings::NotesDisplayTextFontSize, 7, 36,
                                qtTrId("PREFERENCES_NOTES_TEXT_SIZE"),
                                //% "Font size of the notes' text, in points"
                                qtTrId("PREFERENCES_NOTES_TEXT_SIZE_TIP")));

    //% "Attachments"
    auto *attachments = new QGroupBox(qtTrId("PREFERENCES_ATTACHMENTS_GROUP"), pane);
    auto *attachmentsLayout = new QVBoxLayout(attachments);
    //% "Open the attachment pane by itself"
    attachmentsLayout->addWidget(
        f->check(Settings::AutoToggleAttachmentView, qtTrId("PREFERENCES_ATTACHMENTS_AUTO"),
                 //% "The pane opens for an entry with attachments and closes for one without"
                 qtTrId("PREFERENCES_ATTACHMENTS_AUTO_TIP")));
    //% "Move dropped files to the trash once copied"
    attachmentsLayout->addWidget(
        f->check(Settings::DeleteSourceAttachments, qtTrId("PREFERENCES_ATTACHMENTS_TRASH_SOURCE"),
                 //% "A file dropped on the pane goes to the trash after its copy is complete"
                 qtTrId("PREFERENCES_ATTACHMENTS_TRASH_SOURCE_TIP")));

    //% "Printing"
    auto *printing = new QGroupBox(qtTrId("PREFERENCES_PRINTING_GROUP"), pane);
    auto *printingForm = new QFormLayout(printing);
    //% "Font"
    printingForm->addRow(qtTrId("PREFERENCES_PRINT_FONT"),
                         f->fontFamily(Settings::PrefPrinterFontStyle,
                                       qtTrId("PREFERENCES_PRINT_FONT"),
                                       //% "The typeface printed entries are set in"
                                       qtTrId("PREFERENCES_PRINT_FONT_TIP")));
    //% "Size"
    printingForm->addRow(qtTrId("PREFERENCES_PRINT_SIZE"),
                         f->number(Settings::PrefPrinterFontSize, 6, 48,
                                   qtTrId("PREFERENCES_PRINT_SIZE"),
                                   //% "Font size of printed entries, in points"
                                   qtTrId("PREFERENCES_PRINT_SIZE_TIP")));
    //% "Colour"
    printingForm->addRow(qtTrId("PREFERENCES_PRINT_COLOR"),
                         f->color(Settings::PrefPrinterFontColor, qtTrId("PREFERENCES_PRINT_COLOR"),
                                  //% "Colour of the printed text"
                                  qtTrId("PREFERENCES_PRINT_COLOR_TIP")));

    auto *layout = new QVBoxLayout(pane);
    layout->addWidget(notes);
    layout->addWidget(attachments);
    layout->addWidget(printing);
    layout->addStretch(1);
    return pane;
}
