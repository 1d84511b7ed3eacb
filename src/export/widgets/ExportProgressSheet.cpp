#include "ExportProgressSheet.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

ExportProgressSheet::ExportProgressSheet(QWidget *parent)
    : QDialog(parent)
    , m_message(new QLabel(this))
    , m_count(new QLabel(this))
    , m_bar(new QProgressBar(this))
    , m_summary(new QLabel(this))
    , m_cancel(new QPushButton(this))
    , m_ok(new QPushButton(this))
{
    setObjectName(QStringLiteral("exportProgressSheet"));
    setWindowModality(Qt::WindowModal);
    //% "Export"
    setWindowTitle(qtTrId("EXPORT_PROGRESS_TITLE"));
    setAccessibleName(windowTitle());
    m_summary->setWordWrap(true);
    m_summary->setObjectName(QStringLiteral("exportSummary"));
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_count->setObjectName(QStringLiteral("exportCount"));
    m_bar->setObjectName(QStringLiteral("exportProgressBar"));
    //% "How far the export has come"
    m_bar->setToolTip(qtTrId("EXPORT_PROGRESS_BAR_TIP"));
    m_bar->setAccessibleName(m_bar->toolTip());
    for (QLabel *label : {m_message, m_count, m_summary})
        label->setAccessibleName(label->objectName());

    m_cancel->setObjectName(QStringLiteral("exportCancel"));
    //% "Cancel"
    m_cancel->setText(qtTrId("EXPORT_CANCEL"));
    //% "Stop the export; nothing is written to the folder"
    m_cancel->setToolTip(qtTrId("EXPORT_CANCEL_TIP"));
    m_cancel->setAccessibleName(m_cancel->text());
    m_ok->setObjectName(QStringLiteral("exportOk"));
    //% "OK"
    m_ok->setText(qtTrId("EXPORT_OK"));
    //% "Close this sheet"
    m_ok->setToolTip(qtTrId("EXPORT_OK_TIP"));
    m_ok->setAccessibleName(m_ok->text());

    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(m_cancel, QDialogButtonBox::RejectRole);
    buttons->addButton(m_ok, QDialogButtonBox::AcceptRole);
    connect(m_cancel, &QPushButton::clicked, this, [this] {
        m_cancel->setEnabled(false);
        Q_EMIT cancelRequested();
    });
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_message);
    layout->addWidget(m_bar);
    layout->addWidget(m_count);
    layout->addWidget(m_summary);
    layout->addWidget(buttons);
    setMinimumWidth(420);
}

void ExportProgressSheet::started()
{
    //% "Creating the export…"
    m_message->setText(qtTrId("MESSAGE_EXPORT_CREATION_STARTED"));
    m_summary->clear();
    m_count->clear();
    m_bar->setRange(0, 0);
    m_ok->setEnabled(false);
    m_ok->hide();
    m_cancel->setEnabled(true);
    m_cancel->show();
}

void ExportProgressSheet::setProgress(int done, int total, const QString &what)
{
    m_bar->setRange(0, qMax(1, total));
    m_bar->setValue(qMin(done, total));
    //% "%1: %2 of %3"
    m_count->setText(qtTrId("EXPORT_PROGRESS_COUNT").arg(what).arg(done).arg(total));
}

void ExportProgressSheet::showFinished(const QString &summary)
{
    //% "The export is finished."
    m_message->setText(qtTrId("MESSAGE_EXPORT_CREATION_FINISHED"));
    m_bar->setRange(0, 1);
    m_bar->setValue(1);
    m_summary->setText(summary);
    m_cancel->hide();
    m_ok->show();
    m_ok->setEnabled(true);
    m_ok->setDefault(true);
    m_ok->setFocus();
}

QString ExportProgressSheet::summary() const
{
    return m_summary->text();
}
