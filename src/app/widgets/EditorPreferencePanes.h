#pragma once

#include <QWidget>

class PreferenceForm;
class QTabWidget;
class UserDefaults;

// A preferences pane whose controls show the stored values whenever it is shown.
class PreferencePane : public QWidget
{
    Q_OBJECT
public:
    PreferencePane(UserDefaults &defaults, const QString &notification);
    PreferenceForm *form() const { return m_form; }

protected:
    void showEvent(QShowEvent *event) override;

private:
    PreferenceForm *m_form;
};

// The panes for the editor's look, typography and text services, and full-screen writing.
namespace EditorPreferencePanes {
QWidget *appearance(UserDefaults &defaults);
QWidget *typography(UserDefaults &defaults);
QWidget *fullScreen(UserDefaults &defaults);
void addTo(QTabWidget *tabs, UserDefaults &defaults);
} // namespace EditorPreferencePanes
