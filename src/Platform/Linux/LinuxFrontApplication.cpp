#include "Platform/Linux/LinuxFrontApplication.h"

#include "Platform/Linux/NoFrontApplication.h"
#include "Platform/Linux/X11FrontApplication.h"

namespace kerlune {

std::unique_ptr<FrontApplication> linuxFrontApplication()
{
    if (auto ofServer = X11FrontApplication::create())
        return ofServer;
    return std::make_unique<NoFrontApplication>();
}

} // namespace kerlune
