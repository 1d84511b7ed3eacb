#include "Vellox_EnhancedTextView.h"

#if __has_include("editor/TabActionStore.h")
#include "editor/TabActionStore.h"
#define VELLOX_HAS_TAB_ACTION_STORE 1
#endif

Vellox_EnhancedTextView::Vellox_EnhancedTextView(QWidget *parent)
    : EnhancedTextView(parent)
{}

QVariantMap Vellox_EnhancedTextView::availableTabActions() const
{
#ifdef VELLOX_HAS_TAB_ACTION_STORE
    return TabActionStore::availableTabActions();
#else
    return QVariantMap();
#endif
}

void Vellox_EnhancedTextView::sendNotifactionUpdatesTextCountUpdate()
{
    // Nothing counts words here yet; the hook stays so the schedule stays as it is.
}
