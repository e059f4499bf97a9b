#pragma once

#include <QCache>
#include <QPixmap>
#include <QStyledItemDelegate>

/// Draws a row of the list of sprites: thumbnail, name, a quiet line, and an icon for trouble.
/// Thumbnails are made when a row is first seen, once for each image.
class SpriteDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where the texts stand in the row that takes @p row.
    QRect textArea(const QRect &row) const;

    void paint(QPainter *painter,
               const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    QWidget *createEditor(QWidget *parent,
                          const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor,
                              const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

private:
    QPixmap thumbnail(const QImage &image, const QPalette &palette, double pixelRatio) const;

    // By the image and by what else it is made of.
    mutable QCache<QPair<qint64, QPair<int, QRgb>>, QPixmap> m_thumbnails{1000};
};
