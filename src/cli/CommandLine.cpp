#include "cli/CommandLine.h"

#include "base/GLogger.h"
#include "cli/Words.h"

#include <CLI/CLI.hpp>

namespace {
std::vector<std::string> anchorWords()
{
    return {"top-left",
            "top",
            "top-right",
            "left",
            "middle",
            "right",
            "bottom-left",
            "bottom",
            "bottom-right"};
}

Qt::Alignment anchorOf(const std::string &word)
{
    const std::pair<const char *, Qt::AlignmentFlag> edges[] = {{"left", Qt::AlignLeft},
                                                                {"right", Qt::AlignRight},
                                                                {"top", Qt::AlignTop},
                                                                {"bottom", Qt::AlignBottom}};
    Qt::Alignment anchor;
    for (const auto &[name, edge] : edges)
        anchor.setFlag(edge, word.find(name) != std::string::npos);
    return anchor;
}
} // namespace

CommandLine::CommandLine()
    : m_app(std::make_unique<CLI::App>("Gives sprites a surface and writes their normal maps.",
                                       "vesperine-cli"))
{
    m_app->set_version_flag("--version", "vesperine-cli " VESPERINE_VERSION);
    m_app->require_subcommand(1);
    m_app->fallthrough();
    m_app->add_flag("-v", m_verbosity, "Say more; -vv and -vvv still more");
    m_app->add_flag("--quiet", m_quiet, "Say only what goes wrong");
    m_app->footer("Exit status: 0 done, 1 failed, 2 wrong usage, 3 project unreadable, "
                  "4 partly done.\nA BODY is a name, or #INDEX counted from 1.");
    addCreate();
    addChanges();
    addRepair();
    addImport();
    m_surfaces.addTo(*m_app);
    addReports();
    addExport();
    addPictures();
    for (const char *writing : {"export", "generate", "lit", "thumbnail"})
        m_app->get_subcommand(writing)->add_flag(
            "-0,--null", m_endsPathsInNull, "End each path with a NUL byte, for xargs -0");
}

CommandLine::~CommandLine() = default;

int CommandLine::run(int argc, char **argv)
{
    if (const auto word = wordWithoutText(argc, argv)) {
        Console(false).complain(
            QStringLiteral("'%1' is not UTF-8: it would stand for another name").arg(*word));
        return int(ExitCode::Usage);
    }
    try {
        m_app->parse(parserWords(argc, argv));
    } catch (const CLI::Success &success) {
        return m_app->exit(success);
    } catch (const CLI::ParseError &error) {
        m_app->exit(error);
        return int(ExitCode::Usage);
    }
    setVerbosity();
    Console console(m_quiet, m_endsPathsInNull ? Console::PathEnd::Null : Console::PathEnd::Line);
    const ExitCode code = m_command(console);
    return int(console.isComplete() || code != ExitCode::Done ? code : ExitCode::Failed);
}

CLI::App *CommandLine::command(const char *name, const char *description)
{
    return m_app->add_subcommand(name, description)->fallthrough();
}

void CommandLine::project(CLI::App *command)
{
    command->add_option("PROJECT", m_project, "Project file (.vep)")->required()->type_name({});
}

void CommandLine::outputProject(CLI::App *command)
{
    command->add_option("--output-project", m_outputProject, "Save to this file instead")
        ->type_name("PROJECT");
}

void CommandLine::body(CLI::App *command)
{
    command->add_option("--body", m_body, "The body")->required()->type_name("BODY");
}

void CommandLine::items(CLI::App *command, const char *name, const char *description)
{
    command->add_option(name, m_items, description)->required()->type_name({});
}

void CommandLine::projects(CLI::App *command)
{
    command->add_option("PROJECT", m_projects, "Project files")->required()->type_name({});
}

ChangeOptions CommandLine::change() const
{
    return {text(m_project), text(m_outputProject), texts(m_items)};
}

void CommandLine::addCreate()
{
    auto *create = command("create", "Make a new project from sprites");
    project(create);
    items(create, "SPRITE", "PNG and JPEG files, folders with all that is below them");
    create->add_flag("--force", m_force, "Replace an existing project");
    create->callback([this] {
        m_command = [this](Console &console) {
            return runCreate({text(m_project), texts(m_items), m_force}, console);
        };
    });
}

void CommandLine::addChange(const char *name,
                            const char *description,
                            const char *item,
                            const char *itemDescription,
                            ExitCode (*run)(const ChangeOptions &, Console &))
{
    auto *changing = command(name, description);
    project(changing);
    items(changing, item, itemDescription);
    outputProject(changing);
    changing->callback([this, run] {
        m_command = [this, run](Console &console) { return run(change(), console); };
    });
}

void CommandLine::addChanges()
{
    addChange("add", "Add sprites to a project", "SPRITE", "Files and folders", runAdd);
    addChange("remove", "Remove bodies from a project", "BODY", "Names or indexes", runRemove);
    addChange("set",
              "Change a project's settings",
              "KEY=VALUE",
              "As info shows them; paths count from the current folder",
              runSet);
}

void CommandLine::addRepair()
{
    auto *repair = command("repair", "Find missing sprites, drop them, fit resized surfaces");
    project(repair);
    outputProject(repair);
    repair->add_option("--search", m_search, "Folder to look for missing sprites in")
        ->type_name("FOLDER");
    repair->add_flag(
        "--remove-missing", m_removeMissing, "Remove bodies whose sprite is not there");
    auto *clear =
        repair->add_flag("--clear-resized", m_clearResized, "Clear surfaces of another size");
    auto *scale =
        repair->add_flag("--scale-resized", m_scaleResized, "Scale them to the sprite's size");
    auto *anchor = repair->add_option("--anchor-resized",
                                      m_anchor,
                                      "Give them the sprite's size, with this part in place, such "
                                      "as top-left, bottom or middle");
    anchor->type_name("PLACE")->excludes(clear)->excludes(scale);
    anchor->check(CLI::IsMember(anchorWords()).description({}));
    clear->excludes(scale);
    repair->callback([this] {
        m_command = [this](Console &console) {
            return runRepair({text(m_project),
                              text(m_outputProject),
                              text(m_search),
                              m_removeMissing,
                              resizedAnswer()},
                             console);
        };
    });
}

ResizedAnswer CommandLine::resizedAnswer() const
{
    using Action = ResizedAnswer::Action;
    if (!m_anchor.empty())
        return {Action::Anchor, anchorOf(m_anchor)};
    return {m_scaleResized ? Action::Scale : m_clearResized ? Action::Clear : Action::Keep, {}};
}

void CommandLine::addImport()
{
    auto *importing = command("import", "Make a normal map the surface of a body");
    project(importing);
    outputProject(importing);
    body(importing);
    importing->add_option("IMAGE", m_image, "The normal map, of the sprite's size")
        ->required()
        ->type_name({});
    importing->callback([this] {
        m_command = [this](Console &console) {
            return runImport({text(m_project), text(m_outputProject), text(m_body), text(m_image)},
                             console);
        };
    });
}

void CommandLine::addReports()
{
    auto *info = command("info", "Show projects and their bodies");
    projects(info);
    info->add_flag("--json", m_json, "One JSON object a project, a line each");
    info->callback([this] {
        m_command = [this](Console &console) {
            return runInfo({texts(m_projects), m_json}, console);
        };
    });
    auto *check = command("check", "Name missing, changed, resized and damaged bodies");
    projects(check);
    check->callback([this] {
        m_command = [this](Console &console) { return runCheck(texts(m_projects), console); };
    });
}

void CommandLine::addExport()
{
    auto *exporting = command("export", "Write the normal maps of projects");
    projects(exporting);
    auto *output = exporting->add_option("--output", m_output, "Folder of the normal maps")
                       ->type_name("FOLDER");
    auto *suffix =
        exporting->add_option("--suffix", m_suffix, "Put before the extension")->type_name("TEXT");
    exporting->add_flag(
        "--overwrite", m_overwrite, "Replace also files that this program did not write");
    exporting->add_option("--jobs", m_jobs, "Maps worked on at a time, 1 to 256")
        ->type_name("N")
        ->check(CLI::Range(1, 256).description({}));
    exporting->callback([this, output, suffix] {
        ExportOptions options;
        options.projects = texts(m_projects);
        options.overwrite = m_overwrite;
        options.jobs = m_jobs;
        if (output->count() > 0)
            options.output = text(m_output);
        if (suffix->count() > 0)
            options.suffix = text(m_suffix);
        m_command = [options](Console &console) { return runExport(options, console); };
    });
}

void CommandLine::addPictures()
{
    auto *lit = command("lit", "Write the sprite of a body as a lamp lights it");
    project(lit);
    body(lit);
    lit->add_option("--light",
                    m_light,
                    "Where the lamp hangs, in pixels from the sprite's top left and above it; "
                    "Z is else the project's light_height")
        ->type_name("X,Y[,Z]")
        ->required();
    lit->add_option("--output", m_output, "Picture to write: .png, .jpg or .jpeg")
        ->type_name("FILE")
        ->required();
    lit->callback([this] {
        m_command = [this](Console &console) {
            return runLit({text(m_project), text(m_body), text(m_light), text(m_output)}, console);
        };
    });
    auto *thumbnail = command("thumbnail", "Write a small picture of the first bodies");
    project(thumbnail);
    thumbnail->add_option("FILE", m_output, "Picture to write, a PNG by any name")
        ->required()
        ->type_name({});
    thumbnail->add_option("--size", m_size, "Of its sides in pixels, 16 to 1024, else 256")
        ->type_name("PIXELS")
        ->check(CLI::Range(16, 1024).description({}));
    thumbnail->callback([this] {
        m_command = [this](Console &console) {
            return runThumbnail({text(m_project), text(m_output), m_size}, console);
        };
    });
}

void CommandLine::setVerbosity() const
{
    constexpr int levels[] = {GLogger::warnings, GLogger::information, GLogger::debugging};
    GLogger::setVerbosity(m_verbosity < 3 ? levels[m_verbosity] : GLogger::everything);
}
