#pragma once

#include <QString>

// One quick note: the title carries the moment of capture as text, the text is the body.
struct QuickNote
{
    QString title;
    QString text;

    bool operator==(const QuickNote &other) const = default;
};
