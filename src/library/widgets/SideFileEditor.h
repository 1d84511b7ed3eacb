#pragma once

#include "library/FileStamp.h"
#include "library/TextFormat.h"

#include <QTimer>
#include <QWidget>

class EnhancedTextView;
class QLabel;
class UserDefaults;

// A small window of its own editing one entry's text file beside the main window. It reads
// the file when it becomes active and writes it back when it loses focus, a second after
// typing stops, and when it closes: atomically, in the encoding and line endings the file
// had. A file it cannot read opens read-only with the reason shown, and a file changed
// elsewhere is never written over.
class SideFileEditor : public QWidget
{
    Q_OBJECT
public:
    explicit SideFileEditor(UserDefaults &defaults, QWidget *mainWindow = nullptr);

    // Reads path and shows the window titled "MINI-EDITOR: <shownName>".
    void loadFrameWithContentsOfPath(const QString &path, const QString &shownName);
    // True when the view's text is on disk afterwards.
    bool saveChanges();
    // Reads the file again unless this window holds words not yet on disk.
    void reread();

    QString fileDestinationAsPath() const { return m_path; }
    EnhancedTextView *textView() const { return m_view; }
    // "" while all is well; otherwise why the file is read-only or was not saved.
    QString problem() const;
    bool isReadOnly() const { return m_readOnly; }

Q_SIGNALS:
    void saved(const QString &path);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void showText(const QString &text);
    void setProblem(const QString &text);
    bool isDirty() const;

    EnhancedTextView *m_view;
    QLabel *m_problem;
    QTimer m_saveTimer;
    QString m_path;
    QString m_savedText;
    TextFormat m_format;
    FileStamp m_stamp;
    bool m_readOnly = false;
    bool m_settingText = false;
};
