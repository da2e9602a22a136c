#pragma once

#include "delivery/ToviData.h"
#include "delivery/ToviEnouDataFactory.h"
#include "sample/DeliveryBuilder.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <map>
#include <memory>

/// The folder of the PHOTO.XML of a sample delivery of \p photos photographs, made on the first
/// call.
inline CString SampleFolder(int photos)
{
    static const TempFolder temp;
    static std::map<int, CString> made;
    CString& folder = made[photos];
    if (folder.empty()) {
        const CString delivery = temp.Path(std::to_string(photos));
        DeliveryBuilder({.photos = photos, .drawings = photos / 6, .images = false})
            .Write(delivery);
        folder = delivery + "/PHOTO";
    }
    return folder;
}

inline std::unique_ptr<ToviData> OpenSample(const CString& folder)
{
    ToviEnouDataFactory factory;
    return std::unique_ptr<ToviData>(
        factory.Create(nullptr, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
}
