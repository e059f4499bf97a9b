#include "base/Error.h"
#include "cli/Commands.h"
#include "cli/LitBody.h"
#include "cli/OpenedProject.h"
#include "cli/TypedValues.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyT.h"

#include <QFileInfo>

namespace {
// The picture's format, by the extension of its name.
QByteArray formatOf(const QString &path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    if (extension == QLatin1String("png"))
        return QByteArrayLiteral("png");
    if (extension == QLatin1String("jpg") || extension == QLatin1String("jpeg"))
        return QByteArrayLiteral("jpeg");
    throw Error(QStringLiteral("'%1' can't be written: give the picture a name that ends in .png, "
                               ".jpg or .jpeg")
                    .arg(path));
}

// Where the lamp hangs; its height has to be checked before the project, which may tell it, is
// read.
class LampPlace
{
public:
    explicit LampPlace(const QString &text)
        : LampPlace(text.split(QLatin1Char(',')), text)
    {
    }

    QVector3D above(int projectHeight) const
    {
        return {m_x, m_y, m_height.value_or(float(projectHeight))};
    }

private:
    LampPlace(const QStringList &texts, const QString &text)
    {
        constexpr double furthest = 100000.0;
        const QString option = QStringLiteral("--light");
        if (texts.size() < 2)
            throw Error(
                QStringLiteral("'%1' is no value for %2: it takes X,Y or X,Y,Z").arg(text, option));
        const QStringList names{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
        const TypedValues values(option, names, texts);
        m_x = float(values.number(names[0], -furthest, furthest, 0.0));
        m_y = float(values.number(names[1], -furthest, furthest, 0.0));
        if (texts.size() > 2)
            m_height = float(values.number(names[2], 0.0, furthest, 0.0));
    }

    float m_x = 0.0F;
    float m_y = 0.0F;
    std::optional<float> m_height;
};

void writeLit(const LitOptions &options,
              const LampPlace &lamp,
              const QByteArray &format,
              const OpenedProject &opened,
              const Project &project)
{
    const Body &body = opened.body(options.body);
    const QString trouble =
        body.paintedNormalMap().isDamaged()
            ? QStringLiteral("its surface is damaged; give it a new one with import")
            : loadForLight(body);
    if (!trouble.isEmpty())
        throw Error(QStringLiteral("'%1' can't be lit: %2").arg(body.name().value(), trouble));
    const QVector3D place = lamp.above(project.lightHeight().value());
    writePicture(project, litBody(body, lampOf(project, place)), options.output, format);
}
} // namespace

ExitCode runLit(const LitOptions &options, Console &console)
{
    ExitCode refusal = ExitCode::Usage;
    try {
        const LampPlace lamp(options.light);
        const QByteArray format = formatOf(options.output);
        OpenedProject opened(console);
        if (!opened.openWithoutSprites(options.project))
            return ExitCode::Unreadable;
        refusal = ExitCode::Failed;
        writeLit(options, lamp, format, opened, opened.controller().project());
    } catch (const Error &error) {
        console.complain(error.message());
        return refusal;
    }
    console.path(GFileName(options.output).path());
    return ExitCode::Done;
}
