#pragma once

#include <cstdlib>
#include <fstream>
#include <string>

/// What the stand-ins for the verifiers of outside parties share. They answer what the photograph
/// itself says, so that one delivery can hold every answer, and note each call in the file that the
/// environment names.
namespace Standin
{
/// Marks what the verifiers' own programs would call.
#define STANDIN_EXPORT extern "C" [[gnu::visibility("default")]]

constexpr int noAnswer = -9999;

inline void NoteCall(const std::string& call)
{
    const char* const notes = std::getenv("TOVI_STANDIN_CALLS");
    if (notes != nullptr) std::ofstream(notes, std::ios::app) << call << '\n';
}

/// The number behind the last \p key in \p bytes.
inline int AnswerIn(const std::string& bytes, const std::string& key)
{
    const std::size_t at = bytes.rfind(key);
    return at == std::string::npos ? noAnswer : std::atoi(bytes.c_str() + at + key.size());
}
} // namespace Standin
