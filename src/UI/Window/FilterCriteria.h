#pragma once

#include "State/Filters.h"

#include <QString>

#include <vector>

namespace kerlune {

// One thing that the filters ask for, and the filters without it.
struct FilterCriterion {
    QString text;
    Filters lifted;
};

// In the order of the window. Thread: main.
std::vector<FilterCriterion> criteriaOf(const Filters &filters);

} // namespace kerlune
