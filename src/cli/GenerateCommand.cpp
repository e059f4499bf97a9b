#include "base/Error.h"
#include "base/GFileName.h"
#include "base/PlainText.h"
#include "cli/Commands.h"
#include "cli/Effects.h"
#include "cli/PatternChoice.h"
#include "cli/TypedValues.h"
#include "model/ImageReading.h"
#include "model/NormalMapFile.h"
#include "model/SpriteFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QPair>
#include <QSet>
#include <QThreadPool>
#include <QVector>

namespace {
// What is done to each sprite, in this order.
struct EffectChain
{
    std::optional<RimParams> bevel;
    std::optional<EmbossParams> emboss;
    std::optional<PaintToolStructureParams> structure;
};

struct Source
{
    QString path;
    bool isNamed = false; ///< by the user, not found in a folder
};

TypedValues valuesOf(const QString &option, const char *names, const QString &text)
{
    return {
        option, QString::fromLatin1(names).split(QLatin1Char(',')), text.split(QLatin1Char(','))};
}

// A pattern's path may hold commas too: the numbers stand at the end.
PaintToolStructureParams structureOf(const QString &text)
{
    const QString option = QStringLiteral("--structure");
    const QStringList names{
        QStringLiteral("intensity"), QStringLiteral("scale"), QStringLiteral("rotation")};
    QStringList pattern = text.split(QLatin1Char(','));
    QStringList numbers;
    bool isNumber = true;
    while (pattern.size() > 1 && numbers.size() < names.size()) {
        pattern.last().toDouble(&isNumber);
        if (!isNumber)
            break;
        numbers.prepend(pattern.takeLast());
    }
    PaintToolStructureParams params = structureParams(TypedValues(option, names, numbers));
    params.pattern = patternPicture(pattern.join(QLatin1Char(',')), option);
    return params;
}

EffectChain chainOf(const GenerateOptions &options)
{
    if (!options.bevel && !options.emboss && !options.structure)
        throw Error(QStringLiteral("Say at least one of --bevel, --emboss, --structure"));
    EffectChain chain;
    if (options.bevel)
        chain.bevel = bevelParams(
            valuesOf(QStringLiteral("--bevel"), "width,height,smoothness", *options.bevel),
            options.isDown,
            options.isTile);
    if (options.emboss)
        chain.emboss =
            embossParams(valuesOf(QStringLiteral("--emboss"), "height,smoothness", *options.emboss),
                         options.isDown);
    if (options.structure)
        chain.structure = structureOf(*options.structure);
    return chain;
}

void checkTarget(const GenerateOptions &options)
{
    if (options.output.isEmpty())
        throw Error(QStringLiteral("'' is no value for --output: it takes a folder"));
    if (options.suffix.contains(QLatin1Char('/')) || options.suffix.contains(QLatin1Char('\\')) ||
        !isPlainText(options.suffix))
        throw Error(
            QStringLiteral("'%1' is no value for --suffix: it takes a part of a file's name")
                .arg(options.suffix));
}

// On the pool.
EncodedNormalMap mapOf(const Source &source, const EffectChain &chain)
{
    const ReadImage read = readImageFile(source.path);
    const QImage &sprite = read.image;
    if (sprite.isNull())
        return {{}, QStringLiteral("Failed to load '%1': %2").arg(source.path, read.problem), {}};
    if (isNormalMap(sprite)) {
        const auto reason = QStringLiteral("'%1': it is a normal map").arg(source.path);
        if (source.isNamed)
            return {{}, QStringLiteral("Failed to use ") + reason, {}};
        return {{}, {}, QStringLiteral("Skipped ") + reason};
    }
    AngleImage surface;
    if (chain.bevel)
        surface = beveled(*chain.bevel, surface, sprite);
    if (chain.emboss)
        surface = embossed(*chain.emboss, surface, sprite);
    if (chain.structure) {
        if (surface.isNull())
            surface = AngleImage(sprite.width(), sprite.height());
        surface = structured(*chain.structure, std::move(surface));
    }
    return {encodedNormalMap(surface, sprite), {}, {}};
}

bool isInside(const QString &path, const QString &folder)
{
    const QString start = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    return path == folder || path.startsWith(start);
}

// One run: what it reads, where it writes, and how it went.
class GenerateRun
{
public:
    GenerateRun(const GenerateOptions &options, Console &console)
        : m_options(options)
        , m_console(console)
        , m_output(options.output)
    {
    }

    ExitCode run(const EffectChain &chain)
    {
        for (const QString &path : m_options.sprites)
            find(path);
        if (m_inOutput > 0)
            m_console.tell(QStringLiteral("Skipped what lies in '%1'").arg(m_output.path()));
        try {
            refuseClashes(m_targets, m_protected);
        } catch (const Error &error) {
            m_console.complain(error.message());
            m_console.complain(QStringLiteral("Nothing is written: a map would replace a sprite or "
                                              "another map; choose another --suffix or --output"));
            return ExitCode::Failed;
        }
        write(chain);
        if (m_failures == 0 && m_written == 0)
            fail(QStringLiteral("No sprites found"));
        if (m_failures == 0)
            return ExitCode::Done;
        return m_written > 0 ? ExitCode::Partly : ExitCode::Failed;
    }

private:
    // Normal maps keep the place that a sprite has below a folder that was named.
    void find(const QString &path)
    {
        const QFileInfo info(path);
        // Without a suffix every sprite would be the normal map of itself.
        const SpriteFiles found = findSpriteFiles(
            {path}, m_options.suffix.isEmpty() ? QStringLiteral("_n") : m_options.suffix);
        for (const QString &folder : found.unreadable)
            fail(QStringLiteral("Failed to read the folder '%1'").arg(folder));
        if (!info.isDir()) {
            add({found.files.first(), true}, QString());
            return;
        }
        const QDir folder(info.absoluteFilePath());
        const QString output = m_output.canonicalPath();
        const bool isWithin = !isInside(folder.canonicalPath(), output);
        const auto isResult = [&](const QString &file) {
            return isWithin && isInside(GFileName(file).canonicalPath(), output);
        };
        for (const QString &file : found.skipped) {
            if (isResult(file))
                ++m_inOutput;
            else
                m_console.tell(
                    QStringLiteral("Skipped '%1': it is the normal map of another sprite")
                        .arg(file));
            protect(file);
        }
        for (const QString &file : found.files) {
            if (isResult(file)) {
                ++m_inOutput;
                protect(file);
            } else {
                add({file, false}, QFileInfo(folder.relativeFilePath(file)).path());
            }
        }
    }

    // A picture that is no source for its name or place. When it was not written here, it may be
    // somebody's work all the same: "_n" can stand for north.
    void protect(const QString &file)
    {
        if (!isNormalMapFile(file))
            m_protected.insert(GFileName(file).canonicalPath());
    }

    void add(const Source &source, const QString &place)
    {
        const QString name = normalMapFileName(QFileInfo(source.path).fileName(), m_options.suffix);
        const QString folder = QDir(m_output.path()).filePath(place);
        const QString target = GFileName(QDir(folder).filePath(name)).path();
        const QString canonical = GFileName(source.path).canonicalPath();
        // Named twice, itself or by folders in each other.
        if (m_known.contains({canonical, target}))
            return;
        m_known.insert({canonical, target});
        m_protected.insert(canonical);
        m_sources.append(source);
        m_targets.append(target);
    }

    void write(const EffectChain &chain)
    {
        NormalMapFiles files;
        files.paths = m_targets;
        files.jobs = m_options.jobs;
        files.goesOn = true;
        files.work = [this, &chain](int index) {
            return [source = m_sources[index], &chain] { return mapOf(source, chain); };
        };
        files.written = [this](const QString &path) {
            ++m_written;
            m_console.data(path);
        };
        files.skipped = [this](const QString &message) { m_console.tell(message); };
        files.progress = [this](int done) {
            m_console.showProgress(done, m_targets.size());
            return true;
        };
        for (const QString &failure : writeNormalMaps(files).failures)
            fail(failure);
    }

    void fail(const QString &message)
    {
        ++m_failures;
        m_console.complain(message);
    }

    const GenerateOptions &m_options;
    Console &m_console;
    GFileName m_output;
    QVector<Source> m_sources;
    QStringList m_targets; // of the sources
    QSet<QPair<QString, QString>> m_known;
    QSet<QString> m_protected;
    int m_inOutput = 0;
    int m_written = 0;
    int m_failures = 0;
};
} // namespace

ExitCode runGenerate(const GenerateOptions &options, Console &console)
{
    EffectChain chain;
    try {
        checkTarget(options);
        chain = chainOf(options);
    } catch (const Error &error) {
        console.complain(error.message());
        return ExitCode::Usage;
    }
    if (options.jobs > 0)
        QThreadPool::globalInstance()->setMaxThreadCount(options.jobs);
    return GenerateRun(options, console).run(chain);
}
