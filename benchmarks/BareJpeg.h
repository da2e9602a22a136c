#pragma once

#include "platform/files/MibFile.h"
#include "platform/pictures/LumImage.h"
#include "sample/DeliveryBuilder.h"
#include "support/TempFolder.h"

#include <benchmark/benchmark.h>

#include <cstdio>
// The header needs what stdio declares.
#include <jpeglib.h>

#include <vector>

/// The path of a photograph of two million pixels.
inline CString PhotoPath()
{
    static const TempFolder temp;
    static CString path;
    if (path.empty()) {
        DeliveryBuilder({.photos = 12, .drawings = 0}).Write(temp.Path("d"));
        for (const CString& candidate : MibFileFind(temp.Path("d/PHOTO/PIC"), "*.JPG")) {
            int width = 0;
            int height = 0;
            LumImage::GetCommentImageSize(candidate.c_str(), width, height);
            if (width == 1600) path = candidate;
        }
    }
    return path;
}

/// What every thumbnail has to do at least: decodes the JPEG file \p path with the decoder alone,
/// reduced by the whole number \p reduction (1, 2, 4 or 8).
inline void DecodeBare(const CString& path, unsigned reduction)
{
    std::FILE* file = std::fopen(path.c_str(), "rb");
    jpeg_decompress_struct decoder;
    jpeg_error_mgr errors;
    decoder.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&decoder);
    jpeg_stdio_src(&decoder, file);
    jpeg_read_header(&decoder, TRUE);
    decoder.scale_num = 1;
    decoder.scale_denom = reduction;
    jpeg_start_decompress(&decoder);
    std::vector<unsigned char> row(decoder.output_width * 3);
    unsigned char* rows[] = {row.data()};
    while (decoder.output_scanline < decoder.output_height) jpeg_read_scanlines(&decoder, rows, 1);
    jpeg_finish_decompress(&decoder);
    jpeg_destroy_decompress(&decoder);
    std::fclose(file);
}
