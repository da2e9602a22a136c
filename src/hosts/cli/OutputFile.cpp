#include "hosts/cli/OutputFile.h"

#include "hosts/cli/Delivery.h"

#include "platform/AtomicFile.h"

#include <iostream>

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
