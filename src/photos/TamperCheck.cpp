#include "photos/TamperCheck.h"

ToviPhoto::EditJPEGCheckResult TamperCheck::Check(const CString& path)
{
    const std::scoped_lock lock(busy);
    // Here two names that differ in letter case alone can be two files.
    chain.SetFile("");
    chain.SetFile(path.c_str());
    switch (chain.CheckProcessedImage()) {
    case ToviCheckProcessor::StatusUnaltered:
        return ToviPhoto::EditCheckUnaltered;
    case ToviCheckProcessor::StatusAltered:
        return ToviPhoto::EditCheckAltered;
    case ToviCheckProcessor::StatusOutsideTarget:
    case ToviCheckProcessor::StatusError:
        break;
    }
    return ToviPhoto::EditCheckUnknown;
}
