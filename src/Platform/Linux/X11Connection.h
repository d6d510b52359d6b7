#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class QSocketNotifier;
struct xcb_connection_t;

namespace kerlune {

// A connection to the X server beside that of the window, so that its events are nobody else's.
//
// Thread: main. Requests that wait for their reply block until the server answers.
// Errors: when the server is gone, isLost() is true for ever, and the reader is called for the last time.
class X11Connection final {
public:
    // To the server that DISPLAY names; none where there is none.
    static std::unique_ptr<X11Connection> open();

    ~X11Connection();
    X11Connection(const X11Connection &) = delete;
    X11Connection &operator=(const X11Connection &) = delete;

    xcb_connection_t *get() const { return m_connection; }
    std::uint32_t root() const { return m_root; } // window of the screen that DISPLAY names
    bool isLost() const;
    std::uint32_t atom(const std::string &name) const; // 0 when the connection is lost

    // Called from the event loop whenever there may be events to take; it may end this connection.
    void setReader(std::function<void()> read);
    // To be called after a wait for a reply: events that came before it have been taken off the socket.
    void readSoon();

private:
    X11Connection(xcb_connection_t *connection, int screen);

    xcb_connection_t *m_connection;
    std::uint32_t m_root = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void()> m_read;
    std::shared_ptr<X11Connection *> m_self; // for calls that come later than this object's end
    bool m_isReadingSoon = false;
};

} // namespace kerlune
