#include "intake/Doubles.h"

#include "intake/HashIndex.h"
#include "platform/host/WorkAhead.h"

#include <algorithm>
#include <map>
#include <set>

namespace
{
constexpr int mostBits = 8;

/// One of the photographs that are compared.
struct Candidate
{
    const PhotoMarks* marks;
    const EarlierDelivery* earlier;
};

/// Numbers of two candidates, the smaller first.
using Numbers = std::pair<std::size_t, std::size_t>;

/// All photographs: those of the delivery, then the earlier ones. Pairs of two earlier ones aren't
/// asked for.
class Comparison
{
public:
    Comparison(const std::vector<PhotoMarks>& marks, const std::vector<EarlierDelivery>& earlier)
        : own(marks.size())
    {
        for (const PhotoMarks& each : marks) all.push_back({&each, nullptr});
        for (const EarlierDelivery& delivery : earlier) {
            for (const PhotoMarks& each : delivery.photos) all.push_back({&each, &delivery});
        }
    }

    std::vector<PhotoPair> Find(const std::function<bool(int, int)>& tell)
    {
        PairEqual(PhotoPair::Bytes, [](const PhotoMarks& marks) {
            return CString(marks.digest.begin(), marks.digest.end());
        });
        FindSamePictures(tell);
        PairEqual(PhotoPair::Moment, [](const PhotoMarks& marks) { return marks.moment; });
        std::sort(found.begin(), found.end(), [](const PhotoPair& left, const PhotoPair& right) {
            return std::pair(left.photo, left.other) < std::pair(right.photo, right.other);
        });
        return std::move(found);
    }

private:
    /// Pairs each candidate with the first that has the same key; an empty one is none.
    void PairEqual(PhotoPair::Kind kind, CString (*keyOf)(const PhotoMarks& marks))
    {
        std::unordered_map<CString, std::size_t> firsts;
        for (std::size_t i = 0; i < all.size(); ++i) {
            const CString key = keyOf(*all[i].marks);
            if (key.empty()) continue;
            const auto [first, isNew] = firsts.emplace(key, i);
            if (!isNew) Add(kind, {first->second, i});
        }
    }

    void Add(PhotoPair::Kind kind, Numbers numbers)
    {
        const Candidate& left = all[numbers.first];
        const Candidate& right = all[numbers.second];
        if (left.earlier != nullptr) return;
        if (!told.insert(numbers).second) return;
        found.push_back({kind, left.marks->photo, right.marks->photo, right.earlier,
                         DistanceOf(*left.marks, *right.marks)});
    }

    static int DistanceOf(const PhotoMarks& left, const PhotoMarks& right)
    {
        if (!left.picture || !right.picture) return 0;
        const PictureHashes& a = left.picture->hashes;
        const PictureHashes& b = right.picture->hashes;
        int least = BitsApart(a.whole, b.whole);
        for (const PictureHash cut : a.cut) least = std::min(least, BitsApart(cut, b.whole));
        for (const PictureHash cut : b.cut) least = std::min(least, BitsApart(cut, a.whole));
        return least;
    }

    /// Of those with one file the first stands for all.
    std::vector<std::size_t> WithPictures() const
    {
        std::set<Sha256> seen;
        std::vector<std::size_t> numbers;
        for (std::size_t i = 0; i < all.size(); ++i) {
            const PhotoMarks& marks = *all[i].marks;
            if (marks.picture && seen.insert(marks.digest).second) numbers.push_back(i);
        }
        return numbers;
    }

    /// The pairs whose hashes and signatures don't show them to be different.
    std::vector<Numbers> LikelyPairs() const
    {
        const std::vector<std::size_t> numbers = WithPictures();
        std::vector<PictureHash> hashes;
        constexpr std::size_t hashesOfPicture = 5;
        for (const std::size_t number : numbers) {
            const PictureHashes& each = all[number].marks->picture->hashes;
            hashes.push_back(each.whole);
            hashes.insert(hashes.end(), each.cut.begin(), each.cut.end());
        }
        const HashIndex index(hashes);
        std::set<Numbers> pairs;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const PictureMarks& part = *all[numbers[i]].marks->picture;
            index.Find(part.hashes.whole, mostBits, [&](std::size_t place) {
                const std::size_t other = place / hashesOfPicture;
                const Numbers pair = std::minmax(numbers[i], numbers[other]);
                if (other == i || pair.first >= own || pairs.contains(pair)) return;
                const int cut = static_cast<int>(place % hashesOfPicture) - 1;
                const PictureMarks& whole = *all[numbers[other]].marks->picture;
                if (MayBeSame(whole.signature, part.signature, cut)) pairs.insert(pair);
            });
        }
        return {pairs.begin(), pairs.end()};
    }

    /// The cells of all pictures that may be whole in some pair, each read once.
    bool ReadCells(const std::vector<Numbers>& pairs, const std::function<bool(int, int)>& tell)
    {
        std::vector<std::size_t> numbers;
        for (const Numbers& pair : pairs) {
            if (!HaveOneShape(SizeOf(pair.first), SizeOf(pair.second))) continue;
            numbers.push_back(pair.first);
            numbers.push_back(pair.second);
        }
        std::sort(numbers.begin(), numbers.end());
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        const int count = static_cast<int>(numbers.size());
        bool goesOn = true;
        WorkAhead<PictureCells>(
            count, ahead,
            [&](int number) {
                const GreyPicture picture = Read(numbers[static_cast<std::size_t>(number)]);
                return picture.pixels.empty() ? PictureCells() : CellsOf(picture);
            },
            [&](int number, PictureCells read) {
                cells[numbers[static_cast<std::size_t>(number)]] = std::move(read);
                return goesOn = tell(number + 1, count);
            });
        return goesOn;
    }

    PictureSize SizeOf(std::size_t number) const { return all[number].marks->size; }

    /// Nothing of a picture that isn't at hand any more, or in whose place there is another one.
    GreyPicture Read(std::size_t number) const
    {
        ExaminationExtras extras;
        extras.reduction = 1;
        const PhotoMarks& marks = *all[number].marks;
        ExaminePicture(marks.path, &extras);
        return extras.digest == marks.digest ? std::move(extras.picture) : GreyPicture();
    }

    /// By the pixels of both files; of one that isn't at hand any more the signature is all there
    /// is.
    bool AreSamePictures(const Numbers& pair) const
    {
        const PhotoMarks& left = *all[pair.first].marks;
        const PhotoMarks& right = *all[pair.second].marks;
        if (HaveOneShape(left.size, right.size)) {
            const PictureCells& earlier = cells.at(pair.second);
            if (earlier.empty()) {
                return MustBeSame(left.picture->signature, right.picture->signature);
            }
            if (AreSame(cells.at(pair.first), earlier)) return true;
        }
        return MayBeCut(left.size, right.size) && IsOneCut(Read(pair.first), Read(pair.second));
    }

    void FindSamePictures(const std::function<bool(int, int)>& tell)
    {
        const std::vector<Numbers> pairs = LikelyPairs();
        if (!ReadCells(pairs, tell)) return;
        const int count = static_cast<int>(pairs.size());
        WorkAhead<int>(
            count, ahead,
            [&](int number) {
                return AreSamePictures(pairs[static_cast<std::size_t>(number)]) ? 1 : 0;
            },
            [&](int number, int isSame) {
                if (isSame != 0) Add(PhotoPair::Picture, pairs[static_cast<std::size_t>(number)]);
                return tell(number + 1, count);
            });
    }

    static constexpr int ahead = 8;
    std::unordered_map<std::size_t, PictureCells> cells;
    std::size_t own;
    std::vector<Candidate> all;
    std::set<Numbers> told;
    std::vector<PhotoPair> found;
};

CString MomentKey(const ExifEvidence& exif)
{
    if (!MomentOf(exif.original)) return {};
    // A clock that was never set begins anew with each battery.
    const bool isUnset = exif.original.starts_with("1970") || exif.original.starts_with("1980") ||
                         exif.original.starts_with("2000:01:01");
    return isUnset ? CString() : exif.original + '\n' + exif.maker + '\n' + exif.model;
}

std::optional<PhotoMarks> Read(const IntakeDelivery& delivery, const NamedFile& file)
{
    if (!IsReadable(delivery, file.path)) return std::nullopt;
    ExaminationExtras extras;
    const PictureExamination examined = ExaminePicture(file.path, &extras);
    if (!extras.digest) return std::nullopt;
    PhotoMarks marks{file.photo, file.name, file.path, *extras.digest, {}, {}, {}};
    marks.size = {examined.width, examined.height};
    if (!extras.picture.pixels.empty()) marks.picture = MarksOf(extras.picture, marks.size);
    marks.moment = MomentKey(ReadExifEvidence(file.path));
    return marks;
}
} // namespace

std::vector<PhotoMarks> ReadPhotoMarks(const IntakeDelivery& delivery,
                                       const std::function<bool(int done, int all)>& tell)
{
    std::vector<const NamedFile*> files;
    std::set<CString> seen;
    for (const NamedFile& file : delivery.files) {
        const bool isNew = !file.isDrawing && !file.path.empty() && seen.insert(file.path).second;
        if (isNew) files.push_back(&file);
    }
    std::sort(files.begin(), files.end(), [](const NamedFile* left, const NamedFile* right) {
        return left->path < right->path;
    });
    std::vector<PhotoMarks> marks;
    const int count = static_cast<int>(files.size());
    constexpr int ahead = 8;
    bool goesOn = true;
    WorkAhead<std::optional<PhotoMarks>>(
        count, ahead,
        [&](int number) { return Read(delivery, *files[static_cast<std::size_t>(number)]); },
        [&](int number, std::optional<PhotoMarks> read) {
            if (read) marks.push_back(std::move(*read));
            return goesOn = tell(number + 1, count);
        });
    if (!goesOn) return {};
    std::sort(marks.begin(), marks.end(), [](const PhotoMarks& left, const PhotoMarks& right) {
        return left.photo < right.photo;
    });
    return marks;
}

std::vector<PhotoPair> FindDoubles(const std::vector<PhotoMarks>& marks,
                                   const std::vector<EarlierDelivery>& earlier,
                                   const std::function<bool(int done, int all)>& tell)
{
    return Comparison(marks, earlier).Find(tell);
}
