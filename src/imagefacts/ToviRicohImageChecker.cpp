#include "imagefacts/ToviRicohImageChecker.h"

#include "imagefacts/VerifierAnswer.h"
#include "platform/pictures/LumImage.h"

namespace
{
constexpr std::string_view models[] = {"G600", "G700", "G700 SE", "G800", "G800 SE"};
constexpr std::string_view blanks[] = {" ", "　"};

constexpr VerifierAnswer answers[] = {
    {0, ToviCheckProcessor::StatusUnaltered},
    {1, ToviCheckProcessor::StatusAltered},
    {2, ToviCheckProcessor::StatusOutsideTarget},
};

bool TakeBlank(std::string_view& text)
{
    for (const std::string_view blank : blanks) {
        if (text.starts_with(blank)) {
            text.remove_prefix(blank.size());
            return true;
        }
        if (text.ends_with(blank)) {
            text.remove_suffix(blank.size());
            return true;
        }
    }
    return false;
}

std::string_view WithoutOuterBlanks(std::string_view text)
{
    while (TakeBlank(text)) {
    }
    return text;
}
} // namespace

bool ToviRicohImageChecker::IsTarget(const char* path)
{
    CString model;
    if (path == nullptr || !LumImage::GetComment(path, LumCmntModel, model)) return false;
    return std::ranges::find(models, WithoutOuterBlanks(model)) != std::end(models);
}

ToviCheckProcessor::CheckStatus ToviRicohImageChecker::Check(const char* path)
{
    if (path == nullptr || !Initiate()) return StatusError;
    const std::optional<int> answer = verifier.Verify(path);
    return answer ? MeaningOf(*answer, answers) : StatusError;
}
