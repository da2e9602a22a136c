#include "platform/office/Office.h"

#include "platform/files/RunFolder.h"
#include "platform/office/UnoText.h"

#include <com/sun/star/bridge/BridgeFactory.hpp>
#include <com/sun/star/bridge/XBridgeFactory2.hpp>
#include <com/sun/star/connection/Connector.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>

#include <dlfcn.h>
#include <sys/stat.h>

#include <cstdlib>
#include <random>
#include <sstream>
#include <thread>

using namespace com::sun::star;

namespace
{
constexpr auto answerLimit = std::chrono::seconds(60);
constexpr auto endLimit = std::chrono::seconds(10);
constexpr auto connectPause = std::chrono::milliseconds(20);
/// With these it asks to be started anew, as it does when it has just made its profile.
constexpr int restartStatuses[] = {79, 81};
constexpr int mostLaunches = 3;

/// The folder of the office, which is that of its libraries.
std::string ProgramFolder()
{
    Dl_info facts;
    const auto* inLibrary = reinterpret_cast<const void*>(&rtl_bootstrap_set);
    if (dladdr(inLibrary, &facts) == 0) return {};
    const std::string library = facts.dli_fname;
    return library.substr(0, library.rfind('/') + 1);
}

/// What the office needs: the system, which keeps parts of it in every one of these folders, fonts,
/// and the folder \p home of its own, in which the form lies and the report is made. No delivery
/// and nothing else of the user is in its sight.
FencePlan PlanFor(const std::string& home)
{
    FencePlan plan = {
        .readable = {"/usr", "/lib", "/lib64", "/etc", "/opt", "/var", "/proc", "/sys", "/dev"},
        .writable = {home, "/dev/null"},
        .socketFolders = {"/tmp", "/var/tmp"},
        .mayStartPrograms = true};
    if (const char* user = std::getenv("HOME")) {
        for (const char* fonts :
             {"/.fonts", "/.local/share/fonts", "/.config/fontconfig", "/.cache/fontconfig"}) {
            plan.readable.push_back(user + std::string(fonts));
        }
    }
    return plan;
}

std::string NewAddress()
{
    std::random_device random;
    std::ostringstream name;
    name << "pipe,name=tovi-" << std::hex << random() << random();
    return name.str();
}

void Dispose(const uno::Reference<uno::XInterface>& object)
{
    const uno::Reference<lang::XComponent> component(object, uno::UNO_QUERY);
    if (component.is()) component->dispose();
}

/// Runs \p work on an office that may have died.
template <typename Work>
void Try(Work work)
{
    try {
        work();
    } catch (const uno::Exception&) {
    }
}
} // namespace

Office::Office(std::string folder) : home(std::move(folder)), address(NewAddress())
{
    mkdir((home + "/temporary").c_str(), 0700);
}

Office::~Office()
{
    if (desktop.is()) {
        const CallLimit limit = LimitCalls();
        Try([this] { desktop->terminate(); });
    }
    Disconnect();
    if (remote.is()) process.WaitForEnd(endLimit);
}

void Office::Disconnect()
{
    const CallLimit limit = LimitCalls();
    desktop.clear();
    Try([this] { Dispose(bridge); });
    bridge.clear();
    Try([this] { Dispose(local); });
    local.clear();
}

bool Office::Start(const std::function<bool()>& giveUp)
{
    if (!Launch()) return false;
    const std::string bootstrap = "vnd.sun.star.pathname:" + ProgramFolder() + "fundamentalrc";
    rtl::Bootstrap::set("URE_BOOTSTRAP", ToUno(bootstrap));
    local = cppu::defaultBootstrap_InitialComponentContext();
    return Connect(giveUp);
}

bool Office::Launch()
{
    ++launches;
    const std::string profile = FileUrl(home + "/profile").toUtf8().getStr();
    return process.Start(
        {ProgramFolder() + "soffice.bin", "--headless", "--norestore", "--nologo", "--nodefault",
         "--nofirststartwizard", "-env:UserInstallation=" + profile,
         "--accept=" + address + ";urp;"},
        {"TMPDIR=" + home + "/temporary", "LC_ALL=C.UTF-8", "SAL_USE_VCLPLUGIN=svp"},
        ProcessFence(PlanFor(home)));
}

bool Office::IsRunning()
{
    if (process.IsRunning()) return true;
    for (const int status : restartStatuses) {
        if (process.ExitStatus() == status && launches < mostLaunches) return Launch();
    }
    return false;
}

bool Office::Connect(const std::function<bool()>& giveUp)
{
    const auto end = std::chrono::steady_clock::now() + answerLimit;
    while (IsRunning() && !giveUp() && std::chrono::steady_clock::now() < end) {
        const bool connected = TryToConnect();
        process.NoteSockets(home + '/' + socketListName);
        if (connected) return true;
        std::this_thread::sleep_for(connectPause);
    }
    return false;
}

bool Office::TryToConnect()
{
    const CallLimit limit = LimitCalls();
    try {
        const auto connection = connection::Connector::create(local)->connect(ToUno(address));
        const auto made =
            bridge::BridgeFactory::create(local)->createBridge({}, "urp", connection, {});
        bridge = made;
        remote.set(made->getInstance("StarOffice.ComponentContext"), uno::UNO_QUERY_THROW);
        desktop = frame::Desktop::create(remote);
        return true;
    } catch (const uno::Exception&) {
        // It doesn't listen yet, or has just ended to be started anew.
        remote.clear();
        Try([this] { Dispose(bridge); });
        bridge.clear();
        return false;
    }
}
