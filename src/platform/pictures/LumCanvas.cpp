#include "platform/pictures/LumCanvas.h"

#include "platform/host/Headless.h"
#include "platform/host/JapaneseFont.h"
#include "platform/pictures/LumPicture.h"
#include "platform/pictures/QtColor.h"
#include "platform/text/QtText.h"

#include <QPainter>
#include <QTextLayout>

#include <vector>

struct LumCanvas::Painting
{
    QImage image;
};

namespace
{
QRect ToQt(const LumRect& place)
{
    return {place.left, place.top, place.width, place.height};
}

/// \p text cut into at most \p lines lines no wider than \p width.
QStringList Broken(const QString& text, const QFont& font, int width, int lines)
{
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList broken;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (broken.size() + 1 == lines) {
            const QFontMetrics metrics(font);
            broken += metrics.elidedText(text.mid(line.textStart()), Qt::ElideRight, width);
            break;
        }
        broken += text.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    return broken;
}
} // namespace

LumCanvas::LumCanvas(int width, int height, unsigned long background)
    : painting(std::make_unique<Painting>(Painting{QImage(width, height, QImage::Format_RGB32)}))
{
    if (IsValid()) painting->image.fill(QtColor(background));
}

LumCanvas::~LumCanvas() = default;

bool LumCanvas::IsValid() const
{
    return !painting->image.isNull();
}

void LumCanvas::FillRect(const LumRect& place, unsigned long color)
{
    QPainter(&painting->image).fillRect(ToQt(place), QtColor(color));
}

void LumCanvas::DrawImage(const LumRect& place, const LumImage& image)
{
    if (!image.IsValid()) return;
    LumImage fitting = image;
    fitting.FitInto(place.width, place.height);
    const QImage source = LumPixels::Of(fitting);
    QRect target({0, 0}, source.size());
    target.moveCenter(ToQt(place).center());
    QPainter(&painting->image).drawImage(target, source);
}

void LumCanvas::DrawText(const LumRect& place, const CString& text, int pixels, int lines,
                         unsigned long color)
{
    EnsureGui();
    QFont font(JapaneseFamily());
    font.setPixelSize(pixels);
    QPainter painter(&painting->image);
    painter.setFont(font);
    painter.setPen(QtColor(color));
    const QStringList broken = Broken(QtText(text).simplified(), font, place.width, lines);
    painter.drawText(ToQt(place), Qt::AlignCenter, broken.join(u'\n'));
}

LumImage LumCanvas::GetImage() const
{
    return LumPixels::From(painting->image);
}
