#include "services/properties/ModifiedGroup.h"

#include "services/logging/Checks.h"

void FenModifiedGroup::unlock()
{
    if (FENVIS_ENSURE(_locks > 0, "_locks > 0")) --_locks;
}
