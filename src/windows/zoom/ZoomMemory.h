#pragma once

#include "platform/text/Export.h"

#include <QSize>

/// What a new zoom window takes over from those before it. It outlives the program in the profile
/// store, whose entries other programs share.
struct TOVI_EXPORT ZoomMemory
{
    static constexpr const char* MultiDialogSection_ = "MultiDialogSize";
    static constexpr const char* MultiDialogSection2_ = "MultiDialogInfo";
    static constexpr const char* MultiDlgWEntry_ = "DialogWidth";
    static constexpr const char* MultiDlgHEntry_ = "DialogHeight";
    static constexpr const char* MultiDlgTabIdxEntry_ = "DialogTabIndex";
    static constexpr const char* MultiDlgSplPosEntry_ = "DialogSplPos";
    static constexpr const char* MultiDlgZoomEntry_ = "DialogZoom";
    static constexpr const char* MultiDlgInfoEntry_ = "DialogInfo";
    static constexpr const char* MultiDlgKeepViewEntry_ = "DialogKeepView";

    static constexpr int smallestPane = 60;

    int dlgWidth = 0;
    int dlgHeight = 0;
    /// Is saved but never read: each start of the program begins with the same tab.
    int dlgTabIndex = 1;
    /// The width of the photograph; below ZoomMemory::smallestPane when there was no window yet.
    int dlgSplPos = 0;
    /// The window was maximised.
    bool dlgZoom = false;
    /// The information pane is shown.
    bool dlgInfo = true;
    /// The next photograph is looked at where the one before was.
    bool keepsView = false;

    QSize Size() const { return {dlgWidth, dlgHeight}; }

    void Load();
    void Save() const;
};
