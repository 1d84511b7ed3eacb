#include "MessageBar.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

MessageBar::MessageBar(QWidget *parent)
    : QFrame(parent)
    , m_icon(new QLabel(this))
    , m_text(new QLabel(this))
    , m_buttonRow(new QHBoxLayout)
    , m_close(new QToolButton(this))
{
    setObjectName(QStringLiteral("messageBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    //% "Messages"
    setAccessibleName(qtTrId("MESSAGE_BAR_NAME"));
    //% "What did not work, and what you can do about it"
    setToolTip(qtTrId("MESSAGE_BAR_TIP"));

    m_text->setObjectName(QStringLiteral("messageBarText"));
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setAccessibleName(qtTrId("MESSAGE_BAR_NAME"));

    m_close->setObjectName(QStringLiteral("messageBarClose"));
    m_close->setAutoRaise(true);
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    //% "Dismiss"
    m_close->setAccessibleName(qtTrId("MESSAGE_BAR_DISMISS"));
    //% "Hide this message"
    m_close->setToolTip(qtTrId("MESSAGE_BAR_DISMISS_TIP"));
    connect(m_close, &QToolButton::clicked, this, [this] {
        if (!m_messages.isEmpty())
            removeMessage(m_messages.last().topic);
    });

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->addWidget(m_icon, 0, Qt::AlignTop);
    layout->addWidget(m_text, 1);
    layout->addLayout(m_buttonRow);
    layout->addWidget(m_close, 0, Qt::AlignTop);
    hide();
}

void MessageBar::showMessage(const QString &topic, Kind kind, const QString &text,
                             const QList<Button> &buttons)
{
    m_messages.removeIf([&](const Message &m) { return m.topic == topic; });
    m_messages.append(Message{topic, kind, text, buttons});
    showCurrent();
    Q_EMIT messageShown(topic);
}

void MessageBar::removeMessage(const QString &topic)
{
    if (m_messages.removeIf([&](const Message &m) { return m.topic == topic; }) == 0)
        return;
    showCurrent();
    Q_EMIT messageRemoved(topic);
}

bool MessageBar::hasMessage(const QString &topic) const
{
    for (const Message &m : m_messages) {
        if (m.topic == topic)
            return true;
    }
    return false;
}

QString MessageBar::currentTopic() const
{
    return m_messages.isEmpty() ? QString() : m_messages.last().topic;
}

QString MessageBar::currentText() const
{
    return m_messages.isEmpty() ? QString() : m_messages.last().text;
}

void MessageBar::showCurrent()
{
    while (QLayoutItem *item = m_buttonRow->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    if (m_messages.isEmpty()) {
        hide();
        return;
    }
    const Message &message = m_messages.last();
    static const QColor backgrounds[] = {QColor(0xd9, 0xe8, 0xf6), QColor(0xfc, 0xef, 0xc7),
                                         QColor(0xf8, 0xd7, 0xda)};
    static const QStyle::StandardPixmap icons[] = {QStyle::SP_MessageBoxInformation,
                                                   QStyle::SP_MessageBoxWarning,
                                                   QStyle::SP_MessageBoxCritical};
    QPalette colours = palette();
    colours.setColor(QPalette::Window, backgrounds[message.kind]);
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    m_icon->setPixmap(style()->standardIcon(icons[message.kind]).pixmap(22, 22));
    m_text->setText(message.text);
    setAccessibleDescription(message.text);
    for (const Button &button : message.buttons) {
        auto *push = new QPushButton(button.text, this);
        push->setObjectName(button.objectName);
        push->setAccessibleName(button.text);
        push->setToolTip(button.toolTip.isEmpty() ? button.text : button.toolTip);
        const auto handler = button.handler;
        // Queued: the handler may replace this very message, and with it this button.
        connect(
            push, &QPushButton::clicked, this,
            [handler] {
                if (handler)
                    handler();
            },
            Qt::QueuedConnection);
        m_buttonRow->addWidget(push);
    }
    show();
}
