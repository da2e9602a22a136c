#pragma once

#include "sample/SampleRandom.h"

#include <QPointF>

class QPainter;

/// Where a figure stands on the picture and how tall it is there, in the painter's units.
struct FigurePlace
{
    QPointF foot;
    double height;
};

/// What stands and lies about on construction sites. All are called alike, so that a table can name
/// them.
namespace SampleFigures
{
void PaintWorker(QPainter& painter, const FigurePlace& place, SampleRandom& random);
void PaintExcavator(QPainter& painter, const FigurePlace& place, SampleRandom& random);
void PaintRoller(QPainter& painter, const FigurePlace& place, SampleRandom& random);
void PaintCone(QPainter& painter, const FigurePlace& place, SampleRandom& random);
void PaintBarrier(QPainter& painter, const FigurePlace& place, SampleRandom& random);
/// A red and white surveying pole.
void PaintPole(QPainter& painter, const FigurePlace& place, SampleRandom& random);
/// A levelling staff with its graduation.
void PaintStaff(QPainter& painter, const FigurePlace& place, SampleRandom& random);
/// A ribbon tape that lies across the picture, as long as the place is high.
void PaintTape(QPainter& painter, const FigurePlace& place, SampleRandom& random);
void PaintPipes(QPainter& painter, const FigurePlace& place, SampleRandom& random);
/// A slump cone and concrete on a plate.
void PaintSlumpTest(QPainter& painter, const FigurePlace& place, SampleRandom& random);
/// The sign "安全第一".
void PaintSafetySign(QPainter& painter, const FigurePlace& place, SampleRandom& random);
void PaintSoilHeap(QPainter& painter, const FigurePlace& place, SampleRandom& random);
} // namespace SampleFigures
