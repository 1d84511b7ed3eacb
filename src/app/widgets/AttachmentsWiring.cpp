#include "AttachmentsWiring.h"

#include "AppController.h"
#include "MainWindow.h"
#include "attachments/widgets/AttachmentFileController.h"
#include "attachments/widgets/AttachmentPanel.h"
#include "attachments/widgets/AttachmentTableView.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "widgets/MenuBuilder.h"

#include <QAction>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QTimer>

namespace {
constexpr int kTitleSettleMs = 300;

void connectAction(MainWindow *window, const char *name, AttachmentFileController *controller,
                   void (AttachmentFileController::*slot)())
{
    if (QAction *action = window->action(QString::fromLatin1(name)))
        QObject::connect(action, &QAction::triggered, controller, slot);
}
} // namespace

AttachmentFileController *wireAttachments(AppController &app)
{
    MainWindow *window = app.window();
    auto *controller = new AttachmentFileController(app.defaults(), window, &app);
    controller->setNotebookProvider([&app] { return app.myPersonalSavePath(); });
    controller->setMessageBar(window->messageBar());

    QWidget *area = window->attachmentArea();
    // The panel takes the place of the area's empty-state text.
    const auto hints = area->findChildren<QLabel *>(Qt::FindDirectChildrenOnly);
    for (QLabel *hint : hints)
        delete hint;
    area->layout()->setContentsMargins(4, 4, 4, 4);
    area->layout()->addWidget(controller->panel());

    AttachmentTableView *list = controller->panel()->list();
    list->setContextMenuPolicy(Qt::ActionsContextMenu);
    list->addActions(window->actions()->actionsIn(QStringLiteral("contextMenuAttachments")));
    connectAction(window, "actionAttachmentAdd", controller,
                  &AttachmentFileController::addNewAttachmentsToDate);
    connectAction(window, "actionAttachmentRemove", controller,
                  &AttachmentFileController::removeSelectedAttachment);
    connectAction(window, "actionAttachmentPreview", controller,
                  &AttachmentFileController::quicklookSelectedAttachment);
    connectAction(window, "actionAttachmentOpen", controller,
                  &AttachmentFileController::openSelectedAttachmentWithDefaultApplication);
    connectAction(window, "actionAttachmentReveal", controller,
                  &AttachmentFileController::showSelecedtedAttachmentImFinder);

    // A typed title names the entry whose attachments show, once the typing settles.
    auto *titleSettled = new QTimer(controller);
    titleSettled->setSingleShot(true);
    titleSettled->setInterval(kTitleSettleMs);
    QLineEdit *title = window->titleField();
    QObject::connect(title, &QLineEdit::textEdited, titleSettled, qOverload<>(&QTimer::start));
    QObject::connect(titleSettled, &QTimer::timeout, controller, [controller, title] {
        controller->receiveNewDateNotification(title->text());
    });

    // The pane opens for an entry with attachments and closes for one without, when the
    // user asked for that; the menu item and the button follow.
    QAction *show = window->action(QStringLiteral("actionShowAttachments"));
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(controller, Notifications::AutoOpenAttachmentView,
                       [show, area](const Notification &) {
                           if (!area->isVisible() || area->width() <= 1)
                               show->setChecked(true);
                       });
    center.addObserver(controller, Notifications::AutoCloseAttachmentView,
                       [show, area](const Notification &) {
                           if (area->isVisible() && area->width() > 1)
                               show->setChecked(false);
                       });
    return controller;
}
