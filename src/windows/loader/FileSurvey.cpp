#include "windows/loader/FileSurvey.h"

#include "delivery/ToviData.h"
#include "photos/DeliveryFiles.h"
#include "photos/ToviPhoto.h"
#include "platform/files/MibFile.h"
#include "platform/pictures/ImageFile.h"
#include "windows/loader/FileLoader.h"

#include <algorithm>

namespace
{
/// So few that even a slow share is through with them soon, and something else gets its turn.
constexpr int photosAtOnce = 32;
constexpr std::size_t bytesOfResult = 512;

struct LoadedSurvey : Loaded
{
    std::vector<FaultyFile> faulty;
};

PictureFault Look(const DeliveryFiles& files, const CString& path)
{
    const CString file = files.Readable(path);
    if (!file.empty()) return ProbePicture(file);
    return MibIsFileExist(path) ? PictureFault::Outside : PictureFault::Missing;
}

/// Looks at \p paths, those of the photographs from \p first on.
LoadedPtr LookThrough(const DeliveryFiles& files, const std::vector<CString>& paths, int first)
{
    const auto loaded = std::make_shared<LoadedSurvey>();
    loaded->ok = true;
    loaded->bytes = bytesOfResult;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const PictureFault fault = Look(files, paths[i]);
        if (fault == PictureFault::None) continue;
        loaded->faulty.push_back({first + static_cast<int>(i), fault});
    }
    return loaded;
}
} // namespace

void SurveyCounts::Add(PictureFault fault)
{
    switch (fault) {
    case PictureFault::None:
        return;
    case PictureFault::Missing:
        ++missing;
        return;
    case PictureFault::Outside:
        ++outside;
        return;
    default:
        ++damaged;
    }
}

CString SurveyCounts::Text() const
{
    CString text;
    const auto add = [&text](const char* what, int photos) {
        if (photos > 0) text += Format("%s%s %d枚", text.empty() ? "" : "・", what, photos);
    };
    add("写真なし", missing);
    add("壊れた写真", damaged);
    add("納品フォルダーの外の写真", outside);
    return text;
}

FileSurvey::FileSurvey()
{
    connect(&FileLoader::Ours(), &FileLoader::Arrived, this, &FileSurvey::OnArrived);
}

FileSurvey::~FileSurvey()
{
    End();
}

void FileSurvey::Begin(ToviData& newDocument)
{
    End();
    document = &newDocument;
    WantNext();
}

void FileSurvey::End()
{
    FileLoader::Ours().Leave(this);
    document = nullptr;
    seen = 0;
    faulty.clear();
    counts = {};
}

void FileSurvey::WantNext()
{
    std::vector<CString> paths;
    const int end = std::min(seen + photosAtOnce, document->GetTotalCountPhoto());
    for (int photo = seen; photo < end; ++photo) {
        paths.emplace_back(document->GetPhotoActualPhotoArray(photo)->GetImagePath());
    }
    if (paths.empty()) return FileLoader::Ours().Leave(this);
    const std::shared_ptr<const DeliveryFiles> files = document->GetFiles();
    asked = {.place = files, .path = {}, .kind = LoadKind::Survey, .sheet = seen};
    FileLoader::Ours().Want(this,
                            {{asked, Urgency::Idle, [files, paths, first = seen](const CString&) {
                                  return LookThrough(*files, paths, first);
                              }}});
}

void FileSurvey::OnArrived(const LoadKey& key)
{
    if (document == nullptr || key != asked) return;
    const auto found = FileLoader::Ours().InHand<LoadedSurvey>(asked);
    if (found) {
        for (const FaultyFile& file : found->faulty) counts.Add(file.fault);
        faulty.insert(faulty.end(), found->faulty.begin(), found->faulty.end());
    }
    seen = std::min(seen + photosAtOnce, document->GetTotalCountPhoto());
    WantNext();
    emit Advanced();
}
