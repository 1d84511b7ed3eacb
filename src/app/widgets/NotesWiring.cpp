#include "NotesWiring.h"

#include "AppController.h"
#include "MainWindow.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "notes/BookmarkLink.h"
#include "notes/widgets/BookmarkletDialog.h"
#include "notes/widgets/NotesTableController.h"
#include "notes/widgets/QuickNotesView.h"
#include "widgets/MenuBuilder.h"

#include <QAction>
#include <QBoxLayout>
#include <QComboBox>
#include <QListView>
#include <QPointer>
#include <QSplitter>

namespace {

// The notes list shares the entries' column, below them, on a splitter of its own.
void placeView(MainWindow *window, QWidget *notes)
{
    QListView *entries = window->entryList();
    QWidget *column = entries->parentWidget();
    auto *layout = column ? qobject_cast<QBoxLayout *>(column->layout()) : nullptr;
    if (!layout) {
        notes->setParent(window);
        return;
    }
    const int at = layout->indexOf(entries);
    auto *splitter = new QSplitter(Qt::Vertical, column);
    splitter->setObjectName(QStringLiteral("entriesNotesSplitter"));
    splitter->setChildrenCollapsible(false);
    layout->insertWidget(at, splitter, 1);
    splitter->addWidget(entries);
    splitter->addWidget(notes);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
}

void connectAction(MainWindow *window, const char *name, NotesTableController *notes,
                   void (NotesTableController::*slot)())
{
    if (QAction *action = window->action(QString::fromLatin1(name)))
        QObject::connect(action, &QAction::triggered, notes, slot);
}

} // namespace

void wireNotes(AppController &app)
{
    MainWindow *window = app.window();
    auto *notes = new NotesTableController(app.defaults(), app.registry(), &app);
    notes->setObjectName(QStringLiteral("notesTableController"));
    notes->setEditor(app.editor());
    notes->setMessageBar(window->messageBar());
    notes->setCurrentNotebook([&app] { return app.myPersonalSavePath(); },
                              [window] { return window->notebookPopUp()->currentIndex(); });
    placeView(window, notes->view());
    // The notes follow the notebook on display; the reload notice can come before the path
    // changes when the notebook list itself changed.
    QObject::connect(&app, &AppController::currentNotebookChanged, notes,
                     [notes](const QString &path) {
                         if (path != notes->store().savePath())
                             notes->loadData();
                     });

    using N = NotesTableController;
    connectAction(window, "actionAddNote", notes, &N::addNewNote);
    connectAction(window, "actionEditNote", notes, &N::openEditSheet);
    connectAction(window, "actionRemoveNote", notes, &N::removeSelectedNote);
    connectAction(window, "actionSendNote", notes, &N::sendSelectedNoteToTextViewByShortCut);
    connectAction(window, "actionSendAllNotes", notes, &N::sendAllNotesToTextfield);
    connectAction(window, "actionSendTodaysNotes", notes, &N::sendAllNotesFromTodayToTextfield);
    connectAction(window, "actionDeleteNotesExceptToday", notes, &N::deleteAllNotesExceptToday);
    connectAction(window, "actionDeleteAllNotes", notes, &N::deleteAllNotes);
    connectAction(window, "actionActivateNotes", notes, &N::activateNotesTable);
    connectAction(window, "actionOpenNoteLink", notes, &N::callWebsiteButtonAction);
    notes->view()->list()->addActions(
        window->actions()->actionsIn(QStringLiteral("contextMenuNotesList")));

    if (QAction *capture = window->action(QStringLiteral("actionCaptureLinks"))) {
        QObject::connect(capture, &QAction::triggered, window, [window] {
            static QPointer<BookmarkletDialog> dialog;
            if (!dialog) {
                dialog = new BookmarkletDialog(window);
                dialog->setAttribute(Qt::WA_DeleteOnClose);
            }
            dialog->show();
            dialog->raise();
            dialog->activateWindow();
        });
    }
}

NotesTableController *notesController(AppController &app)
{
    return app.findChild<NotesTableController *>(QStringLiteral("notesTableController"),
                                                 Qt::FindDirectChildrenOnly);
}

void openNotesLinks(AppController &app, const QStringList &arguments)
{
    NotesTableController *notes = notesController(app);
    if (!notes)
        return;
    for (const QString &argument : arguments) {
        if (BookmarkLink::hasScheme(argument))
            notes->handleURLEvent(argument);
    }
}
