#include "imagefacts/FactsByTitle.h"
#include "sample/SampleExif.h"
#include "support/OpenedSample.h"
#include "windows/cell/ToviSpiCtrl.h"
#include "windows/cell/ToviSpiListCtrl.h"
#include "windows/list/PhotoListContent.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QImage>

#include <algorithm>
#include <map>

namespace
{
using namespace std::string_literals;

/// What a list shows of Exif data, by its title.
using Facts = std::map<CString, CString>;

/// A picture as a camera writes it, with its Exif data in Intel's byte order.
std::string CameraPicture()
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(Qt::gray);
    QBuffer jpeg;
    jpeg.open(QIODevice::WriteOnly);
    image.save(&jpeg, "JPG");
    return WithExif(jpeg.data().toStdString(),
                    {.takenAt = std::chrono::sys_days(std::chrono::year(2024) / 5 / 1),
                     .maker = "KAEDE",
                     .model = "GENBA",
                     .width = 64,
                     .height = 48,
                     .shutter = 125,
                     .aperture = 40,
                     .exposureBias = -0.3,
                     .flash = true,
                     .position = GeoPosition{36.5, 140.25, 12.3}});
}

std::string Falsified(const std::string& from, const std::string& to)
{
    std::string picture = CameraPicture();
    const std::size_t at = picture.find(from);
    EXPECT_NE(at, std::string::npos);
    return picture.replace(at, from.size(), to);
}

std::string AsSvg(const std::string& jpeg)
{
    const QByteArray text = QByteArray::fromStdString(jpeg).toBase64();
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" "
           "xmlns:xlink=\"http://www.w3.org/1999/xlink\"><g id=\"dcp_org_img\">"
           "<image xlink:href=\"data:image/jpeg;base64," +
           text.toStdString() + "\"/></g></svg>";
}

Facts InCell(ToviData& document, const ToviPhotoCtrlVisualSetting& setting)
{
    ToviSpiCtrl cell(&document, nullptr, &setting, 100, nullptr);
    cell.SetPhoto(0);
    const auto* const list = cell.findChild<ToviSpiListCtrl*>();
    Facts facts;
    for (int row = 0; !list->GetItemText(row, 0).empty(); ++row) {
        facts[list->GetItemText(row, 0)] = list->GetItemText(row, 1);
    }
    return facts;
}

Facts InList(ToviData& document, const ToviPhotoCtrlVisualSetting& setting)
{
    PhotoListContent list(setting);
    list.SetDocument(&document);
    Facts facts;
    for (int column = 0; const CString& title : list.Columns()) {
        facts[title] = list.Text(0, column++);
    }
    return facts;
}

/// What the file tells under the titles of \p facts.
Facts InFile(const CString& path, Facts facts)
{
    ToviPhoto photo(path.c_str());
    const ToviExifInfo& exif = photo.GetExif();
    for (auto& [title, value] : facts) value = ExifFactByTitle(exif, title);
    return facts;
}

TEST(ExifShown, IsAllThatIsThereInCellsAndLists)
{
    const std::string whole = CameraPicture();
    const std::string withoutVersion = Falsified("\x00\x90\x07\x00"s, "\xE9\xFD\x07\x00"s);
    const struct
    {
        const char* what;
        const char* name;
        std::string bytes;
        int known;
    } cases[] = {
        {"whole", "P1.JPG", whole, 21},
        {"no version", "P1.JPG", withoutVersion, 20},
        {"odd version", "P1.JPG", Falsified("0230", "ABCD"), 20},
        {"version of another type", "P1.JPG", Falsified("\x00\x90\x07\x00"s, "\x00\x90\x04\x00"s),
         20},
        {"no length", "P1.JPG", Falsified("\x0F\x01\x02\x00\x06"s, "\x0F\x01\x02\x00\x00"s), 20},
        {"one directory", "P1.JPG", Falsified("\x69\x87\x04\x00"s, "\xE9\xFD\x04\x00"s), 9},
        {"drawing", "P1.SVG", AsSvg(whole), 21},
        {"drawing without version", "P1.svg", AsSvg(withoutVersion), 20},
        {"drawing without picture", "P1.SVG", "<svg/>", 0},
    };
    OpenedSample sample(DeliveryBuilder({.photos = 1, .drawings = 0, .images = false}));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        DeliveryBuilder delivery({.photos = 1, .drawings = 0, .images = false});
        delivery.Set(0, "写真ファイル名", c.name).Write(sample.temp.Path(c.what));
        const CString folder = sample.temp.Path(CString(c.what) + "/PHOTO");
        const CString path = sample.temp.Write(CString(c.what) + "/PHOTO/PIC/" + c.name, c.bytes);

        sample.Open(folder);
        sample.document->Load();
        ToviPhotoCtrlVisualSetting setting = sample.document->GetVisualSetting();
        setting.SetVisibleComment(false);
        for (ToviItemShowSetting& item : setting.GetItemShowSettings()) {
            item.Bold(item.infoType == InfoExif);
        }
        const Facts inCell = InCell(*sample.document, setting);
        // Nothing is read in advance by one for the other.
        sample.Open(folder);
        EXPECT_EQ(InList(*sample.document, setting), inCell);
        EXPECT_EQ(InFile(path, inCell), inCell);
        EXPECT_EQ(
            std::ranges::count_if(inCell, [](const auto& fact) { return !fact.second.empty(); }),
            c.known);
        EXPECT_EQ(inCell.size(), 23u);
    }
}
} // namespace
