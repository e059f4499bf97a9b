#pragma once

#include "imaging/effects/EmbossParams.h"
#include "tools/effects/PreviewedFilter.h"

/// Raises or sinks the surface by the brightness of the sprite.
class FilterEmboss : public PreviewedFilter
{
    Q_OBJECT

public:
    using EmbossParams = ::EmbossParams;

    explicit FilterEmboss(QObject *parent = nullptr);

public Q_SLOTS:
    /// Pixels of relief under white, 0.1 to 10.
    void setHeight(double height);
    /// Radius in pixels, 1 to 9.
    void setSmoothness(int smoothness);
    void setDirection(bool isUp);

protected:
    std::unique_ptr<EffectRunner> createRunner() override;

private:
    EmbossParams m_settings; // without a body
};
