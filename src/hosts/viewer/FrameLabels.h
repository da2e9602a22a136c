#pragma once

#include "hosts/viewer/FrameActions.h"
#include "platform/text/Text.h"

#include <QObject>

#include <vector>

class CommentEntry;
class QMainWindow;
class ToviMpiPanel;

/// The main window's commands on labels: what they paste and remove at the selected photograph, and
/// whether the selection then goes on to the next one (付けたら次へ).
class FrameLabels : public QObject
{
    Q_OBJECT

public:
    FrameLabels(QMainWindow* frame, FrameActions& theActions, ToviMpiPanel* thePanel);

    /// The strip in which comments are written.
    QWidget* CommentStrip() const;
    /// Takes what is being written there as the comment.
    void FinishComment();

private:
    void ConnectComment();
    void Label(unsigned int label, bool mayStep);
    void BeginComment();
    void FollowSelection();

    FrameActions& actions;
    ToviMpiPanel* panel;
    CommentEntry* entry;
    /// Those whose comment is being written, by their photo indexes.
    std::vector<int> commented;
};
