#pragma once

#include "kinds/PhotoXMLType.h"
#include "platform/text/Text.h"

#include <QStringList>

#include <optional>

/// What the user says on the command line of the viewer; empty texts for what he doesn't say.
struct ViewerOptions
{
    CString delivery;
    CString record;
    CString profile;
    /// Nothing: told from the delivery.
    std::optional<PhotoXMLType> family;
};

/// The exit status of a wrong command line.
inline constexpr int wrongUsage = 2;

/// Reads the command line \p arguments, the first of which is the program. Nothing when that calls
/// for no window: what was asked for stands on standard output, what is wrong on standard error,
/// and \p status is the exit status.
std::optional<ViewerOptions> ReadOptions(const QStringList& arguments, int& status);
