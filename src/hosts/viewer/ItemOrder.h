#pragma once

class ToviItemShowSettings;

/// The order in which the inspector wants to see the items of a photograph, kept for the next
/// delivery that is opened: the document itself keeps only which of them are hidden.
namespace ItemOrder
{
void Save(const ToviItemShowSettings& items);
/// Puts \p items in the order that was kept. Those that it doesn't know follow in the order they
/// have.
void Restore(ToviItemShowSettings& items);
} // namespace ItemOrder
