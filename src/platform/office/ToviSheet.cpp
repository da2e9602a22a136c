// The module's entry, and LibreOffice as the spreadsheet application behind it.

#include "platform/office/CalcBook.h"

#include <signal.h>

#include <exception>

using namespace com::sun::star;

namespace
{
/// Keeps the writing to an office that has died from ending this program.
class IgnoredPipeSignal
{
public:
    IgnoredPipeSignal() { sigaction(SIGPIPE, &ignore, &before); }
    IgnoredPipeSignal(const IgnoredPipeSignal&) = delete;
    IgnoredPipeSignal& operator=(const IgnoredPipeSignal&) = delete;
    ~IgnoredPipeSignal() { sigaction(SIGPIPE, &before, nullptr); }

private:
    const struct sigaction ignore = [] {
        struct sigaction action = {};
        action.sa_handler = SIG_IGN;
        return action;
    }();
    struct sigaction before = {};
};

class CalcApplication : public SpreadsheetApplication
{
public:
    explicit CalcApplication(const CString& folder) : office(folder) {}

    bool Start(const std::function<bool()>& giveUp) { return office.Start(giveUp); }
    std::unique_ptr<SpreadsheetBook> Open(const CString& path) override
    {
        try {
            return std::make_unique<CalcBook>(office, path);
        } catch (const uno::Exception&) {
            return nullptr;
        }
    }

private:
    IgnoredPipeSignal ignoredPipeSignal;
    Office office;
};
} // namespace

extern "C" TOVI_EXPORT SpreadsheetApplication*
ToviStartSpreadsheet(const CString& folder, const std::function<bool()>& giveUp)
{
    try {
        auto application = std::make_unique<CalcApplication>(folder);
        return application->Start(giveUp) ? application.release() : nullptr;
    } catch (const uno::Exception&) {
        return nullptr;
    }
}
