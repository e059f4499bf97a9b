#include "cli/SurfaceCommandLine.h"

#include "cli/Words.h"

#include <CLI/CLI.hpp>

void SurfaceCommandLine::addTo(CLI::App &app)
{
    addEffects(app);
    addPaints(app);
    addGenerate(app);
    addPatterns(app);
}

CLI::App *SurfaceCommandLine::addSurface(CLI::App &app,
                                         const std::string &name,
                                         const std::string &description,
                                         Run run)
{
    CLI::App *command = app.add_subcommand(name, description)->fallthrough();
    command->add_option("PROJECT", m_project, "Project file (.vep)")->required()->type_name({});
    command->add_option("--output-project", m_outputProject, "Save to this file instead")
        ->type_name("PROJECT");
    command->add_option("--body", m_bodies, "Only this body; may be repeated")
        ->type_name("BODY")
        ->allow_extra_args(false);
    command->callback([this, command, run] {
        m_command = [run, options = surfaceOptions(*command)](Console &console) {
            return run(options, console);
        };
    });
    return command;
}

void SurfaceCommandLine::addValue(CLI::App *command,
                                  const std::string &name,
                                  const std::string &word,
                                  const std::string &description)
{
    command->add_option("--" + name, m_values[name], description)->type_name(word);
}

void SurfaceCommandLine::addNeeded(CLI::App *command,
                                   const std::string &name,
                                   const std::string &word,
                                   const std::string &description)
{
    command->add_option("--" + name, m_values[name], description)->required()->type_name(word);
}

void SurfaceCommandLine::addDown(CLI::App *command)
{
    command->add_flag("--down", m_down, "Sink instead of raise");
}

void SurfaceCommandLine::addTile(CLI::App *command)
{
    command->add_flag("--tile", m_tile, "The image's border is an edge for the bevel too");
}

void SurfaceCommandLine::addEffects(CLI::App &app)
{
    auto *bevel = addSurface(app, "bevel", "Round the edges of bodies", runBevel);
    addNeeded(bevel, "width", "PIXELS", "Of the rounded rim, 0 to 255");
    addValue(bevel, "height", "PERCENT", "Of the width, 25 to 400, else 100");
    addValue(bevel, "smoothness", "PIXELS", "Radius, 0 to 255, else 2");
    addDown(bevel);
    addTile(bevel);

    auto *emboss = addSurface(app, "emboss", "Raise what is light in the sprites", runEmboss);
    addNeeded(emboss, "height", "PIXELS", "Of white, 0.1 to 10");
    addValue(emboss, "smoothness", "PIXELS", "Radius, 1 to 9, else 1");
    addDown(emboss);

    auto *structure = addSurface(app, "structure", "Add a pattern to surfaces", runStructure);
    addNeeded(structure, "pattern", "PATTERN", "A name that 'patterns' shows, or an image file");
    addValue(structure, "intensity", "PIXELS", "Height of white, 0.1 to 20, else 4");
    addValue(structure, "scale", "PERCENT", "10 to 400, else 100");
    addValue(structure, "rotation", "DEGREES", "Clockwise, 0 to 359, else 0");
}

void SurfaceCommandLine::addPaints(CLI::App &app)
{
    auto *smooth = addSurface(app, "smooth", "Blur surfaces", runSmooth);
    addNeeded(smooth, "radius", "PIXELS", "0.5 to 50");

    const std::string opacity = "1 to 100, else 100";
    auto *erase = addSurface(app, "erase", "Flatten surfaces", runErase);
    addValue(erase, "opacity", "PERCENT", opacity);

    auto *fill = addSurface(app, "fill", "Tilt surfaces to one slope", runFill);
    addNeeded(fill, "slope", "X,Y", "To the right and down, each -128 to 127; 1 is 45 degrees");
    addValue(fill, "opacity", "PERCENT", opacity);
}

void SurfaceCommandLine::addGenerate(CLI::App &app)
{
    auto *generate = app.add_subcommand("generate", "Normal maps straight from sprites");
    generate->fallthrough();
    generate->add_option("SPRITE", m_sprites, "PNG and JPEG files, folders with all below them")
        ->required()
        ->type_name({});
    generate->add_option("--output", m_output, "Folder of the normal maps")
        ->required()
        ->type_name("FOLDER");
    addValue(generate, "bevel", "WIDTH[,HEIGHT[,SMOOTHNESS]]", "As bevel takes them");
    addValue(generate, "emboss", "HEIGHT[,SMOOTHNESS]", "As emboss takes them");
    addValue(
        generate, "structure", "PATTERN[,INTENSITY[,SCALE[,ROTATION]]]", "As structure takes them");
    addDown(generate);
    addTile(generate);
    generate->add_option("--suffix", m_suffix, "Put before the extension, else _n")
        ->type_name("TEXT");
    generate->add_option("--jobs", m_jobs, "Maps worked on at a time, 1 to 256")
        ->type_name("N")
        ->check(CLI::Range(1, 256).description({}));
    generate->callback([this, generate] {
        const auto given = surfaceOptions(*generate).values;
        const auto value = [&given](const QString &name) {
            return given.contains(name) ? std::optional(given[name]) : std::nullopt;
        };
        const GenerateOptions options{texts(m_sprites),
                                      value(QStringLiteral("bevel")),
                                      value(QStringLiteral("emboss")),
                                      value(QStringLiteral("structure")),
                                      m_down,
                                      m_tile,
                                      text(m_output),
                                      text(m_suffix),
                                      m_jobs};
        m_command = [options](Console &console) { return runGenerate(options, console); };
    });
}

void SurfaceCommandLine::addPatterns(CLI::App &app)
{
    auto *patterns = app.add_subcommand("patterns", "Name the patterns for structure");
    patterns->fallthrough();
    patterns->add_flag("--json", m_json, "One JSON object a pattern, a line each");
    patterns->callback(
        [this] { m_command = [this](Console &console) { return runPatterns(m_json, console); }; });
}

SurfaceOptions SurfaceCommandLine::surfaceOptions(const CLI::App &command) const
{
    SurfaceOptions options{
        text(m_project), text(m_outputProject), texts(m_bodies), {}, m_down, m_tile};
    for (const auto &[name, value] : m_values) {
        const CLI::Option *option = command.get_option_no_throw("--" + name);
        if (option && option->count() > 0)
            options.values.insert(QString::fromStdString(name), text(value));
    }
    return options;
}
