#pragma once

#include <QMap>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

// The e-book details beside the export choices: title, author, publisher, ... and the cover.
class ExportBookDetails : public QWidget
{
    Q_OBJECT
public:
    explicit ExportBookDetails(QWidget *parent = nullptr);

    // "title", "authorname", ... as the book builder takes them.
    QMap<QString, QString> details() const;
    QString coverImage() const { return m_coverPath; }
    void setCoverImage(const QString &path);

private:
    void chooseEbookCoverImage();
    QLineEdit *addField(const char *key, const QString &label, const QString &tip);

    QMap<QString, QLineEdit *> m_fields;
    QPlainTextEdit *m_description;
    QLabel *m_cover;
    QString m_coverPath;
};
