#pragma once

#include "delivery/ToviData.h"
#include "delivery/ToviEnouDataFactory.h"
#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhotoArray.h"
#include "sample/DeliveryBuilder.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <memory>
#include <vector>

/// A host's document that notes what is broadcast.
class NotingDocument : public CDocument
{
public:
    void UpdateAllViews(CWnd*, int hint, CObject*) override { hints.push_back(hint); }

    std::vector<int> hints;
};

/// A delivery written to a folder of its own and opened, with the tree of the first type.
struct OpenedSample
{
    explicit OpenedSample(const DeliveryBuilder& builder, PhotoXMLType family = PhotoXMLMlit)
    {
        builder.Write(temp.Path());
        Open(temp.Path("PHOTO"), family);
    }

    void Open(const CString& folder, PhotoXMLType family = PhotoXMLMlit)
    {
        ToviEnouDataFactory factory;
        document.reset(factory.Create(&host, folder.c_str(), family, nullptr, nullptr));
        if (document) document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
    }

    ToviPhoto& Photo(int index) const { return *document->GetPhotoActualPhotoArray(index); }
    int DefIndex(const CString& title) const
    {
        return document->GetItemDef()->GetIndexFromTitle(title);
    }

    TestHost services;
    TempFolder temp;
    NotingDocument host;
    std::unique_ptr<ToviData> document;
};
