// The Exif data of a picture file: every field is read, and texts are those that libexif tells
// itself.

#include "Fuzz.h"

#include "platform/exif/ExifFile.h"

#include <libexif/exif-loader.h>

#include <memory>

namespace
{
struct Freer
{
    void operator()(ExifLoader* loader) const { exif_loader_unref(loader); }
    void operator()(ExifData* data) const { exif_data_unref(data); }
};

constexpr std::pair<LumCMNT, ExifTag> texts[] = {{LumCmntArtist, EXIF_TAG_ARTIST},
                                                 {LumCmntMake, EXIF_TAG_MAKE},
                                                 {LumCmntModel, EXIF_TAG_MODEL},
                                                 {LumCmntSoftware, EXIF_TAG_SOFTWARE}};

/// What libexif says of the field; nothing where it says nothing, or something beyond ASCII.
std::optional<CString> Told(ExifData* data, ExifTag tag)
{
    ExifEntry* entry = exif_data_get_entry(data, tag);
    if (entry == nullptr || entry->format != EXIF_FORMAT_ASCII) return std::nullopt;
    CString text(entry->size + 1, '\0');
    exif_entry_get_value(entry, text.data(), static_cast<unsigned>(text.size()));
    text.resize(text.find('\0'));
    for (const char c : text) {
        if (c < ' ' || c > '~') return std::nullopt;
    }
    return Trimmed(text);
}
} // namespace

void Try(std::string_view input)
{
    const ExifFile file(Folder().Write("picture.jpg", input));
    for (int code = 0; code < LumCmntCount; ++code) {
        const std::optional<CString> text = file.Text(static_cast<LumCMNT>(code));
        Require(!text || (!text->empty() && IsUtf8(*text)), "a field has a text that can be shown");
    }
    const std::unique_ptr<ExifLoader, Freer> loader(exif_loader_new());
    exif_loader_write(loader.get(),
                      reinterpret_cast<unsigned char*>(const_cast<char*>(input.data())),
                      static_cast<unsigned>(input.size()));
    const unsigned char* block = nullptr;
    unsigned blockSize = 0;
    exif_loader_get_buf(loader.get(), &block, &blockSize);
    const std::unique_ptr<ExifData, Freer> data(exif_data_new());
    // Otherwise fields that the standard demands would be made up.
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    if (block != nullptr) exif_data_load_data(data.get(), block, blockSize);
    for (const auto& [code, tag] : texts) {
        const std::optional<CString> ours = file.Text(code);
        const std::optional<CString> told = Told(data.get(), tag);
        // Where NULs stand in front of the text, libexif sees none of it.
        const bool same = !ours || !told || told->empty() || *ours == *told;
        Require(same, same ? "" : ("one text: \"" + *ours + "\" is \"" + *told + '"').c_str());
    }
}
