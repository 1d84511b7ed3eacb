#include "BundleLanguageCheck.h"

#include "library/TextBundle.h"
#include "render/MarkupLanguage.h"
#include "widgets/Alert.h"

#include <QtDebug>

namespace BundleLanguageCheck {

void warnIfMixed(QWidget *parent, const QString &bundlePath, int currentLanguage)
{
    QString parseError;
    const int bundleLanguage = TextBundle::language(bundlePath, &parseError);
    if (!parseError.isEmpty())
        qWarning().noquote() << QStringLiteral("ERROR: %1").arg(parseError);
    if (bundleLanguage == currentLanguage)
        return;
    //% "This entry is written in %1, but %2 is selected. It is shown with %2."
    const QString message = qtTrId("TEXTBUNDLE_MIXED_MARKUPS_MESSAGE")
                                .arg(MarkupLanguage::displayName(bundleLanguage),
                                     MarkupLanguage::displayName(currentLanguage));
    //% "Different markup languages"
    Alert::show(parent, AlertRequest{QMessageBox::Warning,
                                     qtTrId("TEXTBUNDLE_MIXED_MARKUPS_TITLE"),
                                     message,
                                     {QStringLiteral("OK")}});
}

} // namespace BundleLanguageCheck
