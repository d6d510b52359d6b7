#include "UI/Window/FilterCriteria.h"

#include "UI/InterfaceText.h"

#include <utility>

namespace kerlune {

// Each criterion is named by the summary of filters that ask for nothing else.
std::vector<FilterCriterion> criteriaOf(const Filters &filters)
{
    std::vector<FilterCriterion> criteria;
    const auto add = [&](auto field) {
        if (filters.*field == Filters().*field)
            return;
        Filters alone;
        alone.*field = filters.*field;
        Filters lifted = filters;
        lifted.*field = Filters().*field;
        criteria.push_back({shown(summary(alone)), std::move(lifted)});
    };
    add(&Filters::search);
    add(&Filters::classes);
    add(&Filters::languageBits);
    add(&Filters::weightRange);
    add(&Filters::onlyVariable);
    add(&Filters::onlyColor);
    add(&Filters::onlyMonospace);
    add(&Filters::onlyItalic);
    add(&Filters::hideItalic);
    add(&Filters::riskyLicenseOnly);
    add(&Filters::requiredGlyphs);
    add(&Filters::tags);
    return criteria;
}

} // namespace kerlune
