#include "hosts/cli/Commands.h"
#include "hosts/cli/Profile.h"

#include "platform/FileProfileStore.h"
#include "platform/HostProcess.h"
#include "platform/HostServices.h"
#include "platform/Interrupt.h"
#include "platform/MibFile.h"
#include "platform/TerminalUserInterface.h"

#include <new>

namespace
{
void DescribeProgram(CLI::App& app)
{
    app.description("工事写真の電子納品データを開いて調べる。結果は標準出力にJSON（UTF-8）で、"
                    "エラーは標準エラー出力に書く。納品データには書き込まない。");
    app.footer("各コマンドの説明: tovi COMMAND --help\n"
               "終了コード: 0 正常、1 開けない・読めない・保存できない、2 使い方の誤り、130 中断");
    app.name("tovi");
    app.require_subcommand(1);
    app.option_defaults()->group("オプション");
    app.set_help_flag("-h,--help", "この説明を表示する")->group("オプション");
    const auto formatter = std::dynamic_pointer_cast<CLI::Formatter>(app.get_formatter());
    const std::pair<const char*, const char*> labels[] = {
        {"Usage", "使い方"},         {"Positionals", "引数"},  {"Options", "オプション"},
        {"Subcommands", "コマンド"}, {"REQUIRED", "（必須）"}, {"OPTIONS", "オプション"},
        {"SUBCOMMAND", "コマンド"}};
    for (const auto& [label, text] : labels) formatter->label(label, text);
    formatter->column_width(24);
}

/// Adds --profile to every command. The options of a command are read before any command runs.
void AddProfileOption(CLI::App& app)
{
    const auto open = [](const std::string& path) { UseProfile(MibAbsolutePath(path)); };
    for (CLI::App* command : app.get_subcommands({})) {
        command
            ->add_option_function<std::string>(
                "--profile", open, "設定ファイル（既定は " + DefaultProfilePath() + "）")
            ->option_text("FILE");
    }
}

int Parse(CLI::App& app, int argc, char** argv)
{
    try {
        app.parse(argc, argv);
        return ExitDone;
    } catch (const CLI::CallForHelp& help) {
        app.exit(help);
        return ExitDone;
    } catch (const CLI::ParseError& error) {
        Complain(CString("使い方が正しくありません（") + error.what() +
                 "）。tovi --help か tovi COMMAND --help で確かめてください。");
        return ExitWrongUsage;
    }
}
/// Parses the command line, which runs the command, and returns the exit status.
int Run(CLI::App& app, int argc, char** argv, const int& status)
{
    try {
        const int parsed = Parse(app, argc, argv);
        return parsed == ExitDone ? status : parsed;
    } catch (const std::bad_alloc&) {
        Complain("メモリが足りません。ほかのプログラムを終了してからやり直してください。");
        return ExitFailed;
    } catch (const std::exception& error) {
        Complain(CString("予期しないエラーで終了します（") + error.what() +
                 "）。納品データと操作を添えて開発元に知らせてください。");
        return ExitFailed;
    }
}

/// The exit status of what ended with \p status, after a look whether its output has arrived.
int WithOutputArrived(int status)
{
    if (StandardOutputHasArrived()) return status;
    Complain("標準出力に結果を書き込めません。出力先と空き容量を確かめてください。");
    return status == ExitDone ? ExitFailed : status;
}
} // namespace

int main(int argc, char** argv)
{
    PrepareHostProcess();
    TerminalUserInterface user;
    InstallHostServices({&user, nullptr, "tovi", RunningProgramPath()});
    UseProfile(DefaultProfilePath());
    InstallInterruptHandler();

    int status = ExitDone;
    CLI::App app;
    DescribeProgram(app);
    AddInfoCommand(app, status);
    AddPhotosCommand(app, status);
    AddTreeCommand(app, status);
    AddSelectCommand(app, status);
    AddSheetCommand(app, status);
    AddLabelCommand(app, status);
    AddCorrectCommand(app, status);
    AddRecordCommand(app, status);
    AddReturnCommand(app, status);
    AddExifCommand(app, status);
    AddValuesCommand(app, status);
    AddPairsCommand(app, status);
    AddSettingsCommand(app, status);
    AddVerifyCommand(app, status);
    AddIndexCommand(app, status);
    AddExportCommand(app, status);
    AddCombineCommand(app, status);
    AddProfileOption(app);
    AddReportCommand(app, status);
    return WithOutputArrived(Run(app, argc, argv, status));
}
