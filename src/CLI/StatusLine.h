#pragma once

#include <string_view>

namespace kerlune {

// One line on standard error that says what goes on, and is wiped when the object goes; nothing where standard error
// is no terminal.
//
// Thread: one at a time.
class StatusLine final {
public:
    StatusLine();
    ~StatusLine();
    StatusLine(const StatusLine &) = delete;
    StatusLine &operator=(const StatusLine &) = delete;

    bool isShown() const { return m_isTerminal; }

    void show(std::string_view text);

private:
    bool m_isTerminal;
};

} // namespace kerlune
