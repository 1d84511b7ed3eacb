#include "IconChooserDialog.h"

#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QIcon>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

IconChooserDialog::IconChooserDialog(QWidget *parent)
    : QDialog(parent)
    , m_list(new QListWidget(this))
{
    ensureIconTheme();
    setWindowTitle(qtTrId("PREFERENCES_ICON_CHOOSER_TITLE"));
    setAccessibleName(windowTitle());
    m_list->setViewMode(QListView::IconMode);
    m_list->setIconSize(QSize(48, 48));
    m_list->setGridSize(QSize(96, 84));
    m_list->setResizeMode(QListView::Adjust);
    m_list->setMovement(QListView::Static);
    m_list->setAccessibleName(qtTrId("PREFERENCES_ICON_CHOOSER_LIST"));
    m_list->setToolTip(qtTrId("PREFERENCES_ICON_CHOOSER_TOOLTIP"));
    for (const QString &name : offeredIconNames()) {
        const QIcon icon = QIcon::fromTheme(name);
        if (icon.isNull())
            continue;
        auto *item = new QListWidgetItem(icon, QString(), m_list);
        item->setData(Qt::UserRole, name);
        item->setToolTip(name);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setAccessibleName(qtTrId("BUTTON_CHOOSE"));
    buttons->button(QDialogButtonBox::Ok)->setToolTip(qtTrId("PREFERENCES_ICON_CHOOSER_OK_TIP"));
    buttons->button(QDialogButtonBox::Cancel)->setAccessibleName(qtTrId("BUTTON_CANCEL"));
    buttons->button(QDialogButtonBox::Cancel)->setToolTip(qtTrId("BUTTON_CANCEL"));
    auto accept = [this] {
        if (QListWidgetItem *item = m_list->currentItem()) {
            chooseIcon(item->data(Qt::UserRole).toString());
            QDialog::accept();
        }
    };
    connect(buttons, &QDialogButtonBox::accepted, this, accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemDoubleClicked, this, accept);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    resize(520, 420);
}

void IconChooserDialog::ensureIconTheme()
{
    if (!QIcon::fromTheme(QStringLiteral("folder")).isNull())
        return;
    // Without a desktop session Qt may know neither the system's icon folders nor a theme;
    // Adwaita is the theme every Debian desktop has.
    QStringList paths = QIcon::themeSearchPaths();
    const QStringList dataDirs =
        QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString &dir : dataDirs) {
        const QString icons = dir + QStringLiteral("/icons");
        if (!paths.contains(icons) && QDir(icons).exists())
            paths << icons;
    }
    QIcon::setThemeSearchPaths(paths);
    if (QIcon::fromTheme(QStringLiteral("folder")).isNull())
        QIcon::setThemeName(QStringLiteral("Adwaita"));
}

QStringList IconChooserDialog::offeredIconNames()
{
    return {QStringLiteral("folder"),
            QStringLiteral("folder-documents"),
            QStringLiteral("folder-music"),
            QStringLiteral("folder-pictures"),
            QStringLiteral("folder-videos"),
            QStringLiteral("folder-download"),
            QStringLiteral("user-home"),
            QStringLiteral("user-desktop"),
            QStringLiteral("user-bookmarks"),
            QStringLiteral("accessories-text-editor"),
            QStringLiteral("accessories-dictionary"),
            QStringLiteral("x-office-document"),
            QStringLiteral("x-office-calendar"),
            QStringLiteral("x-office-address-book"),
            QStringLiteral("text-x-generic"),
            QStringLiteral("emblem-favorite"),
            QStringLiteral("emblem-important"),
            QStringLiteral("emblem-photos"),
            QStringLiteral("starred"),
            QStringLiteral("applications-science"),
            QStringLiteral("applications-games"),
            QStringLiteral("applications-multimedia"),
            QStringLiteral("applications-graphics"),
            QStringLiteral("applications-internet"),
            QStringLiteral("applications-development"),
            QStringLiteral("mail-message"),
            QStringLiteral("camera-photo"),
            QStringLiteral("audio-headphones"),
            QStringLiteral("weather-clear"),
            QStringLiteral("weather-few-clouds"),
            QStringLiteral("face-smile"),
            QStringLiteral("help-browser"),
            QStringLiteral("computer"),
            QStringLiteral("network-workgroup"),
            QStringLiteral("preferences-desktop-locale"),
            QStringLiteral("system-users")};
}

QString IconChooserDialog::chooseIcon(const QString &iconName)
{
    const QIcon icon = QIcon::fromTheme(iconName);
    const QString folder = AppPaths::supportFolder() + QStringLiteral("/icons");
    QDir().mkpath(folder);
    const QString path = folder + QLatin1Char('/') + iconName + QStringLiteral(".png");
    icon.pixmap(QSize(128, 128)).save(path, "PNG");
    NotificationCenter::defaultCenter().post(Notifications::SelectedIcon, QVariant(path));
    return path;
}
