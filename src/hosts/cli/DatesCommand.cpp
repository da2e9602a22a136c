#include "hosts/cli/Commands.h"
#include "hosts/cli/IntakeArguments.h"

#include "intake/DateLadder.h"

namespace
{
Json TextOrNull(const CString& text)
{
    return text.empty() ? Json(nullptr) : Json(text);
}

Json ToJson(const DatedPhoto& photo, int index)
{
    const DateRungs& rungs = photo.rungs;
    Json findings = Json::Array();
    for (const DateFinding& finding : photo.findings) {
        findings.Add(Json::Object({{"kind", finding.kind},
                                   {"grade", finding.isFact ? "fact" : "hint"},
                                   {"text", finding.text}}));
    }
    return Json::Object({{"index", index},
                         {"rungs", Json::Object({{"写真", TextOrNull(rungs.told)},
                                                 {"exif", TextOrNull(rungs.exif)},
                                                 {"digitized", TextOrNull(rungs.digitized)},
                                                 {"changed", TextOrNull(rungs.changed)},
                                                 {"gps", TextOrNull(rungs.gps)},
                                                 {"file", TextOrNull(rungs.file)}})},
                         {"findings", findings}});
}

int Run(const DeliveryArguments& arguments)
{
    const OpenedDelivery opened = OpenDelivery(arguments);
    if (!opened.IsLoaded()) return ExitFailed;
    const IntakeDelivery delivery(opened, OwnerOf(opened.family), Today());
    std::vector<DatedPhoto> photos;
    const bool isDone = UnderProgress(
        "日付の読み取り", [&](const auto& tell) { photos = ReadDateLadder(delivery, tell); });
    if (!isDone) return ExitInterrupted;
    JsonArrayWriter output;
    for (std::size_t i = 0; i < photos.size(); ++i) {
        output.Add(ToJson(photos[i], static_cast<int>(i)));
    }
    return ExitDone;
}
} // namespace

Command DatesCommand()
{
    const auto arguments = std::make_shared<DeliveryArguments>();
    return {.name = "dates",
            .help = "写真の日付を撮影年月日・Exif・GPS・ファイルで比べる",
            .options = DeliveryOptions(*arguments),
            .footer = "出力: [{\"index\",\"rungs\":{\"写真\":撮影年月日,\"exif\",\"digitized\","
                      "\"changed\",\"gps\":UTC,\"file\"},\"findings\":[{\"kind\","
                      "\"grade\":\"fact|hint\",\"text\"}]}]\n"
                      "fact は書かれた日付どうしの違い、hint は無害な理由もありうること。どちらも不"
                      "正と決めるものではない",
            .run = [arguments] { return Run(*arguments); }};
}
