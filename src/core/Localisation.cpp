#include "Localisation.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QTranslator>
#include <QtDebug>

void Localisation::install(QCoreApplication *app)
{
    // Every subsystem ships its own table; all of them are loaded.
    QDirIterator it(QStringLiteral(":/i18n"), {QStringLiteral("*.qm")});
    while (it.hasNext()) {
        const QString file = it.next();
        auto *translator = new QTranslator(app);
        if (translator->load(file))
            QCoreApplication::installTranslator(translator);
        else
            qWarning().noquote() << "ERROR: could not load translation table" << file;
    }
}
