#include "Alert.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPushButton>

namespace {
Alert::Responder g_responder;
QList<AlertRequest> g_history;
} // namespace

int Alert::show(QWidget *parent, const AlertRequest &request)
{
    g_history.append(request);
    if (g_responder)
        return g_responder(request);

    QMessageBox box(request.icon, request.title, request.message, QMessageBox::NoButton, parent);
    box.setAccessibleName(request.title);
    QList<QAbstractButton *> buttons;
    const QStringList labels =
        request.buttons.isEmpty() ? QStringList{QStringLiteral("OK")} : request.buttons;
    for (int i = 0; i < labels.size(); ++i) {
        QAbstractButton *button =
            box.addButton(labels.at(i), i == 0 ? QMessageBox::AcceptRole : QMessageBox::RejectRole);
        button->setAccessibleName(labels.at(i));
        button->setToolTip(labels.at(i));
        buttons << button;
    }
    box.setDefaultButton(qobject_cast<QPushButton *>(buttons.first()));
    if (request.escapeButton >= 0 && request.escapeButton < buttons.size())
        box.setEscapeButton(buttons.at(request.escapeButton));
    box.exec();
    const int index = int(buttons.indexOf(box.clickedButton()));
    return index < 0 ? 0 : index;
}

int Alert::show(QWidget *parent, const QString &title, const QString &message,
                const QStringList &buttons, QMessageBox::Icon icon)
{
    return show(parent, AlertRequest{icon, title, message, buttons});
}

void Alert::setResponder(Responder responder)
{
    g_responder = std::move(responder);
}

const QList<AlertRequest> &Alert::history()
{
    return g_history;
}

void Alert::clearHistory()
{
    g_history.clear();
}
