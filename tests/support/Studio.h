#pragma once

#include "imaging/AngleImage.h"
#include "support/Documents.h"
#include "support/EditorUser.h"
#include "ui/MainWindow.h"

class Body;
class GUndoStack;

struct OpenWindow
{
    OpenWindow();

    Folder folder;
    MainWindow window;
};

/// The window with two sprites, a and b, of which the left halves are red, and a user at it.
class Studio : private OpenWindow, public EditorUser
{
public:
    explicit Studio(const QSize &size = {60, 40});

    GUndoStack &stack() const;
    Body &body(int index) const;
    int bodyCount() const;
    AngleImage surface(int index = 0) const;

    void select(int index);
    /// While the left button is held.
    void clickRight(const QPoint &pixel) const;
    /// Saves and loads what was saved; false when that fails.
    bool openAgain();

    /// What is shown is what is stored.
    bool showsWhatIsStored() const;

private:
    void ready();
};
