#pragma once

#include <QWidget>

#include <memory>
#include <vector>

class AngleImageTool;
class ItemSelectionModel;
class PaintTool;
class QMenu;

/// The right panel: effects, tools, and the settings of the active tool. Everything in it is made
/// from the list of tools.
class ToolsSidebar : public QWidget
{
    Q_OBJECT

public:
    /// Owns @p tools, the first of which is active at the start, and @p effects. Those without a
    /// short label get no button.
    ToolsSidebar(ItemSelectionModel &selection,
                 std::vector<std::unique_ptr<PaintTool>> tools,
                 std::vector<std::unique_ptr<AngleImageTool>> effects,
                 QWidget *parent = nullptr);
    ~ToolsSidebar() override;

    PaintTool *activeTool() const;
    /// The effect that is open, null for none: then only its action is enabled. When it ends, the
    /// tool that was active before is active again.
    void setOpenEffect(AngleImageTool *effect);
    /// Enables the actions by the number of selected bodies; called when a project is installed,
    /// too.
    void updateActions();
    void addToolActions(QMenu &menu) const;

Q_SIGNALS:
    void activeToolChanged(PaintTool *tool);
    /// An effect's action was triggered.
    void effectRequested(AngleImageTool *effect);
};
