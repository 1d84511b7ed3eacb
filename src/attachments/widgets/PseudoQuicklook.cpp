#include "PseudoQuicklook.h"

#include "ScaledImageView.h"
#include "attachments/RtfToHtml.h"

#include <QFile>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QPdfDocument>
#include <QPdfView>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QStringDecoder>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebEngineView>

namespace {
// Plain text in any encoding: UTF-8 when it is valid, else Latin-1, which reads every byte.
QString readText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    const QByteArray bytes = file.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}
} // namespace

PseudoQuicklook::PseudoQuicklook(QWidget *parent)
    : QWidget(parent, Qt::Tool)
    , m_stack(new QStackedWidget)
    , m_image(new ScaledImageView)
    , m_text(new QTextBrowser)
    , m_other(new QWidget)
    , m_otherIcon(new QLabel)
    , m_otherName(new QLabel)
    , m_rtf(new RtfToHtml(this))
{
    setObjectName(QStringLiteral("attachmentPreviewWindow"));
    //% "Attachment preview"
    setAccessibleName(qtTrId("ATTACHMENT_PREVIEW_WINDOW_NAME"));
    //% "The selected attachment. Arrow keys show the next or previous one; Escape or Space close."
    setToolTip(qtTrId("ATTACHMENT_PREVIEW_WINDOW_TIP"));
    resize(720, 540);

    // The window keeps the keyboard so the arrows always step through the list.
    m_image->setFocusPolicy(Qt::NoFocus);
    m_image->setAccessibleName(accessibleName());
    m_image->setToolTip(toolTip());
    m_text->setObjectName(QStringLiteral("attachmentTextView"));
    m_text->setFocusPolicy(Qt::NoFocus);
    m_text->setOpenLinks(false);
    m_text->setAccessibleName(accessibleName());
    m_text->setToolTip(toolTip());

    m_other->setObjectName(QStringLiteral("attachmentIconView"));
    m_other->setAutoFillBackground(true);
    QPalette dark = m_other->palette();
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    m_other->setPalette(dark);
    m_otherIcon->setAlignment(Qt::AlignCenter);
    m_otherName->setAlignment(Qt::AlignCenter);
    m_otherName->setObjectName(QStringLiteral("attachmentIconName"));
    m_otherName->setAccessibleName(accessibleName());
    m_otherName->setToolTip(toolTip());
    m_otherIcon->setAccessibleName(accessibleName());
    m_otherIcon->setToolTip(toolTip());
    auto *otherLayout = new QVBoxLayout(m_other);
    otherLayout->addStretch(1);
    otherLayout->addWidget(m_otherIcon);
    otherLayout->addWidget(m_otherName);
    otherLayout->addStretch(1);

    m_stack->addWidget(m_other);
    m_stack->addWidget(m_image);
    m_stack->addWidget(m_text);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_stack);

    // Shortcuts as well as key presses: a web page or film keeps the keyboard focus for
    // itself once it has loaded, and the keys must still reach the list.
    const QList<QPair<QKeySequence, void (PseudoQuicklook::*)()>> keys = {
        {QKeySequence(Qt::Key_Up), &PseudoQuicklook::goingUp},
        {QKeySequence(Qt::Key_Left), &PseudoQuicklook::goingUp},
        {QKeySequence(Qt::Key_Down), &PseudoQuicklook::goingDown},
        {QKeySequence(Qt::Key_Right), &PseudoQuicklook::goingDown},
        {QKeySequence(Qt::Key_Escape), &PseudoQuicklook::closeRequested},
        {QKeySequence(Qt::Key_Space), &PseudoQuicklook::closeRequested}};
    for (const auto &[sequence, signal] : keys) {
        auto *shortcut = new QShortcut(sequence, this);
        shortcut->setContext(Qt::WindowShortcut);
        connect(shortcut, &QShortcut::activated, this, signal);
    }

    connect(m_rtf, &RtfToHtml::converted, this,
            [this](const QString &path, bool ok, const QString &html, const QString &error) {
                if (path != m_path)
                    return;
                if (ok) {
                    m_text->setHtml(html);
                    showView(m_text);
                } else {
                    qWarning().noquote() << QStringLiteral("ERROR: %1").arg(error);
                    showIconAndName();
                }
                Q_EMIT richTextShown(ok);
            });
}

PseudoQuicklook::~PseudoQuicklook() = default;

QWebEngineView *PseudoQuicklook::webView() const
{
    return m_web;
}

QWidget *PseudoQuicklook::currentView() const
{
    return m_stack->currentWidget();
}

void PseudoQuicklook::showEvent(QShowEvent *event)
{
    // The first time, over the middle of the window it belongs to; later where the user left it.
    if (!m_placed && parentWidget()) {
        QRect frame = geometry();
        frame.moveCenter(parentWidget()->window()->geometry().center());
        move(frame.topLeft());
        m_placed = true;
    }
    QWidget::showEvent(event);
}

void PseudoQuicklook::showItem(const QString &path)
{
    m_path = path;
    m_kind = PreviewKind::forPath(path);
    setWindowTitle(QFileInfo(path).fileName());
    switch (m_kind) {
    case PreviewKind::Pdf:
        showPdf();
        break;
    case PreviewKind::Image:
        showImage();
        break;
    case PreviewKind::Media:
        showWeb(true);
        break;
    case PreviewKind::Html:
        showWeb(false);
        break;
    case PreviewKind::Text:
        showText();
        break;
    case PreviewKind::Rtf:
    case PreviewKind::Rtfd:
        showRichText();
        break;
    case PreviewKind::WebArchive:
    case PreviewKind::Other:
        showIconAndName();
        break;
    }
}

void PseudoQuicklook::showView(QWidget *view)
{
    m_stack->setCurrentWidget(view);
}

void PseudoQuicklook::showPdf()
{
    if (!m_pdf) {
        m_pdfDocument = new QPdfDocument(this);
        m_pdf = new QPdfView;
        m_pdf->setObjectName(QStringLiteral("attachmentPdfView"));
        m_pdf->setAccessibleName(accessibleName());
        m_pdf->setToolTip(toolTip());
        m_pdf->setFocusPolicy(Qt::NoFocus);
        m_pdf->setDocument(m_pdfDocument);
        m_pdf->setPageMode(QPdfView::PageMode::MultiPage);
        m_pdf->setZoomMode(QPdfView::ZoomMode::FitToWidth);
        m_stack->addWidget(m_pdf);
    }
    if (m_pdfDocument->load(m_path) != QPdfDocument::Error::None) {
        showIconAndName();
        return;
    }
    showView(m_pdf);
}

void PseudoQuicklook::showImage()
{
    const QScreen *screen = this->screen();
    const QSize bound = screen ? screen->availableSize() : QSize(2560, 1600);
    if (!m_image->load(m_path, bound)) {
        showIconAndName();
        return;
    }
    showView(m_image);
}

QWebEngineView *PseudoQuicklook::web()
{
    // Made on first use: the web engine's processes start only for a page or a film.
    if (!m_web) {
        m_web = new QWebEngineView;
        m_web->setObjectName(QStringLiteral("attachmentWebView"));
        m_web->setAccessibleName(accessibleName());
        m_web->setToolTip(toolTip());
        m_web->setFocusPolicy(Qt::NoFocus);
        m_stack->addWidget(m_web);
    }
    return m_web;
}

void PseudoQuicklook::showWeb(bool media)
{
    const QUrl url = QUrl::fromLocalFile(m_path);
    if (media)
        web()->setHtml(PreviewKind::mediaPage(url), url.adjusted(QUrl::RemoveFilename));
    else
        web()->load(url);
    showView(m_web);
}

void PseudoQuicklook::showText()
{
    m_text->setPlainText(readText(m_path));
    showView(m_text);
}

void PseudoQuicklook::showRichText()
{
    // Until the converter answers, the icon and name stand in.
    showIconAndName();
    m_rtf->convert(m_path);
}

void PseudoQuicklook::showIconAndName()
{
    static const QFileIconProvider provider;
    m_otherIcon->setPixmap(provider.icon(QFileInfo(m_path)).pixmap(128, 128));
    m_otherName->setText(QFileInfo(m_path).fileName());
    showView(m_other);
}

void PseudoQuicklook::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        Q_EMIT goingUp();
        return;
    case Qt::Key_Down:
    case Qt::Key_Right:
        Q_EMIT goingDown();
        return;
    case Qt::Key_Escape:
    case Qt::Key_Space:
        Q_EMIT closeRequested();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}
