#pragma once

#include <QString>

#include <QStringList>
#include <optional>

// A long preview page shown in steps: the head and the first screens load at once, and the
// rest is appended to the body piece by piece, so the top of a long entry shows without
// waiting for the engine to lay out all of it. Pages are cut only between top-level
// elements of a well-nested body; anything else loads whole.
struct ProgressivePage
{
    // A whole page when it is short or cannot be cut safely.
    QString first;
    // Pieces of body markup to append in order, each itself well nested.
    QStringList rest;

    // page: "<html><head>…</head>" + body markup + "</html>", as the preview builds it.
    static ProgressivePage split(const QString &page, qsizetype firstChars = 16 * 1024,
                                 qsizetype pieceChars = 512 * 1024);

    // Offsets in the body markup at which every element opened before has been closed,
    // in increasing order; empty when the markup is not well nested (or holds an element
    // whose content is not markup, such as a script).
    static QList<qsizetype> topLevelEnds(QStringView body);

    // Body markup in well-nested pieces of at least pieceChars (the last may be shorter);
    // nothing for markup that is not well nested.
    static std::optional<QStringList> pieces(QStringView markup, qsizetype pieceChars);
};
