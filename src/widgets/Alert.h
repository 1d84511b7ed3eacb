#pragma once

#include <QMessageBox>
#include <QString>
#include <QStringList>

#include <functional>

// Every alert of the app goes through here, so the window-level code stays the same whether
// a person answers or a test does. Returns the index of the chosen button in `buttons`
// (0 = the default button).
struct AlertRequest
{
    QMessageBox::Icon icon = QMessageBox::Warning;
    QString title;
    QString message;
    QStringList buttons;
    // The button Escape stands for; -1 when Escape does not answer (several choices, none
    // of them "leave things as they are").
    int escapeButton = -1;
};

class Alert
{
public:
    using Responder = std::function<int(const AlertRequest &)>;

    static int show(QWidget *parent, const AlertRequest &request);
    static int show(QWidget *parent, const QString &title, const QString &message,
                    const QStringList &buttons = {QStringLiteral("OK")},
                    QMessageBox::Icon icon = QMessageBox::Warning);

    // Tests answer alerts without a modal loop; an empty responder restores real dialogs.
    static void setResponder(Responder responder);
    static const QList<AlertRequest> &history();
    static void clearHistory();
};
