#pragma once

#include "hosts/cli/Delivery.h"
#include "hosts/cli/Json.h"

/// Adds --record. \p record outlives \p command.
CLI::Option* AddRecordOption(CLI::App& command, std::string& record);

/// Takes up the inspection in the file \p record. False, with a sentence on standard error, when it
/// doesn't fit; an empty name is no inspection and true.
bool LoadRecord(ToviData& document, const CString& record);

/// Opens \p delivery for an inspection that will be saved to \p record, and takes up what is there
/// already. Returns the exit status; what isn't ExitDone was told on standard error.
int OpenInspection(const DeliveryArguments& arguments, const CString& record, TreeTypeArgument tree,
                   OpenedDelivery& delivery);

/// Saves the inspection to the file \p record and returns the exit status; a failure is told on
/// standard error.
int SaveRecord(ToviData& document, const CString& record);

/// A reason that the record operations never give.
inline constexpr int noReason = -1;

/// The exit status of a save to the file \p record that \p saved or failed for \p reason, which is
/// told on standard error.
int TellSaved(bool saved, const CString& record, int reason);

/// True, with a sentence on standard error, when the file \p path would stand in the delivery's
/// folder, where nothing is ever written.
bool RefuseInDelivery(const CString& path, const OpenedDelivery& delivery);

/// The slots of the labels on \p photo, in ascending order.
Json LabelsOf(const ToviPhoto& photo);

/// {"index","labels","comment"}
Json ReviewOf(const ToviPhoto& photo, int index);
