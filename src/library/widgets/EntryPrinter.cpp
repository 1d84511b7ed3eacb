#include "EntryPrinter.h"

#include "core/UserDefaults.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

namespace EntryPrinter {

Style styleFrom(const UserDefaults &defaults)
{
    Style style;
    style.font = QFont(defaults.value(Settings::PrefPrinterFontStyle));
    style.font.setPointSizeF(qMax(1, defaults.value(Settings::PrefPrinterFontSize)));
    style.color = defaults.value(Settings::PrefPrinterFontColor);
    return style;
}

void setUpPage(QPrinter &printer)
{
    printer.setPageMargins(QMarginsF(72, 72, 72, 72), QPageLayout::Point);
}

bool print(const QString &text, const Style &style, QPrinter &printer)
{
    QTextDocument document;
    document.documentLayout()->setPaintDevice(&printer);
    document.setDocumentMargin(0);
    document.setDefaultFont(style.font);
    QTextCharFormat format;
    format.setFont(style.font);
    format.setForeground(style.color);
    QTextCursor cursor(&document);
    cursor.setCharFormat(format);
    cursor.insertText(text, format);
    // The page is the printer's area inside the margins: lines wrap at its width.
    document.setPageSize(printer.pageLayout().paintRectPixels(printer.resolution()).size());
    if (text.isEmpty()) {
        QPainter painter;
        return painter.begin(&printer) && painter.end();
    }
    document.print(&printer);
    return printer.printerState() != QPrinter::Error;
}

void printTheText(QWidget *window, const QString &text, const UserDefaults &defaults)
{
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    setUpPage(*printer);
    auto *dialog = new QPrintDialog(printer.get(), window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    //% "Print Entry"
    dialog->setWindowTitle(qtTrId("PRINT_DIALOG_TITLE"));
    const Style style = styleFrom(defaults);
    QObject::connect(dialog, &QDialog::accepted, dialog,
                     [printer, text, style] { print(text, style, *printer); });
    dialog->open();
}

} // namespace EntryPrinter
