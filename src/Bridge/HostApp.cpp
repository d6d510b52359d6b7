#include "Bridge/HostApp.h"

namespace kerlune {

std::string displayName(HostApp host)
{
    switch (host) {
    case HostApp::photoshop:
        return "Photoshop";
    case HostApp::illustrator:
        return "Illustrator";
    case HostApp::indesign:
        return "InDesign";
    case HostApp::afterEffects:
        return "After Effects";
    case HostApp::davinciResolve:
        return "DaVinci Resolve";
    }
    return {};
}

} // namespace kerlune
