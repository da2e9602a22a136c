#include "hosts/cli/OutputFile.h"

#include "hosts/cli/Records.h"

#include "platform/files/AtomicFile.h"

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

int WriteOutput(const CString& path, std::string_view bytes)
{
    if (path == standardOutputName) {
        std::cout << bytes;
        return ExitDone;
    }
    WriteFailure failure = WriteFailure::None;
    if (WriteFileAtomically(path, bytes, &failure)) return ExitDone;
    Complain(WhyNotWritten(path, failure));
    return ExitFailed;
}
