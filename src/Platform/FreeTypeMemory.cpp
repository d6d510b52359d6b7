#include "Platform/FreeTypeMemory.h"

#include <ft2build.h>
#include FT_SYSTEM_H

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace kerlune {

namespace {

FreeTypeMemory &owner(FT_Memory memory)
{
    return *static_cast<FreeTypeMemory *>(memory->user);
}

} // namespace

FreeTypeMemory::FreeTypeMemory()
    : m_record(std::make_unique<FT_MemoryRec_>(FT_MemoryRec_{this, &allocate, &release, &reallocate}))
    , m_blocks{&m_blocks, &m_blocks, 0}
{}

FreeTypeMemory::~FreeTypeMemory()
{
    for (Header *block = m_blocks.next; block != &m_blocks;) {
        Header *next = block->next;
        std::free(block);
        block = next;
    }
}

void *FreeTypeMemory::allocate(FT_Memory memory, long size)
{
    FreeTypeMemory &self = owner(memory);
    const auto bytes = static_cast<std::size_t>(size);
    if (size <= 0 || bytes > kMostBytes - self.m_used)
        return nullptr;
    auto *header = static_cast<Header *>(std::malloc(sizeof(Header) + bytes));
    if (header == nullptr)
        return nullptr;
    *header = {&self.m_blocks, self.m_blocks.next, bytes};
    header->next->previous = header;
    self.m_blocks.next = header;
    self.m_used += bytes;
    return header + 1;
}

void *FreeTypeMemory::reallocate(FT_Memory memory, long currentSize, long newSize, void *block)
{
    void *moved = allocate(memory, newSize);
    if (moved == nullptr)
        return nullptr;
    std::memcpy(moved, block, static_cast<std::size_t>(std::min(currentSize, newSize)));
    release(memory, block);
    return moved;
}

void FreeTypeMemory::release(FT_Memory memory, void *block)
{
    Header *header = static_cast<Header *>(block) - 1;
    header->previous->next = header->next;
    header->next->previous = header->previous;
    owner(memory).m_used -= header->size;
    std::free(header);
}

} // namespace kerlune
