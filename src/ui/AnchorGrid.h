#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QButtonGroup;
QT_END_NAMESPACE

/// Nine places of which one is chosen, by mouse or arrow keys: what stays there while the size
/// around it changes. Arrows show where it grows to.
class AnchorGrid : public QWidget
{
    Q_OBJECT

public:
    explicit AnchorGrid(QWidget *parent = nullptr);

    /// The middle to begin with.
    Qt::Alignment anchor() const;

private:
    QButtonGroup *m_places;
};
