#include "imagefacts/ToviJacicImageChecker.h"

#include "imagefacts/VerifierAnswer.h"
#include "platform/files/CaseFallback.h"
#include "platform/files/MibFile.h"

namespace
{
constexpr VerifierAnswer jpegAnswers[] = {
    {1, ToviCheckProcessor::StatusUnaltered},
    {0, ToviCheckProcessor::StatusAltered},
    {-1, ToviCheckProcessor::StatusAltered},
    {-2, ToviCheckProcessor::StatusAltered},
    {-307, ToviCheckProcessor::StatusAltered},
    {-305, ToviCheckProcessor::StatusOutsideTarget},
    {-304, ToviCheckProcessor::StatusOutsideTarget},
    {-303, ToviCheckProcessor::StatusOutsideTarget},
};

// Not the numbers of the JPEG function: -307, for one, means something else here.
constexpr VerifierAnswer svgAnswers[] = {
    {1, ToviCheckProcessor::StatusUnaltered},
    {0, ToviCheckProcessor::StatusAltered},
    {-1, ToviCheckProcessor::StatusAltered},
    {-2, ToviCheckProcessor::StatusAltered},
    {-3, ToviCheckProcessor::StatusAltered},
    {-23, ToviCheckProcessor::StatusAltered},
    {-24, ToviCheckProcessor::StatusAltered},
    {-25, ToviCheckProcessor::StatusAltered},
    {-43, ToviCheckProcessor::StatusAltered},
    {-44, ToviCheckProcessor::StatusAltered},
    {-45, ToviCheckProcessor::StatusAltered},
    {-21, ToviCheckProcessor::StatusOutsideTarget},
    {-22, ToviCheckProcessor::StatusOutsideTarget},
    {-41, ToviCheckProcessor::StatusOutsideTarget},
    {-42, ToviCheckProcessor::StatusOutsideTarget},
    {-61, ToviCheckProcessor::StatusOutsideTarget},
    {-81, ToviCheckProcessor::StatusOutsideTarget},
    {-82, ToviCheckProcessor::StatusOutsideTarget},
    {-83, ToviCheckProcessor::StatusOutsideTarget},
    {-84, ToviCheckProcessor::StatusOutsideTarget},
    {-85, ToviCheckProcessor::StatusOutsideTarget},
    {-86, ToviCheckProcessor::StatusOutsideTarget},
    {-301, ToviCheckProcessor::StatusOutsideTarget},
    {-303, ToviCheckProcessor::StatusOutsideTarget},
    {-304, ToviCheckProcessor::StatusOutsideTarget},
    {-305, ToviCheckProcessor::StatusOutsideTarget},
    {-307, ToviCheckProcessor::StatusOutsideTarget},
};

ToviCheckProcessor::CheckStatus Ask(const DynamicLibrary& library, const char* name,
                                    const CString& path, std::span<const VerifierAnswer> answers)
{
    auto* const check = library.Function<int(const char*)>(name);
    return check == nullptr ? ToviCheckProcessor::StatusError
                            : MeaningOf(check(path.c_str()), answers);
}
} // namespace

CString ToviJacicImageChecker::m_pathDllS;

bool ToviJacicImageChecker::IsEnableDLL()
{
    if (MibIsFileExist(m_pathDllS)) return true;
    const CString found = FindLibraryBesideProgram(libraryName);
    if (!found.empty()) m_pathDllS = found;
    return !found.empty();
}

bool ToviJacicImageChecker::Initiate()
{
    if (library.IsLoaded()) return true;
    if (!IsEnableDLL()) return false;
    library = DynamicLibrary(m_pathDllS);
    return library.IsLoaded();
}

ToviCheckProcessor::CheckStatus ToviJacicImageChecker::Check(const char* path)
{
    if (path == nullptr || !Initiate()) return StatusError;
    // The library opens the file itself, so it gets the name under which it is there, and never one
    // of a pipe that would keep it waiting.
    const CString file = ExistingPath(path);
    if (!MibIsFileExist(file)) return StatusError;
    return EqualNoCase(MibGetExt(file), ".svg") ? CheckS(file) : CheckJ(file);
}

ToviCheckProcessor::CheckStatus ToviJacicImageChecker::CheckJ(const CString& path) const
{
    return Ask(library, "JCOMSIA_CheckHashValue", path, jpegAnswers);
}

ToviCheckProcessor::CheckStatus ToviJacicImageChecker::CheckS(const CString& path) const
{
    return Ask(library, "JCOMSIA_SVG_CheckHashValue", path, svgAnswers);
}
