#include "TitleSearchController.h"

#include "core/UserDefaults.h"
#include "library/widgets/EntryController.h"

#include <QLineEdit>

TitleSearchController::TitleSearchController(EntryController *entries, QLineEdit *titleField,
                                             UserDefaults &defaults, QObject *parent)
    : QObject(parent)
    , m_entries(entries)
    , m_titleField(titleField)
    , m_defaults(defaults)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(100);
    connect(&m_delay, &QTimer::timeout, this, &TitleSearchController::performGrepSearchHelper);
    // Only what the user types searches; a title shown for a loaded entry does not.
    connect(titleField, &QLineEdit::textEdited, this, &TitleSearchController::onTitleChanged);
    connect(&m_search, &GrepSearch::finished, this, &TitleSearchController::showResult);
}

void TitleSearchController::onTitleChanged(const QString &title)
{
    if (title.isEmpty()) {
        m_delay.stop();
        m_search.cancel();
        // The whole notebook again, with whatever came or went meanwhile; a list that still
        // shows unsaved words' entry is left alone unless it was narrowed.
        if (m_entries->list()->isNarrowed() || !m_entries->hasUnsavedText()) {
            m_entries->list()->relist();
            m_entries->list()->view()->scrollToTop();
        }
        return;
    }
    m_delay.start();
}

void TitleSearchController::performGrepSearchHelper()
{
    const QString term = m_titleField->text();
    if (term.isEmpty() || m_entries->notebookPath().isEmpty())
        return;
    m_search.start(m_entries->list()->notebookFolder(), term,
                   m_defaults.value(Settings::DefaultFileExtensionForEntries));
}

void TitleSearchController::showResult(const QString &term, const QStringList &contentMatches)
{
    // A result for a title no longer in the field would only flash by.
    if (term != m_titleField->text())
        return;
    EntryListController *list = m_entries->list();
    const QString extension = m_defaults.value(Settings::DefaultFileExtensionForEntries);
    const QStringList result = GrepSearch::resultList(
        contentMatches, GrepSearch::nameMatches(list->notebookFolder(), term, extension));
    const int row = GrepSearch::rowToSelect(result, term);
    list->showOnly(result);
    Q_EMIT listNarrowed(term, result);
    if (row < 0)
        return;
    const QString name = result.at(row);
    const EntryDocument &open = m_entries->document();
    if (open.isValid() && open.fileName() == name) {
        list->selectRow(row);
        return;
    }
    // Another entry is named so (in another letter case): it opens when that loses no
    // words, that is when the editor holds none yet.
    if (!m_entries->hasUnsavedText() && m_entries->editor().string().isEmpty()) {
        list->selectRow(row);
        m_entries->tableViewSelectionDidChange();
    }
}

void TitleSearchController::unlockSearchResults()
{
    m_delay.stop();
    m_search.cancel();
    m_entries->loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(
        m_titleField->text() + QLatin1Char('.') +
        m_defaults.value(Settings::DefaultFileExtensionForEntries));
}
