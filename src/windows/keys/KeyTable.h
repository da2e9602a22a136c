#pragma once

#include "platform/text/Export.h"
#include "windows/keys/FrameCommand.h"

#include <QString>

#include <optional>
#include <span>

/// What commands are listed under together.
enum class KeyGroup
{
    File,
    View,
    Move,
    Review,
    Help,
    Zoom
};

/// The windows in which a key counts: the same one may mean two things in two windows.
enum class KeyPlace
{
    Main = 1,
    Zoom = 2,
    Everywhere = Main | Zoom
};

/// A command and the keys that it has at first.
struct KeyRow
{
    FrameCommand command;
    /// In the profile; empty for what can't be changed.
    const char* name;
    KeyGroup group;
    /// The words of its menu entry, with the mnemonic.
    const char* text;
    /// With "; " between them; empty for none.
    const char* keys = "";
    /// Those of the set before this one, where they were others.
    const char* oldKeys = nullptr;
    KeyPlace place = KeyPlace::Main;
};

/// Every command once, group by group.
TOVI_EXPORT std::span<const KeyRow> KeyTable();
TOVI_EXPORT const KeyRow& KeyRowOf(FrameCommand command);

/// The words of a menu entry as they stand elsewhere.
TOVI_EXPORT QString MenuWords(QString text);
TOVI_EXPORT QString GroupTitle(KeyGroup group);

/// The command that pastes or removes the label \p slot, and back.
TOVI_EXPORT FrameCommand LabelCommandOf(unsigned int slot);
TOVI_EXPORT std::optional<unsigned int> LabelOfCommand(FrameCommand command);
