#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>

namespace kerlune {

// The words that most tests use. NOLINTBEGIN(misc-unused-using-decls,misc-unused-alias-decls)
namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;
using testing::Pair;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;
// NOLINTEND(misc-unused-using-decls,misc-unused-alias-decls)

} // namespace kerlune
