#pragma once

#include <QLabel>
#include <QVector>

/// Quiet help of several lines: "keys | what they do" stands in two columns, a line without a bar
/// takes the whole width. The text stays as it was given, for who reads it aloud.
class KeysText : public QLabel
{
    Q_OBJECT

public:
    explicit KeysText(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Part
    {
        QString text;
        QRect place;
        bool isKeys = false;
    };
    QVector<Part> partsFor(int width) const;
};
