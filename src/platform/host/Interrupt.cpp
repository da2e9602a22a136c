#include "platform/host/Interrupt.h"

#include <signal.h>

#include <atomic>

namespace
{
std::atomic<int> listeners = 0;
std::atomic<bool> interrupted = false;
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

void EndProgram(int number)
{
    signal(number, SIG_DFL);
    raise(number);
}

void OnInterrupt(int number)
{
    if (listeners == 0 || interrupted.exchange(true)) EndProgram(number);
}
} // namespace

void InstallInterruptHandler()
{
    struct sigaction before = {};
    if (sigaction(SIGINT, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) return;
    struct sigaction action = {};
    action.sa_handler = OnInterrupt;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
}

bool WasInterrupted()
{
    return interrupted.exchange(false);
}

InterruptListener::InterruptListener()
{
    ++listeners;
}

InterruptListener::~InterruptListener()
{
    if (--listeners == 0 && interrupted.exchange(false)) EndProgram(SIGINT);
}
