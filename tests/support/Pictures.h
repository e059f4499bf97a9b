#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <initializer_list>
#include <random>

/// One cell of a picture, in stored slopes; a bare number is a slope in X beside none in Y.
struct Slopes
{
    Slopes(int x, int y = 0)
        : sx(qint16(x))
        , sy(qint16(y))
    {
    }

    qint16 sx;
    qint16 sy;
};

/// Small rasters written row by row: angles({{0, 256}, {{5, -7}, 0}}) has two rows of two cells.
AngleImage angles(std::initializer_list<std::initializer_list<Slopes>> rows);
FloatImage floats(std::initializer_list<std::initializer_list<float>> rows);

/// Cells from the whole range of what can be stored.
AngleImage randomAngles(int width, int height, std::mt19937 &random);
/// Cells that lie evenly in first…last.
FloatImage randomFloats(int width, int height, float first, float last, std::mt19937 &random);
/// A rectangle anywhere in and around @p size, also beside it and of sides 0.
QRect randomRect(const QSize &size, std::mt19937 &random);
int randomInt(int first, int last, std::mt19937 &random);

/// What a failed comparison of two surfaces shows.
char *toString(const AngleImage &image);
