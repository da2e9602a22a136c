#pragma once

#include "platform/text/Export.h"

#include <QObject>
#include <QPalette>

#include <optional>

class QWidget;

/// The greys that photographs can stand on: they lend no colour to a picture, and none is as bright
/// as white.
enum class GroundTone
{
    Light,
    Middle,
    Dark
};

/// What the photographs of all windows stand on: the tone that the user has chosen, else a light
/// one on a light desktop and a dark one on a dark desktop; and a dark one during a slide show.
class TOVI_EXPORT PhotoGround : public QObject
{
    Q_OBJECT

public:
    /// The one of this program.
    static PhotoGround& Get();

    /// Nothing: as the desktop is.
    void Choose(std::optional<GroundTone> tone);
    void SetSlideMode(bool on);
    GroundTone Tone() const;
    QColor Color() const;
    /// Of what is written on it.
    QColor TextColor() const;

    /// Gives \p widget the ground as its Window or Base colour, from now on.
    void LieUnder(QWidget& widget, QPalette::ColorRole role);

signals:
    void Changed();

private:
    std::optional<GroundTone> chosen;
    bool slideMode = false;
};
