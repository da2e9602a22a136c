#include "hosts/cli/IntakeArguments.h"

#include "platform/host/HostServices.h"
#include "platform/host/Interrupt.h"

namespace
{
CString CsvField(const CString& text)
{
    const bool isFormula =
        !text.empty() && std::string_view("=+-@\t\r").find(text[0]) != std::string_view::npos;
    return "\"" + CString(isFormula ? "'" : "") + ReplaceAll(text, "\"", "\"\"") + "\"";
}
} // namespace

Json NumbersOf(const std::vector<int>& numbers)
{
    Json array = Json::Array();
    for (const int number : numbers) array.Add(number);
    return array;
}

bool UnderProgress(const char* title,
                   const std::function<void(const std::function<bool(int, int)>& tell)>& work)
{
    const InterruptListener listener;
    UserInterface& user = *GetHostServices().userInterface;
    bool goesOn = true;
    work([&](int done, int all) {
        constexpr int step = 50;
        if (done % step == 0) user.ShowProgress(Format("%s　%d / %d", title, done, all));
        return goesOn = !WasInterrupted();
    });
    user.ShowProgress("");
    if (!goesOn) Complain("中断しました。");
    return goesOn;
}

CString CsvLine(const std::vector<CString>& fields)
{
    CString line;
    for (const CString& field : fields) line += (line.empty() ? "" : ",") + CsvField(field);
    return line + "\r\n";
}

Option TableFormatOption(std::string& format)
{
    return {.name = "--format",
            .help = "出力の形（既定は json）",
            .target = &format,
            .valueName = "json|csv",
            .accepted = OneOf{{"json", "csv"}}};
}
