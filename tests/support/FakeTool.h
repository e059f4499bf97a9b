#pragma once

#include "tools/PaintTool.h"

/// A tool or effect that does nothing.
class FakeTool : public PaintTool
{
public:
    FakeTool(const QString &label, const QString &shortLabel, bool worksOnSeveralBodies = false)
        : PaintTool({}, label, shortLabel, {})
        , m_worksOnSeveralBodies(worksOnSeveralBodies)
    {
    }

    bool worksOnSeveralBodies() const override { return m_worksOnSeveralBodies; }

private:
    bool m_worksOnSeveralBodies;
};
