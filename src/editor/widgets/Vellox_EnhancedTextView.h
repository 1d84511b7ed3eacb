#pragma once

#include "EnhancedTextView.h"

// The editor the main window uses: tab actions come from the tab-action file in use.
class Vellox_EnhancedTextView : public EnhancedTextView
{
    Q_OBJECT
public:
    explicit Vellox_EnhancedTextView(UserDefaults &defaults, QWidget *parent = nullptr);

    QVariantMap availableTabActions() const override;
    void sendNotifactionUpdatesTextCountUpdate() override;
};
