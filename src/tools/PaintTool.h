#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"
#include "tools/AngleImageTool.h"
#include "tools/InteractionMode.h"
#include "tools/ScalableToolCursor.h"
#include "tools/ToolContext.h"
#include "tools/ToolPointerEvent.h"

#include <QImage>
#include <QPointer>
#include <QRect>
#include <QVector>

#include <functional>
#include <memory>

class ToolPanel;
struct ToolSetting;

QT_BEGIN_NAMESPACE
class QGraphicsItem;
class QKeySequence;
class QShortcut;
class QWidget;
QT_END_NAMESPACE

/// Base of all tools: the interface between the scene, which forwards events, and what is done with
/// them. A tool never writes the document: it announces what it has made and commits it once. It
/// lives as long as the sidebar, its settings panel is its own. One that works on several bodies
/// lets the scene move them, and is active on none of them meanwhile.
class PaintTool : public AngleImageTool
{
    Q_OBJECT

public:
    PaintTool(const QIcon &icon,
              const QString &label,
              const QString &shortLabel,
              const QString &shortcut,
              QObject *parent = nullptr);
    ~PaintTool() override;

    QString text() const;
    QWidget *settingsPanel() const { return m_settingsPanel.get(); }
    /// The shortcuts work while @p widget is to be seen, instead of the panel.
    void moveShortcuts(QWidget &widget);
    QVector<ToolSetting> settings() const override;
    /// 0 for tools that paint nothing, 1 for brushes, 2 for the brush that sets an angle.
    virtual int kind() const { return 0; }

    /// The tool is used on a body with @p image as its surface from now on. Enables the shortcuts
    /// and the commands of the panel; who overrides these two calls them.
    virtual void activate(const ToolContext &context, const AngleImage &image);
    virtual void deactivate();

    // Positions are pixels of the body's image.
    virtual void mousePress(const ToolPointerEvent &event);
    virtual void mouseMove(const ToolPointerEvent &event);
    virtual void mouseRelease(const ToolPointerEvent &event);
    virtual void mouseDoubleClick(const ToolPointerEvent &event);
    virtual void keyPress(int key, Qt::KeyboardModifiers modifiers);
    virtual void keyRelease(int key, Qt::KeyboardModifiers modifiers);
    /// The wheel turned by @p notches, up is positive, with Control held. False when it means
    /// nothing here.
    virtual bool turnWheel(double notches, Qt::KeyboardModifiers modifiers);
    /// What stepBack() does, for a menu; empty while it does nothing.
    virtual QString stepBackText() const { return {}; }
    /// Takes back a piece of what is not finished. Undo does so before it undoes a step of the
    /// document.
    virtual void stepBack() {}
    /// Reads anew what lies outside of the document, such as folders of files.
    virtual void reload();
    /// Shown above the sprite while the tool is active; owned by the tool, null for none.
    virtual QGraphicsItem *overlayItem() const { return nullptr; }

public Q_SLOTS:
    virtual void updateTexture(QImage image);
    virtual void updateNormalMap(AngleImage normalmap);
    virtual void updateSelection(FloatImage selection);

Q_SIGNALS:
    void cursorChanged(ScalableToolCursor paintToolCursor);
    /// @p normalMap is the piece at @p changedArea, or the whole surface.
    void temporaryNormalMapChanged(AngleImage normalMap, QRect changedArea = QRect());
    void commitNormalMap(QString undoText);
    void selectionChanged(FloatImage selection, QString undoText, bool mergeWithPrevious = false);
    void interactionModeChanged(InteractionMode mode);
    void stepBackTextChanged();

protected:
    /// Lays rows into the settings panel.
    ToolPanel &panel();
    /// Runs @p run at @p keys, while the tool is active.
    void addShortcut(const QKeySequence &keys, const std::function<void()> &run);

private:
    void setInUse(bool isInUse);

    std::unique_ptr<QWidget> m_settingsPanel;
    std::unique_ptr<ToolPanel> m_panel;
    QVector<QPointer<QShortcut>> m_shortcuts; // children of the panel, or of another widget
};
