#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// OpenType 'name', Name IDs. Instances of a variable font use ids of their own.
enum class NameId : std::uint16_t {
    Copyright = 0,
    Family = 1,
    Subfamily = 2,
    Version = 5,
    PostScriptName = 6,
    Manufacturer = 8,
    Designer = 9,
    Licence = 13, // its text or a description of it
    LicenseUrl = 14,
    TypographicFamily = 16,
    TypographicSubfamily = 17,
    VariationsPostScriptNamePrefix = 25,
};

// The strings of a face (OpenType 'name'). English (US) comes first, then whatever decodes, in the table's order.
// A string that is empty or not valid in its encoding is passed over; after 1 MiB of such strings a name counts as
// absent.
//
// Thread: any.
class NameTable final {
public:
    NameTable() = default;
    explicit NameTable(std::vector<std::uint8_t> table);

    std::optional<std::string> find(NameId id) const; // UTF-8

private:
    struct Record {
        std::uint16_t platform;
        std::uint16_t encoding;
        std::uint16_t language;
        std::uint16_t id;
        std::uint32_t offset; // from the start of the table
        std::uint16_t length;
    };

    std::optional<std::string> decode(const Record &record) const;

    std::vector<std::uint8_t> m_table;
    std::vector<Record> m_records;
};

} // namespace kerlune
