#pragma once

#include "cli/Console.h"
#include "model/ProjectPrompts.h"

/// Answers the controller's questions by the options of the command line.
class CliPrompts : public ProjectPrompts
{
public:
    explicit CliPrompts(Console &console)
        : m_console(console)
    {
    }

    QString searchFolder; ///< empty: missing files are not searched
    bool removesMissing = false;
    ResizedAnswer resizedAnswer;

    bool askReadOnly(const QString &file, const QString &holder) override;
    MissingTextures askMissingTextures(const QStringList &files) override;
    QString askSearchFolder() override;
    ResizedAnswer askResized(const QStringList &files) override;
    void showSummary(const QStringList &changes) override;
    void tell(const QString &message) override;
    bool showProgress(int done, int total) override;

private:
    Console &m_console;
    bool m_searched = false;
};
