#pragma once

#include "delivery/DeliveryOpening.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The exit statuses of tovi.
enum ExitStatus
{
    ExitDone = 0,
    ExitFailed = 1,
    ExitWrongUsage = 2,
    /// Ctrl+C, as a shell tells it.
    ExitInterrupted = 130
};

/// What the user says about the delivery on every command.
struct DeliveryArguments
{
    std::string path;
    std::string family = "auto";
};

/// Adds DELIVERY and --family to \p command. \p arguments outlives it.
void AddDeliveryArguments(CLI::App& command, DeliveryArguments& arguments);

/// Adds --node, the titles from the root down. \p nodes outlives \p command.
void AddNodeOption(CLI::App& command, std::vector<std::string>& nodes);

/// The number of a tree; that of the settings when the user names none.
using TreeTypeArgument = std::optional<int>;

/// Adds --type. \p type outlives \p command.
void AddTreeTypeOption(CLI::App& command, TreeTypeArgument& type);

/// Opens the delivery and writes why it failed to standard error, in one sentence that says what to
/// do. When it was loaded, so are the user's settings, and the tree is built.
OpenedDelivery OpenDelivery(const DeliveryArguments& arguments, TreeTypeArgument tree = {});

/// Selects the node that \p titles lead to from the root. False, with a sentence on standard error,
/// when there is no such node.
bool SelectNode(ToviData& document, const std::vector<std::string>& titles);

/// The name of \p family as --family takes it.
const char* FamilyName(PhotoXMLType family);

/// Writes one line to standard error.
void Complain(const CString& sentence);
