#include "windows/pictures/PhotoGround.h"

#include <QGuiApplication>
#include <QWidget>

#include <utility>

namespace
{
constexpr QRgb colors[] = {qRgb(0xD6, 0xD6, 0xD6), qRgb(0x80, 0x80, 0x80), qRgb(0x2A, 0x2A, 0x2A)};

bool IsDesktopDark()
{
    constexpr int middle = 128;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middle;
}

void Apply(const PhotoGround& ground, QWidget& widget, QPalette::ColorRole role)
{
    QPalette palette = widget.palette();
    palette.setColor(role, ground.Color());
    palette.setColor(role == QPalette::Base ? QPalette::Text : QPalette::WindowText,
                     ground.TextColor());
    widget.setPalette(palette);
}
} // namespace

PhotoGround& PhotoGround::Get()
{
    static PhotoGround ground;
    return ground;
}

void PhotoGround::Choose(std::optional<GroundTone> tone)
{
    if (std::exchange(chosen, tone) != tone) emit Changed();
}

void PhotoGround::SetSlideMode(bool on)
{
    if (std::exchange(slideMode, on) != on) emit Changed();
}

GroundTone PhotoGround::Tone() const
{
    if (slideMode) return GroundTone::Dark;
    return chosen.value_or(IsDesktopDark() ? GroundTone::Dark : GroundTone::Light);
}

QColor PhotoGround::Color() const
{
    return colors[static_cast<int>(Tone())];
}

QColor PhotoGround::TextColor() const
{
    return Tone() == GroundTone::Dark ? QColor(0xE6, 0xE6, 0xE6) : QColor(Qt::black);
}

void PhotoGround::LieUnder(QWidget& widget, QPalette::ColorRole role)
{
    Apply(*this, widget, role);
    connect(this, &PhotoGround::Changed, &widget,
            [this, &widget, role] { Apply(*this, widget, role); });
}
