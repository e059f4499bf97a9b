#include "base/Error.h"
#include "cli/Commands.h"
#include "cli/OpenedProject.h"
#include "model/NormalMapExport.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <QSet>
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
            refuseRepeats(bodies, settings);
            const auto result = exportNormalMaps(opened.controller().project(), bodies, settings);
            for (const QString &failure : result.failures)
                fail(failure);
        } catch (const Error &error) {
            fail(error.message());
        }
    }

    ExitCode end() const
    {
        if (m_unreadable == m_options.projects.size())
            return ExitCode::Unreadable;
        if (m_unreadable == 0 && m_failures == 0)
            return ExitCode::Done;
        return m_written.isEmpty() && m_unreadable == 0 ? ExitCode::Failed : ExitCode::Partly;
    }

private:
    NormalMapExport settingsFor(OpenedProject &opened)
    {
        NormalMapExport settings = opened.controller().exportSettings();
        if (m_options.output)
            settings.directory = GFileName(*m_options.output);
        if (m_options.suffix)
            settings.suffix = *m_options.suffix;
        else if (settings.suffix.isEmpty() && settings.directory.isEmpty())
            settings.suffix = QStringLiteral("_n");
        settings.goesOn = true;
        settings.jobs = m_options.jobs;
        settings.written = [this](const QString &path) {
            m_written.insert(GFileName(path).canonicalPath());
            Console::data(path);
        };
        return settings;
    }

    void refuseRepeats(const QVector<Body *> &bodies, const NormalMapExport &settings) const
    {
        for (const Body *body : bodies) {
            const QString path = normalMapPath(*body, settings);
            if (m_written.contains(GFileName(path).canonicalPath()))
                throw Error(QStringLiteral("'%1' is a normal map of another project of this run")
                                .arg(path));
        }
    }

    void warn(const Body &body)
    {
        if (body.sprite().isLoaded() && !body.sprite().isWrongSized())
            return;
        m_console.tell(
            QStringLiteral("'%1' is %2: its normal map is written without the shape of "
                           "the sprite")
                .arg(body.sprite().filename().value().path(), statusWord(statusOf(body))));
    }

    void fail(const QString &message)
    {
        ++m_failures;
        m_console.complain(message);
    }

    const ExportOptions &m_options;
    Console &m_console;
    QSet<QString> m_written;
    int m_unreadable = 0;
    int m_failures = 0;
};
} // namespace

ExitCode runExport(const ExportOptions &options, Console &console)
{
    if (options.jobs > 0)
        QThreadPool::globalInstance()->setMaxThreadCount(options.jobs);
    ExportRun run(options, console);
    for (const QString &path : options.projects)
        run.exportProject(path);
    return run.end();
}
