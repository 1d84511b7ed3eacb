#include "BookmarkletDialog.h"

#include "notes/BookmarkLink.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

// A label that can be dragged onto a browser's bookmarks bar as a link.
class DraggableLink : public QLabel
{
public:
    DraggableLink(const QString &text, const QString &link)
        : QLabel(text)
        , m_link(link)
    {
        setCursor(Qt::OpenHandCursor);
        setFrameShape(QFrame::StyledPanel);
        setMargin(6);
    }

protected:
    void mousePressEvent(QMouseEvent *event) override { m_pressAt = event->position().toPoint(); }
    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (!(event->buttons() & Qt::LeftButton) ||
            (event->position().toPoint() - m_pressAt).manhattanLength() <
                QApplication::startDragDistance())
            return;
        auto *mime = new QMimeData;
        mime->setUrls({QUrl(m_link)});
        mime->setText(m_link);
        // Firefox names a dropped bookmark from the line after the address.
        mime->setData(QStringLiteral("text/x-moz-url"),
                      QString(m_link + QLatin1Char('\n') + text()).toUtf8());
        auto *drag = new QDrag(this);
        drag->setMimeData(mime);
        drag->exec(Qt::CopyAction | Qt::LinkAction);
    }

private:
    QString m_link;
    QPoint m_pressAt;
};

} // namespace

QString BookmarkletDialog::bookmarklet()
{
    const QString separator = BookmarkLink::Separator;
    // The same separator with its first letter escaped decodes to the same text. The percent
    // sign is written as a JavaScript escape: browsers percent-decode a javascript: link
    // before they run it.
    const QString escaped = QStringLiteral("\\x2556") + separator.mid(1);
    return QStringLiteral("javascript:(function(){"
                          "function e(t){return encodeURIComponent(t).split('%1').join('%2');}"
                          "var s=window.getSelection?String(window.getSelection()):'';"
                          "location.href='%3utf-8%1'+e(document.title)+'%1'+e(location.href)"
                          "+'%1'+e(s);})();")
        .arg(separator, escaped, BookmarkLink::Scheme);
}

BookmarkletDialog::BookmarkletDialog(QWidget *parent)
    : QDialog(parent)
    , m_code(new QPlainTextEdit(bookmarklet()))
    , m_copy(new QPushButton)
{
    setObjectName(QStringLiteral("bookmarkletDialog"));
    //% "Capture Links from Your Browser"
    setWindowTitle(qtTrId("NOTES_BOOKMARKLET_TITLE"));
    setAccessibleName(windowTitle());

    //% "Drag the link below onto your browser's bookmarks bar, or make a new bookmark and paste
    // the code below as its address. Select some text on a web page and click the bookmark: the
    // page's address and the selected text become a quick note in the notebook open in Vellox."
    auto *explanation = new QLabel(qtTrId("NOTES_BOOKMARKLET_EXPLANATION"));
    explanation->setWordWrap(true);
    explanation->setAccessibleName(explanation->text());
    explanation->setToolTip(windowTitle());

    //% "Send to Vellox"
    auto *link = new DraggableLink(qtTrId("NOTES_BOOKMARKLET_LINK"), bookmarklet());
    link->setObjectName(QStringLiteral("bookmarkletLink"));
    link->setAccessibleName(link->text());
    //% "Drag this onto your bookmarks bar"
    link->setToolTip(qtTrId("NOTES_BOOKMARKLET_LINK_TIP"));

    m_code->setObjectName(QStringLiteral("bookmarkletCode"));
    m_code->setReadOnly(true);
    //% "Bookmarklet code"
    m_code->setAccessibleName(qtTrId("NOTES_BOOKMARKLET_CODE_NAME"));
    //% "The bookmark's address: a small script that sends the page to Vellox"
    m_code->setToolTip(qtTrId("NOTES_BOOKMARKLET_CODE_TIP"));

    m_copy->setObjectName(QStringLiteral("bookmarkletCopyButton"));
    //% "Copy Code"
    m_copy->setText(qtTrId("NOTES_BOOKMARKLET_COPY"));
    m_copy->setAccessibleName(m_copy->text());
    //% "Copy the bookmarklet to the clipboard"
    m_copy->setToolTip(qtTrId("NOTES_BOOKMARKLET_COPY_TIP"));
    connect(m_copy, &QPushButton::clicked, this,
            [] { QApplication::clipboard()->setText(bookmarklet()); });

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *close = buttons->button(QDialogButtonBox::Close);
    close->setAccessibleName(close->text());
    //% "Close this window"
    close->setToolTip(qtTrId("NOTES_BOOKMARKLET_CLOSE_TIP"));
    buttons->addButton(m_copy, QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(link, 0, Qt::AlignLeft);
    layout->addWidget(m_code, 1);
    layout->addWidget(buttons);
    resize(520, 320);
}
