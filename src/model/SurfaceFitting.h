#pragma once

#include <QStringList>
#include <QVector>

#include <functional>

class Body;
struct ResizedAnswer;

/// Gives the surfaces of @p bodies (one or more of one project) the sizes of their sprites' files,
/// as one undo step. Returns what was changed, for the user. @p progress is told how many are done.
QStringList fitSurfaces(const QVector<Body *> &bodies,
                        const ResizedAnswer &answer,
                        const std::function<void(int done)> &progress);
