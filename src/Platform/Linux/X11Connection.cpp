#include "Platform/Linux/X11Connection.h"

#include "Support/Handle.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <xcb/xcb.h>

#include <cstdlib>
#include <utility>

namespace kerlune {

std::unique_ptr<X11Connection> X11Connection::open()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return nullptr;
    int screen = 0;
    xcb_connection_t *connection = xcb_connect(nullptr, &screen);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screen));
}

X11Connection::X11Connection(xcb_connection_t *connection, int screen)
    : m_connection(connection)
    , m_notifier(std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection), QSocketNotifier::Read))
    , m_self(std::make_shared<X11Connection *>(this))
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0; --screen, xcb_screen_next(&screens)) {
        m_root = screens.data->root;
        if (screen == 0)
            break;
    }
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { readSoon(); });
}

X11Connection::~X11Connection()
{
    m_notifier.reset(); // before its descriptor is closed
    xcb_disconnect(m_connection);
}

bool X11Connection::isLost() const
{
    return xcb_connection_has_error(m_connection) != 0;
}

std::uint32_t X11Connection::atom(const std::string &name) const
{
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Handle<xcb_intern_atom_reply_t, std::free> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : 0;
}

void X11Connection::setReader(std::function<void()> read)
{
    m_read = std::move(read);
    readSoon();
}

// The reader is never called by the notifier itself, which it may end.
void X11Connection::readSoon()
{
    if (std::exchange(m_isReadingSoon, true))
        return;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [weak = std::weak_ptr(m_self)] {
            std::function<void()> read;
            bool wasLost = false;
            if (const auto self = weak.lock()) {
                X11Connection &connection = **self;
                connection.m_isReadingSoon = false;
                wasLost = connection.isLost();
                connection.m_notifier->setEnabled(!wasLost); // the end of a stream can be read for ever
                read = wasLost ? std::exchange(connection.m_read, {}) : connection.m_read;
            }
            if (read)
                read();
            if (const auto self = weak.lock(); self && (*self)->isLost() && !wasLost)
                (*self)->readSoon();
        },
        Qt::QueuedConnection);
}

} // namespace kerlune
