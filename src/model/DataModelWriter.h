#pragma once

#include <QCoreApplication>

#include <functional>

class Project;

/// Saves a project to its file name.
class DataModelWriter
{
    Q_DECLARE_TR_FUNCTIONS(DataModelWriter)

public:
    /// @p project outlives the writer.
    explicit DataModelWriter(Project &project);

    /// Replaces the file in one move. Throws Error when the project has no file name, the file
    /// can't be written or its name does not end in ".vep"; the file on disk is then as it was.
    /// @p progress is called with the surfaces written and all there are.
    void write(const std::function<void(int done, int total)> &progress = {});

private:
    Project &m_project;
};
