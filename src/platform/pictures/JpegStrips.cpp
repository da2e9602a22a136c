#include "platform/pictures/StripEncoders.h"

#include <QImage>

#include <array>
#include <cstdio>

#include <jpeglib.h>

namespace
{
class JpegEncoder : public LumStripWriter::Encoder
{
public:
    JpegEncoder(int imageWidth, int imageHeight, int percent, LumStripWriter::Sink into)
        : Encoder(imageWidth, imageHeight, std::move(into)), quality(percent)
    {
        jpeg.err = jpeg_std_error(&errors);
        errors.error_exit = [](j_common_ptr) { throw StripEncodingEnds(); };
        jpeg_create_compress(&jpeg);
        jpeg.client_data = this;
        destination.init_destination = Reset;
        destination.empty_output_buffer = [](j_compress_ptr state) {
            Of(state)->Give(Of(state)->buffer.data(), Of(state)->buffer.size());
            Reset(state);
            return boolean{TRUE};
        };
        destination.term_destination = [](j_compress_ptr state) {
            Of(state)->Give(Of(state)->buffer.data(),
                            Of(state)->buffer.size() - Of(state)->destination.free_in_buffer);
        };
        jpeg.dest = &destination;
    }
    ~JpegEncoder() override { jpeg_destroy_compress(&jpeg); }

    void Begin(const QImage& image) override
    {
        jpeg.image_width = static_cast<JDIMENSION>(width);
        jpeg.image_height = static_cast<JDIMENSION>(height);
        jpeg.input_components = 3;
        jpeg.in_color_space = JCS_RGB;
        jpeg_set_defaults(&jpeg);
        constexpr double metersPerInch = 0.0254;
        constexpr int dotsPerInch = 1;
        jpeg.density_unit = dotsPerInch;
        jpeg.X_density = static_cast<UINT16>(qRound(image.dotsPerMeterX() * metersPerInch));
        jpeg.Y_density = static_cast<UINT16>(qRound(image.dotsPerMeterY() * metersPerInch));
        jpeg_set_quality(&jpeg, quality, TRUE);
        jpeg_start_compress(&jpeg, TRUE);
    }

    void AddRow(const unsigned char* row) override
    {
        JSAMPROW rows[] = {const_cast<unsigned char*>(row)};
        jpeg_write_scanlines(&jpeg, rows, 1);
    }

    void End() override { jpeg_finish_compress(&jpeg); }

private:
    static JpegEncoder* Of(j_compress_ptr state)
    {
        return static_cast<JpegEncoder*>(state->client_data);
    }
    static void Reset(j_compress_ptr state)
    {
        Of(state)->destination.next_output_byte = Of(state)->buffer.data();
        Of(state)->destination.free_in_buffer = Of(state)->buffer.size();
    }

    const int quality;
    jpeg_compress_struct jpeg = {};
    jpeg_error_mgr errors = {};
    jpeg_destination_mgr destination = {};
    std::array<JOCTET, 1 << 14> buffer;
};
} // namespace

std::unique_ptr<LumStripWriter::Encoder> MakeJpegEncoder(int width, int height, int percent,
                                                         LumStripWriter::Sink sink)
{
    return std::make_unique<JpegEncoder>(width, height, percent, std::move(sink));
}
