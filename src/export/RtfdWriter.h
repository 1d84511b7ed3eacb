#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// Writes RTFD packages: a folder "name.rtfd" holding "TXT.rtf" with the images beside it,
// each image placed in the text by a NeXTGraphic attachment naming its file. The text itself
// is converted to RTF elsewhere; the images travel through that conversion as marker words.
class RtfdWriter
{
public:
    explicit RtfdWriter(const QString &workFolder);

    // Writes the HTML to convert (its images replaced by markers) and returns its path.
    QString addDocument(const QString &name, const QString &htmlFragment,
                        const QString &attachmentFolder);
    // Where the converted "name.rtf" files are expected.
    QString rtfFolder() const;
    // Builds "name.rtfd" in outputFolder for each converted document.
    void writePackages(const QString &outputFolder) const;

    // The NeXTGraphic attachment for an image file.
    static QString attachment(const QString &fileName, int widthTwips, int heightTwips);

private:
    struct Image
    {
        QString marker;
        QString path;
    };
    struct Document
    {
        QString name;
        QList<Image> images;
    };

    QString m_workFolder;
    QList<Document> m_documents;
};
