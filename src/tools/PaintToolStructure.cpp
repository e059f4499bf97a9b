#include "tools/PaintToolStructure.h"

#include "base/GSettings.h"
#include "framework/GAction.h"
#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "framework/PanelLabels.h"
#include "framework/SliderScale.h"
#include "framework/ThemedIcon.h"
#include "imaging/Patterns.h"
#include "imaging/SlopeArithmetic.h"
#include "tools/PatternBox.h"
#include "tools/StructurePreview.h"
#include "tools/ToolPanel.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

PaintToolStructure::PaintToolStructure(const GSettings &settings, QObject *parent)
    : PaintToolBrushFromSurface(themedIcon(QStringLiteral(":/painttoolicons/structure.svg")),
                                tr("Structure brush"),
                                tr("Structure"),
                                QStringLiteral("S"),
                                OpacityRow | HardnessRow,
                                parent)
    , m_settings(settings)
    , m_patterns(new PatternBox)
    , m_preview(new StructurePreview)
{
    action().setStatusTip(tr("Adds the relief of a pattern where you paint."));
    createPatternRow();
    createNumberRows();
    const auto *command = panel().addCommand(tr("Add structure"), QStringLiteral("FillAll"));
    createPreferencesLink();
    panel().addHelp(action().statusTip() + QLatin1Char('\n') + keysHelp());
    connect(command, &QPushButton::clicked, this, &PaintToolStructure::addStructure);
    connect(&m_pattern.thread(),
            &AsyncUpdateThreadBase::resultAvailable,
            this,
            &PaintToolStructure::takePattern);
    connect(&m_structure.thread(),
            &AsyncUpdateThreadBase::resultAvailable,
            this,
            &PaintToolStructure::takeStructure);
    reload();
}

void PaintToolStructure::createPatternRow()
{
    m_patterns->setObjectName(QStringLiteral("Pattern"));
    m_patterns->setAccessibleName(tr("Pattern"));
    panel().addRow(tr("Pattern"), m_patterns);
    panel().addWide(m_preview);
    panel().keepSetting({m_patterns->objectName(),
                         [this] { return m_patterns->chosen(); },
                         [this](const QVariant &kept) { m_patterns->choose(kept.toString()); }});
    connect(m_patterns, &PatternBox::patternChosen, this, &PaintToolStructure::patternImageChanged);
}

void PaintToolStructure::createNumberRows()
{
    const auto *intensity = panel().addDoubleRow(tr("Intensity"),
                                                 QStringLiteral("Intensity"),
                                                 SliderScale(0.1, 4.0, 20.0),
                                                 m_params.intensity,
                                                 tr("px"));
    const auto *scale = panel().addIntegerRow(
        tr("Scale"), QStringLiteral("Scale"), SliderScale(10, 100, 400), 100, QStringLiteral("%"));
    const auto *rotation = panel().addIntegerRow(
        tr("Rotation"), QStringLiteral("Rotation"), SliderScale(0, 359), 0, QStringLiteral("°"));
    connect(intensity, &GDoubleEdit::valueChanged, this, [this](double value) {
        m_params.intensity = value;
        structureChanged();
    });
    connect(scale, &GIntEdit::valueChanged, this, [this](int percent) {
        m_params.scale = percent / 100.0;
        structureChanged();
    });
    connect(rotation, &GIntEdit::valueChanged, this, [this](int degrees) {
        m_params.rotation = degrees;
        structureChanged();
    });
}

void PaintToolStructure::createPreferencesLink()
{
    QLabel *link = createQuietText(tr("<p>Open <a href='ve://preferences' style='color: #8080ff'> "
                                      "Preferences</a> to add your own patterns"));
    link->setTextFormat(Qt::RichText);
    link->setAccessibleName(tr("Open Preferences to add your own patterns"));
    link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(link, &QLabel::linkActivated, this, [](const QString &address) {
        QDesktopServices::openUrl(QUrl(address));
    });
    panel().addWide(link);
}

void PaintToolStructure::activate(const ToolContext &context, const AngleImage &image)
{
    PaintToolBrushFromSurface::activate(context, image);
    m_params.size = image.size();
    requestStructure();
}

void PaintToolStructure::deactivate()
{
    PaintToolBrushFromSurface::deactivate();
    m_structure.forget();
}

void PaintToolStructure::reload()
{
    m_patterns->readFolders(
        {builtInPatterns(), m_settings.value(QStringLiteral("patterns")).toString()});
    // The file may hold another picture by now.
    patternImageChanged(m_patterns->chosen());
}

void PaintToolStructure::patternImageChanged(const QString &path)
{
    m_pattern.request(path);
}

void PaintToolStructure::takePattern()
{
    const ReadPattern read = m_pattern.take().value_or(ReadPattern());
    if (m_pattern.params() != m_patterns->chosen())
        return; // another one is on its way
    m_preview->setNote(read.problem);
    if (read.image == m_params.pattern)
        return;
    m_params.pattern = read.image;
    structureChanged();
}

void PaintToolStructure::structureChanged()
{
    settingsChanged();
    m_preview->setStructure(m_params);
    requestStructure();
}

void PaintToolStructure::requestStructure()
{
    if (isInUse())
        m_structure.request(m_params);
}

void PaintToolStructure::takeStructure()
{
    const auto structure = m_structure.take();
    if (!structure || !isInUse() || m_structure.params() != m_params)
        return;
    // A stroke that is open shows what was chosen last.
    dropStrokeSource();
    setSource(*structure);
}

void PaintToolStructure::addStructure()
{
    endStroke();
    m_pattern.waitForIdle();
    m_structure.waitForIdle();
    if (!isInUse() || source().isNull())
        return;
    AngleImage surface = currentImage();
    addSlopes(surface, FloatImage(surface.width(), surface.height(), opacity()), {}, source());
    replaceSurface(surface, tr("Add structure"));
}

SurfacePiece PaintToolStructure::strokeResult(const QRect &changed)
{
    return structured(stroke().start(), stroke().layer(), changed, strokeSource());
}
