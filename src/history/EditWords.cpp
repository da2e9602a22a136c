#include "history/EditWords.h"

#include <algorithm>
#include <array>

namespace
{
constexpr std::array<const char*, labelCount> names = {"OK",  "NG1",      "NG2",
                                                       "NG3", "コメント", "任意"};

CString Named(LabelSet labels)
{
    CString text;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (!labels[slot]) continue;
        if (!text.empty()) text += "・";
        text += names[slot];
    }
    return text;
}

/// What the changes of an edit have in common.
struct Summary
{
    explicit Summary(const LabelEdit& edit)
    {
        for (const LabelEdit::Change& change : edit.changes) {
            pasted |= change.after.labels & ~change.before.labels;
            removed |= change.before.labels & ~change.after.labels;
            allBare = allBare && change.after == PhotoReview();
            if (change.before.comment == change.after.comment) continue;
            commentDiffers = true;
            allWritten = allWritten && change.before.comment.empty();
            allErased = allErased && change.after.comment.empty();
        }
        // The label follows its comment.
        if (!commentDiffers) return;
        pasted.reset(LabelComment);
        removed.reset(LabelComment);
    }

    LabelSet pasted;
    LabelSet removed;
    bool allBare = true;
    bool commentDiffers = false;
    bool allWritten = true;
    bool allErased = true;
};

CString CommentWords(const Summary& summary)
{
    if (summary.allWritten) return "コメントを書く";
    return summary.allErased ? "コメントを消す" : "コメントを直す";
}

CString WordsOf(const Summary& summary)
{
    const std::size_t kinds = summary.removed.count() + (summary.commentDiffers ? 1 : 0);
    if (summary.allBare && kinds > 1) return "すべての付箋を外す";
    // What else goes gives way to it.
    if (summary.pasted.any()) return Named(summary.pasted) + " を付ける";
    if (summary.commentDiffers) return CommentWords(summary);
    return Named(summary.removed) + " を外す";
}
} // namespace

CString EditWords(const LabelEdit& edit, const CString& nameOfOne)
{
    CString words;
    switch (edit.kind) {
    case LabelEdit::RecordLoad:
        words = "検査状況を読み込む";
        break;
    case LabelEdit::RecordMerge:
        words = "ほかのプログラムの変更を合わせる";
        break;
    default:
        words = WordsOf(Summary(edit));
    }
    const bool isOne = edit.changes.size() == 1 && !nameOfOne.empty();
    return words + "（" + (isOne ? nameOfOne : Format("%zu枚", edit.changes.size())) + "）";
}
