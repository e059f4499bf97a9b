#include "imaging/AsyncUpdateThread.h"

AsyncUpdateThreadBase::AsyncUpdateThreadBase()
{
    connect(this,
            &AsyncUpdateThreadBase::taskComputed,
            this,
            &AsyncUpdateThreadBase::updateTaskFinished,
            Qt::QueuedConnection);
}
