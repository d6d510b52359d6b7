#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kerlune {

bool isValidUtf8(std::string_view text);

// Unicode lower case, the same in every language (no Turkish dotless i).
std::string lowercased(std::string_view text);

// Equal but for case (Unicode simple case folding).
bool equalIgnoringCase(std::string_view a, std::string_view b);

// Orders names as a file browser does: case does not count, digit runs compare as numbers ("Font 9" before "Font 10").
//
// Thread: one at a time.
class NameCollator final {
public:
    // `locale` as in "fr_FR"; empty takes the language of the environment (LC_ALL, LC_COLLATE, LANG), French where
    // that names none.
    explicit NameCollator(const std::string &locale = {});
    ~NameCollator();
    NameCollator(NameCollator &&) noexcept;
    NameCollator &operator=(NameCollator &&) noexcept;

    // Bytes that compare (as unsigned bytes) as the names do.
    std::string sortKey(std::string_view name) const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace kerlune
