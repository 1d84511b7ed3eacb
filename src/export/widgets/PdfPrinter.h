#pragma once

#include "export/ExportJob.h"

#include <QList>
#include <QObject>

class QWebEnginePage;

// Prints HTML pages to PDF files one after the other with the web engine, off screen, so
// images and the style sheet look as in the preview. Runs on the main thread.
class PdfPrinter : public QObject
{
    Q_OBJECT
public:
    explicit PdfPrinter(QObject *parent = nullptr);

    void print(const QList<PdfPage> &pages);
    void cancel();

Q_SIGNALS:
    void progress(int done, int total);
    // Every page is printed (or failed, named in failures).
    void finished(const QStringList &failures);

private:
    void next();

    QWebEnginePage *m_page = nullptr;
    QList<PdfPage> m_pages;
    QStringList m_failures;
    int m_done = 0;
    bool m_cancelled = false;
};
