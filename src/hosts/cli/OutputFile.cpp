#include "hosts/cli/OutputFile.h"

#include "hosts/cli/Records.h"

#include <iostream>

int ExamineOutput(const CString& path, const OpenedDelivery& delivery)
{
    if (path == standardOutputName) return ExitDone;
    if (RefuseInDelivery(path, delivery)) return ExitWrongUsage;
    const WriteFailure failure = WhyNotReplaceable(path);
    if (failure == WriteFailure::None) return ExitDone;
    Complain(WhyNotWritten(path, failure));
    return ExitFailed;
}

int WriteOutput(const CString& path, const std::function<bool(const ByteSink&)>& produce)
{
    if (path == standardOutputName) {
        return produce([](std::string_view bytes) { return !!(std::cout << bytes); }) ? ExitDone
                                                                                      : ExitFailed;
    }
    WriteFailure failure = WriteFailure::None;
    if (WriteFileAtomically(path, produce, &failure)) return ExitDone;
    Complain(WhyNotWritten(path, failure));
    return ExitFailed;
}

int WriteOutput(const CString& path, std::string_view bytes)
{
    return WriteOutput(path, [bytes](const ByteSink& sink) { return sink(bytes); });
}
