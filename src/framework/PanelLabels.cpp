#include "framework/PanelLabels.h"

#include <QFontInfo>
#include <QLabel>

QLabel *createPanelTitle(const QString &text, QWidget *parent)
{
    auto *title = new QLabel(text, parent);
    QFont font = title->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * 0.9);
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    title->setForegroundRole(QPalette::PlaceholderText);
    return title;
}

QLabel *createMarkedUpText(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::RichText);
    return label;
}

QLabel *createQuietText(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setWordWrap(true);
    return label;
}
