#include "base/Error.h"
#include "base/PlainText.h"
#include "cli/Commands.h"
#include "cli/OpenedProject.h"
#include "model/DataModelReader.h"
#include "model/NormalMapExport.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <QThreadPool>

namespace {
// One run over several projects: no map may replace one that the run has written before.
class ExportRun
{
public:
    ExportRun(const ExportOptions &options, Console &console)
        : m_options(options)
        , m_console(console)
    {
    }

    // What is a sprite of one project must not be replaced by a map of another.
    void protectSprites()
    {
        const DataModelReader reader(QStringLiteral(".vep"), QStringLiteral(".vexml"));
        for (const QString &path : m_options.projects) {
            try {
                m_kept.add(spriteFiles(*reader.readWithoutSurfaces(path)));
            } catch (const Error &error) {
                qInfo("%s", qUtf8Printable(error.message())); // told when its turn comes
            }
        }
    }

    void exportProject(const QString &path)
    {
        OpenedProject opened(m_console);
        if (!opened.open(path)) {
            ++m_unreadable;
            return;
        }
        const auto bodies = opened.bodies();
        for (const Body *body : bodies)
            warn(*body);
        NormalMapExport settings = settingsFor(opened);
        settings.progress = [this, &bodies](int done) {
            m_console.showProgress(done, bodies.size());
            return true;
        };
        try {
            const Project &project = opened.controller().project();
            if (!m_options.overwrite && !areTargetsFree(foreignFiles(project, bodies, settings)))
                return;
            const auto result = exportNormalMaps(project, bodies, settings);
            for (const QString &failure : result.failures)
                fail(failure);
        } catch (const Error &error) {
            fail(error.message());
            m_console.tell(
                QStringLiteral("Nothing of '%1' is written: a map would replace a sprite "
                               "or another map, or leave its folder; choose another "
                               "--suffix or --output")
                    .arg(path));
        }
    }

    ExitCode end() const
    {
        if (m_unreadable == 0 && m_failures == 0)
            return ExitCode::Done;
        if (m_hasWritten)
            return ExitCode::Partly;
        return m_failures == 0 ? ExitCode::Unreadable : ExitCode::Failed;
    }

private:
    NormalMapExport settingsFor(OpenedProject &opened)
    {
        NormalMapExport settings = opened.controller().exportSettings();
        if (m_options.output)
            settings.directory = GFileName(*m_options.output);
        if (m_options.suffix)
            settings.suffix = plainText(*m_options.suffix);
        else if (settings.suffix.isEmpty() && settings.directory.isEmpty())
            settings.suffix = QStringLiteral("_n");
        settings.goesOn = true;
        settings.jobs = m_options.jobs;
        settings.kept = m_kept;
        settings.replacesForeign = m_options.overwrite;
        settings.written = [this](const QString &path) {
            m_kept.add(path);
            m_hasWritten = true;
            m_console.path(path);
        };
        return settings;
    }

    void warn(const Body &body)
    {
        if (body.sprite().hasOwnImage())
            return;
        m_console.tell(
            QStringLiteral("'%1' is %2: its normal map is written without the shape of "
                           "the sprite")
                .arg(body.sprite().filename().value().path(), statusWord(statusOf(body))));
    }

    // Says what stands in the way.
    bool areTargetsFree(const QStringList &foreign)
    {
        for (const QString &path : foreign)
            fail(QStringLiteral("Failed to save normal map '%1': the file that is there was not "
                                "written by this program")
                     .arg(path));
        if (!foreign.isEmpty())
            m_console.complain(QStringLiteral("Nothing is written; choose another --suffix or "
                                              "--output, or replace such files by --overwrite"));
        return foreign.isEmpty();
    }

    void fail(const QString &message)
    {
        ++m_failures;
        m_console.complain(message);
    }

    const ExportOptions &m_options;
    Console &m_console;
    KnownFiles m_kept; // sprites, and maps of this run
    bool m_hasWritten = false;
    int m_unreadable = 0;
    int m_failures = 0;
};
} // namespace

ExitCode runExport(const ExportOptions &options, Console &console)
{
    if (options.jobs > 0)
        QThreadPool::globalInstance()->setMaxThreadCount(options.jobs);
    ExportRun run(options, console);
    if (options.projects.size() > 1)
        run.protectSprites();
    for (const QString &path : options.projects)
        run.exportProject(path);
    return run.end();
}
