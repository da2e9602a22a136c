#pragma once

#include "platform/text/Text.h"

/// The path of a host's information file with the three titles that it shows: a value for the
/// host's own use, which reads and writes no file.
class TOVI_EXPORT ToviInfoTxtManager
{
public:
    explicit ToviInfoTxtManager(const char* path) : infoPath(path) {}

    /// An empty \p path leaves the one that is there.
    void SetInfoPath(const char* path)
    {
        if (*path != '\0') infoPath = path;
    }
    void SetTitle(const char* left, const char* center, const char* right)
    {
        leftTitle = left;
        centerTitle = center;
        rightTitle = right;
    }

    const CString& GetInfoPath() const { return infoPath; }
    const CString& GetLeftTitle() const { return leftTitle; }
    const CString& GetCenterTitle() const { return centerTitle; }
    const CString& GetRightTitle() const { return rightTitle; }

private:
    CString infoPath;
    CString leftTitle;
    CString centerTitle;
    CString rightTitle;
};
