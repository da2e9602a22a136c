#pragma once

#include "hosts/cli/CommandLine.h"
#include "hosts/cli/Outcome.h"
#include "kinds/DeliveryFamilies.h"

#include "delivery/DeliveryOpening.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// What the user says about the delivery on every command.
struct DeliveryArguments
{
    std::string path;
    std::string family = familyIsGuessed;
};

/// DELIVERY and --family.
Options DeliveryOptions(DeliveryArguments& arguments, Need need = Need::Required);

/// --node, the titles from the root down.
Option NodeOption(std::vector<std::string>& nodes);

/// The number of a tree; that of the settings when the user names none.
using TreeTypeArgument = std::optional<int>;

/// --type
Option TreeTypeOption(TreeTypeArgument& type);

/// Opens the delivery and writes why it failed to standard error, in one sentence that says what to
/// do. When it was loaded, so are the user's settings, and the tree is built.
OpenedDelivery OpenDelivery(const DeliveryArguments& arguments, TreeTypeArgument tree = {});

/// Selects the node that \p titles lead to from the root. False, with a sentence on standard error,
/// when there is no such node.
bool SelectNode(ToviData& document, const std::vector<std::string>& titles);
