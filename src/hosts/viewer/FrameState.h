#pragma once

#include "platform/text/Text.h"

#include <QByteArray>

/// What the main window remembers from one run to the next, in the profile store.
namespace FrameState
{
/// The entry of the folder with the deliveries.
inline constexpr const char* deliveryFolder = "DeliveryFolder";

/// Bytes under \p entry; empty when there are none.
QByteArray ReadBytes(const char* entry);
void WriteBytes(const char* entry, const QByteArray& bytes);

/// The folder in which the user last chose something of this kind if it is still there, else that
/// of his documents.
CString FolderToStartIn(const char* entry);
void SetLastFolder(const char* entry, const CString& folder);

/// The deliveries opened last, the latest first.
CStringArray RecentDeliveries();
/// Puts \p folder in front of them.
void AddRecentDelivery(const CString& folder);

/// The delivery that is open, or was when the program ended; empty for none.
CString OpenDelivery();
void SetOpenDelivery(const CString& folder);
/// The user wants that one opened at the start.
bool OpensLast();
void SetOpensLast(bool wanted);
} // namespace FrameState
