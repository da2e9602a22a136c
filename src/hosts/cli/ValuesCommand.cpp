#include "hosts/cli/Commands.h"
#include "hosts/cli/Delivery.h"
#include "hosts/cli/Json.h"
#include "photos/ToviPhoto.h"

#include "imagefacts/ToviControlValueArray.h"

namespace
{
void Write(std::ostream& output, const ToviControlValueArray& values)
{
    const char* separator = "";
    for (const ToviControlValueTexts& value : values) {
        output << separator
               << ToText(Json::Object({{"name", value.name},
                                       {"design", value.design},
                                       {"actual", value.actual},
                                       {"difference", value.difference}}));
        separator = ",";
    }
}

int Run(const DeliveryArguments& arguments)
{
    const OpenedDelivery delivery = OpenDelivery(arguments);
    JsonArrayWriter output;
    if (!delivery.IsLoaded()) return ExitFailed;
    const int total = delivery.document->GetTotalCountPhoto();
    for (int index = 0; index < total; ++index) {
        ToviControlValueArray values;
        const bool valid =
            delivery.document->GetPhotoActualPhotoArray(index)->GetControlValueArray(values);
        std::ostream& element = output.Next();
        element << "{\"index\":" << index << ",\"valid\":" << (valid ? "true" : "false")
                << ",\"values\":[";
        Write(element, values);
        element << "]}";
    }
    return ExitDone;
}
} // namespace

Command ValuesCommand()
{
    const auto arguments = std::make_shared<DeliveryArguments>();
    return {.name = "values",
            .help = "写真の施工管理値を表の形で表示する",
            .options = DeliveryOptions(*arguments),
            .footer =
                "出力: [{\"index\",\"valid\",\"values\":[{\"name\",\"design\",\"actual\","
                "\"difference\"}]}]\n"
                "「項目名:設計値 …・実測値 …・差 "
                "…」を「、」で並べた文を読み取る。「:」のない文は項目名とする\n"
                "読み取れない文は \"valid\" が false で \"values\" は空（文そのものは tovi photos "
                "で見られる）\n"
                "施工管理値のない写真は \"valid\" が true で \"values\" は空",
            .run = [arguments] { return Run(*arguments); }};
}
