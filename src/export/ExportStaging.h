#pragma once

#include "ExportOptions.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

class CancelFlag;

// The working folders of an export, all inside the support folder.
struct ExportFolders
{
    explicit ExportFolders(const QString &supportFolder);
    QString support;
    // Staging: the entries' texts and attachments, converted in place.
    QString temp;
    // The finished files, moved to the destination only when everything is done.
    QString product;
    QString book;
    QString bookFolder;
    // Creates temp and product empty.
    bool create() const;
    void removeAll() const;
};

// Reads the chosen entries, copies their attachments into the staging folder and turns the
// texts into what the output step works from: title lines on top, joined into one text when
// asked, converted to HTML when a markup language is chosen. The texts are held in memory
// (a file per entry written, rewritten and deleted cost more than converting them).
class ExportStaging
{
public:
    using Progress = std::function<void(int done, int total)>;
    // Converts text in a markup language to an HTML fragment.
    using Converter = std::function<QString(int language, const QString &text)>;

    ExportStaging(const ExportOptions &options, const ExportFolders &folders);

    void copyStyleSheet(const QString &defaultStyleSheet);
    // Entries whose text could not be found are listed in skipped().
    void stageEntries(const CancelFlag &cancel);
    void addTitleLines();
    void join();
    void convertMarkup(const Converter &convert, const CancelFlag &cancel,
                       const Progress &progress);
    // Converts on this thread and on helper threads, each with a converter of its own made
    // by makeConverter (a converter process works through one text at a time). progress is
    // called on this thread only.
    void convertMarkupInParallel(const std::function<Converter()> &makeConverter,
                                 const CancelFlag &cancel, const Progress &progress);

    // "txt", or "html" once the texts are converted.
    QString workingExtension() const { return m_workingExtension; }
    // The staged text of a base name ("complete" when joined): the entry's text with its
    // title line, or its HTML once converted. The texts stay in memory: only the book reads
    // them from files, written by writeWorkingFiles().
    QString workingText(const QString &base) const { return m_texts.value(base); }
    // Writes base + ".html" into the staging folder for each staged text, what transform
    // makes of its base name or else the text itself.
    void writeWorkingFiles(const std::function<QString(const QString &base)> &transform = {}) const;
    // The staged texts, in export-list order ("complete" when joined), as base names.
    QStringList stagedBases() const;
    // The folder relative links of a staged text resolve against.
    QString attachmentFolder(const QString &base) const;
    const QStringList &skipped() const { return m_skipped; }
    bool usesStyleSheet() const { return !m_options.cssFile.isEmpty(); }

private:
    void convertMarkup(const std::function<Converter()> &makeConverter, int helpers,
                       const CancelFlag &cancel, const Progress &progress);
    bool isTextBundle() const;

    const ExportOptions &m_options;
    ExportFolders m_folders;
    QString m_workingExtension = QStringLiteral("txt");
    QStringList m_skipped;
    QMap<QString, QString> m_texts;
};
