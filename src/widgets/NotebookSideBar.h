#pragma once

#include <QButtonGroup>
#include <QImage>
#include <QList>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>

// The column of notebook buttons on the window's left edge. Each row shows a notebook's icon
// (a greyscale copy while selected) with its name as tooltip and accessible name.
class NotebookSideBar : public QWidget
{
    Q_OBJECT
public:
    explicit NotebookSideBar(QWidget *parent = nullptr);

    int rowCount() const { return int(m_buttons.size()); }
    void addRow(const QString &title, const QImage &image, const QImage &alternateImage);
    void setRow(int row, const QString &title, const QImage &image, const QImage &alternateImage);
    void removeLastRow();
    QString rowTitle(int row) const;
    // The row's tooltip: the notebook's name.
    QString rowToolTip(int row) const;
    QToolButton *button(int row) const;

    int selectedRow() const;
    void selectRow(int row);
    void clearSelection();
    void setDarkAppearance(bool dark);

Q_SIGNALS:
    void didSelectButton(int row);

private:
    void refreshIcons();
    static QString lightStyle();
    static QString darkStyle();

    struct Row
    {
        QString title;
        QImage image;
        QImage alternate;
    };
    QVBoxLayout *m_layout;
    QButtonGroup m_group;
    QList<QToolButton *> m_buttons;
    QList<Row> m_rows;
    bool m_dark = false;
};
