#include "tools/PaintToolMove.h"

#include <QIcon>

PaintToolMove::PaintToolMove(QObject *parent)
    : PaintTool(QIcon(QStringLiteral(":/painttoolicons/move.svg")),
                tr("Move sprites"),
                tr("Move"),
                QStringLiteral("V"),
                parent)
{
}

void PaintToolMove::activate(const ToolContext & /*context*/, const AngleImage & /*image*/)
{
    Q_EMIT interactionModeChanged(InteractionMode::MoveSprites);
    Q_EMIT cursorChanged(ScalableToolCursor());
}
