#include "TextBundle.h"

#include "EntryDirectory.h"
#include "render/MarkupLanguage.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

QString TextBundle::infoJson(const QString &typeIdentifier)
{
    return QStringLiteral("{\n\"version\" : 2,\n\"type\": \"%1\",\n\"transient\" : true,\n"
                          "\"creatorIdentifier\" : \"com.tessaly.Vellox\"\n}")
        .arg(typeIdentifier);
}

QString TextBundle::textFileName(const QString &bundlePath)
{
    QString found;
    const QStringList items =
        QDir(bundlePath)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    for (const QString &item : items)
        if (EntryDirectory::deletingPathExtension(item) == QLatin1String("text"))
            found = item;
    return found;
}

QString TextBundle::textFileNameForSaving(const QString &bundlePath, int language)
{
    const QString existing = textFileName(bundlePath);
    if (!existing.isEmpty())
        return existing;
    return QStringLiteral("text.") + MarkupLanguage::textBundleExtension(language);
}

bool TextBundle::createLayout(const QString &bundlePath, int language, QString *error)
{
    if (!QDir().mkpath(bundlePath + QStringLiteral("/assets"))) {
        if (error)
            *error = bundlePath + QStringLiteral("/assets: cannot create the folder");
        return false;
    }
    QSaveFile file(bundlePath + QStringLiteral("/info.json"));
    file.setDirectWriteFallback(false);
    const QByteArray bytes = infoJson(MarkupLanguage::typeIdentifier(language)).toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        if (error)
            *error = file.fileName() + QStringLiteral(": ") + file.errorString();
        return false;
    }
    return true;
}

QString TextBundle::readType(const QString &bundlePath, QString *parseError)
{
    QFile file(bundlePath + QStringLiteral("/info.json"));
    if (!file.open(QIODevice::ReadOnly)) {
        if (parseError)
            *parseError = file.fileName() + QStringLiteral(": ") + file.errorString();
        return QString();
    }
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject()) {
        if (parseError)
            *parseError = file.fileName() + QStringLiteral(": ") +
                          (error.error != QJsonParseError::NoError
                               ? error.errorString()
                               : QStringLiteral("the top level is not an object"));
        return QString();
    }
    return doc.object().value(QStringLiteral("type")).toString();
}

int TextBundle::language(const QString &bundlePath, QString *parseError)
{
    return MarkupLanguage::languageForTextBundleType(readType(bundlePath, parseError));
}
