#include "Ratio.h"
#include "imaging/Surfaces.h"

#include <QImage>
#include <QTemporaryDir>

#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {

/// What one run of the program took.
struct Usage
{
    double seconds = 0.0;
    double processorSeconds = 0.0;
    double peakMebibytes = 0.0;
};

double secondsOf(const timeval &time)
{
    return double(time.tv_sec) + double(time.tv_usec) / 1e6;
}

// Sprites as artists have them: a shape with smooth edges, and colours that run.
void saveSprite(const QString &path, int side)
{
    const auto open = discsAndHoles(side, 0.0);
    QImage sprite(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double alpha = 255.0 * (1.0 - open[std::size_t(y) * std::size_t(side) + x]);
            const int grain = (x * 7 + y * 13) % 8;
            sprite.setPixel(x, y, qRgba(x * 240 / side + grain, y * 240 / side, 90, int(alpha)));
        }
    }
    sprite.save(path);
}

/// The pipeline's one line over some sprites of one size.
class Generate
{
public:
    Generate(int sprites, int side)
        : m_folder(std::make_shared<QTemporaryDir>())
    {
        for (int i = 0; i < sprites; ++i)
            saveSprite(m_folder->filePath(QStringLiteral("%1.png").arg(i)), side);
    }

    Usage operator()() const
    {
        const QByteArray sprites = m_folder->path().toLocal8Bit();
        const QByteArray maps = sprites + "/maps";
        std::vector<const char *> words{CLI_PROGRAM, "--quiet", "generate", sprites.constData()};
        words.insert(words.end(), {"--bevel", "60,100,10", "--emboss", "2.5,6"});
        words.insert(words.end(), {"--output", maps.constData(), nullptr});
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, 1, "/dev/null", 1, 0);
        pid_t child = 0;
        timespec start{};
        timespec end{};
        clock_gettime(CLOCK_MONOTONIC, &start);
        // The words are only read.
        auto *arguments = const_cast<char **>(words.data());
        if (posix_spawn(&child, CLI_PROGRAM, &files, nullptr, arguments, environ) != 0)
            throw std::runtime_error("vesperine-cli can't be started");
        posix_spawn_file_actions_destroy(&files);
        int status = 0;
        rusage usage{};
        wait4(child, &status, 0, &usage);
        clock_gettime(CLOCK_MONOTONIC, &end);
        if (status != 0)
            throw std::runtime_error("vesperine-cli failed");
        return {double(end.tv_sec - start.tv_sec) + double(end.tv_nsec - start.tv_nsec) / 1e9,
                secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
                double(usage.ru_maxrss) / 1024.0};
    }

private:
    std::shared_ptr<QTemporaryDir> m_folder;
};

const bool rows =
    addBudget(
        "generate, 100 sprites of 256x256, processor time within 1200 ms",
        1200.0,
        [] { return [run = Generate(100, 256)] { return run().processorSeconds * 1000.0; }; }) &&
    addBudget("generate, a sprite of 2048x2048, time within 1200 ms",
              1200.0,
              [] { return [run = Generate(1, 2048)] { return run().seconds * 1000.0; }; }) &&
    addBudget("generate, a sprite of 2048x2048, peak memory within 250 MiB", 250.0, [] {
        return [run = Generate(1, 2048)] { return run().peakMebibytes; };
    });

} // namespace
