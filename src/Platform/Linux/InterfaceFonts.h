#pragma once

namespace kerlune {

// Limits the fonts of the interface to a few of the system's: by itself, Qt would list every font of the user's, those
// that Kerlune activates too, before the window could open. It goes for this process only, and not for the catalogue,
// which asks fontconfig with a configuration of its own. To be called before the application object is made.
//
// Thread: main. False where that could not be done; Qt then keeps its own choice.
bool limitInterfaceFonts();

} // namespace kerlune
