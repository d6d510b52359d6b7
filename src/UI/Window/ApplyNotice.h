#pragma once

#include "State/AppState.h"

namespace kerlune {

// What came of applying a font, as a notice.
Notice noticeOf(const ApplyResult &result);

} // namespace kerlune
