#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

class CancelFlag;

// Turns the staged HTML chapters of an export into an EPUB 2 book: lays out the book folder,
// fills the templates with the book's details, cuts each chapter down to a clean page, has
// tidy make XHTML of the pages and packs the folder with zip, "mimetype" first and stored.
// Made fresh for each book.
class ePubCreator
{
public:
    struct Tools
    {
        QString shell = QStringLiteral("/bin/sh");
        QString tidy = QStringLiteral("/usr/bin/tidy");
        QString zip = QStringLiteral("/usr/bin/zip");
        // Where the templates live; empty means the shipped resources.
        QString templateFolder;
    };

    ePubCreator(const QString &applicationFolder, const CancelFlag &cancel);
    ePubCreator(const QString &applicationFolder, const CancelFlag &cancel, const Tools &tools);

    // Builds pathToApplicationFolder() + "/temp.epub" from the staging folder's chapters
    // (base + ".html" for each name in fileOrder), "cover.jpg", "css.css" and
    // "completeAttachments". False when no book was written; problems() says why.
    bool createEpubBook(const QString &staging, const QString &destination,
                        const QMap<QString, QString> &details, const QStringList &fileOrder);

    QString pathToApplicationFolder() const { return m_applicationFolder; }
    QString bookFolder() const;
    QString bookFile() const;
    // What went wrong, one line each; the book may still have been written.
    const QStringList &problems() const { return m_problems; }
    // The chapters the book holds, in order (the entries' base names).
    const QStringList &chapters() const { return m_chapters; }

    // "&", "<", ">", '"' and "'" as their named entities.
    static QString escapedForHTML(const QString &text);
    // Replaces every occurrence of placeholder, ignoring case.
    static void fill(QString &text, const QString &placeholder, const QString &value);

private:
    QString templateText(const QString &fileName) const;
    QString chapterBody(const QString &html, const QString &staging,
                        const QStringList &attachments) const;
    bool tidyPages();
    void cleanPages(const QStringList &pages);
    bool pack();

    QString m_applicationFolder;
    const CancelFlag &m_cancel;
    Tools m_tools;
    QStringList m_problems;
    QStringList m_chapters;
};
