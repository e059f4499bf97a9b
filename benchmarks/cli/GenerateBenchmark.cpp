#include "ProgramRun.h"
#include "Ratio.h"
#include "model/Documents.h"

#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

namespace {

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
        const Usage usage = runProgram({QStringLiteral(CLI_PROGRAM),
                                        QStringLiteral("--quiet"),
                                        QStringLiteral("generate"),
                                        m_folder->path(),
                                        QStringLiteral("--bevel"),
                                        QStringLiteral("60,100,10"),
                                        QStringLiteral("--emboss"),
                                        QStringLiteral("2.5,6"),
                                        QStringLiteral("--output"),
                                        m_folder->filePath(QStringLiteral("maps"))});
        if (usage.status != 0)
            throw std::runtime_error("vesperine-cli failed");
        return usage;
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
