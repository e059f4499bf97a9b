#pragma once

#include "support/FakeTool.h"
#include "support/ShownEditor.h"

#include <QTest>

/// With a sprite that a tool works on.
struct ToolEditor : ShownEditor
{
    explicit ToolEditor(const QSize &size = {8, 8})
        : a(add(QStringLiteral("a"), size))
    {
        scene.setTool(&tool);
        bodies.setSelection({&a});
        tool.takeLog();
    }
    void press(const Body &body, const QPointF &pixel) const
    {
        QTest::mousePress(&viewport, Qt::LeftButton, {}, on(body, pixel));
    }
    void release(const Body &body, const QPointF &pixel) const
    {
        QTest::mouseRelease(&viewport, Qt::LeftButton, {}, on(body, pixel));
    }

    Body &a;
    FakeTool tool;
};
