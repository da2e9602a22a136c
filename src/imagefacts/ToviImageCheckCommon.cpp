#include "imagefacts/ToviImageCheckCommon.h"

#include "imagefacts/ToviJacicImageChecker.h"
#include "imagefacts/ToviRicohImageChecker.h"

namespace
{
std::unique_ptr<ToviCheckProcessor> MakeProcessor(int type)
{
    switch (type) {
    case ToviImageCheckCommon::TypeRicohG800:
        return std::make_unique<ToviRicohImageChecker>();
    case ToviImageCheckCommon::TypeBlackboard:
    case ToviImageCheckCommon::TypeRicohG900:
        return std::make_unique<ToviJacicImageChecker>();
    default:
        return nullptr;
    }
}

bool IsVerdict(ToviCheckProcessor::CheckStatus status)
{
    return status == ToviCheckProcessor::StatusUnaltered ||
           status == ToviCheckProcessor::StatusAltered;
}
} // namespace

ToviImageCheckCommon::ToviImageCheckCommon(const char* path)
{
    if (path != nullptr) SetFile(path);
}

void ToviImageCheckCommon::SetCheckCameraType(const CWordArray& types)
{
    processors.clear();
    for (const unsigned short type : types) {
        std::unique_ptr<ToviCheckProcessor> processor = MakeProcessor(type);
        if (processor && processor->IsEnableDLL() && processor->Initiate()) {
            processors.push_back(std::move(processor));
        }
    }
}

void ToviImageCheckCommon::SetFile(const char* path)
{
    if (!EqualNoCase(file, path)) file = path;
}

ToviImageCheckCommon::CheckStatus ToviImageCheckCommon::CheckProcessedImage()
{
    CheckStatus last = ToviCheckProcessor::StatusError;
    for (const auto& processor : processors) {
        if (!processor->IsTarget(file.c_str())) continue;
        last = processor->Check(file.c_str());
        if (IsVerdict(last)) return last;
        const bool isOutside = last == ToviCheckProcessor::StatusOutsideTarget;
        if (isOutside && !processor->IsContinueOutsideTarget()) return last;
    }
    return last;
}

ToviImageCheckCommon::CameraType ToviImageCheckCommon::QueryCameraType(int index)
{
    switch (index) {
    case 0:
        return TypeRicohG800;
    case 1:
        return TypeRicohG900;
    default:
        return TypeBlackboard;
    }
}

CString ToviImageCheckCommon::QueryCameraName(const CameraType& type)
{
    switch (type) {
    case TypeRicohG800:
        return "RICOH G800/G700/G600";
    case TypeRicohG900:
        return "RICOH G900";
    case TypeBlackboard:
        return "小黒板電子化";
    }
    return {};
}
