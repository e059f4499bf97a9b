#pragma once

#include "base/GFileName.h"
#include "model/Body.h"
#include "model/properties/GProject.h"

#include <QCoreApplication>
#include <QStringList>

/// The document: the bodies, and the settings of export and light.
class Project : public GProject
{
    Q_DECLARE_TR_FUNCTIONS(Project)

public:
    Project();
    static QString tag();
    /// The names of the fields that a user sets ("publish_directory" and those after it), in order.
    static QStringList settingKeys();
    std::shared_ptr<Property> newInstance() const override;

    PropertyFilename &filename() const { return *m_filename; }
    /// The file or folder that a user names by @p path; relative ones count from the folder of the
    /// project's file, as they do in it. Throws Error for those while there is no such file.
    GFileName fileTyped(const QString &path) const;
    PropertyListT<Body> &bodies() const { return *m_bodies; }
    /// Where normal maps are written; beside each sprite when empty.
    PropertyFilename &publishDirectory() const { return *m_publishDirectory; }
    /// What is added to a sprite's name for its normal map.
    PropertyString &publishNormalmapPostfix() const { return *m_publishNormalmapPostfix; }
    /// What the names of the project's normal maps end in: "_n" until the export is set up.
    QString mapSuffix() const;
    PropertyInt &lightHeight() const { return *m_lightHeight; }
    PropertyInt &lightBrightness() const { return *m_lightBrightness; }
    PropertyColor &lightColor() const { return *m_lightColor; }
    PropertyColor &ambientLightColor() const { return *m_ambientLightColor; }

private:
    PropertyFilename *m_filename;
    PropertyListT<Body> *m_bodies;
    PropertyFilename *m_publishDirectory;
    PropertyString *m_publishNormalmapPostfix;
    PropertyInt *m_lightHeight;
    PropertyInt *m_lightBrightness;
    PropertyColor *m_lightColor;
    PropertyColor *m_ambientLightColor;
};
