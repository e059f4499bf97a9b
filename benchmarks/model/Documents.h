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

/// A body of @p project, which does not list it yet, with the sprite of @p file.
std::shared_ptr<Body> spriteBody(Project &project, const QString &file);

/// Gives @p body a surface with as much detail as an artist's; others for each @p seed.
void paint(Body &body, int seed = 0);

/// The same with a plain sprite that is written to @p file.
std::shared_ptr<Body>
paintedBody(Project &project, const QString &file, const QSize &size, int seed = 0);

/// Writes a square sprite as artists have them: a shape with smooth edges, and colours that run.
/// The share @p grain of all pixels is transparent by chance.
void saveSprite(const QString &path, int side, double grain = 0.0);
