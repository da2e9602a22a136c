#include "windows/comments/CommentTexts.h"

#include "platform/host/HostServices.h"

namespace
{
constexpr const char* section = "CommentTexts";

CString EntryOf(int place)
{
    return "Text" + std::to_string(place + 1);
}

CString Stored(const ProfileStore& profile, int place)
{
    return profile.GetProfileString(section, EntryOf(place), "");
}

void AddNew(CStringArray& texts, const CString& text)
{
    if (text.empty() || texts.GetSize() >= CommentTexts::mostKept) return;
    for (const CString& known : texts) {
        if (known == text) return;
    }
    texts.Add(text);
}

bool Write(ProfileStore& profile, const CStringArray& texts)
{
    for (int place = 0; place < CommentTexts::mostKept; ++place) {
        const CString text = place < texts.GetSize() ? texts[place] : CString();
        if (text == Stored(profile, place)) continue;
        if (!profile.WriteProfileString(section, EntryOf(place), text)) return false;
    }
    return true;
}
} // namespace

CStringArray CommentTexts::All()
{
    CStringArray texts;
    const ProfileStore* const profile = GetHostServices().profile;
    for (int place = 0; profile != nullptr && place < mostKept; ++place)
        AddNew(texts, Stored(*profile, place));
    return texts;
}

void CommentTexts::NoteUse(const CString& text)
{
    ProfileStore* const profile = GetHostServices().profile;
    if (profile == nullptr || ReplaceAll(ReplaceAll(text, " ", ""), "　", "").empty()) return;
    profile->WriteTogether([&] {
        CStringArray texts{text};
        for (const CString& before : All()) AddNew(texts, before);
        return Write(*profile, texts);
    });
}

void CommentTexts::Replace(const CStringArray& texts)
{
    ProfileStore* const profile = GetHostServices().profile;
    if (profile == nullptr) return;
    CStringArray kept;
    for (const CString& text : texts) AddNew(kept, text);
    profile->WriteTogether([&] { return Write(*profile, kept); });
}
