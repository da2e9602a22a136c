#pragma once

/// Marks the classes and functions that make up the library's boundary. Everything else stays
/// hidden inside libToviCore.so.
#define TOVI_EXPORT __attribute__((visibility("default")))
