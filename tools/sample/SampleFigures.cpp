#include "sample/SampleFigures.h"

#include "sample/SampleBoard.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace
{
const QColor red(206, 44, 36);
const QColor white(242, 241, 234);
const QColor black(30, 30, 34);
const QColor steel(100, 102, 106);

/// Turns the painter, as long as it lives, to a system in which the figure stands on the origin and
/// is 100 units tall; up is negative.
class FigureSpace
{
public:
    FigureSpace(QPainter& target, const FigurePlace& place) : painter(target)
    {
        painter.save();
        painter.translate(place.foot);
        painter.scale(place.height / 100, place.height / 100);
        painter.setPen(Qt::NoPen);
    }
    ~FigureSpace() { painter.restore(); }
    FigureSpace(const FigureSpace&) = delete;
    FigureSpace& operator=(const FigureSpace&) = delete;

private:
    QPainter& painter;
};

void PaintShadow(QPainter& painter, double width, double shift = 0)
{
    painter.setBrush(QColor(0, 0, 0, 70));
    painter.drawEllipse(QPointF(shift, 0), width, width * 0.16);
}

QLinearGradient Shaded(QPointF from, QPointF to, const QColor& color)
{
    QLinearGradient gradient(from, to);
    gradient.setColorAt(0, color.lighter(118));
    gradient.setColorAt(0.5, color);
    gradient.setColorAt(1, color.darker(150));
    return gradient;
}

void PaintTracks(QPainter& painter, double width)
{
    painter.setBrush(QColor(38, 38, 40));
    painter.drawRoundedRect(QRectF(-width, -20, 2 * width, 20), 10, 10);
    painter.setBrush(QColor(86, 86, 88));
    const int wheels = static_cast<int>(width / 6) - 1;
    for (int wheel = 0; wheel < wheels; ++wheel) {
        painter.drawEllipse(QPointF(-width + 10 + 12 * wheel, -9), 4.5, 4.5);
    }
}

void PaintCab(QPainter& painter, const QRectF& cab, const QColor& color)
{
    painter.setBrush(color.darker(120));
    painter.drawRoundedRect(cab, 3, 3);
    painter.setBrush(Shaded(cab.topLeft(), cab.bottomRight(), QColor(140, 172, 186)));
    painter.drawRect(cab.adjusted(3, 3, -3, -cab.height() * 0.38));
}
} // namespace

void SampleFigures::PaintWorker(QPainter& painter, const FigurePlace& place, SampleRandom& random)
{
    constexpr QRgb helmets[] = {0xFFF4F4F0, 0xFFF4F4F0, 0xFFEFD037, 0xFF3E7FC4};
    constexpr QRgb jackets[] = {0xFF3B4C66, 0xFF566B5C, 0xFF7C8794, 0xFF2F3A4C};
    const FigureSpace space(painter, place);
    PaintShadow(painter, 20, 6);
    const QColor jacket(random.Pick(jackets));
    const double stride = random.Between(2.0, 7.0);
    painter.setPen(QPen(jacket.darker(135), 10, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(-3, -46), QPointF(-3 - stride, -4));
    painter.drawLine(QPointF(3, -46), QPointF(3 + stride, -4));
    painter.setPen(QPen(jacket, 8, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(-9, -74), QPointF(-14 - stride, -50));
    painter.drawLine(QPointF(9, -74), QPointF(13 + stride, random.Chance(40) ? -82 : -50));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Shaded({-12, -70}, {14, -50}, jacket));
    painter.drawRoundedRect(QRectF(-12, -80, 24, 38), 6, 6);
    painter.setBrush(QColor(242, 134, 38));
    painter.drawRect(QRectF(-11, -78, 6, 30));
    painter.drawRect(QRectF(5, -78, 6, 30));
    painter.setBrush(QColor(236, 240, 180));
    painter.drawRect(QRectF(-12, -60, 24, 4));
    painter.setBrush(QColor(212, 168, 136));
    painter.drawEllipse(QPointF(0, -87), 6.5, 8);
    const QColor helmet(random.Pick(helmets));
    painter.setBrush(Shaded({-8, -100}, {9, -88}, helmet));
    painter.drawChord(QRectF(-9, -100, 18, 21), 0, 180 * 16);
    painter.drawRoundedRect(QRectF(-11, -91, 21, 2.6), 1, 1);
}

void SampleFigures::PaintExcavator(QPainter& painter, const FigurePlace& place,
                                   SampleRandom& random)
{
    constexpr QRgb colors[] = {0xFFE8A51E, 0xFFE2B52A, 0xFF3B8FA6, 0xFFDD6A22};
    const QColor color(random.Pick(colors));
    const FigureSpace space(painter, place);
    if (random.Chance(50)) painter.scale(-1, 1);
    PaintShadow(painter, 74, 14);
    PaintTracks(painter, 44);
    painter.setBrush(Shaded({-40, -48}, {40, -18}, color));
    painter.drawPolygon(QPolygonF{{-50, -22}, {-50, -50}, {-30, -54}, {36, -48}, {36, -22}});
    PaintCab(painter, QRectF(4, -80, 30, 42), color);
    const double lift = random.Between(-14.0, 10.0);
    const QPointF elbow(92, -92 + lift);
    const QPointF wrist(128, -36 + lift);
    painter.setPen(QPen(color.darker(112), 10, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{{34, -40}, {56, -88 + lift}, elbow});
    painter.setPen(QPen(color.darker(125), 8, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(elbow, wrist);
    painter.setPen(QPen(QColor(170, 172, 176), 3));
    painter.drawLine(QPointF(46, -50), QPointF(66, -84 + lift));
    painter.drawLine(QPointF(76, -94 + lift), QPointF(104, -70 + lift));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(70, 62, 54));
    painter.drawPolygon(QPolygonF{wrist + QPointF(6, -4), wrist + QPointF(10, 18),
                                  wrist + QPointF(-14, 30), wrist + QPointF(-22, 16),
                                  wrist + QPointF(-8, 2)});
}

void SampleFigures::PaintRoller(QPainter& painter, const FigurePlace& place, SampleRandom& random)
{
    constexpr QRgb colors[] = {0xFFE0B022, 0xFFD9772A, 0xFF2F7FA0};
    const QColor color(random.Pick(colors));
    const FigureSpace space(painter, place);
    if (random.Chance(50)) painter.scale(-1, 1);
    PaintShadow(painter, 84);
    painter.setBrush(Shaded({-70, -60}, {66, -16}, color));
    painter.drawPolygon(QPolygonF{{-62, -26}, {-62, -52}, {-8, -60}, {60, -52}, {66, -26}});
    painter.setBrush(QColor(62, 64, 66));
    painter.drawRect(QRectF(-30, -100, 62, 6));
    for (const double x : {-26.0, 24.0}) painter.drawRect(QRectF(x, -96, 4, 42));
    for (const double x : {-48.0, 50.0}) {
        painter.setBrush(Shaded({x - 22, -44}, {x + 22, 0}, QColor(148, 150, 152)));
        painter.drawEllipse(QPointF(x, -21), 22, 22);
        painter.setBrush(QColor(70, 72, 74));
        painter.drawEllipse(QPointF(x, -21), 6, 6);
    }
    painter.translate(0, -50);
    PaintWorker(painter, {{0, 0}, 56}, random);
}

void SampleFigures::PaintCone(QPainter& painter, const FigurePlace& place, SampleRandom&)
{
    const FigureSpace space(painter, place);
    PaintShadow(painter, 34, 6);
    painter.setBrush(QColor(60, 40, 36));
    painter.drawRect(QRectF(-30, -6, 60, 6));
    painter.setBrush(Shaded({-20, 0}, {20, 0}, QColor(226, 62, 34)));
    painter.drawPolygon(QPolygonF{{-22, -6}, {-5, -100}, {5, -100}, {22, -6}});
    painter.setBrush(white);
    painter.drawPolygon(QPolygonF{{-17, -34}, {-13, -56}, {13, -56}, {17, -34}});
    painter.drawPolygon(QPolygonF{{-9, -76}, {-7, -90}, {7, -90}, {9, -76}});
}

void SampleFigures::PaintBarrier(QPainter& painter, const FigurePlace& place, SampleRandom&)
{
    const FigureSpace space(painter, place);
    PaintShadow(painter, 76);
    for (const double x : {-58.0, 54.0}) painter.fillRect(QRectF(x, -100, 5, 100), steel);
    for (const double y : {-96.0, -58.0}) {
        const QRectF board(-74, y, 148, 22);
        painter.fillRect(board, QColor(246, 204, 38));
        painter.setClipRect(board);
        painter.setBrush(black);
        for (int stripe = 0; stripe < 6; ++stripe) {
            const double x = -96 + 30 * stripe;
            painter.drawPolygon(QPolygonF{{x, y + 22}, {x + 15, y + 22}, {x + 31, y}, {x + 16, y}});
        }
        painter.setClipping(false);
    }
}

void SampleFigures::PaintPole(QPainter& painter, const FigurePlace& place, SampleRandom&)
{
    const FigureSpace space(painter, place);
    for (int band = 0; band < 10; ++band) {
        painter.fillRect(QRectF(-0.9, -10.0 * (band + 1), 1.8, 10), band % 2 == 0 ? red : white);
    }
}

void SampleFigures::PaintStaff(QPainter& painter, const FigurePlace& place, SampleRandom&)
{
    const FigureSpace space(painter, place);
    PaintShadow(painter, 8, 2);
    painter.fillRect(QRectF(-3, -100, 6, 100), white);
    painter.setFont(SampleFont(3));
    painter.setPen(black);
    for (int mark = 0; mark < 50; ++mark) {
        const bool isNumbered = mark % 5 == 4;
        const QRectF line(-3, -2.0 * (mark + 1), isNumbered ? 3.4 : 2.2, 1);
        painter.fillRect(line, mark / 5 % 2 == 0 ? red : black);
        if (!isNumbered) continue;
        painter.drawText(QRectF(0.2, line.top() - 1.4, 2.8, 4), Qt::AlignCenter,
                         QString::number(mark / 5 + 1));
    }
}

void SampleFigures::PaintTape(QPainter& painter, const FigurePlace& place, SampleRandom&)
{
    const FigureSpace space(painter, place);
    painter.fillRect(QRectF(-50, 1, 100, 4), QColor(0, 0, 0, 60));
    painter.setFont(SampleFont(2));
    for (int mark = 0; mark < 12; ++mark) {
        const bool isRed = mark % 2 == 0;
        const QRectF cell(-50 + mark * 100 / 12.0, 0, 100 / 12.0, 3);
        painter.fillRect(cell, isRed ? red : white);
        painter.setPen(isRed ? white : black);
        painter.drawText(cell, Qt::AlignCenter, QString::number(mark * 10));
    }
}

void SampleFigures::PaintPipes(QPainter& painter, const FigurePlace& place, SampleRandom& random)
{
    constexpr QRgb colors[] = {0xFFB4B2AA, 0xFF8F9AA2, 0xFF7A6A5A};
    const QColor color(random.Pick(colors));
    const FigureSpace space(painter, place);
    PaintShadow(painter, 150, 30);
    painter.setBrush(QColor(120, 88, 54));
    for (const double x : {-110.0, 110.0}) painter.drawRect(QRectF(x, -8, 34, 8));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 6 - row; ++column) {
            const QPointF center(-112 + column * 40 + row * 20, -27 - row * 33);
            painter.setPen(QPen(color.darker(170), 1.5));
            painter.setBrush(Shaded(center - QPointF(16, 16), center + QPointF(16, 16), color));
            painter.drawPolygon(QPolygonF{center + QPointF(-4, -19), center + QPointF(46, -31),
                                          center + QPointF(64, 4), center + QPointF(8, 18)});
            painter.drawEllipse(center, 19, 19);
            painter.setBrush(QColor(36, 34, 32));
            painter.drawEllipse(center, 13, 13);
        }
    }
}

void SampleFigures::PaintSlumpTest(QPainter& painter, const FigurePlace& place,
                                   SampleRandom& random)
{
    const FigureSpace space(painter, place);
    painter.setBrush(Shaded({-140, -40}, {140, 0}, QColor(150, 154, 158)));
    painter.drawPolygon(QPolygonF{{-140, 0}, {-100, -42}, {140, -42}, {150, 0}});
    QPainterPath concrete(QPointF(-92, -14));
    concrete.cubicTo(-80, -74, -58, -78, -36, -76);
    concrete.cubicTo(-4, -80, 8, -44, 16, -14);
    concrete.cubicTo(-20, 2, -70, 2, -92, -14);
    painter.setBrush(Shaded({-70, -60}, {30, -10}, QColor(142, 140, 132)));
    painter.drawPath(concrete);
    painter.setBrush(Shaded({46, -60}, {110, -30}, QColor(176, 180, 184)));
    painter.drawPolygon(QPolygonF{{44, -10}, {62, -96}, {92, -96}, {110, -10}});
    painter.setBrush(QColor(70, 72, 74));
    painter.drawEllipse(QRectF(62, -100, 30, 9));
    PaintStaff(painter, {{-36, -12}, 92}, random);
}

void SampleFigures::PaintSafetySign(QPainter& painter, const FigurePlace& place, SampleRandom&)
{
    const FigureSpace space(painter, place);
    const QRectF board(-92, -100, 184, 40);
    const QColor green(24, 130, 74);
    for (const double x : {-80.0, 76.0}) painter.fillRect(QRectF(x, -60, 4, 60), steel);
    painter.fillRect(board, white);
    painter.fillRect(QRectF(-76, -94, 10, 28), green);
    painter.fillRect(QRectF(-85, -85, 28, 10), green);
    DrawFitted(painter, board.adjusted(40, 3, -4, -3), "安全第一", 32, green);
}

void SampleFigures::PaintSoilHeap(QPainter& painter, const FigurePlace& place, SampleRandom& random)
{
    const FigureSpace space(painter, place);
    PaintShadow(painter, 190, 20);
    for (int lump = 0; lump < 160; ++lump) {
        const double along = random.Between(-1.0, 1.0);
        const double top = 90 * (1 - along * along);
        const double size = random.Between(8.0, 26.0);
        const QPointF center(along * 170, -random.Between(0.0, top));
        QColor soil(134, 104, 72);
        soil = soil.lighter(random.Between(70, 120));
        painter.setBrush(Shaded(center - QPointF(size, size), center + QPointF(size, size), soil));
        painter.drawEllipse(center, size, size * 0.66);
    }
}
