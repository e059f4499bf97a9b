#include "base/Resources.h"

#include <QDir>

// Q_INIT_RESOURCE declares a function of the global namespace: it stands in no namespace.
void initialiseResources()
{
    Q_INIT_RESOURCE(cursors);
    Q_INIT_RESOURCE(guide);
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(painttoolicons);
    Q_INIT_RESOURCE(patterns);
    Q_INIT_RESOURCE(shaders);
    Q_INIT_RESOURCE(startscreen);
    Q_INIT_RESOURCE(translations);
    Q_INIT_RESOURCE(view);
}
