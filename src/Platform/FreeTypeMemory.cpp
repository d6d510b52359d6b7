#include "Platform/FreeTypeMemory.h"

#include <ft2build.h>
#include FT_SYSTEM_H

#include <cstdlib>

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
    while (m_blocks.next != &m_blocks)
        release(m_record.get(), m_blocks.next + 1);
}

void *FreeTypeMemory::allocate(FT_Memory memory, long size)
{
    FreeTypeMemory &self = owner(memory);
    const auto bytes = static_cast<std::size_t>(size);
    if (size <= 0 || bytes > kMostBytes - self.m_used)
        return nullptr;
    return self.adopt(static_cast<Header *>(std::malloc(sizeof(Header) + bytes)), bytes);
}

void *FreeTypeMemory::reallocate(FT_Memory memory, long, long newSize, void *block)
{
    FreeTypeMemory &self = owner(memory);
    Header *header = static_cast<Header *>(block) - 1;
    const auto bytes = static_cast<std::size_t>(newSize);
    if (newSize <= 0 || bytes > kMostBytes - (self.m_used - header->size))
        return nullptr;
    const std::size_t before = header->size;
    self.forget(header);
    auto *moved = static_cast<Header *>(std::realloc(header, sizeof(Header) + bytes));
    if (moved == nullptr) { // the old block is still there
        self.adopt(header, before);
        return nullptr;
    }
    return self.adopt(moved, bytes);
}

void FreeTypeMemory::release(FT_Memory memory, void *block)
{
    Header *header = static_cast<Header *>(block) - 1;
    owner(memory).forget(header);
    std::free(header);
}

void *FreeTypeMemory::adopt(Header *header, std::size_t size)
{
    if (header == nullptr)
        return nullptr;
    *header = {&m_blocks, m_blocks.next, size};
    header->next->previous = header;
    m_blocks.next = header;
    m_used += size;
    return header + 1;
}

void FreeTypeMemory::forget(Header *header)
{
    header->previous->next = header->next;
    header->next->previous = header->previous;
    m_used -= header->size;
}

} // namespace kerlune
