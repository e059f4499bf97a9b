#pragma once

#include "tools/effects/Filter.h"

#include <QStringList>

class GSettings;
struct ImportedNormalMap;

/// Takes the surfaces of several bodies from the normal maps in a folder, found by the names that
/// an export gives them, as one undo step. Borrows the settings.
class ImportNormalMaps : public Filter
{
    Q_OBJECT

public:
    explicit ImportNormalMaps(GSettings &settings, QObject *parent = nullptr);

protected:
    void run() override;

private:
    /// What became of one body.
    struct Outcome
    {
        Body *body;
        QString path;      ///< of its map, empty when there is none to be read
        QStringList notes; ///< what is worth telling
        AngleImage surface;
        bool hasGreenDown = false;
    };
    using Outcomes = QVector<Outcome>;

    void importMaps();
    Outcomes find(const QString &folder) const;
    /// False when it was cancelled.
    bool read(Outcomes &outcomes) const;
    bool settleGreen(Outcomes &outcomes) const;
    void tell(const Outcomes &outcomes) const;
    QStringList notesAbout(const ImportedNormalMap &map, const Body &body) const;

    GSettings &m_settings;
};
