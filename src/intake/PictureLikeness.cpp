#include "intake/PictureLikeness.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <span>

namespace
{
constexpr double cutShare = 0.03;
constexpr int hashSide = 32;
constexpr int hashFrequencies = 8;

/// A rectangle in a picture, whose edges need not be those of pixels.
struct Area
{
    double left;
    double top;
    double right;
    double bottom;
};

/// The sums of all pixels above and to the left of each place, by which the mean of any area takes
/// four looks.
class AreaSums
{
public:
    explicit AreaSums(const GreyPicture& picture)
        : width(picture.width), height(picture.height),
          sums(static_cast<std::size_t>(width + 1) * static_cast<std::size_t>(height + 1))
    {
        for (int y = 0; y < height; ++y) {
            double row = 0;
            for (int x = 0; x < width; ++x) {
                row +=
                    picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                                   static_cast<std::size_t>(x)];
                At(x + 1, y + 1) = At(x + 1, y) + row;
            }
        }
    }

    Area Whole() const { return {0, 0, static_cast<double>(width), static_cast<double>(height)}; }

    /// \p area as \p columns by \p rows means.
    std::vector<float> Reduced(const Area& area, int columns, int rows) const
    {
        std::vector<float> cells;
        cells.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
        const double stepX = (area.right - area.left) / columns;
        const double stepY = (area.bottom - area.top) / rows;
        for (int row = 0; row < rows; ++row) {
            const double top = area.top + row * stepY;
            for (int column = 0; column < columns; ++column) {
                const double left = area.left + column * stepX;
                const double sum = SumTo(left + stepX, top + stepY) - SumTo(left, top + stepY) -
                                   SumTo(left + stepX, top) + SumTo(left, top);
                cells.push_back(static_cast<float>(sum / (stepX * stepY)));
            }
        }
        return cells;
    }

private:
    double& At(int x, int y)
    {
        return sums[static_cast<std::size_t>(y) * static_cast<std::size_t>(width + 1) +
                    static_cast<std::size_t>(x)];
    }
    double At(int x, int y) const
    {
        return sums[static_cast<std::size_t>(y) * static_cast<std::size_t>(width + 1) +
                    static_cast<std::size_t>(x)];
    }

    /// Of all that is above and to the left of a place between pixels.
    double SumTo(double x, double y) const
    {
        const int column = std::clamp(static_cast<int>(x), 0, width - 1);
        const int row = std::clamp(static_cast<int>(y), 0, height - 1);
        const double right = std::min(x, static_cast<double>(width)) - column;
        const double below = std::min(y, static_cast<double>(height)) - row;
        const double above = std::lerp(At(column, row), At(column + 1, row), right);
        return std::lerp(above, std::lerp(At(column, row + 1), At(column + 1, row + 1), right),
                         below);
    }

    int width;
    int height;
    std::vector<double> sums;
};

/// The cosines of the frequencies 1 to 8 at 32 places.
const std::array<std::array<float, hashSide>, hashFrequencies>& Cosines()
{
    static const auto table = [] {
        std::array<std::array<float, hashSide>, hashFrequencies> made{};
        for (std::size_t f = 0; f < hashFrequencies; ++f) {
            for (std::size_t i = 0; i < hashSide; ++i) {
                const double angle = std::numbers::pi * (static_cast<double>(f) + 1) *
                                     (2 * static_cast<double>(i) + 1) / (2 * hashSide);
                made[f][i] = static_cast<float>(std::cos(angle));
            }
        }
        return made;
    }();
    return table;
}

PictureHash HashOf(const std::vector<float>& cells)
{
    constexpr std::size_t side = hashSide;
    constexpr std::size_t frequencies = hashFrequencies;
    std::array<float, side * frequencies> rows{};
    for (std::size_t y = 0; y < side; ++y) {
        for (std::size_t f = 0; f < frequencies; ++f) {
            float sum = 0;
            for (std::size_t x = 0; x < side; ++x) sum += cells[y * side + x] * Cosines()[f][x];
            rows[y * frequencies + f] = sum;
        }
    }
    std::array<float, frequencies * frequencies> values{};
    for (std::size_t g = 0; g < frequencies; ++g) {
        for (std::size_t f = 0; f < frequencies; ++f) {
            float sum = 0;
            for (std::size_t y = 0; y < side; ++y) {
                sum += rows[y * frequencies + f] * Cosines()[g][y];
            }
            values[g * frequencies + f] = sum;
        }
    }
    auto sorted = values;
    const auto middle = sorted.begin() + sorted.size() / 2;
    std::nth_element(sorted.begin(), middle, sorted.end());
    PictureHash hash = 0;
    for (const float value : values) hash = hash << 1 | (value > *middle ? 1U : 0U);
    return hash;
}

/// What is left of \p whole when the share is cut off at the edge \p cut.
Area CutArea(Area whole, std::size_t cut)
{
    const double x = (whole.right - whole.left) * cutShare;
    const double y = (whole.bottom - whole.top) * cutShare;
    const std::array<Area, 4> areas = {{{whole.left + x, whole.top, whole.right, whole.bottom},
                                        {whole.left, whole.top, whole.right - x, whole.bottom},
                                        {whole.left, whole.top + y, whole.right, whole.bottom},
                                        {whole.left, whole.top, whole.right, whole.bottom - y}}};
    return areas[cut];
}

struct Difference
{
    double mean = 0;
    double most = 0;
};

template <class Left, class Right>
Difference DifferenceOf(const Left& left, const Right& right)
{
    Difference difference;
    for (std::size_t i = 0; i < left.size(); ++i) {
        const double apart = std::abs(static_cast<double>(left[i]) - static_cast<double>(right[i]));
        difference.mean += apart;
        difference.most = std::max(difference.most, apart);
    }
    difference.mean /= static_cast<double>(left.size());
    return difference;
}

/// What re-encoding and scaling leave of the differences between cells.
constexpr double mostMean = 1.5;
constexpr double mostCell = 9;
constexpr int comparisonSide = 96;
constexpr double mostCut = 0.055;
constexpr double partsOfLevel = 256;

int CellsOfSide(double side, double longer)
{
    return std::max(1, static_cast<int>(std::lround(comparisonSide * side / longer)));
}

bool IsSame(const AreaSums& left, const Area& leftArea, const AreaSums& right,
            const Area& rightArea)
{
    const double width = leftArea.right - leftArea.left;
    const double height = leftArea.bottom - leftArea.top;
    const int columns = CellsOfSide(width, std::max(width, height));
    const int rows = CellsOfSide(height, std::max(width, height));
    const Difference difference = DifferenceOf(left.Reduced(leftArea, columns, rows),
                                               right.Reduced(rightArea, columns, rows));
    return difference.mean <= mostMean && difference.most <= mostCell;
}

/// How much of \p whole is missing in \p part, a side each, when a pixel of the part is as large as
/// \p scale of the whole.
struct Cut
{
    double x;
    double y;
};

Cut CutBetween(PictureSize whole, PictureSize part, double scale)
{
    return {whole.width - part.width * scale, whole.height - part.height * scale};
}

bool IsSlight(PictureSize whole, Cut cut)
{
    const bool isCut = cut.x >= 1 || cut.y >= 1;
    return isCut && cut.x > -1 && cut.y > -1 && cut.x <= mostCut * whole.width &&
           cut.y <= mostCut * whole.height;
}

/// The scales that the sizes of two pictures leave open: none, that of the widths, that of the
/// heights.
std::array<double, 3> ScalesBetween(PictureSize whole, PictureSize part)
{
    return {1, static_cast<double>(whole.width) / part.width,
            static_cast<double>(whole.height) / part.height};
}

bool MayBeCutOf(PictureSize whole, PictureSize part)
{
    const auto scales = ScalesBetween(whole, part);
    return std::any_of(scales.begin(), scales.end(), [&](double scale) {
        return IsSlight(whole, CutBetween(whole, part, scale));
    });
}

/// The shares of a cut that can have been made on the first of two sides.
std::span<const double> SharesOf(double cut)
{
    static constexpr std::array shares = {0.0, 1.0, 0.5};
    return std::span(shares).first(cut < 1 ? 1 : shares.size());
}

PictureSize SizeOf(const GreyPicture& picture)
{
    return {picture.width, picture.height};
}

bool IsCutOf(const GreyPicture& whole, const AreaSums& wholeSums, const GreyPicture& part,
             const AreaSums& partSums)
{
    const Area all = wholeSums.Whole();
    for (const double scale : ScalesBetween(SizeOf(whole), SizeOf(part))) {
        const Cut cut = CutBetween(SizeOf(whole), SizeOf(part), scale);
        if (!IsSlight(SizeOf(whole), cut)) continue;
        for (const double shareX : SharesOf(cut.x)) {
            for (const double shareY : SharesOf(cut.y)) {
                const double left = std::max(0.0, cut.x * shareX);
                const double top = std::max(0.0, cut.y * shareY);
                const Area area = {left, top, std::min(all.right, left + part.width * scale),
                                   std::min(all.bottom, top + part.height * scale)};
                if (IsSame(wholeSums, area, partSums, partSums.Whole())) return true;
            }
        }
    }
    return false;
}
} // namespace

PictureMarks MarksOf(const GreyPicture& picture, PictureSize size)
{
    const AreaSums sums(picture);
    constexpr double reduction = 8;
    Area whole = sums.Whole();
    whole.right = std::min(whole.right, size.width / reduction);
    whole.bottom = std::min(whole.bottom, size.height / reduction);
    PictureMarks marks;
    marks.hashes.whole = HashOf(sums.Reduced(whole, hashSide, hashSide));
    for (std::size_t cut = 0; cut < marks.hashes.cut.size(); ++cut) {
        marks.hashes.cut[cut] = HashOf(sums.Reduced(CutArea(whole, cut), hashSide, hashSide));
    }
    const std::vector<float> cells = sums.Reduced(whole, signatureSide, signatureSide);
    std::transform(cells.begin(), cells.end(), marks.signature.begin(),
                   [](float cell) { return static_cast<unsigned char>(std::lround(cell)); });
    return marks;
}

int BitsApart(PictureHash left, PictureHash right)
{
    return std::popcount(left ^ right);
}

bool MayBeSame(const PictureSignature& whole, const PictureSignature& part, int cut)
{
    // Signatures are of pictures reduced by an eighth, which scaling changes more than the pixels.
    constexpr double mostMeanOfWhole = 4;
    constexpr double mostCellOfWhole = 40;
    if (cut < 0) {
        const Difference difference = DifferenceOf(whole, part);
        return difference.mean <= mostMeanOfWhole && difference.most <= mostCellOfWhole;
    }
    // They are too small to be cut exactly: what is near enough is looked at again.
    constexpr double mostMeanOfCut = 6;
    const GreyPicture small{signatureSide, signatureSide, {whole.begin(), whole.end()}};
    const AreaSums sums(small);
    const Area area = CutArea(sums.Whole(), static_cast<std::size_t>(cut));
    return DifferenceOf(sums.Reduced(area, signatureSide, signatureSide), part).mean <=
           mostMeanOfCut;
}

bool MustBeSame(const PictureSignature& left, const PictureSignature& right)
{
    constexpr double mostMeanEncodedAnew = 0.6;
    constexpr double mostCellEncodedAnew = 4;
    const Difference difference = DifferenceOf(left, right);
    return difference.mean <= mostMeanEncodedAnew && difference.most <= mostCellEncodedAnew;
}

PictureCells CellsOf(const GreyPicture& picture)
{
    const double longer = std::max(picture.width, picture.height);
    const AreaSums sums(picture);
    const std::vector<float> means = sums.Reduced(sums.Whole(), CellsOfSide(picture.width, longer),
                                                  CellsOfSide(picture.height, longer));
    PictureCells cells(means.size());
    std::transform(means.begin(), means.end(), cells.begin(), [](float mean) {
        return static_cast<std::uint16_t>(std::lround(mean * partsOfLevel));
    });
    return cells;
}

bool AreSame(const PictureCells& left, const PictureCells& right)
{
    if (left.empty() || left.size() != right.size()) return false;
    const Difference difference = DifferenceOf(left, right);
    return difference.mean <= mostMean * partsOfLevel && difference.most <= mostCell * partsOfLevel;
}

bool HaveOneShape(PictureSize left, PictureSize right)
{
    constexpr double slack = 0.006;
    if (left.height == 0 || right.width == 0) return false;
    const double ratio = static_cast<double>(left.width) * right.height /
                         (static_cast<double>(left.height) * right.width);
    return std::abs(ratio - 1) < slack;
}

bool MayBeCut(PictureSize left, PictureSize right)
{
    const bool haveSizes = left.width > 0 && right.width > 0;
    return haveSizes && (MayBeCutOf(left, right) || MayBeCutOf(right, left));
}

bool IsOneCut(const GreyPicture& left, const GreyPicture& right)
{
    if (left.pixels.empty() || right.pixels.empty()) return false;
    const AreaSums leftSums(left);
    const AreaSums rightSums(right);
    return IsCutOf(left, leftSums, right, rightSums) || IsCutOf(right, rightSums, left, leftSums);
}
