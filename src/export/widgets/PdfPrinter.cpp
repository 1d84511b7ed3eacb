#include "PdfPrinter.h"

#include <QFileInfo>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QUrl>
#include <QWebEnginePage>

PdfPrinter::PdfPrinter(QObject *parent)
    : QObject(parent)
{}

void PdfPrinter::print(const QList<PdfPage> &pages)
{
    m_pages = pages;
    m_failures.clear();
    m_done = 0;
    m_cancelled = false;
    if (!m_page) {
        m_page = new QWebEnginePage(this);
        connect(m_page, &QWebEnginePage::loadFinished, this, [this](bool ok) {
            if (m_cancelled || m_done >= m_pages.size())
                return;
            const PdfPage &page = m_pages.at(m_done);
            if (!ok) {
                m_failures << QFileInfo(page.output).completeBaseName();
                ++m_done;
                next();
                return;
            }
            const QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
            m_page->printToPdf(page.output, layout);
        });
        connect(m_page, &QWebEnginePage::pdfPrintingFinished, this,
                [this](const QString &path, bool success) {
                    if (m_cancelled)
                        return;
                    if (!success || !QFileInfo(path).isFile())
                        m_failures << QFileInfo(path).completeBaseName();
                    ++m_done;
                    Q_EMIT progress(m_done, int(m_pages.size()));
                    next();
                });
    }
    next();
}

void PdfPrinter::cancel()
{
    m_cancelled = true;
    if (m_page)
        m_page->triggerAction(QWebEnginePage::Stop);
    Q_EMIT finished(m_failures);
}

void PdfPrinter::next()
{
    if (m_cancelled)
        return;
    if (m_done >= m_pages.size()) {
        Q_EMIT finished(m_failures);
        return;
    }
    m_page->load(QUrl::fromLocalFile(m_pages.at(m_done).html));
}
