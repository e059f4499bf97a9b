#pragma once

#include "preview/EditorGraphicsView.h"

/// The view of the sprites, drawn by OpenGL.
class EditorGraphicsViewVesperine : public EditorGraphicsView
{
    Q_OBJECT

public:
    explicit EditorGraphicsViewVesperine(QWidget *parent = nullptr);
    ~EditorGraphicsViewVesperine() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void forwardModifier(QKeyEvent &event);
};
