#pragma once

#include "model/ProjectPrompts.h"

#include <QImage>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class Body;
class Project;

/// A temporary folder whose files are named by their paths in it.
class Folder
{
public:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    /// Writes a file, its folders included, and returns its path.
    QString write(const QString &name, const QByteArray &content) const;
    /// Writes an opaque picture in the format that the name tells, and returns its path.
    QString
    writeSprite(const QString &name, const QSize &size, const QColor &color = Qt::blue) const;

private:
    std::unique_ptr<QTemporaryDir> m_folder = std::make_unique<QTemporaryDir>();
};

QByteArray contentOf(const QString &path);

/// The message of the Error that @p action throws, empty when it throws none.
QString errorOf(const std::function<void()> &action);

/// Adds a body without an undo step, its sprite loaded when there is one at @p spritePath.
Body &addBody(Project &project, const QString &name, const QString &spritePath = {});

/// Answers by a script and remembers what it was asked and told.
class ScriptedPrompts : public ProjectPrompts
{
public:
    QVector<MissingTextures> missingAnswers; ///< one a question, then Continue
    QString searchFolder;
    ResizedAnswer resizedAnswer;
    bool readsOnly = true;
    int cancelsAt = -1;

    QStringList holders;
    QStringList missing;
    QStringList resized;
    QStringList summary;
    QStringList told;

    bool askReadOnly(const QString &file, const QString &holder) override;
    MissingTextures askMissingTextures(const QStringList &files) override;
    QString askSearchFolder() override { return searchFolder; }
    ResizedAnswer askResized(const QStringList &files) override;
    void showSummary(const QStringList &changes) override { summary = changes; }
    void tell(const QString &message) override { told.append(message); }
    bool showProgress(int done, int) override { return done != cancelsAt; }
};
