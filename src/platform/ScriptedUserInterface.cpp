#include "platform/ScriptedUserInterface.h"

#include "platform/TerminalUserInterface.h"

#include <utility>

namespace
{
/// Takes the first of \p list, or \p otherwise when it is empty.
template <class T>
T TakeFirst(std::deque<T>& list, T otherwise)
{
    if (list.empty()) return otherwise;
    T first = std::move(list.front());
    list.pop_front();
    return first;
}
} // namespace

CStringArray ScriptedUserInterface::Messages() const
{
    CStringArray texts;
    for (const Call& call : calls) {
        if (call.kind == CallKind::Message) texts.Add(call.text);
    }
    return texts;
}

MessageAnswer ScriptedUserInterface::ShowMessage(const CString& text, const CString& caption,
                                                 MessageButtons buttons, MessageIcon icon)
{
    calls.push_back({CallKind::Message, text, caption, buttons, icon, {}});
    return TakeFirst(answers, TerminalUserInterface::SafeAnswer(buttons));
}

bool ScriptedUserInterface::ChooseFolder(CString& folder, const CString& title,
                                         FolderChooserStyle style)
{
    calls.push_back({CallKind::FolderChooser, folder, title, {}, {}, style});
    const std::optional<CString> chosen = TakeFirst(folders, std::optional<CString>());
    folder = chosen.value_or(folder);
    return chosen.has_value();
}

void ScriptedUserInterface::ShowProgress(const CString& text)
{
    calls.push_back({CallKind::Progress, text, {}, {}, {}, {}});
}
