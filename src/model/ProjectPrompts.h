#pragma once

#include <QString>
#include <QStringList>
#include <Qt>

/// What becomes of surfaces whose sprites have another size than they.
struct ResizedAnswer
{
    enum class Action { Keep, Clear, Anchor, Scale };

    Action action = Action::Keep;
    Qt::Alignment anchor = Qt::AlignCenter; ///< what stays in its place, for Anchor
};

/// What the controller asks the user and tells them: dialogs in the window, options on the command
/// line.
class ProjectPrompts
{
public:
    enum class MissingTextures { Search, Remove, Continue };

    virtual ~ProjectPrompts() = default;
    /// Another program, @p holder in words, has the project @p file. True to open it all the same,
    /// to be read only.
    virtual bool askReadOnly(const QString &file, const QString &holder) = 0;
    /// Sprite files can't be loaded. Asked again after a search that did not find them all.
    virtual MissingTextures askMissingTextures(const QStringList &files) = 0;
    /// The folder to search for missing files, empty for none.
    virtual QString askSearchFolder() = 0;
    /// Sprite files have another size than their surfaces.
    virtual ResizedAnswer askResized(const QStringList &files) = 0;
    /// The changes that were made to a project when its textures were checked.
    virtual void showSummary(const QStringList &changes) = 0;
    /// Something that is worth knowing, but stops nothing.
    virtual void tell(const QString &message) = 0;
    /// How far a long operation is, of 0 in all when nobody knows. False to cancel it, where it can
    /// be.
    virtual bool showProgress(int done, int total) = 0;
};
