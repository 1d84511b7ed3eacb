#include "EditorPreferencePanes.h"

#include "ColorWell.h"
#include "LibraryPreferencePane.h"
#include "NotesPrintingPreferencePane.h"
#include "PreferenceForm.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/TypingEngine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFontComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

PreferencePane::PreferencePane(UserDefaults &defaults, const QString &notification)
    : m_form(new PreferenceForm(defaults, notification, this))
{}

void PreferencePane::showEvent(QShowEvent *event)
{
    m_form->reload();
    QWidget::showEvent(event);
}

namespace {
QHBoxLayout *row(std::initializer_list<QWidget *> widgets)
{
    auto *layout = new QHBoxLayout;
    for (QWidget *w : widgets)
        layout->addWidget(w);
    layout->addStretch(1);
    return layout;
}
} // namespace

QWidget *EditorPreferencePanes::appearance(UserDefaults &defaults)
{
    auto *pane = new PreferencePane(defaults, Notifications::TextViewAttributesChanged);
    //% "Appearance"
    pane->setAccessibleName(qtTrId("PREFERENCES_APPEARANCE_PANE"));
    PreferenceForm *f = pane->form();
    //% "In points"
    const QString points = qtTrId("PREFERENCES_POINTS_TIP");

    //% "Text"
    auto *text = new QGroupBox(qtTrId("PREFERENCES_TEXT_GROUP"), pane);
    auto *textForm = new QFormLayout(text);
    //% "Font"
    textForm->addRow(qtTrId("PREFERENCES_FONT"),
                     row({f->fontFamily(Settings::TextViewFontStyle, qtTrId("PREFERENCES_FONT"),
                                        //% "The typeface of the entry text"
                                        qtTrId("PREFERENCES_FONT_TIP")),
                          f->number(Settings::TextViewFontSize, 6, 96,
                                    //% "Font size"
                                    qtTrId("PREFERENCES_FONT_SIZE"),
                                    //% "The size of the entry text, in points"
                                    qtTrId("PREFERENCES_FONT_SIZE_TIP"))}));
    //% "Colours"
    textForm->addRow(qtTrId("PREFERENCES_COLOURS"),
                     row({f->color(Settings::TextViewFontColor,
                                   //% "Text colour"
                                   qtTrId("PREFERENCES_TEXT_COLOUR"),
                                   //% "The colour of the text and of the line numbers"
                                   qtTrId("PREFERENCES_TEXT_COLOUR_TIP")),
                          f->color(Settings::TextViewBackgroundColor,
                                   //% "Background colour"
                                   qtTrId("PREFERENCES_BACKGROUND_COLOUR"),
                                   //% "The colour behind the text"
                                   qtTrId("PREFERENCES_BACKGROUND_COLOUR_TIP"))}));
    //% "Own selection colour"
    textForm->addRow(
        qtTrId("PREFERENCES_SELECTION"),
        row({f->check(Settings::EditorSelectedTextColorActive, qtTrId("PREFERENCES_SELECTION"),
                      //% "Selected text is marked in the colour beside, not the desktop's"
                      qtTrId("PREFERENCES_SELECTION_TIP")),
             f->color(Settings::TextViewSelectedColor,
                      //% "Selection colour"
                      qtTrId("PREFERENCES_SELECTION_COLOUR"),
                      qtTrId("PREFERENCES_SELECTION_TIP"))}));
    //% "Alignment"
    textForm->addRow(qtTrId("PREFERENCES_ALIGNMENT"),
                     f->choice(Settings::TextViewTextAlignment,
                               //% "Left"
                               {qtTrId("PREFERENCES_ALIGN_LEFT"),
                                //% "Right"
                                qtTrId("PREFERENCES_ALIGN_RIGHT"),
                                //% "Centred"
                                qtTrId("PREFERENCES_ALIGN_CENTRE"),
                                //% "Justified"
                                qtTrId("PREFERENCES_ALIGN_JUSTIFIED"),
                                //% "Natural (by writing direction)"
                                qtTrId("PREFERENCES_ALIGN_NATURAL")},
                               qtTrId("PREFERENCES_ALIGNMENT"),
                               //% "How the lines of a paragraph line up"
                               qtTrId("PREFERENCES_ALIGNMENT_TIP")));
    //% "Line spacing"
    textForm->addRow(qtTrId("PREFERENCES_LINE_SPACING"),
                     f->number(Settings::TextViewLineSpacing, 0, 60,
                               qtTrId("PREFERENCES_LINE_SPACING"), points));
    //% "First-line indent"
    textForm->addRow(qtTrId("PREFERENCES_HEAD_INDENT"),
                     f->number(Settings::TextViewHeadlineIndention, 0, 200,
                               qtTrId("PREFERENCES_HEAD_INDENT"), points));
    //% "Paragraph spacing"
    textForm->addRow(qtTrId("PREFERENCES_PARAGRAPH_SPACING"),
                     f->number(Settings::TextViewParagraphSpacing, 0, 100,
                               qtTrId("PREFERENCES_PARAGRAPH_SPACING"), points));
    //% "Margin"
    textForm->addRow(qtTrId("PREFERENCES_MARGIN"),
                     f->number(Settings::TextViewMarginSpacing, 0, 300,
                               qtTrId("PREFERENCES_MARGIN"),
                               //% "Space left and right of the text lines, in points"
                               qtTrId("PREFERENCES_MARGIN_TIP")));

    //% "Caret and view"
    auto *view = new QGroupBox(qtTrId("PREFERENCES_VIEW_GROUP"), pane);
    auto *viewLayout = new QVBoxLayout(view);
    //% "Block caret"
    viewLayout->addWidget(f->check(Settings::TextViewCursorWidth, qtTrId("PREFERENCES_CARET_WIDE"),
                                   //% "A caret half as wide as it is tall"
                                   qtTrId("PREFERENCES_CARET_WIDE_TIP")));
    //% "Tall caret"
    viewLayout->addWidget(f->check(Settings::TextViewCursorHeigth, qtTrId("PREFERENCES_CARET_TALL"),
                                   //% "A caret half again as tall as the line"
                                   qtTrId("PREFERENCES_CARET_TALL_TIP")));
    viewLayout->addLayout(row({f->check(Settings::TextViewCursorColorChoose,
                                        //% "Own caret colour"
                                        qtTrId("PREFERENCES_CARET_COLOUR_OWN"),
                                        //% "Without it the caret has the text colour"
                                        qtTrId("PREFERENCES_CARET_COLOUR_OWN_TIP")),
                               f->color(Settings::TextViewCursorColorSelection,
                                        //% "Caret colour"
                                        qtTrId("PREFERENCES_CARET_COLOUR"),
                                        qtTrId("PREFERENCES_CARET_COLOUR_OWN_TIP"))}));
    //% "Show the scroll bar"
    viewLayout->addWidget(f->check(Settings::TextViewShowScrollbars,
                                   qtTrId("PREFERENCES_SCROLLBAR"),
                                   //% "A vertical scroll bar beside the text"
                                   qtTrId("PREFERENCES_SCROLLBAR_TIP")));
    //% "Show line numbers"
    viewLayout->addWidget(f->check(Settings::EditorShowLineGutters, qtTrId("PREFERENCES_GUTTER"),
                                   //% "A gutter with the number of each paragraph"
                                   qtTrId("PREFERENCES_GUTTER_TIP")));
    //% "Line numbers in the text font and colour"
    viewLayout->addWidget(f->check(Settings::EditorLineGutterColorFontSameAsText,
                                   qtTrId("PREFERENCES_GUTTER_TEXT_FONT"),
                                   qtTrId("PREFERENCES_GUTTER_TIP")));
    //% "Wide line-number gutter"
    viewLayout->addWidget(f->check(Settings::PrefsThinThickLineGutters,
                                   qtTrId("PREFERENCES_GUTTER_THICK"),
                                   qtTrId("PREFERENCES_GUTTER_TIP")));
    //% "Typewriter scrolling"
    viewLayout->addWidget(f->check(Settings::TextViewUseTypeWriterScrolling,
                                   qtTrId("PREFERENCES_TYPEWRITER"),
                                   //% "Keeps the line being written in the middle of the view"
                                   qtTrId("PREFERENCES_TYPEWRITER_TIP")));
    //% "Dark style"
    viewLayout->addWidget(f->check(Settings::UseBlackDocument, qtTrId("PREFERENCES_DARK"),
                                   //% "Light text and icons on dark backgrounds in the main window"
                                   qtTrId("PREFERENCES_DARK_TIP")));
    viewLayout->addStretch(1);

    auto *layout = new QHBoxLayout(pane);
    layout->addWidget(text, 3);
    layout->addWidget(view, 2);
    return pane;
}

QWidget *EditorPreferencePanes::typography(UserDefaults &defaults)
{
    auto *pane = new PreferencePane(defaults, Notifications::TextViewAttributesChanged);
    //% "Typing"
    pane->setAccessibleName(qtTrId("PREFERENCES_TYPING_PANE"));
    PreferenceForm *f = pane->form();
    QStringList quotes;
    //% "Straight quotes"
    quotes << qtTrId("PREFERENCES_QUOTES_STRAIGHT");
    for (int style = 1; style <= 10; ++style) {
        const auto tags = TypingEngine::quoteTagsForStyle(style);
        quotes << tags.first + QStringLiteral("…") + tags.second;
    }
    auto *form = new QFormLayout;
    //% "Quotation marks"
    form->addRow(qtTrId("PREFERENCES_QUOTES"),
                 f->choice(Settings::TypographyUseQuoteStyle, quotes, qtTrId("PREFERENCES_QUOTES"),
                           //% "The marks a typed quote becomes"
                           qtTrId("PREFERENCES_QUOTES_TIP")));
    auto *layout = new QVBoxLayout(pane);
    layout->addLayout(form);
    //% "Close brackets and quotes"
    layout->addWidget(f->check(Settings::TypographyAutoPairBraces, qtTrId("PREFERENCES_PAIRING"),
                               //% "Typing an opening bracket or quote adds its closing partner"
                               qtTrId("PREFERENCES_PAIRING_TIP")));
    //% "Check spelling while typing"
    layout->addWidget(f->check(Settings::TextViewCheckSpelling, qtTrId("PREFERENCES_SPELLING"),
                               //% "Misspelled words are underlined in red"
                               qtTrId("PREFERENCES_SPELLING_TIP")));
    //% "Replace double hyphens with dashes"
    layout->addWidget(f->check(Settings::TextViewDashSubstitution, qtTrId("PREFERENCES_DASHES"),
                               //% "Two hyphens between words become an em dash"
                               qtTrId("PREFERENCES_DASHES_TIP")));
    //% "Detect links"
    layout->addWidget(f->check(Settings::TextViewLinkDetection, qtTrId("PREFERENCES_LINKS"),
                               //% "Web addresses are underlined and open with Ctrl+click"
                               qtTrId("PREFERENCES_LINKS_TIP")));
    layout->addStretch(1);
    return pane;
}

QWidget *EditorPreferencePanes::fullScreen(UserDefaults &defaults)
{
    auto *pane = new PreferencePane(defaults, Notifications::FullscreenAttributesChanged);
    //% "Full Screen"
    pane->setAccessibleName(qtTrId("PREFERENCES_FULLSCREEN_PANE"));
    PreferenceForm *f = pane->form();
    auto *form = new QFormLayout(pane);
    //% "Background colour"
    form->addRow(qtTrId("PREFERENCES_FULLSCREEN_COLOUR"),
                 f->color(Settings::FullscreenBackgroundColor,
                          qtTrId("PREFERENCES_FULLSCREEN_COLOUR"),
                          //% "The colour around the text in full screen"
                          qtTrId("PREFERENCES_FULLSCREEN_COLOUR_TIP")));
    auto *path = new QLineEdit(pane);
    path->setReadOnly(true);
    //% "Background image"
    path->setAccessibleName(qtTrId("PREFERENCES_FULLSCREEN_IMAGE"));
    //% "The picture around the text in full screen, when switched on"
    path->setToolTip(qtTrId("PREFERENCES_FULLSCREEN_IMAGE_TIP"));
    path->setText(defaults.value(Settings::FullscreenBackgroundImage));
    //% "Choose…"
    auto *choose = new QPushButton(qtTrId("PREFERENCES_FULLSCREEN_IMAGE_CHOOSE"), pane);
    choose->setAccessibleName(qtTrId("PREFERENCES_FULLSCREEN_IMAGE_CHOOSE"));
    choose->setToolTip(qtTrId("PREFERENCES_FULLSCREEN_IMAGE_TIP"));
    QObject::connect(choose, &QPushButton::clicked, pane, [&defaults, pane, path, f] {
        auto *dialog = new QFileDialog(pane, qtTrId("PREFERENCES_FULLSCREEN_IMAGE"));
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setFileMode(QFileDialog::ExistingFile);
        QStringList patterns;
        for (const QByteArray &format : QImageReader::supportedImageFormats())
            patterns << QStringLiteral("*.") + QString::fromLatin1(format);
        dialog->setNameFilter(patterns.join(QLatin1Char(' ')));
        QObject::connect(dialog, &QFileDialog::fileSelected, pane,
                         [&defaults, path, f](const QString &file) {
                             defaults.setValue(Settings::FullscreenBackgroundImage, file);
                             path->setText(file);
                             f->announce();
                         });
        dialog->open();
    });
    //% "Use a background image"
    form->addRow(f->check(Settings::FullscreenUseBackgroundImage,
                          qtTrId("PREFERENCES_FULLSCREEN_USE_IMAGE"),
                          qtTrId("PREFERENCES_FULLSCREEN_IMAGE_TIP")),
                 row({path, choose}));
    //% "Percent of the screen"
    const QString percent = qtTrId("PREFERENCES_PERCENT_TIP");
    //% "Text width"
    form->addRow(qtTrId("PREFERENCES_FULLSCREEN_WIDTH"),
                 f->number(Settings::FullscreenTextviewWidth, 10, 100,
                           qtTrId("PREFERENCES_FULLSCREEN_WIDTH"), percent));
    //% "Text height"
    form->addRow(qtTrId("PREFERENCES_FULLSCREEN_HEIGHT"),
                 f->number(Settings::FullscreenTextviewHeight, 10, 100,
                           qtTrId("PREFERENCES_FULLSCREEN_HEIGHT"), percent));
    return pane;
}

void EditorPreferencePanes::addTo(QTabWidget *tabs, UserDefaults &defaults)
{
    QWidget *look = appearance(defaults);
    tabs->addTab(look, look->accessibleName());
    QWidget *typing = typography(defaults);
    tabs->addTab(typing, typing->accessibleName());
    QWidget *full = fullScreen(defaults);
    tabs->addTab(full, full->accessibleName());
    QWidget *entries = LibraryPreferencePane::create(defaults);
    tabs->addTab(entries, entries->accessibleName());
    QWidget *notes = NotesPrintingPreferencePane::create(defaults);
    tabs->addTab(notes, notes->accessibleName());
}
