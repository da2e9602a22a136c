#pragma once

#include <QImage>
#include <QString>

/// What stands in the title block of a drawing.
struct DrawingSheet
{
    QString workName;
    QString contractor;
    QString title;
    unsigned number;
};

/// A black drawing on white, \p width pixels wide in the proportions of A3: a plan when its title
/// says so (平面, 位置), else a cross section.
QImage PaintDrawing(const DrawingSheet& sheet, int width);
