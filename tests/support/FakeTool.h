#pragma once

#include "tools/PaintTool.h"

#include <QStringList>

/// A tool that remembers what it was told, and an effect or tool for sidebars.
class FakeTool : public PaintTool
{
    Q_OBJECT

public:
    explicit FakeTool(const QString &label,
                      const QString &shortLabel = QStringLiteral("Fake"),
                      bool worksOnSeveral = false)
        : PaintTool({}, label, shortLabel, {})
        , m_worksOnSeveral(worksOnSeveral)
    {
    }

    bool worksOnSeveralBodies() const override { return m_worksOnSeveral; }

private:
    bool m_worksOnSeveral;
};
