#pragma once

#include "tools/BrushSettings.h"

#include <QFlags>
#include <QObject>

class GIntEdit;
class ToolPanel;

/// The rows of a brush in the panel of its tool, and the settings that they edit.
class BrushPanel : public QObject
{
    Q_OBJECT

public:
    /// Rows besides those of size and pen.
    enum BrushRow { HeightRow = 1, OpacityRow = 2, HardnessRow = 4, ContourRow = 8 };
    Q_DECLARE_FLAGS(BrushRows, BrushRow)

    /// The panel owns what is laid into it, and outlives this.
    BrushPanel(ToolPanel &panel, BrushRows rows);

    const BrushSettings &settings() const { return m_settings; }
    bool hasOpacity() const { return m_opacityEdit; }
    /// Brought into the range; nothing happens without the row.
    void setSize(int size);
    void setOpacity(int opacity);
    void setHardness(int hardness);
    void setContour(int contour);
    /// By a tenth, at least a pixel.
    void changeSize(int steps);
    void changeHardness(int steps);
    /// What the keys do, a line each.
    QString keysHelp() const;

Q_SIGNALS:
    void changed();
    void contourClicked(int contour);

private:
    void createNumberRows(ToolPanel &panel, BrushRows rows);
    void createContourRow(ToolPanel &panel);
    void createPressureRow(ToolPanel &panel, BrushRows rows);
    template <class Edit, class Number>
    void follow(const Edit &edit, Number &field);

    BrushSettings m_settings;
    GIntEdit *m_sizeEdit = nullptr;
    GIntEdit *m_opacityEdit = nullptr;
    GIntEdit *m_hardnessEdit = nullptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(BrushPanel::BrushRows)
