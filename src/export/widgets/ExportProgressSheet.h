#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

// The sheet shown on the export window while an export runs: what is being done, "n of m"
// with a progress bar, and Cancel; at the end the summary and OK.
class ExportProgressSheet : public QDialog
{
    Q_OBJECT
public:
    explicit ExportProgressSheet(QWidget *parent = nullptr);

    void started();
    void setProgress(int done, int total, const QString &what);
    void showFinished(const QString &summary);

    QString summary() const;
    QPushButton *okButton() const { return m_ok; }
    QPushButton *cancelButton() const { return m_cancel; }

Q_SIGNALS:
    void cancelRequested();

private:
    QLabel *m_message;
    QLabel *m_count;
    QProgressBar *m_bar;
    QLabel *m_summary;
    QPushButton *m_cancel;
    QPushButton *m_ok;
};
