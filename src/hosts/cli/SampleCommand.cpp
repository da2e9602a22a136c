#include "hosts/cli/Commands.h"
#include "hosts/cli/IntakeArguments.h"
#include "hosts/cli/Records.h"

#include "intake/Sampling.h"

#include <charconv>
#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    int rate = SampleTerms().rate;
    int least = SampleTerms().least;
    std::string seed = "1";
    RecordArguments record;
};

std::optional<std::uint64_t> SeedIn(const std::string& text)
{
    std::uint64_t seed = 0;
    const char* const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, seed);
    if (error != std::errc() || at != end) return std::nullopt;
    return seed;
}

std::string WhyNoSeed(const std::string& text)
{
    if (SeedIn(text)) return {};
    return "0から18446744073709551615までの数を指定してください";
}

Json ToJson(const SampleTerms& terms, int photos)
{
    return Json::Object({{"text", terms.Text()},
                         {"rate", terms.rate},
                         {"least", terms.least},
                         {"seed", terms.seed},
                         {"method", sampleMethod},
                         {"photos", photos}});
}

/// Without a record nothing is to be saved.
int SaveToRecord(Inspection& inspection, const SampleTerms& terms, const std::vector<int>& sample)
{
    if (inspection.record.path.empty()) return ExitDone;
    int reason = noReason;
    const bool saved = SaveRecordWithSample(*inspection.delivery.document, inspection.hold.Target(),
                                            terms, sample, &reason);
    inspection.hold.Release();
    return TellSaved(saved, inspection.record.path, reason);
}

int OpenAll(Inspection& inspection, const DeliveryArguments& arguments)
{
    if (!inspection.record.path.empty()) return Open(inspection, arguments, {});
    inspection.delivery = OpenDelivery(arguments);
    return inspection.delivery.IsLoaded() ? ExitDone : ExitFailed;
}

int Run(const Arguments& arguments)
{
    Inspection inspection(arguments.record);
    if (const int status = OpenAll(inspection, arguments.delivery); status != ExitDone)
        return status;
    const OpenedDelivery& opened = inspection.delivery;
    const IntakeDelivery delivery(opened, OwnerOf(opened.family), Today());
    const SampleTerms terms{arguments.rate, arguments.least, SeedIn(arguments.seed).value_or(0)};
    const std::vector<int> sample = DrawSample(delivery, terms);
    const int status = SaveToRecord(inspection, terms, sample);
    if (status != ExitDone) return status;
    const Json answer =
        Json::Object({{"sample", NumbersOf(sample)}, {"terms", ToJson(terms, delivery.Count())}});
    std::cout << ToText(answer) << '\n';
    return ExitDone;
}
} // namespace

Command SampleCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    constexpr int mostOfADetail = 1'000'000;
    return {
        .name = "sample",
        .help =
            "確かめる写真を抜き取る: 代表すべて、提出頻度すべて、残りの一部、細別ごとに何枚か以上",
        .options = Joined({DeliveryOptions(arguments->delivery),
                           RecordOptions(arguments->record),
                           {{.name = "--rate",
                             .help = "残りの写真から抜き取る割合（％、既定は10）",
                             .target = &arguments->rate,
                             .valueName = "N",
                             .accepted = Between{0, 100}},
                            {.name = "--least",
                             .help = "細別ごとの最少の枚数（既定は3）",
                             .target = &arguments->least,
                             .valueName = "N",
                             .accepted = Between{0, mostOfADetail}},
                            {.name = "--seed",
                             .help = "抜き取りの種（既定は1）。同じ納品データと種からは、どの機"
                                     "械でも同じ写真が選ばれる",
                             .target = &arguments->seed,
                             .valueName = "N",
                             .accepted = &WhyNoSeed}}}),
        .footer = "--record の記録には、条件と選んだ写真が残る\n"
                  "出力: {\"sample\":[番号],\"terms\":{\"text\",\"rate\",\"least\",\"seed\","
                  "\"method\",\"photos\":全枚数}}",
        .run = [arguments] { return Run(*arguments); }};
}
