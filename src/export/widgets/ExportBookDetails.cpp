#include "ExportBookDetails.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>

ExportBookDetails::ExportBookDetails(QWidget *parent)
    : QWidget(parent)
    , m_description(new QPlainTextEdit(this))
    , m_cover(new QLabel(this))
{
    setObjectName(QStringLiteral("ebookDetails"));
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    auto add = [&](const char *key, const QString &label, const QString &tip) {
        QLineEdit *field = addField(key, label, tip);
        form->addRow(label, field);
    };
    //% "Title"
    add("title", qtTrId("EXPORT_EBOOK_TITLE"),
        //% "The book's title; the notebook's name when left empty"
        qtTrId("EXPORT_EBOOK_TITLE_TIP"));
    //% "Author's first name"
    add("authorforename", qtTrId("EXPORT_EBOOK_AUTHOR_FORENAME"),
        //% "The author's first name"
        qtTrId("EXPORT_EBOOK_AUTHOR_FORENAME_TIP"));
    //% "Author's last name"
    add("authorname", qtTrId("EXPORT_EBOOK_AUTHOR_NAME"),
        //% "The author's last name"
        qtTrId("EXPORT_EBOOK_AUTHOR_NAME_TIP"));
    //% "Publisher"
    add("publishername", qtTrId("EXPORT_EBOOK_PUBLISHER"),
        //% "The publisher's name"
        qtTrId("EXPORT_EBOOK_PUBLISHER_TIP"));
    //% "Publisher's web address"
    add("publisherurl", qtTrId("EXPORT_EBOOK_PUBLISHER_URL"),
        //% "The publisher's web address"
        qtTrId("EXPORT_EBOOK_PUBLISHER_URL_TIP"));
    //% "Book's web address"
    add("bookurl", qtTrId("EXPORT_EBOOK_BOOK_URL"),
        //% "Where the book can be found on the web"
        qtTrId("EXPORT_EBOOK_BOOK_URL_TIP"));
    //% "Subject"
    add("subject", qtTrId("EXPORT_EBOOK_SUBJECT"),
        //% "What the book is about, in a few words"
        qtTrId("EXPORT_EBOOK_SUBJECT_TIP"));
    //% "Copyright"
    add("copyright", qtTrId("EXPORT_EBOOK_COPYRIGHT"),
        //% "The book's copyright notice"
        qtTrId("EXPORT_EBOOK_COPYRIGHT_TIP"));
    //% "ISBN"
    add("isbn", qtTrId("EXPORT_EBOOK_ISBN"),
        //% "The book's ISBN; a unique identifier is made when left empty"
        qtTrId("EXPORT_EBOOK_ISBN_TIP"));
    //% "Language code"
    add("languagecode", qtTrId("EXPORT_EBOOK_LANGUAGE"),
        //% "The book's language, such as en or de; the system's when left empty"
        qtTrId("EXPORT_EBOOK_LANGUAGE_TIP"));
    m_description->setObjectName(QStringLiteral("ebookDescription"));
    //% "A short description of the book"
    m_description->setToolTip(qtTrId("EXPORT_EBOOK_DESCRIPTION_TIP"));
    m_description->setAccessibleName(m_description->toolTip());
    m_description->setFixedHeight(70);
    //% "Description"
    form->addRow(qtTrId("EXPORT_EBOOK_DESCRIPTION"), m_description);

    auto *choose = new QPushButton(this);
    choose->setObjectName(QStringLiteral("ebookCoverButton"));
    //% "Cover Image…"
    choose->setText(qtTrId("EXPORT_EBOOK_COVER"));
    //% "Choose a JPEG, PNG or GIF picture for the book's cover"
    choose->setToolTip(qtTrId("EXPORT_EBOOK_COVER_TIP"));
    choose->setAccessibleName(choose->text());
    connect(choose, &QPushButton::clicked, this, &ExportBookDetails::chooseEbookCoverImage);
    m_cover->setObjectName(QStringLiteral("ebookCoverPreview"));
    m_cover->setFixedSize(80, 110);
    m_cover->setFrameShape(QFrame::StyledPanel);
    m_cover->setToolTip(choose->toolTip());
    m_cover->setAccessibleName(choose->text());
    form->addRow(choose, m_cover);
}

QLineEdit *ExportBookDetails::addField(const char *key, const QString &label, const QString &tip)
{
    auto *field = new QLineEdit(this);
    field->setObjectName(QStringLiteral("ebook_") + QString::fromLatin1(key));
    field->setToolTip(tip);
    field->setAccessibleName(label);
    m_fields.insert(QString::fromLatin1(key), field);
    return field;
}

QMap<QString, QString> ExportBookDetails::details() const
{
    QMap<QString, QString> values;
    for (auto it = m_fields.cbegin(); it != m_fields.cend(); ++it)
        values.insert(it.key(), it.value()->text());
    values.insert(QStringLiteral("description"), m_description->toPlainText());
    return values;
}

void ExportBookDetails::setCoverImage(const QString &path)
{
    m_coverPath = path;
    const QPixmap pixmap(path);
    m_cover->setPixmap(pixmap.isNull() ? QPixmap()
                                       : pixmap.scaled(m_cover->size(), Qt::KeepAspectRatio,
                                                       Qt::SmoothTransformation));
}

void ExportBookDetails::chooseEbookCoverImage()
{
    auto *dialog = new QFileDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(QStringLiteral("*.jpg *.jpeg *.png *.gif"));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAccessibleName(qtTrId("EXPORT_EBOOK_COVER"));
    connect(dialog, &QFileDialog::fileSelected, this, &ExportBookDetails::setCoverImage);
    dialog->open();
}
