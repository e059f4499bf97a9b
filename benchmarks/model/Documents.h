#pragma once

#include <QSize>
#include <QTemporaryDir>

#include <memory>

class Project;

/// A project of painted bodies and the folder with its sprites, made for a benchmark.
struct PaintedProject
{
    PaintedProject(int bodies, const QSize &size);

    QString path(const QString &name) const { return folder->filePath(name); }

    std::shared_ptr<QTemporaryDir> folder;
    std::shared_ptr<Project> project;
};

/// Writes a square sprite as artists have them: a shape with smooth edges, and colours that run.
void saveSprite(const QString &path, int side);
