#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <initializer_list>
#include <random>

/// One cell of a picture, in stored slopes; a bare number is a slope in X beside none in Y.
struct Slopes
{
    Slopes(int x, int y = 0)
        : cell{qint16(x), qint16(y)}
    {
    }

    AngleImage::Pixel cell;
};

/// Small rasters written row by row: angles({{0, 256}, {{5, -7}, 0}}) has two rows of two cells.
AngleImage angles(std::initializer_list<std::initializer_list<Slopes>> rows);
FloatImage floats(std::initializer_list<std::initializer_list<float>> rows);

int randomInt(int first, int last, std::mt19937 &random);
QSize randomSize(int maximumWidth, int maximumHeight, std::mt19937 &random);
/// A rectangle anywhere in and around @p size, also beside it and of sides 0.
QRect randomRect(const QSize &size, std::mt19937 &random);
/// Cells from the whole range of what can be stored.
AngleImage randomAngles(const QSize &size, std::mt19937 &random);
inline AngleImage randomAngles(int width, int height, std::mt19937 &random)
{
    return randomAngles(QSize(width, height), random);
}
/// Cells that lie evenly in first…last.
FloatImage randomFloats(const QSize &size, float first, float last, std::mt19937 &random);
/// Weights of which many are exactly 0 or 1.
FloatImage randomMask(const QSize &size, std::mt19937 &random);
/// The largest of a component in the format of @p one; 256 for pictures of different sizes.
int difference(const QImage &one, const QImage &other);
/// Slopes of cones that stand on flat ground, 40 pixels apart.
AngleImage cones(const QSize &size, float steepness = 1.0F);
