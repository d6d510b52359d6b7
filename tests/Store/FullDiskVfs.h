#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <limits>
#include <map>

namespace kerlune {

// While it lives, databases are opened on a disk that takes only so many bytes more, and then says that it is full.
//
// Thread: one at a time.
class FullDiskVfs final {
public:
    static constexpr std::int64_t kUnlimited = std::numeric_limits<std::int64_t>::max();

    FullDiskVfs()
    {
        s_real = sqlite3_vfs_find(nullptr);
        s_room = kUnlimited;
        m_vfs = *s_real;
        m_vfs.zName = "full-disk";
        m_vfs.xOpen = &open;
        sqlite3_vfs_register(&m_vfs, 1);
    }
    ~FullDiskVfs()
    {
        sqlite3_vfs_unregister(&m_vfs);
        sqlite3_vfs_register(s_real, 1);
    }
    FullDiskVfs(const FullDiskVfs &) = delete;
    FullDiskVfs &operator=(const FullDiskVfs &) = delete;

    void setRoom(std::int64_t bytes) const { s_room = bytes; }
    std::int64_t room() const { return s_room; }

private:
    // The real VFS makes the file; only its method table is exchanged for a copy that counts what is written. Databases
    // and their journals have tables of their own.
    static int open(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
    {
        const int result = s_real->xOpen(s_real, name, file, flags, outFlags);
        if (result == SQLITE_OK && file->pMethods != nullptr) {
            s_realWrite = file->pMethods->xWrite; // the same in all tables
            const auto [counting, isNew] = s_methods.try_emplace(file->pMethods, *file->pMethods);
            counting->second.xWrite = &write;
            file->pMethods = &counting->second;
        }
        return result;
    }

    static int write(sqlite3_file *file, const void *bytes, int count, sqlite3_int64 offset)
    {
        if (count > s_room)
            return SQLITE_FULL;
        if (s_room != kUnlimited)
            s_room -= count;
        return s_realWrite(file, bytes, count, offset);
    }

    static inline sqlite3_vfs *s_real = nullptr;
    static inline std::map<const sqlite3_io_methods *, sqlite3_io_methods> s_methods;
    static inline int (*s_realWrite)(sqlite3_file *, const void *, int, sqlite3_int64) = nullptr;
    static inline std::int64_t s_room = kUnlimited;

    sqlite3_vfs m_vfs{};
};

} // namespace kerlune
