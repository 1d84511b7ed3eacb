#pragma once

#include <QString>

class QWidget;

// A TextBundle names the markup language it was written in; when that is not the selected
// one, the user is told (on every load of that bundle). A broken "info.json" is logged.
namespace BundleLanguageCheck {
void warnIfMixed(QWidget *parent, const QString &bundlePath, int currentLanguage);
} // namespace BundleLanguageCheck
