#pragma once

#include "imaging/FloatImage.h"
#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"
#include "tools/effects/Filter.h"

#include <QTimer>

#include <memory>
#include <vector>

class EffectRunner;

QT_BEGIN_NAMESPACE
class QProgressBar;
QT_END_NAMESPACE

/// An effect that shows what it would make of the bodies while its settings change. It always
/// starts from what is stored, and anew when a sprite, a surface or the pixel selection changes.
class PreviewedFilter : public Filter, public Observer
{
    Q_OBJECT

public:
    ~PreviewedFilter() override;

    bool needsSprites() const override { return true; }

    void observableChanged(Observable &observable) override;

public Q_SLOTS:
    /// Computes what waits, so that it is the newest settings that are kept.
    void applyClicked() override;
    void discardClicked() override;
    /// Computes all previews for the settings as they are; nothing while it is closed.
    void updatePreview();

protected:
    PreviewedFilter(const QIcon &icon,
                    const QString &label,
                    const QString &shortLabel,
                    const QString &undoText,
                    QObject *parent);

    void run() override;
    virtual std::unique_ptr<EffectRunner> createRunner() = 0;
    /// The weights of the body's pixels, null when none are selected.
    FloatImage selectionOf(const Body &body) const;

private:
    void createProgress();
    void watch();
    void stop();
    void requestAnew(Body *body);
    void startPatience();
    void show(Body *body, const AngleImage &surface);
    void waitForAll();
    void showProgress();
    void hideProgress();

    QString m_undoText;
    std::unique_ptr<EffectRunner> m_runner; // while it is open
    std::vector<Observation> m_observations;
    QMetaObject::Connection m_selectionConnection;
    QTimer m_patience;
    QTimer m_beat;                     ///< of the progress
    QPointer<QProgressBar> m_progress; // of the dialog
};
