#include "sample/SampleSite.h"

#include "sample/SampleFigures.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <span>

namespace
{
using namespace SampleFigures;
using enum SampleSubject;

struct Weather
{
    QRgb zenith;
    QRgb horizon;
    QRgb cloud;
    int clouds;
    /// The light that lies over all, with its opacity.
    QRgb light;
};

constexpr Weather weathers[] = {
    {0xFF4F8FD0, 0xFFCFE3F0, 0xB0FFFFFF, 26, 0x0CFFF2D0}, // fine
    {0xFF7FA9CF, 0xFFE2E9EA, 0xA0FFFFFF, 44, 0x10FFFFFF}, // hazy
    {0xFFA9B4BD, 0xFFDFE2E2, 0x80B4BAC0, 54, 0x1A8896A4}, // overcast
    {0xFF6C93BE, 0xFFF2DCB8, 0x90FFF0DC, 30, 0x1CF0B060}, // late in the day
};

/// A strip of ground between two lines that run to the vanishing point. The lines are told by where
/// they meet the lower edge, in picture widths beside the axis.
struct Strip
{
    double left;
    double right;
    QRgb color;
    /// The size of the grains; 0: smooth.
    double grain;
};

/// What rises over the ground beside the strips.
enum class Structure
{
    None,
    Slope,
    Piers,
    Wall
};

struct Setting
{
    /// A part of 工種 or 細別.
    std::string_view word;
    std::span<const Strip> strips;
    Structure structure;
};

constexpr Strip gravelRoad[] = {{-40, 40, 0xFF707A4E, 1},
                                {-0.72, 0.74, 0xFF968C7A, 0.9},
                                {-0.52, 0.52, 0xFF928A7E, 1.2},
                                {0.54, 0.6, 0xFFB4B2AC, 0}};
constexpr Strip asphaltRoad[] = {{-40, 40, 0xFF707A4E, 1},       {-0.72, 0.74, 0xFF968C7A, 0.9},
                                 {-0.52, 0.52, 0xFF4A4C50, 0.5}, {-0.49, -0.47, 0xFFE4E4DE, 0},
                                 {-0.01, 0.01, 0xFFE4E4DE, 0},   {0.47, 0.49, 0xFFE4E4DE, 0},
                                 {0.52, 0.54, 0xFF5C5A56, 0},    {0.54, 0.6, 0xFFB4B2AC, 0}};
constexpr Strip riverside[] = {
    {-40, 40, 0xFF8E7454, 1.3}, {0.64, 40, 0xFF6A8E9C, 0}, {-0.2, 0.56, 0xFF9E8462, 1.2}};
constexpr Strip excavation[] = {{-40, 40, 0xFF8C7A62, 1.4}, {-0.5, 0.34, 0xFF9C8A70, 1.6}};
constexpr Strip gutter[] = {{-40, 40, 0xFF967C5C, 1.5},   {-0.34, 0.34, 0xFF6E563E, 1.2},
                            {-0.2, -0.14, 0xFFBEBCB6, 0}, {-0.14, -0.07, 0xFF7E7C78, 0},
                            {-0.07, 0.07, 0xFF5E5C58, 0}, {0.07, 0.14, 0xFF989690, 0},
                            {0.14, 0.2, 0xFFB0AEA8, 0}};
constexpr Strip field[] = {{-40, 40, 0xFF768050, 1.2}, {-0.4, 0.5, 0xFF9E8C70, 1.2}};

/// The first that fits is taken; the last fits all.
constexpr Setting settings[] = {
    {"路盤", gravelRoad, Structure::None},    {"舗装", asphaltRoad, Structure::None},
    {"区画線", asphaltRoad, Structure::None}, {"防護柵", asphaltRoad, Structure::None},
    {"縁石", gravelRoad, Structure::None},    {"土工", riverside, Structure::Slope},
    {"護岸", riverside, Structure::Slope},    {"法面", riverside, Structure::Slope},
    {"橋", excavation, Structure::Piers},     {"擁壁", excavation, Structure::Wall},
    {"撤去", excavation, Structure::Wall},    {"排水", gutter, Structure::None},
    {"仮設", gutter, Structure::None},        {"", field, Structure::None},
};

/// A figure of a subject: how far beside the axis on the side away from the blackboard, how near
/// (0: the horizon, 1: the lower edge) and how tall in picture heights if it stood at the lower
/// edge.
struct Prop
{
    SampleSubject subject;
    void (*paint)(QPainter&, const FigurePlace&, SampleRandom&);
    double across;
    double nearness;
    double tall;
};

/// Farther ones first, as they hide each other.
constexpr Prop props[] = {
    {BeforeAfter, PaintPole, 0.36, 0.18, 0.62},  {BeforeAfter, PaintPole, 0.36, 0.38, 0.62},
    {BeforeAfter, PaintCone, 0.5, 0.3, 0.2},     {BeforeAfter, PaintCone, 0.5, 0.44, 0.2},
    {Progress, PaintExcavator, 0.2, 0.38, 0.62}, {Progress, PaintWorker, 0.0, 0.46, 0.6},
    {Progress, PaintWorker, 0.42, 0.54, 0.6},    {Safety, PaintSafetySign, 0.16, 0.36, 1.15},
    {Safety, PaintWorker, -0.24, 0.42, 0.58},    {Safety, PaintWorker, -0.04, 0.42, 0.58},
    {Safety, PaintWorker, 0.16, 0.43, 0.58},     {Safety, PaintWorker, 0.36, 0.43, 0.58},
    {Safety, PaintWorker, 0.05, 0.49, 0.58},     {Safety, PaintWorker, 0.25, 0.49, 0.58},
    {Safety, PaintCone, 0.3, 0.72, 0.24},        {Safety, PaintCone, 0.5, 0.72, 0.24},
    {Material, PaintWorker, 0.66, 0.56, 0.62},   {Material, PaintPipes, 0.24, 0.62, 0.46},
    {Material, PaintTape, 0.3, 0.74, 0.7},       {Quality, PaintWorker, 0.42, 0.5, 0.62},
    {Quality, PaintSlumpTest, 0.26, 0.78, 0.32}, {Dimension, PaintWorker, 0.36, 0.5, 0.62},
    {Dimension, PaintTape, 0.26, 0.68, 0.9},     {Dimension, PaintStaff, 0.24, 0.68, 1.05},
    {Dimension, PaintPole, 0.5, 0.68, 0.9},      {Disaster, PaintSoilHeap, 0.3, 0.5, 0.6},
    {Disaster, PaintPole, 0.2, 0.66, 0.7},       {Disaster, PaintBarrier, 0.06, 0.7, 0.2},
    {Disaster, PaintBarrier, 0.36, 0.7, 0.2},    {Accident, PaintExcavator, 0.24, 0.4, 0.62},
    {Accident, PaintWorker, 0.56, 0.56, 0.62},   {Accident, PaintBarrier, 0.04, 0.66, 0.22},
    {Accident, PaintBarrier, 0.36, 0.66, 0.22},  {Other, PaintWorker, 0.08, 0.46, 0.6},
    {Other, PaintWorker, 0.22, 0.52, 0.6},       {Other, PaintWorker, 0.44, 0.56, 0.6},
};

/// A tile of dark and light grains, at most \p strength (0 to 255) opaque.
QImage GrainTile(int side, int strength)
{
    QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
    SampleRandom random(0, SamplePart::Grain, strength);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const int light = random.Chance(50) ? 255 : 0;
            tile.setPixelColor(x, y, QColor(light, light, light, random.Below(strength + 1)));
        }
    }
    return tile;
}

/// A soft round spot.
QImage Puff(const QColor& color)
{
    constexpr int radius = 64;
    QImage puff(2 * radius, 2 * radius, QImage::Format_ARGB32_Premultiplied);
    puff.fill(Qt::transparent);
    QRadialGradient gradient(radius, radius, radius);
    gradient.setColorAt(0, color);
    gradient.setColorAt(1, QColor(color.red(), color.green(), color.blue(), 0));
    QPainter(&puff).fillRect(puff.rect(), gradient);
    return puff;
}

class SitePainter
{
public:
    SitePainter(QPainter& target, const SampleScene& theScene, QSizeF size)
        : painter(target), scene(theScene), random(scene.seed, SamplePart::Scenery, scene.number),
          width(size.width()), height(size.height()), horizon(height * random.Between(0.36, 0.44)),
          vanishing(width * random.Between(0.4, 0.62)), weather(random.Pick(weathers)),
          away(random.Chance(55) ? 1 : -1)
    {}

    void Paint(bool withBoard)
    {
        PaintSky();
        PaintHills();
        PaintSetting();
        PaintProps();
        if (withBoard) PaintBlackboard();
        painter.fillRect(QRectF(0, 0, width, height), QColor::fromRgba(weather.light));
    }

private:
    void PaintSky();
    void PaintHills();
    void PaintSetting();
    void PaintStrip(const Strip& strip);
    void PaintSlope();
    void PaintPiers();
    void PaintPier(QPointF foot, double unit);
    void PaintWall();
    void PaintProps();
    void PaintBlackboard();

    /// The place on the ground that stands so far across, as Strip and Prop tell it, or \p up
    /// picture heights over it.
    QPointF At(double across, double nearness, double up = 0) const
    {
        return {vanishing + across * width * nearness,
                horizon + (height - horizon) * nearness - up * height * nearness};
    }
    void Fill(const QPolygonF& shape, const QColor& top, const QColor& bottom);

    QPainter& painter;
    const SampleScene& scene;
    SampleRandom random;
    double width;
    double height;
    double horizon;
    double vanishing;
    const Weather& weather;
    /// The side away from the blackboard: 1 right, -1 left.
    double away;
};

void SitePainter::PaintSky()
{
    QLinearGradient sky(0, 0, 0, horizon);
    sky.setColorAt(0, QColor(weather.zenith));
    sky.setColorAt(1, QColor(weather.horizon));
    painter.fillRect(QRectF(0, 0, width, height), sky);
    const QImage puff = Puff(QColor::fromRgba(weather.cloud));
    QPointF bank;
    for (int cloud = 0; cloud < weather.clouds; ++cloud) {
        if (cloud % 7 == 0) bank = {random.Between(0.0, width), random.Between(0.0, horizon * 0.7)};
        const double broad = random.Between(80.0, 300.0);
        const double shift = random.Between(-220.0, 220.0);
        const QPointF place = bank + QPointF(shift, random.Between(-26.0, 26.0));
        painter.drawImage(QRectF(place, QSizeF(broad, broad * 0.4)), puff);
    }
}

void SitePainter::PaintHills()
{
    constexpr QRgb colors[] = {0xFF93A9B8, 0xFF6F8C86, 0xFF4D6B4C};
    double rise = horizon * 0.36;
    for (const QRgb color : colors) {
        const double phase = random.Between(0.0, 6.0);
        QPolygonF ridge{{width + 20, horizon + 20}, {-20, horizon + 20}};
        for (int x = -20; x <= width + 20; x += 12) {
            const double wave =
                std::sin(x / 270.0 + phase) * 0.4 + std::sin(x / 96.0 + phase * 3) * 0.14;
            ridge << QPointF(x, horizon - rise * (0.55 + wave) - random.Between(0.0, 4.0));
        }
        Fill(ridge, QColor(color), QColor(color).lighter(120));
        rise *= 0.5;
    }
    double x = -10;
    while (x < width) {
        const double size = random.Between(10.0, 34.0);
        painter.setBrush(QColor(62, 92, 52).darker(random.Between(85, 150)));
        painter.drawEllipse(QPointF(x, horizon + 4 - size * 0.3), size, size * 0.8);
        x += random.Between(12.0, 40.0);
    }
}

void SitePainter::PaintSetting()
{
    const auto* setting = std::ranges::find_if(settings, [this](const Setting& candidate) {
        return scene.workType.find(candidate.word) != CString::npos;
    });
    for (const Strip& strip : setting->strips) PaintStrip(strip);
    switch (setting->structure) {
    case Structure::None:
        break;
    case Structure::Slope:
        PaintSlope();
        break;
    case Structure::Piers:
        PaintPiers();
        break;
    case Structure::Wall:
        PaintWall();
        break;
    }
}

void SitePainter::Fill(const QPolygonF& shape, const QColor& top, const QColor& bottom)
{
    const QRectF bounds = shape.boundingRect();
    QLinearGradient gradient(bounds.topLeft(), bounds.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawPolygon(shape);
}

void SitePainter::PaintStrip(const Strip& strip)
{
    static const QImage tile = GrainTile(256, 90);
    const auto between = [&](double far, double near) {
        return QPolygonF{At(strip.left, far), At(strip.right, far), At(strip.right, near),
                         At(strip.left, near)};
    };
    Fill(between(0, 1), QColor(strip.color).lighter(122), QColor(strip.color));
    if (strip.grain == 0) return;
    // Nearer bands of the ground have larger grains.
    constexpr double bands[] = {0.02, 0.1, 0.22, 0.42, 0.68, 1};
    for (std::size_t band = 1; band < std::size(bands); ++band) {
        const double near = bands[band];
        QBrush brush(tile);
        brush.setTransform(QTransform::fromScale(strip.grain * near * 3.4, strip.grain * near * 2));
        painter.setBrush(brush);
        painter.setOpacity(0.25 + 0.5 * near);
        painter.drawPolygon(between(bands[band - 1], near));
    }
    painter.setOpacity(1);
}

/// An embankment along the left side, with grass on it.
void SitePainter::PaintSlope()
{
    constexpr double crest = 0.5;
    const QColor grass = random.Chance(50) ? QColor(98, 124, 62) : QColor(150, 120, 86);
    Fill({At(-0.2, 0), At(-0.55, 1, crest), At(-3, 1, crest), At(-3, 1), At(-0.2, 1)},
         grass.lighter(130), grass);
    painter.setPen(QPen(grass.darker(130), 1.5));
    for (int tuft = 0; tuft < 600; ++tuft) {
        const double near = random.Between(0.06, 1.0);
        const double up = random.Between(0.02, 0.98);
        const double across = -0.2 - 0.35 * up - random.Between(0.0, 0.5) * (1 - up);
        const QPointF foot = At(across, near, crest * up * 0.95);
        painter.drawLine(foot, foot + QPointF(random.Between(-4.0, 4.0), -14 * near));
    }
}

void SitePainter::PaintPiers()
{
    for (const double near : {0.2, 0.46}) PaintPier(At(away * 0.08, near), height * near);
}

/// A bridge pier with its scaffold, \p unit being a picture height at its distance.
void SitePainter::PaintPier(QPointF foot, double unit)
{
    const QColor concrete(176, 174, 166);
    const QRectF shaft(foot.x() - unit * 0.2, foot.y() - unit * 1.1, unit * 0.4, unit * 1.1);
    QLinearGradient round(shaft.topLeft(), shaft.topRight());
    round.setColorAt(0, concrete.lighter(112));
    round.setColorAt(1, concrete.darker(145));
    const QRectF beam(foot.x() - unit * 0.62, shaft.top() - unit * 0.2, unit * 1.24, unit * 0.22);
    painter.fillRect(shaft, round);
    painter.fillRect(beam, round);
    painter.setPen(QPen(QColor(120, 74, 52), std::max(1.0, unit * 0.008)));
    for (int bar = 0; bar < 22; ++bar) {
        const double x = beam.left() + unit * (0.03 + 0.056 * bar);
        painter.drawLine(QPointF(x, beam.top()), QPointF(x, beam.top() - unit * 0.14));
    }
    painter.setPen(QPen(QColor(146, 150, 154), std::max(1.0, unit * 0.01)));
    for (int line = -4; line <= 4; ++line) {
        const double x = foot.x() + unit * 0.085 * line;
        const double y = foot.y() - unit * 0.12 * (line + 5);
        painter.drawLine(QPointF(x, foot.y()), QPointF(x, shaft.top()));
        painter.drawLine(QPointF(foot.x() - unit * 0.36, y), QPointF(foot.x() + unit * 0.36, y));
    }
}

/// A retaining wall of panels on the side away from the blackboard.
void SitePainter::PaintWall()
{
    constexpr double top = 0.62;
    const double foot = away * 0.34;
    const QColor concrete(184, 182, 174);
    Fill({At(foot, 0.05, top), At(foot, 1, top), At(away * 3, 1, top), At(away * 3, 0.05, top)},
         QColor(92, 116, 66), QColor(112, 132, 74));
    Fill({At(foot, 0.05), At(foot, 0.05, top), At(foot, 1, top), At(foot, 1)},
         concrete.lighter(108), concrete.darker(112));
    double near = 0.08;
    while (near < 1) {
        painter.setPen(QPen(concrete.darker(160), 1 + 2.4 * near));
        painter.drawLine(At(foot, near), At(foot, near, top));
        painter.setBrush(QColor(60, 58, 56));
        painter.drawEllipse(At(foot, near * 1.14, 0.2), 7 * near, 9 * near);
        near *= 1.32;
    }
}

void SitePainter::PaintProps()
{
    for (const Prop& prop : props) {
        if (prop.subject != scene.subject) continue;
        const double across = away * prop.across + random.Between(-0.03, 0.03);
        const FigurePlace place{At(across, prop.nearness), prop.tall * height * prop.nearness};
        const bool rolled = prop.paint == PaintExcavator && scene.workType.starts_with("舗装");
        (rolled ? PaintRoller : prop.paint)(painter, place, random);
    }
}

/// The board stands on two legs near the lower edge, a little askew.
void SitePainter::PaintBlackboard()
{
    const double broad = std::min(width * 0.6, random.Between(600.0, 720.0));
    const double high = broad * 0.75;
    const double left = away > 0 ? width * 0.04 : width * 0.96 - broad;
    const double top = height * random.Between(0.93, 0.97) - high - 60;
    painter.save();
    painter.translate(left, top);
    painter.rotate(random.Between(-1.6, 1.6));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 70));
    painter.drawPolygon(QPolygonF{
        {10, high + 44}, {broad + 50, high + 30}, {broad + 70, high + 54}, {30, high + 70}});
    for (const double x : {broad * 0.12, broad * 0.85}) {
        painter.fillRect(QRectF(x, high - 4, 20, 62), QColor(150, 118, 78));
    }
    painter.drawImage(QRectF(0, 0, broad, high), PaintBoard(scene, static_cast<int>(broad)));
    painter.restore();
}
} // namespace

QImage PaintSite(const SampleScene& scene, QSize size, bool withBoard)
{
    static const QImage filmGrain = GrainTile(512, 26);
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    // All is laid out for pictures whose longer side is 1600.
    const double scale = std::max(size.width(), size.height()) / 1600.0;
    painter.scale(scale, scale);
    SitePainter(painter, scene, QSizeF(size) / scale).Paint(withBoard);
    painter.resetTransform();
    painter.fillRect(image.rect(), QBrush(filmGrain));
    return image;
}
