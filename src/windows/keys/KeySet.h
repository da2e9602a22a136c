#pragma once

#include "windows/keys/KeyTable.h"

#include <QKeySequence>
#include <QList>

#include <map>

class ProfileStore;

/// Which keys the commands have. No key has two commands in one place (see KeyPlace).
///
/// A label's key counts with Shift, too: it then pastes the label and stays at the photograph.
class TOVI_EXPORT KeySet
{
public:
    /// The keys of the table.
    KeySet();

    /// None for a command without keys.
    const QList<QKeySequence>& Of(FrameCommand command) const;
    /// What those of a label are with Shift; none of other commands and for keys that have a
    /// modifier already.
    QList<QKeySequence> WithShift(FrameCommand command) const;

    /// The commands whose keys would no longer be theirs if \p key were one of \p command.
    std::vector<FrameCommand> Clashes(FrameCommand command, const QKeySequence& key) const;
    /// The window itself needs \p key where \p command counts, so that no command can have it.
    static bool IsFixed(FrameCommand command, const QKeySequence& key);
    /// Gives \p command the keys \p keys alone, and takes them away from whoever has them. One that
    /// is fixed isn't given.
    void Assign(FrameCommand command, const QList<QKeySequence>& keys);
    /// Gives the labels the keys that they had before they went by their badges.
    void TakeOldLabelKeys();

    /// Takes over what the user has changed; a value of no use changes nothing.
    void Load(const ProfileStore& profile);
    /// Keeps what differs from the table. False when that failed.
    bool Save(ProfileStore& profile) const;

    bool operator==(const KeySet&) const = default;

private:
    std::map<FrameCommand, QList<QKeySequence>> keysOf;
};

/// Those that count now; of the thread of the windows.
TOVI_EXPORT const KeySet& CurrentKeys();
TOVI_EXPORT void SetCurrentKeys(KeySet keys);

/// How \p key is called to the user.
TOVI_EXPORT QString KeyText(const QKeySequence& key);
/// All present keys of \p command, with "、" between them; empty for none.
TOVI_EXPORT QString KeyText(FrameCommand command);
/// \p text with the first of them behind it, as a tip says it.
TOVI_EXPORT QString WithKey(const QString& text, FrameCommand command);
