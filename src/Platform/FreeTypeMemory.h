#pragma once

#include <cstddef>
#include <memory>

struct FT_MemoryRec_;

namespace kerlune {

// The memory of one FreeType library. What FreeType forgets to give back, as it does with some broken fonts, goes
// with this object; what a font asks for beyond a limit is refused.
//
// Thread: one at a time. Must outlive the library.
class FreeTypeMemory final {
public:
    static constexpr std::size_t kMostBytes = 256U << 20;

    FreeTypeMemory();
    ~FreeTypeMemory();
    FreeTypeMemory(const FreeTypeMemory &) = delete;
    FreeTypeMemory &operator=(const FreeTypeMemory &) = delete;

    FT_MemoryRec_ *record() const { return m_record.get(); }

private:
    // Stands before each block that FreeType was given.
    struct alignas(std::max_align_t) Header {
        Header *previous;
        Header *next;
        std::size_t size;
    };

    static void *allocate(FT_MemoryRec_ *memory, long size);
    static void *reallocate(FT_MemoryRec_ *memory, long currentSize, long newSize, void *block);
    static void release(FT_MemoryRec_ *memory, void *block);

    std::unique_ptr<FT_MemoryRec_> m_record;
    Header m_blocks; // a ring of all blocks
    std::size_t m_used = 0;
};

} // namespace kerlune
