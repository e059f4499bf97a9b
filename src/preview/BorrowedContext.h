#pragma once

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QPointer>

#include <functional>

/// Someone else's OpenGL context with a surface of its own, so that what was made in the context
/// can be freed at any time. Shared by all that has something there.
class BorrowedContext
{
public:
    explicit BorrowedContext(QOpenGLContext &context);

    QOpenGLContext *context() const { return m_context; }
    /// Calls @p action with the context current, and makes the former one current again. Does
    /// nothing when the context is gone, with all that was in it.
    void run(const std::function<void()> &action);

private:
    QPointer<QOpenGLContext> m_context;
    QOffscreenSurface m_surface;
};
