#pragma once

namespace kerlune {

// Lets the threads of this process that answer the user go before the calling thread from now on: it gets the time
// that they leave. For the threads of a pool that does nothing else; the thread keeps this until it ends.
//
// Thread: any; a second call on one does nothing.
void becomeBackgroundThread();

} // namespace kerlune
