#include "review/ToviXmlSaveManager.h"

#include "platform/files/DiskSpace.h"
#include "platform/files/MibFile.h"
#include "review/RecordTags.h"
#include "work/ToviProgressDlg.h"

namespace
{
constexpr std::uint64_t bytesOfFrame = 500;
constexpr std::uint64_t bytesOfPhoto = 300;

bool Fail(RecordFailure failure, int* result)
{
    *result = failure;
    return false;
}
} // namespace

ToviXmlSaveManager::ToviXmlSaveManager(const char* recordPath, const char* recordNote,
                                       const char* deliveryRoot)
    : ToviXmlManager(recordPath, deliveryRoot), note(recordNote == nullptr ? "" : recordNote)
{
    iterator = &header.iterator;
}

void ToviXmlSaveManager::WriteOrigin(const RecordOrigin& delivery)
{
    header.document.AddInstruction(RecordTags::origin, delivery.Text());
}

bool ToviXmlSaveManager::Save(const ToviPhotoArray& photos, int* result)
{
    if (MibIsReadOnly(path)) return Fail(RecordReadOnly, result);
    if (!HasSpace(photos.GetSize())) return Fail(RecordNoSpace, result);
    if (!BuildFrame(photos.GetSize()) || !Find(RecordTags::states)) {
        return Fail(RecordNotWritten, result);
    }
    if (!WritePhotos(photos)) return Fail(RecordCancelled, result);
    AddSample();
    header.document.TransIndent(nullptr);
    if (!header.document.Save(path, 0, result)) return Fail(RecordNotWritten, result);
    return true;
}

void ToviXmlSaveManager::AddSample()
{
    if (sample.empty() && MibIsFileExist(path)) {
        DoxDocument replaced;
        replaced.Initiate();
        replaced.KeepInstructions();
        if (replaced.Load(path, false, nullptr)) sample = replaced.Instruction(RecordTags::sample);
    }
    if (!sample.empty()) header.document.AddInstruction(RecordTags::sample, sample);
}

bool ToviXmlSaveManager::HasSpace(int photoCount) const
{
    const std::size_t slash = path.rfind('/');
    const bool hasFolder = slash != CString::npos && slash > 0;
    const std::uint64_t usable =
        FreeSpace(hasFolder ? path.substr(0, slash) : CString()) + MibFileSize(path);
    return usable > bytesOfFrame + bytesOfPhoto * static_cast<std::uint64_t>(photoCount);
}

bool ToviXmlSaveManager::BuildFrame(int photoCount)
{
    iterator->Root();
    Enter(RecordTags::root);
    Enter(RecordTags::facts);
    Enter(RecordTags::photoCount);
    iterator->SetText(static_cast<unsigned long>(photoCount));
    iterator->Parent();
    iterator->Parent();
    return iterator->InsertChild(RecordTags::states);
}

bool ToviXmlSaveManager::WritePhotos(const ToviPhotoArray& photos)
{
    const int count = photos.GetSize();
    ToviProgressDlg progress(true);
    progress.Begin(count);
    for (int index = 0; index < count; ++index) {
        WritePhoto(*photos[index]);
        progress.SetMessage("検査状況出力中　", index + 1, count);
        if (progress.GetCancel()) return false;
        progress.StepIt();
    }
    return true;
}

void ToviXmlSaveManager::WritePhoto(ToviPhoto& photo)
{
    Enter(RecordTags::photo);
    if (writePath) Write(RecordTags::path, photo.GetImagePath());
    Write(RecordTags::comment, photo.GetComment().c_str());
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        Write(RecordTags::labels[slot].data(), photo.IsLabelPasted(slot) ? "1" : "0");
    }
    iterator->Parent();
}

void ToviXmlSaveManager::Enter(const char* tag)
{
    iterator->InsertChild(tag);
    iterator->ChildTail();
}

void ToviXmlSaveManager::Write(const char* tag, const char* text)
{
    Enter(tag);
    iterator->SetText(text);
    iterator->Parent();
}
