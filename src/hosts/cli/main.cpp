#include "hosts/cli/Commands.h"
#include "hosts/cli/Outcome.h"
#include "hosts/cli/Profile.h"

#include "platform/files/MibFile.h"
#include "platform/host/HostProcess.h"
#include "platform/host/HostServices.h"
#include "platform/host/Interrupt.h"
#include "platform/host/TerminalUserInterface.h"
#include "platform/store/FileProfileStore.h"

#include <new>

namespace
{
/// Runs what the command line calls and returns the exit status.
int Run(int argc, char** argv)
{
    try {
        std::string profile = DefaultProfilePath();
        const Program program = AllOfTovi(profile);
        const Call call = Parse(program, argc, argv);
        if (call.command == nullptr) return call.status;
        UseProfile(MibAbsolutePath(profile));
        return call.command->run();
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
    InstallInterruptHandler();
    return WithOutputArrived(Run(argc, argv));
}
