#include "windows/keys/KeySet.h"

#include "platform/host/ProfileStore.h"
#include "platform/text/QtText.h"

#include <algorithm>

namespace
{
using Keys = QList<QKeySequence>;

constexpr const char* section = "Keys";
/// What is stored for a command without keys.
constexpr const char* noKeys = "-";

/// What is printed on the keys, where Qt's words for them are others.
constexpr std::pair<const char*, const char*> keyNames[] = {
    {"Del", "Delete"}, {"PgUp", "PageUp"}, {"PgDown", "PageDown"}, {"Left", "←"},
    {"Right", "→"},    {"Up", "↑"},        {"Down", "↓"}};

Keys KeysIn(const char* text)
{
    Keys keys = QKeySequence::listFromString(QString::fromUtf8(text));
    keys.removeIf([](const QKeySequence& key) { return key.isEmpty(); });
    return keys;
}

bool Meet(KeyPlace one, KeyPlace other)
{
    return (static_cast<int>(one) & static_cast<int>(other)) != 0;
}

bool CanChange(const KeyRow& row)
{
    return *row.name != '\0';
}

Keys Shifted(FrameCommand command, const Keys& keys)
{
    Keys shifted;
    if (!LabelOfCommand(command) && command != FrameCommand::RemoveLabels) return shifted;
    for (const QKeySequence& key : keys) {
        const QKeyCombination pressed = key[0];
        if (pressed.keyboardModifiers() == Qt::NoModifier)
            shifted << QKeySequence(Qt::ShiftModifier | pressed.key());
    }
    return shifted;
}

/// What stands in the profile for keys; nothing when it is of no use.
std::optional<Keys> StoredKeys(const CString& value)
{
    if (value == noKeys) return Keys();
    Keys keys = KeysIn(value.c_str());
    const auto isUseless = [](const QKeySequence& key) {
        return key.count() != 1 || key[0].key() == Qt::Key_unknown;
    };
    if (keys.isEmpty() || std::ranges::any_of(keys, isUseless)) return {};
    return keys;
}
} // namespace

KeySet::KeySet()
{
    for (const KeyRow& row : KeyTable()) {
        if (CanChange(row)) keysOf[row.command] = KeysIn(row.keys);
    }
}

const Keys& KeySet::Of(FrameCommand command) const
{
    static const Keys none;
    const auto found = keysOf.find(command);
    return found == keysOf.end() ? none : found->second;
}

Keys KeySet::WithShift(FrameCommand command) const
{
    return Shifted(command, Of(command));
}

std::vector<FrameCommand> KeySet::Clashes(FrameCommand command, const QKeySequence& key) const
{
    std::vector<FrameCommand> clashes;
    const Keys wanted = Keys{key} + Shifted(command, {key});
    for (const KeyRow& row : KeyTable()) {
        if (row.command == command || !Meet(row.place, KeyRowOf(command).place)) continue;
        const Keys taken = Of(row.command) + WithShift(row.command);
        const auto isTaken = [&taken](const QKeySequence& one) { return taken.contains(one); };
        if (std::ranges::any_of(wanted, isTaken)) clashes.push_back(row.command);
    }
    return clashes;
}

bool KeySet::IsFixed(FrameCommand command, const QKeySequence& key)
{
    return std::ranges::any_of(KeyTable(), [&](const KeyRow& row) {
        return !CanChange(row) && Meet(row.place, KeyRowOf(command).place) &&
               KeysIn(row.keys).contains(key);
    });
}

void KeySet::Assign(FrameCommand command, const Keys& keys)
{
    Keys given;
    for (const QKeySequence& key : keys) {
        if (IsFixed(command, key)) continue;
        given << key;
        for (const FrameCommand loser : Clashes(command, key)) {
            keysOf[loser].removeIf([&](const QKeySequence& held) {
                const Keys mine = Keys{key} + Shifted(command, {key});
                const Keys theirs = Keys{held} + Shifted(loser, {held});
                return std::ranges::any_of(
                    theirs, [&mine](const QKeySequence& one) { return mine.contains(one); });
            });
        }
    }
    keysOf[command] = given;
}

void KeySet::TakeOldLabelKeys()
{
    for (const KeyRow& row : KeyTable()) {
        if (row.oldKeys != nullptr) Assign(row.command, KeysIn(row.oldKeys));
    }
}

void KeySet::Load(const ProfileStore& profile)
{
    for (const KeyRow& row : KeyTable()) {
        if (!CanChange(row)) continue;
        const auto stored = StoredKeys(profile.GetProfileString(section, row.name, ""));
        if (stored) Assign(row.command, *stored);
    }
}

bool KeySet::Save(ProfileStore& profile) const
{
    return profile.WriteTogether([&] {
        for (const KeyRow& row : KeyTable()) {
            if (!CanChange(row)) continue;
            const Keys& keys = Of(row.command);
            CString value;
            if (keys != KeysIn(row.keys)) {
                value = keys.isEmpty() ? noKeys : FromQtText(QKeySequence::listToString(keys));
            }
            if (value == profile.GetProfileString(section, row.name, "")) continue;
            if (!profile.WriteProfileString(section, row.name, value)) return false;
        }
        return true;
    });
}

static KeySet& Present()
{
    static KeySet present;
    return present;
}

const KeySet& CurrentKeys()
{
    return Present();
}

void SetCurrentKeys(KeySet keys)
{
    Present() = std::move(keys);
}

QString KeyText(const QKeySequence& key)
{
    QString text = key.toString(QKeySequence::PortableText);
    for (const auto& [name, shown] : keyNames) {
        const QString end = QString::fromUtf8(name);
        const bool isKey = text == end || text.endsWith(QLatin1Char('+') + end);
        if (isKey) return text.chopped(end.size()) + QString::fromUtf8(shown);
    }
    return text;
}

QString KeyText(FrameCommand command)
{
    QStringList texts;
    for (const QKeySequence& key : CurrentKeys().Of(command)) texts << KeyText(key);
    return texts.join(QStringLiteral("、"));
}

QString WithKey(const QString& text, FrameCommand command)
{
    const Keys& keys = CurrentKeys().Of(command);
    return keys.isEmpty() ? text : QStringLiteral("%1（%2）").arg(text, KeyText(keys.front()));
}
