#pragma once

#include "platform/office/CallLimit.h"

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include <functional>
#include <string>

/// A LibreOffice of our own: a hidden process whose profile and temporary files lie in one folder,
/// and the connection to it. The operations throw com::sun::star::uno::Exception.
class Office
{
public:
    /// \p folder exists and is empty.
    explicit Office(std::string folder);
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;
    /// Asks it to end and waits; one that doesn't is killed.
    ~Office();

    /// False when it can't be started, doesn't answer, or \p giveUp says so meanwhile.
    bool Start(const std::function<bool()>& giveUp);
    /// Bounds the time of the calls that follow, as long as it is kept.
    CallLimit LimitCalls() const { return CallLimit(process); }
    const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& Context() const
    {
        return remote;
    }
    const com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2>& Desktop() const
    {
        return desktop;
    }

private:
    bool Launch();
    bool IsRunning();
    bool Connect(const std::function<bool()>& giveUp);
    /// False when it doesn't listen yet.
    bool TryToConnect();
    void Disconnect();

    std::string home;
    /// Where it listens: a name that nobody else can know beforehand.
    std::string address;
    OfficeProcess process;
    int launches = 0;
    com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> local;
    com::sun::star::uno::Reference<com::sun::star::uno::XInterface> bridge;
    com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> remote;
    com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2> desktop;
};
