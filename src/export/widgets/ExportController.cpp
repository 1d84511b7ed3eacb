#include "ExportController.h"

#include "ExportBookDetails.h"
#include "ExportProgressSheet.h"
#include "ExportRunner.h"
#include "core/Settings.h"
#include "core/UserDefaults.h"
#include "export/ExportOptions.h"
#include "render/MarkupLanguage.h"
#include "widgets/MessageBar.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

void describe(QWidget *widget, const char *name, const QString &accessible, const QString &tip)
{
    widget->setObjectName(QString::fromLatin1(name));
    widget->setAccessibleName(accessible);
    widget->setToolTip(tip);
}

QPushButton *button(QWidget *parent, const char *name, const QString &text, const QString &tip)
{
    auto *b = new QPushButton(text, parent);
    describe(b, name, text, tip);
    return b;
}

} // namespace

ExportController::ExportController(UserDefaults &defaults, MessageBar *messageBar, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_defaults(defaults)
    , m_messageBar(messageBar)
    , m_notebooks(new QComboBox(this))
    , m_files(new QListWidget(this))
    , m_format(new QComboBox(this))
    , m_markup(new QComboBox(this))
    , m_titles(new QCheckBox(this))
    , m_oneOrMany(new QButtonGroup(this))
    , m_joinedName(new QLineEdit(this))
    , m_joinedExtension(new QLabel(this))
    , m_useCss(new QCheckBox(this))
    , m_cssPath(new QLabel(this))
    , m_details(new ExportBookDetails(this))
    , m_sheet(new ExportProgressSheet(this))
    , m_runner(new ExportRunner(this))
{
    setObjectName(QStringLiteral("exportWindow"));
    //% "Export"
    setWindowTitle(qtTrId("EXPORT_WINDOW_TITLE"));
    setAccessibleName(windowTitle());

    //% "Notebook"
    describe(m_notebooks, "selectedDiary", qtTrId("EXPORT_NOTEBOOK"),
             //% "The notebook whose entries are exported"
             qtTrId("EXPORT_NOTEBOOK_TIP"));
    m_notebooks->setIconSize(QSize(25, 25));
    //% "Entries"
    describe(m_files, "listOfFiles", qtTrId("EXPORT_FILES"),
             //% "The entries to export, in this order; drag them to reorder"
             qtTrId("EXPORT_FILES_TIP"));
    m_files->setDragDropMode(QAbstractItemView::InternalMove);
    m_files->setDefaultDropAction(Qt::MoveAction);
    m_files->setSelectionMode(QAbstractItemView::ExtendedSelection);
    //% "Remove"
    QPushButton *remove = button(this, "removeSelectedFile", qtTrId("EXPORT_REMOVE"),
                                 //% "Leave the selected entries out of the export (not from disk)"
                                 qtTrId("EXPORT_REMOVE_TIP"));
    //% "Reload"
    QPushButton *reload = button(this, "reloadAllFiles", qtTrId("EXPORT_RELOAD"),
                                 //% "List every entry of the notebook again"
                                 qtTrId("EXPORT_RELOAD_TIP"));

    //% "Format"
    describe(m_format, "exportFormatSelection", qtTrId("EXPORT_FORMAT"),
             //% "The kind of file to write"
             qtTrId("EXPORT_FORMAT_TIP"));
    //% "Plain text"
    m_format->addItem(qtTrId("EXPORT_FORMAT_TXT"), 0);
    //% "Word"
    m_format->addItem(qtTrId("EXPORT_FORMAT_DOC"), 1);
    //% "Rich Text (RTF)"
    m_format->addItem(qtTrId("EXPORT_FORMAT_RTF"), 2);
    //% "Rich Text with pictures (RTFD)"
    m_format->addItem(qtTrId("EXPORT_FORMAT_RTFD"), 3);
    //% "Web page (HTML)"
    m_format->addItem(qtTrId("EXPORT_FORMAT_HTML"), 4);
    //% "PDF"
    m_format->addItem(qtTrId("EXPORT_FORMAT_PDF"), 5);
    //% "E-book (EPUB)"
    m_format->addItem(qtTrId("EXPORT_FORMAT_EPUB"), 6);
    //% "OpenDocument text"
    m_format->addItem(qtTrId("EXPORT_FORMAT_ODT"), 7);

    //% "Markup"
    describe(m_markup, "markupExportSelection", qtTrId("EXPORT_MARKUP"),
             //% "The language the entries are written in, or plain text to keep them as they are"
             qtTrId("EXPORT_MARKUP_TIP"));
    //% "Plain text (no conversion)"
    m_markup->addItem(qtTrId("EXPORT_MARKUP_NONE"));
    for (int number = 1; number <= MarkupLanguage::Count; ++number)
        m_markup->addItem(MarkupLanguage::displayName(number));
    const int language = m_defaults.value(Settings::TypographyUseMarkupLanguage);
    m_markup->setCurrentIndex(language >= 1 && language <= MarkupLanguage::Count ? language : 0);

    //% "Put each entry's name on top as a title"
    describe(m_titles, "useDateAsHeader", qtTrId("EXPORT_TITLES"),
             //% "Each entry starts with its name in bold"
             qtTrId("EXPORT_TITLES_TIP"));
    m_titles->setText(m_titles->accessibleName());

    //% "One file per entry"
    auto *many = new QRadioButton(qtTrId("EXPORT_MANY_FILES"), this);
    describe(many, "multipleFiles", many->text(),
             //% "Write every entry to a file of its own"
             qtTrId("EXPORT_MANY_FILES_TIP"));
    //% "All entries in one file"
    auto *one = new QRadioButton(qtTrId("EXPORT_ONE_FILE"), this);
    describe(one, "oneFile", one->text(),
             //% "Join all entries into one file"
             qtTrId("EXPORT_ONE_FILE_TIP"));
    m_oneOrMany->addButton(one, 1);
    m_oneOrMany->addButton(many, 0);
    many->setChecked(true);
    //% "File name"
    describe(m_joinedName, "oneFileExportFileName", qtTrId("EXPORT_JOINED_NAME"),
             //% "The name of the joined file or of the book"
             qtTrId("EXPORT_JOINED_NAME_TIP"));
    m_joinedName->setText(QStringLiteral("Export"));
    describe(m_joinedExtension, "oneFileExportFileNameExtension", qtTrId("EXPORT_JOINED_NAME"),
             m_joinedName->toolTip());

    //% "Embed a style sheet"
    describe(m_useCss, "useCSSFile", qtTrId("EXPORT_USE_CSS"),
             //% "Give HTML output the look of a CSS style sheet"
             qtTrId("EXPORT_USE_CSS_TIP"));
    m_useCss->setText(m_useCss->accessibleName());
    describe(m_cssPath, "pathToCSSFile", m_useCss->text(), m_useCss->toolTip());
    //% "Choose…"
    QPushButton *chooseCss = button(this, "chooseCSSFile", qtTrId("EXPORT_CHOOSE_CSS"),
                                    //% "Choose the style sheet to embed"
                                    qtTrId("EXPORT_CHOOSE_CSS_TIP"));

    //% "Export…"
    m_export = button(this, "performExport", qtTrId("EXPORT_PERFORM"),
                      //% "Choose a folder and export the listed entries to it"
                      qtTrId("EXPORT_PERFORM_TIP"));
    m_export->setDefault(true);
    //% "Close"
    QPushButton *close = button(this, "closeWindow", qtTrId("EXPORT_CLOSE"),
                                //% "Close the export window"
                                qtTrId("EXPORT_CLOSE_TIP"));

    auto *choices = new QFormLayout;
    choices->addRow(m_notebooks->accessibleName(), m_notebooks);
    auto *fileButtons = new QHBoxLayout;
    fileButtons->addWidget(remove);
    fileButtons->addWidget(reload);
    fileButtons->addStretch();
    auto *fileColumn = new QVBoxLayout;
    fileColumn->addWidget(m_files);
    fileColumn->addLayout(fileButtons);
    choices->addRow(m_files->accessibleName(), fileColumn);
    choices->addRow(m_format->accessibleName(), m_format);
    choices->addRow(m_markup->accessibleName(), m_markup);
    choices->addRow(QString(), m_titles);
    choices->addRow(QString(), many);
    auto *joinedRow = new QHBoxLayout;
    joinedRow->addWidget(one);
    joinedRow->addWidget(m_joinedName, 1);
    joinedRow->addWidget(m_joinedExtension);
    choices->addRow(QString(), joinedRow);
    auto *cssRow = new QHBoxLayout;
    cssRow->addWidget(m_useCss);
    cssRow->addWidget(m_cssPath, 1);
    cssRow->addWidget(chooseCss);
    choices->addRow(QString(), cssRow);

    auto *columns = new QHBoxLayout;
    columns->addLayout(choices, 1);
    columns->addWidget(m_details);
    auto *actions = new QHBoxLayout;
    actions->addStretch();
    actions->addWidget(close);
    actions->addWidget(m_export);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(actions);

    connect(m_notebooks, &QComboBox::activated, this, &ExportController::selectAnotherNoteBook);
    connect(remove, &QPushButton::clicked, this, &ExportController::removeSelectedFile);
    connect(reload, &QPushButton::clicked, this, &ExportController::reloadAllFiles);
    connect(m_format, &QComboBox::activated, this, [this] { exportFormatSelectionAction(true); });
    connect(m_useCss, &QCheckBox::toggled, this, &ExportController::useCSSFileAction);
    connect(chooseCss, &QPushButton::clicked, this, &ExportController::chooseCSSFile);
    connect(m_export, &QPushButton::clicked, this, &ExportController::performExport);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(m_sheet, &ExportProgressSheet::cancelRequested, m_runner, &ExportRunner::cancel);
    connect(m_runner, &ExportRunner::progress, m_sheet, &ExportProgressSheet::setProgress);
    connect(m_runner, &ExportRunner::finished, this, &ExportController::finished);

    m_details->hide();
    exportFormatSelectionAction(false);
    buildNotebookPopUp();
    reloadAllFiles();
}

ExportController::~ExportController() = default;

void ExportController::buildNotebookPopUp()
{
    m_notebooks->clear();
    const RecordList records = m_defaults.value(Settings::DiarySaveDestinations);
    for (const QVariantMap &record : records) {
        const QString folder = record.value(QStringLiteral("DiaryDocumentPath")).toString();
        const QString iconPath = QDir(folder).filePath(QStringLiteral(".DiaryIcon.png"));
        const QIcon icon = QFileInfo(iconPath).isFile() ? QIcon(iconPath) : QIcon();
        m_notebooks->addItem(icon, record.value(QStringLiteral("DiaryName")).toString(), folder);
    }
}

void ExportController::selectNotebookFolder(const QString &folder)
{
    const QString wanted = QDir::cleanPath(folder);
    for (int i = 0; i < m_notebooks->count(); ++i) {
        if (QDir::cleanPath(m_notebooks->itemData(i).toString()) == wanted) {
            selectAnotherNoteBook(i);
            return;
        }
    }
}

void ExportController::selectAnotherNoteBook(int index)
{
    m_notebooks->setCurrentIndex(index);
    reloadAllFiles();
}

void ExportController::reloadAllFiles()
{
    m_files->clear();
    const QString folder = m_notebooks->currentData().toString();
    if (folder.isEmpty())
        return;
    const QString extension = m_defaults.value(Settings::DefaultFileExtensionForEntries);
    const QStringList names =
        QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::NoSort);
    for (const QString &name : names) {
        const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
        if (dot > 0 && name.mid(dot + 1) == extension)
            m_files->addItem(name);
    }
}

void ExportController::removeSelectedFile()
{
    qDeleteAll(m_files->selectedItems());
}

QStringList ExportController::listOfFiles() const
{
    QStringList names;
    for (int row = 0; row < m_files->count(); ++row)
        names << m_files->item(row)->text();
    return names;
}

void ExportController::exportFormatSelectionAction(bool fromUser)
{
    const int tag = m_format->currentData().toInt();
    const bool epub = tag == 6;
    m_joinedExtension->setText(ExportFormats::joinedFileLabel(tag));
    for (QAbstractButton *b : m_oneOrMany->buttons())
        b->setEnabled(!epub);
    if (epub)
        m_oneOrMany->button(1)->setChecked(true);
    // The details open on choosing EPUB and close on the next choice, whatever it is.
    if (fromUser || epub) {
        if (!m_details->isHidden())
            m_details->hide();
        else if (epub)
            m_details->show();
    }
    adjustSize();
}

void ExportController::useCSSFileAction()
{
    if (m_useCss->isChecked() && m_cssPath->text().isEmpty())
        chooseCSSFile();
}

void ExportController::chooseCSSFile()
{
    auto *dialog = new QFileDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(QStringLiteral("*.css"));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAccessibleName(m_useCss->text());
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        m_cssPath->setText(path);
        m_useCss->setChecked(true);
    });
    dialog->open();
}

ExportOptions ExportController::options(const QString &destination) const
{
    ExportOptions o;
    o.notebookFolder = m_notebooks->currentData().toString();
    o.notebookName = m_notebooks->currentText();
    o.files = listOfFiles();
    o.entryExtension = m_defaults.value(Settings::DefaultFileExtensionForEntries);
    o.format = m_format->currentData().toInt();
    o.markup = m_markup->currentIndex();
    o.titles = m_titles->isChecked();
    o.joined = m_oneOrMany->checkedId() == 1;
    o.joinedName = m_joinedName->text().trimmed().isEmpty() ? QStringLiteral("Export")
                                                            : m_joinedName->text().trimmed();
    o.joinedName.replace(QLatin1Char('/'), QLatin1Char('-'));
    if (m_useCss->isChecked())
        o.cssFile = m_cssPath->text();
    o.bookDetails = m_details->details();
    o.coverImage = m_details->coverImage();
    o.destination = destination;
    return o;
}

void ExportController::performExport()
{
    auto *dialog = new QFileDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly, true);
    dialog->setWindowModality(Qt::WindowModal);
    //% "Choose the folder to export to"
    dialog->setWindowTitle(qtTrId("CHOOSE_DIR_TO_SAVE_EXPORT"));
    dialog->setAccessibleName(dialog->windowTitle());
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &folder) {
        // Lets the chooser close before the progress sheet opens.
        QTimer::singleShot(500, this, [this, folder] { performExportWithURL(folder); });
    });
    dialog->open();
}

void ExportController::performExportWithURL(const QString &destination)
{
    if (m_runner->isRunning())
        return;
    m_export->setEnabled(false);
    m_sheet->started();
    m_sheet->open();
    m_runner->start(options(destination));
}

void ExportController::finished(const ExportReport &report)
{
    m_export->setEnabled(true);
    m_sheet->showFinished(report.summary());
    if (m_messageBar && !report.failures.isEmpty())
        m_messageBar->showMessage(QStringLiteral("export"), MessageBar::Warning, report.summary());
    Q_EMIT exportFinished(report);
}
