#pragma once

#include "platform/text/Text.h"

/// A delivery to try the program with. The program that makes it stands beside this one, if it was
/// installed.
namespace SampleDelivery
{
bool CanBeMade();
/// The folder of the sample, which is made at the first call; empty when it can't be. It stands in
/// the user's cache folder.
CString Make();
} // namespace SampleDelivery
