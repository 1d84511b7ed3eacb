#pragma once

#include <QString>

// The names of every in-process notification, spelled as the controllers post them.
namespace Notifications {
inline const QString DiaryCollectionUpdated = QStringLiteral("DiaryCollectionUpdatedNotification");
inline const QString DiaryNewSelectedReloadNotes =
    QStringLiteral("DiaryNewSelectedReloadNotesNotification");
inline const QString ReloadFilesForSelectedNoticeBlock =
    QStringLiteral("ReloadFilesForSelectedNoticeBlockNotification");
inline const QString TextChangedShouldBeSaved =
    QStringLiteral("TextChangedShouldBeSavedNotification");
inline const QString SelectNext = QStringLiteral("SelectNextNotification");
inline const QString SelectPrevious = QStringLiteral("SelectPreviousNotification");
inline const QString CSSStyleChangePerformReload = QStringLiteral("CSSStyleChangePerformReload");
inline const QString AutoOpenAttachmentView = QStringLiteral("AutoOpenAttachmentViewNotification");
inline const QString AutoCloseAttachmentView =
    QStringLiteral("AutoCloseAttachmentViewNotification");
inline const QString FullscreenAttributesChanged =
    QStringLiteral("FullscreenAttributesChangedNotification");
inline const QString TextViewAttributesChanged =
    QStringLiteral("TextViewAttributesChangedNotification");
inline const QString SetnewDate = QStringLiteral("SetnewDateNotification");
inline const QString CopyNewAttachmentFile = QStringLiteral("CopyNewAttachmentFileNotification");
inline const QString PseudoQuicklook = QStringLiteral("PseudoQuicklookNotification");
inline const QString PseudoQuicklookCloseThePanel =
    QStringLiteral("PseudoQuicklookNotificationCloseThePanel");
inline const QString PseudoQuicklookGoingDown =
    QStringLiteral("PseudoQuicklookNotificationGoingDown");
inline const QString PseudoQuicklookGoingUp = QStringLiteral("PseudoQuicklookNotificationGoingUp");
inline const QString SelectedIcon = QStringLiteral("SelectedIconNotification");
inline const QString GlobalShortcutChanged = QStringLiteral("GlobalShortcutChangedNotification");
inline const QString StatusBarAddNoteEndClear =
    QStringLiteral("StatusBarAddNoteEndClearNotification");
inline const QString MiniEditorTextChangedShouldBeSaved =
    QStringLiteral("MINI-EDITORTextChangedShouldBeSavedNotification");

// userInfo keys
inline const QString NewDateStringKey = QStringLiteral("NewDateString");
inline const QString FilesToAddKey = QStringLiteral("FilesToAdd");
} // namespace Notifications
