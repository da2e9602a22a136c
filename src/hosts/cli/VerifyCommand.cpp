#include "hosts/cli/Commands.h"
#include "hosts/cli/PhotoDescriptions.h"
#include "photos/ToviPhoto.h"

#include "imagefacts/ImageTypeChoice.h"
#include "imagefacts/RicohVerifier.h"
#include "imagefacts/ToviJacicImageChecker.h"
#include "platform/files/MibFile.h"

#include <algorithm>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    PhotoChoice choice;
    std::string types;
};

/// By ToviPhoto::EditJPEGCheckResult.
constexpr const char* resultNames[] = {"none", "unaltered", "altered", "unknown"};

std::string WhyNoTypes(const std::string& text)
{
    if (IsEditCheckTypes(text)) return {};
    return "0、1、2 を 0,2,1 のように19文字まで並べてください";
}

bool HasVerifier(unsigned short type)
{
    if (type == ToviImageCheckCommon::TypeRicohG800) return RicohVerifier().IsReady();
    return ToviJacicImageChecker().Initiate();
}

void ComplainWithoutVerifiers(const CWordArray& types)
{
    if (std::any_of(types.begin(), types.end(), HasVerifier)) return;
    Complain(CString("画像加工検知に使うライブラリ（0には") + RicohVerifier::libraryName +
             ".so、1と2には" + ToviJacicImageChecker::libraryName + ".so）が " + MibProgramPath() +
             " にないか、読み込めません。どの写真の結果も unknown になります。");
}

/// Switches the check on for this run alone, by \p types unless they are empty.
void SwitchOn(ToviData& document, const CString& types)
{
    ToviPhotoCtrlVisualSetting setting(document.GetVisualSetting());
    setting.SetDoEditCheck(true);
    if (!types.empty()) setting.SetEditCheckTypes(types);
    document.SetVisualSetting(setting, true);
}

int Run(const Arguments& arguments)
{
    const auto begin = [&arguments](ToviData& document) -> PhotoDescription {
        SwitchOn(document, arguments.types);
        ComplainWithoutVerifiers(
            ParseEditCheckTypes(document.GetVisualSetting().GetEditCheckTypes()));
        return [&document](ToviPhoto& photo, int index) -> Json {
            document.CheckEditJPEG(&photo);
            return Json::Object(
                {{"index", index}, {"result", resultNames[photo.GetEditChkResult()]}});
        };
    };
    return DescribePhotos(arguments.delivery, arguments.choice, "画像加工検知", begin);
}
} // namespace

Command VerifyCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "verify",
            .help = "撮影後に加工された写真を検知する",
            .options = Joined({DeliveryOptions(arguments->delivery),
                               {AtOption(arguments->choice),
                                {.name = "--types",
                                 .help = "検知のタイプを判定の順に（0 RICOH G800/G700/G600、1 "
                                         "小黒板電子化、2 RICOH G900）。既定は設定のタイプ",
                                 .target = &arguments->types,
                                 .valueName = "0,2,1",
                                 .accepted = &WhyNoTypes}}}),
            .footer = CString("プログラムのフォルダにある ") + RicohVerifier::libraryName +
                      ".so と " + ToviJacicImageChecker::libraryName +
                      ".so で判定する。判定できない写真は unknown になる\n"
                      "出力: [{\"index\",\"result\":\"none|unaltered|altered|unknown\"}]",
            .run = [arguments] { return Run(*arguments); }};
}
