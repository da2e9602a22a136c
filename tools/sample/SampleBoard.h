#pragma once

#include "platform/text/Text.h"
#include "sample/SampleWords.h"

#include <QFont>
#include <QImage>

#include <chrono>

class QPainter;

/// What a picture shows.
struct SampleScene
{
    SampleSubject subject;
    CString workName;
    CString contractor;
    /// 工種 and 細別, or what is there of them.
    CString workType;
    CString title;
    CString place;
    /// The figures; empty when nothing is measured.
    CString design;
    CString measured;
    std::chrono::sys_seconds takenAt;
    /// Scenes of the same facts with another number look different.
    unsigned seed;
    int number;
    /// One colour stands for all of it.
    bool plain = false;
    /// The picture has Exif data in any case.
    bool alwaysExif = false;
};

/// The Japanese font of the samples, \p height units high.
QFont SampleFont(double height);

/// Draws \p text into \p area as large as it fits whole, at most \p height units high, on several
/// lines if need be.
void DrawFitted(QPainter& painter, const QRectF& area, const QString& text, double height,
                const QColor& color, int alignment = Qt::AlignCenter);

/// The blackboard that stands in the picture of \p scene, \p width pixels wide and three quarters
/// as high.
QImage PaintBoard(const SampleScene& scene, int width);
