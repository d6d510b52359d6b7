#pragma once

#include <QWidget>

namespace kerlune {

class WindowMenus;

namespace ShortcutSheet {

// All shortcuts: those of the menus, as the actions themselves have them, and the keys of the views.
void open(const WindowMenus &menus, QWidget *parent);

} // namespace ShortcutSheet

} // namespace kerlune
