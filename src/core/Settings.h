#pragma once

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QString>
#include <QVariantMap>

// Every setting Vellox reads or writes: its key, exactly as stored (misspellings and the one
// trailing blank are part of the key), its type and, for registered settings, its default.
// Code outside core/ names a setting only through the constants below, never by a string.

using RecordList = QList<QVariantMap>;

template <typename T> struct Setting
{
    const char *key;
    QString name() const { return QString::fromLatin1(key); }
};

// X(constant, "key", type, default expression). The defaults are registered in this order
// and answered for every key the user has not set; they are never written to the file.
// PlatformSelectionColor is the desktop palette's highlight colour.
#define VELLOX_REGISTERED_SETTINGS(X)                                                              \
    X(TextViewFontColor, "TextViewFontColor", QColor, "#ff000000")                                 \
    X(TextViewBackgroundColor, "TextViewBackgroundColor", QColor, "#ffffffff")                     \
    X(TextViewSelectedColor, "TextViewSelectedColor", QColor, PlatformSelectionColor)              \
    X(EditorSelectedTextColorActive, "EditorSelectedTextColorActive", int, 0)                      \
    X(TextViewFontStyle, "TextViewFontStyle", QString, "Helvetica Neue")                           \
    X(TextViewFontSize, "TextViewFontSize", int, 12)                                               \
    X(TextViewTextAlignment, "TextViewTextAlignment", int, 0)                                      \
    X(TextViewLineSpacing, "TextViewLineSpacing", int, 2)                                          \
    X(TextViewHeadlineIndention, "TextViewHeadlineIndention", int, 5)                              \
    X(TextViewParagraphSpacing, "TextViewParagraphSpacing", int, 2)                                \
    X(TextViewMarginSpacing, "TextViewMarginSpacing", int, 10)                                     \
    X(TextViewCursorWidth, "TextViewCursorWidth", int, 0)                                          \
    X(TextViewCursorHeigth, "TextViewCursorHeigth", int, 0)                                        \
    X(TextViewCursorColorChoose, "TextViewCursorColorChoose", int, 0)                              \
    X(TextViewCursorColorSelection, "TextViewCursorColorSelection ", QColor, "#ff000000")          \
    X(EditorShowLineGutters, "EditorShowLineGutters", int, 0)                                      \
    X(EditorLineGutterColorFontSameAsText, "EditorLineGutterColorFontSameAsText", int, 0)          \
    X(TextViewShowScrollbars, "TextViewShowScrollbars", int, 0)                                    \
    X(TextViewUseTypeWriterScrolling, "TextViewUseTypeWriterScrolling", int, 0)                    \
    X(TextViewCheckSpelling, "TextViewCheckSpelling", int, 1)                                      \
    X(TextViewCheckGrammar, "TextViewCheckGrammar", int, 0)                                        \
    X(TextViewAutocorrectSpelling, "TextViewAutocorrectSpelling", int, 0)                          \
    X(TextViewPerformTextReplacement, "TextViewPerformTextReplacement", int, 1)                    \
    X(TextViewLinkDetection, "TextViewLinkDetection", int, 0)                                      \
    X(TextViewDataDetection, "TextViewDataDetection", int, 0)                                      \
    X(TextViewDashSubstitution, "TextViewDashSubstitution", int, 0)                                \
    X(FullscreenBackgroundColor, "FullscreenBackgroundColor", QColor, "#ff000000")                 \
    X(FullscreenUseBackgroundImage, "FullscreenUseBackgroundImage", int, 0)                        \
    X(FullscreenTextviewWidth, "FullscreenTextviewWidth", int, 50)                                 \
    X(FullscreenTextviewHeight, "FullscreenTextviewHeight", int, 50)                               \
    X(TypographyUseQuoteStyle, "TypographyUseQuoteStyle", int, 0)                                  \
    X(TypographyAutoPairBraces, "TypographyAutoPairBraces", int, 0)                                \
    X(TypographyUseMarkupLanguage, "TypographyUseMarkupLanguage", int, 1)                          \
    X(EncodingOpeningBehavior, "EncodingOpeningBehavior", int, 0)                                  \
    X(EncodingOpeningManualEncoding, "EncodingOpeningManualEncoding", int, 4)                      \
    X(EncodingSavingBehavior, "EncodingSavingBehavior", int, 0)                                    \
    X(EncodingSavingManualEncoding, "EncodingSavingManualEncoding", int, 4)                        \
    X(MarkupIsSelectedMarkdown, "MarkupIsSelectedMarkdown", bool, true)                            \
    X(MarkupIsSelectedTextile, "MarkupIsSelectedTextile", bool, false)                             \
    X(MarkupIsSelectedWikitext, "MarkupIsSelectedWikitext", bool, false)                           \
    X(MarkupIsSelectedBBCode, "MarkupIsSelectedBBCode", bool, false)                               \
    X(MarkupIsSelectedSmark, "MarkupIsSelectedSmark", bool, false)                                 \
    X(MarkupIsSelectedHTML, "MarkupIsSelectedHTML", bool, false)                                   \
    X(MarkupIsSelectedMultiMarkdown, "MarkupIsSelectedMultiMarkdown", bool, false)                 \
    X(DefaultFileExtensionForEntries, "defaultFileExtensionForEntries", QString, "txt")            \
    X(PrefPrinterFontColor, "PrefPrinterFontColor", QColor, "#ff000000")                           \
    X(PrefPrinterFontStyle, "PrefPrinterFontStyle", QString, "Helvetica Neue")                     \
    X(PrefPrinterFontSize, "PrefPrinterFontSize", int, 12)                                         \
    X(SelectedCSSStyle, "SelectedCSSStyle", QString, "Standard.css")                               \
    X(FileBrowserDisplayNumberRows, "FILEBROWSER_DISLAY_NUMBER_ROWS", int, 0)                      \
    X(FileBrowserDisplayDatesRows, "FILEBROWSER_DISLAY_DATES_ROWS", int, 1)                        \
    X(FileBrowserDisplayNumberRowsCount, "FILEBROWSER_DISLAY_NUMBER_ROWS_COUNT", int, 2)           \
    X(FileBrowserDisplayTitleFontSize, "FILEBROWSER_DISLAY_TITLE_FONT_SIZE", int, 12)              \
    X(FileBrowserDisplayInfotextFontSize, "FILEBROWSER_DISLAY_INFOTEXT_FONT_SIZE", int, 11)        \
    X(NotesDisplayDateFontSize, "NOTES_DISPLAY_DATE_FONT_SIZE", int, 12)                           \
    X(NotesDisplayTextFontSize, "NOTES_DISPLAY_TEXT_FONT_SIZE", int, 11)

// X(constant, "key", type): settings without a registered default read as false, 0 or nothing.
#define VELLOX_UNREGISTERED_SETTINGS(X)                                                            \
    X(DiarySaveDestinations, "DiarySaveDestinations", RecordList)                                  \
    X(DocklessWindowMode, "DocklessWindowMode", bool)                                              \
    X(UseBlackDocument, "USEBLACKDOCUMENT", bool)                                                  \
    X(StatusBarPaneSelectionPref, "StatusBarPaneSelectionPref", bool)                              \
    X(AutoToggleAttachmentView, "AutoToggleAttachmentView", bool)                                  \
    X(DeleteSourceAttachments, "DELETE_SOURCE_ATTACHMENTS", bool)                                  \
    X(FullscreenBackgroundImage, "FullscreenBackgroundImage", QString)                             \
    X(TabActionUseExternalFile, "TabActionUseExternalFile", bool)                                  \
    X(TabActionExternFilePath, "TabActionExternFilePath", QString)                                 \
    X(TabActionExternFilePathSecScope, "TabActionExternFilePathSecScope", QByteArray)              \
    X(PrefsThinThickLineGutters, "prefsThinThickLineGutters", bool)                                \
    X(PrefSCKeycode, "PrefSCKeycode", int)                                                         \
    X(PrefSCModflags, "PrefSCModflags", int)                                                       \
    X(PrefSCCarbonFlags, "PrefSCCarbonFlags", int)                                                 \
    X(PrefSCCharacters, "PrefSCCharacters", QString)                                               \
    X(PrefSCIgnoringModifiers, "PrefSCIgnoringModifiers", QString)

namespace Settings {
#define VELLOX_DECLARE_REGISTERED(name, key, type, value) inline constexpr Setting<type> name{key};
#define VELLOX_DECLARE_UNREGISTERED(name, key, type) inline constexpr Setting<type> name{key};
VELLOX_REGISTERED_SETTINGS(VELLOX_DECLARE_REGISTERED)
VELLOX_UNREGISTERED_SETTINGS(VELLOX_DECLARE_UNREGISTERED)
#undef VELLOX_DECLARE_REGISTERED
#undef VELLOX_DECLARE_UNREGISTERED

// The seven selection flags of the markup languages, in language order 1 to 7.
inline constexpr Setting<bool> MarkupIsSelected[] = {
    MarkupIsSelectedMarkdown,     MarkupIsSelectedTextile, MarkupIsSelectedWikitext,
    MarkupIsSelectedBBCode,       MarkupIsSelectedSmark,   MarkupIsSelectedHTML,
    MarkupIsSelectedMultiMarkdown};
} // namespace Settings
