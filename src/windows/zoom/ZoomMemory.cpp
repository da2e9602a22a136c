#include "windows/zoom/ZoomMemory.h"

#include "platform/host/HostServices.h"
#include "platform/store/StoredValues.h"

void ZoomMemory::Load()
{
    if (GetHostServices().profile == nullptr) return;
    const ProfileStore& profile = *GetHostServices().profile;
    ReadStored(profile, MultiDialogSection_, MultiDlgWEntry_, dlgWidth);
    ReadStored(profile, MultiDialogSection_, MultiDlgHEntry_, dlgHeight);
    ReadStored(profile, MultiDialogSection_, MultiDlgSplPosEntry_, dlgSplPos);
    ReadStored(profile, MultiDialogSection_, MultiDlgZoomEntry_, dlgZoom);
    ReadStored(profile, MultiDialogSection2_, MultiDlgInfoEntry_, dlgInfo);
    ReadStored(profile, MultiDialogSection2_, MultiDlgKeepViewEntry_, keepsView);
}

void ZoomMemory::Save() const
{
    const bool saved = StoredSection().Write(
        MultiDialogSection_,
        {StoredNumber(MultiDlgWEntry_, dlgWidth), StoredNumber(MultiDlgHEntry_, dlgHeight),
         StoredNumber(MultiDlgTabIdxEntry_, dlgTabIndex),
         StoredNumber(MultiDlgSplPosEntry_, dlgSplPos), StoredNumber(MultiDlgZoomEntry_, dlgZoom)});
    if (!saved) return;
    StoredSection().Write(MultiDialogSection2_, {StoredNumber(MultiDlgInfoEntry_, dlgInfo),
                                                 StoredNumber(MultiDlgKeepViewEntry_, keepsView)});
}
