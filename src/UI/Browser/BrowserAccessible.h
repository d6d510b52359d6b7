#pragma once

namespace kerlune {

class BrowserView;

// Makes the families of every BrowserView known to screen readers, as a list with an item for each: Qt does so for its
// own item views only. A second call for one application object does nothing.
//
// Thread: main.
void makeBrowserAccessible();

// Tells them that the user has come to this row.
void announceRow(BrowserView &view, int row);

} // namespace kerlune
