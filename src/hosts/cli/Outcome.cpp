#include "hosts/cli/Outcome.h"

#include "platform/host/HostServices.h"
#include "platform/text/TerminalText.h"

#include <iostream>

void Complain(const CString& sentence)
{
    GetHostServices().userInterface->ShowProgress("");
    std::cerr << HarmlessLine(sentence) << std::endl;
}
