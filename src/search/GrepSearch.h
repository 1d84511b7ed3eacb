#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

class QProcess;

// The title field's full-text search: a small shell script runs grep over the notebook
// folder and the names it prints are the entries whose text holds the term. The script runs
// beside the window; a newer term ends the search still running, whose result never arrives.
class GrepSearch : public QObject
{
    Q_OBJECT
public:
    explicit GrepSearch(QObject *parent = nullptr);
    ~GrepSearch() override;

    // Searches notebookFolder (its files with extension) for term; finished() follows.
    void start(const QString &notebookFolder, const QString &term, const QString &extension);
    // The running search ends without a result.
    void cancel();
    bool isRunning() const;

    // "searchShellScript.sh" in the support folder.
    static QString scriptPath();
    // A leading "-" becomes "\-"; nothing else is escaped or quoted: the term reaches the
    // shell as the user typed it, in the user's own folder.
    static QString escapedTerm(const QString &term);
    static QString scriptText(const QString &term, const QString &extension);
    // grep's output as entry names, in order of first appearance: plain entries at the top
    // of the folder, or the bundle folders holding a match. Output that is not UTF-8 names
    // none; the quick-note file is never one.
    static QStringList contentMatches(const QByteArray &output, const QString &notebookFolder,
                                      const QString &extension);
    // Items directly in the folder whose name holds term (ignoring case) and whose extension
    // is extension.
    static QStringList nameMatches(const QString &notebookFolder, const QString &term,
                                   const QString &extension);
    // Both together, without duplicates, in plain string order.
    static QStringList resultList(const QStringList &content, const QStringList &names);
    // The last name whose title equals term ignoring case; -1 when none does.
    static int rowToSelect(const QStringList &result, const QString &term);

Q_SIGNALS:
    // The content matches of term (empty when the script could not run).
    void finished(const QString &term, const QStringList &contentMatches);

private:
    void finish(quint64 generation, const QStringList &matches);
    void endProcess();

    QPointer<QProcess> m_process;
    quint64 m_generation = 0;
    QString m_term;
    QString m_folder;
    QString m_extension;
};
