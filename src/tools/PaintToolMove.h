#pragma once

#include "tools/PaintTool.h"

/// Lets the scene move the sprites.
class PaintToolMove : public PaintTool
{
    Q_OBJECT

public:
    explicit PaintToolMove(QObject *parent = nullptr);

    bool worksOnSeveralBodies() const override { return true; }
    void activate(const ToolContext &context, const AngleImage &image) override;
};
