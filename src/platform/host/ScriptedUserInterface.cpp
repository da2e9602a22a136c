#include "platform/host/ScriptedUserInterface.h"

#include "platform/host/TerminalUserInterface.h"

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

class ScriptedProgress : public ProgressPort
{
public:
    explicit ScriptedProgress(ScriptedUserInterface& scripted) : user(scripted) { Note("open"); }
    ~ScriptedProgress() override { Note("close"); }

    bool IsWindow() const override { return !HasCome(user.windowGoesAtPump); }
    bool HasOwner() const override { return !HasCome(user.ownerGoesAtPump); }
    void EnableOwner(bool enable) override { Note("owner " + std::to_string(enable)); }
    void SetCancelEnabled(bool enable) override { Note("cancel " + std::to_string(enable)); }
    void SetCaption(const CString& text) override { Note("caption " + text); }
    void SetRange(int lower, int upper) override
    {
        Note("range " + std::to_string(lower) + " " + std::to_string(upper));
    }
    void SetBar(int pos) override { Note("bar " + std::to_string(pos)); }
    void SetMessage(const CString& text) override { Note("message " + text); }
    void SetPercent(const CString& text) override { Note("percent " + text); }
    void Show() override { Note("show"); }
    bool Pump() override
    {
        Note("pump");
        if (user.onPump) user.onPump();
        return user.cancelAtPumps.contains(++user.pumps);
    }

private:
    void Note(CString text) { user.progress.push_back(std::move(text)); }
    bool HasCome(int pump) const { return pump != 0 && user.pumps >= pump; }

    ScriptedUserInterface& user;
};
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

bool ScriptedUserInterface::AskFolder(const FolderQuestion& question, CString& folder)
{
    calls.push_back({CallKind::FolderQuestion, folder, question.title, {}, {}, {}});
    folderQuestion = question;
    const std::optional<CString> chosen = TakeFirst(folders, std::optional<CString>());
    folder = chosen.value_or(folder);
    return chosen.has_value();
}

bool ScriptedUserInterface::ChooseSaveFile(const SaveQuestion& question, CString& path)
{
    calls.push_back({CallKind::SaveQuestion, question.name, {}, {}, {}, {}});
    saveQuestion = question;
    const std::optional<CString> chosen = TakeFirst(saveFiles, std::optional<CString>());
    path = chosen.value_or(path);
    return chosen.has_value();
}

bool ScriptedUserInterface::Choose(const Choice& asked, int& option)
{
    calls.push_back({CallKind::Choice, asked.title, {}, {}, {}, {}});
    choice = asked;
    const int chosen = TakeFirst(options, -1);
    if (chosen < 0) return false;
    option = chosen;
    return true;
}

bool ScriptedUserInterface::OpenFile(const CString& path)
{
    calls.push_back({CallKind::OpenFile, path, {}, {}, {}, {}});
    return opensFiles;
}

void ScriptedUserInterface::ShowProgress(const CString& text)
{
    calls.push_back({CallKind::Progress, text, {}, {}, {}, {}});
    if (onProgress) onProgress(text);
}

std::unique_ptr<ProgressPort> ScriptedUserInterface::CreateProgress(CWnd* /*parent*/)
{
    return std::make_unique<ScriptedProgress>(*this);
}
