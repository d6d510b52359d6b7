#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kerlune {

// Which programs have windows, and which of them the user works in.
//
// Thread: main; what is called back is called there, from the event loop.
// Errors: none. Where the session does not tell, there are no programs and the one in front never changes.
class FrontApplication {
public:
    // A program by the names that its windows bear (ICCCM 4.1.2.5, WM_CLASS): that of the instance and that of the
    // class, either of which may be empty.
    struct Program {
        std::string instance;
        std::string windowClass;

        bool operator==(const Program &) const = default;
    };
    using Changed = std::function<void(const Program &)>;

    virtual ~FrontApplication() = default;

    virtual Program current() const = 0; // both names empty when none is
    // Those with windows, the topmost first, each once.
    virtual std::vector<Program> programs() const = 0;
    // Called whenever another program comes to the front, with no names when none is. One at a time.
    virtual void observe(Changed changed) = 0;
};

} // namespace kerlune
