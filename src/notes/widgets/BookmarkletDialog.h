#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

// Help's "Capture Links from Your Browser…": the bookmarklet that sends the page on screen
// and its selected text to Vellox as a quick note, to copy or to drag onto a bookmarks bar.
class BookmarkletDialog : public QDialog
{
    Q_OBJECT
public:
    explicit BookmarkletDialog(QWidget *parent = nullptr);

    // The javascript: link. It joins the page address and the selection, percent-encoded in
    // UTF-8, with the separator the link format uses; the separator inside the page's text
    // is escaped so it cannot split the fields.
    static QString bookmarklet();

    QPlainTextEdit *codeView() const { return m_code; }
    QPushButton *copyButton() const { return m_copy; }

private:
    QPlainTextEdit *m_code;
    QPushButton *m_copy;
};
