#pragma once

#include "platform/text/Text.h"

#include <QDateTime>
#include <QImage>

class ViewerDocument;

/// What the start page tells of a delivery that was open, without looking into its files, which may
/// lie on a disc that isn't there.
struct RecentFacts
{
    /// The name of the work; empty when nothing is known.
    QString title;
    /// When it was last closed.
    QDateTime worked;
    int photos = 0;
    int unchecked = 0;
    QImage picture;
};

/// What is kept in the profile of the delivery \p folder.
RecentFacts ReadRecentFacts(const CString& folder);
/// The folder by which the delivery of \p document is remembered.
CString RecentFolder(const ViewerDocument& document);
/// Keeps what \p document tells of its delivery now; a picture only if one is in memory.
void KeepRecentFacts(ViewerDocument& document);

/// "未検査 120 / 210枚　11月20日 17:32"; empty when nothing is known.
QString RecentText(const RecentFacts& facts);
