#include "windows/page/PagesAhead.h"

#include "delivery/ToviData.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/PhotoWishes.h"

using namespace std::chrono_literals;

namespace
{
/// Behind the full pictures of the page itself, which wait for 100 ms.
constexpr auto stay = 120ms;
} // namespace

std::vector<AheadPhoto> PhotosAhead(int first, int onPage, int count)
{
    constexpr std::pair<int, Urgency> pages[] = {
        {1, Urgency::Next}, {-1, Urgency::Previous}, {2, Urgency::Idle}};
    std::vector<AheadPhoto> ahead;
    for (const auto& [step, urgency] : pages) {
        const int begin = first + step * onPage;
        for (int position = begin; position < begin + onPage; ++position) {
            if (position >= 0 && position < count) ahead.push_back({position, urgency});
        }
    }
    return ahead;
}

PagesAhead::PagesAhead()
{
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { Fetch(true); });
}

PagesAhead::~PagesAhead()
{
    Clear();
}

void PagesAhead::Show(ToviData& document, int first, int onPage)
{
    data = &document;
    photos = PhotosAhead(first, onPage, document.GetCurrentPhotoCount());
    Fetch(false);
    timer.start(stay);
}

void PagesAhead::Clear()
{
    timer.stop();
    data = nullptr;
    FileLoader::Ours().Leave(this);
}

void PagesAhead::Fetch(bool withPictures) const
{
    const PhotoWishes of(*data);
    std::vector<LoadWish> wishes;
    const auto forEach = [this](const auto& action) {
        for (const auto& [position, urgency] : photos) {
            if (ToviPhoto* const photo = data->GetPhoto(position)) action(*photo, urgency);
        }
    };
    forEach([&](ToviPhoto& photo, Urgency urgency) {
        wishes.push_back(of.Thumb(photo, urgency));
        wishes.push_back(of.Facts(photo, urgency));
    });
    if (withPictures) {
        forEach([&](ToviPhoto& photo, Urgency urgency) {
            wishes.push_back(of.Full(photo, urgency));
            if (auto check = of.Check(photo, urgency)) wishes.push_back(std::move(*check));
        });
    }
    FileLoader::Ours().Want(this, std::move(wishes));
}
