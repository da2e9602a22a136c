#include "Standin.h"

#ifdef STANDIN_LACKING
STANDIN_EXPORT int RVJ_Version()
{
    return 1;
}
#else
STANDIN_EXPORT int RVJ_Verify(const void* fileBytes, unsigned long size)
{
    const std::string bytes(static_cast<const char*>(fileBytes), size);
    Standin::NoteCall("RVJ_Verify " + std::to_string(std::hash<std::string>()(bytes)));
    return Standin::AnswerIn(bytes, "rvj=");
}
#endif
