#include "pages/Files.h"

#include <fstream>
#include <stdexcept>

void WriteText(const std::filesystem::path& file, const std::string& text)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << text;
    out.close();
    if (!out) throw std::runtime_error("can't write " + file.string());
}
