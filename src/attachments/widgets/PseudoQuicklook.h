#pragma once

#include "attachments/PreviewKind.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QPdfDocument;
class QPdfView;
class QStackedWidget;
class QTextBrowser;
class QWebEngineView;
class RtfToHtml;
class ScaledImageView;

// The preview window of the selected attachment, titled with its name: PDFs, pictures,
// audio and video, web pages, plain and rich text each in a view of their own; anything
// else as its icon and name. The arrow keys step through the list; Escape and Space close.
class PseudoQuicklook : public QWidget
{
    Q_OBJECT
public:
    explicit PseudoQuicklook(QWidget *parent = nullptr);
    ~PseudoQuicklook() override;

    void showItem(const QString &path);
    QString currentPath() const { return m_path; }
    PreviewKind::Kind currentKind() const { return m_kind; }
    QWidget *currentView() const;

    QPdfDocument *pdfDocument() const { return m_pdfDocument; }
    ScaledImageView *imageView() const { return m_image; }
    QTextBrowser *textView() const { return m_text; }
    QWebEngineView *webView() const;

Q_SIGNALS:
    void goingUp();
    void goingDown();
    void closeRequested();
    // The rich text of the current item is shown (or could not be read).
    void richTextShown(bool ok);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void showPdf();
    void showImage();
    void showWeb(bool media);
    void showText();
    void showRichText();
    void showIconAndName();
    void showView(QWidget *view);
    QWebEngineView *web();

    QStackedWidget *m_stack;
    QPdfDocument *m_pdfDocument = nullptr;
    QPdfView *m_pdf = nullptr;
    ScaledImageView *m_image;
    QTextBrowser *m_text;
    QWidget *m_other;
    QLabel *m_otherIcon;
    QLabel *m_otherName;
    QPointer<QWebEngineView> m_web;
    RtfToHtml *m_rtf;
    QString m_path;
    PreviewKind::Kind m_kind = PreviewKind::Other;
    bool m_placed = false;
};
