#include "sample/SampleBoard.h"

#include <QPainter>

#include <vector>

namespace
{
/// A row of the board's table: label and text.
struct BoardRow
{
    QString label;
    QString text;
    double height;
};

constexpr double boardWidth = 800;
constexpr double boardHeight = 600;
constexpr double frame = 16;
const QColor chalk(238, 242, 236);

std::vector<BoardRow> RowsOf(const SampleScene& scene)
{
    const auto text = [](const CString& value) { return QString::fromStdString(value); };
    std::vector<BoardRow> rows = {{"工 事 名", text(scene.workName), 100},
                                  {"工  種", text(scene.workType), 84},
                                  {"測  点", text(scene.place), 74},
                                  {"設 計 値", text(scene.design), 74},
                                  {"実 測 値", text(scene.measured), 74}};
    std::erase_if(rows, [](const BoardRow& row) { return row.text.isEmpty(); });
    return rows;
}

/// Sets the font of \p size and tells whether \p text has room in \p area with it.
bool Fits(QPainter& painter, const QRectF& area, const QString& text, int flags, double size)
{
    painter.setFont(SampleFont(size));
    const QRectF needed = painter.boundingRect(area, flags, text);
    return needed.width() <= area.width() && needed.height() <= area.height();
}

/// The little cross section that is drawn by hand under the figures.
void PaintSketch(QPainter& painter, const QRectF& area, const SampleScene& scene)
{
    const double left = area.left() + 60;
    const double right = area.right() - 300;
    const double top = area.top() + 18;
    const double bottom = area.bottom() - 44;
    painter.setPen(QPen(chalk, 3));
    painter.drawPolyline(QPolygonF{{left - 40, bottom},
                                   {left, bottom},
                                   {left + 34, top},
                                   {right - 34, top},
                                   {right, bottom},
                                   {right + 40, bottom}});
    painter.drawLine(QPointF(left, bottom + 22), QPointF(right, bottom + 22));
    for (const double x : {left, right}) {
        painter.drawLine(QPointF(x, bottom + 8), QPointF(x, bottom + 34));
    }
    painter.setPen(QPen(chalk, 2, Qt::DashLine));
    painter.drawLine(QPointF(left + 20, (top + bottom) / 2),
                     QPointF(right - 20, (top + bottom) / 2));
    DrawFitted(painter, QRectF(right + 60, top - 6, area.right() - right - 70, bottom - top + 30),
               QString::fromStdString(scene.measured), 44, QColor(250, 226, 120));
}
} // namespace

QFont SampleFont(double height)
{
    QFont font;
    font.setFamilies({"IPAGothic", "Noto Sans CJK JP"});
    font.setPixelSize(std::max(1, static_cast<int>(height)));
    return font;
}

void DrawFitted(QPainter& painter, const QRectF& area, const QString& text, double height,
                const QColor& color, int alignment)
{
    constexpr double smallest = 4;
    const auto shrink = [&](int flags, double least) {
        double size = height;
        while (size > least && !Fits(painter, area, text, flags, size)) size *= 0.94;
        return size;
    };
    // A somewhat smaller single line reads better than a second line with one character.
    const double leastSingle = height * 0.75;
    int flags = alignment | Qt::TextSingleLine;
    if (shrink(flags, leastSingle) <= leastSingle) {
        flags = alignment | Qt::TextWrapAnywhere;
        shrink(flags, smallest);
    }
    painter.setPen(color);
    painter.drawText(area, flags, text);
}

QImage PaintBoard(const SampleScene& scene, int width)
{
    QImage image(width, width * 3 / 4, QImage::Format_RGB32);
    image.fill(QColor(226, 228, 222));
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(width / boardWidth, image.height() / boardHeight);
    const QRectF face(frame, frame, boardWidth - 2 * frame, boardHeight - 2 * frame);
    QLinearGradient green(face.topLeft(), face.bottomRight());
    green.setColorAt(0, QColor(36, 78, 62));
    green.setColorAt(1, QColor(20, 54, 44));
    painter.fillRect(face, green);

    double y = face.top();
    constexpr double labelWidth = 168;
    for (const BoardRow& row : RowsOf(scene)) {
        const QRectF label(face.left(), y, labelWidth, row.height);
        const QRectF text(face.left() + labelWidth, y, face.width() - labelWidth, row.height);
        DrawFitted(painter, label.adjusted(6, 4, -6, -4), row.label, 36, chalk);
        DrawFitted(painter, text.adjusted(14, 4, -10, -4), row.text, 44, chalk,
                   Qt::AlignLeft | Qt::AlignVCenter);
        painter.setPen(QPen(chalk, 3));
        painter.drawLine(label.topRight(), label.bottomRight());
        y += row.height;
        painter.drawLine(QPointF(face.left(), y), QPointF(face.right(), y));
    }
    const QRectF rest(face.left(), y, face.width(), face.bottom() - y - 42);
    if (!scene.design.empty()) {
        PaintSketch(painter, rest, scene);
    } else {
        DrawFitted(painter, rest.adjusted(24, 14, -24, -10), QString::fromStdString(scene.title),
                   62, chalk);
    }
    DrawFitted(painter, QRectF(face.left() + 200, face.bottom() - 42, face.width() - 214, 38),
               QString::fromStdString(scene.contractor), 30, chalk,
               Qt::AlignRight | Qt::AlignVCenter);
    return image;
}
