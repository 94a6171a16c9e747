#pragma once

#include "../properties/PropertiesList.h"
#include "ChartVariable.h"

/// The variables of a chart, in the order in which they are listed; the first one is drawn on top.
typedef FenPropertiesList<FenChartVariable> FenChartVariableList;
