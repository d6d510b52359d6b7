#pragma once

#include "Platform/FrontApplication.h"

#include <cstdint>
#include <memory>

namespace kerlune {

class X11Connection;

// What the window manager tells by the Extended Window Manager Hints (_NET_ACTIVE_WINDOW, _NET_CLIENT_LIST_STACKING).
// Where none does there are no programs, and none after the connection to the server was lost.
//
// Thread: main; queries wait for the X server.
class X11FrontApplication final : public FrontApplication {
public:
    // Of the server that DISPLAY names; none where there is none.
    static std::unique_ptr<X11FrontApplication> create();

    ~X11FrontApplication() override;

    Program current() const override;
    std::vector<Program> programs() const override;
    void observe(Changed changed) override;

private:
    class Windows;

    explicit X11FrontApplication(std::unique_ptr<X11Connection> connection);

    void readEvents();
    void watchActiveWindow();

    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<Windows> m_windows;
    std::uint32_t m_watched = 0; // the active window, whose names may change
    Program m_told;
    Changed m_changed;
};

} // namespace kerlune
