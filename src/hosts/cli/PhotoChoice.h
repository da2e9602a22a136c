#pragma once

#include "hosts/cli/Delivery.h"

/// The photographs that a command is about.
struct PhotoChoice
{
    /// Photo indexes as the user writes them: "0,3,5-9".
    std::string at;
    std::vector<std::string> nodes;
    TreeTypeArgument type;

    bool IsEmpty() const { return at.empty() && nodes.empty(); }
};

/// --at
Option AtOption(PhotoChoice& choice);

/// Replaces \p chosen by the photo indexes that --at and --node name; all photographs when neither
/// is given. False, with a sentence on standard error, when one of them names nothing.
bool FindChosen(ToviData& document, const PhotoChoice& choice, ToviPhotoRef& chosen);
