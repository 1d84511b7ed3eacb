#include "ExportStaging.h"

#include "ChildProcess.h"
#include "WorkingFiles.h"
#include "render/MarkupLanguage.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <atomic>
#include <vector>

namespace {

QString baseName(const QString &fileName)
{
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? fileName.left(dot) : fileName;
}

QString extensionOf(const QString &fileName)
{
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? fileName.mid(dot + 1) : QString();
}

} // namespace

ExportFolders::ExportFolders(const QString &supportFolder)
    : support(supportFolder)
    , temp(supportFolder + QStringLiteral("/temp"))
    , product(supportFolder + QStringLiteral("/product"))
    , book(supportFolder + QStringLiteral("/temp.epub"))
    , bookFolder(supportFolder + QStringLiteral("/temporaryFolder"))
{}

bool ExportFolders::create() const
{
    removeAll();
    return QDir().mkpath(temp) && QDir().mkpath(product);
}

void ExportFolders::removeAll() const
{
    QDir(temp).removeRecursively();
    QDir(product).removeRecursively();
    QDir(bookFolder).removeRecursively();
    QFile::remove(book);
}

ExportStaging::ExportStaging(const ExportOptions &options, const ExportFolders &folders)
    : m_options(options)
    , m_folders(folders)
{}

bool ExportStaging::isTextBundle() const
{
    return m_options.entryExtension == QLatin1String("textbundle");
}

void ExportStaging::copyStyleSheet(const QString &defaultStyleSheet)
{
    const QString target = m_folders.temp + QStringLiteral("/css.css");
    QFile::remove(target);
    const QString source =
        QFileInfo(m_options.cssFile).isFile() ? m_options.cssFile : defaultStyleSheet;
    WorkingFiles::copy(source, target);
}

void ExportStaging::stageEntries(const CancelFlag &cancel)
{
    QString notebook = m_options.notebookFolder;
    if (!notebook.endsWith(QLatin1Char('/')))
        notebook += QLatin1Char('/');
    const bool epub = m_options.format == int(ExportFormat::Epub);
    for (const QString &name : m_options.files) {
        if (cancel.isRaised())
            return;
        const QString base = baseName(name);
        QString source;
        QString attachments;
        if (isTextBundle()) {
            const QDir bundle(notebook + name);
            const auto texts = bundle.entryList({QStringLiteral("text.*")}, QDir::Files);
            if (!texts.isEmpty())
                source = bundle.filePath(texts.first());
            attachments = notebook + name + QStringLiteral("/assets");
        } else {
            source = notebook + name;
            attachments = notebook + base;
        }
        QFile file(source);
        if (source.isEmpty() || !QFileInfo(source).isFile() || !file.open(QIODevice::ReadOnly)) {
            m_skipped << name;
            continue;
        }
        m_texts.insert(base, QString::fromUtf8(file.readAll()));
        if (QFileInfo(attachments).isDir() && !(epub && m_options.markup == 0))
            WorkingFiles::copyRecursively(attachments, m_folders.temp + QLatin1Char('/') + base);
    }
}

void ExportStaging::addTitleLines()
{
    if (!m_options.titles)
        return;
    for (auto it = m_texts.begin(); it != m_texts.end(); ++it)
        it.value() = MarkupLanguage::boldTitle(m_options.markup, it.key()) +
                     QStringLiteral("\n\n") + it.value();
}

void ExportStaging::join()
{
    if (!m_options.joined)
        return;
    const bool epub = m_options.format == int(ExportFormat::Epub);
    const QString shared = m_folders.temp + QStringLiteral("/completeAttachments");
    QDir().mkpath(shared);
    QString joined;
    for (const QString &name : m_options.files) {
        if (extensionOf(name) != m_options.entryExtension)
            continue;
        const QString base = baseName(name);
        if (!epub && m_texts.contains(base))
            joined += m_texts.take(base) + QStringLiteral("\n\n");
        const QString folder = m_folders.temp + QLatin1Char('/') + base;
        if (!QFileInfo(folder).isDir())
            continue;
        // Attachments of different entries share one folder; the first of a name stays.
        const QDir dir(folder);
        for (const QString &item : dir.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            const QString target = shared + QLatin1Char('/') + item;
            // The entry's folder goes right after, so its items can move rather than copy.
            if (!QFileInfo::exists(target) && !QDir().rename(dir.filePath(item), target))
                WorkingFiles::copyRecursively(dir.filePath(item), target);
        }
        QDir(folder).removeRecursively();
    }
    if (!epub)
        m_texts.insert(QStringLiteral("complete"), joined);
}

void ExportStaging::convertMarkup(const Converter &convert, const CancelFlag &cancel,
                                  const Progress &progress)
{
    convertMarkup([&] { return convert; }, 0, cancel, progress);
}

void ExportStaging::convertMarkupInParallel(const std::function<Converter()> &makeConverter,
                                            const CancelFlag &cancel, const Progress &progress)
{
    convertMarkup(makeConverter, qBound(0, QThread::idealThreadCount() - 1, 3), cancel, progress);
}

void ExportStaging::convertMarkup(const std::function<Converter()> &makeConverter, int helpers,
                                  const CancelFlag &cancel, const Progress &progress)
{
    if (m_options.markup == 0)
        return;
    const bool epub = m_options.format == int(ExportFormat::Epub);
    const QString style =
        (!epub && usesStyleSheet())
            ? QStringLiteral("<style type=\"text/css\"> %1 </style>")
                  .arg(WorkingFiles::readUtf8(m_folders.temp + QStringLiteral("/css.css")))
            : QString();
    const QStringList bases = m_texts.keys();
    const auto count = bases.size();
    std::vector<QString> converted(count);
    std::atomic<qsizetype> next = 0;
    std::atomic<int> done = 0;
    auto convertNext = [&](const Converter &convert) {
        const qsizetype index = next++;
        if (index >= count || cancel.isRaised())
            return false;
        QString text = m_texts.value(bases.at(index));
        if (isTextBundle())
            text.remove(QStringLiteral("assets/"));
        converted[index] = style + convert(m_options.markup, text);
        ++done;
        return true;
    };
    auto report = [&] {
        if (progress)
            progress(done, int(count));
    };
    const Converter own = makeConverter();
    // The first text alone: a language may set itself up on first use (MultiMarkdown is
    // unpacked), which two threads must not do at once.
    if (convertNext(own))
        report();
    QList<QThread *> threads;
    for (int i = 0; i < helpers && next < count; ++i) {
        threads << QThread::create([&] {
            // Made and dropped on the helper, which its converter process belongs to.
            const Converter convert = makeConverter();
            while (convertNext(convert)) {
            }
        });
        threads.last()->start();
    }
    while (convertNext(own))
        report();
    for (QThread *thread : std::as_const(threads)) {
        thread->wait();
        delete thread;
    }
    report();
    if (cancel.isRaised())
        return;
    for (qsizetype i = 0; i < count; ++i)
        m_texts[bases.at(i)] = converted[i];
    m_workingExtension = QStringLiteral("html");
}

void ExportStaging::writeWorkingFiles(
    const std::function<QString(const QString &)> &transform) const
{
    for (auto it = m_texts.cbegin(); it != m_texts.cend(); ++it)
        WorkingFiles::writeUtf8(m_folders.temp + QLatin1Char('/') + it.key() +
                                    QStringLiteral(".html"),
                                transform ? transform(it.key()) : it.value());
}

QStringList ExportStaging::stagedBases() const
{
    QStringList bases;
    if (m_options.joined && m_options.format != int(ExportFormat::Epub)) {
        if (m_texts.contains(QStringLiteral("complete")))
            bases << QStringLiteral("complete");
        return bases;
    }
    for (const QString &name : m_options.files) {
        const QString base = baseName(name);
        if (!bases.contains(base) && m_texts.contains(base))
            bases << base;
    }
    return bases;
}

QString ExportStaging::attachmentFolder(const QString &base) const
{
    if (m_options.joined)
        return m_folders.temp + QStringLiteral("/completeAttachments/");
    return m_folders.temp + QLatin1Char('/') + base + QLatin1Char('/');
}
