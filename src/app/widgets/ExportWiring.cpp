#include "ExportWiring.h"

#include "AppController.h"
#include "MainWindow.h"
#include "export/widgets/ExportController.h"

#include <QAction>
#include <QPointer>

#include <memory>

void wireExport(AppController &app)
{
    QAction *action = app.window()->action(QStringLiteral("actionExport"));
    if (!action)
        return;
    // The window is made on first use and kept, so its choices last while the app runs.
    auto window = std::make_shared<QPointer<ExportController>>();
    QObject::connect(action, &QAction::triggered, &app, [&app, window] {
        if (!*window)
            *window =
                new ExportController(app.defaults(), app.window()->messageBar(), app.window());
        ExportController *controller = *window;
        if (!controller->isVisible())
            controller->selectNotebookFolder(app.myPersonalSavePath());
        controller->show();
        controller->raise();
        controller->activateWindow();
    });
}
