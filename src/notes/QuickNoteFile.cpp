#include "QuickNoteFile.h"

#include "core/AppPaths.h"
#include "core/PropertyList.h"

#include <QFile>
#include <QFileInfo>
#include <QVariantList>

namespace QuickNoteFile {

QString pathInSavePath(const QString &savePath)
{
    return AppPaths::expandTilde(savePath + FileName);
}

QString pathInNotebookFolder(const QString &documentPath)
{
    return AppPaths::expandTilde(documentPath + QLatin1Char('/') + FileName);
}

Contents read(const QString &path)
{
    Contents contents;
    if (!QFileInfo::exists(path))
        return contents;
    contents.status = Contents::Damaged;
    QString error;
    const QVariant root = PropertyList::read(path, &error);
    if (!root.isValid()) {
        contents.error = error;
        return contents;
    }
    if (root.typeId() != QMetaType::QVariantList) {
        contents.error = QStringLiteral("the root is not an array");
        return contents;
    }
    const QVariantList items = root.toList();
    contents.notes.reserve(items.size());
    for (qsizetype i = 0; i < items.size(); ++i) {
        const QVariant &item = items.at(i);
        const QVariantList pair = item.toList();
        if (item.typeId() != QMetaType::QVariantList || pair.size() != 2 ||
            pair.at(0).typeId() != QMetaType::QString ||
            pair.at(1).typeId() != QMetaType::QString) {
            contents.notes.clear();
            contents.error = QStringLiteral("note %1 is not a pair of strings").arg(i + 1);
            return contents;
        }
        contents.notes.append({pair.at(0).toString(), pair.at(1).toString()});
    }
    contents.status = Contents::Read;
    return contents;
}

bool write(const QString &path, const QList<QuickNote> &notes, QString *error)
{
    QVariantList root;
    root.reserve(notes.size());
    for (const QuickNote &note : notes)
        root.append(QVariant(QVariantList{note.title, note.text}));
    return PropertyList::write(path, root, error);
}

QString keepDamagedCopy(const QString &path)
{
    QString copy = path + QStringLiteral(".damaged");
    for (int n = 2; QFileInfo::exists(copy); ++n)
        copy = path + QStringLiteral(".damaged-%1").arg(n);
    return QFile::copy(path, copy) ? copy : QString();
}

} // namespace QuickNoteFile
