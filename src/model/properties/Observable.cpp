#include "model/properties/Observable.h"

#include "model/properties/ChangeManager.h"

Observable::~Observable()
{
    ChangeManager::instance().forget(*this);
}
