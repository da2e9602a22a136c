#pragma once

#include "platform/text/Text.h"

/// What this machine lacks for showing deliveries as they are: a font with Japanese letters, the
/// reader of TIFF pictures. A sentence each, which tells what to install; the one of the font is in
/// English too, as nobody could read it otherwise. Empty when all is there.
TOVI_EXPORT CStringArray WhatMachineLacks();
