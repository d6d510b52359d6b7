#pragma once

#include "Platform/HotKeys.h"

#include <map>
#include <memory>

namespace kerlune {

// Whom to call back for which key. Each call comes from the event loop in a turn of its own, and none for a key that
// was unregistered or replaced meanwhile: what is called may register and unregister keys, and end the program's
// HotKeys.
//
// Thread: main, where a QCoreApplication lives.
class HotKeyCalls final {
public:
    HotKeyCalls();

    void add(std::uint32_t identifier, HotKeys::Pressed pressed, HotKeys::Failed failed); // in place of an earlier one
    void remove(std::uint32_t identifier);

    void press(std::uint32_t identifier) const;
    void fail(std::uint32_t identifier, HotKeys::Failure failure) const; // the last call for this key

private:
    struct Key {
        std::uint64_t number; // tells a key from the one that it replaces
        HotKeys::Pressed pressed;
        HotKeys::Failed failed;
    };
    using Keys = std::map<std::uint32_t, Key>;

    template <typename Call>
    void later(std::uint32_t identifier, Call call) const;

    std::shared_ptr<Keys> m_keys;
    std::uint64_t m_lastNumber = 0;
};

} // namespace kerlune
