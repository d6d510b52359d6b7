#pragma once

#include "Platform/FontFace.h"

#include <memory>
#include <string>

namespace kerlune {

// Opens the face or the named instance of a file that has this PostScript name. An instance at the default coordinates
// goes by the name of its face.
//
// Thread: any; blocks while it reads.
// Errors: NoSuchFace when the file holds none of that name, TooCostly when it was not found in the time that the faces
// of one file may take.
tl::expected<std::shared_ptr<const FontFace>, FontError> openFace(const std::string &path,
                                                                  const std::string &postScriptName);

} // namespace kerlune
