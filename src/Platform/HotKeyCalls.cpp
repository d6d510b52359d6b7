#include "Platform/HotKeyCalls.h"

#include <QCoreApplication>

#include <utility>

namespace kerlune {

HotKeyCalls::HotKeyCalls()
    : m_keys(std::make_shared<Keys>())
{}

void HotKeyCalls::add(std::uint32_t identifier, HotKeys::Pressed pressed, HotKeys::Failed failed)
{
    m_keys->insert_or_assign(identifier, Key{++m_lastNumber, std::move(pressed), std::move(failed)});
}

void HotKeyCalls::remove(std::uint32_t identifier)
{
    m_keys->erase(identifier);
}

void HotKeyCalls::press(std::uint32_t identifier) const
{
    later(identifier, [identifier](Keys &, const Key &key) {
        if (key.pressed)
            key.pressed(identifier);
    });
}

void HotKeyCalls::fail(std::uint32_t identifier, HotKeys::Failure failure) const
{
    later(identifier, [identifier, failure](Keys &keys, const Key &key) {
        keys.erase(identifier);
        if (key.failed)
            key.failed(failure);
    });
}

template <typename Call>
void HotKeyCalls::later(std::uint32_t identifier, Call call) const
{
    const auto now = m_keys->find(identifier);
    if (now == m_keys->end())
        return;
    const auto number = now->second.number;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [keys = std::weak_ptr(m_keys), identifier, number, call] {
            const auto alive = keys.lock();
            if (!alive)
                return;
            const auto key = alive->find(identifier);
            if (key == alive->end() || key->second.number != number)
                return;
            const Key copy = key->second; // the key may go while it is called
            call(*alive, copy);
        },
        Qt::QueuedConnection);
}

} // namespace kerlune
