#include "hosts/cli/Commands.h"

Program AllOfTovi(std::string& profile)
{
    return {.name = "tovi",
            .version = TOVI_VERSION,
            .help = "工事写真の電子納品データを開いて調べる。結果は標準出力にJSON（UTF-8）で、"
                    "エラーは標準エラー出力に書く。納品データには書き込まない。",
            .footer =
                "各コマンドの説明: tovi COMMAND --help\n"
                "終了コード: 0 正常、1 開けない・読めない・保存できない、2 使い方の誤り、130 中断",
            .common = {{"--profile", "設定ファイル（既定は " + profile + "）", &profile, "FILE"}},
            .commands = {InfoCommand(),     PhotosCommand(), TreeCommand(),    SelectCommand(),
                         SheetCommand(),    LabelCommand(),  CorrectCommand(), RecordCommand(),
                         ReturnCommand(),   ExifCommand(),   ValuesCommand(),  PairsCommand(),
                         SettingsCommand(), VerifyCommand(), IndexCommand(),   ExportCommand(),
                         CombineCommand(),  ReportCommand(), CheckCommand(),   DatesCommand(),
                         CoverageCommand(), SampleCommand(), DoublesCommand(), RegisterCommand()}};
}
