#include "FirstRunPanel.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

FirstRunPanel::FirstRunPanel(QWidget *parent)
    : QDialog(parent)
    , m_nameField(new QLineEdit(this))
    , m_folderField(new QLineEdit(this))
    , m_chooseButton(new QPushButton(qtTrId("FIRSTRUN_CHOOSE_FOLDER"), this))
    , m_okButton(new QPushButton(qtTrId("BUTTON_OK"), this))
    , m_cancelButton(new QPushButton(qtTrId("FIRSTRUN_CANCEL_AND_QUIT"), this))
{
    setObjectName(QStringLiteral("firstRunPanel"));
    setWindowTitle(qtTrId("FIRSTRUN_TITLE"));
    setAccessibleName(windowTitle());
    setWindowIcon(QIcon(QStringLiteral(":/icons/vellox.svg")));
    setModal(true);

    auto *logo = new QLabel(this);
    logo->setPixmap(QIcon(QStringLiteral(":/icons/vellox.svg")).pixmap(64, 64));
    logo->setAccessibleName(QStringLiteral("Vellox"));
    logo->setToolTip(QStringLiteral("Vellox"));
    auto *welcome = new QLabel(qtTrId("FIRSTRUN_WELCOME"), this);
    welcome->setWordWrap(true);
    welcome->setAccessibleName(welcome->text());
    welcome->setToolTip(welcome->text());

    m_nameField->setObjectName(QStringLiteral("firstRunName"));
    m_nameField->setAccessibleName(qtTrId("FIRSTRUN_NAME"));
    m_nameField->setToolTip(qtTrId("FIRSTRUN_NAME_TIP"));
    m_nameField->setPlaceholderText(qtTrId("FIRSTRUN_NAME_PLACEHOLDER"));
    m_folderField->setObjectName(QStringLiteral("firstRunFolder"));
    m_folderField->setReadOnly(true);
    m_folderField->setAccessibleName(qtTrId("FIRSTRUN_FOLDER"));
    m_folderField->setToolTip(qtTrId("FIRSTRUN_FOLDER_TIP"));
    m_folderField->setPlaceholderText(qtTrId("FIRSTRUN_FOLDER_PLACEHOLDER"));
    m_chooseButton->setAccessibleName(m_chooseButton->text());
    m_chooseButton->setToolTip(qtTrId("FIRSTRUN_CHOOSE_FOLDER_TIP"));
    m_okButton->setObjectName(QStringLiteral("firstRunOK"));
    m_okButton->setAccessibleName(m_okButton->text());
    m_okButton->setToolTip(qtTrId("FIRSTRUN_OK_TIP"));
    m_okButton->setDefault(true);
    m_okButton->setEnabled(false);
    m_cancelButton->setObjectName(QStringLiteral("firstRunCancel"));
    m_cancelButton->setAccessibleName(m_cancelButton->text());
    m_cancelButton->setToolTip(qtTrId("FIRSTRUN_CANCEL_TIP"));

    auto *header = new QHBoxLayout;
    header->addWidget(logo);
    header->addWidget(welcome, 1);
    auto *folderRow = new QHBoxLayout;
    folderRow->addWidget(m_folderField, 1);
    folderRow->addWidget(m_chooseButton);
    auto *form = new QFormLayout;
    form->addRow(qtTrId("FIRSTRUN_NAME_LABEL"), m_nameField);
    form->addRow(qtTrId("FIRSTRUN_FOLDER_LABEL"), folderRow);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_cancelButton);
    buttons->addWidget(m_okButton);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(header);
    layout->addSpacing(8);
    layout->addLayout(form);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    resize(520, 230);
}

void FirstRunPanel::reject()
{
    // Escape and the window's close button mean the same as Cancel: no notebook, no app.
    Q_EMIT cancelRequested();
}
