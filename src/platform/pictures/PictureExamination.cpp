#include "platform/pictures/PictureExamination.h"

#include "platform/files/MibFile.h"
#include "platform/files/RegularFile.h"
#include "platform/pictures/ImageDecoding.h"
#include "platform/pictures/ImageSource.h"
#include "platform/pictures/SvgPhoto.h"

#include <array>
#include <cstdio>

#include <jerror.h>
#include <jpeglib.h>

namespace
{
/// More is no picture: a film perhaps, by consent.
constexpr std::size_t largestPicture = std::size_t{256} << 20;
constexpr std::size_t headSize = 4096;

struct Signature
{
    std::string_view bytes;
    std::size_t at;
    PictureForm form;
};

constexpr Signature signatures[] = {
    {"\xFF\xD8\xFF", 0, PictureForm::Jpeg},
    {std::string_view("II*\0", 4), 0, PictureForm::Tiff},
    {std::string_view("MM\0*", 4), 0, PictureForm::Tiff},
    {"\x89PNG\r\n\x1A\n", 0, PictureForm::Png},
    {"GIF8", 0, PictureForm::Gif},
    {"BM", 0, PictureForm::Bitmap},
    {"%PDF-", 0, PictureForm::Pdf},
    {"ftyp", 4, PictureForm::Movie},
    {std::string_view("\0\0\1\xBA", 4), 0, PictureForm::Movie},
    {std::string_view("\0\0\1\xB3", 4), 0, PictureForm::Movie},
};

PictureForm FormOf(std::string_view bytes)
{
    for (const Signature& signature : signatures) {
        if (bytes.size() > signature.at &&
            bytes.substr(signature.at).starts_with(signature.bytes)) {
            return signature.form;
        }
    }
    return bytes.find("<svg") == std::string_view::npos ? PictureForm::Unknown : PictureForm::Svg;
}

bool IsDecoded(PictureForm form)
{
    return form != PictureForm::Unknown && form != PictureForm::Movie && form != PictureForm::Pdf;
}

struct DecodingEnds
{};

/// Decodes a JPEG file at an eighth of its size and notes what the decoder had to make up.
class JpegExaminer
{
public:
    explicit JpegExaminer(std::string_view bytes)
    {
        jpeg.err = jpeg_std_error(&errors);
        errors.error_exit = [](j_common_ptr) { throw DecodingEnds(); };
        errors.emit_message = [](j_common_ptr state, int level) {
            if (level < 0) Of(state)->NoteWarning(state->err->msg_code);
        };
        errors.output_message = [](j_common_ptr) {};
        jpeg_create_decompress(&jpeg);
        jpeg.client_data = this;
        jpeg_mem_src(&jpeg, reinterpret_cast<const unsigned char*>(bytes.data()),
                     static_cast<unsigned long>(bytes.size()));
    }
    JpegExaminer(const JpegExaminer&) = delete;
    JpegExaminer& operator=(const JpegExaminer&) = delete;
    ~JpegExaminer() { jpeg_destroy_decompress(&jpeg); }

    /// False when the picture can't be decoded whole.
    bool Decode(PictureExamination& found, ExaminationExtras& extras)
    {
        try {
            jpeg_read_header(&jpeg, TRUE);
            found.width = static_cast<int>(jpeg.image_width);
            found.height = static_cast<int>(jpeg.image_height);
            if (qint64{found.width} * found.height > ImageSource::mostPixels) return false;
            DecodeRows(extras);
        } catch (const DecodingEnds&) {
            return false;
        }
        return !isDamaged;
    }

private:
    static JpegExaminer* Of(j_common_ptr state)
    {
        return static_cast<JpegExaminer*>(state->client_data);
    }

    void NoteWarning(int code)
    {
        // Cameras leave stray bytes between segments, which cost nothing of the picture.
        constexpr int harmless[] = {JWRN_EXTRANEOUS_DATA, JWRN_ADOBE_XFORM, JWRN_JFIF_MAJOR};
        for (const int each : harmless) {
            if (code == each) return;
        }
        isDamaged = true;
    }

    void DecodeRows(ExaminationExtras& extras)
    {
        GreyPicture& reduced = extras.picture;
        jpeg.scale_num = 1;
        jpeg.scale_denom = static_cast<unsigned>(extras.reduction);
        jpeg.do_fancy_upsampling = FALSE;
        const bool hasLight =
            jpeg.jpeg_color_space == JCS_YCbCr || jpeg.jpeg_color_space == JCS_GRAYSCALE;
        if (hasLight) jpeg.out_color_space = JCS_GRAYSCALE;
        jpeg_start_decompress(&jpeg);
        const auto width = static_cast<std::size_t>(jpeg.output_width);
        const auto channels = static_cast<std::size_t>(jpeg.output_components);
        reduced.width = static_cast<int>(width);
        reduced.height = static_cast<int>(jpeg.output_height);
        reduced.pixels.resize(width * jpeg.output_height);
        std::vector<unsigned char> row(width * channels);
        unsigned char* to = reduced.pixels.data();
        while (jpeg.output_scanline < jpeg.output_height) {
            JSAMPROW rows[] = {row.data()};
            jpeg_read_scanlines(&jpeg, rows, 1);
            // The second of three channels is green, the best stand-in for light.
            const std::size_t channel = channels > 1 ? 1 : 0;
            for (std::size_t x = 0; x < width; ++x) *to++ = row[x * channels + channel];
        }
        jpeg_finish_decompress(&jpeg);
    }

    jpeg_decompress_struct jpeg = {};
    jpeg_error_mgr errors = {};
    bool isDamaged = false;
};

void ExamineJpeg(std::string_view bytes, PictureExamination& found, ExaminationExtras& extras)
{
    const bool isWhole = JpegExaminer(bytes).Decode(found, extras);
    found.state = !IsCompleteJpeg(bytes) ? PictureState::CutOff
                  : isWhole              ? PictureState::Whole
                                         : PictureState::Damaged;
    if (found.state != PictureState::Whole) extras.picture = {};
}

/// Of what Qt decodes.
void ExamineOther(std::string bytes, PictureExamination& found, ExaminationExtras& extras)
{
    GreyPicture& reduced = extras.picture;
    const ImageSource source(std::move(bytes));
    found.width = source.Size().width();
    found.height = source.Size().height();
    const QSize size = (source.Size() / extras.reduction).expandedTo(QSize(1, 1));
    const QImage image =
        source.Read(size, ImageSource::mostPixels).convertToFormat(QImage::Format_Grayscale8);
    found.state = image.isNull() ? PictureState::Damaged : PictureState::Whole;
    reduced.width = image.width();
    reduced.height = image.height();
    for (int y = 0; y < image.height(); ++y) {
        const unsigned char* row = image.constScanLine(y);
        reduced.pixels.insert(reduced.pixels.end(), row, row + image.width());
    }
}

void ExamineSvg(const CString& path, PictureExamination& found, ExaminationExtras& extras)
{
    const std::optional<SvgContent> content = ReadSvgContent(path);
    if (!content) {
        found.state = PictureState::Damaged;
    } else if (content->mainImage) {
        ExamineJpeg(*content->mainImage, found, extras);
    } else {
        found.state = PictureState::NotExamined;
    }
}

void Examine(const CString& path, std::string bytes, PictureExamination& found,
             ExaminationExtras& extras)
{
    switch (found.form) {
    case PictureForm::Jpeg:
        ExamineJpeg(bytes, found, extras);
        return;
    case PictureForm::Svg:
        ExamineSvg(path, found, extras);
        return;
    case PictureForm::Tiff:
    case PictureForm::Png:
    case PictureForm::Gif:
    case PictureForm::Bitmap:
        ExamineOther(std::move(bytes), found, extras);
        return;
    case PictureForm::Movie:
    case PictureForm::Pdf:
    case PictureForm::Unknown:
        found.state = PictureState::NotExamined;
        return;
    }
}
} // namespace

PictureExamination ExaminePicture(const CString& path, ExaminationExtras* extras)
{
    PictureExamination found;
    const RegularFile file(path);
    std::string head(headSize, '\0');
    const ssize_t headLength = file.IsOpen() ? file.Read(head.data(), head.size()) : -1;
    if (headLength < 0) return found;
    head.resize(static_cast<std::size_t>(headLength));
    found.bytes = file.Size();
    found.state = PictureState::Empty;
    found.form = FormOf(head);
    if (!IsDecoded(found.form) || file.Size() > largestPicture) {
        if (!head.empty()) found.state = PictureState::NotExamined;
        if (extras != nullptr) extras->digest = Sha256OfFile(path);
        return found;
    }
    std::optional<std::string> bytes = MibReadFile(path, largestPicture);
    found.state = PictureState::Unreadable;
    if (!bytes) return found;
    if (extras != nullptr) extras->digest = Sha256Of(*bytes);
    ExaminationExtras none;
    Examine(path, std::move(*bytes), found, extras == nullptr ? none : *extras);
    return found;
}
