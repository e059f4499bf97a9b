#pragma once

#include "imaging/AngleImage.h"
#include "tools/AngleImageTool.h"

#include <QList>
#include <QPointer>
#include <QRect>
#include <QVector>

#include <functional>
#include <memory>

class Body;
class PixelSelectionModel;
class PositionedDialog;
class ToolPanel;

/// Shows how far a long operation is, of 0 when nobody knows; false to cancel it. To be called
/// again and again.
using ShowProgress = std::function<bool(int done, int total)>;

/// What an effect is started on. All is borrowed until the effect has closed.
struct EffectContext
{
    QList<Body *> bodies; ///< at least one, in the order of the project's list
    const PixelSelectionModel *pixels = nullptr;
    QString mapSuffix; ///< what the names of the project's normal maps end in, such as "_n"
    QWidget *window = nullptr;
    ShowProgress progress = {}; ///< of what is done inside of start(); may be empty
};

/// Base of the operations on whole surfaces of several bodies. An effect is idle until it is
/// started and ends by filterClosed(), once; then it may be started again. Between these its own
/// dialog has the settings, when it has any.
class Filter : public AngleImageTool
{
    Q_OBJECT

public:
    Filter(const QIcon &icon,
           const QString &label,
           const QString &shortLabel,
           QObject *parent = nullptr);
    ~Filter() override;

    bool worksOnSeveralBodies() const override { return true; }
    /// Whether a body is of no use to it while its sprite's file is missing or does not fit.
    virtual bool needsSprites() const { return false; }
    QVector<ToolSetting> settings() const override;
    /// From start() until it has closed.
    bool isOpen() const { return m_isOpen; }
    const QList<Body *> &bodies() const { return m_context.bodies; }
    /// May have closed when it returns.
    void start(const EffectContext &context);
    /// What it would make of the bodies is shown until its dialog is answered.
    bool hasPreview() const;
    /// As by the dialog's button; nothing when it has no preview.
    void apply();
    /// As by the dialog's button; nothing when it is not open.
    void discard();

public Q_SLOTS:
    /// Ends with the settings as they are.
    virtual void applyClicked() { close(); }
    /// Ends as if it had never been.
    virtual void discardClicked() { close(); }

Q_SIGNALS:
    /// @p normalMap is what @p body would look like, the piece at @p changedArea or all of it.
    void temporaryNormalMapChanged(Body *body, AngleImage normalMap, QRect changedArea = QRect());
    /// What is shown of the bodies becomes their surface, as one undo step.
    void commitNormalMaps(QString undoText);
    /// All bodies show what is stored.
    void resetTemporaryNormalMaps();
    void filterClosed();

protected:
    /// Lays rows into the dialog.
    ToolPanel &panel();
    PositionedDialog *dialog() const;
    const EffectContext &context() const { return m_context; }
    /// The context is set; the dialog comes up afterwards.
    virtual void run() = 0;
    void close();

private:
    void showDialog();
    void addButtons();

    QPointer<PositionedDialog> m_dialog; // a child of the window once it was shown
    std::unique_ptr<ToolPanel> m_panel;
    EffectContext m_context;
    bool m_isOpen = false;
    bool m_hasButtons = false;
};
