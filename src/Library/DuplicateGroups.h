#pragma once

#include "Library/DuplicateScanner.h"

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// What the duplicate scanner concludes from the files that it has read. Files are named by their position among the
// entries; nothing is read here.
//
// Thread: any.

// SHA-256 in hexadecimal digits, one for each entry; absent where it is not known.
using ContentDigests = std::vector<std::optional<std::string>>;

// The files whose size another one has too: the only ones that can be equal.
std::vector<std::size_t> sharingTheirSize(std::span<const DuplicateScanner::FileEntry> entries);

std::vector<DuplicateScanner::Group> identicalFiles(std::span<const DuplicateScanner::FileEntry> entries,
                                                    const ContentDigests &digests);

// The PostScript names that several files hold, equal ones or not, with these files. The names are the entries' own.
using NameSharers = std::map<std::string_view, std::vector<std::size_t>>;
NameSharers sharingAName(std::span<const DuplicateScanner::FileEntry> entries);

// Of equal files the first one stands for all; where only equal ones share a name there is no conflict. A file without
// a digest is equal to none.
std::vector<DuplicateScanner::Group> nameConflicts(std::span<const DuplicateScanner::FileEntry> entries,
                                                   const NameSharers &sharers, const ContentDigests &digests);

// Files of one family and style that do not all have the same version text, the newest first. Those without a family or
// a version are passed over.
std::vector<DuplicateScanner::Group> versionDrifts(std::span<const DuplicateScanner::FileEntry> entries);

// The most serious kind first; in a kind what frees most first, then by key.
void sortBySeverity(std::vector<DuplicateScanner::Group> &groups);

} // namespace kerlune
