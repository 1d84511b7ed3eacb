#pragma once

#include <QWidget>

class ExportBookDetails;
class ExportProgressSheet;
class ExportRunner;
class MessageBar;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class UserDefaults;
struct ExportOptions;
struct ExportReport;

// The export window: which notebook, which entries in which order, the format, the markup
// language, title lines, one file or many, a style sheet and the e-book details. Exporting
// asks for a folder and runs the export in the background with a progress sheet.
class ExportController : public QWidget
{
    Q_OBJECT
public:
    // messageBar, when given, also hears of exports that did not write everything.
    ExportController(UserDefaults &defaults, MessageBar *messageBar, QWidget *parent = nullptr);
    ~ExportController() override;

    // Selects the notebook whose folder is this, if listed.
    void selectNotebookFolder(const QString &folder);
    void reloadAllFiles();
    void selectAnotherNoteBook(int index);
    void removeSelectedFile();
    void exportFormatSelectionAction(bool fromUser);
    void performExport();
    void performExportWithURL(const QString &destination);
    // The choices as the export reads them, for the given destination.
    ExportOptions options(const QString &destination) const;

    QStringList listOfFiles() const;
    ExportRunner *runner() const { return m_runner; }
    ExportProgressSheet *progressSheet() const { return m_sheet; }
    ExportBookDetails *bookDetails() const { return m_details; }

Q_SIGNALS:
    void exportFinished(const ExportReport &report);

private:
    void buildNotebookPopUp();
    void useCSSFileAction();
    void chooseCSSFile();
    void finished(const ExportReport &report);

    UserDefaults &m_defaults;
    MessageBar *m_messageBar;
    QComboBox *m_notebooks;
    QListWidget *m_files;
    QComboBox *m_format;
    QComboBox *m_markup;
    QCheckBox *m_titles;
    QButtonGroup *m_oneOrMany;
    QLineEdit *m_joinedName;
    QLabel *m_joinedExtension;
    QCheckBox *m_useCss;
    QLabel *m_cssPath;
    ExportBookDetails *m_details;
    QPushButton *m_export;
    ExportProgressSheet *m_sheet;
    ExportRunner *m_runner;
};
