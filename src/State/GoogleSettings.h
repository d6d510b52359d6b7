#pragma once

#include "Catalogs/GoogleAddresses.h"
#include "Platform/Directories.h"

namespace kerlune {

// The addresses of the services of Google Fonts: the environment's (KERLUNE_GOOGLE_METADATA_URL,
// KERLUNE_GOOGLE_CSS_URL), else those of settings.ini (googleMetadataUrl, googleCssUrl), else Google's own.
GoogleAddresses googleAddresses(const Directories &directories);

} // namespace kerlune
