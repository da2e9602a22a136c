#include "platform/pictures/JpegRows.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

#include <jpeglib.h>

namespace
{
struct Undecodable
{};

/// The decoder warns where the data end, and fills up what follows.
class RowCounter
{
public:
    explicit RowCounter(std::string_view bytes)
    {
        jpeg.err = jpeg_std_error(&errors);
        errors.error_exit = [](j_common_ptr) { throw Undecodable(); };
        errors.emit_message = [](j_common_ptr state, int level) {
            auto& us = *static_cast<RowCounter*>(state->client_data);
            if (level < 0 && !us.warnedAt) us.warnedAt = us.jpeg.output_scanline;
        };
        jpeg_create_decompress(&jpeg);
        jpeg.client_data = this;
        jpeg_mem_src(&jpeg, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    }
    RowCounter(const RowCounter&) = delete;
    RowCounter& operator=(const RowCounter&) = delete;
    ~RowCounter() { jpeg_destroy_decompress(&jpeg); }

    int Count()
    {
        constexpr unsigned reduction = 8;
        jpeg_read_header(&jpeg, TRUE);
        const auto height = static_cast<int>(jpeg.image_height);
        if (jpeg_has_multiple_scans(&jpeg)) return height;
        jpeg.scale_denom = reduction;
        jpeg_start_decompress(&jpeg);
        std::vector<JSAMPLE> row(std::size_t{jpeg.output_width} *
                                 static_cast<std::size_t>(jpeg.output_components));
        JSAMPROW rows[] = {row.data()};
        while (!warnedAt && jpeg.output_scanline < jpeg.output_height) {
            jpeg_read_scanlines(&jpeg, rows, 1);
        }
        if (!warnedAt) return height;
        // The last ones are smoothed with what follows.
        const int smoothed = jpeg.max_v_samp_factor * static_cast<int>(reduction);
        return std::max(0, static_cast<int>(*warnedAt * reduction) - smoothed);
    }

private:
    jpeg_decompress_struct jpeg = {};
    jpeg_error_mgr errors = {};
    std::optional<JDIMENSION> warnedAt;
};
} // namespace

int CountJpegRows(std::string_view bytes)
{
    try {
        return RowCounter(bytes).Count();
    } catch (const Undecodable&) {
        return 0;
    }
}
