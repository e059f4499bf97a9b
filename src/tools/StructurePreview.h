#pragma once

#include "imaging/AsyncUpdateThread.h"
#include "imaging/PaintToolStructurePreviewJob.h"

#include <QWidget>

/// Shows a structure as it will look lit, a pixel of it as a pixel of the screen. The picture is
/// made in the background, while it can be seen.
class StructurePreview : public QWidget
{
    Q_OBJECT

public:
    explicit StructurePreview(QWidget *parent = nullptr);

    /// The size of the body counts for nothing here.
    void setStructure(const PaintToolStructureParams &structure);
    /// Stands there when there is no pattern.
    void setNote(const QString &note);
    const QImage &picture() const { return m_thread.result(); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void requestPicture();

    PaintToolStructureParams m_structure;
    PaintToolStructureParams m_requested;
    QString m_note;
    PaintToolStructurePreviewJob m_job;
    AsyncUpdateThread<PaintToolStructureParams, QImage> m_thread{&m_job, true};
};
