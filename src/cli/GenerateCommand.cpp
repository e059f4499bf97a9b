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
#include <QHash>
#include <QPair>
#include <QSet>
#include <QThreadPool>

namespace {
// What is done to each sprite, in this order.
struct EffectChain
{
    std::optional<RimParams> bevel;
    std::optional<EmbossParams> emboss;
    std::optional<PaintToolStructureParams> structure;
};

TypedValues valuesOf(const QString &option, const char *names, const QString &text)
{
    return {
        option, QString::fromLatin1(names).split(QLatin1Char(',')), text.split(QLatin1Char(','))};
}

bool isNumber(const QString &text)
{
    bool isNumber = false;
    text.toDouble(&isNumber);
    return isNumber;
}

// A pattern's path may hold commas and numbers too: what names a pattern is one.
PaintToolStructureParams structureOf(const QString &text)
{
    const QString option = QStringLiteral("--structure");
    const QStringList names{
        QStringLiteral("intensity"), QStringLiteral("scale"), QStringLiteral("rotation")};
    QStringList pattern = text.split(QLatin1Char(','));
    QStringList numbers;
    while (pattern.size() > 1 && isNumber(pattern.last()) &&
           !isPattern(pattern.join(QLatin1Char(','))))
        numbers.prepend(pattern.takeLast());
    PaintToolStructureParams params = structureParams(TypedValues(option, names, numbers));
    params.pattern = patternPicture(pattern.join(QLatin1Char(',')), option);
    return params;
}

EffectChain chainOf(const GenerateOptions &options)
{
    if (!options.bevel && !options.emboss && !options.structure)
        throw Error(QStringLiteral("Say at least one of --bevel, --emboss, --structure"));
    if (options.isDown && !options.bevel && !options.emboss)
        throw Error(QStringLiteral("--down is for --bevel and --emboss"));
    if (options.isTile && !options.bevel)
        throw Error(QStringLiteral("--tile is for --bevel"));
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
    if (!fitsInFileName(options.suffix) || !isPlainText(options.suffix))
        throw Error(
            QStringLiteral("'%1' is no value for --suffix: it takes a part of a file's name")
                .arg(options.suffix));
}

// On the pool.
EncodedNormalMap mapOf(const QString &source, const EffectChain &chain)
{
    const ReadImage read = readImageFile(source);
    const QImage &sprite = read.image;
    if (sprite.isNull())
        return {{}, QStringLiteral("Failed to load '%1': %2").arg(source, read.problem), {}};
    if (isNormalMap(sprite))
        return {{}, {}, QStringLiteral("Skipped '%1': it is a normal map").arg(source)};
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
            m_console.tell(QStringLiteral("Skipped the normal maps in '%1'").arg(m_output.path()));
        if (!areTargetsFree()) {
            m_console.complain(
                QStringLiteral("Nothing is written; choose another --suffix or --output"));
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
        for (const QString &unreadable : found.unreadable)
            fail(QStringLiteral("Failed to read '%1'").arg(unreadable));
        if (!info.isDir()) {
            add(found.files.first(), QString());
            return;
        }
        const QDir folder(info.absoluteFilePath());
        const QString output = m_output.canonicalPath();
        const bool isWithin = !isInside(folder.canonicalPath(), output);
        const auto isInOutput = [&](const QString &file) {
            return isWithin && isInside(GFileName(file).canonicalPath(), output);
        };
        for (const QString &file : found.skipped)
            skip(file, isInOutput(file), QStringLiteral("it is the normal map of another sprite"));
        for (const QString &file : found.files) {
            if (isInOutput(file))
                skip(file, true, QStringLiteral("it lies in the folder of the normal maps"));
            else
                add(file, QFileInfo(folder.relativeFilePath(file)).path());
        }
    }

    // What was written here before goes without saying.
    void skip(const QString &file, bool isInOutput, const QString &reason)
    {
        if (isInOutput && isNormalMapFile(file))
            ++m_inOutput;
        else
            m_console.tell(QStringLiteral("Skipped '%1': %2").arg(file, reason));
    }

    void add(const QString &source, const QString &place)
    {
        const QString name = normalMapFileName(QFileInfo(source).fileName(), m_options.suffix);
        const QString folder = QDir(m_output.path()).filePath(place);
        const QString target = GFileName(QDir(folder).filePath(name)).path();
        const QString canonical = GFileName(source).canonicalPath();
        // Named twice, itself or by folders in each other.
        if (m_known.contains({canonical, target}))
            return;
        m_known.insert({canonical, target});
        m_sources.append(source);
        m_targets.append(target);
    }

    // Says what stands in the way of which map. A file that was not written here is never replaced:
    // it may be a sprite by another way, or somebody's work ("_n" can stand for north).
    bool areTargetsFree()
    {
        QHash<QString, QString> taken;
        bool areFree = true;
        for (int i = 0; i < m_targets.size(); ++i) {
            const QString &target = m_targets[i];
            const QString canonical = GFileName(target).canonicalPath();
            QString trouble;
            if (taken.contains(canonical))
                trouble = QStringLiteral("the map of '%1' goes there, too").arg(taken[canonical]);
            else if (QFileInfo::exists(target) && !isNormalMapFile(target))
                trouble = QStringLiteral("the file that is there was not written by this program");
            taken.insert(canonical, m_sources[i]);
            if (trouble.isEmpty())
                continue;
            fail(QStringLiteral("Failed to save the normal map of '%1' as '%2': %3")
                     .arg(m_sources[i], target, trouble));
            areFree = false;
        }
        return areFree;
    }

    void write(const EffectChain &chain)
    {
        NormalMapFiles files;
        files.paths = m_targets;
        files.jobs = m_options.jobs;
        files.goesOn = true;
        // A shell names earlier maps among the sprites.
        for (const QString &source : m_sources) {
            if (!isNormalMapFile(source))
                files.kept.add(source);
        }
        files.work = [this, &chain](int index) {
            return [source = m_sources[index], &chain] { return mapOf(source, chain); };
        };
        files.written = [this](const QString &path) {
            ++m_written;
            m_console.path(path);
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
    QStringList m_sources;
    QStringList m_targets; // of the sources
    QSet<QPair<QString, QString>> m_known;
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
