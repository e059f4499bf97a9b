#pragma once

#include "imaging/effects/RimParams.h"
#include "tools/effects/PreviewedFilter.h"

/// Gives the surface a rounded rim along the border to transparency.
class FilterCreateRim : public PreviewedFilter
{
    Q_OBJECT

public:
    using RimParams = ::RimParams;

    explicit FilterCreateRim(QObject *parent = nullptr);

protected:
    std::unique_ptr<EffectRunner> createRunner() override;

private:
    void addRows();

    RimParams m_settings; // without a body
};
