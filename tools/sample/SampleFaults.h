#pragma once

#include "sample/DeliveryBuilder.h"

#include <span>

/// Something wrong that a delivery can be made with on purpose.
struct SampleFault
{
    /// On the command line.
    std::string_view name;
    /// The rule of the intake check that finds it.
    std::string_view rule;
    std::string_view what;
    /// What it takes; what is empty or 0 takes any.
    std::string_view section;
    int discs;
    int photos;
    /// Each may be null: what is changed of the options, of the photographs, and in the folder
    /// where all was written.
    void (*choose)(SampleOptions& options);
    void (*change)(DeliveryBuilder& delivery);
    void (*damage)(const CString& folder);
};

/// All faults.
std::span<const SampleFault> SampleFaults();

/// The fault \p name, or null.
const SampleFault* FindSampleFault(std::string_view name);

/// Writes the delivery of \p options with \p faults to \p folder. Throws std::invalid_argument when
/// two of them can't be in one delivery, else as DeliveryBuilder does.
void WriteFaultySample(SampleOptions options, std::span<const SampleFault* const> faults,
                       const CString& folder, const std::function<void(int)>& progress = {});
