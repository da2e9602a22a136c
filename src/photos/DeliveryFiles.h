#pragma once

#include "platform/text/CArray.h"
#include "platform/text/Text.h"

#include <optional>

/// Which files are read for a delivery's photographs. It never changes, so that any thread may ask
/// it; an answer may wait for the disc or the network.
class TOVI_EXPORT DeliveryFiles
{
public:
    /// Files in \p folders alone, symbolic links followed; without a value, all files.
    explicit DeliveryFiles(std::optional<CStringArray> folders) : roots(std::move(folders)) {}

    /// \p path, if it is a file that is read; else empty.
    CString Readable(const CString& path) const;

private:
    std::optional<CStringArray> roots;
};
