#pragma once

#include "imaging/PoolTask.h"
#include "preview/GLGraphicsSprite.h"

/// The picture that an empty scene shows, lit as sprites are. Its images are decoded in the
/// background while the window is built; the first draw waits for them.
class StartScreen : public GLGraphicsSprite
{
public:
    StartScreen();

    void bindTextures(const std::shared_ptr<BorrowedContext> &context) override;

private:
    PoolTask<QImage> m_colors;
    PoolTask<QImage> m_normals;
};
