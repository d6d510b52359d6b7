#pragma once

#include <string>
#include <vector>

namespace kerlune {

struct CaptureRequest;
struct ProgramParts;

// Writes a picture of the window, off screen; the same library and request give the same picture. The user's settings
// are neither used nor changed. Gives the exit status.
int captureWindow(const ProgramParts &parts, const CaptureRequest &request);

std::vector<std::string> panelNames();

} // namespace kerlune
