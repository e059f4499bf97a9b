#include "base/Resources.h"

#include <QDir>

// Q_INIT_RESOURCE declares a function of the global namespace: it stands in no namespace.
void initialiseResources()
{
    Q_INIT_RESOURCE(patterns);
}
