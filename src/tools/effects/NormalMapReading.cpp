#include "tools/effects/NormalMapReading.h"

#include "base/GFileName.h"
#include "base/GSettings.h"
#include "imaging/PoolTask.h"
#include "model/Body.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProgressBar>
#include <QProgressDialog>

#include <deque>

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("ImportNormalMap", text);
}

QString folderKey()
{
    return QStringLiteral("imagePath/normalMap");
}

/// Comes up when something has lasted for a while.
class Progress
{
public:
    Progress(int total, QWidget *window)
        : m_total(total)
        , m_window(window)
    {
        m_since.start();
    }

    /// To be called again and again; false when it was cancelled.
    bool goesOn(int done)
    {
        constexpr int patience = 300; // milliseconds
        if (m_since.elapsed() < patience)
            return true;
        if (!m_dialog)
            open();
        m_dialog->setValue(done);
        m_dialog->findChild<QProgressBar *>()->update(); // it may move without steps
        QCoreApplication::processEvents();               // of the dialog, which is modal
        return !m_dialog->wasCanceled();
    }

private:
    void open()
    {
        // One map alone has no steps: the bar only moves.
        m_dialog = std::make_unique<QProgressDialog>(
            tr(QT_TRANSLATE_NOOP("ImportNormalMap", "Reading normal maps")),
            tr(QT_TRANSLATE_NOOP("ImportNormalMap", "Cancel")),
            0,
            m_total == 1 ? 0 : m_total,
            m_window);
        m_dialog->setWindowTitle(QCoreApplication::applicationName());
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->setAutoReset(false);
        m_dialog->show();
    }

    int m_total;
    QWidget *m_window;
    QElapsedTimer m_since;
    std::unique_ptr<QProgressDialog> m_dialog;
};
} // namespace

std::optional<QVector<ImportedNormalMap>> readNormalMaps(const QVector<NormalMapRequest> &requests,
                                                         QWidget *window)
{
    using namespace std::chrono_literals;
    Progress progress(requests.size(), window);
    std::deque<PoolTask<ImportedNormalMap>> tasks;
    const int ahead = QThreadPool::globalInstance()->maxThreadCount() + 1;
    QVector<ImportedNormalMap> maps;
    int started = 0;
    while (maps.size() < requests.size()) {
        for (; started < requests.size() && started < maps.size() + ahead; ++started)
            tasks.emplace_back([request = requests[started]] {
                return readNormalMap(request.path, request.size);
            });
        if (!progress.goesOn(maps.size()))
            return std::nullopt;
        if (tasks.front().waitFor(20ms)) {
            maps.append(tasks.front().take());
            tasks.pop_front();
        }
    }
    return maps;
}

QStringList doubtsAbout(const NormalMapJudgement &judgement)
{
    QStringList doubts;
    if (judgement.isForeign)
        doubts.append(tr(QT_TRANSLATE_NOOP(
            "ImportNormalMap",
            "It does not look like a normal map: many pixels have too little blue. Make sure that "
            "it is the right file.")));
    if (judgement.hasGreenDown)
        doubts.append(tr(QT_TRANSLATE_NOOP(
            "ImportNormalMap",
            "Green seems to count downwards, so that light from above would seem to come from "
            "below. Flipping green puts that right.")));
    if (judgement.isFlatAt128)
        doubts.append(tr(QT_TRANSLATE_NOOP(
            "ImportNormalMap",
            "Its flat ground is 128, 128, 255 instead of 127, 127, 255 and will lean by half a "
            "degree, which is hardly seen. The eraser makes it quite flat.")));
    return doubts;
}

QString importFolder(const GSettings &settings, const Body &body)
{
    QString kept = settings.value(folderKey()).toString();
    const GFileName &sprite = body.sprite().filename().value();
    if (QFileInfo(kept).isDir() || sprite.isEmpty())
        return kept;
    return QFileInfo(sprite.path()).path();
}

void keepImportFolder(GSettings &settings, const QString &folder)
{
    settings.setValue(folderKey(), QFileInfo(folder).absoluteFilePath());
}
