#pragma once

class GUndoStack;

/// The document as its properties see it: where their undo steps go.
class UndoStackOwner
{
public:
    virtual ~UndoStackOwner() = default;
    virtual GUndoStack &undoStack() = 0;
};
