#pragma once

#include <QSize>
#include <QTemporaryDir>

#include <memory>

class Body;
class Project;

/// A project of painted bodies and the folder with its sprites, made for a benchmark.
struct PaintedProject
{
    PaintedProject(int bodies, const QSize &size);

    QString path(const QString &name) const { return folder->filePath(name); }

    std::shared_ptr<QTemporaryDir> folder;
    std::shared_ptr<Project> project;
};

/// A body of @p project, which does not list it yet, with a sprite that is written to @p file and a
/// surface with as much detail as an artist's; others for each @p seed.
std::shared_ptr<Body>
paintedBody(Project &project, const QString &file, const QSize &size, int seed = 0);

/// Writes a square sprite as artists have them: a shape with smooth edges, and colours that run.
void saveSprite(const QString &path, int side);
