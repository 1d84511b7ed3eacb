#include "PreferenceForm.h"

#include "ColorWell.h"
#include "core/NotificationCenter.h"
#include "core/UserDefaults.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontComboBox>
#include <QSignalBlocker>
#include <QSpinBox>

PreferenceForm::PreferenceForm(UserDefaults &defaults, const QString &notification, QWidget *pane)
    : QObject(pane)
    , m_defaults(defaults)
    , m_notification(notification)
    , m_pane(pane)
{}

void PreferenceForm::announce()
{
    NotificationCenter::defaultCenter().post(m_notification, this);
}

void PreferenceForm::reload()
{
    for (const auto &load : m_loaders)
        load();
}

QCheckBox *PreferenceForm::check(const Setting<int> &setting, const QString &text,
                                 const QString &tip)
{
    auto *box = new QCheckBox(text, m_pane);
    box->setAccessibleName(text);
    box->setToolTip(tip);
    m_loaders << [this, box, setting] {
        const QSignalBlocker block(box);
        box->setChecked(m_defaults.value(setting) != 0);
    };
    m_loaders.last()();
    connect(box, &QCheckBox::toggled, this, [this, setting](bool on) {
        m_defaults.setValue(setting, on ? 1 : 0);
        announce();
    });
    return box;
}

QCheckBox *PreferenceForm::check(const Setting<bool> &setting, const QString &text,
                                 const QString &tip)
{
    auto *box = new QCheckBox(text, m_pane);
    box->setAccessibleName(text);
    box->setToolTip(tip);
    m_loaders << [this, box, setting] {
        const QSignalBlocker block(box);
        box->setChecked(m_defaults.value(setting));
    };
    m_loaders.last()();
    connect(box, &QCheckBox::toggled, this, [this, setting](bool on) {
        m_defaults.setValue(setting, on);
        announce();
    });
    return box;
}

QSpinBox *PreferenceForm::number(const Setting<int> &setting, int minimum, int maximum,
                                 const QString &name, const QString &tip)
{
    auto *spin = new QSpinBox(m_pane);
    spin->setRange(minimum, maximum);
    spin->setAccessibleName(name);
    spin->setToolTip(tip);
    m_loaders << [this, spin, setting] {
        const QSignalBlocker block(spin);
        spin->setValue(m_defaults.value(setting));
    };
    m_loaders.last()();
    connect(spin, &QSpinBox::valueChanged, this, [this, setting](int value) {
        m_defaults.setValue(setting, value);
        announce();
    });
    return spin;
}

ColorWell *PreferenceForm::color(const Setting<QColor> &setting, const QString &name,
                                 const QString &tip)
{
    auto *well = new ColorWell(m_pane);
    well->setAccessibleName(name);
    well->setToolTip(tip);
    m_loaders << [this, well, setting] { well->setColor(m_defaults.value(setting)); };
    m_loaders.last()();
    connect(well, &ColorWell::colorChosen, this, [this, setting](const QColor &chosen) {
        m_defaults.setValue(setting, chosen);
        announce();
    });
    return well;
}

QComboBox *PreferenceForm::choice(const Setting<int> &setting, const QStringList &items,
                                  const QString &name, const QString &tip)
{
    auto *combo = new QComboBox(m_pane);
    combo->addItems(items);
    combo->setAccessibleName(name);
    combo->setToolTip(tip);
    m_loaders << [this, combo, setting] {
        const QSignalBlocker block(combo);
        combo->setCurrentIndex(m_defaults.value(setting));
    };
    m_loaders.last()();
    connect(combo, &QComboBox::activated, this, [this, setting](int index) {
        m_defaults.setValue(setting, index);
        announce();
    });
    return combo;
}

QFontComboBox *PreferenceForm::fontFamily(const Setting<QString> &setting, const QString &name,
                                          const QString &tip)
{
    auto *combo = new QFontComboBox(m_pane);
    combo->setAccessibleName(name);
    combo->setToolTip(tip);
    m_loaders << [this, combo, setting] {
        const QSignalBlocker block(combo);
        // A family that is not installed shows the face that stands in for it.
        combo->setCurrentFont(QFont(m_defaults.value(setting)));
    };
    m_loaders.last()();
    connect(combo, &QFontComboBox::currentFontChanged, this, [this, setting](const QFont &font) {
        m_defaults.setValue(setting, font.family());
        announce();
    });
    return combo;
}
