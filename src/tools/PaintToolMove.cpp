#include "tools/PaintToolMove.h"

#include "framework/GAction.h"
#include "framework/ThemedIcon.h"

PaintToolMove::PaintToolMove(QObject *parent)
    : PaintTool(themedIcon(QStringLiteral(":/painttoolicons/move.svg")),
                tr("Move sprites"),
                tr("Move"),
                QStringLiteral("V"),
                parent)
{
    action().setStatusTip(tr("Drag sprites to arrange them in the view."));
}

void PaintToolMove::activate(const ToolContext & /*context*/, const AngleImage & /*image*/)
{
    Q_EMIT interactionModeChanged(InteractionMode::MoveSprites);
    Q_EMIT cursorChanged(ScalableToolCursor());
}
