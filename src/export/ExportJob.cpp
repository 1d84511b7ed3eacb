#include "ExportJob.h"

#include "HtmlDocument.h"
#include "LibreOfficeConverter.h"
#include "RtfdWriter.h"
#include "WorkingFiles.h"
#include "core/AppPaths.h"
#include "render/TaskController.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <memory>

namespace {

bool moveInto(const QString &from, const QString &to)
{
    if (QFileInfo(to).isDir())
        QDir(to).removeRecursively();
    else if (QFileInfo::exists(to))
        QFile::remove(to);
    if (QFile::rename(from, to) || QDir().rename(from, to))
        return true;
    if (QFileInfo(from).isDir()) {
        QDir().mkpath(to);
        const QDir dir(from);
        bool ok = true;
        for (const QString &name : dir.entryList(QDir::Files))
            ok = QFile::copy(dir.filePath(name), to + QLatin1Char('/') + name) && ok;
        return ok;
    }
    // Into the user's folder, so the copy that is synced and renamed into place.
    return QFile::copy(from, to);
}

} // namespace

QString ExportReport::summary() const
{
    if (cancelled)
        //% "Export cancelled; nothing was written."
        return qtTrId("EXPORT_REPORT_CANCELLED");
    if (failures.isEmpty())
        //% "Exported %1 of %2."
        return qtTrId("EXPORT_REPORT_DONE").arg(exported).arg(total);
    //% "Exported %1 of %2; %3 failed: %4"
    return qtTrId("EXPORT_REPORT_FAILED")
        .arg(exported)
        .arg(total)
        .arg(failures.size())
        .arg(failures.join(QStringLiteral("; ")));
}

ExportJob::ExportJob(const ExportOptions &options, const CancelFlag &cancel)
    : ExportJob(options, cancel, Tools())
{}

ExportJob::ExportJob(const ExportOptions &options, const CancelFlag &cancel, const Tools &tools)
    : m_options(options)
    , m_cancel(cancel)
    , m_tools(tools)
    , m_folders(options.supportFolder.isEmpty() ? AppPaths::supportFolder() : options.supportFolder)
    , m_staging(m_options, m_folders)
{
    m_report.total = int(options.files.size());
}

ExportJob::~ExportJob() = default;

QString ExportJob::outputName(const QString &base) const
{
    return base == QLatin1String("complete") && m_options.joined ? m_options.joinedName : base;
}

QString ExportJob::stagedText(const QString &base) const
{
    return m_staging.workingText(base);
}

QString ExportJob::htmlDocument(const QString &base, bool inline_) const
{
    const QString text = stagedText(base);
    QString fragment = m_staging.workingExtension() == QLatin1String("html")
                           ? text
                           : HtmlDocument::paragraphsFromPlainText(text);
    if (inline_)
        fragment = HtmlDocument::inlineImages(fragment, m_staging.attachmentFolder(base));
    return HtmlDocument::document(outputName(base), fragment);
}

void ExportJob::prepare()
{
    const QString destination = m_options.destination;
    const QFileInfo target(destination);
    if (!target.isDir() || !target.isWritable()) {
        m_report.failures
            //% "%1 cannot be written to"
            << qtTrId("EXPORT_FAILURE_DESTINATION").arg(destination);
        return;
    }
    if (!m_folders.create()) {
        m_report.failures
            //% "%1 cannot be created"
            << qtTrId("EXPORT_FAILURE_STAGING").arg(m_folders.temp);
        return;
    }
    const int total = int(m_options.files.size());
    //% "Copying entries"
    Q_EMIT progress(0, total, qtTrId("EXPORT_STEP_COPYING"));
    m_staging.copyStyleSheet(AppPaths::resource(QStringLiteral("export/css.css")));
    m_staging.stageEntries(m_cancel);
    for (const QString &name : m_staging.skipped())
        //% "%1: not found"
        m_report.failures << qtTrId("EXPORT_FAILURE_NOT_FOUND").arg(name);
    m_staging.addTitleLines();
    m_staging.join();
    if (m_cancel.isRaised())
        return;

    const auto converting = [&](int done, int count) {
        //% "Converting"
        Q_EMIT progress(done, count, qtTrId("EXPORT_STEP_CONVERTING"));
    };
    if (m_tools.converter) {
        m_staging.convertMarkup(m_tools.converter, m_cancel, converting);
    } else {
        m_staging.convertMarkupInParallel(
            [] {
                auto controller = std::make_shared<TaskController>();
                return [controller](int language, const QString &text) {
                    return controller->convert(language, text);
                };
            },
            m_cancel, converting);
    }
    if (m_cancel.isRaised())
        return;

    const QStringList bases = m_staging.stagedBases();
    for (const QString &base : bases)
        m_expected << base;
    switch (ExportFormat(m_options.format)) {
    case ExportFormat::PlainText:
        writePlainText(bases);
        break;
    case ExportFormat::Html:
        writeHtml(bases);
        break;
    case ExportFormat::Word:
    case ExportFormat::Rtf:
    case ExportFormat::OpenDocument:
        writeWithLibreOffice(bases, ExportFormats::outputExtension(m_options.format));
        break;
    case ExportFormat::Rtfd:
        writeRtfd(bases);
        break;
    case ExportFormat::Pdf:
        writePdfPages(bases);
        break;
    case ExportFormat::Epub:
        writeEpub();
        break;
    }
}

void ExportJob::writePlainText(const QStringList &bases)
{
    int done = 0;
    for (const QString &base : bases) {
        if (m_cancel.isRaised())
            return;
        QString text = stagedText(base);
        if (m_staging.workingExtension() == QLatin1String("html"))
            text = HtmlDocument::plainText(text);
        WorkingFiles::writeUtf8(
            m_folders.product + QLatin1Char('/') + outputName(base) + QStringLiteral(".txt"), text);
        Q_EMIT progress(++done, int(bases.size()),
                        //% "Writing"
                        qtTrId("EXPORT_STEP_WRITING"));
    }
}

void ExportJob::writeHtml(const QStringList &bases)
{
    int done = 0;
    for (const QString &base : bases) {
        if (m_cancel.isRaised())
            return;
        WorkingFiles::writeUtf8(m_folders.product + QLatin1Char('/') + outputName(base) +
                                    QStringLiteral(".html"),
                                htmlDocument(base, true));
        Q_EMIT progress(++done, int(bases.size()),
                        //% "Writing"
                        qtTrId("EXPORT_STEP_WRITING"));
    }
}

void ExportJob::writeWithLibreOffice(const QStringList &bases, const QString &extension)
{
    LibreOfficeConverter office(m_folders.temp + QStringLiteral("/.libreoffice-profile"),
                                m_tools.soffice);
    if (!office.isInstalled()) {
        //% "LibreOffice is missing (install the Debian package libreoffice-writer-nogui)"
        m_report.failures << qtTrId("EXPORT_FAILURE_NO_LIBREOFFICE");
        m_expected.clear();
        return;
    }
    const QString inputFolder = m_folders.temp + QStringLiteral("/.converter-input");
    QDir().mkpath(inputFolder);
    QStringList inputs;
    for (const QString &base : bases) {
        inputs << inputFolder + QLatin1Char('/') + outputName(base) + QStringLiteral(".html");
        WorkingFiles::writeUtf8(inputs.last(), htmlDocument(base, true));
    }
    const int total = int(inputs.size());
    //% "Converting with LibreOffice"
    Q_EMIT progress(0, total, qtTrId("EXPORT_STEP_OFFICE"));
    const QStringList failed =
        office.convert(inputs, extension, m_folders.product, m_cancel, [&](int finished) {
            Q_EMIT progress(finished, total, qtTrId("EXPORT_STEP_OFFICE"));
        });
    if (m_cancel.isRaised())
        return;
    for (const QString &input : failed)
        //% "%1: LibreOffice could not convert it"
        m_report.failures
            << qtTrId("EXPORT_FAILURE_CONVERSION").arg(QFileInfo(input).completeBaseName());
}

void ExportJob::writeRtfd(const QStringList &bases)
{
    LibreOfficeConverter office(m_folders.temp + QStringLiteral("/.libreoffice-profile"),
                                m_tools.soffice);
    if (!office.isInstalled()) {
        //% "LibreOffice is missing (install the Debian package libreoffice-writer-nogui)"
        m_report.failures << qtTrId("EXPORT_FAILURE_NO_LIBREOFFICE");
        m_expected.clear();
        return;
    }
    RtfdWriter writer(m_folders.temp + QStringLiteral("/.rtfd"));
    QStringList inputs;
    for (const QString &base : bases) {
        const QString text = stagedText(base);
        const QString fragment = m_staging.workingExtension() == QLatin1String("html")
                                     ? text
                                     : HtmlDocument::paragraphsFromPlainText(text);
        inputs << writer.addDocument(outputName(base), fragment, m_staging.attachmentFolder(base));
    }
    Q_EMIT progress(0, int(inputs.size()), qtTrId("EXPORT_STEP_OFFICE"));
    const QStringList failed =
        office.convert(inputs, QStringLiteral("rtf"), writer.rtfFolder(), m_cancel);
    if (m_cancel.isRaised())
        return;
    for (const QString &input : failed)
        //% "%1: LibreOffice could not convert it"
        m_report.failures
            << qtTrId("EXPORT_FAILURE_CONVERSION").arg(QFileInfo(input).completeBaseName());
    writer.writePackages(m_folders.product);
}

void ExportJob::writePdfPages(const QStringList &bases)
{
    const QString inputFolder = m_folders.temp + QStringLiteral("/.pdf-input");
    QDir().mkpath(inputFolder);
    for (const QString &base : bases) {
        const QString text = stagedText(base);
        QString fragment = m_staging.workingExtension() == QLatin1String("html")
                               ? text
                               : HtmlDocument::paragraphsFromPlainText(text);
        const QString baseHref =
            QUrl::fromLocalFile(m_staging.attachmentFolder(base)).toString(QUrl::FullyEncoded);
        fragment.prepend(QStringLiteral("<base href=\"%1\" />\n").arg(baseHref));
        PdfPage page;
        page.html = inputFolder + QLatin1Char('/') + outputName(base) + QStringLiteral(".html");
        page.output =
            m_folders.product + QLatin1Char('/') + outputName(base) + QStringLiteral(".pdf");
        WorkingFiles::writeUtf8(page.html, HtmlDocument::document(outputName(base), fragment));
        m_pdfPages << page;
    }
}

void ExportJob::writeEpub()
{
    QMap<QString, QString> details = m_options.bookDetails;
    if (details.value(QStringLiteral("title")).isEmpty())
        details[QStringLiteral("title")] = m_options.notebookName;
    const QString cover = m_folders.temp + QStringLiteral("/cover.jpg");
    QFile::remove(cover);
    WorkingFiles::copy(QFileInfo(m_options.coverImage).isFile()
                           ? m_options.coverImage
                           : AppPaths::resource(QStringLiteral("export/cover.jpg")),
                       cover);
    if (m_options.markup == 0) {
        // Plain texts become chapters of paragraphs.
        m_staging.writeWorkingFiles([&](const QString &base) {
            return HtmlDocument::document(
                base, HtmlDocument::paragraphsFromPlainText(m_staging.workingText(base)));
        });
    } else {
        m_staging.writeWorkingFiles();
    }
    //% "Building the book"
    Q_EMIT progress(0, 1, qtTrId("EXPORT_STEP_BOOK"));
    QDir().mkpath(m_folders.temp + QStringLiteral("/completeAttachments"));
    ePubCreator creator(m_folders.support, m_cancel, m_tools.epub);
    const bool built =
        creator.createEpubBook(m_folders.temp, m_options.destination, details, m_options.files);
    m_report.failures << creator.problems();
    m_expected = creator.chapters();
    if (built) {
        moveInto(m_folders.book, m_folders.product + QLatin1Char('/') + m_options.joinedName +
                                     QStringLiteral(".epub"));
    } else {
        m_expected.clear();
    }
}

int ExportJob::producedCount() const
{
    return int(QDir(m_folders.product).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size());
}

void ExportJob::finish()
{
    if (m_cancel.isRaised()) {
        m_report.cancelled = true;
        cleanUp();
        return;
    }
    const QDir product(m_folders.product);
    const QStringList produced = product.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QString &name : produced) {
        const QString target = m_options.destination + QLatin1Char('/') + name;
        if (moveInto(product.filePath(name), target))
            m_report.written << target;
        else
            m_report.failures
                //% "%1 could not be written"
                << qtTrId("EXPORT_FAILURE_WRITE").arg(target);
    }
    const bool oneFile = m_options.joined || m_options.format == int(ExportFormat::Epub);
    if (oneFile) {
        m_report.exported = m_report.written.isEmpty() ? 0 : int(m_expected.size());
        if (m_options.joined && m_options.format != int(ExportFormat::Epub) &&
            !m_report.written.isEmpty())
            m_report.exported = m_report.total - int(m_staging.skipped().size());
    } else {
        m_report.exported = int(m_report.written.size());
    }
    cleanUp();
}

void ExportJob::cleanUp()
{
    m_folders.removeAll();
}
