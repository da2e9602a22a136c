#include "history/HistoryStep.h"

#include <utility>

// A photograph's change: its distance from the one before, a byte for the labels before and one for
// those after, and a byte that says which comments follow. Numbers are in groups of seven bits, the
// lowest first, each but the last with its top bit set; a comment has its length in front.

namespace
{
enum Comments : unsigned char
{
    NoComments,
    /// One that stays.
    SameComment,
    BothComments
};

constexpr unsigned int groupBits = 7;
constexpr unsigned char more = 0x80;

void PutNumber(CString& bytes, std::uint64_t number)
{
    for (; number >= more; number >>= groupBits) {
        bytes += static_cast<char>(static_cast<unsigned char>(number) | more);
    }
    bytes += static_cast<char>(number);
}

void PutText(CString& bytes, const CString& text)
{
    PutNumber(bytes, text.size());
    bytes += text;
}

/// A distance in either direction as a number that is small where the distance is.
std::uint64_t Folded(std::int64_t distance)
{
    return distance < 0 ? static_cast<std::uint64_t>(-distance) * 2 - 1
                        : static_cast<std::uint64_t>(distance) * 2;
}

std::int64_t Unfolded(std::uint64_t number)
{
    const auto half = static_cast<std::int64_t>(number / 2);
    return number % 2 == 0 ? half : -half - 1;
}

Comments CommentsOf(const LabelEdit::Change& change)
{
    if (change.before.comment != change.after.comment) return BothComments;
    return change.before.comment.empty() ? NoComments : SameComment;
}

/// Takes what was put off the front of bytes that may be anything.
class Unpacking
{
public:
    explicit Unpacking(std::string_view bytes) : rest(bytes) {}

    bool IsAtEnd() const { return rest.empty(); }
    /// False once there was less than was asked for.
    bool IsWhole() const { return whole; }

    unsigned char Byte()
    {
        if (rest.empty()) whole = false;
        if (!whole) return 0;
        const auto byte = static_cast<unsigned char>(rest.front());
        rest.remove_prefix(1);
        return byte;
    }
    std::uint64_t Number()
    {
        std::uint64_t number = 0;
        for (unsigned int shift = 0; shift < 64 && whole; shift += groupBits) {
            const unsigned char byte = Byte();
            number |= static_cast<std::uint64_t>(byte & ~more) << shift;
            if ((byte & more) == 0) return number;
        }
        whole = false;
        return 0;
    }
    CString Text()
    {
        const std::uint64_t size = Number();
        if (size > rest.size()) whole = false;
        if (!whole) return {};
        const CString text(rest.substr(0, size));
        rest.remove_prefix(size);
        return text;
    }

private:
    std::string_view rest;
    bool whole = true;
};
} // namespace

CString PackChanges(const LabelChanges& changes)
{
    CString bytes;
    std::int64_t last = 0;
    for (const LabelEdit::Change& change : changes) {
        PutNumber(bytes, Folded(change.photo - std::exchange(last, change.photo)));
        bytes += static_cast<char>(change.before.labels.to_ulong());
        bytes += static_cast<char>(change.after.labels.to_ulong());
        const Comments comments = CommentsOf(change);
        bytes += static_cast<char>(comments);
        if (comments == BothComments) PutText(bytes, change.before.comment);
        if (comments != NoComments) PutText(bytes, change.after.comment);
    }
    return bytes;
}

std::optional<LabelChanges> UnpackChanges(std::string_view bytes, int photoCount)
{
    LabelChanges changes;
    std::int64_t photo = 0;
    for (Unpacking packed(bytes); !packed.IsAtEnd();) {
        photo += Unfolded(packed.Number());
        LabelEdit::Change change;
        change.before.labels = packed.Byte();
        change.after.labels = packed.Byte();
        const unsigned char comments = packed.Byte();
        if (comments == BothComments) change.before.comment = packed.Text();
        if (comments != NoComments) change.after.comment = packed.Text();
        if (comments == SameComment) change.before.comment = change.after.comment;
        if (!packed.IsWhole() || photo < 0 || photo >= photoCount) return std::nullopt;
        change.photo = static_cast<int>(photo);
        changes.push_back(std::move(change));
    }
    return changes;
}

CString PackReviews(const PhotoReviews& reviews)
{
    return PackChanges(
        LabelEdits::Make(LabelEdit::Batch, PhotoReviews(reviews.size()), reviews).changes);
}

std::optional<PhotoReviews> UnpackReviews(std::string_view bytes, int photoCount)
{
    std::optional<LabelChanges> changes = UnpackChanges(bytes, photoCount);
    if (!changes) return std::nullopt;
    PhotoReviews reviews(static_cast<std::size_t>(photoCount));
    for (LabelEdit::Change& change : *changes) {
        reviews[static_cast<std::size_t>(change.photo)] = std::move(change.after);
    }
    return reviews;
}
