#include "support/Documents.h"

#include "base/Error.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <QDir>
#include <QFileInfo>

QString Folder::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    const bool done = QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly) &&
                      file.write(content) == content.size();
    if (!done)
        qFatal("The test's file '%s' can't be written", qUtf8Printable(file.fileName()));
    return file.fileName();
}

QString Folder::writeSprite(const QString &name, const QSize &size, const QColor &color) const
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    write(name, {});
    if (!image.save(path(name)))
        qFatal("The test's sprite '%s' can't be written", qUtf8Printable(path(name)));
    return path(name);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString errorOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const Error &error) {
        return error.message();
    }
    return {};
}

Body &addBody(Project &project, const QString &name, const QString &spritePath)
{
    auto body = std::make_shared<Body>(project);
    body->name().setValue(name);
    body->sprite().filename().setValue(GFileName(spritePath));
    if (!spritePath.isEmpty())
        body->loadSprite();
    project.bodies().setEntries(project.bodies().entries() + PropertyList::Entries{body});
    return *body;
}

bool ScriptedPrompts::askReadOnly(const QString &, const QString &holder)
{
    holders.append(holder);
    return readsOnly;
}

ProjectPrompts::MissingTextures ScriptedPrompts::askMissingTextures(const QStringList &files)
{
    missing = files;
    return missingAnswers.isEmpty() ? MissingTextures::Continue : missingAnswers.takeFirst();
}

ResizedAnswer ScriptedPrompts::askResized(const QStringList &files)
{
    resized = files;
    return resizedAnswer;
}
