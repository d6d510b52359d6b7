#include "Store/RecordReader.h"

#include "Store/Statement.h"
#include "Support/ParallelTasks.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace kerlune {

namespace {

constexpr std::size_t kTexts = 9;
constexpr std::size_t kReals = 6;
constexpr std::size_t kIntegers = 10;
constexpr int kColumns = kTexts + kReals + kIntegers;

// A function of SQL is given all values of a row at once. Fetched one by one, each would cost a call with locks and
// checks, together as much as finding the rows. First the texts, then the reals, then the integers.
constexpr const char *kFunction = "take_row";
constexpr const char *kSelect =
    "SELECT take_row(ps_name, family, style, path, version, foundry, designer, license_url, copyright,\n"
    "mtime, weight, width, slant, x_height, cap_height,\n"
    "size, symbolic, is_variable, is_mono, is_color, is_italic, glyph_count, classification, script_mask, fs_type)\n"
    "FROM fonts;";

constexpr std::size_t kRowsOfABatch = 128;

// A row that another program wrote may hold anything: what no record can hold is brought into range.
template <typename Integer>
Integer clamped(std::int64_t value)
{
    return static_cast<Integer>(
        std::clamp<std::int64_t>(value, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()));
}

double finite(double value)
{
    return std::isfinite(value) ? value : 0;
}

std::optional<std::string> optionalText(std::string_view text)
{
    return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

// glibc extends the heap of any thread but the first by one page at a time, with a system call for each. Asked for a
// larger piece, it takes that in one step and keeps it for the many small ones: about what the records of a batch need.
void growHeap()
{
    void *volatile piece = std::malloc(100'000); // volatile, or the compiler would leave both out
    std::free(piece);
}

// Rows as SQLite gave them, and then the records that are made of them.
class Batch final {
public:
    explicit Batch(std::size_t textBytes)
    {
        m_rows.reserve(kRowsOfABatch);
        m_texts.reserve(textBytes);
    }

    bool isFull() const { return m_rows.size() == kRowsOfABatch; }
    std::size_t textBytes() const { return m_texts.size(); }

    void add(sqlite3_value **values);
    void makeRecords();
    std::vector<FontRecordPointer> &records() { return m_records; }

private:
    struct Row {
        std::array<std::size_t, kTexts + 1> bounds; // in m_texts: text i lies between bounds i and i + 1
        std::array<double, kReals> reals;
        std::array<std::int64_t, kIntegers> integers;
    };

    FontRecordPointer record(const Row &row) const;

    std::vector<Row> m_rows;
    std::string m_texts; // of all rows, one behind the other
    std::vector<FontRecordPointer> m_records;
};

void Batch::add(sqlite3_value **values)
{
    Row &row = m_rows.emplace_back();
    row.bounds[0] = m_texts.size();
    for (std::size_t i = 0; i < kTexts; ++i, ++values) {
        if (const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(*values)); text != nullptr)
            m_texts.append(text, static_cast<std::size_t>(sqlite3_value_bytes(*values)));
        row.bounds[i + 1] = m_texts.size();
    }
    for (double &real : row.reals)
        real = sqlite3_value_double(*values++);
    for (std::int64_t &integer : row.integers)
        integer = sqlite3_value_int64(*values++);
}

void Batch::makeRecords()
{
    growHeap();
    m_records.reserve(m_rows.size());
    for (const Row &row : m_rows)
        m_records.push_back(record(row));
    m_rows = {};
    m_texts = {};
}

FontRecordPointer Batch::record(const Row &row) const
{
    const auto text = [&](std::size_t i) {
        return std::string_view(m_texts).substr(row.bounds[i], row.bounds[i + 1] - row.bounds[i]);
    };
    const auto &[mtime, weight, width, slant, xHeight, capHeight] = row.reals;
    const auto &[size, symbolic, isVariable, isMonospace, isColor, isItalic, glyphs, fontClass, scripts, fsType] =
        row.integers;

    auto record = std::make_shared<FontRecord>();
    record->postScriptName = text(0);
    record->family = text(1);
    record->style = text(2);
    record->filePath = text(3);
    record->version = optionalText(text(4));
    record->foundry = optionalText(text(5));
    record->designer = optionalText(text(6));
    record->licenseURL = optionalText(text(7));
    record->copyrightNotice = optionalText(text(8));
    record->mtime = finite(mtime);
    record->weight = finite(weight);
    record->width = finite(width);
    record->slant = finite(slant);
    record->xHeightRatio = finite(xHeight);
    record->capHeightRatio = finite(capHeight);
    record->fileSize = std::bit_cast<std::uint64_t>(size);
    record->symbolicTraits = clamped<std::uint32_t>(symbolic);
    record->isVariable = isVariable != 0;
    record->isMonospace = isMonospace != 0;
    record->isColor = isColor != 0;
    record->isItalic = isItalic != 0;
    record->glyphCount = clamped<std::int32_t>(glyphs);
    record->classification = fontClassFromRawValue(fontClass).value_or(FontClass::unknown);
    record->scriptMask = std::bit_cast<std::uint64_t>(scripts);
    record->fsType = clamped<std::uint16_t>(fsType);
    return record;
}

// Collects the rows that SQLite hands to it and has records made of each full batch.
class RecordReader final {
public:
    // An exception could not pass through SQLite: when memory runs out here, the program ends.
    static void takeRow(sqlite3_context *context, int, sqlite3_value **values) noexcept
    {
        auto &reader = *static_cast<RecordReader *>(sqlite3_user_data(context));
        if (reader.m_batches.empty() || reader.m_batches.back().isFull())
            reader.beginBatch();
        reader.m_batches.back().add(values);
    }

    std::vector<FontRecordPointer> finish()
    {
        finishBatch();
        m_tasks.wait();
        std::vector<FontRecordPointer> records;
        records.reserve(m_batches.size() * kRowsOfABatch);
        for (Batch &batch : m_batches)
            std::move(batch.records().begin(), batch.records().end(), std::back_inserter(records));
        return records;
    }

private:
    void beginBatch()
    {
        const std::size_t textBytes =
            m_batches.empty() ? 0 : m_batches.back().textBytes() * 5 / 4; // about as many again
        finishBatch();
        m_batches.emplace_back(textBytes);
    }

    void finishBatch()
    {
        if (!m_batches.empty())
            m_tasks.run([&batch = m_batches.back()] { batch.makeRecords(); });
    }

    std::deque<Batch> m_batches; // adding one leaves the others where they are
    ParallelTasks m_tasks;
};

} // namespace

std::optional<std::vector<FontRecordPointer>> readRecords(sqlite3 *connection)
{
    RecordReader reader;
    const auto setFunction = [&](void (*function)(sqlite3_context *, int, sqlite3_value **)) {
        constexpr int kFlags = SQLITE_UTF8 | SQLITE_DIRECTONLY; // never called by what a database brings with it
        return sqlite3_create_function_v2(connection, kFunction, kColumns, kFlags, &reader, function, nullptr, nullptr,
                                          nullptr) == SQLITE_OK;
    };
    if (!setFunction(&RecordReader::takeRow))
        return std::nullopt;
    bool isComplete = false;
    {
        Statement select(connection, kSelect);
        while (select.nextRow()) {
        }
        isComplete = select.isComplete();
    }
    setFunction(nullptr);
    return isComplete ? std::optional(reader.finish()) : std::nullopt;
}

} // namespace kerlune
