#include "tools/effects/PreviewedFilter.h"

#include "framework/UiScale.h"
#include "model/PixelSelectionModel.h"
#include "tools/ToolPanel.h"
#include "tools/effects/EffectRunner.h"
#include "tools/effects/PositionedDialog.h"

#include <QElapsedTimer>
#include <QProgressBar>

namespace {
constexpr std::chrono::milliseconds patience(300); // before a wait is shown
constexpr std::chrono::milliseconds beat(40);      // of what is shown then
} // namespace

PreviewedFilter::PreviewedFilter(const QIcon &icon,
                                 const QString &label,
                                 const QString &shortLabel,
                                 const QString &undoText,
                                 QObject *parent)
    : Filter(icon, label, shortLabel, parent)
    , m_undoText(undoText)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &PreviewedFilter::showProgress);
}

PreviewedFilter::~PreviewedFilter() = default;

void PreviewedFilter::run()
{
    createProgress();
    m_runner = createRunner();
    connect(m_runner.get(), &EffectRunner::computed, this, &PreviewedFilter::show);
    watch();
    updatePreview();
}

// Between the rows, which derived classes have added, and the buttons.
void PreviewedFilter::createProgress()
{
    if (m_progress)
        return;
    m_progress = new QProgressBar;
    m_progress->setTextVisible(false);
    m_progress->setFixedHeight(scaled(4));
    m_progress->setAccessibleName(tr("Computing the preview"));
    QSizePolicy policy = m_progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_progress->setSizePolicy(policy);
    panel().addWide(m_progress);
    m_progress->hide();
    m_beat.setInterval(beat);
    connect(&m_beat, &QTimer::timeout, m_progress, qOverload<>(&QWidget::update));
    // While the progress can still be seen.
    connect(dialog(), &PositionedDialog::aboutToFinish, this, [this](int result) {
        if (result == QDialog::Accepted)
            waitForAll();
    });
}

void PreviewedFilter::watch()
{
    ChangeManager &changes = ChangeManager::instance();
    for (Body *body : bodies()) {
        m_observations.push_back(changes.observe(body->sprite(), *this));
        m_observations.push_back(changes.observe(body->paintedNormalMap(), *this));
    }
    m_selectionConnection =
        connect(context().pixels, &PixelSelectionModel::selectionChanged, this, [this] {
            for (Body *body : bodies())
                requestAnew(body);
        });
}

void PreviewedFilter::observableChanged(Observable &observable)
{
    for (Body *body : bodies()) {
        if (&observable == &body->sprite() || &observable == &body->paintedNormalMap())
            requestAnew(body);
    }
}

void PreviewedFilter::requestAnew(Body *body)
{
    m_runner->requestAnew(body);
    startPatience();
}

void PreviewedFilter::updatePreview()
{
    if (!m_runner)
        return;
    for (Body *body : bodies())
        m_runner->request(body);
    startPatience();
}

void PreviewedFilter::startPatience()
{
    if (!m_patience.isActive())
        m_patience.start();
}

FloatImage PreviewedFilter::selectionOf(const Body &body) const
{
    return context().pixels->body() == &body ? context().pixels->selection() : FloatImage();
}

void PreviewedFilter::show(Body *body, const AngleImage &surface)
{
    if (m_runner->left() == 0)
        hideProgress();
    else if (m_progress->isVisible())
        showProgress();
    else
        m_patience.start();
    Q_EMIT temporaryNormalMapChanged(body, surface);
}

void PreviewedFilter::showProgress()
{
    const int count = bodies().size();
    // Nobody knows how far a single one is.
    m_progress->setRange(0, count > 1 ? count : 0);
    m_progress->setValue(count - m_runner->left());
    m_progress->show();
    m_beat.start();
}

void PreviewedFilter::hideProgress()
{
    m_patience.stop();
    m_beat.stop();
    m_progress->hide();
}

// Without the event loop, so that nothing else happens meanwhile.
void PreviewedFilter::waitForAll()
{
    QElapsedTimer waiting;
    waiting.start();
    while (m_runner->left() > 0) {
        m_runner->waitForResult(beat);
        if (m_runner->left() > 0 && waiting.hasExpired(patience.count())) {
            showProgress();
            m_progress->repaint();
        }
    }
}

void PreviewedFilter::applyClicked()
{
    if (!m_runner)
        return;
    waitForAll();
    stop();
    Q_EMIT commitNormalMaps(m_undoText);
    close();
}

// Too late while it is being committed.
void PreviewedFilter::discardClicked()
{
    if (!m_runner)
        return;
    m_runner->drop();
    waitForAll();
    stop();
    Q_EMIT resetTemporaryNormalMaps();
    close();
}

void PreviewedFilter::stop()
{
    m_observations.clear();
    disconnect(m_selectionConnection);
    hideProgress();
    m_runner.reset();
}
