// Records per second against the bare reads that a record needs: the faces that fontconfig offers, warm cache, all
// cores. Prints both rates and their ratio.

#include "MedianReporter.h"
#include "Model/FontIndexer.h"
#include "Model/ScriptCoverage.h"
#include "Support/BigEndian.h"
#include "Support/Handle.h"
#include "Support/ParallelFor.h"
#include "SystemFaces.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <hb-ot.h>
#include <hb.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace kerlune;

// A face that HarfBuzz reads through pread, with nothing around it.
struct BareFile {
    explicit BareFile(const char *path)
        : descriptor(open(path, O_RDONLY | O_CLOEXEC))
    {}
    ~BareFile() { close(descriptor); }
    BareFile(const BareFile &) = delete;
    BareFile &operator=(const BareFile &) = delete;

    std::uint32_t u32(std::size_t at) const
    {
        return at + 4 <= directory.size() ? readU32(directory, at).value_or(0) : 0;
    }

    int descriptor;
    std::vector<std::uint8_t> directory = std::vector<std::uint8_t>(12 + 64 * 16);
};

hb_blob_t *bareTable(hb_face_t *, hb_tag_t tableTag, void *data)
{
    const auto &file = *static_cast<const BareFile *>(data);
    const std::size_t count = readU16(file.directory, 4).value_or(0);
    for (std::size_t i = 0; i < count; ++i) {
        if (file.u32(12 + 16 * i) != tableTag)
            continue;
        const std::uint32_t length = file.u32(12 + 16 * i + 12);
        char *bytes = static_cast<char *>(std::malloc(length)); // NOLINT: HarfBuzz frees it
        if (pread(file.descriptor, bytes, length, file.u32(12 + 16 * i + 8)) != static_cast<ssize_t>(length)) {
            std::free(bytes); // NOLINT
            return hb_blob_get_empty();
        }
        return hb_blob_create(bytes, length, HB_MEMORY_MODE_WRITABLE, bytes, std::free);
    }
    return hb_blob_get_empty();
}

// PostScript name, ten names, 1,060 characters and OS/2.
std::size_t readBare(const FontDescriptor &descriptor)
{
    BareFile file(descriptor.path.c_str());
    std::uint8_t offset[4]{};
    if (descriptor.faceIndex > 0)
        pread(file.descriptor, offset, 4, 12 + 4 * static_cast<off_t>(descriptor.faceIndex));
    pread(file.descriptor, file.directory.data(), file.directory.size(), *readU32(offset, 0));

    const Handle<hb_face_t, hb_face_destroy> face(hb_face_create_for_tables(bareTable, &file, nullptr));
    const Handle<hb_font_t, hb_font_destroy> font(hb_font_create(face.get()));
    std::size_t found = 0;
    char text[256];
    for (const hb_ot_name_id_t name : {6U, 0U, 1U, 2U, 5U, 8U, 9U, 14U, 16U, 17U, 25U}) {
        unsigned size = sizeof text;
        found += hb_ot_name_get_utf8(face.get(), name, HB_LANGUAGE_INVALID, &size, text);
    }
    std::size_t characters = 0;
    for (const auto &language : ScriptCoverage::all()) {
        for (const char32_t character : language.required) {
            if (++characters > 1060)
                break;
            hb_codepoint_t glyph = 0;
            found += static_cast<std::size_t>(hb_font_get_nominal_glyph(font.get(), character, &glyph));
        }
    }
    const Handle<hb_blob_t, hb_blob_destroy> os2(hb_face_reference_table(face.get(), HB_TAG('O', 'S', '/', '2')));
    return found + hb_blob_get_length(os2.get());
}

const std::vector<FontDescriptor> &faces()
{
    static const std::vector<FontDescriptor> all = systemFaces();
    return all;
}

template <typename Read>
void readAll(benchmark::State &state, Read &&read)
{
    for (auto _ : state)
        parallelForRanges(faces().size(), [&](std::size_t first, std::size_t last) {
            for (std::size_t i = first; i != last; ++i)
                benchmark::DoNotOptimize(read(faces()[i]));
        });
}

} // namespace

int main(int argc, char **argv)
{
    registerBenchmark("bare", [](benchmark::State &state) { readAll(state, readBare); });
    registerBenchmark("records", [](benchmark::State &state) { readAll(state, FontIndexer::extract); });
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto rate = [&](const char *name) {
        return 1000.0 * static_cast<double>(faces().size()) / reporter.median(name);
    };
    std::printf("%zu faces: %.0f records/s, %.0f bare reads/s, ratio %.2f\n", faces().size(), rate("records"),
                rate("bare"), rate("records") / rate("bare"));
    return 0;
}
