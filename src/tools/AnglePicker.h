#pragma once

#include "imaging/AngleImage.h"

#include <QPointF>
#include <QWidget>

class AngleGlobeView;

QT_BEGIN_NAMESPACE
class QCheckBox;
class QLabel;
class QLayout;
QT_END_NAMESPACE

Q_DECLARE_METATYPE(AngleImage::Pixel)

/// Chooses a slope on a globe: any, or one of a few that are easy to hit again.
class AnglePicker : public QWidget
{
    Q_OBJECT

public:
    explicit AnglePicker(QWidget *parent = nullptr);

public Q_SLOTS:
    /// Shows @p pixel; tells nobody.
    void setPixelValue(AngleImage::Pixel pixel);
    void discreteValuesToggled(bool discrete);
    void resetAngle();

Q_SIGNALS:
    /// The user has chosen @p pixel.
    void pixelValueChanged(AngleImage::Pixel pixel);

private:
    QLayout *createButtons();
    void point(const QPointF &position);
    void show(AngleImage::Pixel pixel, const QPointF &position);

    int m_globeSize;
    AngleImage m_lookup; ///< the slope of each of the globe's pixels
    AngleGlobeView *m_globe;
    QLabel *m_numbers;
    QCheckBox *m_discrete = nullptr;
};
