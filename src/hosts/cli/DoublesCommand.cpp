#include "hosts/cli/Commands.h"
#include "hosts/cli/IntakeArguments.h"

#include "intake/DeliveryRegister.h"
#include "platform/files/WriteFailure.h"

#include <algorithm>
#include <charconv>
#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    bool useRegister = false;
};

struct RegisterArguments
{
    std::string action;
    DeliveryArguments delivery;
};

/// By PhotoPair::Kind.
constexpr const char* kindNames[] = {"bytes", "picture", "moment"};

Json ToJson(const PhotoPair& pair)
{
    Json photos = Json::Array();
    photos.Add(pair.photo);
    if (pair.earlier == nullptr) photos.Add(pair.other);
    Json other = nullptr;
    if (pair.earlier != nullptr) {
        const auto& marks = pair.earlier->photos;
        const auto found =
            std::find_if(marks.begin(), marks.end(),
                         [&pair](const PhotoMarks& each) { return each.photo == pair.other; });
        other = Json::Object({{"id", pair.earlier->id},
                              {"delivery", pair.earlier->name},
                              {"index", pair.other},
                              {"file", found->name}});
    }
    return Json::Object({{"kind", kindNames[pair.kind]},
                         {"photos", photos},
                         {"other", other},
                         {"distance", pair.distance}});
}

/// Opens the delivery and reads its marks. Returns the exit status; what isn't ExitDone was told.
int ReadMarks(const DeliveryArguments& arguments, OpenedDelivery& opened,
              std::vector<PhotoMarks>& marks)
{
    opened = OpenDelivery(arguments);
    if (!opened.IsLoaded()) return ExitFailed;
    const IntakeDelivery delivery(opened, OwnerOf(opened.family), Today());
    const bool isDone = UnderProgress(
        "写真の読み取り", [&](const auto& tell) { marks = ReadPhotoMarks(delivery, tell); });
    return isDone ? ExitDone : ExitInterrupted;
}

int TellProblem(const DatabaseError& error)
{
    const CString path = DeliveryRegisterPath();
    Complain(error.IsDamaged()
                 ? "台帳 " + path +
                       " が壊れています。別の場所に移してから、もう一度登録してください。"
                 : "台帳 " + path + " を使えません（" + error.what() +
                       "）。空き容量と、フォルダの権限を確かめてください。");
    return ExitFailed;
}

int Run(const Arguments& arguments)
{
    OpenedDelivery opened;
    std::vector<PhotoMarks> marks;
    const int status = ReadMarks(arguments.delivery, opened, marks);
    if (status != ExitDone) return status;
    std::vector<EarlierDelivery> earlier;
    if (arguments.useRegister) {
        try {
            earlier = DeliveryRegister(DeliveryRegisterPath())
                          .AllBut(DeliveryIdentity(opened.photoFolder));
        } catch (const DatabaseError& error) {
            return TellProblem(error);
        }
    }
    std::vector<PhotoPair> pairs;
    const bool isDone = UnderProgress(
        "写真の比較", [&](const auto& tell) { pairs = FindDoubles(marks, earlier, tell); });
    if (!isDone) return ExitInterrupted;
    Json array = Json::Array();
    for (const PhotoPair& pair : pairs) array.Add(ToJson(pair));
    std::cout << ToText(Json::Object({{"pairs", array}})) << '\n';
    return ExitDone;
}

int Add(const DeliveryArguments& arguments)
{
    OpenedDelivery opened;
    std::vector<PhotoMarks> marks;
    const int status = ReadMarks(arguments, opened, marks);
    if (status != ExitDone) return status;
    const CString name = DeliveryFolderName(opened.photoFolder);
    DeliveryRegister(DeliveryRegisterPath())
        .Add(DeliveryIdentity(opened.photoFolder), name, opened.photoFolder, marks);
    std::cout << ToText(Json::Object({{"name", name}, {"photos", static_cast<int>(marks.size())}}))
              << '\n';
    return ExitDone;
}

int List()
{
    const std::vector<RegisteredDelivery> all = DeliveryRegister(DeliveryRegisterPath()).List();
    JsonArrayWriter output;
    for (const RegisteredDelivery& each : all) {
        output.Add(Json::Object({{"id", each.id},
                                 {"name", each.name},
                                 {"path", each.path},
                                 {"photos", each.photos},
                                 {"added", each.added}}));
    }
    return ExitDone;
}

int Remove(const std::string& number)
{
    std::int64_t id = 0;
    const char* const end = number.data() + number.size();
    const auto [at, error] = std::from_chars(number.data(), end, id);
    if (error != std::errc() || at != end) {
        Complain("台帳の番号を指定してください。番号は tovi register list で分かります。");
        return ExitWrongUsage;
    }
    if (DeliveryRegister(DeliveryRegisterPath()).Remove(id)) return ExitDone;
    Complain("台帳に番号 " + number + " の納品データはありません。");
    return ExitFailed;
}

int RunRegister(const RegisterArguments& arguments)
{
    const bool needsMore = arguments.action != "list";
    if (needsMore && arguments.delivery.path.empty()) {
        Complain("add には納品データを、remove には台帳の番号を指定してください。");
        return ExitWrongUsage;
    }
    try {
        if (arguments.action == "add") return Add(arguments.delivery);
        if (arguments.action == "list") return List();
        return Remove(arguments.delivery.path);
    } catch (const DatabaseError& error) {
        return TellProblem(error);
    }
}
} // namespace

Command DoublesCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "doubles",
            .help = "同じ写真の使い回しを探す: 同じファイル、同じ画像、同じ撮影日時",
            .options = Joined(
                {DeliveryOptions(arguments->delivery),
                 {{"--register", "台帳に登録した納品データとも比べる", &arguments->useRegister}}}),
            .footer = "出力: {\"pairs\":[{\"kind\":\"bytes|picture|moment\",\"photos\":[番号],"
                      "\"other\":{\"id\",\"delivery\",\"index\",\"file\"},\"distance\"}]}\n"
                      "bytes は同じファイル、picture "
                      "は圧縮や大きさを変えるか端を少し切った同じ画像（画素を比べ"
                      "て確かめる）、moment は撮影日時が同じ別の画像。台帳の写真との組では photos "
                      "は1つで other "
                      "に相手が入る",
            .run = [arguments] { return Run(*arguments); }};
}

Command RegisterCommand()
{
    const auto arguments = std::make_shared<RegisterArguments>();
    return {.name = "register",
            .help = "写真の使い回しを探すための、これまでの納品データの台帳",
            .options = {{.name = "ACTION",
                         .help = "add 登録する、list 一覧を表示する、remove 取り除く",
                         .target = &arguments->action,
                         .need = Need::Required,
                         .accepted = OneOf{{"add", "list", "remove"}}},
                        {.name = "DELIVERY",
                         .help = "add では納品データ、remove では list の番号",
                         .target = &arguments->delivery.path}},
            .footer = "出力: add は {\"name\",\"photos\"}、list は [{\"id\",\"name\",\"path\","
                      "\"photos\",\"added\"}]",
            .run = [arguments] { return RunRegister(*arguments); }};
}
