#include "hosts/cli/Commands.h"
#include "hosts/cli/IntakeArguments.h"
#include "hosts/cli/Records.h"

#include "intake/Coverage.h"

#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    RecordArguments record;
    std::string format = "json";
};

Json ToJson(const Coverage& coverage)
{
    Json rows = Json::Array();
    for (const CoverageRow& row : coverage.rows) {
        rows.Add(Json::Object({{"工種", row.workType},
                               {"種別", row.kind},
                               {"細別", row.detail},
                               {"写真区分", row.category},
                               {"count", row.count},
                               {"key", row.key},
                               {"submitted", row.submitted},
                               {"judged", row.judged},
                               {"ng", row.ng}}));
    }
    Json missing = Json::Array();
    for (const MissingPartner& each : coverage.missing) {
        missing.Add(Json::Object({{"where", each.where},
                                  {"has", each.has},
                                  {"lacks", each.lacks},
                                  {"photos", NumbersOf(each.photos)}}));
    }
    return Json::Object({{"rows", rows}, {"missing", missing}});
}

CString ToCsv(const Coverage& coverage)
{
    CString text = csvMark + CsvLine({"工種", "種別", "細別", "写真区分", "枚数", "代表",
                                      "提出頻度", "判定済み", "NG"});
    for (const CoverageRow& row : coverage.rows) {
        std::vector<CString> fields = {row.workType, row.kind, row.detail, row.category};
        for (const int number : {row.count, row.key, row.submitted, row.judged, row.ng}) {
            fields.push_back(std::to_string(number));
        }
        text += CsvLine(fields);
    }
    return text;
}

int Run(const Arguments& arguments)
{
    const OpenedDelivery opened = OpenDelivery(arguments.delivery);
    if (!opened.IsLoaded() || !LoadRecord(*opened.document, arguments.record)) return ExitFailed;
    const IntakeDelivery delivery(opened, OwnerOf(opened.family), Today());
    const Coverage coverage = CountCoverage(delivery);
    if (arguments.format == "csv") {
        std::cout << ToCsv(coverage);
    } else {
        std::cout << ToText(ToJson(coverage)) << '\n';
    }
    return ExitDone;
}
} // namespace

Command CoverageCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "coverage",
            .help = "工種・種別・細別と写真区分ごとの枚数と、対になる写真の不足を示す",
            .options = Joined({DeliveryOptions(arguments->delivery),
                               RecordOptions(arguments->record),
                               {TableFormatOption(arguments->format)}}),
            .footer = "出力: {\"rows\":[{\"工種\",\"種別\",\"細別\",\"写真区分\",\"count\","
                      "\"key\":代表,\"submitted\":提出頻度,\"judged\":OKかNG,\"ng\"}],"
                      "\"missing\":[{\"where\",\"has\",\"lacks\",\"photos\":[番号]}]}",
            .run = [arguments] { return Run(*arguments); }};
}
