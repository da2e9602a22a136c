// An inspection record: what was loaded and saved loads as the same again.

#include "Fuzz.h"

#include "delivery/ToviData.h"
#include "delivery/ToviEnouDataFactory.h"
#include "photos/LabelSlots.h"
#include "photos/ToviPhoto.h"
#include "platform/xml/DoxWriter.h"
#include "sample/DeliveryBuilder.h"
#include "support/Labels.h"
#include "work/Environment.h"

#include <memory>

namespace
{
constexpr int photos = 3;

std::unique_ptr<ToviData> Open()
{
    static const bool written = [] {
        DeliveryBuilder({.photos = photos, .drawings = 0, .images = false})
            .Write(Folder().Path("delivery"));
        const CString work = Folder().MakeFolder("work");
        SetEnvironment({Registry(Folder().Path("user.ini"), Folder().Path("machine.ini")),
                        {"", work, work, work, work},
                        {}});
        return true;
    }();
    Require(written, "there is a delivery");
    ToviEnouDataFactory factory;
    return std::unique_ptr<ToviData>(factory.Create(
        nullptr, Folder().Path("delivery/PHOTO").c_str(), PhotoXMLMlit, nullptr, nullptr));
}

void Clear(ToviData& document)
{
    for (int i = 0; i < photos; ++i) RemoveAllLabel(document, i);
}

CString State(const ToviData& document)
{
    CString state;
    for (int i = 0; i < photos; ++i) {
        const ToviPhoto& photo = *document.GetPhotoActualPhotoArray(i);
        for (unsigned slot = 0; slot < labelCount; ++slot) {
            state += photo.IsLabelPasted(slot) ? '1' : '0';
        }
        state += photo.GetComment() + '\n';
    }
    return state;
}

/// What a record holds of \p state: characters that no XML file can hold are replaced.
CString Kept(std::string_view state)
{
    CString kept;
    while (!state.empty()) {
        const char32_t character = TakeCodePoint(state);
        AppendUtf8(kept, IsXmlCharacter(character) ? character : U'〓');
    }
    return kept;
}

bool Load(ToviData& document, const char* name)
{
    int reason = 0;
    return document.LoadExamination(Folder().Path(name).c_str(), &reason);
}

bool Save(ToviData& document, const char* name)
{
    int reason = 0;
    return document.SaveExamination(Folder().Path(name).c_str(), nullptr, &reason);
}
} // namespace

void Try(std::string_view input)
{
    static const std::unique_ptr<ToviData> first = Open();
    static const std::unique_ptr<ToviData> second = Open();
    Clear(*first);
    Clear(*second);
    Folder().Write("first.xml", input);
    if (!Load(*first, "first.xml")) {
        Require(State(*first) == State(*second), "a record that is refused changes nothing");
        return;
    }
    Require(Save(*first, "second.xml") && Load(*second, "second.xml"), "what is saved loads");
    Require(Kept(State(*first)) == State(*second), "what is saved loads as it was");
}
