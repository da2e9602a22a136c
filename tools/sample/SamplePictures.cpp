#include "sample/SamplePictures.h"

#include "sample/SampleDrawings.h"
#include "sample/SampleExif.h"
#include "sample/SampleSite.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageWriter>
#include <QTransform>

#include <cstdio>
#include <stdexcept>

namespace
{
constexpr int lzwCompression = 1;

QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string Encode(const QImage& image, const char* format, int quality = -1)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    if (quality >= 0) writer.setQuality(quality);
    if (image.format() == QImage::Format_Mono) writer.setCompression(lzwCompression);
    if (!writer.write(image)) {
        throw std::runtime_error(CString("cannot encode a picture as ") + format + ": " +
                                 writer.errorString().toStdString());
    }
    return bytes.toStdString();
}

/// Turns \p upright into the pixels that a viewer has to turn as \p orientation says.
QImage Stored(const QImage& upright, int orientation)
{
    if (orientation == 6) return upright.transformed(QTransform().rotate(-90));
    if (orientation == 8) return upright.transformed(QTransform().rotate(90));
    return upright;
}

/// The day of 撮影年月日 if that is one, else the day on which the photograph was made.
std::chrono::sys_days DayOf(const SamplePhoto& photo)
{
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    if (std::sscanf(photo.Value("撮影年月日").c_str(), "%4d-%2u-%2u", &year, &month, &day) != 3) {
        return photo.day;
    }
    const std::chrono::year_month_day date =
        std::chrono::year(year) / static_cast<int>(month) / day;
    return date.ok() ? std::chrono::sys_days(date) : photo.day;
}

QImage PlainPicture(const SampleScene& scene, QSize size)
{
    constexpr int degrees = 360;
    constexpr int step = 37;
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(scene.number * step % degrees, 120, 180));
    return image;
}

/// A picture from the camera: its size, its way of holding and its Exif vary.
std::string CameraJpeg(const SampleScene& scene, bool inLayers)
{
    constexpr QSize sizes[] = {{1280, 960}, {1600, 1200}, {1280, 960}, {1440, 1080}, {1600, 1200}};
    SampleRandom random(scene.seed, SamplePart::Camera, scene.number);
    SampleShot shot = MakeSampleShot(random, scene.takenAt);
    QSize size = random.Pick(sizes);
    const bool hasExif = inLayers || !random.Chance(8) || scene.alwaysExif;
    if (!inLayers && random.Chance(16)) {
        size = QSize(1200, 1600);
        if (hasExif && random.Chance(70)) shot.orientation = random.Chance(60) ? 6 : 8;
    }
    const QImage upright =
        scene.plain ? PlainPicture(scene, size) : PaintSite(scene, size, !inLayers);
    const QImage stored = Stored(upright, shot.orientation);
    shot.width = stored.width();
    shot.height = stored.height();
    const std::string jpeg = Encode(stored, "jpeg", random.Between(72, 80));
    return hasExif ? WithExif(jpeg, shot) : jpeg;
}

QString ImageElement(const std::string& jpeg, const QRect& place)
{
    return QString("<image x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" "
                   "xlink:href=\"data:image/jpeg;base64,%5\"/>")
        .arg(QString::number(place.x()), QString::number(place.y()), QString::number(place.width()),
             QString::number(place.height()),
             QString::fromLatin1(QByteArray::fromStdString(jpeg).toBase64()));
}

constexpr auto svgFrame = R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink"
 version="1.2" baseProfile="tiny" width="%1" height="%2" viewBox="0 0 %1 %2">
<x:xmpmeta xmlns:x="adobe:ns:meta/">
<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
<rdf:Description rdf:about="" xmlns:xmp="http://ns.adobe.com/xap/1.0/"
 xmp:CreatorTool="tovi-sample"/>
</rdf:RDF>
</x:xmpmeta>
<g id="dcp_org_img">%3</g>
%4<g id="dcp_chalkboard_img">%5</g>
</svg>
)";

constexpr auto svgAnnotation = R"(<g id="dcp_annotation">
<circle cx="%1" cy="%2" r="60" fill="none" stroke="#e02020" stroke-width="6"/>
</g>
)";

std::string LayeredSvg(const SampleScene& scene)
{
    const std::string photograph = CameraJpeg(scene, true);
    const QSize size = QImage::fromData(QByteArray::fromStdString(photograph)).size();
    const QImage board = PaintBoard(scene, size.width() * 2 / 5);
    const QRect place(QPoint(20, size.height() - board.height() - 20), board.size());
    const bool annotated = scene.number % 2 == 0;
    const QString note =
        annotated ? QString(svgAnnotation).arg(size.width() * 2 / 3).arg(size.height() / 2)
                  : QString();
    return QString(svgFrame)
        .arg(QString::number(size.width()), QString::number(size.height()),
             ImageElement(photograph, QRect(QPoint(), size)), note,
             ImageElement(Encode(board, "jpeg", 90), place))
        .toStdString();
}
} // namespace

SampleScene SceneOf(const SamplePhoto& photo, const SampleWork& work, unsigned seed, int number)
{
    // Work on a site goes on from eight to five.
    SampleRandom clock(seed, SamplePart::Photo, number);
    const std::chrono::seconds time(clock.Between(8 * 3600, 17 * 3600));
    CString workType = photo.Value("工種");
    const CString detail = photo.Value("細別");
    if (!workType.empty() && !detail.empty()) workType += " " + detail;
    return {SampleWords::SubjectOf(photo.Value("写真区分")),
            work.name,
            work.contractor,
            workType.empty() ? detail : workType,
            photo.Value("写真タイトル"),
            photo.Value("撮影箇所"),
            photo.design,
            photo.measured,
            DayOf(photo) + time,
            seed,
            number,
            false,
            false};
}

std::string PhotoPicture(const SampleScene& scene, std::string_view extension)
{
    EnsureSampleGui();
    return EqualNoCase(extension, ".svg") ? LayeredSvg(scene) : CameraJpeg(scene, false);
}

std::string DrawingPicture(const SampleWork& work, std::string_view title, unsigned number,
                           std::string_view extension)
{
    EnsureSampleGui();
    const bool bilevel = EqualNoCase(extension, ".tif");
    // Bi-level rows that end with a word leave no stray bits in the file.
    constexpr int bilevelWidth = 2336;
    const QImage drawing =
        PaintDrawing({ToQt(work.name), ToQt(work.contractor), ToQt(title), number},
                     bilevel ? bilevelWidth : 1684);
    if (!bilevel) return Encode(drawing, "jpeg", 85);
    return Encode(drawing.convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::ThresholdDither),
                  "tiff");
}

void EnsureSampleGui()
{
    if (QCoreApplication::instance() != nullptr) return;
    static char name[] = "samples";
    static char platform[] = "-platform";
    static char offscreen[] = "offscreen";
    static char* arguments[] = {name, platform, offscreen, nullptr};
    static int count = 3;
    static const QGuiApplication application(count, arguments);
}
