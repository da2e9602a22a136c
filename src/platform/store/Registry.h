#pragma once

#include "platform/store/SharedSectionFile.h"

#include <optional>

enum class RegistryHive
{
    CurrentUser,
    LocalMachine
};

enum class RegistryType
{
    Text,
    /// A text that may hold names of places to be filled in by its reader.
    ExpandableText,
    /// Anything else, such as a number.
    Other
};

struct RegistryValue
{
    RegistryType type = RegistryType::Other;
    /// The text of the value, not expanded; of another type, what the file holds.
    CString text;

    bool operator==(const RegistryValue&) const = default;
};

/// Values by hive, key and name, one file for the user and one for the machine. A key is the names
/// of its levels with "\" between, such as "SOFTWARE\Orvane Systems". Keys and names compare
/// without regard to letter case.
///
/// The files are section files: a section for each key, an entry for each name, and as its value
/// "sz:" with a text, "expand_sz:" with an expandable text, or anything else, such as "dword:1".
class Registry
{
public:
    /// The full paths of the two files, which need not exist.
    Registry(CString userPath, CString machinePath);

    /// The registry of the user that runs the program and of this machine.
    static Registry OfThisMachine();

    /// Nothing when the key or the name is missing.
    std::optional<RegistryValue> ReadValue(RegistryHive hive, const CString& key,
                                           const CString& name);

    /// Writes a value, with its key when that is missing. False when it could not be kept.
    bool WriteValue(RegistryHive hive, const CString& key, const CString& name,
                    const RegistryValue& value);

    /// The names of the keys one level below \p key, each once.
    CStringArray ListSubKeys(RegistryHive hive, const CString& key);

private:
    SharedSectionFile& FileOf(RegistryHive hive);

    SharedSectionFile user;
    SharedSectionFile machine;
};
