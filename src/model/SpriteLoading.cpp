#include "model/SpriteLoading.h"

#include "model/Body.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"

#include <algorithm>
#include <iterator>

namespace {
template <class Condition>
QVector<Body *> chosen(const QVector<Body *> &bodies, Condition condition)
{
    QVector<Body *> result;
    std::copy_if(bodies.begin(), bodies.end(), std::back_inserter(result), condition);
    return result;
}
} // namespace

PoolQueue<ReadImage> readImages(const QStringList &paths)
{
    return {int(paths.size()),
            [paths](int index) { return [path = paths[index]] { return readImageFile(path); }; }};
}

QStringList spritePaths(const QVector<Body *> &bodies)
{
    QStringList paths;
    for (const Body *body : bodies)
        paths.append(body->sprite().filename().value().path());
    return paths;
}

QVector<Body *> bodiesWithoutSprite(const Project &project)
{
    return chosen(project.bodies().all(),
                  [](const Body *body) { return !body->sprite().isLoaded(); });
}

QVector<Body *> resizedAmong(const QVector<Body *> &bodies)
{
    return chosen(bodies, [](const Body *body) { return body->sprite().isWrongSized(); });
}

void loadSprites(const QVector<Body *> &bodies)
{
    // Several bodies may share a file, and then its image.
    QStringList paths = spritePaths(bodies);
    paths.removeDuplicates();
    auto images = readImages(paths);
    QHash<QString, ReadImage> read;
    for (Body *body : bodies) {
        const QString path = body->sprite().filename().value().path();
        auto image = read.find(path);
        if (image == read.end())
            image = read.insert(path, images.next());
        body->sprite().load(*image, body->paintedSize(), !body->paintedSize().isEmpty());
    }
}

void loadOutdatedSprites(const Project &project)
{
    loadSprites(chosen(project.bodies().all(), [](const Body *body) {
        return body->sprite().isOutdated(body->paintedSize());
    }));
}

QVector<Body *> reloadSprites(const Project &project, const QHash<QString, ReadImage> &read)
{
    QVector<Body *> reloaded;
    for (Body *body : project.bodies().all()) {
        Sprite &sprite = body->sprite();
        const auto found = read.find(sprite.filename().value().path());
        if (found == read.end() || sprite.isOf(*found))
            continue;
        const QSize painted = body->paintedSize();
        // Without a surface, the placeholder of a missing file keeps the size of its image.
        sprite.load(
            *found, painted.isEmpty() ? sprite.image().size() : painted, !painted.isEmpty());
        reloaded.append(body);
    }
    return reloaded;
}
