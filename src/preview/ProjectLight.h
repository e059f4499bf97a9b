#pragma once

#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"

#include <QRectF>

#include <vector>

class GLGraphicsScene;
class Project;

/// Keeps the light of a scene as the project's settings have it, and knows where it is to begin
/// with. Scene and project are borrowed.
class ProjectLight : public Observer
{
public:
    explicit ProjectLight(GLGraphicsScene &scene);

    /// Null for none: the light stays as it is then.
    void setProject(Project *project);
    /// Puts it at the upper left of @p content.
    void placeIn(const QRectF &content);

    void observableChanged(Observable &observable) override;

private:
    GLGraphicsScene &m_scene;
    Project *m_project = nullptr;
    std::vector<Observation> m_observations;
};
