#pragma once

#include "tools/PaintTool.h"

#include <QIcon>
#include <QStringList>

/// Writes down what it is told and asks for what the test sets.
class FakeTool : public PaintTool
{
public:
    explicit FakeTool(const QString &label = QStringLiteral("Fake tool"),
                      const QString &shortLabel = QStringLiteral("Fake"),
                      bool worksOnSeveralBodies = false)
        : PaintTool(QIcon(), label, shortLabel, {})
        , m_worksOnSeveralBodies(worksOnSeveralBodies)
    {
    }

    bool worksOnSeveralBodies() const override { return m_worksOnSeveralBodies; }
    void activate(const ToolContext &context, const AngleImage &image) override;
    void deactivate() override;
    void mousePress(const ToolPointerEvent &event) override { log("press", event); }
    void mouseMove(const ToolPointerEvent &event) override { log("move", event); }
    void mouseRelease(const ToolPointerEvent &event) override;
    void mouseDoubleClick(const ToolPointerEvent &event) override { log("double", event); }
    void keyPress(int key, Qt::KeyboardModifiers modifiers) override;
    void keyRelease(int key, Qt::KeyboardModifiers modifiers) override;
    void reload() override { log(QStringLiteral("reload")); }
    void updateTexture(QImage image) override { log(QStringLiteral("texture"), image.size()); }
    void updateNormalMap(AngleImage normalmap) override;
    void updateSelection(FloatImage selection) override;

    /// What was written down since the last call, as in "press 1,2|release 3,4".
    QByteArray takeLog() { return std::exchange(m_log, {}).join(QLatin1Char('|')).toUtf8(); }

    InteractionMode mode = InteractionMode::Tool;
    bool paints = false;      ///< a step slope of 1 where it is pressed and moved, until released
    bool commitsLate = false; ///< what it has painted, when it is deactivated
    ToolPointerEvent lastEvent;
    QVector<double> pressures;
    AngleImage surface;

private:
    void log(const QString &line) { m_log.append(line); }
    void log(const QString &what, const QSize &size);
    void log(const char *what, const ToolPointerEvent &event);

    bool m_worksOnSeveralBodies;
    QStringList m_log;
};
