#pragma once

#include "hosts/cli/Delivery.h"
#include "hosts/cli/Json.h"

#include "inspection/RecordHold.h"

/// The record of an inspection, as the user names it.
struct RecordArguments
{
    /// Empty for no inspection.
    std::string path;
    /// Also the record of another delivery.
    bool force = false;
};

/// --record and --force.
Options RecordOptions(RecordArguments& record, Need need = Need::Optional);
/// --force alone.
Option ForceOption(RecordArguments& record);

/// Takes up the inspection in the file \p record. False, with a sentence on standard error, when it
/// doesn't fit; no inspection is true.
bool LoadRecord(ToviData& document, const RecordArguments& record);

/// An inspection to be changed: the delivery, and the record that nobody else changes meanwhile.
struct Inspection
{
    explicit Inspection(RecordArguments named) : record(std::move(named)), hold(record.path) {}

    RecordArguments record;
    RecordHold hold;
    /// The content of the record that was taken up.
    CString version;
    OpenedDelivery delivery;
};

/// Opens \p inspection and takes up what its record holds already. Returns the exit status; what
/// isn't ExitDone was told on standard error.
int Open(Inspection& inspection, const DeliveryArguments& arguments, TreeTypeArgument tree);

/// Saves \p inspection to its record, which is open to others from then on, and returns the exit
/// status; a failure is told on standard error.
int Save(Inspection& inspection);

/// Keeps others from changing the record \p path, which \p hold is for. Returns and tells as above.
int Take(RecordHold& hold, const CString& path);

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
