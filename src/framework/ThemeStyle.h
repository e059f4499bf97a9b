#pragma once

#include <QProxyStyle>

/// The flat look of all widgets, drawn over the toolkit's Fusion style in the colours of the
/// palette, so that a change of the palette is all that a change of the theme takes.
class ThemeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    ThemeStyle();

    using QProxyStyle::polish;
    void polish(QWidget *widget) override;

    void drawPrimitive(PrimitiveElement element,
                       const QStyleOption *option,
                       QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element,
                     const QStyleOption *option,
                     QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control,
                            const QStyleOptionComplex *option,
                            QPainter *painter,
                            const QWidget *widget) const override;

    int pixelMetric(PixelMetric metric,
                    const QStyleOption *option,
                    const QWidget *widget) const override;
    int styleHint(StyleHint hint,
                  const QStyleOption *option,
                  const QWidget *widget,
                  QStyleHintReturn *returned) const override;
    QRect subControlRect(ComplexControl control,
                         const QStyleOptionComplex *option,
                         SubControl part,
                         const QWidget *widget) const override;
    QRect subElementRect(SubElement element,
                         const QStyleOption *option,
                         const QWidget *widget) const override;
    QIcon standardIcon(StandardPixmap icon,
                       const QStyleOption *option,
                       const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type,
                           const QStyleOption *option,
                           const QSize &size,
                           const QWidget *widget) const override;
};
