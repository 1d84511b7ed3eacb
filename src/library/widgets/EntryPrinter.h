#pragma once

#include <QColor>
#include <QFont>
#include <QString>

class QPrinter;
class QWidget;
class UserDefaults;

// Prints an entry's plain text (not its preview) in the print font and colour, fitted to the
// page width between margins of 72 points on every side.
namespace EntryPrinter {

struct Style
{
    QFont font;
    QColor color = Qt::black;
};

// The print font, size and colour settings.
Style styleFrom(const UserDefaults &defaults);
// Margins of 72 points; the text runs the full width between them.
void setUpPage(QPrinter &printer);
// Prints text on printer (already set up); an empty text prints one empty page.
bool print(const QString &text, const Style &style, QPrinter &printer);
// The menu command: the print dialog as a sheet on window, then the printout. The dialog
// offers printing to a PDF file, so it works without any printer installed.
void printTheText(QWidget *window, const QString &text, const UserDefaults &defaults);

} // namespace EntryPrinter
