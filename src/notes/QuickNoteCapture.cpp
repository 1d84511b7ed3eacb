#include "QuickNoteCapture.h"

#include "NoteTitles.h"
#include "QuickNoteFile.h"
#include "QuickNoteStore.h"
#include "library/NotebookRegistry.h"

#include <QtDebug>

QuickNoteCapture::QuickNoteCapture(QuickNoteStore &store, NotebookRegistry &registry)
    : m_store(store)
    , m_registry(registry)
{}

QuickNoteCapture::Result QuickNoteCapture::addNote(int chosenIndex, int shownIndex,
                                                   const QuickNote &note)
{
    if (chosenIndex == shownIndex) {
        Result result;
        result.path = m_store.filePath();
        result.added = m_store.append(note);
        return result;
    }
    const QString folder =
        m_registry.record(chosenIndex).value(NotebookRegistry::PathKey).toString();
    if (folder.isEmpty()) {
        Result result;
        result.error = QStringLiteral("the notebook has no folder");
        return result;
    }
    return appendToFile(QuickNoteFile::pathInNotebookFolder(folder), note);
}

QuickNoteCapture::Result QuickNoteCapture::appendToFile(const QString &path, const QuickNote &note)
{
    Result result;
    result.path = path;
    QuickNoteFile::Contents contents = QuickNoteFile::read(path);
    if (contents.status == QuickNoteFile::Contents::Damaged) {
        result.damagedCopy = QuickNoteFile::keepDamagedCopy(path);
        if (result.damagedCopy.isEmpty()) {
            // Without a copy the notes in it would be gone for good.
            result.error = contents.error;
            return result;
        }
        contents.notes.clear();
    }
    contents.notes.append(note);
    if (!QuickNoteFile::write(path, contents.notes, &result.error)) {
        qWarning().noquote() << "FILEWRITING-ERROR:" << result.error;
        return result;
    }
    result.added = true;
    return result;
}

namespace {
// Control characters from a page (or a garbled link) would make the notes file one that other
// property-list readers refuse; their visible symbols keep what was there.
QString withVisibleControls(QString text)
{
    for (QChar &c : text) {
        const char16_t u = c.unicode();
        if (u < 0x20 && u != '\t' && u != '\n' && u != '\r')
            c = QChar(char16_t(0x2400 + u));
        else if (u == 0x7F)
            c = QChar(char16_t(0x2421));
        else if (u == 0xFFFE || u == 0xFFFF)
            c = QChar(QChar::ReplacementCharacter);
    }
    return text;
}
} // namespace

QuickNote QuickNoteCapture::noteFromLink(const BookmarkLink &link, const QDateTime &moment,
                                         const QLocale &locale)
{
    return {NoteTitles::webTitle(NoteTitles::timeText(moment, locale),
                                 NoteTitles::dateText(moment, locale)),
            withVisibleControls(NoteTitles::webText(link.text(), link.address()))};
}
