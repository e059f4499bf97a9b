#include "preview/ProjectLight.h"

#include "model/Project.h"
#include "model/properties/PropertyT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/GLGraphicsScene.h"

ProjectLight::ProjectLight(GLGraphicsScene &scene)
    : m_scene(scene)
{
}

void ProjectLight::setProject(Project *project)
{
    m_observations.clear();
    m_project = project;
    if (!project)
        return;
    const std::initializer_list<Property *> settings = {&project->lightHeight(),
                                                        &project->lightBrightness(),
                                                        &project->lightColor(),
                                                        &project->ambientLightColor()};
    for (Property *setting : settings)
        m_observations.push_back(ChangeManager::instance().observe(*setting, *this));
    observableChanged(*project);
}

void ProjectLight::placeIn(const QRectF &content)
{
    constexpr double share = 0.125; // of its sides
    m_scene.light().setPos(content.topLeft() + share * (content.bottomRight() - content.topLeft()));
}

void ProjectLight::observableChanged(Observable & /*observable*/)
{
    m_scene.light().setHeight(static_cast<float>(m_project->lightHeight().value()));
    m_scene.setSceneLight({m_project->lightColor().value(),
                           m_project->ambientLightColor().value(),
                           static_cast<float>(m_project->lightBrightness().value())});
}
