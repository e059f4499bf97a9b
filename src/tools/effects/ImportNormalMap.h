#pragma once

#include "tools/effects/Filter.h"

class GSettings;
struct ImportedNormalMap;

/// Takes the surface of one body from a normal map that the user chooses. Doubts about the image
/// are told before anything changes, and never decide. Borrows the settings.
class ImportNormalMap : public Filter
{
    Q_OBJECT

public:
    explicit ImportNormalMap(GSettings &settings, QObject *parent = nullptr);

    bool worksOnSeveralBodies() const override { return false; }

protected:
    void run() override;

private:
    enum class Answer {
        Import,
        Flip,
        Cancel,
    };

    void importMap();
    QString choosePath(const Body &body);
    void showError(const QString &message);
    Answer ask(const ImportedNormalMap &map);

    GSettings &m_settings;
};
