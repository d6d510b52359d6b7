// The fingerprints of the index.

#include "Store/FontIndexStore.h"
#include "Store/Statement.h"

#include <sqlite3.h>

#include <bit>
#include <cstring>
#include <utility>

namespace kerlune {

static_assert(std::endian::native == std::endian::little, "fingerprints are stored little-endian");

void FontIndexStore::saveFingerprints(const std::unordered_map<std::string, Vector> &vectors)
{
    const auto insertVectors = [&]() -> Written {
        Statement insert(m_db.get(), "INSERT OR REPLACE INTO fingerprints VALUES(?,?);");
        for (const auto &[postScriptName, vector] : vectors) {
            insert.reset();
            insert.bind(1, postScriptName);
            insert.bind(2, std::span(reinterpret_cast<const std::uint8_t *>(vector.data()), vector.size() * 4));
            if (!insert.finishes())
                return tl::unexpected(error(StoreError::Kind::step));
        }
        return {};
    };
    m_queue.sync([&] { transact(insertVectors); });
}

std::unordered_map<std::string, FontIndexStore::Vector> FontIndexStore::loadFingerprints()
{
    std::unordered_map<std::string, Vector> vectors;
    const bool isComplete = readFingerprints([&](const std::string &name, std::span<const std::uint8_t> blob) {
        Vector vector(blob.size() / sizeof(float));
        if (!blob.empty())
            std::memcpy(vector.data(), blob.data(), blob.size());
        vectors.insert_or_assign(name, std::move(vector));
    });
    return isComplete ? vectors : std::unordered_map<std::string, Vector>();
}

std::int64_t FontIndexStore::fingerprintCount()
{
    return m_queue.sync([&] {
        Statement select(m_db.get(), "SELECT COUNT(*) FROM fingerprints;");
        return select.nextRow() ? select.integer(0) : 0;
    });
}

std::unordered_set<std::string> FontIndexStore::fingerprintNames()
{
    const auto names = m_queue.sync([&] { return firstColumn("SELECT ps_name FROM fingerprints;"); });
    return {names.begin(), names.end()};
}

bool FontIndexStore::readFingerprints(
    const std::function<void(const std::string &postScriptName, std::span<const std::uint8_t> vector)> &take)
{
    return m_queue.sync([&] {
        Statement select(m_db.get(), "SELECT ps_name, vector FROM fingerprints;");
        while (select.nextRow()) {
            const auto blob = select.blob(1);
            if (!select.isNull(0) && !select.isNull(1) && blob.size() % sizeof(float) == 0)
                take(select.text(0), blob);
        }
        return select.isComplete();
    });
}

} // namespace kerlune
