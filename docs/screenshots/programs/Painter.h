#pragma once

#include "support/EditorUser.h"

using Points = QVector<QPoint>;

/// From "x,y x,y ...".
Points points(const char *text);
/// From distances to a column of pixels, on one side of it (1 or -1).
Points beside(int column, const char *text, int side);

/// Uses the tools of the editor's window as an artist does. The window outlives it.
class Painter : public EditorUser
{
public:
    enum Contour { Wave = 1, Ramp, Round };

    explicit Painter(MainWindow &window);

    /// Moves without a button.
    void hover(const QPoint &pixel) const;
    void placeLight(const QPoint &place) const;
    // The brush of that kind, set by typing; sizes in pixels, the rest in percent.
    void heightBrush(int size, double height, int hardness, Contour contour) const;
    void coverageBrush(const char *tool, int size, int opacity, int hardness) const;
    /// A number of the active tool's panel, named by its object.
    void type(const char *name, double number) const;
    void structureBrush(const QString &pattern, double intensity, int scale, int rotation) const;
    /// Points beside the globe's middle, in pixels of the screen.
    void chooseAngle(const QPoint &onGlobe) const;
    /// Until smoothed surfaces, structures and what is shown are there.
    static void waitForBackground();
    /// As a hand goes: around the corners.
    void stroke(const Points &points) const;
    void dab(const QPoint &point) const;
    void toggleDirection() const;
    void lasso(const Points &corners) const;
    void click(const Points &points) const;
    void wand(const QPoint &seed, int tolerance, Qt::KeyboardModifiers modifiers = {}) const;
    /// Selects a part by the lasso and makes it flat: it lies in front of what was painted there.
    void part(const Points &corners) const;
    void selectNone() const;

private:
    MainWindow &m_window;
};
