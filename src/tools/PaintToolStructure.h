#pragma once

#include "imaging/PaintToolStructureJob.h"
#include "tools/BackgroundResult.h"
#include "tools/PaintToolBrushFromSurface.h"
#include "tools/PatternReading.h"

class GSettings;
class PatternBox;
class StructurePreview;

/// Adds the relief of a pattern, which is tiled over the body in the background.
class PaintToolStructure : public PaintToolBrushFromSurface
{
    Q_OBJECT

public:
    /// The user's folder of patterns is looked up in @p settings whenever the list is read.
    explicit PaintToolStructure(const GSettings &settings, QObject *parent = nullptr);

    void activate(const ToolContext &context, const AngleImage &image) override;
    void deactivate() override;
    /// Reads the patterns anew.
    void reload() override;

public Q_SLOTS:
    void patternImageChanged(const QString &path);
    /// Waits for the structure.
    void addStructure();

protected:
    SurfacePiece strokeResult(const QRect &changed) override;

private:
    void createPatternRow();
    void createNumberRows();
    void createPreferencesLink();
    void structureChanged();
    void requestStructure();
    void takePattern();
    void takeStructure();

    const GSettings &m_settings;
    PaintToolStructureParams m_params;
    PatternBox *m_patterns;
    StructurePreview *m_preview;
    PatternReadingJob m_readingJob;
    BackgroundResult<QString, ReadPattern> m_pattern{&m_readingJob};
    PaintToolStructureJob m_job;
    BackgroundResult<PaintToolStructureParams, AngleImage> m_structure{&m_job};
};
