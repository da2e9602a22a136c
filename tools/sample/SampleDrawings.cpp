#include "sample/SampleDrawings.h"

#include "sample/SampleBoard.h"
#include "sample/SampleRandom.h"

#include <QPainter>

#include <cmath>

namespace
{
/// The sheet's units: an A3 sheet is 1587 x 1122 of them.
constexpr QSizeF sheetSize(1587, 1122);
const QColor ink(20, 20, 24);

QPen Pen(double width, Qt::PenStyle style = Qt::SolidLine)
{
    return QPen(ink, width, style);
}

void PaintLabel(QPainter& painter, QPointF middle, const QString& text, double height = 20)
{
    DrawFitted(painter, QRectF(middle - QPointF(150, 20), QSizeF(300, 40)), text, height, ink);
}

/// A dimension line with its two ends and the figure over it.
void PaintDimension(QPainter& painter, double from, double to, double y, const QString& text)
{
    painter.setPen(Pen(1.2));
    painter.drawLine(QPointF(from, y), QPointF(to, y));
    for (const double x : {from, to}) {
        painter.drawLine(QPointF(x, y - 14), QPointF(x, y + 14));
        painter.drawLine(QPointF(x - 6, y + 6), QPointF(x + 6, y - 6));
    }
    const QPointF middle((from + to) / 2, y - 17);
    painter.fillRect(QRectF(middle - QPointF(50, 12), QSizeF(100, 22)), Qt::white);
    PaintLabel(painter, middle, text);
}

void PaintTitleBlock(QPainter& painter, const DrawingSheet& sheet)
{
    const std::pair<QString, QString> rows[] = {
        {"工事名", sheet.workName},
        {"図面名", sheet.title},
        {"縮 尺", "1:100"},
        {"図面番号", QString("%1 / 24").arg(sheet.number % 24 + 1)},
        {"会社名", sheet.contractor}};
    QRectF label(sheetSize.width() - 500, sheetSize.height() - 240, 110, 40);
    for (const auto& [name, value] : rows) {
        const QRectF text(label.right(), label.top(), 350, 40);
        painter.setPen(Pen(1.6));
        painter.setBrush(Qt::white);
        painter.drawRects(QList<QRectF>{label, text});
        DrawFitted(painter, label.adjusted(4, 2, -4, -2), name, 20, ink);
        DrawFitted(painter, text.adjusted(8, 2, -8, -2), value, 20, ink,
                   Qt::AlignLeft | Qt::AlignVCenter);
        label.translate(0, 40);
    }
}

/// The layers of a pavement with their notes on the right.
void PaintLayers(QPainter& painter, double middle, double half, double top)
{
    constexpr std::pair<double, const char*> layers[] = {
        {22, "表層 t=50"}, {30, "基層 t=50"}, {44, "上層路盤 t=150"}, {64, "下層路盤 t=400"}};
    const double noteLeft = middle + half + 130;
    double y = top;
    double noteY = top - 90;
    for (const auto& [thickness, name] : layers) {
        const QRectF layer(middle - half, y, 2 * half, thickness);
        painter.setPen(Pen(2));
        painter.setBrush(QBrush(ink, thickness > 40 ? Qt::BDiagPattern : Qt::NoBrush));
        painter.drawRect(layer);
        painter.setPen(Pen(1));
        painter.drawPolyline(QPolygonF{
            {layer.right() - 30, layer.center().y()}, {noteLeft, noteY}, {noteLeft + 170, noteY}});
        PaintLabel(painter, {noteLeft + 85, noteY - 14}, name);
        y += thickness;
        noteY += 36;
    }
}

/// A road on its fill: pavement, slopes, the natural ground, dimensions.
void PaintCrossSection(QPainter& painter, SampleRandom& random)
{
    constexpr double middle = 620;
    constexpr double top = 440;
    constexpr double toe = 740;
    const int lane = random.Between(5, 7) * 500;
    const double half = lane * 0.08;
    PaintLayers(painter, middle, half, top);
    painter.setPen(Pen(2.6));
    for (const double side : {-1.0, 1.0}) {
        const double edge = middle + side * (half + 50);
        painter.drawPolyline(QPolygonF{
            {middle + side * half, top}, {edge, top}, {edge + side * (toe - top) * 0.75, toe}});
    }
    QPolygonF ground;
    for (int x = 90; x < 1300; x += 20) {
        ground << QPointF(x, toe + 12 * std::sin(x / 130.0) + random.Between(-3.0, 3.0));
    }
    painter.setPen(Pen(1.8, Qt::DashLine));
    painter.drawPolyline(ground);
    painter.setPen(Pen(1.6, Qt::DashDotLine));
    painter.drawLine(QPointF(middle, 190), QPointF(middle, 830));
    PaintLabel(painter, {middle - half - 190, 560}, "1:1.5", 24);
    PaintLabel(painter, {middle, 170}, "CL", 28);
    PaintLabel(painter, {middle + 90, 214},
               QString("FH=%1").arg(random.Between(9.0, 14.0), 0, 'f', 3), 22);
    PaintDimension(painter, middle - half, middle, 350, QString::number(lane));
    PaintDimension(painter, middle, middle + half, 350, QString::number(lane));
    PaintDimension(painter, middle - half, middle + half, 280, QString("W = %1").arg(2 * lane));
    PaintLabel(painter, {middle, 900}, QString("No.%1").arg(random.Between(1, 20)), 34);
}

void PaintNorth(QPainter& painter, QPointF middle)
{
    painter.setPen(Pen(2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(middle, 52, 52);
    painter.setBrush(ink);
    painter.drawPolygon(
        QPolygonF{middle - QPointF(0, 70), middle + QPointF(-18, 20), middle + QPointF(0, 4)});
    PaintLabel(painter, middle - QPointF(0, 90), "N", 30);
}

/// A road that winds over contour lines, with its stations.
void PaintPlan(QPainter& painter, SampleRandom& random)
{
    const double bend = random.Between(60.0, 130.0);
    const double phase = random.Between(0.0, 6.0);
    const auto axis = [&](double x) { return 500 + bend * std::sin(x / 420 + phase); };
    const auto line = [&](double offset, double wobble) {
        QPolygonF points;
        for (int x = 80; x <= 1510; x += 16) {
            points << QPointF(x, axis(x) + offset + wobble * std::sin(x / 90.0 + offset));
        }
        painter.drawPolyline(points);
    };
    painter.setBrush(Qt::NoBrush);
    painter.setPen(Pen(0.8));
    for (const double offset : {-330.0, -280.0, -215.0, -150.0, 160.0, 235.0, 290.0}) {
        line(offset, 22);
    }
    painter.setPen(Pen(2.4));
    for (const double offset : {-46.0, 46.0}) line(offset, 0);
    painter.setPen(Pen(1));
    for (const double offset : {-62.0, 62.0}) line(offset, 0);
    painter.setPen(Pen(1.4, Qt::DashDotLine));
    line(0, 0);
    for (int station = 0; station < 9; ++station) {
        const QPointF place(140 + station * 160, axis(140 + station * 160));
        painter.setPen(Pen(1.4));
        painter.setBrush(Qt::white);
        painter.drawEllipse(place, 6, 6);
        painter.drawLine(place + QPointF(0, -70), place + QPointF(0, -8));
        PaintLabel(painter, place + QPointF(0, -86), QString("No.%1").arg(station + 4), 22);
    }
    PaintNorth(painter, {1420, 180});
    painter.setPen(Pen(2.4, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(380, 250, 480, 490));
    PaintLabel(painter, {620, 768}, "今回施工範囲 L=60.0m", 26);
}
} // namespace

QImage PaintDrawing(const DrawingSheet& sheet, int width)
{
    const double scale = width / sheetSize.width();
    QImage image(width, static_cast<int>(sheetSize.height() * scale), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    painter.setPen(Pen(3));
    painter.drawRect(QRectF(QPointF(), sheetSize).adjusted(40, 40, -40, -40));
    SampleRandom random(sheet.number, SamplePart::Drawing);
    if (sheet.title.contains("平面") || sheet.title.contains("位置")) {
        PaintPlan(painter, random);
    } else {
        PaintCrossSection(painter, random);
    }
    painter.fillRect(QRectF(60, 60, 280, 60), Qt::white);
    PaintLabel(painter, {200, 90}, sheet.title, 38);
    PaintTitleBlock(painter, sheet);
    return image;
}
