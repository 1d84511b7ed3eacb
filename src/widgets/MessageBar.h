#pragma once

#include <QFrame>
#include <QList>
#include <QString>

#include <functional>

class QHBoxLayout;
class QLabel;
class QToolButton;

// The main window's one non-modal message bar, above the editor: "this did not work, your
// text is safe, here is what you can do". Messages are keyed by a topic (a failed save of
// an entry, an outside change, a lock), so a later message on the same topic replaces the
// earlier one and a success can take its topic's message away. The newest message shows;
// dismissing it reveals the one before.
class MessageBar : public QFrame
{
    Q_OBJECT
public:
    enum Kind { Information, Warning, Error };

    struct Button
    {
        QString text;
        QString toolTip;
        std::function<void()> handler;
        // Stable name for the button (tests and screen readers find it by it).
        QString objectName;
    };

    explicit MessageBar(QWidget *parent = nullptr);

    void showMessage(const QString &topic, Kind kind, const QString &text,
                     const QList<Button> &buttons = {});
    void removeMessage(const QString &topic);
    bool hasMessage(const QString &topic) const;
    QString currentTopic() const;
    QString currentText() const;

Q_SIGNALS:
    void messageShown(const QString &topic);
    void messageRemoved(const QString &topic);

private:
    struct Message
    {
        QString topic;
        Kind kind = Information;
        QString text;
        QList<Button> buttons;
    };

    void showCurrent();

    QList<Message> m_messages;
    QLabel *m_icon;
    QLabel *m_text;
    QHBoxLayout *m_buttonRow;
    QToolButton *m_close;
};
