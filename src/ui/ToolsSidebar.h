#pragma once

#include <QWidget>

#include <memory>
#include <vector>

class AngleImageTool;
class Filter;
class GSettings;
class ItemSelectionModel;
class PaintTool;
class PanelArea;

QT_BEGIN_NAMESPACE
class QAction;
class QActionGroup;
class QLabel;
class QMenu;
QT_END_NAMESPACE

/// The right panel: effects, tools, and the settings of the active tool. Everything in it is made
/// from the list of tools. What is set in them, and which one is active, is kept between runs.
class ToolsSidebar : public QWidget
{
    Q_OBJECT

public:
    /// Owns @p tools and @p effects. Those without a short label get no button. Active at the start
    /// is the tool that was so in the last run, otherwise the first one. @p settings outlive the
    /// sidebar.
    ToolsSidebar(ItemSelectionModel &selection,
                 GSettings &settings,
                 std::vector<std::unique_ptr<PaintTool>> tools,
                 std::vector<std::unique_ptr<Filter>> effects,
                 QWidget *parent = nullptr);
    ~ToolsSidebar() override;

    /// Null while an effect is open.
    PaintTool *activeTool() const { return m_activeTool; }
    /// The effect that is open, null for none: then only its action is enabled. When it ends, the
    /// tool that was active before is active again.
    void setOpenEffect(Filter *effect);
    /// Enables the actions by the number of selected bodies; called when a project is installed,
    /// too.
    void updateActions();
    /// The tools, and the effects that have a button.
    void addToolActions(QMenu &menu) const;
    /// The effects without a button.
    void addEditActions(QMenu &menu) const;
    /// Lets all tools read anew what lies outside of the document.
    void reloadTools();

Q_SIGNALS:
    /// Null when an effect takes over.
    void activeToolChanged(PaintTool *tool);
    /// An effect's action was triggered. Whoever opens the effect calls setOpenEffect() before the
    /// signal returns.
    void effectRequested(Filter *effect);

private:
    QWidget *createButtons(const QString &title, const std::vector<AngleImageTool *> &shown);
    QWidget *createSettings();
    std::vector<AngleImageTool *> allTools() const;
    void registerActions();
    void takeTriggered(QAction *action);
    void activate(PaintTool *tool);
    void showSettings();
    bool isUsable(const AngleImageTool &tool) const;
    void showWhyAtRest();
    void restoreSettings();
    void keepSettings(const AngleImageTool &tool);
    PaintTool *lastActiveTool() const;

    ItemSelectionModel &m_selection;
    GSettings &m_store;
    std::vector<std::unique_ptr<PaintTool>> m_tools;
    std::vector<std::unique_ptr<Filter>> m_effects;
    QActionGroup *m_actions;
    PanelArea *m_settings;
    QLabel *m_help;
    QLabel *m_whyAtRest;
    PaintTool *m_activeTool = nullptr;
    PaintTool *m_formerTool = nullptr; // while an effect is open
    Filter *m_openEffect = nullptr;
    int m_selectedCount = 0;
};
