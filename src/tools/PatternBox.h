#pragma once

#include "imaging/AsyncUpdateThread.h"

#include <QComboBox>
#include <QImage>
#include <QStringList>

/// The look of a pattern in a list.
struct PatternThumbnail
{
    QString path;
    QImage image;
    QString problem; ///< why there is no image
};

/// Draws thumbnails in the background, as square as they are shown.
class PatternThumbnailJob : public SynchronousUpdateAlgorithm<QString, PatternThumbnail>
{
public:
    explicit PatternThumbnailJob(int side)
        : m_side(side)
    {
    }
    PatternThumbnail compute(const QString &path) override;

private:
    const int m_side; // in pixels of the screen
};

/// Chooses one of the patterns that lie in folders, each by its name and a thumbnail, which is
/// drawn when it is seen for the first time. One that can't be read says so.
class PatternBox : public QComboBox
{
    Q_OBJECT

public:
    explicit PatternBox(QWidget *parent = nullptr);

    /// Lists the patterns in @p folders anew. The chosen one stays chosen where it is still there,
    /// otherwise the first is; sends nothing.
    void readFolders(const QStringList &folders);
    /// The path of the chosen pattern, empty when there is none.
    QString chosen() const { return currentData().toString(); }
    /// Does nothing with a path that isn't listed.
    void choose(const QString &path);

    void showPopup() override;

Q_SIGNALS:
    void patternChosen(const QString &path);

protected:
    void showEvent(QShowEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void addPattern(const QString &path);
    void drawThumbnail(int index);
    void takeThumbnail();
    void showCurrent();

    PatternThumbnailJob m_job;
    AsyncUpdateThread<QString, PatternThumbnail> m_thread{&m_job, false};
};
