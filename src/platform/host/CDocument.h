#pragma once

#include "platform/host/CObject.h"

class CWnd;

/// The host's document as the library knows it: somebody who passes an update on to all views.
class TOVI_EXPORT CDocument
{
public:
    virtual ~CDocument() = default;

    /// Tells every view but \p sender (null: every view) of the change \p hint, a value of
    /// ToviData::UpdateHint. \p object may be null. All views have reacted when this returns.
    virtual void UpdateAllViews(CWnd* sender, int hint, CObject* object) = 0;
};
