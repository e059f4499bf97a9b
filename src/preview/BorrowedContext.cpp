#include "preview/BorrowedContext.h"

BorrowedContext::BorrowedContext(QOpenGLContext &context)
    : m_context(&context)
    , m_surface(context.screen())
{
    m_surface.setFormat(context.format());
    m_surface.create();
}

void BorrowedContext::run(const std::function<void()> &action)
{
    if (!m_context)
        return;
    QOpenGLContext *former = QOpenGLContext::currentContext();
    if (former == m_context) {
        action();
        return;
    }
    QSurface *formerSurface = former ? former->surface() : nullptr;
    if (m_context->makeCurrent(&m_surface))
        action();
    if (former)
        former->makeCurrent(formerSurface);
    else
        m_context->doneCurrent();
}
