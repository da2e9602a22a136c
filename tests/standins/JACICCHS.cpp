#include "Standin.h"

#include <iterator>

namespace
{
int AnswerOf(const char* function, const char* path)
{
    Standin::NoteCall(std::string(function) + ' ' + path);
    std::ifstream file(path, std::ios::binary);
    return Standin::AnswerIn({std::istreambuf_iterator<char>(file), {}}, "hash=");
}
} // namespace

STANDIN_EXPORT int JCOMSIA_CheckHashValue(const char* path)
{
    return AnswerOf("JCOMSIA_CheckHashValue", path);
}

#ifndef STANDIN_LACKING
STANDIN_EXPORT int JCOMSIA_SVG_CheckHashValue(const char* path)
{
    return AnswerOf("JCOMSIA_SVG_CheckHashValue", path);
}
#endif
