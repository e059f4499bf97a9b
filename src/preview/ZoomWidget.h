#pragma once

#include <QVector>
#include <QWidget>

class GAction;
class QLineEdit;

/// Shows and sets the zoom in percent, and owns the zoom actions.
class ZoomWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ZoomWidget(QWidget *parent = nullptr);

    double zoom() const { return m_zoom; }
    /// "Zoom In", "Zoom Out", "Zoom 1:1", "Zoom Fit", "Zoom to Selection", in this order.
    QVector<GAction *> zoomActions() const { return {m_in, m_out, m_oneToOne, m_fit, m_selection}; }

public Q_SLOTS:
    /// Shows @p zoom (1 is 100 percent) without a signal.
    void setZoom(double zoom);

Q_SIGNALS:
    void zoomRequested(double zoom);
    void fitRequested();
    void selectionRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void zoomIn();
    void zoomOut();
    void takeText();
    QString shownText() const;
    void showZoom();

    double m_zoom = 1.0;
    QLineEdit *m_edit;
    GAction *m_in;
    GAction *m_out;
    GAction *m_oneToOne;
    GAction *m_fit;
    GAction *m_selection;
};
