#include "hosts/cli/Commands.h"
#include "hosts/cli/Profile.h"
#include "hosts/cli/Usage.h"

#include "platform/files/MibFile.h"
#include "platform/host/HostProcess.h"
#include "platform/host/HostServices.h"
#include "platform/host/Interrupt.h"
#include "platform/host/TerminalUserInterface.h"
#include "platform/store/FileProfileStore.h"

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
    app.set_version_flag("--version", "tovi " TOVI_VERSION, "名前と版を表示する");
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
    if (argc < 2) {
        std::cerr << app.help();
        return ExitWrongUsage;
    }
    try {
        app.parse(argc, argv);
        return ExitDone;
    } catch (const CLI::Success& answer) {
        app.exit(answer);
        return ExitDone;
    } catch (const CLI::ParseError& error) {
        const std::vector<CLI::App*> called = app.get_subcommands();
        const CString command = called.empty() ? "" : called.front()->get_name() + " ";
        Complain("使い方が正しくありません。" + WhatIsWrong(app, {argv + 1, argv + argc}, error) +
                 "tovi " + command + "--help で確かめてください。");
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
    Complain(outputLost);
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
