#pragma once

#include "core/Settings.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class ColorWell;
class QCheckBox;
class QComboBox;
class QFontComboBox;
class QFormLayout;
class QSpinBox;
class QWidget;
class UserDefaults;

// Builds the controls of a preferences pane, each bound to one setting: a change is written
// at once and announced by the pane's notification, so the windows that show it follow.
class PreferenceForm : public QObject
{
    Q_OBJECT
public:
    PreferenceForm(UserDefaults &defaults, const QString &notification, QWidget *pane);

    QCheckBox *check(const Setting<int> &setting, const QString &text, const QString &tip);
    QCheckBox *check(const Setting<bool> &setting, const QString &text, const QString &tip);
    QSpinBox *number(const Setting<int> &setting, int minimum, int maximum, const QString &name,
                     const QString &tip);
    ColorWell *color(const Setting<QColor> &setting, const QString &name, const QString &tip);
    // The item at index i stands for the value i.
    QComboBox *choice(const Setting<int> &setting, const QStringList &items, const QString &name,
                      const QString &tip);
    QFontComboBox *fontFamily(const Setting<QString> &setting, const QString &name,
                              const QString &tip);

    // Shows the stored values again (the window is reopened, or a value changed elsewhere).
    void reload();
    void announce();

private:
    UserDefaults &m_defaults;
    QString m_notification;
    QWidget *m_pane;
    QList<std::function<void()>> m_loaders;
};
