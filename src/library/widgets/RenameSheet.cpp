#include "RenameSheet.h"

#include "library/EntryDirectory.h"
#include "library/EntryNames.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

RenameSheet::RenameSheet(const QString &fileName, const QStringList &taken,
                         const QString &extension, const QString &folder, QWidget *parent)
    : QDialog(parent)
    , m_fileName(fileName)
    , m_taken(taken)
    , m_extension(extension)
    , m_folder(folder)
    , m_field(new QLineEdit(this))
    , m_message(new QLabel(this))
{
    setObjectName(QStringLiteral("renameSheet"));
    setWindowModality(Qt::WindowModal);
    //% "Rename Entry"
    setWindowTitle(qtTrId("RENAME_SHEET_TITLE"));
    setAccessibleName(windowTitle());
    auto *layout = new QVBoxLayout(this);
    //% "New name of “%1”:"
    auto *prompt = new QLabel(
        qtTrId("RENAME_SHEET_PROMPT").arg(EntryDirectory::deletingPathExtension(fileName)), this);
    layout->addWidget(prompt);
    m_field->setObjectName(QStringLiteral("renameField"));
    //% "New title"
    m_field->setAccessibleName(qtTrId("RENAME_SHEET_FIELD"));
    //% "The entry's new title; its attachments folder is renamed with it"
    m_field->setToolTip(qtTrId("RENAME_SHEET_FIELD_TIP"));
    layout->addWidget(m_field);
    m_message->setObjectName(QStringLiteral("renameMessage"));
    m_message->setAccessibleName(qtTrId("RENAME_SHEET_FIELD"));
    m_message->setWordWrap(true);
    layout->addWidget(m_message);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setObjectName(QStringLiteral("renameOk"));
    //% "Rename the entry"
    m_ok->setToolTip(qtTrId("RENAME_SHEET_OK_TIP"));
    m_ok->setAccessibleName(m_ok->text());
    QPushButton *cancel = buttons->button(QDialogButtonBox::Cancel);
    //% "Leave the name as it is"
    cancel->setToolTip(qtTrId("RENAME_SHEET_CANCEL_TIP"));
    cancel->setAccessibleName(cancel->text());
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (!m_ok->isEnabled())
            return;
        accept();
        Q_EMIT renameRequested(m_fileName, contextRenameFileName());
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_field, &QLineEdit::textChanged, this, &RenameSheet::validate);
    m_field->setText(EntryDirectory::deletingPathExtension(fileName));
    m_field->selectAll();
    validate();
}

QString RenameSheet::contextRenameFileName() const
{
    return m_field->text();
}

void RenameSheet::setContextRenameFileName(const QString &text)
{
    m_field->setText(text);
}

void RenameSheet::validate()
{
    const QString text = m_field->text();
    const QString candidate = text + QLatin1Char('.') + m_extension;
    const QString ownExtension = EntryDirectory::pathExtension(m_fileName);
    const QString renamed = text + QLatin1Char('.') + ownExtension;
    const bool unchanged = renamed == m_fileName;
    QString problem;
    if (!unchanged && (m_taken.contains(candidate) || m_taken.contains(renamed) ||
                       QFileInfo::exists(m_folder + QLatin1Char('/') + renamed)))
        //% "Name already exists"
        problem = qtTrId("RENAME_NAME_EXISTS");
    else if (!text.isEmpty())
        problem = EntryNames::problemWithTitle(text, ownExtension, m_folder);
    m_ok->setEnabled(!text.isEmpty() && problem.isEmpty() && !unchanged);
    // An empty field is not worth a remark: OK simply waits for a name.
    m_message->setText(text.isEmpty() ? QString() : problem);
    m_message->setVisible(!m_message->text().isEmpty());
}
