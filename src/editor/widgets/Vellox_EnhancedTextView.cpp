#include "Vellox_EnhancedTextView.h"

#include "editor/TabActionStore.h"

Vellox_EnhancedTextView::Vellox_EnhancedTextView(UserDefaults &defaults, QWidget *parent)
    : EnhancedTextView(defaults, parent)
{}

QVariantMap Vellox_EnhancedTextView::availableTabActions() const
{
    return TabActionStore::availableTabActions(TabActionStore::FileSettings::from(defaults()));
}

void Vellox_EnhancedTextView::sendNotifactionUpdatesTextCountUpdate()
{
    // Nothing counts words here yet; the hook stays so the schedule stays as it is.
}
